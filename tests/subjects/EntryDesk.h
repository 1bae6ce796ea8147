// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "scoring/Examples.h"
#include "subjects/SubjectEntry.h"
#include "support/FailingFileLayer.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

namespace zova::testing {

/// The entry screen of subject "a1" in the project "Study", driven by scripts of keys.
struct EntryDesk {
  /// `setup` has letters: m minutes and r ratings are kept, l a list of 12 lines in place of 5, S and
  /// B the preferences Skip Minutes and Next Blank Space; and at its end the number of the test that `lists` begin with
  /// and that is shown; before all, 1 or 2 for as many tests in place of 3. The tests' flags are "Y", "N" and, as in an
  /// older file, "y".
  EntryDesk(MessageBoxes& shown, const std::string& setup, const std::string& lists) : boxes(shown) {
    const auto has = [&](char letter) { return setup.find(letter) < setup.size() - 1; };
    project = MakeProject({.Tests = 3, .Items = 5, .Minutes = 9, .MaxRating = 7, .Rated = "YNy"});
    if (has('1') || has('2')) project.TestCount = static_cast<std::int16_t>(setup.front() - '0');
    if (has('l')) project.ItemCount = 12;
    project.MinutesRecorded = has('m');
    project.Rated = has('r');
    project.Abbreviation = "Ex";
    project.ProjectFileName = "Study.prm";
    project.PrimaryDir = "C:\\P";
    project.BackupDir = "D:\\B";
    for (const char* directory : {"C:\\P", "D:\\B", "C:\\Param"}) scratch.MakeDirectory(directory);
    preferences = {.SkipMinutes = has('S'), .NextBlankSpace = has('B')};
    record.SubjectId = "a1";
    record.Lists = Lists(setup.back() - '0', lists);
    entry.Open(project, "C:\\Param");
    if (setup.back() != '1') grid.ShowTest(setup.back() - '0');
    grid.TakeChangedLines();
  }
  [[nodiscard]] RecallLists Lists(int test, const std::string& lists) const {
    return MakeLists(project, (test == 1 ? "" : test == 2 ? "| " : "| | ") + lists);
  }

  /// After each key the lines named as changed must be those that changed; all of another test.
  void Press(const std::string& keys) {
    for (const char key : keys) {
      const RecallLists before = record.Lists;
      const int test = grid.Test();
      PressOne(key);
      std::pair<int, int> lines = {1, 0};
      for (int line = grid.Lines(); line >= 1; --line) {
        if (test == grid.Test() && before.At(test, line) == record.Lists.At(test, line)) continue;
        lines = {line, std::max(line, lines.second)};
      }
      const auto changed = grid.TakeChangedLines();
      if (std::string("fFqQE").find(key) != std::string::npos) continue;  // these lay out the grid anew
      EXPECT_EQ(std::pair(changed.FirstLine, changed.LastLine), lines) << key;
    }
  }
  /// 3e: 3, Enter. udlr: arrows; capitals extend the selection. tT: Tab. c: clicks line 5, column 3. n: shows the next
  /// test. i insert, x delete, + and - bump, z undo, y redo. f: done with the test, F: with all. s: saves as
  /// incomplete, q: Cancel, Q: the program ends, E: the screen opens again. ". :" one tick, eleven. o, O: Autosave off,
  /// on. X, M: the Param directory vanishes, is back. N: nine others are unfinished.
  void PressOne(char key) {
    const std::string arrows = "udlrUDLR";
    if (const auto arrow = arrows.find(key); arrow != std::string::npos) {
      const EntryCell ways[] = {{-1, 0}, {1, 0}, {0, -1}, {0, 1}};
      const EntryCell way = ways[arrow % 4];
      return arrow < 4 ? grid.Move(way.Line, way.Column) : grid.ExtendSelection(way.Line, way.Column);
    }
    switch (key) {
      case 'e': static_cast<void>(grid.Enter()); return;
      case 't': return grid.Step(1);
      case 'T': return grid.Step(-1);
      case 'c': return grid.Click({5, 3});
      case 'n': return grid.ShowTest(grid.Test() + 1);
      case 'i': return grid.InsertLine();
      case 'x': return grid.DeleteSelectedLines();
      case '+': return grid.AddMinute();
      case '-': return grid.SubtractMinute();
      case 'z': return grid.Undo();
      case 'y': return grid.Redo();
      case 'f': return entry.DoneWithTest();
      case 'F': return static_cast<void>(ending = entry.DoneWithAllTests());
      case 's': return static_cast<void>(entry.SaveIncomplete());
      case 'q': return static_cast<void>(ending = entry.Cancel());
      case 'Q': return entry.Abandon();
      case 'E': return entry.Open(project, "C:\\Param");
      case '.': return entry.Tick();
      case ':': return Press("...........");
      case 'o': return entry.SetAutosave(false);
      case 'O': return entry.SetAutosave(true);
      case 'X': return static_cast<void>(std::filesystem::remove_all(scratch.Native("C:\\Param")));
      case 'M': return scratch.MakeDirectory("C:\\Param");
      case 'N':
        for (char i = '1'; i <= '9'; ++i) scratch.Put(std::string("C:\\P\\Sdata\\Unfinished\\Ex") + i + ".dat", "");
        return;
      default: return grid.SetEntryText(grid.EntryText() + key);
    }
  }

