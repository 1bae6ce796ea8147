// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/FileError.h"

namespace zova {

inline constexpr const char* kPathNotFound = "Path not found.  Please verify that the correct disk is in the drive.";

/// Shows the error; true for Retry. An end of data has only an OK button and returns true: the caller decides whether
/// another file can be chosen. For a cancelled file dialog returns false without a box.
bool ReportFileError(MessageBoxes& boxes, const FileError& error);

/// Shows an error with Retry and Cancel; true for Retry.
bool ShowRetryBox(MessageBoxes& boxes, const std::string& text, const std::string& details);

/// Repeats `step`, the smallest repeatable one, until it succeeds. False when the user cancels, or after an end of
/// data, which a retry cannot change.
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
