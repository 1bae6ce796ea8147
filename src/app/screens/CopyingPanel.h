// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/widgets/Panel.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace zova {

class QtProgress;

/// Shows the progress of copying many files. Replaces the current panel of the stack meanwhile; Cancel ends the copying
/// between two files.
class CopyingPanel : public Panel {
  Q_OBJECT

 public:
  /// Shows what is reported to `progress`.
  explicit CopyingPanel(QtProgress& progress);
  void Show(std::size_t done, std::size_t total, bool mayStop);
  /// Cancel was pressed since the panel came up.
  [[nodiscard]] bool IsStopped() const noexcept { return m_isStopped; }
  /// Shows the previous panel again.
  void End();
  /// The only control that accepts input meanwhile.
  [[nodiscard]] const QObject* StopButton() const;

 protected:
  void ShowState() override {}

 private:
  void ComeUp();

  QProgressBar* m_proCopying;
  QLabel* m_lblCopying;
  QPushButton* m_cmdCopyCancel;
  QWidget* m_before = nullptr;  // the panel that it replaced
  bool m_isStopped = false;
};

}  // namespace zova
