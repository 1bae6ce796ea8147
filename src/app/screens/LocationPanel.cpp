// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/LocationPanel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/DriveDirectoryList.h"
#include "session/LocationFlow.h"

namespace zova {

LocationPanel::LocationPanel(LocationFlow& location, QWidget* parent)
    : Panel(parent),
      m_location(location),
      m_form(Named(new QWidget, "frmParamLoc")),
      m_title(MakeLabel("lblParamTitle", QString())),
      m_instruction(MakeLabel("lblParamInstruction", QString())),
      m_note(MakeLabel("lblParamNote", QString())),
      m_path(Named(new QLineEdit, "txtParamPath")),
      m_result(MakeLabel("lblParamResult", QString())),
      m_directories(new DriveDirectoryList(location.Browser(), "drvParamPath", "dirParamPath")) {
  setObjectName(QStringLiteral("fraParamPath"));
  Arrange();
  connect(m_path, &QLineEdit::textEdited, this, [this](const QString& text) { UsePath(FromQt(text)); });
  connect(m_directories, &DriveDirectoryList::Acted, this, [this] { UsePath(m_location.Browser().Path()); });
}

void LocationPanel::Arrange() {
  QFont bold;  // only its weight is set: the rest comes from the window
  bold.setBold(true);
  m_title->setFont(bold);
  m_directories->SetLabels("lblParamDrive", tr("Dri&ve"), "lblParamDir", tr("Director&y"));
  QPushButton* ok = MakeButton("cmdSetPath", tr("OK"));
  MarkDefault(ok, true);
  connect(ok, &QPushButton::clicked, this, &LocationPanel::Accept);
  QPushButton* cancel = MakeButton("cmdCancel3", tr("Cancel"));
  connect(cancel, &QPushButton::clicked, this, &LocationPanel::Cancel);

  auto* rows = new QVBoxLayout(m_form);
  const std::initializer_list<QWidget*> parts = {
      m_title,       m_instruction, MakeLabel("lblParamPath", tr("&Directory:"), m_path), m_path, m_result,
      m_directories, m_note};
  for (QWidget* part : parts) rows->addWidget(part, part == m_directories ? 1 : 0);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(ok);
  buttons->addWidget(cancel);
  rows->addLayout(buttons);
  (new QVBoxLayout(this))->addWidget(MakeScrolling(m_form));
}

void LocationPanel::Refresh() {
  const LocationTexts texts = m_location.Texts();
  m_form->setWindowTitle(ToQt(texts.Title));
  m_title->setText(ToQt(texts.Title));
  m_instruction->setText(ToQt(texts.Instruction));
  m_note->setText(ToQt(texts.Note));
  ShowText(m_path, m_location.Text());
  m_result->setVisible(m_location.CurrentForm() != LocationFlow::Form::BackupDestination);
  m_result->setText(ToQt(m_location.Result()));
  m_directories->Refresh();
}

void LocationPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;  // for example restored from the task bar: the cursor stays
  Refresh();
  PlaceCursorIn(m_path);
}

// Keys that the control with the focus has no use for.
void LocationPanel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: Accept(); return;
    case Qt::Key_Escape: Cancel(); return;
    default: Panel::keyPressEvent(event);
  }
}

void LocationPanel::UsePath(const std::string& path) {
  m_location.SetText(path);
  Report();
}

void LocationPanel::Accept() {
  m_location.Accept();
  Report();
  if (isVisible()) PlaceCursorIn(m_path);
}

void LocationPanel::Cancel() {
  m_location.Cancel();
  Report();
  if (isVisible()) PlaceCursorIn(m_path);
}

void LocationPanel::Report() {
  Refresh();
  emit Acted();
}

}  // namespace zova
