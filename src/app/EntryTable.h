// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/NumberGrid.h"
#include "subjects/EntryGrid.h"

namespace zova {

class EntryModel;

/// Shows the entry grid, drawing only what changed: a row per line, its number in column 0; the columns are the grid's.
/// The mouse selects in it; the keyboard stays with the entry box.
class EntryTable : public NumberGrid {
  Q_OBJECT

 public:
  explicit EntryTable(EntryGrid& grid);
  void Refresh();

 signals:
  /// The mouse chose cells.
  void Acted();

 protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  EntryGrid& m_grid;
  EntryModel* m_model;
  EntryBlock m_shownSelection;
  bool m_dragging = false;
};

}  // namespace zova
