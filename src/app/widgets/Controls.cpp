// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/Controls.h"

#include <QAbstractItemView>
#include <QBoxLayout>
#include <QEvent>
#include <QFontInfo>
#include <QItemSelectionModel>
#include <QRegularExpression>
#include <QScrollArea>
#include <QStringList>
#include <algorithm>

namespace zova {

namespace {

class ActingAtOnce final : public QObject {
 public:
  ActingAtOnce(QAbstractButton* button, bool repeats) : QObject(button), m_repeats(repeats) {
    button->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* button = static_cast<QAbstractButton*>(watched);
    if (event->type() == QEvent::Shortcut) {
      if (button->isCheckable()) PlaceCursorIn(button);
      button->click();  // by itself it acts 100 ms later, when another screen may be shown
      return true;
    }
    // A double click is one press: its second half would press what stands at the same place on the next screen.
    return event->type() == QEvent::MouseButtonDblClick && !m_repeats && !button->isCheckable();
  }

 private:
  bool m_repeats;
};

}  // namespace

QString Isolated(const QString& name) {
  const bool isReversed = std::any_of(name.begin(), name.end(), [](QChar letter) {
    return letter.direction() == QChar::DirR || letter.direction() == QChar::DirAL;
  });
  return isReversed ? QChar(0x2068) + name + QChar(0x2069) : name;
}

QString WithIsolatedLines(const QString& text) {
  QStringList lines = text.split(u'\n');
  for (QString& line : lines) {
    const qsizetype name = line.indexOf(QRegularExpression(QStringLiteral("[.:] "))) + 2;
    if (name < 2) continue;
    QStringList parts = line.mid(name).split(QStringLiteral(", "));
    for (QString& part : parts) part = Isolated(part);
    line = line.left(name) + parts.join(QStringLiteral(", "));
  }
  return lines.join(u'\n');
}

QString WithIsolatedNames(const QString& text) {
  QStringList pieces = text.split(u'\'');
  for (qsizetype piece = 1; piece + 1 < pieces.size(); ++piece) pieces[piece] = Isolated(pieces[piece]);
  return pieces.join(u'\'');
}

QLabel* MakeLabel(const char* name, const QString& text, QWidget* buddy) {
  QLabel* label = Named(new QLabel(text), name);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setBuddy(buddy);
  // To a screen reader, Qt names all controls by their labels but views.
  if (auto* view = qobject_cast<QAbstractItemView*>(buddy))
    view->setAccessibleName(QString(text).remove(u'&').remove(u':'));
  return label;
}

QPushButton* MakeButton(const char* name, const QString& caption) {
  QPushButton* button = Named(new QPushButton(caption), name);
  // Outside a dialog Enter presses the focused button only with this setting.
  button->setAutoDefault(true);
  return button;
}

void ActAtOnce(QAbstractButton* button, bool repeats) { new ActingAtOnce(button, repeats); }

void MakeBold(QWidget* control) {
  QFont bold;  // only its weight is set: the rest comes from the window
  bold.setBold(true);
  control->setFont(bold);
}

void Enlarge(QWidget& control, double times) {
  QFont font;
  font.setPointSizeF(QFontInfo(font).pointSizeF() * times);
  font.setBold(true);
  control.setFont(font);
}

void AddQuestionGap(QBoxLayout& rows) {
  if (rows.count() > 0) rows.addSpacing(kQuestionGap - kLabelGap);
}

int FormWidth(const QWidget& control) {
  constexpr int kEms = 46;
  return kEms * QFontInfo(control.font()).pixelSize();
}

void FitBox(QLineEdit* box, int characters) {
  constexpr int kFrame = 20;  // of the box and round its text
  box->setFixedWidth(characters * box->fontMetrics().horizontalAdvance(u'0') + kFrame);
}

void MarkDefault(QPushButton* button, bool isDefault) {
  button->setAutoDefault(!isDefault);  // otherwise Qt removes the mark with the focus
  button->setDefault(isDefault);
}

QScrollArea* MakeScrolling(QWidget* content) {
  auto* area = new QScrollArea;
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);  // otherwise it is a tab stop
  return area;
}

void LookReadOnly(QLineEdit* box, bool isReadOnly) {
  QPalette palette;
  if (isReadOnly) palette.setBrush(QPalette::Base, palette.window());
  box->setPalette(isReadOnly ? palette : QPalette());
}

void KeepReadable(QWidget* control, bool isKept) {
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setBrush(QPalette::Disabled, role, palette.brush(QPalette::Active, role));
  }
  control->setPalette(isKept ? palette : QPalette());
}

void ShowText(QLineEdit* box, const std::string& text) {
  const QString shown = ToQt(text);
  if (box->text() != shown) box->setText(shown);
}

void SelectLines(QAbstractItemView& view, const std::vector<std::size_t>& lines) {
  const auto indexOf = [&](std::size_t row) { return view.model()->index(static_cast<int>(row), 0); };
  QItemSelection chosen;  // as ranges of lines: one by one, thousands would take seconds
  for (std::size_t first = 0, next = 1; first < lines.size(); first = next++) {
    while (next < lines.size() && lines[next] == lines[next - 1] + 1) ++next;
    chosen.append({indexOf(lines[first]), indexOf(lines[next - 1])});
  }
  view.selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

void PlaceCursorIn(QWidget* control) {
  control->setFocus(Qt::OtherFocusReason);
  if (auto* box = qobject_cast<QLineEdit*>(control)) box->selectAll();
  // A scroll area follows the focus only when Tab moves it.
  for (QWidget* parent = control->parentWidget(); parent; parent = parent->parentWidget()) {
    if (auto* page = qobject_cast<QScrollArea*>(parent)) page->ensureWidgetVisible(control);
  }
}

}  // namespace zova
