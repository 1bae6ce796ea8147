// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/CommandLine.h"

#include <algorithm>
#include <exception>
#include <iostream>

#include "platform/desktop/ConsoleEncoding.h"
#include "platform/files/SystemText.h"

#ifdef _WIN32
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// Requires the types of windows.h.
#include <shellapi.h>

#include <memory>
#include <system_error>

#include "platform/files/PathParts.h"
#endif

namespace zova {

#ifdef _WIN32

std::vector<std::string> CommandLineArguments(int /*argc*/, char** /*argv*/) {
  int count = 0;
  const std::unique_ptr<LPWSTR, decltype(&LocalFree)> texts(CommandLineToArgvW(GetCommandLineW(), &count), &LocalFree);
  if (!texts) throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "command line");
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(PathText(texts.get()[i]));
  return arguments;
}

#else

std::vector<std::string> CommandLineArguments(int argc, char** argv) { return {argv + std::min(argc, 1), argv + argc}; }

#endif

int RunProgram(const char* name, int argc, char** argv, int (*run)(const std::vector<std::string>& arguments)) {
  ShowUtf8OnConsole();
  try {
    const int result = run(CommandLineArguments(argc, argv));
    std::cout.flush();
    if (std::cout) return result;
    std::cerr << name << ": standard output cannot be written\n";
  } catch (const std::exception& error) {  // out of memory, or a bug: never end silently
    std::cerr << name << ": " << SystemText(error) << '\n';
  }
  return 1;
}

}  // namespace zova
