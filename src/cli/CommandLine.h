// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace zova {

/// The arguments after the program's name, in UTF-8. On Windows `argv` is in the system's code page, so the system's
/// command line is read instead.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

/// Runs a command and returns the program's exit code: that of `run`, or 1 after an exception and when standard output
/// could not be written. Both are reported under the program's name.
int RunProgram(const char* name, int argc, char** argv, int (*run)(const std::vector<std::string>& arguments));

}  // namespace zova
