// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>

#include "platform/desktop/MessageBoxes.h"
#include "platform/files/FileError.h"

namespace zova {

/// The one place that reports file errors, and run-time errors of a run, and asks whether to try again.
class FileErrorHandler {
 public:
  explicit FileErrorHandler(MessageBoxes& boxes) : m_boxes(boxes) {}

  /// The answer to "try again?". True also after end of data, where only an OK is asked for: the caller decides
  /// whether there is something to choose anew. False without a box when a file dialog was cancelled.
  bool Report(const FileError& error);

  /// An error that is not the file system's, told in the same box.
  bool ReportRunError(const std::string& text, const std::string& details);

  /// Reports an exception that ended a command: nobody expected it there, so that there is no step to try again.
  void ReportFault(const std::exception_ptr& fault);

 private:
  MessageBoxes& m_boxes;
};

/// Runs the smallest step that can be repeated until it succeeds. False when the user gave up, or when a file ended
/// early: reading the same bytes again would end the same way.
template <typename Step>
bool WithRetry(FileErrorHandler& handler, Step&& step) {
  for (;;) {
    try {
      step();
      return true;
    } catch (const FileError& error) {
      if (!handler.Report(error) || error.Cause() == FileCause::EndOfData) return false;
    }
  }
}

}  // namespace zova
