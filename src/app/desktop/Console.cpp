// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/Console.h"

#include <iostream>

#ifdef _WIN32
#include <QMessageBox>
#include <cstdio>

#include "app/widgets/Controls.h"
#include "platform/desktop/ConsoleEncoding.h"
#include "platform/files/WindowsFiles.h"
#endif

namespace zova {

#ifdef _WIN32

namespace {

bool LeadsNowhere(std::FILE* stream) { return _fileno(stream) < 0; }

}  // namespace

void UseConsoleOfShell() {
  if (!AttachConsole(ATTACH_PARENT_PROCESS)) return;
  ShowUtf8OnConsole();
  for (std::FILE* stream : {stdout, stderr}) {
    if (LeadsNowhere(stream)) static_cast<void>(std::freopen("CONOUT$", "w", stream));
  }
}

void PrintOrShow(const std::string& fault) {
  if (LeadsNowhere(stderr)) {
    QMessageBox::critical(nullptr, "ZOVA", ToQt(fault));
  } else {
    std::cerr << fault << '\n';
  }
}

#else

void UseConsoleOfShell() {}

void PrintOrShow(const std::string& fault) { std::cerr << fault << '\n'; }

#endif

}  // namespace zova
