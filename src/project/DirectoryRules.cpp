// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"

#include <algorithm>

#include "text/TypedText.h"

namespace zova {

bool IsFileNamePart(std::string_view name) noexcept {
  if (name.empty() || name.back() == '.') return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    constexpr std::string_view kForbidden = "\\/:*?<>|";
    return BreaksField(c) || kForbidden.find(c) != std::string_view::npos;
  });
}

bool IsWholeFileName(std::string_view name) { return IsFileNamePart(name) && IsVisible(name) && !IsDeviceName(name); }

bool HasValidComponents(std::string_view path) {
  const auto components = PathComponents(path);
  return std::all_of(components.begin(), components.end(), IsWholeFileName);
}

bool WantsCreated(const std::string& directory, MessageBoxes& boxes) {
  const BoxAnswer answer =
      boxes.Show({.Text = "'" + directory + "' Directory does not exist.  Do you wish to create it?",
                  .Icon = BoxIcon::Exclamation,
                  .Buttons = BoxButtons::YesNoCancel,
                  .Default = BoxAnswer::Yes});
  return answer == BoxAnswer::Yes;
}

bool ExistsOrIsCreated(const std::string& directory, Disk& disk, MessageBoxes& boxes) {
  if (disk.DirectoryExists(directory)) return true;
  if (!WantsCreated(directory, boxes)) return false;
  disk.CreateDirectories(directory);
  return true;
}

}  // namespace zova
