// SPDX-License-Identifier: GPL-3.0-or-later
//
// The screen of all subjects: its table, and what its acts leave on the disk, with every single call failing, and with
// the program killed there.

#include "session/SubjectsScreen.h"

#include <chrono>

#include "project/FileChanges.h"
#include "support/FakePlatform.h"
#include "support/Study.h"
#include "words/SecondSample.h"

namespace zova::testing {
namespace {

ProjectParameters Project() {
  ProjectParameters project = MakeProject({.Tests = 2, .Items = 12, .Minutes = 3, .Variables = {"Age, in years"}});
  project.BackupDir = "D:\\B";
  project.LevelCounts[0] = 3;
  project.LevelNames[0] = {"young", "old", "oldest"};
  return project;
}

std::string Bytes(const std::string& id, const std::string& lists, std::int16_t level = 1) {
  SubjectRecord record;
  record.SubjectId = id;
  record.Levels[0] = level;
  record.Lists = MakeLists(Project(), lists);
  return FormatSubject(record, Project());
}

// Answers Yes to questions, and `fault` to the boxes of faults.
struct YesBoxes final : MessageBoxes {
  explicit YesBoxes(BoxAnswer fault) : Fault(fault) {}
  BoxAnswer Show(const MessageBox& box) override {
    Texts.push_back(box.Text);
    if (box.Buttons == BoxButtons::RetryCancel) return Fault;
    return box.Buttons == BoxButtons::YesNo ? BoxAnswer::Yes : BoxAnswer::Ok;
  }
  BoxAnswer Fault;
  std::vector<std::string> Texts;
};

// The subject "ab" with all that can be of one, in both directories, and others that stay as they are.
void PutSubjects(const Scratch& scratch) {
  for (const std::string root : {"C:\\Data\\", "D:\\B\\"}) {
    scratch.Put(root + "Sdata\\AB Sub#ab.dat", Bytes("ab", "1/1 2/1 | 3/1"));
    scratch.Put(root + "Sdata\\AB Sub#abc.dat", Bytes("abc", "1/1 | 3/1", 2));
    scratch.Put(root + "Sdata\\Unfinished\\AB Sub#ab.dat", Bytes("ab", "1/1 |"));
    scratch.Put(root + "Sdata\\Second\\AB Sub#ab.dat", Bytes("ab", "1/1 2/2 | 3/1"));
    scratch.Put(root + "AB Intrusions.csv",
                "subject,test,place,response,minute,rating\r\nab,1,0,\"x, y\",,\r\nabc,1,0,z,,\r\n");
  }
  scratch.Put("C:\\Data\\AB Combine Order.dat", "\"ab\",2\r\n\"abc\",1\r\n");
  scratch.Put("C:\\Data\\Sdata\\Removed\\AB Sub#ab.dat", Bytes("ab", "5/1 |"));
}

Tree FilesOf(const Scratch& scratch) {
  Tree files = scratch.Snapshot();
  std::erase_if(files, [](const auto& file) {
    return file.first.ends_with('/') ||
           (file.first.ends_with(".tmp") && file.first.find(".zova-") != std::string::npos);
  });
  return files;
}

struct Desk {
  Desk(Scratch& scratch, MessageBoxes& boxes) : On(Fakes.With(scratch.Files, boxes)), Screen(On) {
    Screen.Open(Of);
    Screen.Read();
  }
  void Choose(const std::string& file, bool isRemoved = false) {
    const auto line = Screen.Table().LineOf(file, isRemoved);
    if (line) Screen.Choose({*line});
  }
  void Rename(const std::string& id) {
    Screen.AskName();
    Screen.SetNewName(id);
    Screen.Answer();
  }
  ProjectParameters Of = Project();
  FakePlatform Fakes;
  Platform On;
  SubjectsScreen Screen;
};

struct Act {
  std::string What;
  std::function<void(Desk&)> Do;
};

const std::string kRename = "rename";
const std::string kRemove = "remove";
const std::string kBringBack = "bring back";

const Act kActs[] = {{kRename, [](Desk& desk) { desk.Choose("AB Sub#ab.dat"), desk.Rename("x y"); }},
                     {"respell", [](Desk& desk) { desk.Choose("AB Sub#ab.dat"), desk.Rename("AB"); }},
                     {kRemove, [](Desk& desk) { desk.Choose("AB Sub#ab.dat"), desk.Screen.Remove(); }},
                     {kBringBack,
                      [](Desk& desk) {
                        desk.Choose("AB Sub#ab.dat"), desk.Rename("cd");
                        desk.Choose("AB Sub#ab.dat", true), desk.Screen.BringBack();
                      }},
                     {"levels", [](Desk& desk) {
                        desk.Choose("AB Sub#ab.dat"), desk.Screen.AskLevels();
                        desk.Screen.ChooseLevel(0, 3), desk.Screen.Answer();
                      }}};

std::string RowsOf(const SubjectsScreen& screen) {
  std::string text;
  for (std::size_t line = 0; line < screen.Table().LineCount(); ++line) {
    for (std::size_t column = 0; column + 1 < screen.Table().Headings().size(); ++column) {
      text += (column == 0 ? "" : "|") + screen.Table().Text(line, column);
    }
    text += "\n";
  }
  return text;
}

TEST(SubjectsScreen, ChangesEverythingOfASubject) {
  Scratch scratch;
  PutSubjects(scratch);
  YesBoxes boxes(BoxAnswer::Cancel);
  Desk desk(scratch, boxes);
  kActs[0].Do(desk);
  Tree files = FilesOf(scratch);
  for (const std::string root : {"C/Data/", "D/B/"}) {
    EXPECT_EQ(files[root + "Sdata/AB Sub#x y.dat"], Bytes("x y", "1/1 2/1 | 3/1"));
    EXPECT_EQ(files[root + "Sdata/Unfinished/AB Sub#x y.dat"], Bytes("x y", "1/1 |"));
    EXPECT_EQ(files[root + "Sdata/Second/AB Sub#x y.dat"], Bytes("x y", "1/1 2/2 | 3/1"));
    EXPECT_EQ(files[root + "AB Intrusions.csv"],
              "subject,test,place,response,minute,rating\r\nx y,1,0,\"x, y\",,\r\nabc,1,0,z,,\r\n");
  }
  EXPECT_EQ(files["C/Data/AB Combine Order.dat"], "\"x y\",2\r\n\"abc\",1\r\n");
  EXPECT_EQ(files.size(), 12U);
  desk.Screen.AskLevels(), desk.Screen.ChooseLevel(0, 3), desk.Screen.Answer();
  EXPECT_EQ(scratch.Get("D:\\B\\Sdata\\Unfinished\\AB Sub#x y.dat"), Bytes("x y", "1/1 |", 3));
  EXPECT_EQ(RowsOf(desk.Screen),
            "ab|removed|young|1|0||none\n"
            "abc|complete|old|1|1||none\n"
            "x y|complete, unfinished|oldest|2|1||2 differences\n");
  kActs[2].Do(desk);  // no such subject: the one chosen goes
  EXPECT_EQ(boxes.Texts.back(), "Do you wish to remove subject 'x y'?  The files are moved to 'Sdata\\Removed'.");
  desk.Choose("AB Sub#ab.dat", true), desk.Screen.BringBack();
  desk.Screen.Remove();
  files = FilesOf(scratch);
  EXPECT_TRUE(files.contains("C/Data/Sdata/Removed/AB Sub#ab.dat"));
  EXPECT_EQ(files["D/B/Sdata/Removed/Second/AB Sub#x y.dat"], Bytes("x y", "1/1 2/2 | 3/1"));
  EXPECT_EQ(files.size(), 12U);
}

TEST(SubjectsScreen, ARemovedNameGetsANumberAndComesBack) {
  Scratch scratch;
  PutSubjects(scratch);
  YesBoxes boxes(BoxAnswer::Cancel);
  Desk desk(scratch, boxes);
  kActs[2].Do(desk);
  EXPECT_EQ(scratch.Get("D:\\B\\Sdata\\Removed\\AB Sub#ab (2).dat"), Bytes("ab", "1/1 2/1 | 3/1"));
  EXPECT_EQ(RowsOf(desk.Screen),
            "ab|removed (2)|young|2|1||1 difference\nab|removed|young|1|0||none\nabc|complete|old|1|1||none\n");
  scratch.Put("C:\\Data\\Sdata\\Removed\\AB Sub#AB (3).dat", Bytes("AB", "6/1 |"));
  desk.Screen.Read();
  const auto both = {*desk.Screen.Table().LineOf("AB Sub#ab (2).dat", true),
                     *desk.Screen.Table().LineOf("AB Sub#AB (3).dat", true)};
  desk.Screen.Choose(both), desk.Screen.BringBack();
  EXPECT_EQ(boxes.Texts.back().substr(0, 11), "A subject '") << "the one brought back before has the name";
  EXPECT_EQ(scratch.Get("C:\\Data\\Sdata\\Unfinished\\AB Sub#ab.dat"), Bytes("ab", "1/1 |"));
  desk.Choose("AB Sub#ab.dat", true), desk.Screen.BringBack();
  EXPECT_EQ(boxes.Texts.back(), "A subject 'ab' already exists.");
}

TEST(SubjectsScreen, RefusesWhatWouldLoseSomething) {
  const std::pair<const char*, const char*> cases[] = {{"ABC", "A subject 'ABC' already exists."},
                                                       {"a/b", "Invalid Format."},
                                                       {" ", "Invalid Format."},
                                                       {"z",
                                                        "'AB Intrusions.csv' already has lines of a subject 'z'.  "
                                                        "Please select another identifier."}};
  Scratch scratch;
  PutSubjects(scratch);
  scratch.Put("D:\\B\\AB Intrusions.csv", "subject,test,place,response,minute,rating\r\nz,1,0,z,,\r\n");
  const Tree before = FilesOf(scratch);
  for (const auto& [id, message] : cases) {
    YesBoxes boxes(BoxAnswer::Cancel);
    Desk desk(scratch, boxes);
    desk.Choose("AB Sub#ab.dat"), desk.Rename(id);
    EXPECT_EQ(boxes.Texts, std::vector<std::string>{message});
    EXPECT_EQ(desk.Screen.Asked(), SubjectsScreen::Question::Name);
    EXPECT_EQ(FilesOf(scratch), before);
  }
}

TEST(SubjectsScreen, ChangesAllOrNothingWhateverCallFails) {
  for (const auto& [what, act] : kActs) {
    Tree before, after;
    for (const auto& [answer, isKilled] : {std::pair{BoxAnswer::Retry, false}, std::pair{BoxAnswer::Cancel, false},
                                           std::pair{BoxAnswer::Cancel, true}}) {
      const int step = kFailureStep * (!isKilled ? 11 : what == kRename ? 1 : 5);
      bool failed = false;
      int changed = 0;
      for (int n = 0; n <= step || failed; n += step) {
        Scratch scratch;
        PutSubjects(scratch);
        if (n == 0) before = FilesOf(scratch);
        YesBoxes boxes(answer);
        Desk desk(scratch, boxes);
        isKilled ? scratch.Faults.KillAt(n) : scratch.Faults.FailAt(n, std::errc::io_error);
        act(desk);
        failed = scratch.Faults.HasFailed();
        const std::string call = what + ": " + scratch.Faults.FailedCall() + " " + std::to_string(n);
        scratch.Faults.FailNever();
        EXPECT_TRUE(FinishInterruptedChanges(desk.Of, desk.On)) << call;
        const Tree files = FilesOf(scratch);
        if (n == 0) after = files;
        changed += files == after ? 1 : 0;
        if (answer == BoxAnswer::Retry) {
          EXPECT_EQ(files, after) << call;
        } else if (what != kBringBack) {
          EXPECT_TRUE(files == before || files == after) << call;
        } else {
          EXPECT_EQ(files.size(), before.size()) << call;
        }
      }
      EXPECT_GT(changed, 1) << what;
    }
  }
}

// A journal that stayed, or came back, changes nothing that was changed since; one from elsewhere leaves the project's
// directories alone.
TEST(FileChanges, AnOldJournalOverwritesNothing) {
  Scratch scratch;
  scratch.Put("C:\\Data\\Sdata\\a", "new");
  scratch.Put("C:\\Data\\b", "old");
  const FileChanges changes{"A change",
                            {{false, "Sdata/a", "old", "older"},
                             {false, "b", "old\n", std::nullopt},
                             {false, "c", std::nullopt, "c\r\n"},
                             {false, "b", "old", std::nullopt}}};
  const FileChanges rename{"A rename",
                           {{false, "new", std::nullopt, "n"},
                            {false, "b", "old", std::nullopt},
                            {true, "new", std::nullopt, "n"},
                            {true, "b", "old", std::nullopt},
                            {false, "Sdata/a", "new", "of n"}}};
  EXPECT_EQ(ParseJournal(FormatJournal(changes)), changes);
  FakePlatform fakes;
  // Another file has the new name meanwhile: the old one is the only copy.
  scratch.Put("C:\\Data\\new", "another");
  scratch.Put("D:\\B\\b", "old");
  scratch.Put("C:\\Data\\.zova-AB.journal", FormatJournal(rename));
  fakes.Boxes.Expect(
      {.Text = "A rename was interrupted.  It has been completed, but for files that have changed since.",
       .Details = "'C:\\Data\\new'\n'C:\\Data\\b'\n'D:\\B\\b'\n'C:\\Data\\Sdata\\a'\n"});
  EXPECT_TRUE(FinishInterruptedChanges(Project(), fakes.With(scratch.Files)));
  EXPECT_EQ(FilesOf(scratch), (Tree{{"C/Data/Sdata/a", "new"},
                                    {"C/Data/b", "old"},
                                    {"C/Data/new", "another"},
                                    {"D/B/b", "old"},
                                    {"D/B/new", "n"}}));
  for (const char* file : {"C:\\Data\\new", "D:\\B\\b", "D:\\B\\new"}) scratch.Files.Delete(file);
  scratch.Put("C:\\Data\\.zova-AB.journal", FormatJournal(changes));
  fakes.Boxes.Expect(
      {.Text = "A change was interrupted.  It has been completed, but for files that have changed since.",
       .Details = "'C:\\Data\\Sdata\\a'\n"});
  EXPECT_TRUE(FinishInterruptedChanges(Project(), fakes.With(scratch.Files)));
  EXPECT_EQ(FilesOf(scratch), (Tree{{"C/Data/Sdata/a", "new"}, {"C/Data/c", "c\r\n"}}));
  if (!kIsWindows) {  // another subject's file is not the one that is to be made
    scratch.Put("C:\\Data\\Sdata\\AB Sub#A.dat", "A");
    scratch.Put("C:\\Data\\.zova-AB.journal",
                FormatJournal({"", {{false, "Sdata/AB Sub#a.dat", {}, "a"}, {false, "Sdata/a", "new", {}}}}));
    EXPECT_TRUE(FinishInterruptedChanges(Project(), fakes.With(scratch.Files)));
    EXPECT_EQ(FilesOf(scratch),
              (Tree{{"C/Data/Sdata/AB Sub#A.dat", "A"}, {"C/Data/Sdata/AB Sub#a.dat", "a"}, {"C/Data/c", "c\r\n"}}));
  }
  for (const char* name : {"../x", "Sdata/../../x", "C:/x", "/x", "..\\x", ""}) {
    EXPECT_FALSE(ParseJournal(FormatJournal({"", {{false, name, {}, "x"}}}))) << name;
  }
  const std::string whole = FormatJournal(changes);
  for (std::size_t size = 0; size < whole.size(); ++size) EXPECT_FALSE(ParseJournal(whole.substr(0, size))) << size;
}

TEST(SubjectsScreen, FiltersAndSortsByEveryColumn) {
  Scratch scratch;
  const auto put = [&](const std::string& name, const std::string& bytes) {
    scratch.Put("C:\\Data\\Sdata\\" + name, bytes);
  };
  put("AB Sub#a.dat", Bytes("a", "1/1 0/0 2/1 2/1 | 3/1 4/1 5/1 6/1 7/1 8/1 9/1 10/1 11/1 12/1", 2));
  put("AB Sub#B.dat", Bytes("B", "3/2 1/1 | 1/1 2/1"));
  put("AB Sub#c.dat", Bytes("c", "1/3 | 13/2", 9));
  put("AB Sub#d.dat", "\"Subject#\",\"d\"\r\n\"Age\",1\r\n1,2,70000,0\r\n");
  put("ABC Sub#e.dat", Bytes("e", "1/1 |"));
  put("Unfinished\\AB Sub#f.dat", Bytes("f", "1/1 |", 3));
  put("Second\\AB Sub#B.dat", Bytes("B", "3/2 1/1 | 1/1 2/1"));
  put("Second\\AB Sub#a.dat", "\"Subject#\"");
  put("Second\\AB Sub#g.dat", Bytes("g", "1/1 |"));
  put("Second\\ABC Sub#e.dat", Bytes("e", "1/1 |"));
  put("Second\\Unfinished\\AB Sub#h.dat", Bytes("h", "1/1 |"));
  put("Second\\First\\AB Sub#i.dat", Bytes("i", "1/1 |"));
  put("Second\\AB Sub#I.DAT", Bytes("i", "1/1 2/2 |"));
  scratch.MakeDirectory("D:\\B");
  scratch.Put("C:\\Data\\AB Second Sample.csv", "subject,percent,seed\r\nB,20,7\r\n");
  YesBoxes boxes(BoxAnswer::Cancel);
  Desk desk(scratch, boxes);
  const std::string a = "a|complete|old|3|10|gaps, minutes, duplicates|unreadable: Line 1: input past end of file.\n";
  const std::string b = "B|complete|young|2|2|minutes|agrees, chosen\n";
  const std::string c = "c|complete|9|1|1|numbers out of range|none\n";
  const std::string d = "d|unreadable||||Line 3: number beyond the 16-bit range. Numerical result out of range|none\n";
  const std::string e = "ABC Sub#e|another project's|||||none\n";
  const std::string f = "f|unfinished|oldest|1|0||none\n";
  const std::string g = "g|second entry alone|||||no first entry\n";
  const std::string h = "h|second entry alone|||||unfinished, no first entry\n";
  const std::string i = "I|both entries alone|||||1 difference\n";
  const std::pair<const char*, std::string> filters[] = {{"", a + e + b + c + d + f + g + h + i},
                                                         {"OLD", a + f},
                                                         {"age: old; state: com", a},
                                                         {"test 2: 1", a + c},
                                                         {"identifier:b", e + b},
                                                         {"nothing", ""}};
  for (const auto& [filter, rows] : filters) {
    desk.Screen.SetFilter(filter);
    EXPECT_EQ(RowsOf(desk.Screen), rows) << filter;
  }
  desk.Screen.SetFilter("");
  for (const auto& [typed, line] : {std::pair("AB", 1), {"b", 2}, {"A", 0}}) {
    EXPECT_EQ(desk.Screen.Table().LineOfId(typed), static_cast<std::size_t>(line)) << typed;
  }
  EXPECT_FALSE(desk.Screen.Table().LineOfId("j"));
  const std::pair<std::size_t, std::string> orders[] = {{0, i + h + g + f + d + c + b + e + a},
                                                        {4, d + e + g + i + h + f + c + b + a},
                                                        {4, a + b + c + f + d + e + g + i + h},
                                                        {5, e + f + g + i + h + a + d + b + c}};
  for (const auto& [column, rows] : orders) {
    desk.Screen.SortBy(column);
    EXPECT_EQ(RowsOf(desk.Screen), rows) << column;
  }
  EXPECT_EQ(desk.Screen.StatusLine(), "9 subjects");
  scratch.Put("C:\\Data\\AB Second Sample.csv", "subject,seed\r\n");
  const int before = desk.Screen.Revision();
  desk.Screen.Open(desk.Of);
  EXPECT_NE(desk.Screen.Revision(), before) << "the lines are gone until they are read";
  desk.Screen.Read(), desk.Screen.Read();
  EXPECT_EQ(boxes.Texts.size(), 1U) << "a sample that cannot be read is told of once";
}

// Whatever is left of a subject can be renamed, removed and brought back.
TEST(SubjectsScreen, LosesNoEntryThatIsLeftAlone) {
  for (const std::string place : {"Second\\", "Second\\Unfinished\\", "Second\\First\\"}) {
    Scratch scratch;
    scratch.MakeDirectory("D:\\B");
    scratch.Put("C:\\Data\\Sdata\\" + place + "AB Sub#a.dat", Bytes("a", "1/1 |"));
    YesBoxes boxes(BoxAnswer::Cancel);
    Desk desk(scratch, boxes);
    ASSERT_EQ(desk.Screen.Table().RowCount(), 1U) << place;
    EXPECT_EQ(desk.Screen.ToOpen(), nullptr) << place;
    EXPECT_FALSE(desk.Screen.MayChangeLevels()) << place;
    desk.Rename("b");
    desk.Screen.Remove();
    EXPECT_EQ(scratch.Get("C:\\Data\\Sdata\\Removed\\" + place + "AB Sub#b.dat"), Bytes("b", "1/1 |"));
    ASSERT_EQ(desk.Screen.Table().RowCount(), 1U) << place;
    EXPECT_EQ(desk.Screen.Table().Text(0, 1), "removed") << place;
    desk.Screen.BringBack();
    EXPECT_EQ(scratch.Get("C:\\Data\\Sdata\\" + place + "AB Sub#b.dat"), Bytes("b", "1/1 |"));
    // The first entry comes back to a second one that has no other.
    const bool isSecond = place.find("First") == std::string::npos;
    scratch.Put("C:\\Data\\Sdata\\Removed\\AB Sub#b.dat", Bytes("b", "1/1 |"));
    desk.Screen.Read(), desk.Choose("AB Sub#b.dat", true), desk.Screen.BringBack();
    EXPECT_EQ(scratch.Has("C:\\Data\\Sdata\\AB Sub#b.dat"), isSecond) << place;
    EXPECT_EQ(boxes.Texts.back() == "A subject 'b' already exists.", !isSecond) << place;
    scratch.Put("C:\\Data\\Sdata\\Removed\\" + place + "AB Sub#b.dat", Bytes("b", "2/1 |"));
    desk.Screen.Read(), desk.Choose("AB Sub#b.dat", true), desk.Screen.BringBack();
    EXPECT_EQ(boxes.Texts.back(), "A subject 'b' already exists.") << place;
  }
}

TEST(SubjectsScreen, ChoosesASampleAndSavesTheAgreement) {
  FakePlatform platform;
  Scratch scratch;
  PutSubjects(scratch);
  Disk disk = scratch.MakeDisk();
  SubjectsScreen screen(platform.With(disk));
  const ProjectParameters project = Project();
  screen.Open(project);
  screen.Read();
  screen.AskSample();
  for (const char* percent : {"", "0", "101", "5x", "x 5"}) {
    screen.SetNewName(percent);
    platform.Boxes.Expect(Told("The percentage must be a number from 1 to 100."));
    screen.Answer();
  }
  screen.SetNewName("50 7x");
  platform.Boxes.Expect(Told("The seed must be a number of up to 9 digits."));
  screen.Answer();
  screen.SetNewName("50 7");
  screen.Answer();
  EXPECT_EQ(screen.Asked(), SubjectsScreen::Question::None);
  const std::string sample = scratch.Get("C:\\Data\\AB Second Sample.csv");
  EXPECT_EQ(sample, FormatSecondSample(DrawSecondSample({"ab", "abc"}, 50, 7)));
  EXPECT_EQ(scratch.Get("D:\\B\\AB Second Sample.csv"), sample);
  screen.AskSample();
  platform.Boxes.Expect(
      Warned("Subjects were chosen for a second entry before.  Do you wish to replace that choice?", BoxAnswer::No));
  screen.Answer();
  EXPECT_EQ(scratch.Get("C:\\Data\\AB Second Sample.csv"), sample);
  screen.CancelQuestion();
  platform.Dialogs.Answers.emplace_back("C:\\agreement.csv");
  screen.SaveReport();
  EXPECT_NE(scratch.Get("C:\\agreement.csv").find("ab"), std::string::npos);
  platform.Dialogs.Answers.emplace_back("C:\\Data\\AB Words.csv");
  platform.Boxes.Expect(Told("A master or a data file of a project is never replaced.  Please select another name."));
  screen.SaveReport();
}

}  // namespace
}  // namespace zova::testing
