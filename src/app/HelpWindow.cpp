// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/HelpWindow.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScreen>
#include <QUrl>
#include <QVBoxLayout>

namespace zova {

HelpWindow::HelpWindow(Disk& disk) : QWidget(nullptr, Qt::Window), m_disk(disk), m_text(new QTextBrowser) {
  setObjectName("frmHelp");
  setWindowTitle("ZOVA Help");
  setAttribute(Qt::WA_QuitOnClose, false);
  Named(m_text, "txtHelp");
  m_text->setAccessibleName("Help text");
  m_text->setOpenLinks(false);  // a link leads to a place of the same text, never out of it
  connect(m_text, &QTextBrowser::anchorClicked, this, [this](const QUrl& link) { GoTo(link.fragment()); });
  auto* column = new QVBoxLayout(this);
  column->addWidget(MakeSearchRow());
  column->addWidget(m_text, 1);
  setTabOrder(m_search, m_text);
  const QSize wanted(fontMetrics().averageCharWidth() * 90, fontMetrics().lineSpacing() * 36);
  resize(wanted.boundedTo(screen()->availableSize()));
}

QWidget* HelpWindow::MakeSearchRow() {
  auto* row = new QWidget;
  auto* cmdContents = MakeButton("cmdHelpContents", "&Contents");
  connect(cmdContents, &QPushButton::clicked, this, [this] { GoTo({}); });
  m_search = Named(new QLineEdit, "txtHelpSearch");
  connect(m_search, &QLineEdit::returnPressed, this, &HelpWindow::FindNext);
  auto* cmdFind = MakeButton("cmdHelpFind", "Find &Next");
  connect(cmdFind, &QPushButton::clicked, this, &HelpWindow::FindNext);
  m_found = MakeLabel("lblHelpFound", {});
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins({});
  layout->addWidget(cmdContents);
  layout->addWidget(MakeLabel("lblHelpSearch", "&Search:", m_search));
  layout->addWidget(m_search, 2);
  layout->addWidget(cmdFind);
  layout->addWidget(m_found, 1);
  return row;
}

void HelpWindow::ShowHelp(const std::string& helpFile, const std::string& topic) {
  Load(helpFile);
  show();
  raise();
  activateWindow();
  GoTo(ToQt(topic));
  m_search->setFocus();
}

void HelpWindow::Load(const std::string& helpFile) {
  if (m_loaded == helpFile) return;
  m_found->clear();
  try {
    std::string text;
    m_disk.Read(helpFile, text);
    m_text->setHtml(ToQt(text));
    m_loaded = helpFile;
  } catch (const FileError& error) {
    m_loaded.clear();  // it may be there the next time
    m_text->setPlainText(ToQt("The help file '" + helpFile + "' could not be read:\n\n" + error.what()));
  }
}

void HelpWindow::FindNext() {
  const QString wanted = m_search->text();
  if (wanted.isEmpty()) return;
  bool found = m_text->find(wanted);
  if (!found) {  // once more from the top
    m_text->moveCursor(QTextCursor::Start);
    found = m_text->find(wanted);
  }
  m_found->setText(found ? QString() : "Not found");
}

void HelpWindow::GoTo(const QString& topic) {
  m_text->moveCursor(QTextCursor::Start);  // and the text scrolls there
  if (!topic.isEmpty()) m_text->scrollToAnchor(topic);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) close();
  QWidget::keyPressEvent(event);
}

}  // namespace zova
