// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/PathParts.h"

#include <algorithm>
#include <array>

#include "text/Encoding.h"

namespace zova {

namespace {

bool IsNative(std::string_view path) noexcept { return path.starts_with('/'); }

std::string_view SeparatorsOf(std::string_view path) noexcept { return IsNative(path) ? "/" : "\\/"; }

}  // namespace

std::string PathText(const std::filesystem::path& path) {
  const std::u8string text = path.u8string();
  return {reinterpret_cast<const char*>(text.data()), text.size()};
}

std::filesystem::path PathFromText(std::string_view text) {
  return {std::u8string(reinterpret_cast<const char8_t*>(text.data()), text.size())};
}

std::string AbsolutePath(std::string_view path) {
  return HasDrive(path) ? std::string(path) : PathText(std::filesystem::absolute(PathFromText(path)));
}

bool IsTypedForPlatform(std::string_view path) noexcept {
  return path.find('/') != std::string_view::npos && path.find('\\') == std::string_view::npos;
}

std::string JoinPath(std::string_view directory, std::string_view name) {
  const std::string_view separators = SeparatorsOf(directory);
  std::string path(directory);
  if (path.empty() || separators.find(path.back()) == std::string_view::npos) path += separators.front();
  path += name;
  return path;
}

std::string_view PathPrefix(std::string_view path) noexcept {
  return path.substr(0, path.find_last_of(SeparatorsOf(path)) + 1);
}

bool EndsWithSeparator(std::string_view path) noexcept { return path.ends_with('\\') || path.ends_with('/'); }

bool CanStandBelow(std::string_view path) noexcept {
  return !HasDrive(path) && !IsNative(path) && path.find('\\') == std::string_view::npos;
}

std::string_view LastPathComponent(std::string_view path) noexcept { return path.substr(PathPrefix(path).size()); }

std::string_view DirectoryOfPath(std::string_view path) noexcept {
  const std::string_view prefix = PathPrefix(path);
  return prefix.empty() || prefix == "/" ? prefix : prefix.substr(0, prefix.size() - 1);
}

std::vector<std::string_view> PathComponents(std::string_view path) {
  const std::string_view separators = SeparatorsOf(path);
  if (HasDrive(path)) path.remove_prefix(2);
  std::vector<std::string_view> components;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of(separators), path.size());
    if (end > 0) components.push_back(path.substr(0, end));
    path.remove_prefix(std::min(end + 1, path.size()));
  }
  return components;
}

std::vector<std::string_view> ResolvedComponents(std::string_view path) {
  std::vector<std::string_view> names;
  for (const std::string_view component : PathComponents(path)) {
    if (component == "..") {
      if (!names.empty()) names.pop_back();
    } else if (component != ".") {
      names.push_back(component);
    }
  }
  return names;
}

bool HasDrive(std::string_view path) noexcept { return path.size() >= 2 && path[1] == ':' && path[0] != '/'; }

std::string DriveRoot(std::string_view path) { return std::string(path.substr(0, 2)) + '\\'; }

std::string FromDriveRoot(std::string path) {
  if (HasDrive(path) && path.find_first_of("\\/") != 2) path.insert(2, 1, '\\');
  return path;
}

bool IsDeviceName(std::string_view name) {
  name = name.substr(0, name.find_first_of(".:"));
  name = name.substr(0, name.find_last_not_of(' ') + 1);
  constexpr std::array<std::string_view, 6> kWhole = {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
  const auto isName = [&](std::string_view device) { return EqualsIgnoringCase(name, device); };
  if (std::any_of(kWhole.begin(), kWhole.end(), isName)) return true;
  if (!BeginsIgnoringCase(name, "COM") && !BeginsIgnoringCase(name, "LPT")) return false;
  constexpr std::array<std::string_view, 3> kRaised = {"\xC2\xB9", "\xC2\xB2", "\xC2\xB3"};  // superscript 1, 2, 3
  const std::string_view port = name.substr(3);
  return (port.size() == 1 && port[0] >= '1' && port[0] <= '9') ||
         std::find(kRaised.begin(), kRaised.end(), port) != kRaised.end();
}

bool IsNoDirectory(std::string_view directory) noexcept { return directory.empty() || directory.front() == '('; }

}  // namespace zova
