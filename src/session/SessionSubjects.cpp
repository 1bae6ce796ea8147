// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands of the table of subjects, and the second entry.

#include "session/Session.h"

namespace zova {

void Session::ShowSubjects() {
  if (!OpenFirst()) return;
  m_subjectList.Open(*m_project);
  ShowSubjectList();
}

void Session::EnterSecond() {
  if (OpenFirst()) Identify(SubjectIdentification::Purpose::SecondEntry);
}

// The screen is shown first, with the progress of reading.
void Session::ShowSubjectList() {
  Show(Screen::Subjects);
  m_subjectList.Read();
}

void Session::CloseSubjects() {
  if (m_screen != Screen::Subjects) return;
  m_subjectList.Close();
  Show(Screen::Main);
}

void Session::OpenChosenSubject() {
  const SubjectRow* const row = m_screen == Screen::Subjects ? m_subjectList.ToOpen() : nullptr;
  if (row == nullptr) return;
  const auto purpose =
      row->HasUnfinished ? SubjectIdentification::Purpose::Unfinished : SubjectIdentification::Purpose::OldData;
  m_isFromList = true;
  m_subjects.OpenListed(purpose, std::string(row->File), *m_project, m_param.Path());
}

}  // namespace zova
