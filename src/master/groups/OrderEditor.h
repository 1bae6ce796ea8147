// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/TypedGrid.h"
#include "master/groups/SavedOrders.h"
#include "words/WordList.h"

namespace zova {

/// The screen for the order of items or subjects: a grid with one position per row. Rows count from 0, the grid's lines
/// from 1; positions count from 1, 0 is a blank cell.
class OrderEditor {
 public:
  enum class Use { SerialPositions, GroupMembers };
  using Order = std::vector<std::int16_t>;

  OrderEditor(MessageBoxes& boxes, Desktop& desktop) : m_boxes(boxes), m_cells(boxes, desktop, Rules()) {}

  /// Starts with the saved order, else with the default one. Items are shown with their words.
  void OpenSerial(const ProjectParameters& project, const std::optional<SerialOrder>& saved, WordList words = {});
  /// `names` are the row headings: identifier and level.
  void OpenGroups(std::vector<std::string> subjectIds, std::vector<std::string> names,
                  const std::optional<GroupOrder>& saved);

  TypedGrid& Cells() noexcept { return m_cells; }
  [[nodiscard]] const TypedGrid& Cells() const noexcept { return m_cells; }
  [[nodiscard]] Use CurrentUse() const noexcept { return m_use; }
  [[nodiscard]] std::string Title() const;  ///< which order it is
  [[nodiscard]] const Order& Positions() const noexcept { return m_order; }
  /// The order including the pending text of the box. It changes only when the grid's Revision increases.
  [[nodiscard]] Order PendingOrder() const;

  /// Restores the default order, not the saved one.
  void Reset();
  /// Enters the pending text and checks the order. For the first fault shows its message, places the cursor there and
  /// returns false.
  bool Check();

 private:
  [[nodiscard]] GridRules Rules();
  void Begin(Order order);
  [[nodiscard]] std::int16_t TypedPosition(int line, std::string_view text) const;
  [[nodiscard]] CellInput Pasted(GridCell cell, std::string_view text) const;

  MessageBoxes& m_boxes;
  Use m_use = Use::SerialPositions;
  std::vector<std::string> m_subjectIds;
  std::vector<std::string> m_names;
  WordList m_words;  // of the items
  Order m_order;
  Order m_first;
  TypedGrid m_cells;
};

}  // namespace zova
