// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QWidget>

#include "app/screens/CopyingPanel.h"
#include "platform/desktop/Desktop.h"

class QLabel;
class QProgressBar;

namespace zova {

class QtProgress;

/// The progress of the writing of a master, inside the master screen. Has no controls.
class ProgressPanel : public QWidget {
  Q_OBJECT

 public:
  /// Shows what is reported to `progress`.
  explicit ProgressPanel(QtProgress& progress);
  /// What ShowProgress will show.
  void SetProgress(int percent, const std::string& text);
  void ShowProgress();

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  int m_percent = 0;
  QString m_text;
  QProgressBar* m_proMasterProgress;
  QLabel* m_lblMasterProgress;
};

/// Repaints the window during long work. Input during a run is discarded; input while files are read for another screen
/// is deferred.
class QtProgress final : public Progress {
 public:
  /// At most every 50 ms, except the first and the last of a run; the next ProcessEvents shows what came too soon.
  void Show(int percent, const std::string& text) override;
  void ProcessEvents() override;
  void SetPanel(ProgressPanel* panel) { m_panel = panel; }
  /// The same pace; Cancel is the one act of the user that is taken.
  bool ShowCopying(std::size_t done, std::size_t total, bool mayStop) override;
  void EndCopying() override;
  void SetCopyingPanel(CopyingPanel* panel) { m_copying = panel; }

 private:
  [[nodiscard]] bool IsTooSoon() const;
  void Repaint();

  QPointer<ProgressPanel> m_panel;
  QPointer<CopyingPanel> m_copying;
  QElapsedTimer m_sinceShown;
};

}  // namespace zova
