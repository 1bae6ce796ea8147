// SPDX-License-Identifier: GPL-3.0-or-later
//
// Whole jobs, from an empty account to the files on the disk, as the window asks for them.

#include "master/MasterRun.h"
#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

class EndToEndTest : public SessionTest {
 protected:
  void Type(WizardBox box, const char* text) { m_session->Wizard().SetText(box, text); }
  void Name(const char* name) {
    Type(WizardBox::Variable, name);
    m_session->Wizard().TakeVariableEntry();
  }
  void Next(std::initializer_list<ExpectedBox> boxes = {}) {
    const int page = m_session->Wizard().Page();
    for (const ExpectedBox& box : boxes) Boxes.Expect(box);
    m_session->Wizard().Next();
    EXPECT_EQ(m_session->Wizard().Page(), page + 1);
  }
  static ExpectedBox Create(const std::string& directory) {
    return {"'" + directory + "' Directory does not exist.  Do you wish to create it?", BoxAnswer::Yes};
  }
  void DefineProject() {
    NewProjectWizard& wizard = m_session->Wizard();
    m_session->CreateNewProject();
    Type(WizardBox::Title, " L'Été 1.prm ");
    Next();
    Type(WizardBox::Primary, "C:\\Data\\é x\\");
    Type(WizardBox::Backup, "D:\\Bk");
    Next({Create("C:\\Data\\é x"), Create("D:\\Bk")});
    Type(WizardBox::Tests, "2");
    Type(WizardBox::Items, "4");
    Next();
    wizard.SetOption(WizardOption::Categorized, true);
    Type(WizardBox::Categories, "2");
    wizard.SetOption(WizardOption::FalseMemory, true);
    Next();
    wizard.SetOption(WizardOption::Variables, true);
    for (const char* name : {"Group", "old", "new"}) Name(name);
    Next();
    wizard.SetOption(WizardOption::Minutes, true);
    Type(WizardBox::Minutes, "3");
    Next();
    wizard.SetOption(WizardOption::Ratings, true);
    Type(WizardBox::MaxRating, "5");
    wizard.SetRated(2, true);
    Next();
  }
  void FinishProject(BoxAnswer entersData) {
    Boxes.Expect({.Text = "ZOVA will not allow you to make changes to the parameters once they are completed.  If you "
                          "are not sure that the parameters are correct, please select the 'No' button and use the "
                          "'Back' button to verify all of the parameters for your project.  If you are sure that the "
                          "parameters are correct then select 'Yes'.  Are you sure these parameters are correct?",
                  .Answer = BoxAnswer::Yes,
                  .Default = BoxAnswer::No,
                  .Title = "Warning"});
    Boxes.Expect({"Do you want to continue by entering data for this project now?", entersData});
    m_session->FinishWizard();
  }
  /// Steps 1 and 2 of a new subject.
  void Identify(const char* subject, const char* level) {
    SubjectIdentification& rules = m_session->Identification();
    rules.SetSubjectText(subject);
    rules.Next();
    rules.SetLevelText(level);
    m_session->FinishIdentification();
    ASSERT_EQ(m_session->Shown(), Screen::Entry);
  }
  /// Numbers separated by blanks, Enter after each.
  void Enter(const std::string& numbers) {
    std::istringstream in(numbers);
    for (std::string number; in >> number;) {
      m_session->Entry().Grid().SetEntryText(number);
      m_session->Entry().Grid().Enter();
    }
  }
};

constexpr const char* kOwnFile =
    "2,6,1,2,3,1,3,,,1,5,,1,\"L'Été 1\",\"C:\\Data\\é x\",\"D:\\Bk\",\"L'Été 1.prm\",1,,\"VB Version\"\r\n"
    "2\r\n\"Group\"\r\n\"old\"\r\n\"new\"\r\n\"N\"\r\n\"Y\"\r\n";

