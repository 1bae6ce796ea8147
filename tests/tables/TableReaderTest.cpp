// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>

#include "tables/ImportDesk.h"
#include "tables/TableValues.h"

namespace zova::testing {
namespace {

using namespace std::string_literals;

// The same recalls in every form: whatever a table looks like, the subject files are the same.
TEST(TableReader, ReadsAllShapesAlike) {
  struct Case {
    const char* Name;
    std::string Table;
    Options Given;
  };
  const std::vector<Case> cases = {
      {"long", "subject,list,position,word\na,1,1,Apple\na,1,2,CRÈME\na,2,1,vase\nb,1,1,yo yo\nb,2,1,NA\n", {}},
      {"tabs and other names",
       "Sub_ID\tTrial\tOutput Position\tRecalled\na\t1\t2\tcreme\na\t1\t1\tapple\n"
       "a\t2\t1\tvase\nb\t1\t1\tyoyo\nb\t2\t\t.\n",
       {}},
      {"semicolons, Windows-1252",
       "sep=;\r\n\"id\";\"test\";\"response\"\r\na;1;apple\r\na;1;cr\xE8me\r\n;;\r\na;2;vase\r\n"
       "b;1;yo-yo\r\nb;2;\r\n; ;\r\n;;;;\r\n",
       {}},
      {"mark, quotes, not sorted",
       "\xEF\xBB\xBFsubject,\"list\",word\nb,1,\"yo\nyo\"\na,2,vase\nb,2,n/a\na,1,apple\n"
       "a,1,crème\n",
       {}},
      {"no header",
       "a,1,apple\na,1,crème\na,2,vase\nb,1,yo-yo\nb,2,\n",
       {{"--no-header", ""}, {"--columns", "subject=#1,test=#2,word=#3"}}},
      {"study rows, other rows",
       "subject,list,trial_type,position,item\n"
       "a,1,STUDY,1,crème\na,1,study,2,apple\na,1,recall,1,apple\na,1,cue,1,table\n"
       "a,1,recall,2,crème\na,2,study,1,vase\na,2,recall,1,vase\nb,1,recall,1,yo-yo\n"
       "b,2,study,1,vase\n",
       {}},
      {"cells",
       "subject,list,response\na,1,\"apple, crème\"\na,2,\"vase,\"\nb,1,yo-yo\nb,2,\n",
       {{"--shape", "lists"}}},
      {"numbers in cells", "subject,list,response\na,1,1;6\na,2,5\nb,1,4\nb,2,\n", {{"--shape", "lists"}}},
      {"columns", "subject,list,word1,word2\na,1,apple,crème\na,2,vase,\nb,1,yo-yo\nb,2,NA,NA\n", {}},
      {"wide cells", "id,List1,List2\na,apple creme,vase\nb,yo yo,\n", {}},
      {"wide columns", "id,Test1_2,Test1_1,Test2_1,Test2_2\na,crème,apple,vase,\nb,,yo-yo,.,\n", {}},
      {"a part",
       "subject,list,word,day\na,1,table,2\na,1,apple,1\na,1,crème,3\na,2,vase,1\nb,1,yo-yo,1\nb,2,,1\n",
       {{"--where", "day=1"}, {"--where", "day=3"}}},
      {"numbers", "subject,list,item\na,1,1\na,1,6\na,2,5\nb,1,4\nb,2,\n", {}},
      {"numbers from 0", "subject,list,item\na,1,0\na,1,5\na,2,4\nb,1,3\nb,2,\n", {{"--first-item", "0"}}},
      {"numbers and 0 for none", "subject,list,item\na,1,1\na,1,6\na,2,5\nb,1,4\nb,2,0\n", {{"--first-item", "1"}}},
      {"labels of tests",
       "subject,list,word\na,first,apple\na,first,crème\na,late,vase\nb,first,yo-yo\nb,late,\n",
       {}}};
  for (const Case& c : cases) {
    ImportDesk desk;
    const ImportDraft draft = desk.Draft(c.Table, c.Given);
    EXPECT_TRUE(draft.Plan.MayBeWritten()) << c.Name << "\n" << ImportDesk::CasesOf(draft);
    EXPECT_EQ(desk.Run(draft).Written, 2U) << c.Name;
    EXPECT_EQ(desk.Lists(), "a: 1 6 | 5; b: 4 |") << c.Name << "\n" << FormatImportReport(draft.Plan);
  }
}

TEST(TableReader, SaysWhatCannotBeRead) {
  const std::string header = "subject,list,word\n";
  const std::string rest =
      ", not a table of text.  Open it in the program that it comes from and save it as CSV UTF-8.";
  const std::pair<std::string, std::string> cases[] = {
      {"PK\x03\x04...", "This is a spreadsheet (.xlsx, .ods) or another archive" + rest},
      {"\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", "This is a spreadsheet (.xls)" + rest},
      {"$FL2@(#)", "This is a statistics program's data file (.sav)" + rest},
      {"\x1F\x8B\x08", "This is a compressed file (.gz, .rds, .rda)" + rest},
      {"\xFF\xFEs\0u\0"s, "This is text in UTF-16" + rest},
      {"s\0u\0b\0,\0l\0i\0"s, "This is text in UTF-16" + rest},
      {"", "The file is empty; a table has rows."},
      {header + "a,1,ap\0ple\n"s,
       "Line 2: The bytes are no text: one of them is NUL (column 3); save the file as CSV UTF-8."},
      {header + "a,1,apple\nb,1\n", "Line 3: There are 2 fields instead of 3."},
      {header + "a,1,apple,x\n", "Line 2: There are 4 fields instead of 3."},
      {header + "a,1,apple\nb,1,\"vase\n", "Line 3: A quote is never closed (column 3)."},
      {header + "a,1," + std::string(1024 * 1024 + 1, 'x'), "Line 2: A field is longer than 1 MiB (column 3)."}};
  for (const auto& [bytes, text] : cases) {
    ImportDesk desk;
    try {
      (void)desk.Draft(bytes);
      ADD_FAILURE() << text;
    } catch (const FileError& error) {
      EXPECT_EQ(error.Detail(), text);
      EXPECT_THAT(FormatImportReport(error), ::testing::HasSubstr("t.csv'"));
    }
  }
}

// Found in the sample, or not at all: named with the option that helps.
TEST(TableReader, ReportsColumnsThatAreMissingOrDoubtful) {
  ImportDesk desk;
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft("name,list,word\na,1,apple\n")),
            "error 0    No column of subjects was found; name one by --columns subject=NAME\n");
  EXPECT_EQ(
      ImportDesk::CasesOf(desk.Draft("subject,list,xyz\na,1,apple\n", {{"--columns", "word=xy"}})),
      "error 0 xy   There is no column 'xy' in the table\nerror 0    No column of responses was found; name one by "
      "--columns word=NAME, or the shape by --shape\n");
  const ImportDraft draft = desk.Draft("participant,subject,list,response,word\np,a,1,x,apple\np,a,2,x,vase\n");
  EXPECT_TRUE(draft.Plan.MayBeWritten());
  EXPECT_THAT(
      FormatImportReport(draft.Plan),
      ::testing::AllOf(::testing::HasSubstr("column,0,,participant,,,could be the subject as well; 'subject' is "
                                            "taken\r\ncolumn,0,,response,,,could be the word as well"),
                       ::testing::HasSubstr("\r\ntest,1,,,,2,test 2\r\n")));
  EXPECT_THAT(FormatImportReport(desk.Draft("id,Test1_1,Test1_2,Test2_1\na,apple,vase,table\n").Plan),
              ::testing::HasSubstr("\r\ncolumn,1,,Test1_2,,1,responses\r\ncolumn,1,,Test2_1,,2,responses\r\n"));
  EXPECT_THAT(FormatImportReport(
                  desk.Draft("id,list,word\na,3,apple\na,7,vase\nb,7,apple\nb,9,vase\n", {{"--tests", "rank"}}).Plan),
              ::testing::HasSubstr("\r\ntest,2,,,,7,\"test 1 of 1 subject, test 2 of 1 subject\"\r\n"));
}

