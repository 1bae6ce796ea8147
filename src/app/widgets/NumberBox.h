// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <string>

class QKeyEvent;

namespace zova {

/// A box for one number, through which a whole grid is typed. The keys that its text has no use for are the grid's.
/// Ctrl+Tab leaves it.
class NumberBox : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberBox(const char* name);

 signals:
  /// A key reached the grid.
  void Acted();

 protected:
  static constexpr int kPage = 10;  // lines

  void contextMenuEvent(QContextMenuEvent* event) override;
  bool event(QEvent* event) override;
  /// True for a key of the grid's. Of itself it takes those that copy and paste, and with the box empty those that undo
  /// and redo.
  virtual bool TakeKey(const QKeyEvent& press);
  virtual void PasteIntoGrid(const std::string& text) = 0;
  [[nodiscard]] virtual std::string CopyOfGrid() const = 0;
  virtual void UndoInGrid() = 0;
  virtual void RedoInGrid() = 0;

 private:
  bool TakePaste();
  bool TakeCopy();
};

}  // namespace zova
