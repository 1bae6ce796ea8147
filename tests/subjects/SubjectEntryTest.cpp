// SPDX-License-Identifier: GPL-3.0-or-later
//
// The entry screen: the walk through the tests, the checks, every way out, the autosave, and disks that fail.

#include <random>

#include "subjects/EntryDesk.h"
#include "subjects/SubjectFile.h"

using namespace zova;
using namespace zova::testing;

namespace {

ExpectedBox OutOfRange(const std::string& value) {
  return Warned(value + " is out of range.  Do you wish to save the data as they are?", BoxAnswer::No);
}

const BoxTable kBoxes = {
    {"saved", Told("Completed subject saved.", BoxIcon::Information)},
    {"kept", Told("Incomplete subject saved.", BoxIcon::Information)},
    {"note 1",
     Told("This is unfinished subject #1 for 'Study'.  NOTE: You cannot have more than 10.", BoxIcon::Information)},
    {"note 10",
     Told("This is unfinished subject #10 for 'Study'.  NOTE: You cannot have more than 10.", BoxIcon::Information)},
    {"minutes", {"You cannot enter minutes for this project.", BoxAnswer::Ok, "'3' in the entry box was not taken."}},
    {"range", {"The entered number was out of item range.", BoxAnswer::Ok, "'9' in the entry box was not taken."}},
    {"item", OutOfRange("Test 1, line 2: the item 9")},
    {"minute", OutOfRange("Test 2, line 1: the minute 10")},
    {"rating", OutOfRange("Test 1, line 1: the rating -8")},
    {"limit", Told("You cannot have more than 10 unfinished data files.")},
    {"space", Told("There was a space detected in the data.  Please correct the data.")},
    {"twice",
     Told("Duplicate entry found! Item # 1 was located in positions 1 and 2 of test 1.  Item in position 2 has "
          "been deleted.  Please edit the raw data.  You will be given a chance to review the data.")},
    {"lose",
     {"You will lose all unsaved changes.  Are you sure that you want to do this?", BoxAnswer::No, "",
      BoxIcon::Exclamation, BoxButtons::YesNoCancel, BoxAnswer::No}},
    {"blank",
     {"Test number 2 was blank.  Do you wish to edit the data?", BoxAnswer::No, "", BoxIcon::Exclamation,
      BoxButtons::YesNo, BoxAnswer::Yes, "Warning"}},
    {"full", {TextOf(std::errc::no_space_on_device), BoxAnswer::Cancel}},
    {"path", {"Path not found.  Please verify that the correct disk is in the drive.", BoxAnswer::Cancel, "Temp.txt"}}};

}  // namespace

TEST(SubjectEntry, WalksThroughTheTests) {
  ExpectAll(kBoxes, {"2r1; ; ; -; Done with Test 1 @1,1 0", "2r1; ; 1ef; -; Done with Test 2 @1,1* 0",
                     "2r1; ; fff; -; Done with Test 1 @1,1 0", "2r1; ; ff; -; Test 2 Review @1,1 0",
                     "2r1; ; ff3ez; -; Test 2 Review @1,1* 0", "2r1; ; 3eff; -; Test 2 Review @1,1* 0",
                     "2r1; ; 3effz; -; Done with Test 1 @1,1* 0", "2r1; ; 3effzf; -; Done with Test 2 @1,1* 0"});
  ScriptedBoxes boxes;
  EntryDesk desk(boxes, "2r1", "1 2 | 3");
  desk.Press("ff2e");
  EXPECT_EQ(desk.Record.Lists.At(2, 1).Item, 2) << "typed in the review";
  EXPECT_EQ(desk.Entry.SubjectCaption(), "Project: Study\nSubject: a1");
}

