// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace zova {

/// The arguments after the program's name, in UTF-8. On Windows `argv` is in the system's code page, so the system's
/// command line is read instead.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

}  // namespace zova
