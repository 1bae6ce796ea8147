// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/widgets/Panel.h"

#include <QHideEvent>
#include <QKeyEvent>
#include <QScrollArea>
#include <QVBoxLayout>
#include <utility>

#include "app/widgets/Controls.h"
#include "app/widgets/NameLabel.h"

namespace zova {

namespace {

constexpr int kMargin = 12;
constexpr int kSpacing = 8;
constexpr double kTitleSize = 1.25;  // times the normal font

QWidget* MakeHairline() {
  auto* line = new QFrame;
  line->setFrameStyle(QFrame::HLine | QFrame::Plain);
  line->setForegroundRole(QPalette::Mid);
  return line;
}

// The row stays hidden until something is added to it.
QWidget* AddRow(QVBoxLayout& rows) {
  auto* row = new QWidget;
  (new QHBoxLayout(row))->setContentsMargins({});
  rows.addWidget(row);
  row->hide();
  return row;
}

QHBoxLayout* RowOf(QWidget* row, QWidget* line) {
  row->show();
  line->show();
  return static_cast<QHBoxLayout*>(row->layout());
}

}  // namespace

Panel::Panel(const char* name, QWidget* host) : m_host(host ? host : this) {
  setObjectName(QString::fromLatin1(name));
  auto* rows = new QVBoxLayout(m_host);
  rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  if (host) {
    rows->setContentsMargins({});
    auto* whole = new QVBoxLayout(this);
    whole->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    whole->addWidget(host);
  }
  rows->setSpacing(kSpacing);
  m_header = AddRow(*rows);
  rows->addWidget(m_headerLine = MakeHairline());
  m_content = new QVBoxLayout;
  rows->addLayout(m_content, 1);
  rows->addWidget(m_footerLine = MakeHairline());
  m_footer = AddRow(*rows);
  m_headerLine->hide();
  m_footerLine->hide();
}

void Panel::AddTitle(QLabel* title) {
  Enlarge(*title, kTitleSize);
  RowOf(m_header, m_headerLine)->insertWidget(0, title, 1);
}

QLabel* Panel::AddTitle(const char* name, const QString& text) {
  QLabel* title = MakeLabel(name, text);
  AddTitle(title);
  return title;
}

void Panel::AddProjectName() {
  m_projectName = new NameLabel("lblProjectName");
  m_projectName->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  RowOf(m_header, m_headerLine)->addWidget(m_projectName, 1);
}

void Panel::ShowProjectName(const std::string& project) {
  const QString shown = "Project: " + Isolated(ToQt(project));
  if (m_projectName && m_projectName->text() != shown) m_projectName->setText(shown);
}

QVBoxLayout* Panel::AddPage() {
  auto* page = new QWidget;
  auto* rows = new QVBoxLayout(page);
  rows->setContentsMargins(0, 0, rows->spacing(), 0);  // the frame has margins of its own
  rows->setSpacing(kLabelGap);
  page->setMaximumWidth(FormWidth(*page));
  QScrollArea* area = MakeScrolling(page);
  area->setAlignment(Qt::AlignHCenter);  // not lost in a corner of a wide window
  m_content->addWidget(area);
  return rows;
}

void Panel::AddContent(QWidget* content, int stretch) { m_content->addWidget(content, stretch); }

void Panel::AddStatus(QLabel* status) { RowOf(m_footer, m_footerLine)->insertWidget(0, status, 1); }

QPushButton* Panel::AddButton(const char* name, const QString& caption, std::function<void()> act) {
  QPushButton* button = MakeActButton(name, caption, std::move(act));
  QHBoxLayout* row = RowOf(m_footer, m_footerLine);
  if (row->count() == 0) row->addStretch(1);  // no status
  row->addWidget(button);
  return button;
}

// A click leaves the focus where it is: the rules place the cursor.
QPushButton* Panel::MakeActButton(const char* name, const QString& caption, std::function<void()> act, bool repeats) {
  QPushButton* button = MakeButton(name, caption);
  button->setFocusPolicy(Qt::TabFocus);
  ActAtOnce(button, repeats);
  connect(button, &QPushButton::clicked, this, [this, act = std::move(act)] {
    if (m_buttonsReturn) {
      ActAndReturn(act);
    } else {
      Act(act);
    }
  });
  return button;
}

void Panel::SetDefault(QPushButton* button) {
  m_default = button;
  MarkDefault(button, true);
}

void Panel::Act(const std::function<void()>& act) {
  act();
  emit Acted();
}

void Panel::ActAndReturn(const std::function<void()>& act) {
  Act(act);
  if (isVisible()) PlaceCursor();
}

void Panel::Refresh() {
  ShowState();
  if (!isVisible() || m_cursorRevision == CursorRevision()) return;
  m_cursorRevision = CursorRevision();
  PlaceCursor();
}

void Panel::PlaceCursor() {
  if (m_cursor) PlaceCursorIn(m_cursor);
}

void Panel::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  if (event->spontaneous()) return;  // back from the task bar, say: the cursor stays where it was
  ShowState();
  m_cursorRevision = CursorRevision();
  PlaceCursor();
}

// Nothing of what was done stays in a hidden screen.
void Panel::hideEvent(QHideEvent* event) {
  QWidget::hideEvent(event);
  if (!event->spontaneous()) ShowState();
}

// Keys that the control with the focus has no use for.
void Panel::keyPressEvent(QKeyEvent* event) {
  QPushButton* pressed = nullptr;
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) pressed = DefaultButton();
  if (event->key() == Qt::Key_Escape) pressed = m_cancel;
  const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  if (pressed == nullptr || !isPlain) return QWidget::keyPressEvent(event);
  if (!event->isAutoRepeat()) pressed->click();
}

}  // namespace zova