TEST(TableValues, AreNumbersTimesAndLevels) {
  for (const auto& [text, number] : {std::pair("7", 7),
                                     {"-1", -1},
                                     {"3.0", 3},
                                     {"3.5", -9},
                                     {"3.", 3},
                                     {"", -9},
                                     {"3 ", -9},
                                     {"1e3", -9},
                                     {"99999999999", -9},
                                     {"+3", -9}}) {
    EXPECT_EQ(WholeNumber(text).value_or(-9), number) << text;
  }
  struct Case {
    const char* Text;
    std::optional<TimeUnit> Unit;
    char Delimiter;
    int Minute;  ///< 0 for none
  };
  for (const Case& c : {Case{"2", {}, ',', 2},
                        {"0", {}, ',', 0},
                        {"4", {}, ',', 0},
                        {"1.5", {}, ',', 0},
                        {"0", TimeUnit::Seconds, ',', 1},
                        {"59.999", TimeUnit::Seconds, ',', 1},
                        {"60", TimeUnit::Seconds, ',', 2},
                        {"180", TimeUnit::Seconds, ',', 3},
                        {"180.1", TimeUnit::Seconds, ',', 0},
                        {"-1", TimeUnit::Seconds, ',', 0},
                        {"119999", TimeUnit::Milliseconds, ',', 2},
                        {"2,5", TimeUnit::Minutes, ';', 3},
                        {"2,5", TimeUnit::Minutes, ',', 0},
                        {"nan", TimeUnit::Minutes, ',', 0}}) {
    EXPECT_EQ(MinuteOf(c.Text, c.Unit, 3, c.Delimiter).value_or(0), c.Minute) << c.Text;
  }
  ProjectParameters project;
  project.VariableCount = 1;
  project.LevelCounts[0] = 4;
  const char* names[] = {"low", "2", "1", "low"};
  std::copy(std::begin(names), std::end(names), project.LevelNames[0].begin());
  for (const auto& [text, level] : {std::pair("low", 1),
                                    {"LOW", 1},
                                    {"low (4)", 4},
                                    {"2", 2},
                                    {"1", 3},
                                    {"4", 4},
                                    {"5", 0},
                                    {"", 0},
                                    {"high", 0}}) {
    EXPECT_EQ(LevelOf(text, project, 0), level) << text;
  }
}

}  // namespace
}  // namespace zova::testing
