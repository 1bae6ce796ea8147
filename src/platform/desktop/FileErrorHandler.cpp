// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileErrorHandler.h"

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

bool FileErrorHandler::Report(const FileError& error) {
  switch (error.Cause()) {
    case FileCause::DialogCancelled: return false;
    case FileCause::EndOfData:
      m_boxes.Show({.Text = "This is not a valid file format.  Please select a different file.",
                    .Icon = BoxIcon::Exclamation,
                    .Buttons = BoxButtons::Ok,
                    .Details = DetailsOf(error)});
      return true;
    case FileCause::PathNotFound:
      return m_boxes.Show({.Text = "Path not found.  Please verify that the correct disk is in the drive.",
                           .Icon = BoxIcon::Exclamation,
                           .Buttons = BoxButtons::RetryCancel,
                           .Default = BoxAnswer::Retry,
                           .Details = DetailsOf(error)}) == BoxAnswer::Retry;
    case FileCause::System: return ReportRunError(SystemText(error.Code()), DetailsOf(error));
  }
  return false;
}

bool FileErrorHandler::ReportRunError(const std::string& text, const std::string& details) {
  return m_boxes.Show({.Text = text,
                       .Icon = BoxIcon::Exclamation,
                       .Buttons = BoxButtons::RetryCancel,
                       .Default = BoxAnswer::Retry,
                       .Details = details}) == BoxAnswer::Retry;
}

}  // namespace zova
