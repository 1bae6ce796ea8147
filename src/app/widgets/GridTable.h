// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

#include "grid/TypedGrid.h"

namespace zova {

class GridModel;

/// Shows a typed grid, one row per line, and redraws only changes. Column 0 looks like a heading; the cursor's cell is
/// framed and kept visible. The mouse selects cells; the keyboard focus stays in the box.
class GridTable : public QTableView {
  Q_OBJECT

 public:
  GridTable(const char* name, TypedGrid& grid);
  void Refresh();
  void ScrollToCursor() { scrollTo(currentIndex()); }
  /// Draws the cursor's cell again, with the text that is being typed, and scrolls to it.
  void ShowTyping();

 signals:
  /// The mouse chose cells.
  void Acted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  TypedGrid& m_grid;
  GridModel* m_model;
  GridBlock m_shownSelection;
  bool m_dragging = false;
  int m_jumpRevision = 0;
};

}  // namespace zova
