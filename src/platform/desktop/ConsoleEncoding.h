// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// Lets the console show what the program prints, which is UTF-8. A console of Windows keeps such a setting for the
/// shell and all that it runs later, so the program's end sets it back.
void ShowUtf8OnConsole();

}  // namespace zova
