// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileErrorBoxes.h"

#include "text/Encoding.h"

namespace zova {

namespace {

// Windows describes its errors in its own code page.
std::string SystemText(const std::error_code& code) {
  const std::string text = code.message();
  return IsValidUtf8(text) ? text : FromWindows1252(text);
}

std::string DetailsOf(const FileError& error) {
  std::string details = error.what();
  if (!error.Detail().empty()) details += "\n" + error.Detail();
  return details;
}

}  // namespace

bool ReportFileError(MessageBoxes& boxes, const FileError& error) {
  switch (error.Cause()) {
    case FileCause::DialogCancelled: return false;
    case FileCause::EndOfData:
      Warn(boxes, "This is not a valid file format.  Please select a different file.", DetailsOf(error));
      return true;
    case FileCause::PathNotFound: return ShowRetryBox(boxes, kPathNotFound, DetailsOf(error));
    case FileCause::System: return ShowRetryBox(boxes, SystemText(error.Code()), DetailsOf(error));
  }
  return false;
}

bool ShowRetryBox(MessageBoxes& boxes, const std::string& text, const std::string& details) {
  return boxes.Show({.Text = text,
                     .Icon = BoxIcon::Exclamation,
                     .Buttons = BoxButtons::RetryCancel,
                     .Default = BoxAnswer::Retry,
                     .Details = details}) == BoxAnswer::Retry;
}

}  // namespace zova
