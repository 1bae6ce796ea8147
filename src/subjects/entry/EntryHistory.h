// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "subjects/RecallLists.h"

namespace zova {

/// Undo and redo over every change of one subject's lists. Only the entries that a change touched are kept; the counts
/// of recalls are no part of it.
class EntryHistory {
 public:
  /// The first cell that a change touched, and the last line that it touched on that cell's test.
  struct Place {
    int Test = 1;
    int Line = 1;
    int Column = 1;
    int LastLine = 1;
  };

  void Clear() noexcept;
  [[nodiscard]] bool CanUndo() const noexcept { return m_next > 0; }
  [[nodiscard]] bool CanRedo() const noexcept { return m_next < m_changes.size(); }

  /// Compares `before` with `after`, of the same shape, and remembers the difference, if there is one. Drops what could
  /// be redone.
  std::optional<Place> Note(const RecallLists& before, const RecallLists& after);
  /// The same for a change of one test alone: `before` is that test's entries.
  std::optional<Place> Note(int test, const std::vector<Recall>& before, const RecallLists& after);
  /// One change back or forth in `lists`. Only when CanUndo, CanRedo.
  Place Undo(RecallLists& lists);
  Place Redo(RecallLists& lists);

 private:
  struct Cell {
    int Test;
    int Position;
    Recall Before;
    Recall After;
  };
  using Change = std::vector<Cell>;  // in the order of tests and positions

  static void AddDifference(Change& change, int test, const Recall* before, const RecallLists& after);
  static Place PlaceOf(const Change& change) noexcept;
  std::optional<Place> Remember(Change change);

  std::vector<Change> m_changes;
  std::size_t m_next = 0;  // changes before it are done
};

}  // namespace zova