  /// Like "@2,1-3,1* '4' b": cursor and the other end of a selection, a star when there are unsaved changes, the box's
  /// text, a beep.
  [[nodiscard]] std::string GridState() const {
    const EntryBlock& block = grid.Selection();
    const auto [line, column] = grid.Cursor();
    std::ostringstream text;
    text << "@" << line << "," << column;
    if (!block.IsOneCell()) {
      text << "-" << block.FirstLine + block.LastLine - line << "," << block.FirstColumn + block.LastColumn - column;
    }
    if (record.HasUnsavedChanges) text << "*";
    if (!grid.EntryText().empty()) text << " '" << grid.EntryText() << "'";
    if (desktop.Beeps > 0) text << " b";
    return text.str();
  }
  /// Like "Test 2 Review @1,1* 3 N A": the test and what its button says, the grid, the ticks while the timer runs, N
  /// for a note, A for an autosave file.
  [[nodiscard]] std::string State() const {
    std::string text = "left";
    if (entry.IsOpen())
      text =
          (entry.DoneCaption() == "Review" ? entry.TestCaption() + " " : "") + entry.DoneCaption() + " " + GridState();
    if (entry.Timer().IsRunning()) text += " " + std::to_string(entry.Timer().Ticks());
    if (!record.UnfinishedNote.empty()) text += " N";
    if (scratch.Has("C:\\Param\\Temp.txt")) text += " A";
    EXPECT_TRUE(entry.IsOpen() || record.Lists == Lists(1, ""));
    return text + (ending.UnfinishedEmptied ? " emptied" : "");
  }

  Scratch scratch;
  FailingFileLayer layer{scratch.Layer()};
  Disk disk{layer, scratch.Drives()};
  MessageBoxes& boxes;
  FileErrorHandler errors{boxes};
  CountingDesktop desktop;
  ProjectParameters project;
  SubjectRecord record;
  Preferences preferences;
  SubjectEntry entry{record, preferences, {disk, boxes, errors, desktop}};
  EntryGrid& grid = entry.Grid();
  SubjectEntry::Ending ending;
};

using BoxTable = std::map<std::string, ExpectedBox>;

inline ExpectedBox Told(const std::string& text, BoxIcon icon = BoxIcon::Exclamation) {
  return {text, BoxAnswer::Ok, "", icon, BoxButtons::Ok};
}

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
    const RecallLists start = desk.record.Lists;
    desk.Press(keys);
    if (after == "-") {
      EXPECT_EQ(desk.State(), state);
      continue;
    }
    EXPECT_EQ(desk.GridState(), state);
    const int test = desk.grid.Test();
    const RecallLists expected = desk.Lists(test, after);
    for (int i = 1; i <= desk.grid.Lines(); ++i) EXPECT_EQ(desk.record.Lists.At(test, i), expected.At(test, i)) << i;
    desk.Press(std::string(20, 'z'));
    EXPECT_EQ(desk.record.Lists, start) << "undone";
  }
}

}  // namespace zova::testing
