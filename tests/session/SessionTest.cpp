// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/Session.h"

#include <set>

#include "scoring/Examples.h"
#include "session/SessionFixture.h"
#include "support/FailingFileLayer.h"

namespace zova::testing {
namespace {

const std::string kLost =
    "The 'Param' directory has been moved or deleted.  To attempt to locate the 'Param' directory or to select a new "
    "location for it, select 'Yes' below.  If you select 'No' ZOVA will create a new 'Param' folder at "
    "'C:\\ZOVA\\Param'.  Do you want to browse for a directory location?";
const std::string kUnfinished =
    "You have unfinished business for this experiment.  Do you want to complete some data now?";

std::string Message(std::errc code) { return std::make_error_code(code).message(); }

std::string Example(const char* marker = kCurrentMarker) { return FormatProject(ExampleProject("C:\\ZOVA"), marker); }

TEST_F(SessionTest, AnEmptyAccountGetsParamAndExampleBeforeAnythingElse) {
  m_scratch.Put("C:\\Installed\\ZOVA2.hlp", "help");
  Session& session = Make();
  session.Start();
  EXPECT_EQ(session.Shown(), Screen::Location);
  EXPECT_EQ(session.Location().Texts().Title, "Select Location of 'Param' Directory");
  EXPECT_EQ(session.Location().Result(), "C:\\Param");

  // What is typed in the platform's form is kept by drive letter.
  m_scratch.MakeDirectory("D:\\Lab");
  session.Location().SetText(PathText(m_scratch.Native("D:\\Lab")));
  EXPECT_EQ(session.Location().Result(), "D:\\Lab\\Param");
  Boxes.Expect({.Text = "'Param' directory successfully created.", .Icon = BoxIcon::Information});
  session.Location().Accept();
  EXPECT_EQ(session.Shown(), Screen::Main);
  EXPECT_EQ(Settings.Values[kSetting], "D:\\Lab\\Param");
  EXPECT_EQ(m_scratch.Get("D:\\Lab\\Param\\Example.prm"), Example());
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\Sample Data\\Example.prm"), Example());
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\ZOVA2.hlp"), "help");
}

TEST_F(SessionTest, ALostParamDirectoryIsMadeAgainOrLookedFor) {
  const std::string notReady = "Path not found.  Please verify that the correct disk is in the drive.";
  for (const auto& [param, answer] : {std::pair("D:\\Deep\\Down\\Param", BoxAnswer::No),
                                      {"D:\\Away\\Param", BoxAnswer::Yes},
                                      {"Q:\\Param", BoxAnswer::No}}) {
    Settings.Values[kSetting] = param;
    Boxes.Expect({kLost, answer, "", BoxIcon::Exclamation, BoxButtons::YesNo, {}, "Warning"});
    if (*param == 'Q') Boxes.Expect({notReady, BoxAnswer::Cancel});
    Make().Start();
    const bool made = *param == 'D' && answer == BoxAnswer::No;
    EXPECT_EQ(m_session->Shown(), made ? Screen::Main : Screen::Location) << param;
    EXPECT_EQ(m_scratch.Has(made ? "D:\\Deep\\Down\\Param\\Example.prm" : "D:\\Away"), made);
    m_session.reset();
  }
}

TEST_F(SessionTest, AParamDirectoryThatIsThereAfterAllStaysAsItIs) {
  FailingFileLayer layer(m_scratch.Layer());
  Disk disk(layer, m_scratch.Drives());
  m_scratch.Put(kExample, "a project of the user's own");
  Settings.Values[kSetting] = "C:\\Param";
  const Platform platform = With(disk);
  Boxes.Expect({Message(std::errc::io_error), BoxAnswer::Retry, "'C:\\Param'"});
  {
    Session session(platform, "C:\\ZOVA", {});
    session.Prepare();
    layer.FailAt(1, std::errc::io_error);
    session.Start();
    EXPECT_EQ(session.Shown(), Screen::Main);
  }
  // It comes back while the question stands.
  struct ReturningBoxes final : MessageBoxes {
    explicit ReturningBoxes(const Scratch& scratch) : Place(scratch) {}
    BoxAnswer Show(const MessageBox& box) override {
      EXPECT_EQ(box.Text, kLost);
      std::filesystem::rename(Place.Native("C:\\Away"), Place.Native("C:\\Param"));
      return BoxAnswer::No;
    }
    const Scratch& Place;
  } boxes(m_scratch);
  std::filesystem::rename(m_scratch.Native("C:\\Param"), m_scratch.Native("C:\\Away"));
  Session session(With(disk, boxes), "C:\\ZOVA", {});
  session.Start();
  EXPECT_EQ(session.Shown(), Screen::Main);
  EXPECT_EQ(m_scratch.Get(kExample), "a project of the user's own");
}

TEST_F(SessionTest, AProjectWhoseNamesLeadElsewhereIsViewedOrNotBackedUp) {
  const struct {
    const char *Abbreviation, *FileName, *Marker;
    bool Enters, BacksUp;
  } cases[] = {{"..\\..\\evil", "Example.prm", kCurrentMarker, false, false},
               {"", "Example.prm", kCurrentMarker, false, false},
               {"Example", "..\\.profile", kCurrentMarker, true, false},
               {"Example", ".profile", kCurrentMarker, true, false},
               {"Example", ".profile", kOldestMarker, true, true},
               {"Example", "EXAMPLE.PRM", kCurrentMarker, true, true}};
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.Abbreviation) + " " + c.FileName);
    ProjectParameters project = ExampleProject("C:\\ZOVA");
    project.Abbreviation = c.Abbreviation;
    project.ProjectFileName = c.FileName;
    m_scratch.Put(kExample, FormatProject(project, c.Marker));
    m_scratch.Put("C:\\.profile", "the user's own");
    Session& session = Started();
    OpenProject(session, kExample);
    const MenuStates menus = session.Menus();
    EXPECT_TRUE(menus.View);
    for (const bool on : {menus.Enter, menus.ReadOld, menus.Master}) EXPECT_EQ(on, c.Enters);
    EXPECT_EQ(menus.Backup, c.BacksUp);
    const std::string note = session.ProjectNote();
    EXPECT_EQ(note.empty(), c.BacksUp);
    if (!c.Enters) Boxes.Expect(Told(note));
    if (!c.Enters) session.EnterSubjects();
    if (c.BacksUp) continue;
    Boxes.Expect(kRestoreAsked);
    Boxes.Expect(Told(note));
    Dialogs.Answers.emplace_back(kExample);
    const Tree before = m_scratch.Snapshot();
    session.RestoreFromBackup();
    EXPECT_EQ(m_scratch.Snapshot(), before);
  }
}