TEST(SubjectEntry, ChecksBeforeItSaves) {
  ExpectAll(kBoxes,
            {"2r1; 1/0/1 | 2; F; -; left; saved", "2r1; 1/0/1 2 | 2; ffF; -; Done with Test 1 @2,3 b 0; space",
             "2r1; 1/0/1 | 0 2; ffF; -; Done with Test 2 @1,1 b 0; space", "2r1; 1/0/1; F; -; left; blank?N, saved",
             "2r1; 1/0/1 0/0/5; F; -; Done with Test 2 @1,1* 0; blank?Y",
             "2r1; 1/0/1 0/0/5; Fz; -; Done with Test 1 @2,3* 0; blank?Y",
             "2r1; 1/0/1 1/0/2 1/0/3 | 2; F; -; Done with Test 1 @2,1* b 0; twice",
             "2r1; 1/0/1 1/0/2 1/0/3 | 2; FF; -; Done with Test 1 @2,1* b 0; twice, twice",
             "2r1; 1/0/1 1/0/2 1/0/3 | 2; FFF; -; left; twice, twice, saved",
             "r1; 1/0/1 0/0/5 | | 3/0/1 0/0/5; F; ; @1,1*; blank?Y",
             "2r1; 1/0/1 1/0/2 1/0/3 | 2; FzFF; -; Done with Test 1 @2,1* b 0; twice, twice, twice"});
}

TEST(SubjectEntry, AsksBeforeItSavesWhatCannotBeTyped) {
  ExpectAll(kBoxes, {"2r1; 1/0/1 9/0/1 | 2; ffF; -; Done with Test 1 @2,1 0; item?N",
                     "2r1; 1/0/1 9/0/1 | 2; F; -; left; item?Y, saved",
                     "2m1; 1/9 2/9 | 3/10; s; -; Done with Test 2 @1,2 0; minute?N",
                     "2r1; 1/0/-8 9/0/1 | 2; ss; -; Done with Test 1 @1,3 0; rating?N, rating?N",
                     "2r1; 1/10/1 | 2/10/-8; F; -; left; saved"});
  ScriptedBoxes boxes{OutOfRange("Variable 'Group': the level 4")};
  EntryDesk desk(boxes, "2r1", "");
  desk.Project.VariableCount = 1, desk.Project.VariableNames[0] = "Group", desk.Project.LevelCounts[0] = 3;
  desk.Record.Levels[0] = 4;
  desk.Press("s");
  EXPECT_EQ(desk.State(), "Done with Test 1 @1,1 0");
}

TEST(SubjectEntry, EndsInEveryWay) {
  ExpectAll(kBoxes, {"2r1; ; q; -; left",
                     "2r1; ; Q; -; left",
                     "2r1; 1/0/1; 3efq; -; Done with Test 2 @1,1* 0; lose?N",
                     "2r1; 1/0/1; 3eq; -; Done with Test 1 @1,3* 0; lose?C",
                     "2r1; ; 3e.foq; -; left; lose?Y",
                     "2r1; ; 3e.fQ; -; left",
                     "2r1; ; 3es; -; Done with Test 1 @1,3 0 N; kept",
                     "2r1; ; 3e.fs; -; Done with Test 2 @1,1 0 N; kept",
                     "2r1; ; rrLL3s; -; Done with Test 1 @1,3 0 N; kept",
                     "2r1; ; R3s; -; Done with Test 1 @1,2 b 0; minutes",
                     "2r1; ; RL3f; -; Done with Test 2 @1,1* 0",
                     "2r1; ; 9f; -; Done with Test 1 @1,1 b 0; range",
                     "2r1; ; sq; -; left; kept, note 1",
                     "2r1; ; s3eQ; -; left; kept, note 1",
                     "2r1; ; s3eq; -; left; kept, lose?Y, note 1",
                     "2r1; 1/0/1 | 2; .foF; -; left; saved",
                     "2r1; 1/0/1 | 2; sF; -; left emptied; kept, saved",
                     "2r1; 1/0/1 2 | 2; sF; -; Done with Test 1 @2,3 b 0 N; kept, space",
                     "2r1; 1/0/1 | 2; NsF; -; left; kept, saved",
                     "2r1; ; NsQ; -; left; kept, note 10",
                     "2r1; ; Nss; -; Done with Test 1 @1,1 0 N; kept, limit",
                     "2r1; ; NE; -; Done with Test 1 @1,1 0",
                     "2r1; ; NsE; -; Done with Test 1 @1,1 0 N L; kept",
                     "2r1; ; qfFsqQO.z; -; left",
                     "1r1; ; fqE; -; Done with Test 1 @1,1 0",
                     "1r1; ; f; -; Test 1 Review @1,1 0",
                     "2r1; 1/0/1 | 2; s2e.WF; -; Done with Test 1 @1,3* 1 N; kept, full?C",
                     "2r1; ; 2e.Ws; -; Done with Test 1 @1,3* 1; full?C",
                     "2r1; 1/0/1 | 2; WFF; -; left; full?C, saved",
                     "2r1; ; 3eqEz; -; Done with Test 1 @1,1 0; lose?Y",
                     "2r1; ; X:MqE:; -; Done with Test 1 @1,1 0 A; path?C"});
}

