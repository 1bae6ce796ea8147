// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/TableValues.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>

#include "text/DecimalNumber.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

double MinuteLength(TimeUnit unit) noexcept {
  switch (unit) {
    case TimeUnit::Seconds: return 60;
    case TimeUnit::Milliseconds: return 60000;
    case TimeUnit::Minutes:
    case TimeUnit::MinuteNumbers: break;
  }
  return 1;
}

bool IsTime(const std::optional<TimeUnit>& unit) noexcept { return unit && *unit != TimeUnit::MinuteNumbers; }

std::optional<double> TimeNumber(std::string_view text, bool mayHaveComma) {
  if (!mayHaveComma) return DecimalNumber(text, Exponent::Optional);
  std::string plain(text);
  std::replace(plain.begin(), plain.end(), ',', '.');
  return DecimalNumber(plain, Exponent::Optional);
}

}  // namespace

bool IsNothing(std::string_view text) noexcept {
  if (text.empty() || text == ".") return true;
  const auto is = [&](std::string_view other) {
    return std::equal(text.begin(), text.end(), other.begin(), other.end(),
                      [](char c, char lower) { return (c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c) == lower; });
  };
  return is("na") || is("n/a") || is("nan");
}

std::optional<int> WholeNumber(std::string_view text) noexcept {
  int number = 0;
  const char* const last = text.data() + text.size();
  const auto [end, fault] = std::from_chars(text.data(), last, number);
  if (fault != std::errc() || end == text.data()) return std::nullopt;
  const std::string_view rest(end, static_cast<std::size_t>(last - end));
  // "3.0" is how some programs write whole numbers in a column with gaps.
  if (!rest.empty() && (rest[0] != '.' || rest.find_first_not_of('0', 1) != std::string_view::npos)) {
    return std::nullopt;
  }
  return number;
}

std::optional<int> MinuteOf(std::string_view text, const std::optional<TimeUnit>& unit, int maxMinutes,
                            char delimiter) {
  if (!IsTime(unit)) {
    const auto minute = WholeNumber(text);
    return minute && *minute >= 1 && *minute <= maxMinutes ? minute : std::nullopt;
  }
  const auto time = TimeNumber(text, delimiter != ',');
  if (!time || *time < 0) return std::nullopt;
  const double minutes = *time / MinuteLength(*unit);
  if (minutes > maxMinutes) return std::nullopt;
  return std::min(static_cast<int>(std::floor(minutes)) + 1, maxMinutes);
}

std::optional<int> LastMinuteOf(std::string_view text, const std::optional<TimeUnit>& unit, char delimiter) {
  if (!IsTime(unit)) return WholeNumber(text);
  const auto time = TimeNumber(text, delimiter != ',');
  if (!time || *time < 0 || *time / MinuteLength(*unit) > kMaxMinutes) return std::nullopt;
  return std::max(1, static_cast<int>(std::ceil(*time / MinuteLength(*unit))));
}

int LevelOf(std::string_view given, const ProjectParameters& project, std::size_t variable) {
  const int count = project.LevelCounts[variable];
  const std::string text = FieldText(given);  // as a level made of it is named
  const auto find = [&](auto&& fits) {
    for (int level = 1; level <= count; ++level) {
      if (fits(level)) return level;
    }
    return 0;
  };
  if (const int level = find([&](int l) { return LevelName(project, variable, l) == text; }); level > 0) return level;
  if (const int level = find([&](int l) { return LevelLabel(project, variable, l) == text; }); level > 0) return level;
  const int level = find([&](int l) { return EqualsIgnoringCase(LevelName(project, variable, l), text); });
  if (level > 0) return level;
  const auto number = WholeNumber(text);
  return number && *number >= 1 && *number <= count ? *number : 0;
}

}  // namespace zova
