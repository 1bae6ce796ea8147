// SPDX-License-Identifier: GPL-3.0-or-later
//
// Shared by the Windows parts of the file layer and the directory lock. Included only on Windows.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>
// Macros that would rename functions and types.
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

/// Throws GetLastError as std::system_error, as a portable error if there is one.
[[noreturn]] void ThrowLastError();

/// The path for a Windows call, with the prefix that lifts the limit of 260 characters if it is too long.
std::wstring WindowsName(const std::filesystem::path& path);

/// Opens a file or directory without restricting other programs; null when it cannot be opened.
WindowsHandle OpenForFacts(const std::wstring& name) noexcept;

/// True for a name that is a device in every directory: CON, NUL, COM1 and others, with any extension.
bool IsReservedName(const std::filesystem::path& path);

}  // namespace zova
