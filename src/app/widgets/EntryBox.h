// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/NumberBox.h"

namespace zova {

class EntryGrid;

/// The box of the entry grid, whose are arrows, Tab, Enter, undo and redo, copy and paste.
class EntryBox : public NumberBox {
  Q_OBJECT

 public:
  explicit EntryBox(EntryGrid& grid);
  void Refresh();

 protected:
  bool TakeKey(const QKeyEvent& press) override;
  void PasteIntoGrid(const std::string& text) override;
  [[nodiscard]] std::string CopyOfGrid() const override;
  void UndoInGrid() override;
  void RedoInGrid() override;

 private:
  // True for a key of the grid's.
  bool TakeMove(const QKeyEvent& press, int lines, int columns = 0);

  EntryGrid& m_grid;
};

}  // namespace zova
