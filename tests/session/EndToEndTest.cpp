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

TEST_F(EndToEndTest, AProjectIsViewedBackedUpLostAndRestored) {
  Session& session = OpenStudy();
  session.ViewParameters();
  session.FinishWizard();
  EXPECT_EQ(session.Shown(), Screen::Main);

  m_scratch.Put("C:\\Data\\é x\\Sdata\\L'Été 1 Sub#1.dat", "one");
  const Tree before = TreeOf(m_scratch.Native("C:\\"));
  Boxes.Expect({.Text = "This feature will create a new backup of all the entered data for the current project.  This "
                        "project's data already has a backup location at: 'D:\\Bk'.  To recreate or refresh the data "
                        "at this location, select 'No'.  Do you want to specify a new backup location?",
                .Answer = BoxAnswer::Yes});
  session.CreateNewBackup();
  EXPECT_EQ(session.Location().Texts().Title, "New Backup Destination");
  session.Location().SetText("D:\\New");
  Boxes.Expect({"'D:\\New' Directory does not exist.  Do you wish to create it?", BoxAnswer::Yes});
  Boxes.Expect({.Text = "The backup directory and files were successfully created.", .Icon = BoxIcon::Information});
  session.Location().Accept();
  EXPECT_EQ(session.Shown(), Screen::Main);

  std::filesystem::remove_all(m_scratch.Native("C:\\Data"));
  std::filesystem::remove(m_scratch.Native("C:\\Param\\L'Été 1.prm"));
  std::filesystem::remove_all(m_scratch.Native("D:\\Bk"));
  Boxes.Expect({.Text = "This procedure will allow you to select a parameter (.prm) file for a project.  The file can "
                        "be found in the 'Param' directory.  Backups can also be found in the primary or backup "
                        "directories of a project.  Once the file is selected, ZOVA will copy all appropriate files "
                        "and directories from the backup location to the primary location.  ZOVA will overwrite all "
                        "existing data (.dat) files in primary directory that are related to the project.  Do you "
                        "wish to continue?",
                .Answer = BoxAnswer::Yes,
                .Default = BoxAnswer::No,
                .Title = "Restore from Backup"});
  Boxes.Expect({.Text = "The data was successfully restored.", .Icon = BoxIcon::Information, .Title = "Restore"});
  Dialogs.Answers = {"D:\\New\\L'Été 1 Backup.prm"};
  session.RestoreFromBackup();
  EXPECT_EQ(TreeOf(m_scratch.Native("C:\\")), before);
  EXPECT_EQ(session.OpenedProject()->BackupDir, "D:\\Bk") << "as its owner chose";
  EXPECT_FALSE(m_scratch.Has("D:\\Bk")) << "a restore writes nothing to the backup directory";

  // From now on a new project's parameter file gets no copy in its backup directory.
  session.CreateNewProject();
  for (const char* directory : {"C:\\Second", "D:\\Bk"}) m_scratch.MakeDirectory(directory);
  for (const auto& [box, text] : {std::pair(WizardBox::Title, "Second"),
                                  {WizardBox::Primary, "C:\\Second"},
                                  {WizardBox::Backup, "D:\\Bk"},
                                  {WizardBox::Tests, "1"},
                                  {WizardBox::Items, "3"}}) {
    session.Wizard().SetText(box, text);
  }
  for (int page = 1; page < NewProjectWizard::kPages; ++page) session.Wizard().Next();
  Boxes.Expect({.Text = "ZOVA will not allow you to make changes to the parameters once they are completed.  If you "
                        "are not sure that the parameters are correct, please select the 'No' button and use the "
                        "'Back' button to verify all of the parameters for your project.  If you are sure that the "
                        "parameters are correct then select 'Yes'.  Are you sure these parameters are correct?",
                .Answer = BoxAnswer::Yes,
                .Title = "Warning"});
  Boxes.Expect({"Do you want to continue by entering data for this project now?", BoxAnswer::Yes});
  session.FinishWizard();
  EXPECT_EQ(session.Shown(), Screen::Identification);
  EXPECT_TRUE(m_scratch.Has("C:\\Second\\Second.prm"));
  EXPECT_FALSE(m_scratch.Has("D:\\Bk\\Second.prm"));
}

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
