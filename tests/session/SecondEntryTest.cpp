// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/SessionFixture.h"
#include "subjects/SubjectFile.h"
#include "support/Study.h"

namespace zova::testing {
namespace {

const std::string kFile = "AB Sub#a.dat";
const char* const kAskBackup =
    "This feature will create a new backup of all the entered data for the current project.  This project's data "
    "already has a backup location at: 'D:\\B'.  To recreate or refresh the data at this location, select 'No'.  Do "
    "you "
    "want to specify a new backup location?";

class SecondEntryTest : public SessionTest {
 protected:
  SecondEntryTest() {
    m_project.LevelCounts[0] = 2;
    m_project.LevelNames[0] = {"young", "old"};
    m_project.BackupDir = "D:\\B";
    m_project.ProjectFileName = "Example.prm";
    m_scratch.MakeDirectory("D:\\B");
    m_scratch.Put("C:\\Data\\Sdata\\" + kFile, Bytes("1 2", 1));
  }
  std::string Bytes(const std::string& lists, std::int16_t level) {
    SubjectRecord record;
    record.SubjectId = "a";
    record.Levels[0] = level;
    record.Lists = MakeLists(m_project, lists);
    return FormatSubject(record, m_project);
  }
  void Identify(Session& session, const std::string& id) {
    session.Subjects().Identification().SetSubjectText(id);
    session.Subjects().NextStep();
  }
  void Type(Session& session, const char* item) {
    session.Subjects().Entry().Grid().Cells().SetEntryText(item);
    session.Subjects().Entry().Grid().Cells().Enter();
  }

  ProjectParameters m_project = MakeProject({.Tests = 1, .Items = 4, .Variables = {"Age"}});
};

TEST_F(SecondEntryTest, IsKeptBesideTheFirst) {
  Session& session = OpenExample(m_project);
  session.EnterSecond();
  Boxes.Expect(Told("There is no complete subject 'b'.  Only a complete subject is entered again."));
  Identify(session, "b");
  Identify(session, "A");
  SubjectIdentification& identification = session.Subjects().Identification();
  EXPECT_EQ(identification.Counter(), "2 of 2") << "the levels are asked for again";
  EXPECT_EQ(identification.LevelText(), "");
  identification.SetLevelText("2");
  session.Subjects().FinishIdentification();
  ASSERT_EQ(session.Shown(), Screen::Entry);
  SubjectEntry& entry = session.Subjects().Entry();
  EXPECT_EQ(entry.Title(), "Second Entry");
  EXPECT_EQ(entry.SubjectCaption(), "Project: Example\nSubject: a") << "as the first entry spells it";
  Type(session, "2");
  entry.SecureAutosave();
  EXPECT_TRUE(m_scratch.Has("C:\\Param\\Temp Second.txt"));
  EXPECT_FALSE(m_scratch.Has("C:\\Param\\Temp.txt"));
  Boxes.Expect({"Incomplete subject saved."});
  session.SaveIncompleteSubject();
  EXPECT_EQ(m_scratch.Get("D:\\B\\Sdata\\Second\\Unfinished\\" + kFile), Bytes("2", 2));
  EXPECT_FALSE(m_scratch.Has("C:\\Param\\Temp Second.txt"));
  Boxes.Expect({"This is unfinished subject #1 for 'Example'.  NOTE: You cannot have more than 10."});
  session.Subjects().CancelEntry();
  EXPECT_FALSE(session.Menus().Unfinished) << "there is no unfinished first entry";

  session.EnterSecond();
  Identify(session, "a");
  ASSERT_EQ(session.Shown(), Screen::Entry) << "it was put aside";
  Boxes.Expect({"Completed subject saved."});
  session.Subjects().DoneWithAllTests();
  EXPECT_EQ(session.Shown(), Screen::Compare);
  session.CloseComparison();
  EXPECT_EQ(session.Shown(), Screen::Identification) << "for the next one";
  session.Subjects().CancelIdentification();
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    EXPECT_EQ(m_scratch.Get(sdata + "Second\\" + kFile), Bytes("2", 2));
    EXPECT_FALSE(m_scratch.Has(sdata + "Second\\Unfinished"));
  }
  EXPECT_EQ(m_scratch.Get("C:\\Data\\Sdata\\" + kFile), Bytes("1 2", 1));
  session.ShowSubjects();
  EXPECT_EQ(session.SubjectList().Table().Text(0, 5), "2 differences");