TEST_F(SessionTest, ABackupOfAnOlderProjectFollowsAMovedParam) {
  m_scratch.Put("C:\\Param\\Old.prm", "3,66,1,6,11,1,7,1,0,0,\"AB\",\"\",\"Data\\\",\"\"\r\n");
  m_scratch.MakeDirectory("C:\\Data\\Sdata");
  m_scratch.MakeDirectory("D:\\Backup");
  Session& session = Started();
  OpenProject(session, "C:\\Param\\Old.prm");
  session.ViewParameters();
  session.FinishWizard();
  EXPECT_EQ(session.Shown(), Screen::Main);
  session.ChangeParamLocation();
  session.Location().SetText("D:\\");
  Boxes.Expect(Told("'Param' directory successfully moved!", BoxIcon::Information));
  session.Location().Accept();
  session.CreateNewBackup();
  EXPECT_EQ(session.Location().Texts().Title, "New Backup Destination");
  session.Location().SetText("D:\\Back\"up\n");
  EXPECT_EQ(session.Location().Text(), "D:\\Backup");
  Boxes.Expect(Told("The backup directory and files were successfully created.", BoxIcon::Information));
  session.Location().Accept();
  EXPECT_EQ(m_scratch.Get("D:\\Backup\\Old.prm"), m_scratch.Get("D:\\Param\\Old.prm"));
  EXPECT_EQ(session.Shown(), Screen::Main);
}

