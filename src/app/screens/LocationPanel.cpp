// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/LocationPanel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "app/widgets/DriveDirectoryList.h"
#include "session/LocationFlow.h"

namespace zova {

LocationPanel::LocationPanel(LocationFlow& location)
    : Panel("fraParamPath", Named(new QWidget, "frmParamLoc")),
      m_location(location),
      m_title(AddTitle("lblParamTitle")),
      m_instruction(MakeLabel("lblParamInstruction", {})),
      m_note(MakeLabel("lblParamNote", {})),
      m_path(Named(new QLineEdit, "txtParamPath")),
      m_willBe(MakeLabel("lblWillBe", "Will be:")),
      m_result(MakeLabel("lblParamResult", {})),
      m_native(MakeLabel("lblParamNative", {})),
      m_parentOffer(MakeParentOffer()),
      m_directories(new DriveDirectoryList(location.Browser(), "drvParamPath", "dirParamPath")) {
  m_directories->SetLabels("lblParamDrive", "Dri&ve", "lblParamDir", "Director&y");
  QVBoxLayout* rows = AddPage();
  const std::initializer_list<QWidget*> parts = {m_instruction, MakeLabel("lblParamPath", "&Directory:", m_path),
                                                 m_path,        MakeResult(),
                                                 m_parentOffer, m_directories,
                                                 m_note};
  for (QWidget* part : parts) {
    if (part != m_path) AddQuestionGap(*rows);
    rows->addWidget(part, part == m_directories ? 1 : 0);
  }
  SetDefault(AddButton("cmdSetPath", "OK", [this] { m_location.Accept(); }));
  m_cancel = AddButton("cmdCancel3", "Cancel", [this] { m_location.Cancel(); });
  m_cursor = m_path;
  m_buttonsReturn = true;
  connect(m_path, &QLineEdit::textEdited, this, [this](const QString& text) { Take(FromQt(text)); });
  connect(m_directories, &DriveDirectoryList::Acted, this, [this] { Take(m_location.Browser().Path()); });
}

QWidget* LocationPanel::MakeResult() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins({});
  MakeBold(m_willBe);
  m_willBe->setWordWrap(false);
  row->addWidget(m_willBe);
  row->addWidget(m_result);
  row->addWidget(m_native, 1);
  m_native->setForegroundRole(QPalette::PlaceholderText);
  return line;
}

QWidget* LocationPanel::MakeParentOffer() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins({});
  m_insideParam = MakeLabel("lblInsideParam", "This is itself a 'Param' directory with projects in it.");
  row->addWidget(m_insideParam, 1);
  row->addWidget(MakeActButton("cmdUseParent", "Use Its Pa&rent", [this] { m_location.TakeParent(); }));
  return line;
}

void LocationPanel::ShowState() {
  const LocationTexts texts = m_location.Texts();
  Host()->setWindowTitle(ToQt(texts.Title));
  m_title->setText(ToQt(texts.Title));
  m_instruction->setText(ToQt(texts.Instruction));
  m_note->setText(ToQt(texts.Note));
  ShowText(m_path, m_location.Text());
  m_willBe->parentWidget()->setVisible(m_location.CurrentForm() != LocationFlow::Form::BackupDestination);
  m_result->setText(ToQt(m_location.Result()));
  m_native->setText(ToQt(m_location.NativeResult()));
  m_parentOffer->setVisible(!m_location.ParentOffered().empty());
  m_directories->Refresh();
}

void LocationPanel::Take(const std::string& path) {
  Act([&] { m_location.SetText(path); });
}

}  // namespace zova
