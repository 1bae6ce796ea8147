// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/ProgressPanel.h"

#include <QCoreApplication>
#include <QEvent>
#include <QProgressBar>
#include <QShowEvent>
#include <QVBoxLayout>

#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr int kMilliseconds = 50;

// Discards all input to the application during its lifetime. If it stayed in the queue, it would answer the message at
// the end of the run.
class DiscardedInput final : public QObject {
 public:
  DiscardedInput() { QCoreApplication::instance()->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Enter: return false;  // otherwise Qt would not know the widget under the pointer afterwards
      case QEvent::ShortcutOverride: event->accept(); return true;  // nor for a menu
      case QEvent::Close: event->ignore(); return true;
      case QEvent::Shortcut:
      case QEvent::InputMethod:
      case QEvent::Drop: return true;
      default: return event->isInputEvent();
    }
  }
};

}  // namespace

ProgressPanel::ProgressPanel(QtProgress& progress)
    : m_proMasterProgress(Named(new QProgressBar, "proMasterProgress")),
      m_lblMasterProgress(MakeLabel("lblMasterProgress", {})) {
  setObjectName(QStringLiteral("fraMasterProgress"));
  m_proMasterProgress->setRange(0, 100);
  m_proMasterProgress->setValue(0);
  m_proMasterProgress->setAccessibleName(tr("Creating Master"));
  auto* rows = new QVBoxLayout(this);
  rows->addStretch();
  rows->addWidget(MakeLabel("lblCreatingMaster", tr("Creating Master ...")));
  rows->addWidget(m_proMasterProgress);
  rows->addWidget(m_lblMasterProgress);
  rows->addStretch();
  progress.SetPanel(this);
}

void ProgressPanel::SetProgress(int percent, const std::string& text) {
  m_percent = percent;
  m_text = ToQt(text);
}

void ProgressPanel::ShowProgress() {
  m_proMasterProgress->setValue(m_percent);
  m_lblMasterProgress->setText(m_text);
}

// Each run starts at 0.
void ProgressPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;
  SetProgress(0, {});
  ShowProgress();
}

void QtProgress::Show(int percent, const std::string& text) {
  if (m_panel) m_panel->SetProgress(percent, text);
  const bool isInside = percent > 0 && percent < 100;
  if (!isInside || !IsTooSoon()) Repaint();
}

void QtProgress::ProcessEvents() {
  if (!IsTooSoon()) Repaint();
}

bool QtProgress::IsTooSoon() const { return m_sinceShown.isValid() && m_sinceShown.elapsed() < kMilliseconds; }

void QtProgress::Repaint() {
  if (m_panel) m_panel->ShowProgress();
  if (m_panel && m_panel->isVisible()) {
    const DiscardedInput discarded;
    QCoreApplication::processEvents();
  } else {
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  }
  m_sinceShown.start();
}

}  // namespace zova
