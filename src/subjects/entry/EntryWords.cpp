// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/EntryWords.h"

#include <algorithm>
#include <utility>

#include "text/Encoding.h"
#include "text/LeadingNumber.h"
#include "words/WordKey.h"

namespace zova {

void EntryWords::Set(WordList list) {
  m_completion = WordCompletion(std::move(list));
  m_text.clear();
  m_choices.Clear();
  m_line = -1;
  m_isOpen = false;
}

bool EntryWords::IsWord(std::string_view text) const {
  if (IsEmpty() || text.empty() || IsDigit(text.front())) return false;
  return !WordKey(FirstCharacters(text, 1)).empty();
}

void EntryWords::Follow(std::string_view text) {
  if (text == m_text) return;
  m_text = text;
  m_line = -1;
  if (IsWord(text)) {
    m_completion.Find(text, m_choices);
  } else {
    m_choices.Clear();
  }
  m_isOpen = !m_choices.Items.empty();
}

bool EntryWords::Move(int lines) {
  if (!m_isOpen) return false;
  m_line = std::clamp(Line() + lines, 0, static_cast<int>(m_choices.Items.size()) - 1);
  return true;
}

bool EntryWords::Close() { return std::exchange(m_isOpen, false); }

int EntryWords::Item() const {
  const int line = Line();
  return line < 0 ? 0 : m_choices.Items[static_cast<std::size_t>(line)];
}

}  // namespace zova
