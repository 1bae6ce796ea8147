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

// Discards all input to the application during its lifetime, except on one control. If it stayed in the queue, it would
// answer the message at the end of the run.
class DiscardedInput final : public QObject {
 public:
  explicit DiscardedInput(const QObject* allowed = nullptr) : m_allowed(allowed) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* target, QEvent* event) override {
    // A window passes its events to its controls, where they are filtered again.
    const bool goesOn = target == m_allowed || (m_allowed != nullptr && target->isWindowType());
    if (goesOn && event->type() != QEvent::Close) return false;
    switch (event->type()) {
      case QEvent::Enter: return false;  // otherwise Qt would not know the widget under the pointer afterwards
      case QEvent::ShortcutOverride:     // nor for a menu
        if (m_allowed == nullptr) event->accept();  // otherwise a key of the control would not reach it
        return true;
      case QEvent::Close: event->ignore(); return true;
      case QEvent::Shortcut:
      case QEvent::InputMethod:
      case QEvent::Drop: return true;
      default: return event->isInputEvent();
    }
  }

 private:
  const QObject* m_allowed;
};

}  // namespace

ProgressPanel::ProgressPanel(QtProgress& progress)
    : m_proMasterProgress(Named(new QProgressBar, "proMasterProgress")),
      m_lblMasterProgress(MakeLabel("lblMasterProgress", {})) {
  setObjectName("fraMasterProgress");
  m_proMasterProgress->setRange(0, 100);
  m_proMasterProgress->setValue(0);
  m_proMasterProgress->setAccessibleName("Creating Master");
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins({});
  setMaximumWidth(FormWidth(*this));
  QLabel* creating = MakeLabel("lblCreatingMaster", "Creating Master ...");
  MakeBold(creating);
  for (QWidget* part : std::initializer_list<QWidget*>{creating, m_proMasterProgress, m_lblMasterProgress}) {
    rows->addWidget(part);
  }
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
  if (!event->spontaneous()) SetProgress(0, {});
  QWidget::showEvent(event);
}

void QtProgress::Show(int percent, const std::string& text) {
  if (m_panel) m_panel->SetProgress(percent, text);
  const bool isInside = percent > 0 && percent < 100;
  if (!isInside || !IsTooSoon()) Repaint();
}

void QtProgress::ProcessEvents() {
  if (!IsTooSoon()) Repaint();
}

bool QtProgress::ShowCopying(std::size_t done, std::size_t total, bool mayStop) {
  if (!m_copying || (done > 0 && IsTooSoon())) return true;
  m_copying->Show(done, total, mayStop);
  {
    const DiscardedInput discarded(m_copying->StopButton());
    QCoreApplication::processEvents();
  }
  m_sinceShown.start();
  return !m_copying->IsStopped();
}

void QtProgress::EndCopying() {
  if (m_copying) m_copying->End();
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