  session.CompareChosenSubject();
  EntrySettlement& settlement = session.Settlement();
  const auto shown = [&] {
    std::string text;
    for (std::size_t line = 0; line < settlement.LineCount(); ++line) {
      for (const auto side :
           {EntrySettlement::Side::First, EntrySettlement::Side::Second, EntrySettlement::Side::Result}) {
        text += settlement.Text(line, side) + (side == EntrySettlement::Side::Result ? "; " : "|");
      }
    }
    return text;
  };
  EXPECT_EQ(shown(), "[young]|[old]|; 1|(none)|; 2|2|2; ");
  EXPECT_EQ(settlement.StatusLine(), "2 differences are left");
  settlement.TakeSecond();
  Boxes.Expect({"The differences that are left have to be settled first."});
  session.SettleComparison();
  settlement.TakeFirst();
  settlement.Undo();
  Boxes.Expect({"Invalid Format."});
  EXPECT_FALSE(settlement.Type("5"));
  EXPECT_TRUE(settlement.Type("2"));
  EXPECT_EQ(shown(), "[young]|[old]|old; 1|(none)|2; 2|2|2; ");
  Boxes.Expect({"You will lose all unsaved changes.  Are you sure that you want to do this?", BoxAnswer::No});
  session.CloseComparison();
  Boxes.Expect(
      {"Duplicate entry found! Item # 2 was located in positions 1 and 2 of test 1.  Item in position 2 has been "
       "deleted.  Please edit the raw data.  You will be given a chance to review the data."});
  session.SettleComparison();
  settlement.GoTo(1);
  EXPECT_TRUE(settlement.Type("2; 4"));
  EXPECT_EQ(settlement.TypedText(1), "2; 4") << "a line that both left out";
  EXPECT_TRUE(settlement.Type("4"));
  Boxes.Expect({"Completed subject saved."});
  session.SettleComparison();
  EXPECT_EQ(session.Shown(), Screen::Subjects);
  EXPECT_EQ(session.SubjectList().Table().Text(0, 5), "settled");
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    EXPECT_EQ(m_scratch.Get(sdata + kFile), Bytes("4", 2));
    EXPECT_EQ(m_scratch.Get(sdata + "Second\\First\\" + kFile), Bytes("1 2", 1)) << "as typed";
  }
  session.CloseSubjects();
  m_scratch.Put("D:\\B\\Sdata\\Second\\" + kFile, "lost");
  Boxes.Expect({.Text = kAskBackup, .Answer = BoxAnswer::No});
  Boxes.Expect({.Text = "The backup data files were updated.", .Details = "4 files were copied."});
  session.CreateNewBackup();
  EXPECT_EQ(m_scratch.Get("D:\\B\\Sdata\\Second\\" + kFile), Bytes("2", 2));
}

TEST_F(SecondEntryTest, ALineTypedDoesNotDecideTheOtherOneOfItsPair) {
  m_scratch.Put("C:\\Data\\Sdata\\" + kFile, Bytes("1 2 3 4", 1));
  for (const char* second : {"2 1 3 4", "2 3 4 1"}) {  // exchanged, moved
    m_scratch.Put("C:\\Data\\Sdata\\Second\\" + kFile, Bytes(second, 1));
    Session& session = OpenExample(m_project);
    session.ShowSubjects();
    EXPECT_EQ(session.SubjectList().Table().Text(0, 5), "1 difference");
    session.CompareChosenSubject();
    EntrySettlement& settlement = session.Settlement();
    const std::size_t line = settlement.Current();
    EXPECT_TRUE(settlement.Type(""));
    EXPECT_EQ(settlement.StatusLine(), "1 difference is left") << second;
    EXPECT_NE(settlement.Current(), line) << "the other line";
    settlement.TakeSecond();
    EXPECT_EQ(settlement.OpenCount(), 0U);
    EXPECT_EQ(settlement.Text(line, EntrySettlement::Side::Result), "(none)") << "what was typed stays";
    EXPECT_EQ(settlement.Text(settlement.Current(), EntrySettlement::Side::Result), "1") << second;
  }
}