TEST_F(SessionTest, ALostProjectIsRestoredFromTheCopyInItsBackup) {
  ProjectParameters project = ExampleProject("C:\\ZOVA");
  project.BackupDir = "D:\\New";
  const std::string copy = "D:\\New\\Example Backup.prm";
  m_scratch.Put(copy, FormatProject(project, kBackupMarker, "D:\\Bk"));
  m_scratch.Put("D:\\New\\Sdata\\Example Sub#1.dat", "one");
  Session& session = Started();
  Boxes.Expect(kRestoreAsked);
  Boxes.Expect({.Text = "The data was successfully restored.", .Icon = BoxIcon::Information, .Title = "Restore"});
  Dialogs.Answers = {copy};
  session.RestoreFromBackup();
  EXPECT_EQ(session.ProjectCaption(), "Example");
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\Sample Data\\Sdata\\Example Sub#1.dat"), "one");
  EXPECT_EQ(session.OpenedProject()->BackupDir, "D:\\Bk") << "as its owner chose";
  EXPECT_TRUE(m_scratch.Has(kExample));
}

TEST_F(SessionTest, AnAutosaveIsPutAsideWhenDeclinedAndWhenItCannotBeRead) {
  const char* autosave = "C:\\Param\\Temp.txt";
  const std::string torn = "\"Example.prm\"\r\n\"7\"\r\n\"Interv";
  ExpectedBox offer{
      "The program was interrupted while entering a subject.  Would you like to restore from the autosave?"};
  offer.Title = "Restore";
  for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Cancel}) {
    const std::string declined = answer == BoxAnswer::No ? "no" : "cancel";
    m_scratch.Put(autosave, declined);
    offer.Answer = answer, Boxes.Expect(offer);
    Boxes.Expect(
        {"The autosave was kept as 'C:\\Param\\Temp 1.txt'.", BoxAnswer::Ok, "'Browse'", BoxIcon::Information});
    Started();
    EXPECT_FALSE(m_scratch.Has(autosave));
    EXPECT_EQ(m_scratch.Get("C:\\Param\\Temp 1.txt"), declined);
  }
  m_scratch.Put(autosave, torn);
  offer.Answer = BoxAnswer::Yes, Boxes.Expect(offer);
  Boxes.Expect({"This is not a valid file format.  Please select a different file."});
  ProjectParameters project = ExampleProject("C:\\ZOVA");
  project.VariableCount = 0;
  OpenExample(project).EnterSubjects();
  EXPECT_EQ(m_scratch.Get(autosave), torn);
  m_session->Subjects().Identification().SetSubjectText("8");
  m_session->Subjects().FinishIdentification();
  EXPECT_EQ(m_scratch.Get("C:\\Param\\Temp 1.txt"), torn);
  EXPECT_FALSE(m_scratch.Has(autosave));
}

TEST_F(SessionTest, ASecondCopyOnOneParamDirectoryEnds) {
  Started();
  Session second(With(m_disk), "C:\\ZOVA", {});
  Boxes.Expect({.Text = "ZOVA is already running with this 'Param' directory.", .Icon = BoxIcon::Critical});
  second.Start();
  EXPECT_TRUE(second.HasEnded());
}