TEST(SubjectEntry, AutosavesOnTheEleventhTick) {
  ExpectAll(
      kBoxes,
      {"2r1; ; ..........; -; Done with Test 1 @1,1 10", "2r1; ; :; -; Done with Test 1 @1,1 0 A",
       "2r1; ; f; -; Done with Test 2 @1,1 0", "2r1; ; ..f; -; Done with Test 2 @1,1 0 A",
       "2r1; ; o:; -; Done with Test 1 @1,1", "2r1; ; ..o; -; Done with Test 1 @1,1",
       "2r1; ; ..oO.; -; Done with Test 1 @1,1 1", "2r1; ; :o; -; Done with Test 1 @1,1 A",
       "2r1; ; o.fs:; -; Done with Test 2 @1,1 0 N A; kept", "2r1; ; os.f; -; Done with Test 2 @1,1 1 N; kept",
       "2r1; ; ....s; -; Done with Test 1 @1,1 0 N; kept", "2r1; ; X::M:; -; Done with Test 1 @1,1 0; path?C",
       "2r1; ; X:M.f; -; Done with Test 2 @1,1 0 A; path?C", "2r1; ; X:Mf:; -; Done with Test 2 @1,1 0 A; path?C",
       "2r1; ; X.f:; -; Done with Test 2 @1,1 0; path?R, path?C", "2r1; ; X:MoO:; -; Done with Test 1 @1,1 0 A; path?C",
       "2r1; ; X:Ms:; -; Done with Test 1 @1,1 0 N A; path?C, kept",
       "2r1; ; X:oO:; -; Done with Test 1 @1,1 0; path?C, path?C"});
  for (const std::string autosave : {"O", "o"}) {
    ScriptedBoxes boxes;
    EntryDesk desk(boxes, "2r1", "1/0/1 | 2");
    desk.Press(autosave);
    desk.Put("C:\\Param\\Temp.txt", "restored");
    desk.Entry.Open(desk.Project, "C:\\Param", true);
    EXPECT_EQ(desk.State(), autosave == "O" ? "Done with Test 1 @1,1* 0 A" : "Done with Test 1 @1,1*");
    if (autosave == "o") continue;
    EXPECT_EQ(desk.Get("C:\\Param\\Temp.txt"), FormatAutosave(desk.Record, desk.Project));
  }
}

