// SPDX-License-Identifier: GPL-3.0-or-later
//
// The lists of Examine Means: groups of measures that fold, the filter, and the keys.

#include <QFont>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <algorithm>

#include "app/screens/MeansPanel.h"
#include "app/widgets/Controls.h"
#include "means/MeansExaminer.h"

namespace zova {

namespace {

std::vector<std::size_t> ChosenRows(const QListWidget& list) {
  std::vector<std::size_t> rows;
  for (int row = 0; row < list.count(); ++row) {
    if (list.item(row)->isSelected()) rows.push_back(static_cast<std::size_t>(row));
  }
  return rows;
}

void Choose(QListWidget& list, const std::vector<std::size_t>& rows) {
  if (ChosenRows(list) == rows) return;
  const QSignalBlocker quiet(&list);
  SelectLines(list, rows);
}

// Home: the first line in sight; End: the last one.
void GoToEnd(QListWidget& list, Qt::Key key, QItemSelectionModel::SelectionFlags choice) {
  const int count = list.count();
  for (int step = 0; step < count; ++step) {
    const int row = key == Qt::Key_Home ? step : count - 1 - step;
    if (list.item(row)->isHidden()) continue;
    const bool isMeasure = (list.item(row)->flags() & Qt::ItemIsSelectable) != 0;  // at a heading the choice stays
    return list.setCurrentRow(row, isMeasure ? choice : QItemSelectionModel::NoUpdate);
  }
}

void Fill(QListWidget& list, const std::vector<std::string>& texts) {
  const QSignalBlocker quiet(&list);
  list.clear();
  for (const std::string& text : texts) list.addItem(ToQt(text));
  list.setCurrentRow(0, QItemSelectionModel::NoUpdate);
}

}  // namespace

void MeansPanel::FillLists() {
  m_layoutRevision = m_rules.LayoutRevision();
  Fill(*m_lstMeasures, m_rules.Measures());
  AddHeadings();
  Fill(*m_lstMeansVariables, m_rules.Variables());
  const QSignalBlocker quiet(m_txtFilter);
  m_txtFilter->clear();
  ShowFiltered();
}

void MeansPanel::AddHeadings() {
  const QSignalBlocker quiet(m_lstMeasures);
  m_headings.clear();
  m_furtherTitle = nullptr;
  QFont bold;
  bold.setBold(true);
  for (const MeasureGroup& group : m_rules.FurtherGroups()) {
    auto* line = new QListWidgetItem;
    line->setFlags(Qt::ItemIsEnabled);  // the cursor can go there, but it is no measure
    line->setFont(bold);
    const int row = RowOf(group.First) - 1;
    if (m_furtherTitle == nullptr) {
      m_furtherTitle = new QListWidgetItem("Further measures");
      m_furtherTitle->setFlags(Qt::NoItemFlags);
      m_lstMeasures->insertItem(row - 1, m_furtherTitle);
    }
    m_lstMeasures->insertItem(row, line);
    m_headings.push_back({line, true});
  }
}

int MeansPanel::RowOf(std::size_t measure) const {
  const std::vector<MeasureGroup>& groups = m_rules.FurtherGroups();
  int row = static_cast<int>(measure) + (!groups.empty() && measure >= groups.front().First ? 1 : 0);  // the title
  for (const MeasureGroup& group : groups) row += measure >= group.First ? 1 : 0;
  return row;
}

std::vector<std::size_t> MeansPanel::ChosenMeasures() const {
  std::vector<std::size_t> measures;
  for (std::size_t measure = 0; measure < m_rules.Measures().size(); ++measure) {
    if (m_lstMeasures->item(RowOf(measure))->isSelected()) measures.push_back(measure);
  }
  return measures;
}

std::vector<std::size_t> MeansPanel::ChosenVariables() const { return ChosenRows(*m_lstMeansVariables); }

bool MeansPanel::Fold(const QListWidgetItem* line, std::optional<bool> isFolded) {
  const auto heading =
      std::find_if(m_headings.begin(), m_headings.end(), [line](const Heading& known) { return known.Line == line; });
  if (heading == m_headings.end()) return false;
  heading->IsFolded = isFolded.value_or(!heading->IsFolded);
  HideFiltered();
  if (heading->IsFolded) return true;
  const MeasureGroup& group = m_rules.FurtherGroups()[static_cast<std::size_t>(heading - m_headings.begin())];
  m_lstMeasures->scrollToItem(m_lstMeasures->item(RowOf(group.First + group.Count - 1)));
  m_lstMeasures->scrollToItem(heading->Line);
  return true;
}

// What is hidden stays chosen. The filter finds measures in folded groups, too.
void MeansPanel::HideFiltered() {
  const QString filter = m_txtFilter->text();
  const auto hide = [&](std::size_t measure, bool isFolded) {
    QListWidgetItem* item = m_lstMeasures->item(RowOf(measure));
    item->setHidden(filter.isEmpty() ? isFolded : !item->text().contains(filter, Qt::CaseInsensitive));
  };
  const std::vector<MeasureGroup>& groups = m_rules.FurtherGroups();
  const std::size_t further = groups.empty() ? m_rules.Measures().size() : groups.front().First;
  for (std::size_t measure = 0; measure < further; ++measure) hide(measure, false);
  if (m_furtherTitle != nullptr) m_furtherTitle->setHidden(!filter.isEmpty());
  for (std::size_t k = 0; k < groups.size(); ++k) {
    const auto& [line, isFolded] = m_headings[k];
    line->setHidden(!filter.isEmpty());
    line->setText((isFolded ? "\u25b8 " : "\u25be ") + ToQt(groups[k].Heading));
    for (std::size_t i = 0; i < groups[k].Count; ++i) hide(groups[k].First + i, isFolded);
  }
}

void MeansPanel::ShowFiltered() {
  HideFiltered();
  GoToEnd(*m_lstMeasures, Qt::Key_Home, QItemSelectionModel::NoUpdate);
}

// Qt's own keys would go to a line that is filtered out.
bool MeansPanel::eventFilter(QObject* watched, QEvent* event) {
  if (watched == m_lstMeasures->viewport()) {
    const bool isPress = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    return isPress && Fold(m_lstMeasures->itemAt(static_cast<QMouseEvent*>(event)->pos()));
  }
  if (event->type() != QEvent::KeyPress) return Panel::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  const bool isSideways = press->key() == Qt::Key_Left || press->key() == Qt::Key_Right;
  const bool toggles = press->key() == Qt::Key_Space || press->key() == Qt::Key_Return || press->key() == Qt::Key_Enter;
  const auto wanted = isSideways ? std::optional(press->key() == Qt::Key_Left) : std::nullopt;
  if ((isSideways || toggles) && Fold(m_lstMeasures->currentItem(), wanted)) return true;
  const bool isEnd = press->key() == Qt::Key_Home || press->key() == Qt::Key_End;
  if (!isEnd || press->modifiers() != Qt::NoModifier) return false;
  GoToEnd(*m_lstMeasures, static_cast<Qt::Key>(press->key()), QItemSelectionModel::ClearAndSelect);
  return true;
}

void MeansPanel::ShowChosen() {
  std::vector<std::size_t> variables = m_rules.ChosenVariables();
  std::sort(variables.begin(), variables.end());
  std::vector<std::size_t> rows;
  for (const std::size_t measure : m_rules.ChosenMeasures()) rows.push_back(static_cast<std::size_t>(RowOf(measure)));
  Choose(*m_lstMeasures, rows);
  Choose(*m_lstMeansVariables, variables);
}

}  // namespace zova
