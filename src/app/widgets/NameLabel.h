// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>

class QTextLayout;

namespace zova {

/// A label for a title or an identifier. A name without blanks that is too long for a line goes on in the next one; in
/// an ordinary label it would widen the window.
class NameLabel final : public QLabel {
  Q_OBJECT

 public:
  explicit NameLabel(const char* name);
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  /// Returns the height.
  double LayOut(QTextLayout& layout, int width) const;
};

}  // namespace zova
