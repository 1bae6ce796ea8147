// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/SubjectIdentification.h"

#include <sstream>

#include "support/FakePlatform.h"
#include "support/Study.h"

using namespace zova;
using namespace zova::testing;
using Identification = SubjectIdentification;
using enum Identification::Purpose;

namespace {

// The boxes by a letter: refusals, the question with its answer ('y', 'n', 'c'), a failed call given up or retried.
ExpectedBox BoxOf(char letter, const std::string& id) {
  static const std::map<char, std::string> kRefusals = {
      {'i', "Invalid Format."},
      {'d', "This is not a valid file format.  Please select a different file."},
      {'f', "This file is not a subject file for this experiment.  Please select another file."},
      {'m',
       "The subject identified does not exist. You can edit the subject identifier, or you could try browsing.  If you "
       "are trying to read data from a different project, you have to cancel the 'Read Old Data' screen and go to the "
       "'file', 'Open Existing Project' menu first."}};
  ExpectedBox box{"", BoxAnswer::Ok, "", BoxIcon::Exclamation, BoxButtons::Ok};
  if (const auto refusal = kRefusals.find(letter == 'o' ? 'm' : letter); refusal != kRefusals.end()) {
    box.Text = refusal->second;
    if (letter == 'o') box.Details = "The data of this subject are unfinished.";
  } else if (letter == 'e' || letter == 'r') {
    box.Text = TextOf(std::errc::io_error), box.Buttons = BoxButtons::RetryCancel;
    box.Answer = letter == 'r' ? BoxAnswer::Retry : BoxAnswer::Cancel;
  } else {
    box.Text = "Subject ID '" + id + "' already exists!  When this subject is saved it will delete the old data.  ";
    box.Text += "Are you sure you want to do this?", box.Buttons = BoxButtons::YesNoCancel, box.Default = BoxAnswer::No;
    box.Answer = letter == 'y' ? BoxAnswer::Yes : letter == 'n' ? BoxAnswer::No : BoxAnswer::Cancel;
  }
  return box;
}

struct Stage : Scratch, FakePlatform {
  explicit Stage(Identification::Purpose purpose, std::int16_t variables = 0, const char* marker = kCurrentMarker) {
    std::int16_t item = 0;  // the first of each file in turn
    for (const char* path : {"C:\\P\\Sdata\\Ex Sub#a.dat", "C:\\P\\Sdata\\Exo.dat", "D:\\Sdata\\Ex Sub#b.dat",
                             "C:\\P\\Sdata\\Unfinished\\Ex Sub#u.dat", "C:\\P\\Sdata\\Unfinished\\Ex Sub#a.dat",
                             "D:\\EX sub#a,b .dat", "D:\\Ex Sub#2345678901234567890x.bak", "D:\\Ex Sub#a.dat"}) {
      Put(path, "head\r\n1," + std::to_string(++item) + ",0,0\r\n2,0,0,0\r\n");
    }
    for (const char* path : {"C:\\P\\Sdata\\Ex Sub#s.dat", "D:\\Ex Sub#s.dat"}) Put(path, "head\r\n1,7,0,0\r\n");
    for (const auto& [name, project] : {std::pair("Temp 1.txt", "EX.PRM"), {"Temp 2.txt", "Other.prm"}}) {
      Put(JoinPath("C:\\Param", name), '"' + std::string(project) + "\"\r\n\"a\"\r\n1,9,0,0\r\n2,0,0,0\r\n");
    }
    Project = MakeProject({.Tests = 1, .Items = 2});
    Project.ProjectFileName = "Ex.prm", Project.Abbreviation = "Ex", Project.FormatMarker = marker;
    Project.PrimaryDir = "C:\\P", Project.BackupDir = "D:", Project.VariableNames = {"\xC3\xA2ge", "b"};
    Project.VariableCount = variables, Project.LevelCounts = {3, kMaxLevels}, Project.LevelNames[0] = {"young", "old"};
    Record.SubjectId = Record.UnfinishedNote = "old", Record.HasUnsavedChanges = true;
    Screen.Open(purpose, Project, "C:\\Param");
  }

