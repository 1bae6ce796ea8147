// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <functional>
#include <string>

class QAbstractButton;
class QBoxLayout;
class QScrollArea;

namespace zova {

class Panel;

inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// Sets a control's name, by which quick help and tests find it.
template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

/// A wrapping plain-text label; its access key focuses `buddy`.
QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy = nullptr);
QPushButton* MakeButton(const char* name, const QString& caption);
/// Adds a button of `panel` to the row. It acts at once; then the panel refreshes and emits Acted. A click does not
/// move the focus.
QPushButton* AddButton(QBoxLayout& row, const char* name, const QString& caption, Panel& panel,
                       std::function<void()> act);
/// Makes the button act at once also by its access key, and once for a double click.
void ActAtOnce(QAbstractButton* button);
/// A frameless area that scrolls `content` when the window is too small.
QScrollArea* MakeScrolling(QWidget* content);
/// Marks the button that Enter presses when the focused control ignores it; the mark does not follow the focus.
void MarkDefault(QPushButton* button, bool isDefault);
/// Sets the box's text only if it differs, so that the cursor stays.
void ShowText(QLineEdit* box, const std::string& text);
/// Focuses the control and selects all its text.
void PlaceCursorIn(QWidget* control);

}  // namespace zova
