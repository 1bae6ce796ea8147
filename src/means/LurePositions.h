// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/Disk.h"
#include "project/ProjectParameters.h"
#include "words/WordList.h"

namespace zova {

/// The serial positions (from 1) of the project's lures, by its saved order or, without one, by the first. Empty for a
/// project without lures, and for a serial-position master that has another name or length than the project's own.
std::set<int> LurePositions(const ProjectParameters& project, std::string_view masterPath, int positionCount,
                            Disk& disk);

/// Puts their words behind the numbers of lures, from 1: "2 animal".
void NameLures(std::vector<std::string>& ticks, const WordList& words, const ProjectParameters& project);

}  // namespace zova
