// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "master/groups/SavedOrders.h"
#include "platform/desktop/MessageBoxes.h"

namespace zova {

/// The screen on which an order is given, item by item or subject by subject: a grid with one number per row, and a box
/// through which it is typed. Its keys are those of the entry grid. Rows count from 0, positions from 1; 0 is a blank
/// cell.
class OrderEditor {
 public:
  enum class Use { SerialPositions, GroupMembers };
  using Order = std::vector<std::int16_t>;
  struct Rows {
    int First = 0;
    int Last = 0;

    bool operator==(const Rows&) const = default;
  };

  explicit OrderEditor(MessageBoxes& boxes) : m_boxes(boxes) {}

  /// Begins with the saved order, else with the first one.
  void OpenSerial(const ProjectParameters& project, const std::optional<SerialOrder>& saved);
  /// `names` are what the rows show: identifier and level.
  void OpenGroups(std::vector<std::string> subjectIds, std::vector<std::string> names,
                  const std::optional<GroupOrder>& saved);

  [[nodiscard]] Use CurrentUse() const noexcept { return m_use; }
  [[nodiscard]] std::string Title() const;       ///< which order it is
  [[nodiscard]] std::string RowHeading() const;  ///< "Item #" or "Subject"; the other column is "New Order"
  [[nodiscard]] int RowCount() const noexcept { return static_cast<int>(m_order.size()); }
  [[nodiscard]] const std::string& RowName(int row) const { return m_names[static_cast<std::size_t>(row)]; }
  [[nodiscard]] std::int16_t Position(int row) const { return m_order[static_cast<std::size_t>(row)]; }
  [[nodiscard]] const Order& Positions() const noexcept { return m_order; }
  [[nodiscard]] int CursorRow() const noexcept { return m_row; }
  [[nodiscard]] Rows Selection() const noexcept;
  /// Grows whenever the rows are those of another order.
  [[nodiscard]] int Layouts() const noexcept { return m_layouts; }
  /// The order as it would be if what stands in the box were taken.
  [[nodiscard]] Order PendingOrder() const;
  /// Grows whenever the pending order may have changed.
  [[nodiscard]] int Changes() const noexcept { return m_changes; }

  [[nodiscard]] const std::string& EntryText() const noexcept { return m_text; }
  /// Keeps the digits.
  void SetEntryText(std::string_view text);
  /// Takes the number as the row's position and goes to the next row. Over several selected rows it counts up, since
  /// positions differ, and the selection stays. Faults are told by Check, not while typing; only a number beyond 16
  /// bits is none.
  void Enter();
  void Move(int rows);  ///< with the box empty
  /// Shift+arrows. The cursor goes along, the other end stays.
  void ExtendSelection(int rows) { SelectTo(m_row + rows); }
  void SelectTo(int row);
  /// Takes what stands in the box for the rows that are left, as Enter does.
  void Click(int row);
  /// Blanks the selected rows.
  void Delete();
  /// Several selected rows, else all of them, a number per line.
  [[nodiscard]] std::string Copy() const;
  /// A column of numbers from the first selected row on, all of it or nothing; a fault is told. The selection stays.
  void Paste(std::string_view text);
  /// The first order again, not the saved one.
  void Reset();
  void Undo();
  void Redo();
  /// Takes what stands in the box. False, and the cursor at the fault, after telling of the first one.
  bool Check();

 private:
  // Consecutive rows before and after a change.
  struct Change {
    std::size_t First;
    Order Before;
    Order After;
  };

  void Begin(Order order);
  void Place(int row);
  void PutText(Order& order) const;
  void TakeText();
  void Set(Order order);
  void ShowChange(const Change& change, const Order& positions);
  [[nodiscard]] std::string NoPositionText(std::size_t row) const;

  MessageBoxes& m_boxes;
  Use m_use = Use::SerialPositions;
  std::vector<std::string> m_subjectIds;
  std::vector<std::string> m_names;
  Order m_order;
  Order m_first;
  std::string m_text;
  int m_row = 0;
  int m_anchor = 0;
  std::vector<Change> m_history;
  std::size_t m_next = 0;  // changes before it are done
  int m_layouts = 0;
  int m_changes = 0;
};

}  // namespace zova