  SubjectRecord Record;
  ProjectParameters Project;
  Identification Screen{Record, With(Files)};
};

}  // namespace

TEST(SubjectIdentification, WalksIdentifierAndLevelsBackAndForth) {
  Stage stage(NewSubject, 2);
  Identification& screen = stage.Screen;
  screen.SetSubjectText("y");
  EXPECT_EQ(screen.Finish(), Identification::Outcome::Stay) << "no level yet";
  EXPECT_EQ(screen.Counter(), "1 of 3");
  // Next, Back, or Next that is refused (x); what is typed before; step, text and what is allowed after it.
  std::istringstream rows(
      "x||1 of 3[]n;x|\",\t|1 of 3[]n;x|   |1 of 3[]n;x|..|1 of 3[]n;x|12.|1 of 3[]n;x|a/b|1 of 3[]n;x|a:b|1 of 3[]n;"
      "x|1234567890123456789\xF0\x9D\x84\x9Ex|1 of 3[]n;n| 1234567890123456789\xF0\x9D\x84\x9E |2 of 3[]bn;"
      "b||1 of 3[1234567890123456789\xF0\x9D\x84\x9E]n;n| x\"1\t,\r\n\x7f.5|2 of 3[]bn;x|0|2 of 3[0]bn;x|4|2 of 3[4]bn;"
      "x||2 of 3[]bn;x|3.51|2 of 3[3.51]bn;x|99999|2 of 3[99999]bn;n| 2.5 years|3 of 3[]bd;n|12|3 of 3[12]bd;"
      "b|11|2 of 3[2]bn;n|3|3 of 3[11]bd;b|12|2 of 3[3]bn;b|7|1 of 3[x1.5]n;b|y|1 of 3[y]n;n|z |2 of 3[3]bn");
  std::string key, typed, shown;
  while (std::getline(std::getline(std::getline(rows, key, '|'), typed, '|'), shown, ';')) {
    if (key == "x") stage.Boxes.Expect(BoxOf('i', ""));
    screen.AsksIdentifier() ? screen.SetSubjectText(typed) : screen.SetLevelText(typed);
    const int moves = screen.CursorRevision();
    key == "b" ? screen.Back() : static_cast<void>(screen.Next());
    std::string now = screen.Counter() + "[" + (screen.AsksIdentifier() ? screen.SubjectText() : screen.LevelText());
    now += screen.CanGoBack() ? "]b" : "]";
    EXPECT_EQ(now + (screen.CanGoNext() ? "n" : "") + (screen.CanFinish() ? "d" : ""), shown);
    EXPECT_TRUE(key != "x" || screen.CursorRevision() > moves) << typed;
  }
  EXPECT_EQ(screen.LevelsList(),
            "The levels for the \xC3\x82GE variable are: \n\n     1. young\n     2. old\n     3. \n");
  EXPECT_EQ(stage.Pointer.Beeps, 8);
  screen.Back(), screen.SetSubjectText("a");
  for (const char answer : {'n', 'y'}) {
    while (screen.CanGoNext()) screen.Next();
    stage.Boxes.Expect(BoxOf(answer, "a"));
    EXPECT_EQ(screen.Finish() == Identification::Outcome::OpenEntry, answer == 'y');
    EXPECT_EQ(screen.Counter(), answer == 'n' ? "1 of 3" : "3 of 3");
  }
  EXPECT_EQ(stage.Record.Levels[0] * 100 + stage.Record.Levels[1], 311);
}

