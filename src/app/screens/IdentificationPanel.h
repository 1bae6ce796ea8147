// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <vector>

#include "app/widgets/Panel.h"

class QBoxLayout;
class QLabel;
class QPushButton;

namespace zova {

class SubjectFlow;
class SubjectIdentification;

/// The screen that identifies a subject: its identifier, then its levels step by step. Enter continues, Escape cancels.
class IdentificationPanel : public Panel {
  Q_OBJECT

 public:
  explicit IdentificationPanel(SubjectFlow& subjects);
  void Refresh() override;

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  using Getter = std::string (SubjectIdentification::*)() const;

  QWidget* MakePage();
  QLabel* AddText(QBoxLayout& rows, const char* name, Getter text);
  void PlaceCursor();
  [[nodiscard]] QPushButton* DefaultButton() const;

  SubjectFlow& m_subjects;
  SubjectIdentification& m_rules;
  std::vector<std::pair<QLabel*, Getter>> m_texts;
  QLineEdit* m_txtSub;
  QWidget* m_level;
  QLineEdit* m_txtInfo;
  QLabel* m_lblProjectName;
  QPushButton* m_cmdBrowse;
  QPushButton* m_cmdOK;
  QPushButton* m_cmdBack;
  QPushButton* m_cmdNext;
  QPushButton* m_cmdEntered;
  QPushButton* m_cmdCancel;
  int m_cursorRevision = 0;
};

}  // namespace zova