TEST_F(SecondEntryTest, ASettlementHoldsForItsEntriesAlone) {
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    m_scratch.Put(sdata + kFile, Bytes("4", 2));
    m_scratch.Put(sdata + "Second\\First\\" + kFile, Bytes("1 2", 1));
    m_scratch.Put(sdata + "Second\\Settled\\" + kFile, Bytes("2", 2));
    m_scratch.Put(sdata + "Second\\" + kFile, Bytes("2", 2));
  }
  Session& session = OpenExample(m_project);
  const auto second = [&] {
    session.ShowSubjects();
    return session.SubjectList().Table().Text(0, 5);
  };
  EXPECT_EQ(second(), "settled");
  session.OpenChosenSubject();  // a correction
  Type(session, "3");
  Boxes.Expect({"Completed subject saved."});
  session.Subjects().DoneWithAllTests();
  EXPECT_EQ(session.SubjectList().Table().Text(0, 5), "settled");
  session.OpenChosenSubject();  // one that is paused
  Type(session, "4");
  Boxes.Expect({"Incomplete subject saved."});
  session.SaveIncompleteSubject();
  Boxes.Expect({"This is unfinished subject #1 for 'Example'.  NOTE: You cannot have more than 10."});
  session.Subjects().CancelEntry();
  Boxes.Expect(
      {"Subject ID 'a' already exists!  When this subject is saved it will delete the old data.  Are you "
       "sure you want to do this?",
       BoxAnswer::Yes});
  session.OpenChosenSubject();
  Boxes.Expect({"Completed subject saved."});
  session.Subjects().DoneWithAllTests();
  EXPECT_EQ(session.SubjectList().Table().Text(0, 5), "settled");
  session.CloseSubjects();

  const auto enter = [&](const std::vector<const char*>& items, const char* level, const std::string& told = {}) {
    session.Subjects().Identification().SetSubjectText("a");
    session.Subjects().NextStep();
    session.Subjects().Identification().SetLevelText(level);
    Boxes.Expect(
        {"Subject ID 'a' already exists!  When this subject is saved it will delete the old data.  Are you "
         "sure you want to do this?",
         BoxAnswer::Yes});
    session.Subjects().FinishIdentification();
    for (const char* item : items) Type(session, item);
    Boxes.Expect({"Completed subject saved."});
    if (!told.empty()) Boxes.Expect({told});
    session.Subjects().DoneWithAllTests();
  };
  session.EnterSecond();
  enter({"2"}, "1");
  ASSERT_EQ(session.Shown(), Screen::Compare);
  EXPECT_EQ(session.Settlement().StatusLine(), "1 difference is left") << "from the first entry as it was typed";
  session.Settlement().TakeSecond();
  Boxes.Expect(Warned("This subject was settled before.  Do you wish to replace the settled data?", BoxAnswer::Yes));
  Boxes.Expect({"Completed subject saved."});
  session.SettleComparison();
  session.Subjects().CancelIdentification();
  EXPECT_EQ(second(), "settled");
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    EXPECT_EQ(m_scratch.Get(sdata + kFile), Bytes("2", 1));
    EXPECT_EQ(m_scratch.Get(sdata + "Second\\First\\" + kFile), Bytes("1 2", 1));
  }
  session.CloseSubjects();

  // It says what the first one said.
  session.EnterSecond();
  enter({"1", "2"}, "1", "Both entries agree.  This subject was settled otherwise before.");
  ASSERT_EQ(session.Shown(), Screen::Compare);
  EXPECT_EQ(session.Settlement().StatusLine(), "0 differences are left.  This subject was settled otherwise before.");
  Boxes.Expect(Warned("This subject was settled before.  Do you wish to replace the settled data?", BoxAnswer::No));
  session.SettleComparison();
  session.CloseComparison();
  session.Subjects().CancelIdentification();
  EXPECT_EQ(second(), "agrees");
  session.CloseSubjects();

  // The data are lost, but not what was typed.
  m_scratch.Files.Delete("C:\\Data\\Sdata\\" + kFile);
  EXPECT_EQ(second(), "agrees");
  EXPECT_EQ(session.SubjectList().Table().Text(0, 1), "both entries alone");
  session.CompareChosenSubject();
  EXPECT_EQ(session.Settlement().StatusLine(), "0 differences are left.  The data of this subject are gone.");
  Boxes.Expect({"Completed subject saved."});
  session.SettleComparison();
  EXPECT_EQ(m_scratch.Get("C:\\Data\\Sdata\\" + kFile), Bytes("1 2", 1));
  session.CloseSubjects();

  // What was typed is deleted after the same question as the data.
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) m_scratch.Files.Delete(sdata + kFile);
  session.EnterSubjects();
  enter({"2"}, "2");
  session.Subjects().CancelIdentification();
  EXPECT_EQ(second(), "2 differences");
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    EXPECT_FALSE(m_scratch.Has(sdata + "Second\\First\\" + kFile));
    EXPECT_FALSE(m_scratch.Has(sdata + "Second\\Settled\\" + kFile));
  }
}

