// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <functional>

namespace zova {

/// A grid of numbers that are typed in a box beside it, so that it never has the focus. Column 0 looks like a heading;
/// the current cell stands in a frame and is kept in sight.
class NumberGrid : public QTableView {
  Q_OBJECT

 public:
  /// `isGreyed` says which columns take no numbers.
  NumberGrid(const char* name, const std::function<bool(int column)>& isGreyed);
  void ScrollToCursor() { scrollTo(currentIndex()); }

 signals:
  /// The mouse chose cells.
  void Acted();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  /// A cell was pressed; with Shift the selection reaches to it.
  virtual void PressCell(int row, int column, bool extends) = 0;
  /// The mouse was dragged to a cell from where it was pressed; the row may be one beyond the first or last in sight.
  virtual void DragTo(int row, int column) = 0;

 private:
  bool m_dragging = false;
};

}  // namespace zova
