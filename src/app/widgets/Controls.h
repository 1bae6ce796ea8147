// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QString>
#include <cstddef>
#include <string>
#include <vector>

class QAbstractButton;
class QAbstractItemView;
class QBoxLayout;
class QScrollArea;

namespace zova {

inline QString ToQt(const std::string& text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline std::string FromQt(const QString& text) { return text.toStdString(); }

/// `name`, set apart with U+2068 and U+2069 when it has letters that are written from right to left: they would
/// reorder the sentence around it.
QString Isolated(const QString& name);
/// The same for what follows the first ". " or ": " of every line, and for each part of it between commas.
QString WithIsolatedLines(const QString& text);
/// The same for every name that stands in single quotes in a text.
QString WithIsolatedNames(const QString& text);

/// Sets a control's name, by which quick help and tests find it.
template <typename Widget>
Widget* Named(Widget* widget, const char* name) {
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

/// A wrapping plain-text label; its access key focuses `buddy`.
QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy = nullptr);
QPushButton* MakeButton(const char* name, const QString& caption);
/// The button acts at once also by its letter, and, unless it `repeats`, once for a double click.
void ActAtOnce(QAbstractButton* button, bool repeats = false);
/// Makes a heading's text bold, in the size of its surroundings.
void MakeBold(QWidget* control);
/// Bold, and `times` as large as the application's font.
void Enlarge(QWidget& control, double times);
/// Between a label and its box, and more between one question and the next.
inline constexpr int kLabelGap = 4;
inline constexpr int kQuestionGap = 12;
/// Begins the next question of a page whose rows stand kLabelGap apart.
void AddQuestionGap(QBoxLayout& rows);
/// As wide as lines can be that are read with ease: 46 em.
int FormWidth(const QWidget& control);
/// Makes the box as wide as `characters` that it holds.
void FitBox(QLineEdit* box, int characters);
/// A frameless area that gives `content` all its room and scrolls it in a window that is too small.
QScrollArea* MakeScrolling(QWidget* content);
/// Marks the button that Enter presses when the focused control ignores it; the mark does not follow the focus.
void MarkDefault(QPushButton* button, bool isDefault);
/// Gives a box that cannot be edited the colour of the window, or back its own.
void LookReadOnly(QLineEdit* box, bool isReadOnly);
/// Lets a disabled control keep the colour of an enabled one, where it says something that has to be read.
void KeepReadable(QWidget* control, bool isKept);
/// Sets the box's text only if it differs, so that the cursor stays.
void ShowText(QLineEdit* box, const std::string& text);
/// Selects these lines of a list or table, in ascending order, and no others.
void SelectLines(QAbstractItemView& view, const std::vector<std::size_t>& lines);
/// Focuses the control and selects all its text.
void PlaceCursorIn(QWidget* control);

}  // namespace zova
