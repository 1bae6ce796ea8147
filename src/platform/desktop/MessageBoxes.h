// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

enum class BoxIcon { None, Information, Question, Exclamation, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel, RetryCancel, Cancel };
enum class BoxAnswer { Ok, Yes, No, Cancel, Retry };

/// A modal message. The default answer loses no data, unless a rule sets another.
struct MessageBox {
  std::string Text;
  BoxIcon Icon = BoxIcon::None;
  BoxButtons Buttons = BoxButtons::Ok;
  BoxAnswer Default = BoxAnswer::Ok;
  std::string Title = "ZOVA";
  std::string Details = {};  ///< secondary text
};

/// Shows the normal pointer while a box is open, even when the program is busy.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual BoxAnswer Show(const MessageBox& box) = 0;
};

/// With exclamation mark and OK button.
void Warn(MessageBoxes& boxes, const std::string& text, const std::string& details = {});

/// With information mark and OK button.
void Inform(MessageBoxes& boxes, const std::string& text);

/// Asks for confirmation of an irreversible or unusual act. No is the default.
struct Question {
  std::string Text;
  BoxIcon Icon = BoxIcon::Exclamation;
  BoxButtons Buttons = BoxButtons::YesNoCancel;
  std::string Title = "ZOVA";
};

/// True when the answer is Yes.
bool Confirm(MessageBoxes& boxes, const Question& question);

}  // namespace zova