// Each of two subjects whose identifiers differ in case alone has entries of its own; a sole one has those of both.
TEST_F(SecondEntryTest, BelongsToTheSubjectThatIsSpeltLikeIt) {
  if (kIsWindows) GTEST_SKIP() << "there they are one name";
  const std::string other = "AB Sub#A.dat";
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    m_scratch.Put(sdata + kFile, Bytes("1 2", 1));
    m_scratch.Put(sdata + other, Bytes("3", 1));
    m_scratch.Put(sdata + "Second\\" + other, Bytes("3 4", 1));
    m_scratch.Put(sdata + "Second\\First\\" + other, Bytes("4", 1));
    m_scratch.Put(sdata + "Second\\Settled\\" + other, Bytes("3 4", 1));
    m_scratch.Put(sdata + "Second\\Unfinished\\" + other, Bytes("4 3", 1));
  }
  Tree before = m_scratch.Snapshot();
  Session& session = OpenExample(m_project);
  session.EnterSecond();
  Identify(session, "a");
  ASSERT_EQ(session.Shown(), Screen::Identification) << "the unfinished one is the other subject's";
  session.Subjects().Identification().SetLevelText("1");
  session.Subjects().FinishIdentification();
  Type(session, "2");
  Boxes.Expect({"Completed subject saved."});
  session.Subjects().DoneWithAllTests();
  ASSERT_EQ(session.Shown(), Screen::Compare);
  EXPECT_EQ(session.Settlement().StatusLine(), "1 difference is left") << "from its own first entry";
  session.Settlement().TakeSecond();
  Boxes.Expect({"Completed subject saved."});
  session.SettleComparison();
  session.Subjects().CancelIdentification();
  Tree after = m_scratch.Snapshot();
  for (const std::string sdata : {"C/Data/Sdata/", "D/B/Sdata/"}) {
    EXPECT_EQ(after[sdata + "Second/First/" + kFile], Bytes("1 2", 1));
    for (const char* place : {"Second/", "Second/Settled/", ""}) EXPECT_EQ(after[sdata + place + kFile], Bytes("2", 1));
  }
  for (const auto& [file, bytes] : before) {
    EXPECT_TRUE(!file.ends_with(other) || after[file] == bytes) << file;
  }
  const auto cells = [&] {
    session.ShowSubjects();
    std::string text;
    for (std::size_t line = 0; line < session.SubjectList().Table().LineCount(); ++line) {
      text += session.SubjectList().Table().Text(line, 0) + ": " + session.SubjectList().Table().Text(line, 5) + "; ";
    }
    session.CloseSubjects();
    return text;
  };
  EXPECT_EQ(cells(), "A: settled; a: settled; ");
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    for (const char* place : {"", "Second\\", "Second\\First\\", "Second\\Settled\\"}) {
      m_scratch.Files.Delete(sdata + place + kFile);
    }
    m_scratch.Files.Delete(sdata + other);
    m_scratch.Put(sdata + kFile, Bytes("3", 1));
  }
  EXPECT_EQ(cells(), "a: settled; ") << "from a disk on which they are one name";
  session.EnterSecond();
  Boxes.Expect(
      {"Subject ID 'a' already exists!  When this subject is saved it will delete the old data.  Are you "
       "sure you want to do this?",
       BoxAnswer::Yes});
  Identify(session, "a");
  ASSERT_EQ(session.Shown(), Screen::Entry) << "the unfinished one";
  Boxes.Expect({"Completed subject saved."});
  session.Subjects().DoneWithAllTests();
  EXPECT_EQ(m_scratch.Get("D:\\B\\Sdata\\Second\\" + other), Bytes("4 3", 1)) << "no second file";
  EXPECT_FALSE(m_scratch.Has("D:\\B\\Sdata\\Second\\Unfinished"));
}

