// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ImportFlow.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "session/SessionFixture.h"

namespace zova::testing {
namespace {

using Stage = ImportFlow::Stage;
using ::testing::HasSubstr;

// A project of two tests with four words in two categories, "AB", whose Sdata is empty.
class ImportFlowTest : public SessionTest {
 protected:
  static constexpr const char* kSdata = "C:\\ZOVA\\Sample Data\\Sdata\\";

  Session& OpenStudy() {
    ProjectParameters project = ExampleProject("C:\\ZOVA");
    project.TestCount = 2;
    project.ItemCount = 4;
    project.Categorized = 1;
    project.CategoryCount = 2;
    project.ItemsPerCategory = 2;
    project.MinutesRecorded = project.Rated = project.FalseMemory = project.VariableCount = 0;
    project.Abbreviation = "AB";
    m_scratch.Put("C:\\ZOVA\\Sample Data\\AB Words.csv", "item,word\r\n1,rose\r\n2,tulip\r\n3,table\r\n4,chair\r\n");
    return OpenExample(project);
  }
  void PutTable(const std::string& text) { m_scratch.Put("C:\\data.csv", text); }
  ImportFlow& Import(Session& session) {
    Dialogs.Answers.emplace_back("C:\\data.csv");
    session.ImportRecalls();
    return session.Imports();
  }
};

TEST_F(ImportFlowTest, LeadsFromATableToSubjects) {
  PutTable("ID,trial,recall\nS1,1,rose\nS1,1,tulipp\nS1,2,chair\nS1,2,lamp\nS2,1,table\nS2,2,rose\n");
  Session& session = OpenStudy();
  ImportFlow& flow = Import(session);
  ASSERT_EQ(session.Shown(), Screen::Import);
  EXPECT_EQ(flow.TableLine(), "data.csv: 6 rows, 2 subjects, 2 tests");
  EXPECT_EQ(flow.ColumnSample(2), "rose, tulipp, chair, lamp, table");
  flow.Next();
  ASSERT_EQ(flow.CurrentStage(), Stage::Review);
  EXPECT_EQ(flow.ReviewLine(), "2 responses are no words of their lists; 2 still open");
  flow.Review().TakeNear();
  flow.Next();
  ASSERT_EQ(flow.CurrentStage(), Stage::DryRun);
  EXPECT_FALSE(flow.MayImport()) << flow.DryRunLine();
  ASSERT_EQ(flow.Choices().front().Name, "--others");
  flow.Choose("--others", 0);
  ASSERT_TRUE(flow.MayImport()) << flow.DryRunLine();
  EXPECT_EQ(flow.DryRunLine(), "2 subjects would be written");
  Boxes.Expect(Told("The recalls were imported: 2 subjects were written.", BoxIcon::Information));
  flow.Import();
  EXPECT_EQ(session.Shown(), Screen::Main);
  EXPECT_THAT(m_scratch.Get(std::string(kSdata) + "AB Sub#S1.dat"),
              HasSubstr("*\"\r\n1,1,0,0\r\n2,2,0,0\r\n3,0,0,0\r\n4,0,0,0\r\n1,4,0,0\r\n2,0,0,0\r\n"));
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\Sample Data\\AB Responses.csv"), "response,item\r\ntulipp,2\r\n");
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\Sample Data\\AB Intrusions.csv"),
            "subject,test,place,response,minute,rating\r\nS1,2,1,lamp,,\r\n");
}

TEST_F(ImportFlowTest, TakesAChangeBackThatMakesTheTableUnreadable) {
  PutTable("ID;trial;recall\nS1;1;rose, or \"so\nS1;2;chair\n");
  ImportFlow& flow = Import(OpenStudy());
  ASSERT_EQ(flow.CurrentStage(), Stage::Table);
  flow.ChooseUse(0, 0);
  EXPECT_EQ(flow.ColumnUse(0), 0);
  flow.ChooseUse(0, 1);
  EXPECT_EQ(flow.ColumnUse(0), 1);
  flow.SetFilter("trial", "2");
  EXPECT_EQ(flow.TableLine(), "data.csv: 1 row, 1 subject, 1 test");
  flow.SetFilter("", "");
  EXPECT_EQ(flow.TableLine(), "data.csv: 2 rows, 1 subject, 2 tests");
}

TEST_F(ImportFlowTest, AsksBeforeDecisionsAreLost) {
  PutTable("ID,trial,recall\nS1,1,rosse\nS1,2,chair\n");
  Session& session = OpenStudy();
  ImportFlow& flow = Import(session);
  flow.Next();
  flow.Review().TakeNear();
  const ExpectedBox asked = {"Do you wish to keep the decisions about the responses?",
                             BoxAnswer::Cancel,
                             "",
                             BoxIcon::Question,
                             BoxButtons::YesNoCancel,
                             BoxAnswer::Yes,
                             "Import Recalls"};
  Boxes.Expect(asked);
  flow.Cancel();
  EXPECT_EQ(session.Shown(), Screen::Import);
  flow.Back();
  ExpectedBox kept = asked;
  kept.Answer = BoxAnswer::Yes;
  Boxes.Expect(kept);
  EXPECT_TRUE(session.Close());
  EXPECT_EQ(m_scratch.Get("C:\\ZOVA\\Sample Data\\AB Responses.csv"), "response,item\r\nrosse,1\r\n");
}

// What is beyond the listed cases, and who numbers the subjects.
TEST_F(ImportFlowTest, TellsWhatItDoesNotList) {
  std::string table = "ID,trial,item,word\n";
  for (std::size_t row = 0; row <= ImportFindings::kMaxCases; ++row) table += "S1,1,1,tulip\n";
  PutTable(table);
  Session& session = OpenStudy();
  m_scratch.Put("C:\\ZOVA\\Sample Data\\AB Subjects.csv", "subject,original\r\n1,S1\r\n");
  ImportFlow& flow = Import(session);
  flow.Next();
  ASSERT_EQ(flow.CurrentStage(), Stage::DryRun);
  EXPECT_THAT(flow.DryRunLine(), HasSubstr("; 3 more cases are not listed"));
  EXPECT_EQ(flow.DryRunText(flow.DryRunRows() - 1, 1) + flow.DryRunText(flow.DryRunRows() - 1, 6),
            "3more cases, not listed");
  const auto ids = std::find_if(flow.Choices().begin(), flow.Choices().end(),
                                [](const ImportChoice& choice) { return choice.Name == "--ids"; });
  ASSERT_NE(ids, flow.Choices().end());
  EXPECT_EQ(ids->Answers, std::vector<std::string>{"Numbered, as in 'AB Subjects.csv'"});
}

TEST_F(ImportFlowTest, DefinesAProjectForATable) {
  PutTable(
      "subject,list,trial_type,position,word,age\n"
      "1,1,study,1,rose,old\n1,1,study,2,table,old\n1,1,recall,1,table,old\n"
      "2,1,study,1,rose,young\n2,1,study,2,table,young\n2,1,recall,1,rose,young\n");
  Session& session = Started();
  session.ImportRecalls();
  ASSERT_EQ(session.Imports().CurrentStage(), Stage::Project);
  Dialogs.Answers.emplace_back("C:\\data.csv");
  session.Imports().ChooseNew();
  ASSERT_EQ(session.Imports().CurrentStage(), Stage::Table);
  session.Imports().Next();
  ASSERT_EQ(session.Imports().CurrentStage(), Stage::Proposal);
  EXPECT_THAT(session.Imports().ProposalText(), HasSubstr("data.csv: 1 test, 2 items"));
  ASSERT_EQ(session.Imports().Proposal().Variables.size(), 1U);
  session.Imports().SetVariable(0, true);
  session.DefineImported();
  ASSERT_EQ(session.Shown(), Screen::Wizard);
  NewProjectWizard& wizard = session.Wizard();
  wizard.SetText(WizardBox::Title, "Roses");
  wizard.Next();
  m_scratch.MakeDirectory("C:\\Roses");
  wizard.SetText(WizardBox::Primary, "C:\\Roses");
  for (int page = 2; page < NewProjectWizard::kPages; ++page) wizard.Next();
  ASSERT_TRUE(wizard.ShowsDone()) << wizard.Page();
  Boxes.Expect(
      {"ZOVA will not allow you to make changes to the parameters once they are completed.  If you are not sure "
       "that the parameters are correct, please select the 'No' button and use the 'Back' button to verify all "
       "of the parameters for your project.  If you are sure that the parameters are correct then select "
       "'Yes'.  Are you sure these parameters are correct?",
       BoxAnswer::Yes,
       "",
       {},
       {},
       {},
       "Warning"});
  session.FinishWizard();
  ASSERT_EQ(session.Shown(), Screen::Import);
  EXPECT_EQ(session.OpenedProject()->VariableNames[0], "age");
  EXPECT_EQ(session.Imports().TableLine(), "data.csv: 6 rows, 2 subjects, 1 test");
  EXPECT_EQ(m_scratch.Get("C:\\Roses\\Roses Words.csv"), "item,word\r\n1,rose\r\n2,table\r\n");
}

// What stops a new project can be mended on the table's page, and is said in words of the screen.
TEST_F(ImportFlowTest, LeavesNoTableOfANewProjectWithoutAWayOn) {
  struct Case {
    const char* Table;
    const char* Said;  ///< the notes of the page, the line beside Next, or the box that Next shows
    std::function<void(ImportFlow&)> Mend;
    const char* Proposal;
  };
  std::string lists = "subject,list,trial_type,word\na,1,recall,w1\n";
  for (int word = 1; word <= 1000; ++word) {
    lists += "a," + std::to_string(word % 2 + 1) + ",study,w" + std::to_string(word) + "\n";
  }
  const Case cases[] = {
      {"who,list,kind,answer\na,1,study,rose\na,1,recall,rose\n",
       "No column of responses was found; highlight one and choose 'Word' under 'Used as', or choose another shape\n"
       "No column of subjects was found; highlight one and choose 'Subject' under 'Used as'",
       [](ImportFlow& flow) { flow.ChooseUse(0, 1), flow.ChooseUse(3, 5), flow.ChooseUse(2, 8); }, "1 test, 1 item"},
      {lists.c_str(),
       "The table has 1000 items; a project has at most 999; 'Items are positions in the study list' counts the 500 of "
       "one list; a part by 'Only rows with' would fit: list",
       [](ImportFlow& flow) { flow.ChooseHowRead("--items", 1); }, "2 tests, 500 items"},
      {"subject,list,word\na,1,rose\n",
       "The table has neither study rows nor item numbers; a new project needs one of them, or a word list (Open "
       "Words).",
       [&](ImportFlow& flow) {
         m_scratch.Put("C:\\words.txt", "Word\nnose\nrose\n");
         Dialogs.Answers.emplace_back("C:\\words.txt");
         flow.ChooseWords();
         EXPECT_EQ(flow.WordsLine(), "Word list: words.txt, 2 words");
       },
       "1 test, 2 items"},
      {"subject,list,word,minute\na,x,1,\na,y,2,0.5\nb,y,0,70\n", "3 questions are open: please choose on the left",
       [](ImportFlow& flow) {
         for (const auto& [name, answer] : {std::pair("--tests", 1), {"--first-item", 0}, {"--times", 0}}) {
           EXPECT_FALSE(flow.CanGoNext());
           flow.ChooseHowRead(name, answer);
         }
         const std::size_t asked = flow.HowRead().size();
         flow.SetFilter("subject", "a");
         EXPECT_EQ(flow.HowRead().size(), asked - 2) << "neither tests nor numbers are in question there";
         flow.SetFilter("", "");
         EXPECT_EQ(flow.TableTold(), "1 question is open: please choose on the left");
         flow.ChooseHowRead("--first-item", 0);
       },
       "2 tests, 3 items, 2 minutes"}};
  for (const Case& c : cases) {
    PutTable(c.Table);
    const Platform platform = With(m_disk);
    ImportFlow flow(platform);
    flow.OpenWithoutProject();
    Dialogs.Answers.emplace_back("C:\\data.csv");
    flow.ChooseNew();
    ASSERT_EQ(flow.CurrentStage(), Stage::Table) << c.Table;
    const std::string told = flow.ColumnNotes() + flow.TableTold();
    if (told.empty()) Boxes.Expect(Told(c.Said));
    EXPECT_TRUE(told.empty() || told == c.Said) << told;
    flow.Next();
    EXPECT_EQ(flow.CurrentStage(), Stage::Table) << c.Table;
    c.Mend(flow);
    flow.Next();
    ASSERT_EQ(flow.CurrentStage(), Stage::Proposal) << c.Table << flow.ColumnNotes() << flow.TableTold();
    EXPECT_EQ(flow.ProposalText(), "data.csv: " + std::string(c.Proposal));
    flow.Back();
    flow.Back();
    EXPECT_EQ(flow.CurrentStage(), Stage::Project);
  }
}

}  // namespace
}  // namespace zova::testing
