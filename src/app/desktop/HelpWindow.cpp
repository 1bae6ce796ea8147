// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/HelpWindow.h"

#include <QHBoxLayout>
#include <QScreen>
#include <QShortcut>
#include <QSignalBlocker>
#include <QSplitter>
#include <QTextDocumentFragment>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace zova {

namespace {

QString PlainText(const std::string& html) { return QTextDocumentFragment::fromHtml(ToQt(html)).toPlainText(); }

QUrl AddressOf(const std::string& topic) { return QUrl("help:" + ToQt(topic)); }

}  // namespace

int HelpBrowser::PageOf(const QUrl& address) const {
  const auto found = std::find_if(m_pages.begin(), m_pages.end(),
                                  [&](const HelpPage& page) { return AddressOf(page.Topic) == address; });
  return found == m_pages.end() ? -1 : static_cast<int>(found - m_pages.begin());
}

void HelpBrowser::Show(const QString& topic) {
  const QUrl address = AddressOf(FromQt(topic));
  setSource(PageOf(address) < 0 ? AddressOf(m_pages.front().Topic) : address);
}

bool HelpBrowser::FindInPages(const QString& text, QTextDocument::FindFlags direction) {
  if (text.isEmpty()) return false;
  if (find(text, direction)) return true;
  const bool isBackward = direction.testFlag(QTextDocument::FindBackward);
  const int count = static_cast<int>(m_pages.size());
  // The last step is the current page again, from its other end.
  for (int step = 1; step <= count; ++step) {
    const int at = (PageOf(source()) + (isBackward ? count - step : step)) % count;
    const HelpPage& page = m_pages.at(static_cast<std::size_t>(at));
    if (!PlainText(page.Html).contains(text, Qt::CaseInsensitive)) continue;
    Show(ToQt(page.Topic));
    moveCursor(isBackward ? QTextCursor::End : QTextCursor::Start);
    if (find(text, direction)) return true;
  }
  return false;
}

QVariant HelpBrowser::loadResource(int type, const QUrl& address) {
  const int page = PageOf(address);
  if (type != QTextDocument::HtmlResource || page < 0) return {};
  return ToQt(m_pages.at(static_cast<std::size_t>(page)).Html);
}

HelpWindow::HelpWindow(Disk& disk)
    : QWidget(nullptr, Qt::Window),
      m_disk(disk),
      m_text(Named(new HelpBrowser, "txtHelp")),
      m_list(Named(new QTreeWidget, "lstHelpTopics")) {
  setObjectName("frmHelp");
  setWindowTitle("ZOVA Help");
  setAttribute(Qt::WA_QuitOnClose, false);
  auto* rows = new QVBoxLayout(this);
  rows->addLayout(MakeButtons());
  rows->addWidget(MakePages(), 1);
  setTabOrder(m_list, m_text);
  AddKeys();
  const QSize wanted(fontMetrics().averageCharWidth() * 125, fontMetrics().lineSpacing() * 38);
  resize(wanted.boundedTo(screen()->availableSize() - QSize(0, 2 * fontMetrics().height())));
}

QLayout* HelpWindow::MakeButtons() {
  auto* row = new QHBoxLayout;
  const auto add = [&](const char* name, const QString& caption, auto act) {
    QPushButton* button = MakeButton(name, caption);
    row->addWidget(button);
    connect(button, &QPushButton::clicked, this, act);
    return button;
  };
  add("cmdHelpContents", tr("&Contents"), [this] { m_text->Show({}); });
  QPushButton* back = add("cmdHelpBack", tr("&Back"), [this] { m_text->backward(); });
  back->setEnabled(false);
  connect(m_text, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
  m_search = Named(new QLineEdit, "txtHelpSearch");
  row->addWidget(MakeLabel("lblHelpSearch", tr("&Search:"), m_search));
  row->addWidget(m_search, 1);
  connect(m_search, &QLineEdit::returnPressed, this, [this] { Find({}); });
  connect(m_search, &QLineEdit::textEdited, this, [this] { m_found->clear(); });
  add("cmdHelpFind", tr("Find &Next"), [this] { Find({}); });
  add("cmdHelpFindBack", tr("Find Pre&vious"), [this] { Find(QTextDocument::FindBackward); });
  m_found = MakeLabel("lblHelpFound", {});
  m_found->setWordWrap(false);
  row->addWidget(m_found);
  return row;
}

QWidget* HelpWindow::MakePages() {
  m_text->setAccessibleName(tr("Help text"));
  m_text->document()->setDefaultStyleSheet("table { margin-top: 8px; }");
  m_text->setOpenLinks(false);  // links lead only to pages of this file
  connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { m_text->Show(link.fragment()); });
  connect(m_text, &QTextBrowser::sourceChanged, this, &HelpWindow::FollowPage);
  m_list->setHeaderHidden(true);
  m_list->setRootIsDecorated(false);
  m_list->setItemsExpandable(false);
  m_list->setIndentation(fontMetrics().averageCharWidth() * 2);
  connect(m_list, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* item) {
    if (item != nullptr) m_text->Show(item->data(0, Qt::UserRole).toString());
  });
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  rows->setContentsMargins({});
  rows->addWidget(MakeLabel("lblHelpTopics", tr("Pa&ges"), m_list));
  rows->addWidget(m_list, 1);
  auto* halves = Named(new QSplitter, "splHelp");
  halves->addWidget(side);
  halves->addWidget(m_text);
  halves->setStretchFactor(1, 1);
  halves->setChildrenCollapsible(false);
  halves->setSizes({fontMetrics().averageCharWidth() * 36, fontMetrics().averageCharWidth() * 88});
  return halves;
}

