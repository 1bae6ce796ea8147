// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/MeasurePanel.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

QString Ascii(std::string_view text) { return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())); }

}  // namespace

MeasurePanel::MeasurePanel(MasterFlow& flow, std::function<void()> help) : FlowPanel(flow, "FraWhichAnal") {
  QVBoxLayout* rows = AddPage();
  QLabel* title = MakeLabel("lblmeasuretitle", tr("Choose Measures"));
  QFont bold;  // only its weight is set: the rest comes from the window
  bold.setBold(true);
  title->setFont(bold);
  rows->addWidget(title);
  rows->addWidget(MakeLabel("lblselect", tr("Please uncheck any measures that you do not want.  Please note that "
                                            "selections here will apply to both individual and applicable nominal "
                                            "group measures.")));
  QGroupBox* frame = nullptr;
  for (const MeasureBox& measure : AllMeasureBoxes()) {
    if (!frame || frame->objectName() != Ascii(measure.Frame->Name)) {
      frame = new QGroupBox(Ascii(measure.Frame->Caption));
      frame->setObjectName(Ascii(measure.Frame->Name));
      new QVBoxLayout(frame);
      rows->addWidget(frame);
    }
    AddBox(*frame, measure);
  }
  m_lblColumnCount = MakeLabel("lblColumnCount", {});
  rows->addWidget(m_lblColumnCount);
  rows->addStretch();
  AddButton("cmdHelpMeasures", tr("H&elp on Measures"), std::move(help));
  m_default = m_cancel = AddButton("cmdMeasureOK", tr("O&K"), [this] { m_flow.CloseMeasures(); });
  MarkDefault(m_default, true);
  m_cursor = m_boxes.front().first;
}

void MeasurePanel::AddBox(QGroupBox& frame, const MeasureBox& measure) {
  QString caption = Ascii(measure.Caption);
  auto* box = new QCheckBox(caption.insert(caption.indexOf(QLatin1Char(measure.AccessKey)), u'&'));
  box->setObjectName(Ascii(measure.Name));
  static_cast<QVBoxLayout*>(frame.layout())->addWidget(box, 0, Qt::AlignLeft);
  ActAtOnce(box);
  m_boxes.emplace_back(box, measure.Which);
  connect(box, &QCheckBox::clicked, this, [this, which = measure.Which](bool checked) {
    m_flow.Options().Selection.Check(which, checked);
    ShowColumnCount();
    emit Acted();
  });
}

void MeasurePanel::Refresh() {
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
