// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace zova {

/// One screen. Passes every act of the user to the rules and shows their state in Refresh.
class Panel : public QWidget {
  Q_OBJECT

 public:
  using QWidget::QWidget;
  virtual void Refresh() = 0;

 signals:
  /// An act reached the rules: anything may have changed.
  void Acted();
};

}  // namespace zova