TEST_F(SessionTest, AProjectGivenAtTheStartIsOpenedHereOrByTheCopyThatRuns) {
  m_scratch.Put("D:\\Elsewhere.prm", Example());
  Session& first = Started();
  first.OpenProject("D:\\Elsewhere.prm");
  EXPECT_EQ(first.ProjectCaption(), "Example");
  Pointer.TakesProjects = true;
  Session second(With(m_disk), "C:\\ZOVA", PathText(m_scratch.Native("C:\\Installed")));
  second.Start("D:\\Elsewhere.prm");
  EXPECT_TRUE(second.HasEnded());
  EXPECT_EQ(Pointer.HandedOver, "C:\\Param|D:\\Elsewhere.prm");

  m_session.reset();
  Make().Start("D:\\Elsewhere.prm");
  EXPECT_EQ(m_session->ProjectCaption(), "Example");
}

TEST_F(SessionTest, CountsSubjectsOfTheOpenProjectAndListsTheOthers) {
  ProjectParameters small = ExampleProject("C:\\ZOVA");
  small.ProjectFileName = "Small.prm";
  small.Abbreviation = "Sm";
  small.TestCount = 1;
  small.PrimaryDir = "Q:\\not ready";
  m_scratch.Put("C:\\Param\\Small.prm", FormatProject(small, kCurrentMarker));
  m_scratch.Put("C:\\Param\\Broken.prm", "no project");
  m_scratch.Put("C:\\Param\\Example Backup.prm", Example(kBackupMarker));
  m_scratch.Put("C:\\ZOVA\\Sample Data\\Sdata\\Example Sub#1.dat", "");
  m_scratch.Put("C:\\ZOVA\\Sample Data\\Sdata\\Unfinished\\Example Sub#2.dat", "");
  m_scratch.Put(kExample, Example());
  Session& session = Started();
  session.CountProjects();
  std::multiset<std::string> listed;
  for (const ListedProject& project : session.Projects())
    listed.insert(project.Title + "|" + project.Shape + "|" + project.Subjects);
  EXPECT_EQ(listed, (std::multiset<std::string>{"Example|3 x 66|1", "Small|1 x 66|-"}));

  Boxes.Expect({kUnfinished, BoxAnswer::No, "", BoxIcon::Question});
  session.OpenProject(kExample);
  session.CountProjects();
  EXPECT_EQ(session.ProjectFacts(), "3 tests, 66 items, 1 subject, 1 unfinished");
  session.OpenProject("C:\\Param\\Small.prm");
  session.CountProjects();
  EXPECT_EQ(session.ProjectFacts(), "1 test, 66 items, - subjects, - unfinished");
}

TEST_F(SessionTest, OpeningAsksForUnfinishedSubjectsAndRefusesBackupCopies) {
  Session& session = Started();
  m_scratch.Put(kExample, Example());
  m_scratch.Put("C:\\ZOVA\\Sample Data\\Sdata\\Unfinished\\EXAMPLE Sub#7.dat", "");
  m_scratch.Put("D:\\Example Backup.prm", Example(kBackupMarker));
  m_scratch.Put("D:\\Broken.prm", "3,66,1");
  EXPECT_EQ(session.OpenCaption(), "Open Existing Project");

  Boxes.Expect({kUnfinished, BoxAnswer::No, "", {}, BoxButtons::YesNoCancel});
  OpenProject(session, kExample);
  EXPECT_EQ(Dialogs.Questions.front().Title, "Load Project");
  EXPECT_EQ(Dialogs.Questions.front().Directory + Dialogs.Questions.front().Filters.at(1).Pattern, "C:\\Param*");
  EXPECT_EQ(session.ProjectCaption(), "Example");
  EXPECT_EQ(session.OpenCaption(), "Change Project");
  EXPECT_TRUE(session.Menus().Unfinished);
  EXPECT_TRUE(session.Menus().SkipMinutes);

  // The open project stays until another is read: the dialog comes again for a file that is none, not for a missing
  // one.
  Dialogs.Answers = {"D:\\Broken.prm", "D:\\Broken.prm", std::nullopt, "D:\\none.prm"};
  const std::string missing = std::make_error_code(std::errc::no_such_file_or_directory).message();
  const ExpectedBox noProject{"This is not a valid file format.  Please select a different file."};
  const ExpectedBox retry{missing, BoxAnswer::Retry, "none.prm"}, cancel{missing, BoxAnswer::Cancel};
  for (const ExpectedBox& box : {noProject, noProject, retry, cancel}) Boxes.Expect(box);
  for (int times = 0; times < 2; ++times) session.OpenExistingProject();
  EXPECT_EQ(session.ProjectCaption(), "Example");

  Boxes.Expect({.Text = "You cannot use the backup parameters to open this project.  If the proper project file does "
                        "not exist in the 'Param' folder then you must first use the 'Restore From Backup' feature on "
                        "the 'Tools' menu."});
  OpenProject(session, "D:\\Example Backup.prm");
  EXPECT_EQ(session.ProjectCaption(), "(none)");
  EXPECT_EQ(session.Menus(), MenusFor({}));
}

