// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QFont>
#include <string>
#include <vector>

#include "app/widgets/Controls.h"
#include "means/MeansExaminer.h"

namespace zova {

/// The table of Examine Means. Asks the rules for each cell, but not between a change and the refresh that follows: a
/// view laid out in between would ask for rows that no longer exist.
class MeansModel final : public QAbstractTableModel {
 public:
  MeansModel(MeansExaminer& rules, QObject* parent) : QAbstractTableModel(parent), m_rules(rules) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override { return parent.isValid() ? 0 : m_rows; }
  [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_headings.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (m_resultRevision != m_rules.ResultRevision()) return {};
    switch (role) {
      case Qt::DisplayRole: return ToQt(m_rules.CellText(index.row(), index.column()));
      case Qt::ToolTipRole: return ToQt(m_rules.RowTip(index.row()));
      case Qt::FontRole: {
        QFont font;
        font.setBold(m_rules.IsTotal(index.row()));
        return font;
      }
      case Qt::TextAlignmentRole: {
        const bool isNumber = index.column() >= m_rules.FirstNumber();
        return static_cast<int>(Qt::AlignVCenter | (isNumber ? Qt::AlignRight : Qt::AlignLeft));
      }
      default: return {};
    }
  }
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if ((role != Qt::DisplayRole && role != Qt::ToolTipRole) || orientation != Qt::Horizontal) return {};
    return ToQt(m_headings[static_cast<std::size_t>(section)]);
  }

  /// False when nothing has changed.
  bool Follow() {
    if (m_resultRevision == m_rules.ResultRevision()) return false;
    beginResetModel();
    m_resultRevision = m_rules.ResultRevision();
    m_rows = m_rules.RowCount();
    m_headings = m_rules.Headings();
    endResetModel();
    return true;
  }

 private:
  MeansExaminer& m_rules;
  int m_resultRevision = -1;
  int m_rows = 0;
  std::vector<std::string> m_headings;
};

}  // namespace zova
