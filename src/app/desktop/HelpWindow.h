// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTextBrowser>
#include <QTextDocument>
#include <QTreeWidget>
#include <vector>

#include "app/widgets/Controls.h"
#include "platform/desktop/HelpViewer.h"
#include "platform/files/Disk.h"
#include "session/HelpTopics.h"

namespace zova {

/// The browser that shows one page of the help at a time: its address is "help:" and the page's topic.
class HelpBrowser final : public QTextBrowser {
  Q_OBJECT

 public:
  void SetPages(std::vector<HelpPage> pages) { m_pages = std::move(pages); }
  [[nodiscard]] const std::vector<HelpPage>& Pages() const noexcept { return m_pages; }
  /// From 0; -1 for an address that is none.
  [[nodiscard]] int PageOf(const QUrl& address) const;
  /// Shows a page; "" and a topic that is not there show the first. The page before comes back by backward().
  void Show(const QString& topic);
  /// The next or the previous place of `text` from the cursor on, through all pages, without regard to case.
  bool FindInPages(const QString& text, QTextDocument::FindFlags direction);

 protected:
  QVariant loadResource(int type, const QUrl& address) override;

 private:
  std::vector<HelpPage> m_pages;
};

/// The help file in a window of its own: its pages as a list, the one that is chosen, and a search. A file that cannot
/// be read is told of in the window itself.
class HelpWindow : public QWidget, public HelpViewer {
  Q_OBJECT

 public:
  explicit HelpWindow(Disk& disk);
  void ShowHelp(const std::string& helpFile, const std::string& topic) override;

 private:
  QLayout* MakeButtons();
  QWidget* MakePages();
  void AddKeys();
  bool Load(const std::string& helpFile);
  void FillList();
  void FollowPage(const QUrl& address);
  void Find(QTextDocument::FindFlags direction);

  Disk& m_disk;
  std::string m_loaded;  // the file that the browser shows
  HelpBrowser* m_text;
  QTreeWidget* m_list;
  QLineEdit* m_search = nullptr;
  QLabel* m_found = nullptr;
  std::vector<QTreeWidgetItem*> m_items;  // one per page
};

}  // namespace zova
