// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/screens/EntryPanel.h"

#include <QAbstractListModel>
#include <QApplication>
#include <QFontInfo>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QListView>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QVBoxLayout>
#include <utility>

#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"
#include "app/widgets/GridBox.h"
#include "app/widgets/GridTable.h"
#include "app/widgets/NameLabel.h"
#include "session/SubjectFlow.h"

namespace zova {

namespace {

constexpr double kTestSize = 3.3;  // times the normal font: legible from a metre away
constexpr double kInputSize = 1.8;
constexpr const char* kFastHelp = "Right click something for fast help about it";

QGroupBox* AddGroup(QLayout& rows, const char* name, const QString& title) {
  QGroupBox* group = Named(new QGroupBox(title), name);
  group->setFlat(true);
  new QVBoxLayout(group);
  rows.addWidget(group);
  return group;
}

constexpr int kWordLines = 5;  // that show at once

}  // namespace

// The lines of the list of words, which the rules know.
class WordsModel final : public QAbstractListModel {
 public:
  WordsModel(EntryGrid& grid, QObject* parent) : QAbstractListModel(parent), m_grid(grid) {}

  [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
    return parent.isValid() ? 0 : static_cast<int>(m_items.size());
  }
  [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
    if (role != Qt::DisplayRole) return {};
    return ToQt(ItemName(m_grid.Words(), m_items[static_cast<std::size_t>(index.row())]));
  }
  void Follow() {
    const std::vector<int>& items = m_grid.WordsForBox().Listed();
    if (items == m_items) return;
    beginResetModel();
    m_items = items;
    endResetModel();
  }

