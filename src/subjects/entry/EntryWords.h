// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "words/WordCompletion.h"

namespace zova {

/// The words for the text in the entry grid's box: the list below it, and what Enter takes. Texts that begin with a
/// digit are numbers and have no list.
class EntryWords {
 public:
  void Set(WordList list);
  [[nodiscard]] const WordList& List() const noexcept { return m_completion.List(); }
  [[nodiscard]] bool IsEmpty() const noexcept { return m_completion.IsEmpty(); }
  [[nodiscard]] int ItemOf(std::string_view word) const { return m_completion.ItemOf(word); }

  /// True for a text that begins with a letter, in a project with a word list.
  [[nodiscard]] bool IsWord(std::string_view text) const;
  /// Follows the box. A new text opens the list, without a choice of the user.
  void Follow(std::string_view text);
  /// The items listed; none while the list is closed.
  [[nodiscard]] const std::vector<int>& Listed() const noexcept { return m_isOpen ? m_choices.Items : m_none; }
  /// The line of the list that Enter takes, from 0; -1 for none.
  [[nodiscard]] int Line() const noexcept { return m_line >= 0 || m_choices.Meant() == 0 ? m_line : 0; }
  /// Both return false when no list is open.
  bool Move(int lines);
  bool Close();
  void Choose(int line) noexcept { m_line = line; }

  /// The item that the text followed last stands for; 0 for none.
  [[nodiscard]] int Item() const;
  /// "Nearest: 27 vase."
  [[nodiscard]] std::string NearestText(std::string_view text) const { return m_completion.NearestText(text); }

 private:
  WordCompletion m_completion;
  std::string m_text;
  WordChoices m_choices;
  std::vector<int> m_none;
  int m_line = -1;  // chosen by the user
  bool m_isOpen = false;
};

}  // namespace zova
