// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "scoring/Examples.h"
#include "subjects/entry/SubjectEntry.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"

namespace zova::testing {

/// The entry screen of subject "a1" in the project "Study", driven by scripts of keys.
struct EntryDesk : Scratch {
  /// `setup` has letters: m minutes and r ratings are kept, l a list of 12 lines in place of 5, S and
  /// B the preferences Skip Minutes and Next Blank Space; and at its end the number of the test that `lists` begin with
  /// and that is shown; before all, 1 or 2 for as many tests in place of 3. The tests' flags are "Y", "N" and, as in an
  /// older file, "y".
  EntryDesk(MessageBoxes& shown, const std::string& setup, const std::string& lists) : Boxes(shown) {
    const auto has = [&](char letter) { return setup.find(letter) < setup.size() - 1; };
    Project = MakeProject({.Tests = 3, .Items = 5, .Minutes = 9, .MaxRating = 7, .Rated = "YNy"});
    if (has('1') || has('2')) Project.TestCount = static_cast<std::int16_t>(setup.front() - '0');
    if (has('l')) Project.ItemCount = 12;
    Project.MinutesRecorded = has('m');
    Project.Rated = has('r');
    Project.BackupDir = "D:\\B";
    for (const char* directory : {"C:\\Data", "D:\\B", "C:\\Param"}) MakeDirectory(directory);
    Chosen = {.SkipMinutes = has('S'), .NextBlankSpace = has('B')};
    Record.SubjectId = "a1";
    Record.Lists = Lists(setup.back() - '0', lists);
    Entry.Open(Project, "C:\\Param");
    if (setup.back() != '1') Grid.ShowPage(setup.back() - '0');
    Grid.FetchChangedLines();
  }
  [[nodiscard]] RecallLists Lists(int test, const std::string& lists) const {
    return MakeLists(Project, (test == 1 ? "" : test == 2 ? "| " : "| | ") + lists);
  }

