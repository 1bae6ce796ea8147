// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/ColumnName.h"

#include <algorithm>

#include "text/NumberedText.h"

namespace zova {

namespace {

// "(NNC)" as a binary number with C = 1.
std::optional<ColumnPlace> PatternIn(std::string_view text) {
  if (text.size() < 3 || text.size() > kMaxTests + 2 || text.front() != '(' || text.back() != ')') return std::nullopt;
  const std::string_view letters = text.substr(1, text.size() - 2);
  if (letters.find_first_not_of("NC") != std::string_view::npos) return std::nullopt;
  int number = 0;
  for (const char letter : letters) number = 2 * number + (letter == 'C' ? 1 : 0);
  return ColumnPlace{static_cast<int>(letters.size()), number + 1};
}

std::optional<ColumnPlace> PlaceIn(std::string_view text, const MeasureShape& shape) {
  if (shape.Axis == MeasureAxis::Pattern) return PatternIn(text);
  const auto numbers = NumbersIn(text, shape.Form);
  if (!numbers) return std::nullopt;
  const auto [first, second] = *numbers;
  if (shape.Axis == MeasureAxis::TestPair && first >= second) return std::nullopt;
  return ColumnPlace{shape.Axis == MeasureAxis::RunningMinute ? 0 : first, second > 0 ? second : first};
}

}  // namespace

std::string PatternText(ColumnPlace place) {
  std::string letters(static_cast<std::size_t>(place.Test), 'N');
  int number = place.Index - 1;
  for (auto letter = letters.rbegin(); number > 0; ++letter, number /= 2) {
    if (number % 2 == 1) *letter = 'C';
  }
  return letters;
}

void AppendColumnName(std::string& out, const MasterColumn& column) {
  const auto& [family, place] = column;
  out += family->Stem;
  if (family->Shape.Axis == MeasureAxis::Pattern) {
    out.append("(").append(PatternText(place)).append(")");
  } else {
    AppendNumbered(out, family->Shape.Form, place.Test > 0 ? place.Test : place.Index, place.Index);
  }
}

std::optional<MasterColumn> ColumnByName(std::string_view name) {
  const std::size_t bracket = name.find('(');
  if (bracket == std::string_view::npos) return std::nullopt;
  const auto families = AllMeasureFamilies();
  const auto family = std::find_if(families.begin(), families.end(),
                                   [stem = name.substr(0, bracket)](const auto& f) { return f.Stem == stem; });
  if (family == families.end()) return std::nullopt;
  const auto place = PlaceIn(name.substr(bracket), family->Shape);
  if (!place) return std::nullopt;
  return MasterColumn{&*family, *place};
}

}  // namespace zova
