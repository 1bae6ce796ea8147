// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/Style.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QIcon>
#include <QPainter>
#include <QStyleOptionGroupBox>

#include "app/widgets/Colours.h"

namespace zova {
namespace {

constexpr int kShine = 140;  // percent, of a button's upper edge

const char* IconName(QStyle::StandardPixmap picture) {
  switch (picture) {
    case QStyle::SP_MessageBoxInformation: return "dialog-information";
    case QStyle::SP_MessageBoxWarning: return "dialog-warning";
    case QStyle::SP_MessageBoxCritical: return "dialog-error";
    case QStyle::SP_MessageBoxQuestion: return "dialog-question";
    case QStyle::SP_DirIcon:
    case QStyle::SP_DirClosedIcon: return "folder";
    case QStyle::SP_DirOpenIcon: return "folder-open";
    default: return nullptr;
  }
}

void DrawCheck(QPainter& painter, const QRectF& box, const QStyleOption& option, bool isRound) {
  const QPalette& palette = option.palette;
  const bool isOn = option.state & QStyle::State_On;
  const bool isHeld = option.state & QStyle::State_Sunken;
  const QColor ground = isHeld ? palette.color(QPalette::AlternateBase) : palette.color(QPalette::Base);
  const QColor ink = palette.color(QPalette::Text);  // that of the option's state: disabled ones are paler
  const QColor line = WithContrast(palette.color(QPalette::Mid), ink, palette.color(QPalette::Window), kReadable);
  painter.setPen(QPen(option.state & QStyle::State_HasFocus ? palette.color(QPalette::Highlight) : line, 1));
  painter.setBrush(ground);
  const double radius = isRound ? box.width() / 2 : 2;
  painter.drawRoundedRect(box, radius, radius);
  if (option.state & QStyle::State_NoChange) {
    painter.fillRect(box.adjusted(3, box.height() / 2 - 1, -3, -box.height() / 2 + 1), ink);
  } else if (isOn && isRound) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(ink);
    const double margin = box.width() * 0.28;
    painter.drawEllipse(box.adjusted(margin, margin, -margin, -margin));
  } else if (isOn) {
    painter.setPen(QPen(ink, box.width() * 0.14, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const auto at = [&box](double x, double y) {
      return QPointF(box.x() + x * box.width(), box.y() + y * box.height());
    };
    painter.drawPolyline(QList<QPointF>{at(.22, .54), at(.42, .74), at(.79, .28)});
  }
}

}  // namespace

void Style::polish(QPalette& palette) {
  QProxyStyle::polish(palette);
  struct Pair {
    QPalette::ColorRole Text;
    QPalette::ColorRole Ground;
  };
  for (const Pair pair : {Pair{QPalette::WindowText, QPalette::Window}, Pair{QPalette::Text, QPalette::Base},
                          Pair{QPalette::ButtonText, QPalette::Button}}) {
    // A disabled box takes the colour of the window, a button may be drawn lighter, and a text may stand on any.
    QColor colour = palette.color(QPalette::Disabled, pair.Text);
    const QColor ground = palette.color(QPalette::Disabled, pair.Ground);
    for (const QColor& behind : {ground, ground.lighter(kShine), palette.color(QPalette::Disabled, QPalette::Window)}) {
      colour = WithContrast(colour, palette.color(QPalette::Active, pair.Text), behind, kReadable + 0.1);
    }
    palette.setColor(QPalette::Disabled, pair.Text, colour);
  }
  for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
    const QColor window = palette.color(group, QPalette::Window);
    constexpr double kVisible = 1.3;  // a hairline
    if (Contrast(palette.color(group, QPalette::Mid), window) >= kVisible) continue;
    palette.setColor(group, QPalette::Mid, Mixed(window, palette.color(group, QPalette::WindowText), 0.25));
  }
  const QColor text = palette.color(QPalette::Active, QPalette::Text);
  const QColor hint = WithContrast(Mixed(palette.color(QPalette::Base), text, 0.5), text,
                                   palette.color(QPalette::Active, QPalette::Base), 4.6);
  palette.setColor(QPalette::Active, QPalette::PlaceholderText, hint);
  palette.setColor(QPalette::Inactive, QPalette::PlaceholderText, hint);
}

void Style::polish(QWidget* widget) {
  QProxyStyle::polish(widget);
  if (qobject_cast<QAbstractItemView*>(widget)) widget->installEventFilter(this);
}

void Style::unpolish(QWidget* widget) {
  widget->removeEventFilter(this);
  QProxyStyle::unpolish(widget);
}

// A list draws its rows again when the focus comes or goes, but not its frame.
bool Style::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut) static_cast<QWidget*>(watched)->update();
  return QProxyStyle::eventFilter(watched, event);
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

QIcon Style::standardIcon(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
  const char* name = IconName(picture);
  return name ? NamedIcon(name) : QProxyStyle::standardIcon(picture, option, widget);
}

QPixmap Style::standardPixmap(StandardPixmap picture, const QStyleOption* option, const QWidget* widget) const {
  constexpr int kSize = 48;
  const char* name = IconName(picture);
  return name ? NamedIcon(name).pixmap(kSize, kSize) : QProxyStyle::standardPixmap(picture, option, widget);
}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  if (element == PE_FrameGroupBox) return;
  if (element == PE_IndicatorCheckBox || element == PE_IndicatorRadioButton) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    DrawCheck(*painter, QRectF(option->rect).adjusted(1.5, 1.5, -1.5, -1.5), *option,
              element == PE_IndicatorRadioButton);
    painter->restore();
    return;
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element == PE_Frame && (option->state & State_HasFocus) && qobject_cast<const QAbstractItemView*>(widget)) {
    painter->save();
    painter->setPen(QPen(option->palette.color(QPalette::Highlight), 2));
    painter->drawRect(QRectF(option->rect).adjusted(1, 1, -1, -1));
    painter->restore();
  }
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  if (control != CC_GroupBox || group == nullptr) {
    return QProxyStyle::drawComplexControl(control, option, painter, widget);
  }
  const QRect title = subControlRect(CC_GroupBox, group, SC_GroupBoxLabel, widget);
  painter->save();
  QFont font = painter->font();
  font.setBold(true);
  painter->setFont(font);
  const int flags = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic;
  drawItemText(painter, title, flags, group->palette, group->state & State_Enabled, group->text, QPalette::WindowText);
  painter->restore();
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
  const auto* group = qstyleoption_cast<const QStyleOptionGroupBox*>(option);
  if (control != CC_GroupBox || group == nullptr) return QProxyStyle::subControlRect(control, option, part, widget);
  constexpr int kGap = 4;  // between the title and what it heads
  const int title = group->text.isEmpty() ? 0 : group->fontMetrics.height();
  switch (part) {
    case SC_GroupBoxLabel: return {option->rect.left(), option->rect.top(), option->rect.width(), title};
    case SC_GroupBoxFrame: return option->rect;
    case SC_GroupBoxContents: return option->rect.adjusted(0, title == 0 ? 0 : title + kGap, 0, 0);
    default: return {};
  }
}

}  // namespace zova
