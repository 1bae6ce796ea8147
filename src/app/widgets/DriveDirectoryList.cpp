// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/DriveDirectoryList.h"

#include <QComboBox>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QVBoxLayout>
#include <algorithm>

#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"

namespace zova {

namespace {

constexpr int kIndentRole = Qt::UserRole;

// Draws a row indented. Blanks in the row's text would break the search by typed letters.
class IndentingDelegate final : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyleOptionViewItem indented = option;
    indented.rect.setLeft(option.rect.left() + index.data(kIndentRole).toInt());
    QStyledItemDelegate::paint(painter, indented, index);
  }
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    return QStyledItemDelegate::sizeHint(option, index) + QSize(index.data(kIndentRole).toInt(), 0);
  }
};

std::vector<std::string> PathsOf(const DirectoryBrowser& browser) {
  std::vector<std::string> paths;
  for (const DirectoryBrowser::Entry& entry : browser.Entries()) paths.push_back(entry.Path);
  paths.push_back(browser.Path());
  return paths;
}

}  // namespace

DriveDirectoryList::DriveDirectoryList(DirectoryBrowser& browser, const char* driveName, const char* directoryName,
                                       QWidget* parent)
    : QWidget(parent),
      m_browser(browser),
      m_rows(new QVBoxLayout(this)),
      m_drives(Named(new QComboBox, driveName)),
      m_directories(Named(new QListWidget, directoryName)) {
  m_rows->setContentsMargins(0, 0, 0, 0);
  m_rows->addWidget(m_drives);
  m_rows->addWidget(m_directories, 1);
  m_directories->setItemDelegate(new IndentingDelegate(m_directories));
  m_directories->installEventFilter(this);
  // It takes what room there is, and shrinks before a page scrolls.
  m_directories->setMinimumHeight(3 * (m_directories->fontMetrics().lineSpacing() + 2));
  m_directories->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  m_directories->setIconSize(QSize(1, 1) * style()->pixelMetric(QStyle::PM_SmallIconSize));
  connect(m_drives, &QComboBox::activated, this, [this](int row) {
    const char letter = m_shownDrives.at(static_cast<std::size_t>(row));
    if (letter != m_browser.Drive()) Answer(m_browser.SelectDrive(letter));
  });
  connect(m_directories, &QListWidget::doubleClicked, this,
          [this](const QModelIndex& index) { Answer(m_browser.Open(static_cast<std::size_t>(index.row()))); });
  Fill();
}

void DriveDirectoryList::SetLabels(const char* driveLabelName, const QString& driveText, const char* directoryLabelName,
                                   const QString& directoryText) {
  m_rows->insertWidget(m_rows->indexOf(m_drives), MakeLabel(driveLabelName, driveText, m_drives));
  m_rows->insertWidget(m_rows->indexOf(m_directories), MakeLabel(directoryLabelName, directoryText, m_directories));
}

void DriveDirectoryList::Refresh() {
  if (m_shownDrives != m_browser.Drives() || m_shownPaths != PathsOf(m_browser)) Fill();
}

QWidget* DriveDirectoryList::DriveList() const { return m_drives; }

bool DriveDirectoryList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != m_directories || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto* press = static_cast<QKeyEvent*>(event);
  if ((press->modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  switch (press->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      if (const int row = m_directories->currentRow(); row >= 0) Answer(m_browser.Open(static_cast<std::size_t>(row)));
      return true;
    case Qt::Key_Backspace:
    case Qt::Key_Left:  // the parents of the open directory are directly above it, one row each
      if (m_browser.OpenEntry() > 0) Answer(m_browser.Open(m_browser.OpenEntry() - 1));
      return true;
    default: return false;
  }
}

void DriveDirectoryList::Answer(bool opened) {
  // If the open directory is gone, another one is open although the user opened none.
  const bool acts = opened || m_shownPath != m_browser.Path();
  Fill();
  if (acts) emit Acted();
}

void DriveDirectoryList::Fill() {
  m_shownDrives = m_browser.Drives();
  m_shownPaths = PathsOf(m_browser);
  m_shownPath = m_browser.Path();

  m_drives->clear();
  for (const char letter : m_shownDrives) m_drives->addItem(ToQt(std::string{letter, ':'}));
  const auto drive = std::find(m_shownDrives.begin(), m_shownDrives.end(), m_browser.Drive());
  m_drives->setCurrentIndex(drive == m_shownDrives.end() ? -1 : static_cast<int>(drive - m_shownDrives.begin()));

  m_directories->clear();
  const QIcon open = IconForRows(style()->standardIcon(QStyle::SP_DirOpenIcon), *m_directories);
  const QIcon closed = IconForRows(style()->standardIcon(QStyle::SP_DirIcon), *m_directories);
  const int openRow = static_cast<int>(m_browser.OpenEntry());
  for (const DirectoryBrowser::Entry& entry : m_browser.Entries()) {
    const int row = m_directories->count();
    auto* item = new QListWidgetItem(ToQt(entry.Name), m_directories);
    item->setIcon(row <= openRow ? open : closed);
    item->setData(kIndentRole, entry.Depth * 2 * m_directories->fontMetrics().averageCharWidth());
    item->setData(Qt::AccessibleDescriptionRole, ToQt(entry.Path));
    QFont font;  // only the weight is set; the rest comes from the list
    font.setBold(row == openRow);
    item->setFont(font);
  }
  m_directories->setCurrentRow(openRow);
  m_directories->scrollToItem(m_directories->currentItem());
}

}  // namespace zova
