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
  /// From 0; -1 for an invalid address.
  [[nodiscard]] int PageOf(const QUrl& address) const;
  /// Shows a page; the first one for "" and an unknown topic. backward() returns to the previous page.
  void Show(const QString& topic);
  /// Finds the next or previous occurrence of `text` from the cursor on, in all pages, without regard to case.
  bool FindInPages(const QString& text, QTextDocument::FindFlags direction);

 protected:
  QVariant loadResource(int type, const QUrl& address) override;

 private:
  std::vector<HelpPage> m_pages;
};

/// A window for the help file: a list of pages, the current page, and a search. Reports an unreadable file in the
/// window.
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
  std::string m_loaded;  // the file shown
  HelpBrowser* m_text;
  QTreeWidget* m_list;
  QLineEdit* m_search = nullptr;
  QLabel* m_found = nullptr;
  std::vector<QTreeWidgetItem*> m_items;  // one per page
};

}  // namespace zova