TEST(SubjectIdentification, OpensWhatIsTypedOrChosen) {
  // New, Old or Unfinished (v, z: another marker); an identifier, or a file on D:; the boxes, after the number of the
  // file call that fails; identifier and first item of what is opened.
  std::istringstream rows(
      "N|a|n|;N|a|c|;N|A|y|A 0;N|o||o 0;N|u||u 0;N|b||b 0;N|b|1e|;N|b|1r|b 0;v|o|y|o 0;z|o||o 2;"
      "z|EX sub#a,b .dat|| sub#a,b  6;O| a||a 1;O|A||a 1;O|u|o|;O|s|d|;O|?|i|;O|a|1e|;O|a|4e|;O|a|4r|a 1;"
      "O|EX sub#a,b .dat||a,b  6;O|Ex Sub#2345678901234567890x.bak||2345678901234567890x 7;O|Ex Sub#s.dat|d|a 8;"
      "O|Exo.dat|f|;O|Ex Sub#a|f|;O|Ex Sub#a\"b.dat|f|;O|Ex Sub#\xFC.dat|f|;O|Ex Sub#.dat|f|;O|Ex Sub#a.dat|2e|;U|u||u "
      "4;"
      "U|s|m|;U|a|n|;U|a|c|;U|a|y|a 5;U|a|3e|;O|C:\\Param\\Temp 1.txt||a 9;"
      "O|C:\\Param\\Temp 2.txt|f|;U|C:\\Param\\temp 1.txt|n|;U|C:\\Param\\Temp 1.txt|y|a 9;U|Ex Sub#a.dat|n|;U|Ex "
      "Sub#a.dat|y|a 8");
  std::string key, entered, boxes, opened;
  while (
      std::getline(std::getline(std::getline(std::getline(rows, key, '|'), entered, '|'), boxes, '|'), opened, ';')) {
    const Identification::Purpose purpose = key == "U" ? Unfinished : key == "O" || key == "z" ? OldData : NewSubject;
    Stage stage(purpose, 0, key == "v" ? "VB 2" : key == "z" ? kOldestMarker : kCurrentMarker);
    const bool isFile = entered.size() > 5;
    if (isFile) stage.Dialogs.Answers = {entered[1] == ':' ? entered : "D:\\" + entered};
    if (isFile && boxes == "d") stage.Dialogs.Answers.emplace_back("D:\\Ex Sub#a.dat");
    if (boxes.size() > 1) stage.Faults.FailAt(boxes[0] - '0', std::errc::io_error);
    if (!boxes.empty()) stage.Boxes.Expect(BoxOf(boxes.back(), isFile ? "a" : entered));
    Identification& screen = stage.Screen;
    screen.SetSubjectText(entered);
    const int moves = screen.CursorRevision();
    const auto outcome = isFile ? screen.Browse() : purpose == NewSubject ? screen.Finish() : screen.LoadTyped();
    const bool opens = outcome == Identification::Outcome::OpenEntry;
    const int item = stage.Record.Lists.At(1, 1).Item;
    EXPECT_EQ(opens ? stage.Record.SubjectId + " " + std::to_string(item) : "", opened) << key << entered;
    if (opens) {
      const bool isLoaded = purpose != NewSubject && entered.find("Temp") == std::string::npos;
      EXPECT_EQ(stage.Record.KnownFiles.size(), (isLoaded ? 1U : 0U) + (boxes == "y" ? 1U : 0U)) << key << entered;
      for (const auto& [path, content] : stage.Record.KnownFiles) {
        std::string bytes;
        stage.Files.Read(path, bytes);
        EXPECT_EQ(content, bytes) << path;
      }
    } else {
      SubjectRecord blank;
      ResetLists(blank, stage.Project);
      EXPECT_EQ(stage.Record, blank) << key << entered;
      EXPECT_GT(screen.CursorRevision(), moves) << key << entered;
    }
    const std::string directory = purpose == Unfinished ? "C:\\P\\Sdata\\Unfinished" : "C:\\P\\Sdata";
    for (const FileQuestion& question : stage.Dialogs.Questions) EXPECT_EQ(question.Directory, directory);
  }
}