TEST_F(SessionTest, PicturesOpenAProjectFirst) {
  Session& session = Started();
  m_scratch.Put(kExample, Example());
  Dialogs.Answers = {std::nullopt};
  session.EnterSubjects();
  EXPECT_EQ(session.OpenedProject(), nullptr);
  Dialogs.Answers = {kExample};
  Boxes.Expect({.Text = "There is no data yet entered for this project."});
  m_scratch.MakeDirectory("C:\\ZOVA\\Sample Data\\Sdata");
  session.CreateNewMaster();
  EXPECT_EQ(session.Shown(), Screen::Main);

  m_scratch.Put("C:\\ZOVA\\Sample Data\\Sdata\\Unfinished\\Example Sub#7.dat", "");
  Boxes.Expect(
      {"You have unfinished business for this experiment.  The unfinished data will not be included in the "
       "master.  Do you want to complete some data now?",
       BoxAnswer::Yes, "", BoxIcon::Question, BoxButtons::YesNoCancel});
  session.CreateNewMaster();
  EXPECT_EQ(session.Shown(), Screen::Identification);
  EXPECT_EQ(session.Subjects().Identification().Heading(), "Unfinished Business");
  session.Subjects().CancelIdentification();
  EXPECT_TRUE(session.Menus().Unfinished);
  std::filesystem::remove_all(m_scratch.Native("C:\\ZOVA\\Sample Data\\Sdata\\Unfinished"));
  Boxes.Expect({.Text = "You do not have unfinished data for this project.", .Icon = BoxIcon::Information});
  session.UnfinishedBusiness();
  EXPECT_FALSE(session.Menus().Unfinished);
}

TEST_F(SessionTest, WhatIsKeptOfTheLastMaster) {
  Session& session = OpenExample();
  SubjectRecord record;
  record.Lists = MakeLists(*session.OpenedProject(), "1/1 2/1 12/1 | 1/1 2/1 12/1 | 1/1/1 2/1/1 12/1/1");
  m_scratch.Put("C:\\ZOVA\\Sample Data\\Sdata\\Example Sub#1.dat", FormatSubject(record, *session.OpenedProject()));
  session.CreateNewMaster();
  Boxes.Expect({.Text = "Master(s) Successfully Created!", .Icon = BoxIcon::None});
  Bar.Meanwhile = [&] { EXPECT_FALSE(session.Close()) << "while the master is written"; };
  session.Masters().Continue();
  EXPECT_GT(Bar.Breaths, 0);
  EXPECT_EQ(session.Shown(), Screen::Main);
  EXPECT_NE(session.Masters().LastHeader(), "");
  session.OpenLastMasterFolder();
  EXPECT_EQ(Pointer.Folder, m_scratch.Native("C:\\ZOVA\\Sample Data"));
  Pointer.HasFileManager = false;
  Boxes.Expect({"The folder could not be opened.", BoxAnswer::Ok, "C:\\ZOVA\\Sample Data", BoxIcon::Exclamation});
  session.OpenLastMasterFolder();
  OpenProject(session, kExample);
  EXPECT_EQ(session.Masters().LastHeader(), "") << "the project was taken again";
  EXPECT_EQ(session.LastMaster(), "C:\\ZOVA\\Sample Data\\Example Master.txt");
}

