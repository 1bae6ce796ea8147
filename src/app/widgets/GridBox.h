// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

class QKeyEvent;

namespace zova {

class TypedGrid;

/// The entry box of a grid. Keys that do not edit its text go to the grid: arrows, Tab, Enter, copy and paste, undo and
/// redo. Ctrl+Tab leaves it.
class GridBox : public QLineEdit {
  Q_OBJECT

 public:
  GridBox(const char* name, TypedGrid& grid);
  void Refresh();

 signals:
  /// A key reached the grid.
  void Acted();
  /// A typed character was refused.
  void Dropped(const QString& character);

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // All return true for a key used by the grid.
  bool HandleKey(const QKeyEvent& press);
  bool HandleMove(const QKeyEvent& press, int lines, int columns = 0);
  bool HandleEdit(const QKeyEvent& press);
  bool HandlePaste();
  bool HandleCopy();
  bool HandleUndo();
  bool HandleRedo();
  [[nodiscard]] bool IsTyped(const QString& typed) const;

  TypedGrid& m_grid;
  int m_keptRevision = 0;
};

}  // namespace zova
