// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// Lets a program that has a window print to the console from which it was started. Only Windows does not by itself.
/// Standard streams that lead to a file or a pipe stay.
void UseConsoleOfShell();

}  // namespace zova
