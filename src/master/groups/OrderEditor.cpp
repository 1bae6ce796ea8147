// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/OrderEditor.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

#include "text/LeadingNumber.h"

namespace zova {

namespace {

bool IsDigit(char c) noexcept { return c >= '0' && c <= '9'; }

// A line of a pasted column: digits alone, blanks around them aside. A tab is no blank but the edge of another cell.
std::optional<std::int16_t> PastedPosition(std::string_view line) {
  const std::size_t first = std::min(line.find_first_not_of(' '), line.size());
  const std::string_view digits = line.substr(first, line.find_last_not_of(' ') + 1 - first);
  if (digits.empty() || !std::all_of(digits.begin(), digits.end(), IsDigit)) return std::nullopt;
  return LeadingInteger16(digits);
}

std::string_view TakeLine(std::string_view& rest) {
  const std::size_t end = std::min(rest.find_first_of("\r\n"), rest.size());
  const std::string_view line = rest.substr(0, end);
  rest.remove_prefix(std::min(rest.substr(end, 2) == "\r\n" ? end + 2 : end + 1, rest.size()));
  return line;
}

}  // namespace

void OrderEditor::OpenSerial(const ProjectParameters& project, const std::optional<SerialOrder>& saved) {
  m_use = Use::SerialPositions;
  m_subjectIds.clear();
  m_names.clear();
  for (int item = 1; item <= project.ItemCount; ++item) m_names.push_back(std::to_string(item));
  m_first = FirstSerialOrder(project);
  Begin(saved.value_or(m_first));
}

void OrderEditor::OpenGroups(std::vector<std::string> subjectIds, std::vector<std::string> names,
                             const std::optional<GroupOrder>& saved) {
  m_use = Use::GroupMembers;
  m_subjectIds = std::move(subjectIds);
  m_names = std::move(names);
  m_first = FirstGroupOrder(m_subjectIds.size());
  Begin(saved.value_or(m_first));
}

void OrderEditor::Begin(Order order) {
  m_order = std::move(order);
  m_text.clear();
  m_history.clear();
  m_next = 0;
  Place(0);
  ++m_layouts;
  ++m_changes;
}

std::string OrderEditor::Title() const {
  return m_use == Use::SerialPositions ? "Order of presentation of the items" : "Order of the subjects in the groups";
}

std::string OrderEditor::RowHeading() const { return m_use == Use::SerialPositions ? "Item #" : "Subject"; }

OrderEditor::Rows OrderEditor::Selection() const noexcept {
  return {std::min(m_anchor, m_row), std::max(m_anchor, m_row)};
}

void OrderEditor::Place(int row) {
  SelectTo(row);
  m_anchor = m_row;
}

void OrderEditor::SelectTo(int row) {
  m_row = std::clamp(row, 0, std::max(RowCount() - 1, 0));  // an older project may have no items
  if (!m_text.empty()) ++m_changes;                         // it is for other rows now
}

void OrderEditor::SetEntryText(std::string_view text) {
  m_text.clear();
  std::copy_if(text.begin(), text.end(), std::back_inserter(m_text), IsDigit);
  ++m_changes;
}

void OrderEditor::PutText(Order& order) const {
  if (m_text.empty() || order.empty()) return;
  std::int16_t position = LeadingInteger16(m_text).value_or(0);
  const auto [first, last] = Selection();
  for (int row = first; row <= last; ++row) {
    order[static_cast<std::size_t>(row)] = position;
    if (position > 0) position = position < INT16_MAX ? static_cast<std::int16_t>(position + 1) : std::int16_t{0};
  }
}

OrderEditor::Order OrderEditor::PendingOrder() const {
  Order order = m_order;
  PutText(order);
  return order;
}

void OrderEditor::TakeText() {
  Order order = PendingOrder();
  m_text.clear();
  Set(std::move(order));
}

// Every change goes through here, to be undone; what changed nothing is nothing to undo.
void OrderEditor::Set(Order order) {
  ++m_changes;
  const auto first = std::mismatch(order.begin(), order.end(), m_order.begin());
  if (first.first == order.end()) return;
  const auto last = std::mismatch(order.rbegin(), order.rend(), m_order.rbegin());
  m_history.erase(m_history.begin() + static_cast<std::ptrdiff_t>(m_next), m_history.end());
  m_history.push_back({static_cast<std::size_t>(first.first - order.begin()),
                       {first.second, last.second.base()},
                       {first.first, last.first.base()}});
  ++m_next;
  m_order = std::move(order);
}

void OrderEditor::ShowChange(const Change& change, const Order& positions) {
  std::copy(positions.begin(), positions.end(), m_order.begin() + static_cast<std::ptrdiff_t>(change.First));
  ++m_changes;
  Place(static_cast<int>(change.First));
}

void OrderEditor::Undo() {
  if (m_next == 0) return;
  const Change& change = m_history[--m_next];
  ShowChange(change, change.Before);
}

void OrderEditor::Redo() {
  if (m_next == m_history.size()) return;
  const Change& change = m_history[m_next++];
  ShowChange(change, change.After);
}

void OrderEditor::Enter() {
  if (m_text.empty()) return;
  TakeText();
  if (m_anchor == m_row) Place(m_row + 1);
}

void OrderEditor::Move(int rows) {
  if (m_text.empty()) Place(m_row + rows);
}

void OrderEditor::Click(int row) {
  TakeText();
  Place(row);
}

void OrderEditor::Delete() {
  if (m_order.empty()) return;
  Order order = m_order;
  const auto [first, last] = Selection();
  std::fill(order.begin() + first, order.begin() + last + 1, std::int16_t{0});
  Set(std::move(order));
}

std::string OrderEditor::Copy() const {
  const Rows rows = m_anchor == m_row ? Rows{0, RowCount() - 1} : Selection();
  std::string column;
  for (int row = rows.First; row <= rows.Last; ++row) {
    if (const int position = Position(row); position != 0) column += std::to_string(position);
    column += '\n';
  }
  return column;
}

void OrderEditor::Paste(std::string_view text) {
  // Empty lines at the end are the spreadsheet's.
  text = text.substr(0, text.find_last_not_of(" \r\n") + 1);
  if (text.empty()) return;
  Order order = m_order;
  const auto start = static_cast<std::size_t>(Selection().First);
  for (std::size_t row = start; !text.empty(); ++row) {
    const auto position = PastedPosition(TakeLine(text));
    if (!position || row >= order.size()) {
      Warn(m_boxes, NoPositionText(row), "Line " + std::to_string(row - start + 1) + " of the pasted data.");
      return;
    }
    order[row] = *position;
  }
  m_text.clear();  // else the next Enter would put it over what was pasted
  Set(std::move(order));
}

// A row behind the last has no name but its number.
std::string OrderEditor::NoPositionText(std::size_t row) const {
  const bool isSubject = m_use == Use::GroupMembers;
  const std::string name = isSubject && row < m_subjectIds.size() ? m_subjectIds[row] : std::to_string(row + 1);
  return (isSubject ? "Subject " : "Item ") + name + " has no position from 1 to " + std::to_string(RowCount()) + ".";
}

void OrderEditor::Reset() {
  m_text.clear();
  Set(m_first);
  Place(0);
}

bool OrderEditor::Check() {
  Enter();
  const auto fault = m_use == Use::SerialPositions ? SerialOrderFault(m_order) : GroupOrderFault(m_subjectIds, m_order);
  if (!fault) return true;
  Click(static_cast<int>(fault->Row));
  Warn(m_boxes, fault->Text);
  return false;
}

}  // namespace zova
