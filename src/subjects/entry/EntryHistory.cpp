// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/EntryHistory.h"

#include <cassert>
#include <utility>

#include "subjects/entry/EntryLists.h"

namespace zova {

void EntryHistory::Clear() noexcept {
  m_changes.clear();
  m_next = 0;
}

void EntryHistory::AddDifference(Change& change, int test, const Recall* before, const RecallLists& after) {
  for (int position = 1; position <= after.PositionCount(); ++position, ++before) {
    const Recall& is = after.At(test, position);
    if (*before != is) change.push_back({test, position, *before, is});
  }
}

EntryHistory::Place EntryHistory::PlaceOf(const Change& change) noexcept {
  const Cell& first = change.front();
  Place place{first.Test, first.Position, kItemColumn, first.Position};
  while (CellValue(first.Before, place.Column) == CellValue(first.After, place.Column)) ++place.Column;
  for (const Cell& cell : change) {
    if (cell.Test == first.Test) place.LastLine = cell.Position;
  }
  return place;
}

std::optional<EntryHistory::Place> EntryHistory::Remember(Change change) {
  if (change.empty()) return std::nullopt;
  m_changes.erase(m_changes.begin() + static_cast<std::ptrdiff_t>(m_next), m_changes.end());
  m_changes.push_back(std::move(change));
  ++m_next;
  return PlaceOf(m_changes.back());
}

std::optional<EntryHistory::Place> EntryHistory::Note(const RecallLists& before, const RecallLists& after) {
  assert(before.TestCount() == after.TestCount() && before.PositionCount() == after.PositionCount());
  Change change;
  for (int test = 1; test <= after.TestCount(); ++test) AddDifference(change, test, before.Test(test), after);
  return Remember(std::move(change));
}

std::optional<EntryHistory::Place> EntryHistory::Note(int test, const std::vector<Recall>& before,
                                                      const RecallLists& after) {
  assert(before.size() == static_cast<std::size_t>(after.PositionCount()));
  Change change;
  AddDifference(change, test, before.data(), after);
  return Remember(std::move(change));
}

EntryHistory::Place EntryHistory::Undo(RecallLists& lists) {
  assert(CanUndo());
  const Change& change = m_changes[--m_next];
  for (const Cell& cell : change) lists.At(cell.Test, cell.Position) = cell.Before;
  return PlaceOf(change);
}

EntryHistory::Place EntryHistory::Redo(RecallLists& lists) {
  assert(CanRedo());
  const Change& change = m_changes[m_next++];
  for (const Cell& cell : change) lists.At(cell.Test, cell.Position) = cell.After;
  return PlaceOf(change);
}

}  // namespace zova