TEST_F(SessionTest, OpenDuringTheWizardCancelsItFirst) {
  Session& session = OpenExample();
  session.CreateNewProject();
  EXPECT_EQ(session.OpenedProject(), nullptr) << "a new project closes the open one";
  MenuStates inWizard;
  inWizard.Open = true;
  EXPECT_EQ(session.Menus(), inWizard);
  session.Wizard().SetText(WizardBox::Title, "Another");
  session.Wizard().Next();
  session.ShowScreenHelp();
  EXPECT_EQ(Help.Shown, "C:\\ZOVA\\ZOVA2.hlp#wizard2");
  ExpectedBox erase{.Text = "This action will erase all of the entered parameters.  Are you sure you want to do this?",
                    .Answer = BoxAnswer::No,
                    .Title = "Warning"};
  Boxes.Expect(erase);
  session.OpenExistingProject();
  EXPECT_EQ(session.Shown(), Screen::Wizard);
  erase.Answer = BoxAnswer::Yes;
  Boxes.Expect(erase);
  OpenProject(session, kExample);
  EXPECT_EQ(session.ProjectCaption(), "Example");
  EXPECT_EQ(session.Shown(), Screen::Main);
  session.ChangeParamLocation();
  session.ShowScreenHelp();
  EXPECT_EQ(Help.Shown, "C:\\ZOVA\\ZOVA2.hlp#moveparam");
}

TEST_F(SessionTest, ClosingNeedsARegisteredParamDirectory) {
  Session& session = Make();
  session.Start();
  const ExpectedBox refused = Told("You cannot use ZOVA without selecting a location for the param directory.");
  Boxes.Expect(refused);
  EXPECT_FALSE(session.Close());
  session.Location().SetText("C:\\Elsewhere");  // any other act: the next refusal is the first again
  Boxes.Expect({"You cannot continue using ZOVA without selecting a location for the 'Param' Directory."});
  session.Location().Cancel();
  EXPECT_FALSE(session.HasEnded());
  Boxes.Expect(refused);
  EXPECT_TRUE(session.Close());
}

TEST(MenuStatesTest, EveryScreenHasItsEntries) {
  const MenuStates always;
  const auto with = [&](MenuStates states, std::initializer_list<bool MenuStates::*> entries) {
    for (const auto entry : entries) states.*entry = true;
    return states;
  };
  using M = MenuStates;
  const MenuStates none = with(always, {&M::Open, &M::Create, &M::Restore, &M::MoveParam, &M::NextBlank, &M::Autosave,
                                        &M::Words, &M::Import, &M::Subjects, &M::SecondEntry});
  const MenuStates open = with(none, {&M::Enter, &M::Master, &M::Examine, &M::ReadOld, &M::View, &M::Backup});
  const MenuStates entering = with(always, {&M::NextBlank, &M::Autosave, &M::SkipMinutes});
  const struct {
    MenuFacts Facts;
    MenuStates Expected;
  } cases[] = {
      {{}, none},
      {{Screen::Main, true}, open},
      {{Screen::Main, true, true, true}, with(open, {&M::SkipMinutes, &M::Unfinished})},
      {{Screen::Wizard}, with(always, {&M::Open})},
      {{Screen::Viewing, true, true, true}, always},
      {{Screen::Location, true, true, true}, always},
      {{Screen::Identification, true, true, true}, entering},
      {{Screen::Entry, true, true, true}, with(entering, {&M::SaveIncomplete})},
  };
  for (const auto& c : cases) EXPECT_EQ(MenusFor(c.Facts), c.Expected) << static_cast<int>(c.Facts.Shown);
}

}  // namespace
}  // namespace zova::testing
