// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/ResultFiles.h"

#include <string_view>

#include "means/MasterTable.h"
#include "means/SerialPositionTable.h"
#include "project/ProtectedFiles.h"
#include "text/Encoding.h"

namespace zova {

namespace {

std::string_view FirstLine(std::string_view text) { return text.substr(0, text.find_first_of("\r\n")); }

}  // namespace

bool IsKeptFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  if (IsProtectedFile(path, project, disk)) return true;
  if (!disk.FileExists(path)) return false;
  std::string bytes;
  disk.Read(path, bytes);
  const DataText text(bytes);
  return IsMasterHeader(FirstLine(text.Content())) || ParseSerialPositionMaster(text.Content()).has_value();
}

bool WriteResultFile(const std::string& path, const std::function<std::string()>& content,
                     const ProjectParameters& project, const Platform& platform) {
  const auto isKept = [&](const std::string& named) { return IsKeptFile(named, project, platform.Files); };
  return WriteNamedFile(path, content, isKept, platform);
}

}  // namespace zova
