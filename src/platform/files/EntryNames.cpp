// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/EntryNames.h"

#include <algorithm>
#include <random>

#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kTemporaryPrefix = ".zova-";
constexpr std::string_view kTemporarySuffix = ".tmp";

}  // namespace

bool IsTemporary(std::string_view name) noexcept {
  return name.size() > kTemporaryPrefix.size() + kTemporarySuffix.size() && name.starts_with(kTemporaryPrefix) &&
         name.ends_with(kTemporarySuffix);
}

std::string NewTemporaryName() {
  std::random_device random;
  return std::string(kTemporaryPrefix).append(std::to_string(random())).append(kTemporarySuffix);
}

bool IsHidden(std::string_view name) noexcept {
#ifdef _WIN32
  return IsTemporary(name);
#else
  return name.starts_with('.');
#endif
}

// A backslash would split the name, a quote or a control character would break the file that stores it.
bool FitsStoredPath(std::string_view name) noexcept {
  const auto breaks = [](char c) { return c == '\\' || BreaksField(c); };
  return IsValidUtf8(name) && std::none_of(name.begin(), name.end(), breaks);
}

std::vector<std::string> NamesOfFiles(std::vector<DirectoryEntry> entries, EntryChoice choice, std::string_view prefix,
                                      std::string_view suffix) {
  const std::string upperPrefix = UpperCase(prefix);
  const std::string upperSuffix = UpperCase(suffix);
  std::vector<std::string> names;
  names.reserve(entries.size());
  for (DirectoryEntry& entry : entries) {
    const bool isDangling = entry.Kind == EntryKind::Missing;
    if (entry.Kind == EntryKind::Directory || isDangling != (choice == EntryChoice::DanglingLinks)) continue;
    if (IsTemporary(entry.Name)) continue;
    const std::string upper = UpperCase(entry.Name);
    if (upper.size() < upperPrefix.size() + upperSuffix.size()) continue;
    if (!upper.starts_with(upperPrefix) || !upper.ends_with(upperSuffix)) continue;
    names.push_back(std::move(entry.Name));
  }
  return InListingOrder(std::move(names));
}

bool ListsBefore(std::string_view left, std::string_view right) {
  const int order = UpperCase(left).compare(UpperCase(right));
  return order < 0 || (order == 0 && left < right);
}

std::vector<std::string> InListingOrder(std::vector<std::string> names) {
  std::vector<std::pair<std::string, std::string>> keyed;  // in upper case, as spelt
  keyed.reserve(names.size());
  for (std::string& name : names) keyed.emplace_back(UpperCase(name), std::move(name));
  std::sort(keyed.begin(), keyed.end());
  for (std::size_t i = 0; i < names.size(); ++i) names[i] = std::move(keyed[i].second);
  return names;
}

}  // namespace zova
