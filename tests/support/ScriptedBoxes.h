// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

#include "platform/desktop/MessageBoxes.h"

namespace zova::testing {

struct ExpectedBox {
  std::string Text;
  BoxAnswer Answer = BoxAnswer::Ok;
  std::string Details = {};  ///< must stand in the secondary text
  std::optional<BoxIcon> Icon = {};
  std::optional<BoxButtons> Buttons = {};
  std::optional<BoxAnswer> Default = {};
  std::string Title = "ZOVA";
};

/// A box without a choice.
inline ExpectedBox Told(const std::string& text, BoxIcon icon = BoxIcon::Exclamation) {
  return {text, BoxAnswer::Ok, "", icon, BoxButtons::Ok};
}

/// A question under "Warning" for which No is preset.
inline ExpectedBox Warned(const std::string& text, BoxAnswer answer, BoxButtons buttons = BoxButtons::YesNo) {
  return {text, answer, "", BoxIcon::Exclamation, buttons, BoxAnswer::No, "Warning"};
}

/// What the system says of a fault.
inline std::string TextOf(std::errc fault) { return std::make_error_code(fault).message(); }

/// Message boxes that must be shown exactly as listed: a box that is not expected, one with another text, an answer
/// that the box does not offer, and one never shown fail the test.
class ScriptedBoxes final : public MessageBoxes {
 public:
  ScriptedBoxes(std::initializer_list<ExpectedBox> boxes = {}) : m_boxes(boxes) {}
  ~ScriptedBoxes() override {
    for (std::size_t i = m_shown; i < m_boxes.size(); ++i) ADD_FAILURE() << "never shown: " << m_boxes[i].Text;
  }

  void Expect(ExpectedBox box) { m_boxes.push_back(std::move(box)); }

  BoxAnswer Show(const MessageBox& box) override {
    if (m_shown >= m_boxes.size()) {
      ADD_FAILURE() << "unexpected box: " << box.Text << "\n" << box.Details;
      return AnswersOf(box.Buttons).front();
    }
    const ExpectedBox& expected = m_boxes[m_shown++];
    EXPECT_EQ(box.Text, expected.Text) << box.Details;
    EXPECT_EQ(box.Title, expected.Title) << box.Text;
    EXPECT_NE(box.Details.find(expected.Details), std::string::npos) << box.Text << "\n" << box.Details;
    EXPECT_EQ(box.Icon, expected.Icon.value_or(box.Icon)) << box.Text;
    EXPECT_EQ(box.Buttons, expected.Buttons.value_or(box.Buttons)) << box.Text;
    EXPECT_EQ(box.Default, expected.Default.value_or(box.Default)) << box.Text;
    const auto answers = AnswersOf(box.Buttons);
    if (std::find(answers.begin(), answers.end(), expected.Answer) != answers.end()) return expected.Answer;
    ADD_FAILURE() << "the scripted answer is no button of: " << box.Text;
    return answers.front();
  }

 private:
  // First the one that loses nothing.
  static std::vector<BoxAnswer> AnswersOf(BoxButtons buttons) {
    switch (buttons) {
      case BoxButtons::Ok: return {BoxAnswer::Ok};
      case BoxButtons::YesNo: return {BoxAnswer::No, BoxAnswer::Yes};
      case BoxButtons::YesNoCancel: return {BoxAnswer::Cancel, BoxAnswer::No, BoxAnswer::Yes};
      case BoxButtons::RetryCancel: return {BoxAnswer::Cancel, BoxAnswer::Retry};
      case BoxButtons::Cancel: return {BoxAnswer::Cancel};
    }
    return {};
  }

  std::vector<ExpectedBox> m_boxes;
  std::size_t m_shown = 0;
};

/// Gives one answer to every box that offers it, else OK, and keeps the texts and details of all; `Meanwhile` happens
/// before each answer.
class AnsweringBoxes final : public MessageBoxes {
 public:
  explicit AnsweringBoxes(BoxAnswer answer) : m_answer(answer) {}
  BoxAnswer Show(const MessageBox& box) override {
    Texts.push_back(box.Text);
    Details.push_back(box.Details);
    if (Meanwhile) Meanwhile();
    return box.Buttons == BoxButtons::RetryCancel ? m_answer : BoxAnswer::Ok;
  }
  std::vector<std::string> Texts, Details;
  std::function<void()> Meanwhile;

 private:
  BoxAnswer m_answer;
};

}  // namespace zova::testing
