// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QContextMenuEvent;
class QWidget;

namespace zova {

/// Installed on the QApplication. A right click on a control, the menu key or Shift+F10 shows the control's sentence
/// until the next key or click. A text box keeps its edit menu.
class QuickHelpFilter : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static bool Answer(QWidget* control, const QContextMenuEvent& event);
};

}  // namespace zova
