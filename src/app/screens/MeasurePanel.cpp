// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MeasurePanel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

QString Ascii(std::string_view text) { return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

MeasurePanel::MeasurePanel(MasterFlow& flow, std::function<void()> help) : Panel("FraWhichAnal"), m_flow(flow) {
  AddTitle("lblmeasuretitle", "Choose Measures");
  AddProjectName();
  QVBoxLayout* rows = AddPage();
  rows->parentWidget()->setMaximumWidth(QWIDGETSIZE_MAX);  // for the longest caption
  rows->addWidget(MakeLabel("lblselect",
                            "Please uncheck any measures that you do not want.  Please note that "
                            "selections here will apply to both individual and applicable nominal "
                            "group measures."));
  AddQuestionGap(*rows);
  m_columns = new QHBoxLayout;
  rows->addLayout(m_columns);
  QVBoxLayout* column[] = {new QVBoxLayout, new QVBoxLayout};
  for (QVBoxLayout* side : column) m_columns->addLayout(side, 1);
  QGroupBox* frame = nullptr;
  std::size_t placed = 0;
  for (const MeasureBox& measure : AllMeasureBoxes()) {
    if (!frame || frame->objectName() != Ascii(measure.Frame->Name)) {
      frame = new QGroupBox(Ascii(measure.Frame->Caption));
      frame->setObjectName(Ascii(measure.Frame->Name));
      frame->setFlat(true);
      (new QVBoxLayout(frame))->setContentsMargins({});
      QVBoxLayout& side = *column[2 * placed >= AllMeasureBoxes().size() ? 1 : 0];
      AddQuestionGap(side);
      side.addWidget(frame);
    }
    AddBox(*frame, measure);
    ++placed;
  }
  for (QVBoxLayout* side : column) side->addStretch();
  AddQuestionGap(*rows);
  m_lblColumnCount = MakeLabel("lblColumnCount", {});
  rows->addWidget(m_lblColumnCount);
  rows->addStretch();
  AddButton("cmdHelpMeasures", "H&elp on Measures", std::move(help));
  SetDefault(m_cancel = AddButton("cmdMeasureOK", "O&K", [this] { m_flow.CloseMeasures(); }));
  m_buttonsReturn = true;
  m_cursor = m_boxes.front().first;
}

// One below the other where both do not fit side by side.
void MeasurePanel::resizeEvent(QResizeEvent* event) {
  Panel::resizeEvent(event);
  if (m_twoColumns == 0) m_twoColumns = m_columns->minimumSize().width();
  constexpr int kBeside = 60;  // margins and a scroll bar
  m_columns->setDirection(width() < m_twoColumns + kBeside ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
}

void MeasurePanel::AddBox(QGroupBox& frame, const MeasureBox& measure) {
  QString caption = Ascii(measure.Caption);
  auto* box = new QCheckBox(caption.insert(caption.indexOf(QLatin1Char(measure.AccessKey)), u'&'));
  box->setObjectName(Ascii(measure.Name));
  static_cast<QVBoxLayout*>(frame.layout())->addWidget(box, 0, Qt::AlignLeft);
  ActAtOnce(box);
  m_boxes.emplace_back(box, measure.Which);
  connect(box, &QCheckBox::clicked, this, [this, which = measure.Which](bool checked) {
    Act([&] { m_flow.Options().Selection.Check(which, checked); });
  });
}

void MeasurePanel::ShowState() {
  const MeasureSelection& selection = m_flow.Options().Selection;
  for (const auto& [box, measure] : m_boxes) {
    box->setEnabled(selection.IsEnabled(measure));
    box->setChecked(selection.IsChecked(measure));
    const auto isUsable = [&, frame = box->parentWidget()](const auto& other) {
      return other.first->parentWidget() == frame && selection.IsEnabled(other.second);
    };
    box->parentWidget()->setEnabled(std::any_of(m_boxes.begin(), m_boxes.end(), isUsable));
  }
  ShowColumnCount();
}

void MeasurePanel::ShowColumnCount() { m_lblColumnCount->setText(ToQt(m_flow.Options().ColumnCount())); }

}  // namespace zova
