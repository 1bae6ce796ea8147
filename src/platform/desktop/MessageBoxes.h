// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

enum class BoxIcon { None, Information, Question, Exclamation, Critical };
enum class BoxButtons { Ok, YesNo, YesNoCancel, RetryCancel, Cancel };
enum class BoxAnswer { Ok, Yes, No, Cancel, Retry };

/// A modal message. The default answer is the one that loses nothing, unless a rule fixes another.
struct MessageBox {
  std::string Text;
  BoxIcon Icon = BoxIcon::None;
  BoxButtons Buttons = BoxButtons::Ok;
  BoxAnswer Default = BoxAnswer::Ok;
  std::string Title = "ZOVA";
  std::string Details = {};  ///< secondary text
};

/// While a box is up the pointer is the normal one, however busy the program is.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;
  virtual BoxAnswer Show(const MessageBox& box) = 0;
};

/// Exclamation mark and OK.
void Warn(MessageBoxes& boxes, const std::string& text, const std::string& details = {});

/// Information mark and OK.
void Inform(MessageBoxes& boxes, const std::string& text);

/// Asks whether to go on with what cannot be undone, or goes against the usual. No is the default.
struct Question {
  std::string Text;
  BoxIcon Icon = BoxIcon::Exclamation;
  BoxButtons Buttons = BoxButtons::YesNoCancel;
  std::string Title = "ZOVA";
};

/// True when the answer is Yes.
bool Confirm(MessageBoxes& boxes, const Question& question);

}  // namespace zova