 private:
  EntryGrid& m_grid;
  std::vector<int> m_items;
};

EntryPanel::EntryPanel(SubjectFlow& subjects)
    : Panel("fraInput"),
      m_subjects(subjects),
      m_grdInput(new GridTable("grdInput", subjects.Entry().Grid().Cells())),
      m_txtInput(new GridBox("txtInput", subjects.Entry().Grid().Cells())),
      m_words(new WordsModel(subjects.Entry().Grid(), this)),
      m_lstWords(MakeWords()),
      m_lblTUpdate(MakeLabel("lblTUpdate", {})),
      m_lblRecalls(MakeLabel("lblRecalls", {})),
      m_lblWhere(MakeLabel("lblWhere", {})),
      m_lblThisOne(new NameLabel("lblThisOne")),
      m_lblThisLevels(new NameLabel("lblThisLevels")),
      m_lblFastHelp(MakeLabel("lblFastHelp", {})),
      m_lblLimitNote(MakeLabel("lblLimitNote", {})),
      m_side(MakeSide()),
      m_tmrAutoSave(Named(new QTimer(this), "tmrAutoSave")) {
  m_lblEntryTitle = AddTitle("lblEntryTitle");
  m_grdInput->setAccessibleName("Recalls");
  AddProjectName();
  auto* content = new QWidget;
  auto* columns = new QHBoxLayout(content);
  columns->setContentsMargins({});
  columns->addStretch(1);
  constexpr int kFirst = 1000;  // what is left beside the grid at its full width stays empty
  columns->addWidget(m_entry = MakeEntry(), kFirst);
  columns->addWidget(m_side);
  columns->addStretch(1);
  AddContent(content, 1);
  AddStatus(m_lblFastHelp);
  m_cmdDone = AddButton("cmdDone", {}, [this] { m_subjects.Entry().DoneWithTest(); });
  m_cmdFinished = AddButton("cmdFinished", "Done with a&ll Tests!", [this] { m_subjects.DoneWithAllTests(); });
  AddButton("cmdSubCancel", "&Cancel", [this] { m_subjects.CancelEntry(); });
  m_buttonsReturn = true;

  Enlarge(*m_txtInput, kInputSize);
  connect(m_txtInput, &GridBox::Acted, this, [this] { ActAndReturn([] {}); });
  connect(m_txtInput, &GridBox::textEdited, m_grdInput, &GridTable::ShowTyping);
  connect(m_txtInput, &GridBox::textEdited, this, [this] {
    m_lblFastHelp->setText(kFastHelp);
    ShowWords();
  });
  connect(m_txtInput, &GridBox::Dropped, this, [this](const QString& character) {
    m_lblFastHelp->setText(ToQt(m_subjects.Entry().Grid().DroppedText(FromQt(character))));
  });
  connect(m_grdInput, &GridTable::Acted, this, [this] { ActAndReturn([] {}); });
  m_side->widget()->installEventFilter(this);
  FitSide();
  m_tmrAutoSave->setInterval(AutosaveTimer::kTickMilliseconds);
  connect(m_tmrAutoSave, &QTimer::timeout, this, [this] {
    ++m_waitingTicks;
    ActOnTicks();
  });
  ShowState();
}

QWidget* EntryPanel::MakeEntry() {
  auto* entry = new QWidget;
  auto* rows = new QVBoxLayout(entry);
  rows->setContentsMargins({});
  rows->addWidget(m_lblLimitNote);
  rows->addWidget(m_grdInput, 1);
  rows->addWidget(m_lblWhere);
  auto* row = new QHBoxLayout;
  rows->addLayout(row);
  row->addWidget(MakeLabel("lblInput", "&Entry:", m_txtInput));
  row->addWidget(m_txtInput, 1);
  rows->addWidget(m_lstWords);
  return entry;
}

QListView* EntryPanel::MakeWords() {
  auto* list = Named(new QListView, "lstWords");
  list->setAccessibleName("Words");
  list->setModel(m_words);
  list->setUniformItemSizes(true);
  list->setFocusPolicy(Qt::NoFocus);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->setFixedHeight(kWordLines * (list->fontMetrics().height() + 2) + 2 * list->frameWidth());
  list->hide();
  connect(list, &QListView::clicked, this,
          [this](const QModelIndex& line) { ActAndReturn([&] { m_subjects.Entry().Grid().TakeWord(line.row()); }); });
  return list;
}

QHBoxLayout* EntryPanel::MakeUndoButtons() {
  TypedGrid& cells = m_subjects.Entry().Grid().Cells();
  m_cmdUndo = MakeActButton(
      "cmdUndo", {}, [&cells] { cells.Undo(); }, /*repeats=*/true);
  m_cmdRedo = MakeActButton(
      "cmdRedo", {}, [&cells] { cells.Redo(); }, /*repeats=*/true);
  m_cmdUndo->setIcon(InkedIcon("undo", m_cmdUndo->palette()));
  m_cmdRedo->setIcon(InkedIcon("redo", m_cmdRedo->palette()));
  m_cmdUndo->setAccessibleName("Undo");
  m_cmdRedo->setAccessibleName("Redo");
  auto* row = new QHBoxLayout;
  row->addWidget(m_cmdUndo);
  row->addWidget(m_cmdRedo);
  return row;
}

// Its buttons scroll in a low window; grid and box always stand beside it.
QScrollArea* EntryPanel::MakeSide() {
  auto* side = new QWidget;
  auto* rows = new QVBoxLayout(side);
  EntryGrid& grid = m_subjects.Entry().Grid();
  Enlarge(*m_lblTUpdate, kTestSize);
  m_lblTUpdate->setWordWrap(false);
  m_lblTUpdate->setAlignment(Qt::AlignCenter);
  rows->addWidget(m_lblTUpdate);
  m_lblRecalls->setAlignment(Qt::AlignCenter);
  rows->addWidget(m_lblRecalls);
  auto& tools = static_cast<QVBoxLayout&>(*AddGroup(*rows, "fraPretty", "Tools")->layout());
  tools.addWidget(MakeActButton("cmdInsert", "&Insert", [&grid] { grid.InsertLine(); }));
  tools.addWidget(MakeActButton("cmdDelete", "&Delete", [&grid] { grid.DeleteSelectedLines(); }));
  tools.addLayout(MakeUndoButtons());
  m_framinbump = AddGroup(*rows, "framinbump", "Minute Bump");
  QLayout& bump = *m_framinbump->layout();
  bump.addWidget(MakeActButton(
      "cmdminadd", "Add O&ne", [&grid] { grid.AddMinute(); }, /*repeats=*/true));
  bump.addWidget(MakeActButton(
      "cmdminmin", "&Subtract One", [&grid] { grid.SubtractMinute(); }, /*repeats=*/true));
  QLayout& subject = *AddGroup(*rows, "fraInformation", "Subject Information")->layout();
  subject.addWidget(m_lblThisOne);
  subject.addWidget(m_lblThisLevels);
  rows->addStretch();
  QScrollArea* area = MakeScrolling(side);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return area;
}

void EntryPanel::ShowState() {
  FollowTimer();
  SubjectEntry& entry = m_subjects.Entry();
  m_lblEntryTitle->setText(ToQt(entry.Title()));
  m_lblTUpdate->setText(ToQt(entry.TestCaption()));
  // The only free letter that "Done with Test 1" and "Review" share.
  QString done = ToQt(entry.DoneCaption());
  m_cmdDone->setText(done.insert(done.indexOf(u'w'), u'&'));
  m_lblThisOne->setText(ToQt(entry.SubjectCaption()));
  m_lblFastHelp->setText(kFastHelp);
  if (!entry.IsOpen()) {
    for (QLabel* label : {m_lblRecalls, m_lblWhere, m_lblThisLevels, m_lblLimitNote}) label->clear();
    return;
  }
  m_grdInput->Refresh();
  m_entry->setMaximumWidth(m_grdInput->maximumWidth());
  m_txtInput->Refresh();
  ShowWords();
  ShowPlace();
  m_framinbump->setVisible(entry.KeepsMinutes());
  m_framinbump->setEnabled(entry.KeepsMinutes());
  MarkDefault(m_cmdFinished, entry.IsOnLastTest());
  m_lblThisLevels->setText(WithIsolatedLines(ToQt(entry.LevelsCaption())));
  m_lblThisLevels->setVisible(!m_lblThisLevels->text().isEmpty());
  m_lblLimitNote->setText(ToQt(entry.LimitNote()));
  m_lblLimitNote->setVisible(!entry.LimitNote().empty());
}

void EntryPanel::ShowPlace() {
  SubjectEntry& entry = m_subjects.Entry();
  const TypedGrid& cells = entry.Grid().Cells();
  m_lblRecalls->setText(ToQt(entry.RecallsCaption()));
  m_lblWhere->setText(ToQt(entry.Grid().WhereText()));
  m_txtInput->setAccessibleDescription(
      QStringLiteral("%1, line %2, %3").arg(m_lblTUpdate->text()).arg(cells.Cursor().Line).arg(m_lblWhere->text()));
  m_cmdUndo->setEnabled(cells.CanUndo());
  m_cmdRedo->setEnabled(cells.CanRedo());
}

// In a project with a word list the list keeps its place while it is closed, so that nothing moves while one types.
void EntryPanel::ShowWords() {
  EntryGrid& grid = m_subjects.Entry().Grid();
  m_words->Follow();
  QSizePolicy policy = m_lstWords->sizePolicy();
  if (policy.retainSizeWhenHidden() == grid.Words().IsEmpty()) {
    policy.setRetainSizeWhenHidden(!grid.Words().IsEmpty());
    m_lstWords->setSizePolicy(policy);
  }
  const EntryWords& words = grid.WordsForBox();
  m_lstWords->setVisible(!words.Listed().empty());
  const int line = words.Listed().empty() ? -1 : words.Line();
  m_lstWords->setCurrentIndex(line < 0 ? QModelIndex() : m_words->index(line));
}

void EntryPanel::PlaceCursor() { m_txtInput->setFocus(); }

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
  Act([this] {
    for (; m_waitingTicks > 0; --m_waitingTicks) m_subjects.Entry().Tick();
  });
}

// Keys that a button ignores: what can be typed goes to the box, and Escape returns the focus to it.
void EntryPanel::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = (event->modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier;
  const bool isTyped = isPlain && m_subjects.Entry().IsOpen() && !event->text().isEmpty() &&
                       m_subjects.Entry().Grid().Cells().IsTyped(FromQt(event->text()));
  if (!isTyped && event->key() != Qt::Key_Escape) return Panel::keyPressEvent(event);
  m_txtInput->setFocus();
  if (isTyped) QCoreApplication::sendEvent(m_txtInput, event);
}

// Fits the column of buttons to its texts after the layout.
void EntryPanel::FitSide() {
  m_side->widget()->layout()->activate();
  m_side->setFixedWidth(m_side->widget()->minimumSizeHint().width() + m_side->verticalScrollBar()->sizeHint().width());
}

bool EntryPanel::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) FitSide();
  return false;
}

}  // namespace zova
