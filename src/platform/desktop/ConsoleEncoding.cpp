// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/ConsoleEncoding.h"

#ifdef _WIN32
#include <cstdlib>

#include "platform/files/WindowsFiles.h"
#endif

namespace zova {

#ifdef _WIN32

namespace {

UINT codePageOfShell = 0;

void SetBack() { SetConsoleOutputCP(codePageOfShell); }

// Leaves it to the system to end the program.
BOOL WINAPI SetBackAtInterrupt(DWORD /*reason*/) {
  SetBack();
  return FALSE;
}

}  // namespace

void ShowUtf8OnConsole() {
  codePageOfShell = GetConsoleOutputCP();
  if (codePageOfShell == 0 || SetConsoleOutputCP(CP_UTF8) == 0) return;  // there is no console
  static_cast<void>(std::atexit(SetBack));
  SetConsoleCtrlHandler(SetBackAtInterrupt, TRUE);
}

#else

void ShowUtf8OnConsole() {}

#endif

}  // namespace zova
