// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/OwnFiles.h"

#include <system_error>

#include "project/ProtectedFiles.h"

namespace zova {

void RefuseOwnFile(const std::string& path, const ProjectParameters& project, Disk& disk) {
  if (!IsProjectFile(path, project, disk)) return;
  throw FileError(FileOperation::Write, path, std::make_error_code(std::errc::file_exists),
                  "A master cannot take the place of a project's own file.");
}

}  // namespace zova
