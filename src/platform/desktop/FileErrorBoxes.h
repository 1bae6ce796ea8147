// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/FileError.h"

namespace zova {

inline constexpr const char* kPathNotFound = "Path not found.  Please verify that the correct disk is in the drive.";

/// The answer to "try again?". True also after end of data, where only an OK is asked for: the caller decides
/// whether another file can be chosen. False without a box when a file dialog was cancelled.
bool ReportFileError(MessageBoxes& boxes, const FileError& error);

/// The facts of an error as lines: operation and path, the detail, the system's cause.
std::string FaultText(const FileError& error);

/// An error that is not the file system's, reported in the same box.
bool ShowRetryBox(MessageBoxes& boxes, const std::string& text, const std::string& details);

/// Runs the smallest step that can be repeated until it succeeds. False when the user gave up, or when a file ended
/// early: reading the same bytes again would end the same way.
template <typename Step>
bool WithRetry(MessageBoxes& boxes, Step&& step) {
  for (;;) {
    try {
      step();
      return true;
    } catch (const FileError& error) {
      if (!ReportFileError(boxes, error) || error.Cause() == FileCause::EndOfData) return false;
    }
  }
}

}  // namespace zova
