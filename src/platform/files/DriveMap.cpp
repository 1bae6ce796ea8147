// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/DriveMap.h"

#include <algorithm>
#include <cstdlib>

#include "text/TypedText.h"

namespace zova {

namespace {

#ifdef _WIN32
constexpr bool kDrivesAreNative = true;
#else
constexpr bool kDrivesAreNative = false;
#endif

bool IsLetter(char c) noexcept { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
char Upper(char c) noexcept { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

// How many components of `path` the root covers; nullopt when the path is not in it.
std::optional<std::ptrdiff_t> CoveredBy(const std::filesystem::path& root, const std::filesystem::path& path) {
  auto inPath = path.begin();
  std::ptrdiff_t covered = 0;
  for (const auto& part : root) {
    if (part.empty()) continue;  // a root written with a trailing separator
    if (inPath == path.end() || *inPath != part) return std::nullopt;
    ++inPath;
    ++covered;
  }
  return covered;
}

}  // namespace

DriveMap::DriveMap(std::vector<Drive> drives) : m_drives(std::move(drives)) {
  for (Drive& drive : m_drives) drive.Letter = Upper(drive.Letter);
}

DriveMap DriveMap::FromEnvironment() {
  std::vector<Drive> drives;
  if (kDrivesAreNative) return DriveMap(std::move(drives));
  if (const char* setting = std::getenv("ZOVA_DRIVES"); setting != nullptr && *setting != '\0') return Parse(setting);
  if (const char* home = std::getenv("HOME"); home != nullptr && *home != '\0') {
    drives.push_back({'C', PathFromText(home)});
  }
  drives.push_back({'Z', PathFromText("/")});
  return DriveMap(std::move(drives));
}

DriveMap DriveMap::Parse(std::string_view setting) {
  std::vector<Drive> drives;
  while (!setting.empty()) {
    const std::size_t end = std::min(setting.find(';'), setting.size());
    const std::string_view part = setting.substr(0, end);
    setting.remove_prefix(std::min(end + 1, setting.size()));
    if (part.size() > 2 && IsLetter(part[0]) && part[1] == '=') {
      drives.push_back({part[0], PathFromText(part.substr(2)).lexically_normal()});
    }
  }
  return DriveMap(std::move(drives));
}

std::optional<std::filesystem::path> DriveMap::ToNative(std::string_view path) const {
  if (!HasDrive(path)) {
    std::filesystem::path native = PathFromText(path);
    const bool isOnServer = kDrivesAreNative && path.starts_with("\\\\");
    return isOnServer || native.is_absolute() ? std::optional(native.make_preferred()) : std::nullopt;
  }
  const auto drive = std::find_if(m_drives.begin(), m_drives.end(),
                                  [letter = Upper(path[0])](const Drive& d) { return d.Letter == letter; });
  if (drive == m_drives.end() && !kDrivesAreNative) return std::nullopt;
  // Always starts at the root: "C:" and "C:name" alone would start at the drive's current directory.
  std::filesystem::path native =
      drive != m_drives.end() ? drive->Root : PathFromText(std::string(path.substr(0, 2)) + "\\");
  for (const std::string_view name : ResolvedComponents(path)) native /= PathFromText(name);
  return native;
}

std::string DriveMap::ToDrivePath(std::string_view path) const {
  std::filesystem::path native = PathFromText(path);
  if (!native.is_absolute()) return std::string(path);
  native = native.lexically_normal();
  const Drive* best = nullptr;
  std::ptrdiff_t bestCovered = -1;
  for (const Drive& drive : m_drives) {
    const auto covered = CoveredBy(drive.Root, native);
    if (covered && *covered > bestCovered) {
      best = &drive;
      bestCovered = *covered;
    }
  }
  if (best == nullptr) return std::string(path);
  std::string out{best->Letter, ':'};
  for (auto part = std::next(native.begin(), bestCovered); part != native.end(); ++part) {
    if (!part->empty()) out += '\\' + PathText(*part);
  }
  if (out.size() == 2) out += '\\';
  return out;
}

std::string DriveMap::StoredDirectory(std::string_view text) const {
  std::string path = FromDriveRoot(ToDrivePath(WithoutOuterBlanks(text)));
  if (HasDrive(path)) std::replace(path.begin(), path.end(), '/', '\\');
  path.resize(path.find_last_not_of("\\ \t") + 1);
  return path;
}

}  // namespace zova
