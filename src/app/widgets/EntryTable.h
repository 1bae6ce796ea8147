// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/NumberGrid.h"
#include "subjects/entry/EntryGrid.h"

namespace zova {

class EntryModel;

/// Shows the entry grid, drawing only what changed: a row per line, its number in column 0; the columns are the grid's.
/// The mouse selects in it; the keyboard stays with the entry box.
class EntryTable : public NumberGrid {
 public:
  explicit EntryTable(EntryGrid& grid);
  void Refresh();

 protected:
  void PressCell(int row, int column, bool extends) override;
  void DragTo(int row, int column) override;

 private:
  EntryGrid& m_grid;
  EntryModel* m_model;
  EntryBlock m_shownSelection;
};

}  // namespace zova
