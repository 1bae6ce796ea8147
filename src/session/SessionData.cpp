// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands of the Data menu.

#include "session/Session.h"

namespace zova {

void Session::EditWordList() {
  if (OpenFirst() && m_words.Open(*m_project)) Show(Screen::Words);
}

// The project's word list for the entry.
void Session::UseWords() {
  m_subjects.Entry().Grid().SetWords(WordListOf(*m_project, m_platform.Files, m_platform.Boxes));
}

void Session::CloseWords() {
  if (m_screen == Screen::Words && m_words.MayLeave()) Show(Screen::Main);
}

}  // namespace zova
