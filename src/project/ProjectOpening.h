// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/MessageBoxes.h"
#include "project/ProjectParameters.h"

namespace zova {

/// False, after telling the user, for a backup copy of a parameter file: it names no place where the data lie.
bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes);

}  // namespace zova
