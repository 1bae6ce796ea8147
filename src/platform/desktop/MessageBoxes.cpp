// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/MessageBoxes.h"

namespace zova {

void Warn(MessageBoxes& boxes, const std::string& text, const std::string& details) {
  boxes.Show({.Text = text, .Icon = BoxIcon::Exclamation, .Details = details});
}

void Inform(MessageBoxes& boxes, const std::string& text) { boxes.Show({.Text = text, .Icon = BoxIcon::Information}); }

bool Confirm(MessageBoxes& boxes, const Question& question) {
  return boxes.Show({.Text = question.Text,
                     .Icon = question.Icon,
                     .Buttons = question.Buttons,
                     .Default = BoxAnswer::No,
                     .Title = question.Title}) == BoxAnswer::Yes;
}

}  // namespace zova
