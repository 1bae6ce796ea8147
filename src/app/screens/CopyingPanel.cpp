// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/screens/CopyingPanel.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "app/screens/ProgressPanel.h"
#include "app/widgets/Controls.h"

namespace zova {

CopyingPanel::CopyingPanel(QtProgress& progress)
    : Panel("fraCopying"),
      m_proCopying(Named(new QProgressBar, "proCopying")),
      m_lblCopying(MakeLabel("lblCopying", {})),
      m_cmdCopyCancel(MakeButton("cmdCopyCancel", "Cancel")) {
  m_proCopying->setRange(0, 100);
  m_proCopying->setAccessibleName("Copying Files");
  m_cmdCopyCancel->setShortcut(Qt::Key_Escape);
  ActAtOnce(m_cmdCopyCancel, false);
  connect(m_cmdCopyCancel, &QPushButton::clicked, this, [this] { m_isStopped = true; });
  AddTitle("lblCopyingFiles", "Copying Files ...");
  QVBoxLayout* rows = AddPage();
  rows->addWidget(m_proCopying);
  rows->addWidget(m_lblCopying);
  rows->addWidget(m_cmdCopyCancel, 0, Qt::AlignLeft);
  rows->addStretch();
  m_cursor = m_cmdCopyCancel;
  progress.SetCopyingPanel(this);
}

const QObject* CopyingPanel::StopButton() const { return m_cmdCopyCancel; }

// Also after a message box, which shows the screen of the command behind it.
void CopyingPanel::ComeUp() {
  auto* stack = qobject_cast<QStackedWidget*>(parentWidget());
  if (stack == nullptr || stack->currentWidget() == this) return;
  m_before = stack->currentWidget();
  stack->setCurrentWidget(this);
}

void CopyingPanel::Show(std::size_t done, std::size_t total, bool mayStop) {
  ComeUp();
  m_cmdCopyCancel->setEnabled(mayStop);
  m_proCopying->setValue(total == 0 ? 100 : static_cast<int>(done * 100 / total));
  m_lblCopying->setText(QStringLiteral("%1 of %2 files").arg(done).arg(total));
}

void CopyingPanel::End() {
  m_isStopped = false;
  auto* stack = qobject_cast<QStackedWidget*>(parentWidget());
  if (stack != nullptr && m_before != nullptr && stack->currentWidget() == this) stack->setCurrentWidget(m_before);
  m_before = nullptr;
}

}  // namespace zova
