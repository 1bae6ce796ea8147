// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace zova {

/// The arguments behind the program's name, in UTF-8. `argc` and `argv` are main's; on Windows, where those are in the
/// system's code page, the system's own command line is read instead.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

}  // namespace zova
