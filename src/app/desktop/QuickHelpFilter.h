// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

class QPoint;
class QWidget;

namespace zova {

class Session;

/// Installed on the QApplication. A right click on a control, the menu key or Shift+F10 shows the control's sentence
/// until the next key or click, and neither selects anything nor moves the cursor. A text box keeps its edit menu.
class QuickHelpFilter : public QObject {
  Q_OBJECT

 public:
  /// `session` must outlive the filter.
  explicit QuickHelpFilter(const Session& session) : m_session(session) {}
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void GiveWhatsThis(QWidget& control) const;
  [[nodiscard]] bool Answer(QWidget* control) const;

  const Session& m_session;
};

}  // namespace zova
