// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/wizard/NewProjectWizard.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "project/ProjectFile.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"

namespace zova::testing {
namespace {

using enum WizardBox;
using enum BoxAnswer;
using Typed = std::vector<std::pair<WizardBox, std::string>>;
using Boxes = std::vector<ExpectedBox>;

ExpectedBox Asked(const std::string& text, BoxAnswer answer, BoxAnswer preset = Yes) {
  return {text, answer, "", BoxIcon::Exclamation, BoxButtons::YesNoCancel, preset};
}
ExpectedBox AskedToCreate(const std::string& directory, BoxAnswer answer) {
  return Asked("'" + directory + "' Directory does not exist.  Do you wish to create it?", answer);
}
ExpectedBox AskedToShare(const std::string& prefix, BoxAnswer answer) {
  const char* const rest = "' in the primary directory.  Do you want to use this prefix anyway?";
  return Warned("There are already data files with the prefix '" + prefix + rest, answer);
}
const std::string kAdvice =
    "It is recommended that you save the information to different drives.  Do you wish to change a directory?";
const std::string kFinish =
    "ZOVA will not allow you to make changes to the parameters once they are completed.  If you are not sure that the "
    "parameters are correct, please select the 'No' button and use the 'Back' button to verify all of the parameters "
    "for your project.  If you are sure that the parameters are correct then select 'Yes'.  Are you sure these "
    "parameters are correct?";
const ExpectedBox kBadName = Told("Bad file name.  Please select another.");
const ExpectedBox kBadItems = Told("Value for number of items must be greater than 0 and less than 1000.");

class NewProjectWizardTest : public ::testing::Test, protected Scratch {
 protected:
  NewProjectWizardTest() {
    for (const char* file : {"C:\\Param\\a.prm", "C:\\Data\\a", "C:\\File"}) Put(file, "");
    m_wizard.Start("C:\\Param");
    Type({{Title, "Pilot"}, {Primary, "C:\\Data"}, {Tests, "3"}, {Items, "60"}});
  }
  void Type(const Typed& texts) {
    for (const auto& [box, text] : texts) {
      if (box <= Abbreviation) m_wizard.SetText(box, text);
      if (box == RatedTests) m_wizard.SetRated(std::stoi(text), true);
      if (box == CategoriesOption) m_wizard.SetOption(WizardOption::Categorized, text != "no");
      if (box == CategoriesOption) m_wizard.SetOption(WizardOption::FalseMemory, text == "lures");
      if (box == Minutes) m_wizard.SetOption(WizardOption::Minutes, text != "no");
      if (box == MaxRating) m_wizard.SetOption(WizardOption::Ratings, true);
    }
  }
  void GoTo(int page) {
    while (m_wizard.Page() > page) m_wizard.Back();
    for (int steps = page - m_wizard.Page(); steps > 0; --steps) m_wizard.Next();
    ASSERT_EQ(m_wizard.Page(), page);
  }
  void Expect(const Boxes& boxes) {
    for (const ExpectedBox& box : boxes) m_fakes.Boxes.Expect(box);
  }
  // Types on page 1, goes to the page and leaves it forward. Without `part` the page and the record stand, with the
  // cursor placed in the box that was typed last; else the page is left, and `part` is in the record's file.
  void Leave(int page, const Typed& texts, const Boxes& boxes, const char* part = nullptr) {
    GoTo(1), Type(texts), GoTo(page), Expect(boxes);
    const auto [before, moves] = std::pair(m_wizard.Project(), m_wizard.CursorRevision());
    m_wizard.Next();
    EXPECT_EQ(m_wizard.Page(), part == nullptr ? page : page + 1) << texts.back().second;
    EXPECT_EQ(m_wizard.CursorRevision(), moves + 1);
    if (part != nullptr) {
      EXPECT_THAT(FormatProject(m_wizard.Project(), ""), ::testing::HasSubstr(part));
      return;
    }
    EXPECT_EQ(m_wizard.Cursor(), texts.back().first);
    EXPECT_EQ(m_wizard.Project(), before);
  }
  // "Done!" with this prefix.
  void Finish(const std::string& prefix, const Boxes& boxes, bool written = false) {
    Type({{Abbreviation, prefix}}), Expect(boxes);
    EXPECT_EQ(m_wizard.Done(false), written) << prefix;
  }