// What cannot be finished or undone must not be made worse.
TEST_F(SecondEntryTest, AnInterruptedChangeThatCannotBeFinishedKeepsTheProjectClosed) {
  m_scratch.Put("C:\\Data\\.zova-AB.journal", "ZOVA changes\n");
  Boxes.Expect({.Text = "This is not a valid file format.  Please select a different file."});
  EXPECT_EQ(OpenExample(m_project).OpenedProject(), nullptr);
}

// After an interrupted first entry; what is not restored is put aside beside the other.
TEST_F(SecondEntryTest, IsRestoredAfterTheFirst) {
  m_scratch.Put(kExample, FormatProject(m_project, kCurrentMarker));
  SubjectRecord record;
  record.SubjectId = "a";
  record.Levels[0] = 1;
  record.Lists = MakeLists(m_project, "3");
  m_scratch.Put("C:\\Param\\Temp.txt", FormatAutosave(record, m_project));
  record.Lists = MakeLists(m_project, "4");
  m_scratch.Put("C:\\Param\\Temp Second.txt", FormatAutosave(record, m_project));
  const ExpectedBox asked = {
      "The program was interrupted while entering a subject.  Would you like to restore from the autosave?"};
  const auto answer = [&](BoxAnswer with) {
    ExpectedBox box = asked;
    box.Answer = with;
    box.Title = "Restore";
    Boxes.Expect(box);
  };
  answer(BoxAnswer::No);
  Boxes.Expect({"The autosave was kept as 'C:\\Param\\Temp 1.txt'."});
  answer(BoxAnswer::Yes);
  Session& session = Started();
  ASSERT_EQ(session.Shown(), Screen::Entry);
  EXPECT_EQ(session.Subjects().Entry().Title(), "Second Entry");
  EXPECT_EQ(session.Subjects().Entry().Grid().Cells().Text({1, 1}), "4");
  Boxes.Expect({"You will lose all unsaved changes.  Are you sure that you want to do this?", BoxAnswer::Yes});
  session.Subjects().CancelEntry();
  EXPECT_FALSE(m_scratch.Has("C:\\Param\\Temp Second.txt"));
  EXPECT_TRUE(m_scratch.Has("C:\\Param\\Temp 1.txt"));
  // One that was put aside.
  m_scratch.Put("C:\\Param\\Temp Second 1.txt", FormatAutosave(record, m_project));
  session.ReadOldData();
  Dialogs.Answers.emplace_back("C:\\Param\\Temp Second 1.txt");
  session.Subjects().BrowseSubject();
  ASSERT_EQ(session.Shown(), Screen::Entry);
  EXPECT_EQ(session.Subjects().Entry().Title(), "Second Entry");
  m_scratch.Files.Delete("C:\\Data\\Sdata\\" + kFile);
  Boxes.Expect({"Completed subject saved."});
  Boxes.Expect(Told("There is no first entry of subject 'a' any more."));
  session.Subjects().DoneWithAllTests();
  EXPECT_EQ(session.Shown(), Screen::Main);
  EXPECT_EQ(m_scratch.Get("D:\\B\\Sdata\\Second\\" + kFile), Bytes("4", 1));
}

}  // namespace
}  // namespace zova::testing
