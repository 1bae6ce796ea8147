// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/IdentificationPanel.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"
#include "session/SubjectFlow.h"

namespace zova {

namespace {

// Shows the number of the level before its name, by which a typed letter finds it.
class NumberingDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->text = QStringLiteral("%1. %2").arg(index.row() + 1).arg(Isolated(option->text));
  }
};

}  // namespace

IdentificationPanel::IdentificationPanel(SubjectFlow& subjects)
    : Panel("fraSubInfo"),
      m_subjects(subjects),
      m_rules(subjects.Identification()),
      m_txtSub(Named(new QLineEdit, "txtSub")),
      m_txtInfo(Named(new QLineEdit, "txtInfo")),
      m_lstLevels(Named(new QListWidget, "lstLevels")) {
  AddTitle(MakeText("lblSubInfo", &SubjectIdentification::Heading));
  AddProjectName();
  AddQuestions(*AddPage());
  AddStatus(MakeText("lblInfCtr", &SubjectIdentification::Counter));
  m_cmdBrowse = AddButton("cmdBrowse", "B&rowse", [this] { m_subjects.BrowseSubject(); });
  m_cmdOK = AddButton("cmdOK", "O&K", [this] { m_subjects.LoadTypedSubject(); });
  m_cmdBack = AddButton("cmdBack", "<<&Back", [this] { m_rules.Back(); });
  m_cmdNext = AddButton("cmdNext", "&Next >>", [this] { m_subjects.NextStep(); });
  m_cmdEntered = AddButton("cmdEntered", "&Done!", [this] { m_subjects.FinishIdentification(); });
  m_cancel = AddButton("cmdCancel", "&Cancel", [this] { m_subjects.CancelIdentification(); });
  connect(m_txtSub, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_rules.SetSubjectText(FromQt(text));
    // The dropped characters were just inserted before the cursor.
    const auto fromEnd = text.size() - m_txtSub->cursorPosition();
    ShowText(m_txtSub, m_rules.SubjectText());
    m_txtSub->setCursorPosition(static_cast<int>(m_txtSub->text().size() - fromEnd));
  });
  connect(m_txtInfo, &QLineEdit::textEdited, this, [this](const QString& text) {
    m_rules.SetLevelText(FromQt(text));
    ShowLevels();
  });
  connect(m_lstLevels, &QListWidget::currentRowChanged, this, [this](int row) {
    if (row >= 0) Act([&] { m_rules.SetLevelText(std::to_string(row + 1)); });
  });
}

void IdentificationPanel::AddQuestions(QVBoxLayout& rows) {
  FitBox(m_txtSub, 20);
  FitBox(m_txtInfo, 4);
  rows.addWidget(MakeText("lblSnmbr2", &SubjectIdentification::Instruction));
  AddQuestionGap(rows);
  rows.addWidget(MakeLabel("lblSnmbr", "Please enter the &subject identifier:", m_txtSub));
  rows.addWidget(m_txtSub);
  rows.addWidget(
      MakeLabel("lblSubNote", "NOTE: Cannot be blank nor can the ID be greater than 20                 characters."));
  auto* row = new QHBoxLayout(m_level = new QWidget);
  row->setContentsMargins({});
  QLabel* prompt = MakeLabel("lblInfo", "Please enter variable &level here -------------->", m_txtInfo);
  prompt->setWordWrap(false);
  row->addWidget(prompt);
  row->addWidget(m_txtInfo, 0, Qt::AlignTop);
  row->addWidget(m_lstLevels, 1, Qt::AlignTop);
  m_level->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  m_lstLevels->setItemDelegate(new NumberingDelegate(m_lstLevels));
  row->setAlignment(prompt, Qt::AlignTop);
  m_lstLevels->setAccessibleName("Levels");
  constexpr int kLines = 11;
  m_lstLevels->setFixedHeight(kLines * (m_lstLevels->fontMetrics().height() + 2));
  KeepReadable(m_txtSub, true);
  AddQuestionGap(rows);
  rows.addWidget(m_level);
  AddQuestionGap(rows);
  rows.addWidget(MakeText("lblVars", &SubjectIdentification::LevelsList));
  rows.addStretch();
}

void IdentificationPanel::ShowLevels() {
  const QSignalBlocker quiet(m_lstLevels);
  const std::vector<std::string> names = m_rules.LevelNames();
  QStringList shown;
  for (const std::string& name : names) shown.append(ToQt(name));
  QStringList listed;
  for (int row = 0; row < m_lstLevels->count(); ++row) listed.append(m_lstLevels->item(row)->text());
  if (shown != listed) {
    m_lstLevels->clear();
    m_lstLevels->addItems(shown);
  }
  m_lstLevels->setCurrentRow(m_rules.ChosenLevel() - 1);
}

QLabel* IdentificationPanel::MakeText(const char* name, Getter text) {
  QLabel* label = MakeLabel(name, {});
  m_texts.emplace_back(label, text);
  return label;
}

void IdentificationPanel::ShowState() {
  for (const auto& [label, text] : m_texts) {
    label->setText(WithIsolatedLines(ToQt((m_rules.*text)())));
    label->setVisible(!label->text().isEmpty());
  }
  ShowText(m_txtSub, m_rules.SubjectText());
  ShowText(m_txtInfo, m_rules.LevelText());
  ShowLevels();
  const bool asksIdentifier = m_rules.AsksIdentifier();
  m_txtSub->setEnabled(asksIdentifier);  // visible also while levels are entered
  m_level->setVisible(!asksIdentifier);
  m_cmdBack->setEnabled(m_rules.CanGoBack());
  m_cmdNext->setEnabled(m_rules.CanGoNext());
  m_cmdEntered->setEnabled(m_rules.CanFinish());
  const bool isExisting = m_rules.LooksForExisting();
  for (QPushButton* button : {m_cmdBrowse, m_cmdOK}) button->setVisible(isExisting);
  for (QPushButton* button : {m_cmdBack, m_cmdNext, m_cmdEntered}) button->setVisible(!isExisting);
  for (QPushButton* button : {m_cmdOK, m_cmdNext, m_cmdEntered}) MarkDefault(button, button == DefaultButton());
}

int IdentificationPanel::CursorRevision() const { return m_rules.CursorRevision(); }

void IdentificationPanel::PlaceCursor() {
  PlaceCursorIn(m_rules.Cursor() == SubjectIdentification::Box::Subject ? m_txtSub : m_txtInfo);
}

QPushButton* IdentificationPanel::DefaultButton() const {
  if (m_rules.LooksForExisting()) return m_cmdOK;
  return m_rules.CanFinish() ? m_cmdEntered : m_cmdNext;
}

}  // namespace zova
