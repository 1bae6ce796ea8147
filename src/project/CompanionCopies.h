// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"

namespace zova {

/// Copies the project's companion files to its backup directory. Returns how many; nullopt when the user gives up.
std::optional<std::size_t> BackUpCompanions(const ProjectParameters& project, const Platform& platform);

/// The names of the companion files in the directory `backup` that a restore is to bring back; asks before one whose
/// file in the primary directory is newer and different. nullopt when the user gives up.
std::optional<std::vector<std::string>> ChooseCompanions(const ProjectParameters& project, const std::string& backup,
                                                         const Platform& platform);

}  // namespace zova
