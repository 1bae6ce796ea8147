// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>

class QKeyEvent;

namespace zova {

class EntryGrid;

/// The one-cell box through which the whole grid is typed. The keys that its text has no use for are the grid's:
/// arrows, Tab, Enter, undo and redo, copy and paste. Ctrl+Tab leaves it.
class EntryBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit EntryBox(EntryGrid& grid);
  void Refresh();

 signals:
  /// A key reached the grid.
  void Acted();

 protected:
  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;

 private:
  // Each: true for a key of the grid's.
  bool TakeKey(const QKeyEvent& press);
  bool TakeMove(const QKeyEvent& press, int lines, int columns = 0);
  bool TakeCommand(const QKeyEvent& press);
  bool TakePaste();
  bool TakeCopy();

  EntryGrid& m_grid;
};

}  // namespace zova
