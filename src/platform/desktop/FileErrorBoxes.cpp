// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileErrorBoxes.h"

#include <new>

#include "platform/files/SystemText.h"

namespace zova {

namespace {

std::string TextOf(const FileError& error) {
  switch (error.Cause()) {
    case FileCause::DialogCancelled: break;
    case FileCause::EndOfData: return "This is not a valid file format.  Please select a different file.";
    case FileCause::PathNotFound: return kPathNotFound;
    case FileCause::System: return SystemText(error.Code());
  }
  return "";
}

std::string DetailsOf(const FileError& error) {
  std::string details = error.what();
  if (!error.Detail().empty()) details += "\n" + error.Detail();
  return details;
}

}  // namespace

std::string FaultText(const FileError& error) {
  return error.Cause() == FileCause::System ? DetailsOf(error) + "\n" + SystemText(error.Code()) : DetailsOf(error);
}

bool ReportFileError(MessageBoxes& boxes, const FileError& error) {
  switch (error.Cause()) {
    case FileCause::DialogCancelled: return false;
    case FileCause::EndOfData: Warn(boxes, TextOf(error), DetailsOf(error)); return true;
    case FileCause::PathNotFound:
    case FileCause::System: return ShowRetryBox(boxes, TextOf(error), DetailsOf(error));
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

void ReportFault(MessageBoxes& boxes, const std::exception_ptr& fault) {
  MessageBox box = {.Text = "The last command could not be finished.", .Icon = BoxIcon::Critical};
  try {
    std::rethrow_exception(fault);
  } catch (const FileError& error) {
    if (error.Cause() == FileCause::DialogCancelled) return;
    box.Text = TextOf(error);
    box.Details = DetailsOf(error);
  } catch (const std::bad_alloc&) {
    box.Details = "There is not enough memory.";
  } catch (const std::exception& error) {
    box.Details = SystemText(error);
  } catch (...) {
    box.Details = "The cause is not known.";
  }
  boxes.Show(box);
}

}  // namespace zova
