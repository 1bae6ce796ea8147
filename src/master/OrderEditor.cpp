// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/OrderEditor.h"

#include <algorithm>
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
  m_row = 0;
  ++m_layouts;
}

std::string OrderEditor::RowHeading() const { return m_use == Use::SerialPositions ? "Item #" : "Subject"; }

void OrderEditor::SetEntryText(std::string_view text) {
  m_text.clear();
  std::copy_if(text.begin(), text.end(), std::back_inserter(m_text), IsDigit);
}

void OrderEditor::Enter() {
  if (!m_text.empty()) Click(m_row + 1);
}

void OrderEditor::Move(int rows) {
  if (m_text.empty()) Click(m_row + rows);
}

void OrderEditor::Click(int row) {
  // What stands in the box belongs to the row that is left.
  if (!m_text.empty()) {
    m_order[static_cast<std::size_t>(m_row)] = LeadingInteger16(std::exchange(m_text, {})).value_or(0);
  }
  m_row = std::clamp(row, 0, Rows() - 1);
}

void OrderEditor::Paste(std::string_view text) {
  // Empty lines at the end are the spreadsheet's.
  text = text.substr(0, text.find_last_not_of(" \r\n") + 1);
  if (text.empty()) return;
  Order order = m_order;
  const auto start = static_cast<std::size_t>(m_row);
  for (std::size_t row = start; !text.empty(); ++row) {
    const auto position = PastedPosition(TakeLine(text));
    if (!position || row >= order.size()) {
      m_boxes.Show({.Text = NoPositionText(row),
                    .Icon = BoxIcon::Exclamation,
                    .Details = "Line " + std::to_string(row - start + 1) + " of the pasted data."});
      return;
    }
    order[row] = *position;
  }
  m_order = std::move(order);
  m_text.clear();  // else the next Enter would put it over what was pasted
  ++m_layouts;
}

// A row behind the last has no name but its number.
std::string OrderEditor::NoPositionText(std::size_t row) const {
  const bool isSubject = m_use == Use::GroupMembers;
  const std::string name = isSubject && row < m_subjectIds.size() ? m_subjectIds[row] : std::to_string(row + 1);
  return (isSubject ? "Subject " : "Item ") + name + " has no position from 1 to " + std::to_string(Rows()) + ".";
}

void OrderEditor::Reset() { Begin(m_first); }

bool OrderEditor::Check() {
  Enter();
  const auto fault = m_use == Use::SerialPositions ? SerialOrderFault(m_order) : GroupOrderFault(m_subjectIds, m_order);
  if (!fault) return true;
  Click(static_cast<int>(fault->Row));
  m_boxes.Show({.Text = fault->Text, .Icon = BoxIcon::Exclamation});
  return false;
}

}  // namespace zova
