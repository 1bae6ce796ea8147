// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>
#include <functional>

namespace zova {

/// A grid of numbers that are typed in a box beside it, so that it never has the focus. Column 0 looks like a heading;
/// the current cell stands in a frame and is kept in sight.
class NumberGrid : public QTableView {
 public:
  /// `isGreyed` says which columns take no numbers.
  NumberGrid(const char* name, const std::function<bool(int column)>& isGreyed);
  void ScrollToCursor() { scrollTo(currentIndex()); }

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace zova