  /// After each key the lines named as changed must be those that changed; all of another test.
  void Press(const std::string& keys) {
    for (const char key : keys) {
      const RecallLists before = Record.Lists;
      const int test = Grid.Page();
      PressOne(key);
      std::pair<int, int> lines = {1, 0};
      for (int line = Grid.Lines(); line >= 1; --line) {
        if (test == Grid.Page() && before.At(test, line) == Record.Lists.At(test, line)) continue;
        lines = {line, std::max(line, lines.second)};
      }
      const auto changed = Grid.FetchChangedLines();
      if (std::string("fFsqQE").find(key) != std::string::npos) continue;  // these may show another place
      EXPECT_EQ(std::pair(changed.FirstLine, changed.LastLine), lines) << key;
    }
  }
  /// 3e: 3, Enter. udlr: arrows; capitals extend the selection. tT: Tab. c: clicks line 5, column 3. n: shows the next
  /// test. i insert, x delete, + and - bump, z undo, y redo. f: done with the test, F: with all. s: saves as
  /// incomplete, q: Cancel, Q: the program ends, E: the screen opens again. ". :" one tick, eleven. o, O: Autosave off,
  /// on. X, M: the Param directory vanishes, is back. N: nine others are unfinished. W: the 12th call to the disk
  /// fails.
  void PressOne(char key) {
    const std::string arrows = "udlrUDLR";
    if (const auto arrow = arrows.find(key); arrow != std::string::npos) {
      const GridCell ways[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
      const GridCell way = ways[arrow % 4];
      return arrow < 4 ? Grid.Move(way.Line, way.Column) : Grid.ExtendSelection(way.Line, way.Column);
    }
    switch (key) {
      case 'e': static_cast<void>(Grid.Enter()); return;
      case 't': return Grid.Step(1);
      case 'T': return Grid.Step(-1);
      case 'c': return Grid.Click({5, 3});
      case 'n': return Grid.ShowPage(Grid.Page() + 1);
      case 'i': return Tools.InsertLine();
      case 'x': return Tools.DeleteSelectedLines();
      case '+': return Tools.AddMinute();
      case '-': return Tools.SubtractMinute();
      case 'z': return Grid.Undo();
      case 'y': return Grid.Redo();
      case 'f': return Entry.DoneWithTest();
      case 'F': return static_cast<void>(Ended = Entry.DoneWithAllTests());
      case 's': return static_cast<void>(Entry.SaveIncomplete());
      case 'q': return static_cast<void>(Ended = Entry.Cancel());
      case 'Q': return Entry.Abandon();
      case 'E': return Entry.Open(Project, "C:\\Param");
      case '.': return Entry.Tick();
      case ':': return Press("...........");
      case 'o': return Entry.SetAutosave(false);
      case 'O': return Entry.SetAutosave(true);
      case 'X': return static_cast<void>(std::filesystem::remove_all(Native("C:\\Param")));
      case 'M': return MakeDirectory("C:\\Param");
      case 'W': return Faults.FailAt(12);
      case 'N':
        for (char i = '1'; i <= '9'; ++i) Put(std::string("C:\\Data\\Sdata\\Unfinished\\AB") + i + ".dat", "");
        return;
      default: return Grid.SetEntryText(Grid.EntryText() + key);
    }
  }

  /// Like "@2,1-3,1* '4' b": cursor and the other end of a selection, a star when there are unsaved changes, the box's
  /// text, a beep.
  [[nodiscard]] std::string GridState() const {
    const GridBlock& block = Grid.Selection();
    const auto [line, column] = Grid.Cursor();
    std::ostringstream text;
    text << "@" << line << "," << column;
    if (!block.IsOneCell()) {
      text << "-" << block.FirstLine + block.LastLine - line << "," << block.FirstColumn + block.LastColumn - column;
    }
    if (Record.HasUnsavedChanges) text << "*";
    if (!Grid.EntryText().empty()) text << " '" << Grid.EntryText() << "'";
    if (Fakes.Pointer.Beeps > 0) text << " b";
    return text.str();
  }
  /// Like "Test 2 Review @1,1* 3 N A": the test and what its button says, the grid, the ticks while the timer runs, N
  /// for a note, L for that of the limit at its opening, A for an autosave file.
  [[nodiscard]] std::string State() const {
    std::string text = "left";
    if (Entry.IsOpen())
      text =
          (Entry.DoneCaption() == "Review" ? Entry.TestCaption() + " " : "") + Entry.DoneCaption() + " " + GridState();
    if (Entry.Timer().IsRunning()) text += " " + std::to_string(Entry.Timer().Ticks());
    if (!Record.UnfinishedNote.empty()) text += " N";
    const std::string limit =
        "This subject cannot be saved incomplete.  You cannot have more than 10 unfinished data files.";
    if (!Entry.LimitNote().empty()) text += Entry.LimitNote() == limit ? " L" : Entry.LimitNote();
    if (Has("C:\\Param\\Temp.txt")) text += " A";
    EXPECT_TRUE(Entry.IsOpen() || Record.Lists == Lists(1, ""));
    return text + (Ended.UnfinishedEmptied ? " emptied" : "");
  }

  MessageBoxes& Boxes;
  FakePlatform Fakes;
  ProjectParameters Project;
  SubjectRecord Record;
  Preferences Chosen;
  SubjectEntry Entry{Record, Chosen, Fakes.With(Files, Boxes)};
  EntryGrid& Tools = Entry.Grid();
  TypedGrid& Grid = Tools.Cells();
  SubjectEntry::Ending Ended;
};

using BoxTable = std::map<std::string, ExpectedBox>;

/// Runs "setup; lists; keys; lists then; state; boxes" and looks at the shown test's lists and the grid's state; with
/// "-" for "lists then" at the screen's state. Boxes are named as in the table; "?Y" (N, C, R) says Yes (No, Cancel,
/// Retry).
inline void ExpectAll(const BoxTable& table, const std::vector<std::string>& cases) {
  for (const std::string& text : cases) {
    SCOPED_TRACE(text);
    std::string setup, lists, keys, after, state, names;
    std::istringstream stream(text);
    for (std::string* part : {&setup, &lists, &keys, &after, &state, &names}) {
      std::getline(stream >> std::ws, *part, ';');
    }
    ScriptedBoxes boxes;
    stream = std::istringstream(names);
    for (std::string name; std::getline(stream >> std::ws, name, ',');) {
      ExpectedBox box = table.at(name.substr(0, name.find('?')));
      if (name.back() == 'Y') box.Answer = BoxAnswer::Yes;
      if (name.back() == 'N') box.Answer = BoxAnswer::No;
      if (name.back() == 'C') box.Answer = BoxAnswer::Cancel;
      if (name.back() == 'R') box.Answer = BoxAnswer::Retry;
      boxes.Expect(box);
    }
    EntryDesk desk(boxes, setup, lists);
    const RecallLists start = desk.Record.Lists;
    desk.Press(keys);
    if (after == "-") {
      EXPECT_EQ(desk.State(), state);
      continue;
    }
    EXPECT_EQ(desk.GridState(), state);
    const int test = desk.Grid.Page();
    const RecallLists expected = desk.Lists(test, after);
    for (int i = 1; i <= desk.Grid.Lines(); ++i) EXPECT_EQ(desk.Record.Lists.At(test, i), expected.At(test, i)) << i;
    desk.Press(std::string(20, 'z'));
    EXPECT_EQ(desk.Record.Lists, start) << "undone";
  }
}

}  // namespace zova::testing
