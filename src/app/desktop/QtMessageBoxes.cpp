// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/QtMessageBoxes.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QScreen>
#include <algorithm>

#include "app/widgets/Controls.h"

namespace zova {
namespace {

// In the order of the enumerators.
constexpr QMessageBox::Icon kIcons[] = {QMessageBox::NoIcon, QMessageBox::Information, QMessageBox::Question,
                                        QMessageBox::Warning, QMessageBox::Critical};
constexpr QMessageBox::StandardButton kAnswers[] = {QMessageBox::Ok, QMessageBox::Yes, QMessageBox::No,
                                                    QMessageBox::Cancel, QMessageBox::Retry};
struct Offer {
  QMessageBox::StandardButtons Buttons;
  BoxAnswer Escape;
};
constexpr Offer kOffers[] = {{QMessageBox::Ok, BoxAnswer::Ok},
                             {QMessageBox::Yes | QMessageBox::No, BoxAnswer::No},
                             {QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, BoxAnswer::Cancel},
                             {QMessageBox::Retry | QMessageBox::Cancel, BoxAnswer::Cancel},
                             {QMessageBox::Cancel, BoxAnswer::Cancel}};

QMessageBox::StandardButton ButtonOf(BoxAnswer answer) { return kAnswers[static_cast<std::size_t>(answer)]; }

// Ignores keys that were already held when the box opened, and an Enter right behind a digit: it belongs to a protocol
// that is typed blind, past the box.
class HeldKeysDiscarded final : public QObject {
 public:
  HeldKeysDiscarded() { qApp->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    const bool isOverride = event->type() == QEvent::ShortcutOverride;
    if (event->type() != QEvent::KeyPress && !isOverride) return false;
    if (!isOverride && IsTypedBlind(*static_cast<const QKeyEvent*>(event))) return true;
    if (m_pressed) return false;
    const bool isHeld = static_cast<const QKeyEvent*>(event)->isAutoRepeat();
    m_pressed = !isHeld;
    if (isHeld && isOverride) event->accept();  // nor for a shortcut
    return isHeld;
  }

 private:
  bool IsTypedBlind(const QKeyEvent& press) {
    constexpr int kTypingPause = 400;  // milliseconds
    if (!press.text().isEmpty() && press.text().front().isLetterOrNumber()) m_sinceTyped.start();
    const bool isEnter = press.key() == Qt::Key_Return || press.key() == Qt::Key_Enter;
    return isEnter && m_sinceTyped.isValid() && m_sinceTyped.elapsed() < kTypingPause;
  }

  bool m_pressed = false;
  QElapsedTimer m_sinceTyped;
};

// A list of hundreds of subjects would make the box higher than the screen, so a scrolling text replaces Qt's label.
void LetLongTextScroll(QMessageBox& box, const char* labelName, const QString& shown, const char* name) {
  auto* label = box.findChild<QLabel*>(labelName);
  if (label == nullptr) return;
  label->setTextFormat(Qt::PlainText);  // the box's format applies only to its main text
  const QFontMetrics metrics(label->font());
  const QSize screen = box.screen()->availableSize();
  const int width = std::min(metrics.averageCharWidth() * 70, screen.width() / 2);
  if (metrics.boundingRect(0, 0, width, 0, Qt::TextWordWrap, shown).height() < screen.height() / 2) return;
  auto* text = Named(new QPlainTextEdit(shown), name);
  text->setAccessibleName("Message");
  text->setReadOnly(true);
  text->setTabChangesFocus(true);
  text->setMinimumSize(width, metrics.lineSpacing() * 12);
  delete box.layout()->replaceWidget(label, text);
  label->hide();
}

}  // namespace

BoxAnswer QtMessageBoxes::Show(const MessageBox& box) {
  if (m_beforeShow) m_beforeShow();
  const QtDesktop::Pause pause(m_desktop);
  const Offer& offer = kOffers[static_cast<std::size_t>(box.Buttons)];
  // Without a default Qt chooses the leftmost button, which may be the dangerous one.
  const BoxAnswer standard = offer.Buttons.testFlag(ButtonOf(box.Default)) ? box.Default : offer.Escape;
  QMessageBox dialog(pause.Window());
  dialog.setWindowTitle(ToQt(box.Title));
  dialog.setIcon(kIcons[static_cast<std::size_t>(box.Icon)]);
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(WithIsolatedNames(ToQt(box.Text)));
  dialog.setStandardButtons(offer.Buttons);
  dialog.setDefaultButton(ButtonOf(standard));
  dialog.setEscapeButton(ButtonOf(offer.Escape));
  dialog.setInformativeText(WithIsolatedNames(ToQt(box.Details)));
  LetLongTextScroll(dialog, "qt_msgbox_label", dialog.text(), "txtMessage");
  if (!box.Details.empty())
    LetLongTextScroll(dialog, "qt_msgbox_informativelabel", dialog.informativeText(), "txtDetails");
  const HeldKeysDiscarded discarded;
  const auto* pressed = std::find(std::begin(kAnswers), std::end(kAnswers), dialog.exec());
  return pressed == std::end(kAnswers) ? offer.Escape : static_cast<BoxAnswer>(pressed - kAnswers);
}

}  // namespace zova
