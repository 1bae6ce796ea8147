// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>

#include "app/widgets/Panel.h"
#include "platform/desktop/Desktop.h"

class QLabel;
class QProgressBar;

namespace zova {

class QtProgress;

/// How far the writing of a master has come. It has nothing that could be pressed.
class ProgressPanel : public Panel {
  Q_OBJECT

 public:
  /// Shows what is told to `progress`.
  explicit ProgressPanel(QtProgress& progress);
  /// What ShowProgress will show.
  void SetProgress(int percent, const std::string& text);
  void ShowProgress();

 protected:
  void ShowState() override { ShowProgress(); }  // before a box of the run, say
  void showEvent(QShowEvent* event) override;

 private:
  int m_percent = 0;
  QString m_text;
  QProgressBar* m_proMasterProgress;
  QLabel* m_lblMasterProgress;
};

/// Keeps the window alive during long work: it repaints. What the user does during a run is discarded; while files are
/// read for another screen keys and clicks wait for the end.
class QtProgress final : public Progress {
 public:
  /// At most every 50 ms, unless it is the run's first or last; what came too soon is shown by the next ProcessEvents.
  void Show(int percent, const std::string& text) override;
  void ProcessEvents() override;
  void SetPanel(ProgressPanel* panel) { m_panel = panel; }

 private:
  [[nodiscard]] bool IsTooSoon() const;
  void Repaint();

  QPointer<ProgressPanel> m_panel;
  QElapsedTimer m_sinceShown;
};

}  // namespace zova
