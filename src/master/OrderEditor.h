// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "master/SavedOrders.h"
#include "platform/MessageBoxes.h"

namespace zova {

/// The screen on which an order is given, item by item or subject by subject: a grid with one number per row, and a box
/// through which it is typed. Rows count from 0, positions from 1; 0 is a blank cell.
class OrderEditor {
 public:
  enum class Use { SerialPositions, GroupMembers };
  using Order = std::vector<std::int16_t>;

  explicit OrderEditor(MessageBoxes& boxes) : m_boxes(boxes) {}

  /// Begins with the saved order, else with the first one.
  void OpenSerial(const ProjectParameters& project, const std::optional<SerialOrder>& saved);
  /// `names` are what the rows show: identifier and level.
  void OpenGroups(std::vector<std::string> subjectIds, std::vector<std::string> names,
                  const std::optional<GroupOrder>& saved);

  [[nodiscard]] Use CurrentUse() const noexcept { return m_use; }
  [[nodiscard]] std::string RowHeading() const;  ///< "Item #" or "Subject"; the other column is "New Order"
  [[nodiscard]] int Rows() const noexcept { return static_cast<int>(m_order.size()); }
  [[nodiscard]] const std::string& RowName(int row) const { return m_names[static_cast<std::size_t>(row)]; }
  [[nodiscard]] std::int16_t Position(int row) const { return m_order[static_cast<std::size_t>(row)]; }
  [[nodiscard]] const Order& Positions() const noexcept { return m_order; }
  [[nodiscard]] int CursorRow() const noexcept { return m_row; }
  /// Grows whenever other cells than the cursor's may have changed.
  [[nodiscard]] int Layouts() const noexcept { return m_layouts; }

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_text; }
  /// Keeps the digits.
  void SetEntryText(std::string_view text);
  /// Takes the number as the row's position and goes to the next row. Faults are told by Check, not while typing; only
  /// a number beyond 16 bits is none.
  void Enter();
  void Move(int rows);  ///< with the box empty
  /// Takes what stands in the box for the row that is left, as Enter does.
  void Click(int row);
  /// A column of numbers from the cursor on, all of it or nothing; a fault is told.
  void Paste(std::string_view text);
  /// The first order again, not the saved one.
  void Reset();
  /// Takes what stands in the box. False, and the cursor at the fault, after telling of the first one.
  bool Check();

 private:
  void Begin(Order order);
  [[nodiscard]] std::string NoPositionText(std::size_t row) const;

  MessageBoxes& m_boxes;
  Use m_use = Use::SerialPositions;
  std::vector<std::string> m_subjectIds;
  std::vector<std::string> m_names;
  Order m_order;
  Order m_first;
  std::string m_text;
  int m_row = 0;
  int m_layouts = 0;
};

}  // namespace zova
