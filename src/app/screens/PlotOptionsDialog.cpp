// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/PlotOptionsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFont>
#include <QKeyEvent>
#include <QListWidget>
#include <QShortcut>
#include <QVBoxLayout>
#include <utility>

#include "app/widgets/Controls.h"

namespace zova {

PlotOptionsDialog::PlotOptionsDialog(PlotAnswers answers, PlotShown shown,
                                     std::function<bool(const PlotAnswers&)> answer, const std::function<void()>& help,
                                     QWidget* parent)
    : QDialog(parent),
      m_answers(std::move(answers)),
      m_answer(std::move(answer)),
      m_txtPlotTitle(Named(new QLineEdit, "txtPlotTitle")),
      m_txtAxisMin(Named(new QLineEdit, "txtAxisMin")),
      m_txtAxisMax(Named(new QLineEdit, "txtAxisMax")),
      m_cboRasterColours(Named(new QComboBox, "cboRasterColours")),
      m_lstPlotOrder(Named(new QListWidget, "lstPlotOrder")),
      m_cmdPlotUp(MakeButton("cmdPlotUp", "Move &Up")),
      m_cmdPlotDown(MakeButton("cmdPlotDown", "Move &Down")) {
  setObjectName("dlgPlotOptions");
  setWindowTitle("Plot Options");
  setWindowModality(Qt::WindowModal);
  auto* rows = new QVBoxLayout(this);
  rows->setSpacing(kLabelGap);
  rows->addWidget(MakeFrame(shown));
  AddQuestionGap(*rows);
  if (!m_answers.Factors.empty()) rows->addWidget(MakeOrder(), 1);
  AddQuestionGap(*rows);
  auto* buttons = new QDialogButtonBox;
  QPushButton* ok = buttons->addButton("&OK", QDialogButtonBox::AcceptRole);
  buttons->addButton("&Cancel", QDialogButtonBox::RejectRole)->setObjectName("cmdPlotCancel");
  ok->setObjectName("cmdPlotOk");
  ok->setDefault(true);
  connect(buttons, &QDialogButtonBox::accepted, this, &PlotOptionsDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &PlotOptionsDialog::reject);
  rows->addWidget(buttons);
  connect(new QShortcut(Qt::Key_F1, this), &QShortcut::activated, this, help);
  m_txtPlotTitle->setFocus();
}

QWidget* PlotOptionsDialog::MakeFrame(PlotShown shown) {
  auto* frame = new QWidget;
  auto* rows = new QVBoxLayout(frame);
  rows->setContentsMargins({});
  rows->setSpacing(kLabelGap);
  const auto add = [&](const char* name, const char* label, QWidget* box) {
    if (rows->count() > 0) AddQuestionGap(*rows);
    rows->addWidget(MakeLabel(name, label, box));
    rows->addWidget(box);
  };
  add("lblPlotTitle", "&Title:", m_txtPlotTitle);
  m_txtPlotTitle->setText(ToQt(m_answers.Title));
  m_txtPlotTitle->setMinimumWidth(fontMetrics().averageCharWidth() * 50);
  if (shown == PlotShown::Raster) {
    for (const char* colours : {"Study Position", "Category"}) m_cboRasterColours->addItem(colours);
    m_cboRasterColours->setCurrentIndex(static_cast<int>(m_answers.Colours));
    add("lblRasterColours", "Co&lours Show:", m_cboRasterColours);
    for (QLineEdit* box : {m_txtAxisMin, m_txtAxisMax}) box->setParent(frame), box->hide();
    return frame;
  }
  m_cboRasterColours->setParent(frame);
  m_cboRasterColours->hide();
  add("lblAxisMin", "Value Axis &From:", m_txtAxisMin);
  add("lblAxisMax", "Value &Axis To:", m_txtAxisMax);
  const std::pair<QLineEdit*, const std::string*> ends[] = {{m_txtAxisMin, &m_answers.Min},
                                                            {m_txtAxisMax, &m_answers.Max}};
  for (const auto& [box, text] : ends) {
    box->setText(ToQt(*text));
    box->setPlaceholderText("automatic");
    FitBox(box, 16);
  }
  return frame;
}

QWidget* PlotOptionsDialog::MakeOrder() {
  auto* order = new QWidget;
  auto* rows = new QVBoxLayout(order);
  rows->setContentsMargins({});
  rows->setSpacing(kLabelGap);
  rows->addWidget(MakeLabel("lblPlotOrder", "O&rder of Variables and Levels:", m_lstPlotOrder));
  auto* columns = new QHBoxLayout;
  columns->addWidget(m_lstPlotOrder, 1);
  auto* moves = new QVBoxLayout;
  for (const auto& [button, step] : {std::pair(m_cmdPlotUp, -1), {m_cmdPlotDown, 1}}) {
    button->setAutoDefault(false);
    moves->addWidget(button);
    connect(button, &QPushButton::clicked, this, [this, rowCount = step] { Move(rowCount); });
  }
  moves->addStretch();
  columns->addLayout(moves);
  rows->addLayout(columns, 1);
  m_lstPlotOrder->setAccessibleName("Order of Variables and Levels");
  m_lstPlotOrder->installEventFilter(this);
  connect(m_lstPlotOrder, &QListWidget::currentRowChanged, this, &PlotOptionsDialog::ShowMoves);
  ShowOrder();
  m_lstPlotOrder->setCurrentRow(0);
  return order;
}

std::vector<PlotOptionsDialog::Line> PlotOptionsDialog::Lines() const {
  std::vector<Line> lines;
  for (std::size_t factor = 0; factor < m_answers.Factors.size(); ++factor) {
    lines.push_back({factor, {}});
    for (std::size_t level = 0; level < m_answers.Factors[factor].Levels.size(); ++level) {
      lines.push_back({factor, level});
    }
  }
  return lines;
}

void PlotOptionsDialog::ShowOrder() {
  m_lstPlotOrder->clear();
  for (const Line& line : Lines()) {
    const PlotFactor& factor = m_answers.Factors[line.Factor];
    auto* item = new QListWidgetItem(line.Level ? "    " + ToQt(factor.Levels[*line.Level]) : ToQt(factor.Name));
    QFont font(item->font());
    font.setBold(!line.Level);
    item->setFont(font);
    m_lstPlotOrder->addItem(item);
  }
}

bool PlotOptionsDialog::CanMove(int step) const {
  const int row = m_lstPlotOrder->currentRow();
  if (row < 0) return false;
  const Line line = Lines()[static_cast<std::size_t>(row)];
  const std::size_t count = line.Level ? m_answers.Factors[line.Factor].Levels.size() : m_answers.Factors.size();
  const std::size_t place = line.Level.value_or(line.Factor);
  return step < 0 ? place > 0 : place + 1 < count;
}

void PlotOptionsDialog::ShowMoves() {
  m_cmdPlotUp->setEnabled(CanMove(-1));
  m_cmdPlotDown->setEnabled(CanMove(1));
}

// The line goes on being the current one.
void PlotOptionsDialog::Move(int step) {
  if (!CanMove(step)) return;
  const Line line = Lines()[static_cast<std::size_t>(m_lstPlotOrder->currentRow())];
  const std::size_t from = line.Level.value_or(line.Factor);
  const std::size_t to = step < 0 ? from - 1 : from + 1;
  std::vector<std::string>& levels = m_answers.Factors[line.Factor].Levels;
  if (line.Level) {
    std::swap(levels[from], levels[to]);
  } else {
    std::swap(m_answers.Factors[from], m_answers.Factors[to]);
  }
  ShowOrder();
  const std::vector<Line> lines = Lines();
  for (std::size_t row = 0; row < lines.size(); ++row) {
    const bool isMoved = line.Level ? lines[row].Factor == line.Factor && lines[row].Level == to
                                    : lines[row].Factor == to && !lines[row].Level;
    if (isMoved) m_lstPlotOrder->setCurrentRow(static_cast<int>(row));
  }
}

bool PlotOptionsDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  const bool isMove = press->key() == Qt::Key_Up || press->key() == Qt::Key_Down;
  if (!isMove || press->modifiers() != Qt::ControlModifier) return false;
  Move(press->key() == Qt::Key_Up ? -1 : 1);
  return true;
}

void PlotOptionsDialog::accept() {
  m_answers.Title = FromQt(m_txtPlotTitle->text().trimmed());
  m_answers.Min = FromQt(m_txtAxisMin->text());
  m_answers.Max = FromQt(m_txtAxisMax->text());
  if (m_cboRasterColours->count() > 0) {
    m_answers.Colours = static_cast<RasterColours>(m_cboRasterColours->currentIndex());
  }
  if (m_answer(m_answers)) QDialog::accept();
}

}  // namespace zova