// Acts of any kind in any order, in projects of the least and the largest shapes: what is saved, also by the autosave,
// can be read back and is what was entered, and nothing is entered that could not be typed.
TEST(SubjectEntry, TakesAnyActInAnyProject) {
  struct AnyBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox& box) override {
      if (OnBox) OnBox(box.Text);
      const bool isYes = (Random() >> 8) % 2 == 0;
      return box.Buttons == BoxButtons::Ok ? BoxAnswer::Ok : isYes ? BoxAnswer::Yes : BoxAnswer::No;
    }
    std::minstd_rand Random;
    std::function<void(const std::string&)> OnBox;
  };
  const Shape shapes[] = {{.Tests = 1, .Items = 1},
                          {.Tests = 1, .Items = 1, .Minutes = 1, .MaxRating = 1, .Rated = "Y"},
                          {.Tests = 2, .Items = 4, .Minutes = 32767, .MaxRating = 32767, .Rated = "N"},
                          {.Tests = 3, .Items = 6, .MaxRating = 2, .Rated = "YNy", .Variables = {"Sex"}},
                          {.Tests = 15, .Items = 999, .Minutes = 6000, .MaxRating = 1000, .Rated = "YYYYYYYYYYYYYYY"}};
  int saves = 0;
  for (unsigned seed = 1; seed <= 10; ++seed) {
    const Shape& shape = shapes[seed % std::size(shapes)];
    AnyBoxes boxes;
    boxes.Random.seed(seed);
    const auto any = [&](std::size_t count) { return (boxes.Random() >> 8) % count; };
    EntryDesk desk(boxes, "1r1", "");
    ProjectParameters project = MakeProject(shape);
    project.BackupDir = "D:\\B";
    if (seed > std::size(shapes)) project.MinutesRecorded = 1;  // also with at most 0 minutes
    project.LevelCounts[0] = 3;
    desk.Project = project;
    const auto begin = [&] {
      desk.Record = {};
      desk.Record.SubjectId = "a1", desk.Record.Levels[0] = shape.Variables.empty() ? 0 : 3;
      ResetLists(desk.Record, project);
      desk.PressOne('E');
    };
    begin();
    const auto expectEntered = [&](SubjectRecord again) {
      for (int test = 1; test <= project.TestCount; ++test) {  // the counts are those of the last checks
        again.Lists.RecallCount(test) = desk.Record.Lists.RecallCount(test);
      }
      EXPECT_EQ(again.Lists, desk.Record.Lists);
      EXPECT_EQ(again.Levels, desk.Record.Levels);
    };
    boxes.OnBox = [&](const std::string& text) {
      if (!text.ends_with(" subject saved.")) return;
      ++saves;
      const std::string directory = text[0] == 'C' ? "C:\\Data\\Sdata\\" : "C:\\Data\\Sdata\\Unfinished\\";
      SubjectRecord again;
      LoadSubjectFile(desk.Files, directory + "AB Sub#a1.dat", project, again);
      expectEntered(again);
    };
    const std::string acts = "00112233456789eeeeeeeettTTudlrUDLRix+-zzyfFsoO.:pPwSB";
    for (int act = 0; act < 300; ++act) {
      const char key = acts[any(acts.size())];
      SCOPED_TRACE("seed " + std::to_string(seed) + ", act " + std::to_string(act) + ", " + key);
      const GridCell cell{static_cast<int>(any(static_cast<std::size_t>(desk.Grid.Lines()))) + 1,
                          static_cast<int>(any(3)) + 1};
      switch (key) {
        case 'p': desk.Grid.Paste("1\t1\t1\r\n2\t1\t2\r\n"); break;
        case 'P': desk.Grid.Paste(desk.Grid.Copy()); break;
        case 'w': desk.Grid.Click(cell); break;
        case 'S': desk.Chosen.SkipMinutes = !desk.Chosen.SkipMinutes; break;
        case 'B': desk.Chosen.NextBlankSpace = !desk.Chosen.NextBlankSpace; break;
        default: desk.Grid.FetchChangedLines(), desk.PressOne(key);
      }
      if (!desk.Entry.IsOpen()) begin();
      const GridCell cursor = desk.Grid.Cursor();
      ASSERT_EQ(cursor.Line, std::clamp<int>(cursor.Line, 1, project.ItemCount));
      ASSERT_EQ(cursor.Column, std::clamp(cursor.Column, 1, 3));
      ASSERT_EQ(desk.Grid.Page(), std::clamp<int>(desk.Grid.Page(), 1, project.TestCount));
      ASSERT_FALSE(FindOutOfRange(desk.Record, project));
      if (act % 10 > 0) continue;
      SubjectRecord restored;
      ParseAutosave(FormatAutosave(desk.Record, project), project, restored);
      expectEntered(restored);
    }
  }
  EXPECT_GT(saves, 10);
}
