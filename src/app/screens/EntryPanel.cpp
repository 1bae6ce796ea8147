// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/EntryPanel.h"

#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "app/widgets/Controls.h"
#include "app/widgets/GridBox.h"
#include "app/widgets/GridTable.h"
#include "session/SubjectFlow.h"

namespace zova {

namespace {

constexpr double kTestSize = 3.3;  // times the normal font: legible from a metre away
constexpr double kInputSize = 1.8;

void Enlarge(QWidget& control, double times) {
  QFont font;
  font.setPointSizeF(QFontInfo(font).pointSizeF() * times);
  font.setBold(true);
  control.setFont(font);
}

QGroupBox* AddGroup(QLayout& rows, const char* name, const QString& title) {
  QGroupBox* group = Named(new QGroupBox(title), name);
  new QVBoxLayout(group);
  rows.addWidget(group);
  return group;
}

}  // namespace

EntryPanel::EntryPanel(SubjectFlow& subjects)
    : m_subjects(subjects),
      m_grdInput(new GridTable("grdInput", subjects.Entry().Grid().Cells())),
      m_txtInput(new GridBox("txtInput", subjects.Entry().Grid().Cells())),
      m_lblTUpdate(MakeLabel("lblTUpdate", {})),
      m_lblThisOne(MakeLabel("lblThisOne", {})),
      m_lblLimitNote(MakeLabel("lblLimitNote", {})),
      m_lblProjectName(MakeLabel("lblProjectName", {})),
      m_side(MakeSide()),
      m_tmrAutoSave(Named(new QTimer(this), "tmrAutoSave")) {
  setObjectName(QStringLiteral("fraInput"));
  auto* columns = new QHBoxLayout;
  auto* entry = new QVBoxLayout;
  columns->addLayout(entry, 1);
  columns->addWidget(m_side);
  entry->addWidget(m_lblProjectName);
  entry->addWidget(m_lblLimitNote);
  entry->addWidget(m_grdInput, 1);
  auto* row = new QHBoxLayout;
  entry->addLayout(row);
  row->addWidget(MakeLabel("lblInput", tr("&Entry:"), m_txtInput));
  row->addWidget(m_txtInput, 1);
  auto* rows = new QVBoxLayout(this);
  rows->addLayout(columns, 1);
  rows->addWidget(MakeLabel("lblFastHelp", tr("Right click something for fast help about it")));

  Enlarge(*m_txtInput, kInputSize);
  connect(m_txtInput, &GridBox::Acted, this, &EntryPanel::Report);
  connect(m_txtInput, &GridBox::textEdited, m_grdInput, &GridTable::ScrollToCursor);
  connect(m_grdInput, &GridTable::Acted, this, &EntryPanel::Report);
  m_side->widget()->installEventFilter(this);
  FitSide();
  m_tmrAutoSave->setInterval(AutosaveTimer::kTickMilliseconds);
  connect(m_tmrAutoSave, &QTimer::timeout, this, [this] {
    ++m_waitingTicks;
    ActOnTicks();
  });
}

// The buttons scroll in a low window; grid and box are always visible.
QScrollArea* EntryPanel::MakeSide() {
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  EntryGrid& grid = m_subjects.Entry().Grid();
  Enlarge(*m_lblTUpdate, kTestSize);
  m_lblTUpdate->setWordWrap(false);
  m_lblTUpdate->setAlignment(Qt::AlignCenter);
  rows->addWidget(m_lblTUpdate);
  m_cmdDone = AddButton(*rows, "cmdDone", {}, [this] { m_subjects.Entry().DoneWithTest(); });
  AddButton(*rows, "cmdFinished", tr("Done with &all Tests!"), [this] { m_subjects.DoneWithAllTests(); });
  QLayout& tools = *AddGroup(*rows, "fraPretty", tr("Tools"))->layout();
  AddButton(tools, "cmdInsert", tr("&Insert"), [&grid] { grid.InsertLine(); });
  AddButton(tools, "cmdDelete", tr("&Delete"), [&grid] { grid.DeleteSelectedLines(); });
  m_framinbump = AddGroup(*rows, "framinbump", tr("Minute Bump"));
  AddButton(*m_framinbump->layout(), "cmdminadd", tr("Add O&ne"), [&grid] { grid.AddMinute(); });
  AddButton(*m_framinbump->layout(), "cmdminmin", tr("&Subtract One"), [&grid] { grid.SubtractMinute(); });
  AddGroup(*rows, "fraInformation", tr("Subject Information"))->layout()->addWidget(m_lblThisOne);
  rows->addStretch();
  AddButton(*rows, "cmdSubCancel", tr("&Cancel"), [this] { m_subjects.CancelEntry(); });
  QScrollArea* area = MakeScrolling(side);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return area;
}

QPushButton* EntryPanel::AddButton(QLayout& rows, const char* name, const QString& caption, std::function<void()> act) {
  QPushButton* button = MakeButton(name, caption);
  button->setFocusPolicy(Qt::TabFocus);  // a click leaves the focus in the box
  button->installEventFilter(this);
  rows.addWidget(button);
  connect(button, &QPushButton::clicked, this, [this, act = std::move(act)] {
    act();
    Report();
  });
  return button;
}

void EntryPanel::Refresh() {
  FollowTimer();
  SubjectEntry& entry = m_subjects.Entry();
  if (!entry.IsOpen()) return;
  m_grdInput->Refresh();
  m_txtInput->Refresh();
  m_lblTUpdate->setText(ToQt(entry.TestCaption()));
  // The only free letter that "Done with Test 1" and "Review" share.
  QString done = ToQt(entry.DoneCaption());
  m_cmdDone->setText(done.insert(done.indexOf(u'w'), u'&'));
  m_framinbump->setVisible(entry.KeepsMinutes());
  m_framinbump->setEnabled(entry.KeepsMinutes());
  m_lblThisOne->setText(ToQt(entry.SubjectCaption()));
  m_lblLimitNote->setText(ToQt(entry.LimitNote()));
  m_lblLimitNote->setVisible(!entry.LimitNote().empty());
  m_lblProjectName->setText(tr("Project: ") + ToQt(m_subjects.ProjectName()));
}

void EntryPanel::Report() {
  Refresh();
  emit Acted();
  if (isVisible()) m_txtInput->setFocus();
}

void EntryPanel::FollowTimer() {
  const AutosaveTimer& timer = m_subjects.Entry().Timer();
  if (!timer.IsRunning()) {
    m_tmrAutoSave->stop();
    m_waitingTicks = 0;
  } else if (!m_tmrAutoSave->isActive() || m_timerStartRevision != timer.StartRevision()) {
    m_tmrAutoSave->start();
  }
  m_timerStartRevision = timer.StartRevision();
  if (m_waitingTicks > 0) QMetaObject::invokeMethod(this, &EntryPanel::ActOnTicks, Qt::QueuedConnection);
}

// Ticks behind a message box wait until its command has ended; then Refresh acts on them.
void EntryPanel::ActOnTicks() {
  if (QApplication::activeModalWidget() != nullptr || m_waitingTicks == 0) return;
  for (; m_waitingTicks > 0; --m_waitingTicks) m_subjects.Entry().Tick();
  Refresh();
  emit Acted();
}

void EntryPanel::showEvent(QShowEvent* event) {
  Panel::showEvent(event);
  if (event->spontaneous()) return;
  Refresh();
  m_txtInput->setFocus();
}

// Keys that a button ignores: digits go to the box, and Escape returns the focus to it.
void EntryPanel::keyPressEvent(QKeyEvent* event) {
  const bool isDigit = event->key() >= Qt::Key_0 && event->key() <= Qt::Key_9;
  if (!isDigit && event->key() != Qt::Key_Escape) return Panel::keyPressEvent(event);
  m_txtInput->setFocus();
  if (isDigit) QCoreApplication::sendEvent(m_txtInput, event);
}

// Fits the column of buttons to its texts after the layout.
void EntryPanel::FitSide() {
  m_side->widget()->layout()->activate();
  m_side->setFixedWidth(m_side->widget()->minimumSizeHint().width() + m_side->verticalScrollBar()->sizeHint().width());
}

bool EntryPanel::eventFilter(QObject* watched, QEvent* event) {
  auto* button = qobject_cast<QPushButton*>(watched);
  if (!button) {
    if (event->type() == QEvent::LayoutRequest) FitSide();
    return false;
  }
  if (event->type() == QEvent::Shortcut) {
    button->click();  // at once: by itself it acts 100 ms later, when the next number is half typed
    return true;
  }
  // A double click is one press, or it would advance two tests; the minute buttons accept every click.
  return event->type() == QEvent::MouseButtonDblClick && button->parentWidget() != m_framinbump;
}

}  // namespace zova
