// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <vector>

#include "app/widgets/Panel.h"

class QLabel;
class QListWidget;

namespace zova {

class SubjectFlow;
class SubjectIdentification;

/// The screen that identifies a subject: its identifier, then its levels step by step. Enter continues, Escape cancels.
class IdentificationPanel : public Panel {
  Q_OBJECT

 public:
  explicit IdentificationPanel(SubjectFlow& subjects);

 protected:
  void ShowState() override;
  [[nodiscard]] int CursorRevision() const override;
  void PlaceCursor() override;
  [[nodiscard]] QPushButton* DefaultButton() const override;

 private:
  using Getter = std::string (SubjectIdentification::*)() const;

  void AddQuestions(QVBoxLayout& rows);
  void ShowLevels();
  QLabel* MakeText(const char* name, Getter text);

  SubjectFlow& m_subjects;
  SubjectIdentification& m_rules;
  std::vector<std::pair<QLabel*, Getter>> m_texts;
  QLineEdit* m_txtSub;
  QWidget* m_level;
  QLineEdit* m_txtInfo;
  QListWidget* m_lstLevels;
  QPushButton* m_cmdBrowse;
  QPushButton* m_cmdOK;
  QPushButton* m_cmdBack;
  QPushButton* m_cmdNext;
  QPushButton* m_cmdEntered;
};

}  // namespace zova
