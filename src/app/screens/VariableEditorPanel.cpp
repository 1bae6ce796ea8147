// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/VariableEditorPanel.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <algorithm>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

bool IsEnter(const QKeyEvent& press) { return press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter; }

bool IsTyping(const QKeyEvent& press) {
  const auto held = press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
  const bool mayType = held == Qt::NoModifier || held == (Qt::ControlModifier | Qt::AltModifier);  // AltGr on Windows
  return mayType && !press.text().isEmpty() && press.text().front().isPrint() && press.key() != Qt::Key_Space;
}

// A window or menu that returns the focus is not an act of the user.
bool IsReturn(Qt::FocusReason reason) {
  return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason || reason == Qt::MenuBarFocusReason;
}

// A margin replaces the frame, so that nothing moves.
void ShowFrame(QLabel& label, bool shown) {
  constexpr int kFrame = 2;
  label.setFrameStyle(shown ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
  label.setLineWidth(kFrame);
  label.setMargin(shown ? kFrame : 2 * kFrame);
}

void ShowHighlight(QLabel& label, bool highlighted) {
  label.setAutoFillBackground(highlighted);
  label.setBackgroundRole(highlighted ? QPalette::Highlight : QPalette::NoRole);
  label.setForegroundRole(highlighted ? QPalette::HighlightedText : QPalette::NoRole);
}

}  // namespace

VariableEditorPanel::VariableEditorPanel(NewProjectWizard& wizard) : WizardPage(wizard, 5, "Variables") {
  AddOptions(WizardOption::Variables, "lblMrk", "Would you like to add between subject variables?", "optMrkyes",
             "optMrkno");
  m_entry = AddBox(WizardBox::Variable, "lblVariable", {}, "txtVariable");
  auto* row = new QHBoxLayout;
  Rows()->addLayout(row);
  m_cmdAddVar = AddButton(*row, "cmdAddVar", "New &Variable", &NewProjectWizard::AddVariable);
  m_cmdReview = AddButton(*row, "cmdReview", "&Review", &NewProjectWizard::ReviewVariables);
  m_cmdReview->setToolTip("Cycles Through Entered Variables");
  row->addWidget(m_lblPlace = MakeLabel("lblVarPlace", {}));
  row->addStretch();
  AddText("lblVarHelp",
          "Highlight a variable or level name to edit it, then use the entry box to "
          "rename it or the <Delete> key to delete the entry.  Highlight the 'Add "
          "Level' box to add additional levels.",
          kWhenDefining);
  m_entry.Edit->setPlaceholderText("leave empty when there are no more");
  AddLabels();
}

QPushButton* VariableEditorPanel::AddButton(QHBoxLayout& row, const char* name, const QString& caption, Act act) {
  QPushButton* button = MakeButton(name, caption);
  row.addWidget(button);
  connect(button, &QPushButton::clicked, this, [this, act] { Do(act); });
  return button;
}

void VariableEditorPanel::AddLabels() {
  m_frame = Named(new QFrame, "fraLevels");
  m_frame->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
  auto* rows = new QVBoxLayout(m_frame);
  rows->setSpacing(0);
  Rows()->addSpacing(rows->contentsMargins().top());
  Rows()->addWidget(m_frame);
  for (int label = 0; label <= kMaxLevels; ++label) {
    QLabel* name = MakeLabel("lblVarName", {});
    if (label > 0) name->setObjectName(QStringLiteral("lblVarLevel%1").arg(label));
    name->setFocusPolicy(Qt::StrongFocus);
    ShowFrame(*name, false);
    rows->addWidget(name);
    m_labels.push_back(name);
    name->installEventFilter(this);
  }
}

