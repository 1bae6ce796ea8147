// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/widgets/ChoiceForm.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"

namespace zova {

ChoiceForm::ChoiceForm(const char* name, std::function<void(const std::string& name, int answer)> choose)
    : m_choose(std::move(choose)) {
  setObjectName(QString::fromLatin1(name));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins({});
  rows->setSpacing(kLabelGap);
}

void ChoiceForm::Build(const std::vector<ImportChoice>& choices) {
  auto* rows = static_cast<QVBoxLayout*>(layout());
  while (QLayoutItem* item = rows->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  m_names.clear();
  m_labels.clear();
  m_boxes.clear();
  for (const ImportChoice& choice : choices) {
    // "--too-long" becomes "cbo-too-long", which tests and quick help find.
    auto* box = new QComboBox;
    box->setObjectName("cbo" + ToQt(choice.Name).mid(1));
    box->setPlaceholderText("Please choose");
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(20);
    box->setFocusPolicy(Qt::StrongFocus);  // the wheel alone changes nothing
    m_labels.push_back(MakeLabel("lblChoice", {}, box));
    m_boxes.push_back(box);
    m_names.push_back(choice.Name);
    if (rows->count() > 0) AddQuestionGap(*rows);
    rows->addWidget(m_labels.back());
    rows->addWidget(box);
    connect(
        box, &QComboBox::activated, this, [this, name = choice.Name](int answer) { m_choose(name, answer); },
        Qt::QueuedConnection);  // the answer may replace the boxes
  }
  rows->addStretch();
}

void ChoiceForm::Show(const std::vector<ImportChoice>& choices) {
  std::vector<std::string> names;
  names.reserve(choices.size());
  for (const ImportChoice& choice : choices) names.push_back(choice.Name);
  if (names != m_names) {
    const QWidget* const focused = focusWidget();
    const QString held = focused != nullptr && focused->hasFocus() ? focused->objectName() : QString();
    Build(choices);
    if (auto* box = held.isEmpty() ? nullptr : findChild<QComboBox*>(held)) {
      box->show();  // the layout would later; until then it takes no focus
      box->setFocus();
    }
  }
  for (std::size_t i = 0; i < choices.size(); ++i) {
    m_labels[i]->setText(ToQt(choices[i].Text));
    QComboBox& box = *m_boxes[i];
    const QSignalBlocker quiet(&box);
    box.setAccessibleName(ToQt(choices[i].Text));
    QStringList answers;
    for (const std::string& answer : choices[i].Answers) answers.append(ToQt(answer));
    QStringList shown;
    for (int entry = 0; entry < box.count(); ++entry) shown.append(box.itemText(entry));
    if (answers != shown) {
      box.clear();
      box.addItems(answers);
    }
    box.setCurrentIndex(choices[i].Chosen);
  }
}

}  // namespace zova