  FakePlatform m_fakes;
  NewProjectWizard m_wizard{m_fakes.With(Files)};
};

TEST_F(NewProjectWizardTest, TitleNamesTheFileAndThePrefixUntilOneIsTyped) {
  const Tree before = Snapshot();
  Leave(1, {{Title, " .prm"}}, {Told("The project must have a title.  Please re-enter.", BoxIcon::Information)});
  for (const std::string& bad : {std::string("a*b"), std::string("nul"), std::string("Com1.x.y"),
                                 std::string("\u200B\u00A0"), std::string("Aux .prm")})
    Leave(1, {{Title, bad}}, {kBadName});
  ExpectedBox tooLong = kBadName;
  tooLong.Details = TextOf(std::errc::filename_too_long);
  Leave(1, {{Title, std::string(300, 'x')}}, {tooLong});
  for (const auto& [prefix, title, file, shown] : std::vector<std::array<const char*, 4>>{
           {"", "  v1.2.3 ", "\"v1.prm\"", "v1"},
           {"Mine", "Say \"a\tb\"", "\"Say ab.prm\"", "Mine"},
           {"", "Übung für die Älteren", "\"Übung für die Älteren.prm\"", "Übung für die Ältere"},
           {"Übung für die Ältere", "Nineteen characters and more", "", "Nineteen characters "},
           {"Nineteen characters", "Next", "", "Next"}}) {  // page 8 takes the 20th, a space, off its box
    Leave(1, {{Abbreviation, prefix}, {Title, title}}, {}, file);
    EXPECT_EQ(m_wizard.Text(Abbreviation), shown);
  }
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(NewProjectWizardTest, OverwritingAndSharingAPrefixAreAskedFor) {
  const std::string overwrite =
      "There already is an experiment entitled 'Pilot'!  Are you sure you want to overwrite this data?";
  Put("C:\\Param\\PILOT.prm", FormatProject(ExampleProject("C:"), kCurrentMarker));
  for (const char* file : {"Example Sub#1.dat", "New 2.dat"}) Put(JoinPath("C:\\Data\\Sdata", file), "");
  const Tree before = Snapshot();
  for (const BoxAnswer answer : {No, Cancel}) Leave(1, {{Title, "Pilot"}}, {Asked(overwrite, answer, No)});
  Leave(1, {{Title, "Pilot"}}, {Asked(overwrite, Yes, No)}, "Pilot.prm");
  GoTo(8);
  Finish(" EXAMPLE ", {Warned(kFinish, No)});
  Finish("NEW", {AskedToShare("NEW", No)});
  Finish("NEW", {AskedToShare("NEW", Yes), Warned(kFinish, No)});
  Leave(7, {{Title, "Another"}}, {}, "");  // leave to overwrite was given for the other title only
  Finish("Example", {AskedToShare("Example", No)});
  Finish("a:b", {kBadName});
  Finish("  ", {Told("You must have an abbreviation.", BoxIcon::Information)});
  Finish(" ABCDEFGHIJKLMNOPQRS TUV", {Warned(kFinish, No)});
  EXPECT_EQ(m_wizard.Project().Abbreviation + m_wizard.Text(Abbreviation), "ABCDEFGHIJKLMNOPQRSABCDEFGHIJKLMNOPQRS");
  EXPECT_EQ(Snapshot(), before);
}

TEST_F(NewProjectWizardTest, DirectoriesAreMadeOrRefused) {
  const ExpectedBox badBackup = Told("Invalid Backup directory name.");
  ExpectedBox noDirectory = badBackup;
  noDirectory.Details = "Creating the directory 'C:\\File\\x'";
  const ExpectedBox notReady = Told("Drive is not ready or the disk is not correctly formatted.");
  Leave(2, {{Primary, " (NONE)"}}, {Told("You must have a primary path.")});
  Leave(2, {{Primary, "Data"}}, {Told("Invalid format. Please redo.")});
  Leave(2, {{Primary, "X:\\Data\\"}}, {notReady});
  for (const char* bad : {"C:\\File", "C:\\a*b", "C:\\Data\\con"})
    Leave(2, {{Primary, bad}}, {Told("Invalid Primary directory name.")});
  Leave(2, {{Primary, "C:\\New \\"}}, {AskedToCreate("C:\\New", No)});
  EXPECT_EQ(m_wizard.Text(Primary), "(none)");
  Leave(2, {{Primary, "C:\\Data"}, {Backup, "X:\\"}}, {notReady});
  Leave(2, {{Backup, "D:\\a\\..\\b"}}, {badBackup});
  Leave(2, {{Backup, "C:\\File\\x"}}, {AskedToCreate("C:\\File\\x", Yes), noDirectory});
  Leave(2, {{Backup, "c:\\DATA \\"}}, {Told("The primary and backup directories cannot be the same.")});
  for (const BoxAnswer answer : {Yes, Cancel}) Leave(2, {{Backup, "c:/Param"}}, {Asked(kAdvice, answer)});
  EXPECT_EQ(m_wizard.Text(Backup), "c:\\Param");
  Leave(2, {{Backup, "C:\\x\\y"}}, {AskedToCreate("C:\\x\\y", Yes), Asked(kAdvice, No)}, "\"C:\\x\\y\"");
  EXPECT_TRUE(Has("C:\\x\\y"));
  GoTo(2), m_wizard.CopyPath(Primary);  // the browser's, at the root whenever the page is arrived at
  Leave(2, {{Backup, "D:\\"}}, {}, "\"C:\",\"D:\"");
  Leave(2, {{Primary, PathText(Native("C:\\Data"))}, {Backup, " "}}, {}, "\"C:\\Data\",\"(none)\"");
}

TEST_F(NewProjectWizardTest, NumbersAreCutReadRoundedAndLimitedAndOnlyExistingTestsAreRated) {
  for (const char* bad : {"", "16", "-1", "1e1", ".5"}) {
    Leave(3, {{Tests, bad}}, {Told("Number of tests must be between 1 and 15.")});
  }
  for (const char* bad : {"0", "1000", "12,5"}) Leave(3, {{Tests, "2"}, {Items, bad}}, {kBadItems});
  Leave(3, {{Tests, "15 or so"}, {Items, "999.9"}}, {}, "15,999,");
  Leave(3, {{Tests, "2.5"}, {Items, " 60"}}, {}, "2,60,");
  EXPECT_EQ(m_wizard.Text(Tests) + m_wizard.Text(Items), "260") << "what was taken";
  for (const char* bad : {"0", "6001"}) {
    Leave(6, {{Minutes, bad}}, {Told("Value for number of minutes must be between 1 and 6000.")});
  }
  Leave(6, {{Minutes, "60009"}}, {}, "2,60,0,0,0,1,6000,");
  EXPECT_EQ(m_wizard.Text(Minutes), "6000");
  Leave(6, {{Minutes, "no"}}, {}, "2,60,0,0,0,0,0,");
  Leave(7, {{Tests, "3"}}, {}, ",,0,0,,");  // only existing tests are rated; another count resets them
  for (const char* text : {"0", "1001"})
    Leave(7, {{MaxRating, text}}, {Told("Value for the maximum rating must be between 1 and 1000.")});
  Leave(7, {{MaxRating, "1000"}, {RatedTests, "4"}}, {Told("At least 1 test must be rated.")});
  Leave(7, {{RatedTests, "3"}}, {}, ",,1,1000,,");
  Leave(7, {{Tests, "3"}}, {}, "\r\n\"N\"\r\n\"N\"\r\n\"Y\"\r\n");
  Leave(7, {{Tests, "4"}}, {}, ",,0,0,,");
  Leave(7, {{MaxRating, "6"}, {RatedTests, "5"}}, {Told("At least 1 test must be rated.")});
}

TEST_F(NewProjectWizardTest, LuresGoOutAsTheyCameIn) {
  const ExpectedBox uneven = Told("All categories must have an equal number of items.");
  const ExpectedBox bad = Told("Value for number of categories must be numeric and between 1 and 5000.");
  Leave(4, {{CategoriesOption, "lures"}, {Categories, ""}}, {Told("You must enter the number of categories.")});
  for (const char* text : {"0", "5001", "6+"}) Leave(4, {{Categories, text}}, {bad});
  Leave(4, {{Categories, "7"}}, {uneven});
  Leave(4, {{Categories, "0006 of them"}}, {}, "3,66,1,6,11,");
  Leave(4, {{Categories, "6"}}, {}, "3,66,1,6,11,");
  Leave(4, {{Categories, "11"}}, {uneven});  // a divisor of 66, but not of the 60 that were studied
  Leave(4, {{CategoriesOption, "yes"}, {Categories, "5"}}, {}, "3,60,1,5,12,");
  Leave(4, {{CategoriesOption, "lures"}}, {}, "3,65,1,5,13,");
  Leave(4, {{CategoriesOption, "no"}}, {}, "3,60,0,0,0,");
  Leave(4, {{Items, "999"}, {CategoriesOption, "lures"}, {Categories, "1"}}, {kBadItems});
  Leave(4, {{Items, "998"}, {Categories, "1"}}, {}, "3,999,1,1,999,");
  Leave(4, {{Items, "1"}, {Categories, "1"}}, {kBadItems});
  Leave(4, {{CategoriesOption, "no"}}, {kBadItems});
}

TEST_F(NewProjectWizardTest, DoneWritesOnceAndAFailureKeepsThePage) {
  Type({{Backup, "D:\\"}});
  m_wizard.SetOption(WizardOption::Variables, true);
  for (const char* name : {"Group", "One"}) Type({{Variable, name}}), m_wizard.EnterVariableText();
  Type({{Variable, "Two"}});  // still in its box on "Next >>"
  GoTo(7), Finish("P", {});
  GoTo(8), m_wizard.Next();
  MakeDirectory("D:\\Pilot.prm");
  Finish("P", {Warned(kFinish, Yes), {TextOf(std::errc::is_a_directory), Cancel}});
  std::filesystem::remove(Native("D:\\Pilot.prm"));
  Finish("P", {Warned(kFinish, Yes)}, true);
  Finish("P", {});
  const std::string file =
      "3,60,0,0,0,0,0,,,0,0,,1,\"P\",\"C:\\Data\",\"D:\",\"Pilot.prm\",0,,\"VB Version\"\r\n"
      "2\r\n\"Group\"\r\n\"One\"\r\n\"Two\"\r\n";
  for (const char* place : {"C:\\Param", "C:\\Data", "D:"}) EXPECT_EQ(Get(JoinPath(place, "Pilot.prm")), file);
  EXPECT_EQ(FormatProject(m_wizard.Project(), kCurrentMarker), file);
}

TEST_F(NewProjectWizardTest, CancelAsksFromPageTwoAndForgetsAll) {
  const char* const text = "This action will erase all of the entered parameters.  Are you sure you want to do this?";
  for (const auto& [answer, counter] : {std::pair(No, "2 of 8"), {Cancel, "2 of 8"}, {Yes, "1 of 8"}}) {
    m_wizard.Back(), GoTo(2), Expect({Warned(text, answer, BoxButtons::YesNoCancel)});
    EXPECT_EQ(m_wizard.Cancel(), answer == Yes);
    EXPECT_EQ(m_wizard.Counter(), counter);
  }
  EXPECT_EQ(m_wizard.Text(Title) + m_wizard.Text(Primary) + m_wizard.Text(Abbreviation), "(none)");
  EXPECT_EQ(m_wizard.Project(), ProjectParameters());
}

TEST_F(NewProjectWizardTest, ViewingShowsAProjectAndChangesNothing) {
  const auto boxes = {Title, Primary, Backup, Tests, Items, Categories, Minutes, MaxRating, Abbreviation, Variable};
  ProjectParameters project = ExampleProject("C:\\ZOVA");
  project.BackupDir.clear();
  project.TestCount = 99;
  m_wizard.View(project);
  for (int page = 1; page <= NewProjectWizard::kPages; ++page, m_wizard.Next()) {
    for (const WizardBox box : boxes) m_wizard.SetText(box, "x");
    Type({{CategoriesOption, "no"}, {RatedTests, "1"}});
    m_wizard.EnterVariableText(), m_wizard.AddVariable(), m_wizard.DeleteHighlighted(), m_wizard.CopyPath(Backup);
  }
  m_wizard.ReviewVariables();
  std::string shown;
  for (const WizardBox box : boxes) shown += m_wizard.Text(box) + (m_wizard.Asks(box) ? "|" : "!");
  EXPECT_EQ(shown, "Example|C:\\ZOVA\\Sample Data|(none)|99|66|6|7|6|Example|Interval|");
  EXPECT_EQ(m_wizard.TestCount(), kMaxTests);
  EXPECT_TRUE(m_wizard.Entries().RatedTests[2]);
  EXPECT_FALSE(m_wizard.Entries().RatedTests[0]);
  EXPECT_EQ(m_wizard.Project(), project);
  EXPECT_TRUE(m_wizard.Done(false));
}

}  // namespace
}  // namespace zova::testing
