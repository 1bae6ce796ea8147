// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whole jobs, from a project to the files on the disk, as the window asks for them.

#include <sstream>

#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

constexpr const char* kOwnFile =
    "2,6,1,2,3,1,3,,,1,5,,1,\"L'Été 1\",\"C:\\Data\\é x\",\"D:\\Bk\",\"L'Été 1.prm\",1,,\"VB Version\"\r\n"
    "2\r\n\"Group\"\r\n\"old\"\r\n\"new\"\r\n\"N\"\r\n\"Y\"\r\n";

class EndToEndTest : public SessionTest {
 protected:
  Session& OpenStudy() {
    for (const char* directory : {"C:\\Param", "C:\\Data\\é x"}) {
      m_scratch.Put(JoinPath(directory, "L'Été 1.prm"), kOwnFile);
    }
    for (const char* directory : {"C:\\Data\\é x\\Sdata", "D:\\Bk\\Sdata"}) m_scratch.MakeDirectory(directory);
    OpenProject(Started(), "C:\\Param\\L'Été 1.prm");
    return *m_session;
  }
  /// Steps 1 and 2 of a new subject.
  void Identify(const char* subject, const char* level) {
    SubjectIdentification& rules = m_session->Subjects().Identification();
    rules.SetSubjectText(subject);
    rules.Next();
    rules.SetLevelText(level);
    m_session->Subjects().FinishIdentification();
    ASSERT_EQ(m_session->Shown(), Screen::Entry);
  }
  /// Numbers separated by blanks, Enter after each.
  void Enter(const std::string& numbers) {
    std::istringstream in(numbers);
    for (std::string number; in >> number;) {
      m_session->Subjects().Entry().Grid().Cells().SetEntryText(number);
      m_session->Subjects().Entry().Grid().Cells().Enter();
    }
  }
};

TEST_F(EndToEndTest, OneSubjectIsInterruptedAndOneKeptUnfinished) {
  OpenStudy().EnterSubjects();
  Identify("1", "2");
  Enter("4 1 1 2");
  m_session->Subjects().Entry().Grid().Cells().Step(-1);  // Tab back: the minute was mistyped
  Enter("3");
  m_session->Subjects().Entry().Tick();
  m_session->Subjects().Entry().DoneWithTest();
  EXPECT_TRUE(m_scratch.Has("C:\\Param\\Temp.txt"));

  m_session.reset();  // killed: nothing is deleted
  Boxes.Expect({"The program was interrupted while entering a subject.  Would you like to restore from the autosave?",
                BoxAnswer::Yes,
                "",
                BoxIcon::Information,
                BoxButtons::YesNoCancel,
                {},
                "Restore"});
  Started();
  ASSERT_EQ(m_session->Shown(), Screen::Entry);
  EXPECT_EQ(m_session->Subjects().Entry().SubjectCaption(), "Project: L'Été 1\nSubject: 1");
  m_session->Subjects().Entry().DoneWithTest();
  Enter("1 1 5");
  Boxes.Expect({.Text = "The last item in Test 2 was during minute 1.  Do you wish to edit the data?",
                .Answer = BoxAnswer::No,
                .Title = "Warning"});
  Boxes.Expect({.Text = "Completed subject saved.", .Icon = BoxIcon::Information});
  m_session->Subjects().DoneWithAllTests();
  EXPECT_EQ(m_session->Shown(), Screen::Main);
  EXPECT_FALSE(m_scratch.Has("C:\\Param\\Temp.txt"));

  m_session->EnterSubjects();
  Identify("2", "1");
  Enter("3 2");
  Boxes.Expect({.Text = "Incomplete subject saved.", .Icon = BoxIcon::Information});
  m_session->SaveIncompleteSubject();
  Boxes.Expect({.Text = "This is unfinished subject #1 for 'L'Été 1'.  NOTE: You cannot have more than 10.",
                .Icon = BoxIcon::Information});
  m_session->Subjects().CancelEntry();
  EXPECT_TRUE(m_session->Menus().Unfinished);
  m_session->UnfinishedBusiness();
  m_session->Subjects().Identification().SetSubjectText("2");
  m_session->Subjects().LoadTypedSubject();
  m_session->Subjects().Entry().DoneWithTest();
  Enter("3 2 4");
  Boxes.Expect({.Text = "Completed subject saved.", .Icon = BoxIcon::Information});
  m_session->Subjects().DoneWithAllTests();
  EXPECT_FALSE(m_session->Menus().Unfinished);

  const std::string head = "\"n, Item #(recall order), Min(recall order), Rating(recall order)\",\"*\"\r\n\"Group\",";
  const std::string blank = "3,0,0,0\r\n4,0,0,0\r\n5,0,0,0\r\n6,0,0,0\r\n";
  const std::string one =
      "\"Subject#\",\"1\"," + head + "2\r\n1,4,1,0\r\n2,1,3,0\r\n" + blank + "1,1,1,5\r\n2,0,0,0\r\n" + blank;
  const std::string two =
      "\"Subject#\",\"2\"," + head + "1\r\n1,3,2,0\r\n2,0,0,0\r\n" + blank + "1,3,2,4\r\n2,0,0,0\r\n" + blank;
  for (const char* directory : {"C:\\Data\\é x", "D:\\Bk"}) {
    const Tree sdata = TreeOf(m_scratch.Native(JoinPath(directory, "Sdata")));
    EXPECT_EQ(sdata, (Tree{{"L'Été 1 Sub#1.dat", one}, {"L'Été 1 Sub#2.dat", two}})) << directory;
  }
}

}  // namespace
}  // namespace zova::testing