void VariableEditorPanel::Refresh() {
  WizardPage::Refresh();
  const VariableEditor& editor = Wizard().Variables();
  const bool asked = Wizard().Asks(WizardBox::Variable);
  const QString prompt = ToQt(editor.Prompt());
  m_entry.Label->setText(prompt.isEmpty() ? prompt : QLatin1Char('&') + prompt);
  m_cmdAddVar->setEnabled(asked && !Wizard().IsViewing());
  m_cmdReview->setEnabled(asked);
  m_lblPlace->setText(ToQt(editor.Place()));
  m_entry.Edit->setEnabled(asked && !editor.AsksNothing());

  m_refreshing = true;
  const bool inLabels = std::count(m_labels.begin(), m_labels.end(), window()->focusWidget()) > 0;
  std::vector<std::string> names = editor.LevelLabels();
  names.insert(names.begin(), editor.Heading());
  names.resize(m_labels.size());
  for (std::size_t label = 0; label < m_labels.size(); ++label) {
    m_labels[label]->setText(ToQt(names[label]));
    m_labels[label]->setVisible(!names[label].empty());
    m_labels[label]->setEnabled(asked);
    ShowHighlight(*m_labels[label], asked && static_cast<int>(label) == editor.CurrentLevel());
  }
  if (inLabels) FollowHighlight();
  m_frame->setVisible(!editor.Heading().empty());  // the cursor has left its labels by now
  m_refreshing = false;
}

// A deletion or Review can highlight another label than the one with the focus, or hide that one.
void VariableEditorPanel::FollowHighlight() {
  const auto level = static_cast<std::size_t>(Wizard().Variables().CurrentLevel());
  QWidget* highlighted = m_entry.Edit;
  if (level < m_labels.size() && !m_labels[level]->isHidden()) highlighted = m_labels[level];
  if (window()->focusWidget() != highlighted) PlaceCursorIn(highlighted);
}

void VariableEditorPanel::Do(Act act) {
  (Wizard().*act)();
  emit Acted();
}

void VariableEditorPanel::Highlight(int label) {
  if (label == 0) {
    Wizard().HighlightVariable();
  } else {
    Wizard().HighlightLevel(label);
  }
  emit Acted();
}

bool VariableEditorPanel::eventFilter(QObject* watched, QEvent* event) {
  const auto found = std::find(m_labels.begin(), m_labels.end(), watched);
  if (found == m_labels.end()) return WizardPage::eventFilter(watched, event);
  const int label = static_cast<int>(found - m_labels.begin());
  if (event->type() == QEvent::KeyPress) return HandleKey(label, *static_cast<QKeyEvent*>(event));
  if (event->type() != QEvent::FocusIn && event->type() != QEvent::FocusOut) return false;
  ShowFrame(**found, event->type() == QEvent::FocusIn);
  if (event->type() == QEvent::FocusIn && !m_refreshing && !IsReturn(static_cast<QFocusEvent*>(event)->reason())) {
    Highlight(label);
  }
  return false;
}

bool VariableEditorPanel::HandleKey(int label, QKeyEvent& press) {
  if (press.key() == Qt::Key_Up || press.key() == Qt::Key_Down) {
    const int next = std::clamp(label + (press.key() == Qt::Key_Up ? -1 : 1), 0, kMaxLevels);
    QLabel* name = m_labels[static_cast<std::size_t>(next)];
    if (!name->isHidden()) PlaceCursorIn(name);
    return true;
  }
  if (press.key() == Qt::Key_Delete) {
    if (!press.isAutoRepeat()) Do(&NewProjectWizard::DeleteHighlighted);
    return true;
  }
  if (!IsEnter(press) && press.key() != Qt::Key_F2 && !IsTyping(press)) return false;
  PlaceCursorIn(m_entry.Edit);
  if (IsTyping(press)) QCoreApplication::sendEvent(m_entry.Edit, &press);  // replaces the name
  return true;
}

// Otherwise the page would reappear with the focus on a label, which highlights it.
void VariableEditorPanel::hideEvent(QHideEvent* event) {
  for (QLabel* label : m_labels) label->clearFocus();
  WizardPage::hideEvent(event);
}

// Enter names what is highlighted or prompted for, and never leaves the page.
void VariableEditorPanel::keyPressEvent(QKeyEvent* event) {
  if (!IsEnter(*event) || window()->focusWidget() != m_entry.Edit || Wizard().IsViewing())
    return WizardPage::keyPressEvent(event);
  if (!event->isAutoRepeat()) Do(&NewProjectWizard::EnterVariableText);
}

}  // namespace zova
