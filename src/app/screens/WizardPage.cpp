// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/WizardPage.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <algorithm>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

bool HoldsNumber(WizardBox box) {
  return box == WizardBox::Tests || box == WizardBox::Items || box == WizardBox::Categories ||
         box == WizardBox::Minutes || box == WizardBox::MaxRating;
}

}  // namespace

WizardPage::WizardPage(NewProjectWizard& wizard, int number, const QString& title)
    : m_wizard(wizard), m_title(MakeLabel("", title)), m_rows(new QVBoxLayout(this)) {
  setObjectName(QStringLiteral("FraPrmScr%1").arg(number));
  m_title->setObjectName(QStringLiteral("lblTitle%1").arg(number));
  m_rows->setContentsMargins(0, 0, m_rows->spacing(), 0);  // the frame has margins of its own
  m_rows->setSpacing(kLabelGap);
  setMaximumWidth(FormWidth(*this));
}

QLabel* WizardPage::AddText(const char* name, const QString& text, Remark shown) {
  QLabel* label = MakeLabel(name, text);
  AddQuestionGap(*m_rows);
  m_rows->addWidget(label);
  if (shown) m_remarks.emplace_back(label, shown);
  return label;
}

WizardPage::TextBox WizardPage::MakeBox(WizardBox box, const char* labelName, const QString& caption,
                                        const char* name) {
  auto* edit = Named(new QLineEdit(this), name);
  const TextBox made{box, edit, MakeLabel(labelName, caption, edit)};
  m_boxes.push_back(made);
  connect(edit, &QLineEdit::textEdited, this, [this, made](const QString& text) { StoreText(made, text); });
  return made;
}

WizardPage::TextBox WizardPage::AddBox(WizardBox box, const char* labelName, const QString& question,
                                       const char* name) {
  const TextBox made = MakeBox(box, labelName, question, name);
  AddQuestionGap(*m_rows);
  if (HoldsNumber(box)) FitBox(made.Edit, 4);
  m_rows->addWidget(made.Label);
  m_rows->addWidget(made.Edit, 0, HoldsNumber(box) ? Qt::AlignLeft : Qt::Alignment());
  return made;
}

void WizardPage::AddOptions(WizardOption option, const char* labelName, const QString& question, const char* yesName,
                            const char* noName, std::optional<WizardBox> asked) {
  // One page has "Yes" twice. "No" has no access key: "N" belongs to "Next >>", "O" to the menu "Options".
  const QString yesCaption = asked ? QStringLiteral("Y&es") : QStringLiteral("&Yes");
  const OptionPair pair{option, Named(new QRadioButton(yesCaption), yesName),
                        Named(new QRadioButton(QStringLiteral("No")), noName), AddText(labelName, question), asked};
  auto* group = new QButtonGroup(this);
  auto* row = new QHBoxLayout;
  m_rows->addLayout(row);
  for (QRadioButton* button : {pair.Yes, pair.No}) {
    button->setAccessibleDescription(question);
    group->addButton(button);
    row->addWidget(button);
  }
  row->addStretch();
  pair.No->setChecked(true);
  m_options.push_back(pair);
  // Not clicked(): a screen reader toggles a button without a click.
  connect(pair.Yes, &QRadioButton::toggled, this, [this, option](bool yes) { StoreOption(option, yes); });
}

void WizardPage::Refresh() {
  for (const auto& [box, edit, label] : m_boxes) {
    const bool asked = m_wizard.Asks(box);
    ShowText(edit, m_wizard.Text(box));
    edit->setReadOnly(m_wizard.IsViewing());
    LookReadOnly(edit, m_wizard.IsViewing());
    edit->setEnabled(asked);
    label->setEnabled(asked);
  }
  for (const OptionPair& pair : m_options) {
    const bool isYes = m_wizard.Option(pair.Option);
    (isYes ? pair.Yes : pair.No)->setChecked(true);
    // Tab stops at the current answer; by default Qt stops at the first one until a click.
    pair.Yes->setFocusPolicy(isYes ? Qt::StrongFocus : Qt::ClickFocus);
    pair.No->setFocusPolicy(isYes ? Qt::ClickFocus : Qt::StrongFocus);
    const bool asked = !pair.Asked || m_wizard.Asks(*pair.Asked);
    pair.Label->setEnabled(asked);
    for (QRadioButton* button : {pair.Yes, pair.No}) {
      button->setEnabled(asked && !m_wizard.IsViewing());
      KeepReadable(button, asked && m_wizard.IsViewing());
    }
  }
  for (const auto& [label, shown] : m_remarks) label->setVisible((m_wizard.*shown)());
}

QWidget* WizardPage::ControlOf(WizardBox box) const {
  for (const TextBox& own : m_boxes) {
    if (own.Box == box) return own.Edit;
  }
  // Otherwise the yes/no question at the beginning of the page.
  const OptionPair& first = m_options.at(0);
  return first.Yes->isChecked() ? first.Yes : first.No;
}

void WizardPage::StoreText(const TextBox& typed, const QString& text) {
  m_wizard.SetText(typed.Box, FromQt(text));
  const QString kept = ToQt(m_wizard.Text(typed.Box));
  if (kept != text) {
    // The dropped characters were just inserted before the cursor.
    const auto cursor = typed.Edit->cursorPosition() - static_cast<int>(text.size() - kept.size());
    typed.Edit->setText(kept);
    typed.Edit->setCursorPosition(std::max(cursor, 0));
  }
  emit Acted();
}

void WizardPage::StoreOption(WizardOption option, bool yes) {
  if (m_wizard.Option(option) == yes) return;  // Refresh shows it
  m_wizard.SetOption(option, yes);
  emit Acted();  // while viewing, Refresh reverts it
}

}  // namespace zova