TEST_F(EndToEndTest, AProjectIsDefinedReopenedViewedBackedUpLostAndRestored) {
  Started();
  DefineProject();
  FinishProject(BoxAnswer::No);
  for (const char* directory : {"C:\\Param", "C:\\Data\\é x", "D:\\Bk"}) {
    EXPECT_EQ(m_scratch.Get(JoinPath(directory, "L'Été 1.prm")), kOwnFile);
    EXPECT_EQ(m_scratch.Has(JoinPath(directory, "Sdata")), std::string(directory) != "C:\\Param");
  }

  m_session.reset();  // the program ends, and starts again
  Session& session = Started();
  OpenProject(session, "C:\\Param\\L'Été 1.prm");
  session.ViewParameters();
  const NewProjectWizard& wizard = session.Wizard();
  for (int page = 1; page < NewProjectWizard::kPages; ++page) Next();
  EXPECT_EQ(wizard.Text(WizardBox::Items) + wizard.Text(WizardBox::Backup), "6D:\\Bk");
  EXPECT_TRUE(wizard.ShowsLuresIncluded() && wizard.Entries().RatedTests[1] && !wizard.Entries().RatedTests[0]);
  EXPECT_EQ(wizard.Variables().LevelLabels(), (std::vector<std::string>{"1. old", "2. new"}));
  session.FinishWizard();
  EXPECT_EQ(session.Shown(), Screen::Main);

  m_scratch.Put("C:\\Data\\é x\\Sdata\\L'Été 1 Sub#1.dat", "one");
  const Tree before = TreeOf(m_scratch.Native("C:\\"));
  Boxes.Expect({.Text = "This feature will create a new backup of all the entered data for the current project.  This "
                        "project's data already has a backup location at: 'D:\\Bk'.  To recreate or refresh the data "
                        "at this location, select 'No'.  Do you want to specify a new backup location?",
                .Answer = BoxAnswer::Yes});
  session.CreateNewBackup();
  EXPECT_EQ(session.LocationTextsShown().Title, "New Backup Destination");
  session.SetLocationText("D:\\New");
  Boxes.Expect(Create("D:\\New"));
  Boxes.Expect({.Text = "The backup directory and files were successfully created.", .Icon = BoxIcon::Information});
  session.AcceptLocation();
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
  m_scratch.MakeDirectory("D:\\Bk");
  Type(WizardBox::Title, "Second");
  Next();
  Type(WizardBox::Primary, "C:\\Second");
  Type(WizardBox::Backup, "D:\\Bk");
  Next({Create("C:\\Second")});
  Type(WizardBox::Tests, "1");
  Type(WizardBox::Items, "3");
  for (int page = 3; page < NewProjectWizard::kPages; ++page) Next();
  FinishProject(BoxAnswer::No);
  EXPECT_TRUE(m_scratch.Has("C:\\Second\\Second.prm") && !m_scratch.Has("D:\\Bk\\Second.prm"));
}

TEST_F(EndToEndTest, OneSubjectIsInterruptedAndOneKeptUnfinished) {
  Started();
  DefineProject();
  FinishProject(BoxAnswer::Yes);
  Identify("1", "2");
  Enter("4 1 1 2");
  m_session->Entry().Grid().Step(-1);  // Tab back: the minute was mistyped
  Enter("3");
  m_session->AutosaveTick();
  m_session->Entry().DoneWithTest();
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
  EXPECT_EQ(m_session->Entry().SubjectCaption(), "Project: L'Été 1\nSubject: 1");
  m_session->Entry().DoneWithTest();
  Enter("1 1 5");
  Boxes.Expect({.Text = "The last item in Test 2 was during minute 1.  Do you wish to edit the data?",
                .Answer = BoxAnswer::No,
                .Title = "Warning"});
  Boxes.Expect({.Text = "Completed subject saved.", .Icon = BoxIcon::Information});
  m_session->DoneWithAllTests();
  EXPECT_EQ(m_session->Shown(), Screen::Main);
  EXPECT_FALSE(m_scratch.Has("C:\\Param\\Temp.txt"));

  m_session->EnterSubjects();
  Identify("2", "1");
  Enter("3 2");
  Boxes.Expect({.Text = "Incomplete subject saved.", .Icon = BoxIcon::Information});
  m_session->SaveIncompleteSubject();
  Boxes.Expect({.Text = "This is unfinished subject #1 for 'L'Été 1'.  NOTE: You cannot have more than 10.",
                .Icon = BoxIcon::Information});
  m_session->CancelEntry();
  EXPECT_TRUE(m_session->Menus().Unfinished);
  m_session->UnfinishedBusiness();
  m_session->Identification().SetSubjectText("2");
  m_session->LoadTypedSubject();
  m_session->Entry().DoneWithTest();
  Enter("3 2 4");
  Boxes.Expect({.Text = "Completed subject saved.", .Icon = BoxIcon::Information});
  m_session->DoneWithAllTests();
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

  MasterRequest request{.Selection = {}, .SubjectFileCount = 2, .Destination = "", .Order = {}};
  request.Selection.SetDefaultMeasures(*m_session->OpenedProject());
  for (const MeasureBox& box : AllMeasureBoxes()) request.Selection.Check(box.Which, box.Which == Measure::Basic);
  ASSERT_TRUE(CreateMasters(*m_session->OpenedProject(), request, {m_disk, Boxes, m_progress}).Completed);
  EXPECT_EQ(m_scratch.Get("C:\\Data\\é x\\L'Été 1 Master.txt"),
            "Sub ID's, Group, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2)\r\n"
            "1,  2,  2,  1,  1,  0\r\n2,  1,  0,  0,  0,  0\r\n")
      << "item 3 is a lure";
}

}  // namespace
}  // namespace zova::testing
