// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/Console.h"

#ifdef _WIN32
#include <cstdio>

#include "platform/files/WindowsFiles.h"
#endif

namespace zova {

void UseConsoleOfShell() {
#ifdef _WIN32
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
  SetConsoleOutputCP(CP_UTF8);
  for (std::FILE* stream : {stdout, stderr}) {
    if (_fileno(stream) < 0) static_cast<void>(std::freopen("CONOUT$", "w", stream));
  }
#endif
}

}  // namespace zova
