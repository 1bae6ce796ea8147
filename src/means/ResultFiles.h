// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// True for a file that no table, plot or report may replace: a protected file of a project, or a master, which can
/// have any place and name, so that its content decides. Throws FileError.
bool IsKeptFile(const std::string& path, const ProjectParameters& project, Disk& disk);

/// WriteNamedFile, where these are kept.
bool WriteResultFile(const std::string& path, const std::function<std::string()>& content,
                     const ProjectParameters& project, const Platform& platform);

}  // namespace zova
