// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"

#include <algorithm>
#include <filesystem>
#include <optional>

#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kBlanks = " \t";

bool HasDriveLetter(std::string_view path) noexcept { return path.size() >= 2 && path[1] == ':'; }

// Where the directory is or would be, without links; nothing on a drive that is not ready.
std::optional<fs::path> PlaceOf(std::string_view path, Disk& disk) {
  try {
    std::error_code code;
    const fs::path native = disk.Resolve(path, FileOperation::Read);
    const fs::path place = fs::weakly_canonical(native, code);
    return code ? native.lexically_normal() : place;
  } catch (const FileError&) {
    return std::nullopt;
  }
}

}  // namespace

bool IsFileNamePart(std::string_view name) noexcept {
  if (name.empty() || name.back() == '.') return false;
  return std::none_of(name.begin(), name.end(), [](char c) {
    constexpr std::string_view kForbidden = "\\/:*?<>|";
    return BreaksField(c) || kForbidden.find(c) != std::string_view::npos;
  });
}

bool HasValidComponents(std::string_view path) noexcept {
  if (HasDriveLetter(path)) path.remove_prefix(2);
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    if (end > 0 && !IsFileNamePart(path.substr(0, end))) return false;
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return true;
}

std::string DirectoryFromText(std::string_view text, const DriveMap& drives) {
  std::string path = drives.ToDrivePath(WithoutOuterBlanks(text));
  if (HasDriveLetter(path)) {
    std::replace(path.begin(), path.end(), '/', '\\');
    if (path.size() > 2 && path[2] != '\\') path.insert(2, 1, '\\');
  }
  while (!path.empty() && (path.back() == '\\' || kBlanks.find(path.back()) != std::string_view::npos)) path.pop_back();
  return path;
}

bool IsSameDirectory(std::string_view left, std::string_view right, Disk& disk) {
  const auto leftPlace = PlaceOf(left, disk);
  const auto rightPlace = PlaceOf(right, disk);
  if (!leftPlace || !rightPlace) return EqualsIgnoringCase(left, right);
  std::error_code ignored;
  if (fs::equivalent(*leftPlace, *rightPlace, ignored)) return true;  // one directory mounted at two places
  // Two that do not exist yet would be one as soon as the first was created: lookups do not see the case.
  return *leftPlace == *rightPlace || (EqualsIgnoringCase(PathText(*leftPlace), PathText(*rightPlace)) &&
                                       !(disk.DirectoryExists(left) && disk.DirectoryExists(right)));
}

bool LiesInside(std::string_view inner, std::string_view outer, Disk& disk) {
  const auto innerPlace = PlaceOf(inner, disk);
  const auto outerPlace = PlaceOf(outer, disk);
  if (!innerPlace || !outerPlace) return false;
  std::error_code ignored;
  for (fs::path place = *innerPlace; place != place.parent_path();) {
    place = place.parent_path();
    if (place == *outerPlace || fs::equivalent(place, *outerPlace, ignored)) return true;
  }
  return false;
}

bool ExistsOrIsCreated(const std::string& directory, Disk& disk, MessageBoxes& boxes) {
  if (disk.DirectoryExists(directory)) return true;
  const BoxAnswer answer =
      boxes.Show({.Text = "'" + directory + "' Directory does not exist.  Do you wish to create it?",
                  .Icon = BoxIcon::Exclamation,
                  .Buttons = BoxButtons::YesNoCancel,
                  .Default = BoxAnswer::Yes});
  if (answer != BoxAnswer::Yes) return false;
  disk.CreateDirectories(directory);
  return true;
}

}  // namespace zova
