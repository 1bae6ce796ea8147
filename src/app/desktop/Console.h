// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

/// Lets a program that has a window print to the console from which it was started. Only Windows does not by itself.
/// Standard streams that lead to a file or a pipe stay.
void UseConsoleOfShell();

/// Prints to standard error. A program of Windows that was started without a console has none: shows a box instead.
void PrintOrShow(const std::string& fault);

}  // namespace zova
