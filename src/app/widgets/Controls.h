// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <string>

class QAbstractButton;
class QScrollArea;

namespace zova {

inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// Gives a control its name, which is also how quick help and tests find it.
template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

/// A label that wraps its text, in plain text; `buddy` gets the focus by the label's access key.
QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy = nullptr);
QPushButton* MakeButton(const char* name, const QString& caption);
/// The button acts at once also by its letter, and, unless it `repeats`, once for a double click.
void ActAtOnce(QAbstractButton* button, bool repeats = false);
/// Makes a heading's text bold, in the size of its surroundings.
void MakeBold(QWidget* control);
/// Bold, and `times` as large as the application's font.
void Enlarge(QWidget& control, double times);
/// As wide as lines can be that are read with ease: 46 em.
int FormWidth(const QWidget& control);
/// Makes the box as wide as `characters` that it holds.
void FitBox(QLineEdit* box, int characters);
/// A frameless area that gives `content` all its room and scrolls it in a window that is too small.
QScrollArea* MakeScrolling(QWidget* content);
/// Marks the button that Enter presses when the control with the focus has no use for it; it stays marked when the
/// focus goes elsewhere.
void MarkDefault(QPushButton* button, bool isDefault);
/// Shows `text` in the box unless it stands there already, so that the cursor stays where the user has it.
void ShowText(QLineEdit* box, const std::string& text);
/// Puts the cursor into the control, with all its text selected.
void PlaceCursorIn(QWidget* control);

}  // namespace zova
