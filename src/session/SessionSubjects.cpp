// SPDX-License-Identifier: GPL-3.0-or-later
//
// The commands that enter subjects, the table of subjects, and the differences of two entries.

#include "session/Session.h"

namespace zova {

void Session::Identify(SubjectIdentification::Purpose purpose) {
  m_isFromList = false;
  UseWords();
  m_subjects.Identify(purpose, *m_project, m_param.Path());
}

void Session::EnterSubjects() {
  if (OpenFirst()) Identify(SubjectIdentification::Purpose::NewSubject);
}

void Session::ReadOldData() {
  if (OpenFirst()) Identify(SubjectIdentification::Purpose::OldData);
}

void Session::FollowSubjects() {
  switch (m_subjects.CurrentStage()) {
    case SubjectFlow::Stage::Compare: return CompareEntered();
    case SubjectFlow::Stage::Closed: return m_isFromList ? ShowSubjectList() : Show(Screen::Main);
    case SubjectFlow::Stage::Identification: return Show(Screen::Identification);
    case SubjectFlow::Stage::Entry: return Show(Screen::Entry);
  }
}

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
  UseWords();
  m_subjects.OpenListed(purpose, std::string(row->File), *m_project, m_param.Path());
}

bool Session::OpenComparison(const std::string& file) {
  if (!m_settlement.Open(file, *m_project)) return false;
  Show(Screen::Compare);
  return true;
}

void Session::CompareChosenSubject() {
  const SubjectRow* const row = m_screen == Screen::Subjects ? m_subjectList.ToCompare() : nullptr;
  if (row == nullptr) return;
  m_isFromList = true;
  OpenComparison(std::string(row->File));
}

// Entries that agree need no screen, unless the subject's data are others.
void Session::CompareEntered() {
  const bool isRead = m_settlement.Open(m_subjects.EnteredFile(), *m_project);
  const bool agrees = isRead && m_settlement.OpenCount() == 0;
  const std::string note = m_settlement.DataNote();
  if (agrees) Inform(m_platform.Boxes, note.empty() ? "Both entries agree." : "Both entries agree.  " + note);
  if (!isRead || (agrees && note.empty())) {
    m_settlement.Close();
    return m_subjects.IdentifyNext();
  }
  m_isFromList = false;
  Show(Screen::Compare);
}

void Session::SettleComparison() {
  if (m_screen == Screen::Compare && m_settlement.Settle()) LeaveComparison();
}

void Session::CloseComparison() {
  if (m_screen == Screen::Compare && m_settlement.MayLeave()) LeaveComparison();
}

void Session::LeaveComparison() {
  m_settlement.Close();
  m_isFromList ? ShowSubjectList() : m_subjects.IdentifyNext();
}

}  // namespace zova
