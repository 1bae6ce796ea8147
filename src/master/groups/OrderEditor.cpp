// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/OrderEditor.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "text/LeadingNumber.h"
#include "words/WordCompletion.h"

namespace zova {

GridRules OrderEditor::Rules() {
  const auto row = [](GridCell cell) { return static_cast<std::size_t>(cell.Line) - 1; };
  return {
      .Text = [this, row](
                  int,
                  GridCell cell) { return cell.Column == 0 ? m_names[row(cell)] : NumberCell(m_order[row(cell)]); },
      .SetText = [this, row](int, GridCell cell, const std::string& text) { m_order[row(cell)] = CellNumber(text); },
      .Typed = [this](GridCell cell, const std::string& text) -> CellInput {
        return {NumberCell(TypedPosition(cell.Line, text))};
      },
      .Pasted = [this](GridCell cell, std::string_view text) { return Pasted(cell, text); }};
}

void OrderEditor::OpenSerial(const ProjectParameters& project, const std::optional<SerialOrder>& saved,
                             WordList words) {
  m_use = Use::SerialPositions;
  m_subjectIds.clear();
  m_names.clear();
  m_words = std::move(words);
  for (int item = 1; item <= project.ItemCount; ++item) m_names.push_back(ItemName(m_words, item));
  m_first = FirstSerialOrder(project);
  Begin(saved.value_or(m_first));
}

void OrderEditor::OpenGroups(std::vector<std::string> subjectIds, std::vector<std::string> names,
                             const std::optional<GroupOrder>& saved) {
  m_use = Use::GroupMembers;
  m_subjectIds = std::move(subjectIds);
  m_words = {};
  m_names = std::move(names);
  m_first = FirstGroupOrder(m_subjectIds.size());
  Begin(saved.value_or(m_first));
}

void OrderEditor::Begin(Order order) {
  m_order = std::move(order);
  const char* const heading = m_use == Use::SerialPositions ? "Item #" : "Subject";
  m_cells.Open(static_cast<int>(m_order.size()), {{heading, true}, {"New Order"}});
}

std::string OrderEditor::Title() const {
  return m_use == Use::SerialPositions ? "Order of presentation of the items" : "Order of the subjects in the groups";
}

// Counts up over several rows, since positions are unique. A number beyond 16 bits is invalid.
std::int16_t OrderEditor::TypedPosition(int line, std::string_view text) const {
  const int first = LeadingInteger16(text).value_or(0);
  const int position = first == 0 ? 0 : first + line - m_cells.Selection().FirstLine;
  return static_cast<std::int16_t>(position <= INT16_MAX ? position : 0);
}

// A row after the last one has only a number, not a name.
CellInput OrderEditor::Pasted(GridCell cell, std::string_view text) const {
  const auto position = DigitsInteger16(text);
  if (position && cell.Line <= m_cells.Lines() && cell.Column == 1) return {NumberCell(*position)};
  const bool isSubject = m_use == Use::GroupMembers;
  const auto row = static_cast<std::size_t>(cell.Line) - 1;
  const std::string name = isSubject && row < m_subjectIds.size() ? m_subjectIds[row] : std::to_string(cell.Line);
  return {{},
          (isSubject ? "Subject " : "Item ") + name + " has no position from 1 to " + std::to_string(m_cells.Lines()) +
              "."};
}

OrderEditor::Order OrderEditor::PendingOrder() const {
  Order order = m_order;
  if (m_cells.EntryText().empty() || order.empty()) return order;
  for (int line = m_cells.Selection().FirstLine; line <= m_cells.Selection().LastLine; ++line) {
    order[static_cast<std::size_t>(line) - 1] = TypedPosition(line, m_cells.EntryText());
  }
  return order;
}

void OrderEditor::Reset() {
  m_cells.SetEntryText({});
  std::vector<CellEdit> edits;
  for (int line = 1; line <= m_cells.Lines(); ++line) {
    edits.push_back({{line, 1}, NumberCell(m_first[static_cast<std::size_t>(line) - 1])});
  }
  m_cells.Apply(std::move(edits));
  m_cells.PlaceCursor({});
}

bool OrderEditor::Check() {
  m_cells.Enter();
  const auto fault = m_use == Use::SerialPositions ? SerialOrderFault(m_order) : GroupOrderFault(m_subjectIds, m_order);
  if (!fault) return true;
  m_cells.PlaceCursor({static_cast<int>(fault->Row) + 1, 1});
  Warn(m_boxes, fault->Text, ItemNote(m_words, static_cast<int>(fault->Row) + 1));
  return false;
}

}  // namespace zova
