// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"

#include <algorithm>

#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kBlanks = " \t";

}  // namespace

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

std::string DirectoryFromText(std::string_view text, const DriveMap& drives) {
  std::string path = drives.ToDrivePath(WithoutOuterBlanks(text));
  if (HasDrive(path)) {
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.size() > 2 && path[2] != '\\') path.insert(2, 1, '\\');
  }
  while (!path.empty() && (path.back() == '\\' || kBlanks.find(path.back()) != std::string_view::npos)) path.pop_back();
  return path;
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
