// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the Windows halves of the file layer and the directory lock share. Included on Windows only.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// Macros that would rename functions and records of ours.
#undef CreateDirectory
#undef MessageBox
#undef RemoveDirectory

#include <filesystem>
#include <memory>
#include <string>

namespace zova {

struct HandleCloser {
  using pointer = HANDLE;
  void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using WindowsHandle = std::unique_ptr<HANDLE, HandleCloser>;

/// GetLastError as std::system_error, in the portable words where there are any.
[[noreturn]] void ThrowLastError();

/// The path for a call of Windows: one that its 260 characters would not hold goes by the prefix that lifts the limit.
std::wstring WindowsName(const std::filesystem::path& path);

/// An open file or directory; null where it cannot be opened. Other programs may do with it what they like.
WindowsHandle OpenForFacts(const std::wstring& name) noexcept;

/// True for a name that Windows takes for a device in every directory: CON, NUL, COM1 and the like, with any extension.
bool IsReservedName(const std::filesystem::path& path);

}  // namespace zova
