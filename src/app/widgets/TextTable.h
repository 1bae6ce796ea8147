// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <functional>
#include <string>
#include <vector>

namespace zova {

class TextModel;

/// A table that is only read: the keyboard selects whole rows, Tab leaves it, and the standard copy key copies the
/// selected rows.
class TextTable : public QTableView {
  Q_OBJECT

 public:
  struct Column {
    std::string Heading;
    bool IsNumber = false;  ///< on the right
  };
  using TextAt = std::function<std::string(int row, int column)>;

  TextTable(const char* name, std::vector<Column> columns, TextAt text);
  /// Shows `rows` rows; they are asked for again only when `revision` differs from that of the last call. The current
  /// row stays.
  void Show(int rows, int revision);
  /// The selected rows, from 0, in order.
  [[nodiscard]] std::vector<int> ChosenRows() const;
  [[nodiscard]] int CurrentRow() const { return currentIndex().row(); }
  void GoToRow(int row);

 signals:
  void RowChosen();

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

 private:
  void Copy();

  TextModel* m_model;
  int m_revision = -1;
  bool m_isFilling = false;
};

}  // namespace zova