void HelpWindow::AddKeys() {
  const auto add = [this](const QKeySequence& keys, const std::function<void()>& act) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
  };
  add(Qt::Key_Escape, [this] { close(); });
  add(Qt::Key_F1, [this] { m_text->Show({}); });
  add(Qt::CTRL | Qt::Key_F, [this] { PlaceCursorIn(m_search); });
  add(Qt::Key_F3, [this] { Find({}); });
  add(Qt::SHIFT | Qt::Key_F3, [this] { Find(QTextDocument::FindBackward); });
  add(Qt::ALT | Qt::Key_Left, [this] { m_text->backward(); });
  add(Qt::ALT | Qt::Key_Right, [this] { m_text->forward(); });
  for (const auto key : {Qt::Key_Plus, Qt::Key_Equal}) add(Qt::CTRL | key, [this] { m_text->zoomIn(); });
  add(Qt::CTRL | Qt::Key_Minus, [this] { m_text->zoomOut(); });
}

void HelpWindow::ShowHelp(const std::string& helpFile, const std::string& topic) {
  const bool isNew = Load(helpFile);
  show();
  raise();
  activateWindow();
  m_text->Show(ToQt(topic));
  if (isNew) m_text->reload();  // a page of the same name may be cached
  if (isNew) m_text->clearHistory();
  m_text->setFocus();  // so that the keys scroll it
}

bool HelpWindow::Load(const std::string& helpFile) {
  if (m_loaded == helpFile) return false;
  m_found->clear();
  std::string text;
  try {
    m_disk.Read(helpFile, text);
    m_loaded = helpFile;
  } catch (const FileError& error) {
    m_loaded.clear();  // it may exist the next time
    text = "<p>" + FromQt(ToQt("The help file '" + helpFile + "' could not be read: " + error.what()).toHtmlEscaped());
  }
  m_text->SetPages(CutIntoPages(text));
  FillList();
  return true;
}

void HelpWindow::FillList() {
  const QSignalBlocker quiet(m_list);
  m_list->clear();
  m_items.clear();
  QTreeWidgetItem* chapter = nullptr;
  for (const HelpPage& page : m_text->Pages()) {
    auto* item = new QTreeWidgetItem({PlainText(page.Heading)});
    item->setData(0, Qt::UserRole, ToQt(page.Topic));
    if (page.Level == 3 && chapter != nullptr) {
      chapter->addChild(item);
    } else {
      m_list->addTopLevelItem(chapter = item);
    }
    m_items.push_back(item);
  }
  m_list->expandAll();
}

// source() is still the previous page when the signal for a new one arrives.
void HelpWindow::FollowPage(const QUrl& address) {
  const int page = m_text->PageOf(address);
  const QSignalBlocker quiet(m_list);
  if (page >= 0) m_list->setCurrentItem(m_items.at(static_cast<std::size_t>(page)));
}

void HelpWindow::Find(QTextDocument::FindFlags direction) {
  const QString wanted = m_search->text();
  m_found->setText(wanted.isEmpty() || m_text->FindInPages(wanted, direction) ? QString() : tr("Not found"));
  if (wanted.isEmpty()) m_search->setFocus();
}

}  // namespace zova
