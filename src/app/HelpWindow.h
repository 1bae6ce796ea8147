// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>
#include <QWidget>

#include "app/Controls.h"
#include "platform/Disk.h"
#include "platform/HelpViewer.h"

namespace zova {

/// The help file in a window of its own, with a search. A file that cannot be read is told of in the window itself.
class HelpWindow : public QWidget, public HelpViewer {
  Q_OBJECT

 public:
  explicit HelpWindow(Disk& disk);
  void ShowHelp(const std::string& helpFile, const std::string& topic) override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QWidget* MakeSearchRow();
  void Load(const std::string& helpFile);
  void FindNext();
  void GoTo(const QString& topic);

  Disk& m_disk;
  std::string m_loaded;  // the file that the browser shows
  QTextBrowser* m_text;
  QLineEdit* m_search = nullptr;
  QLabel* m_found = nullptr;
};

}  // namespace zova
