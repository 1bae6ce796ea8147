// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>

#include "master/exports/LongExport.h"
#include "project/FileChanges.h"
#include "project/ProjectFile.h"
#include "scoring/ScoreSubject.h"
#include "tables/ImportDesk.h"
#include "tables/proposal/NewProjectFromTable.h"

namespace zova::testing {
namespace {

using ::testing::HasSubstr;

// Each response on a line of its own: how many are exact, decided, proposed, taken, open, intrusions, skipped.
std::string CountsOf(const ImportDraft& draft) {
  const ImportCounts& c = draft.Plan.Findings.Counts;
  std::string text;
  for (const std::size_t count :
       {c.Exact, c.Decided, c.Proposed, c.Taken, c.Open, c.Intrusions, c.OtherList, c.Skipped}) {
    text += (text.empty() ? "" : " ") + std::to_string(count);
  }
  return text;
}

TEST(Matching, GoesByWordAccentsDecisionAndNearness) {
  struct Case {
    const char* Responses;  ///< of subject a on test 1, in a cell
    Options Given;
    const char* Counts;  ///< exact, decided, proposed, taken, open, intrusions, of other lists, skipped
    const char* List;
  };
  const Options take = {{"--accept-distance", "1"}, {"--others", "intrusion"}};
  const Case cases[] = {
      {"APPLE|Yo Yo|creme", {}, "3 0 0 0 0 0 0 0", "1 4 6"},
      {"creme", {{"--accents", "exact"}, {"--others", "skip"}}, "0 0 1 0 1 0 0 1", ""},
      {"aplpe|tabl|vaze", take, "0 0 3 3 0 0 0 0", "1 2 5"},
      {"aplpe|tabl|vaze", {{"--others", "intrusion"}}, "0 0 3 0 3 3 0 0", ""},
      {"chilipwder|chilpwder", take, "0 0 2 1 1 1 0 0", "3"},
      {"chilli powder|chilli|powder", take, "0 0 2 2 0 0 0 0", "3"},  // both spellings are the same item
      {"zebra|ap|apple1|???", take, "0 0 0 0 4 4 0 0", ""},
      {"yo|yo|apple", take, "1 0 1 1 0 0 0 0", "4 1"},  // two pieces may be one word, which is not taken unasked
      {"yo|yo|apple", {{"--others", "intrusion"}}, "1 0 1 0 1 1 0 0", "1"},
      {"bad|skipped|=apple()|deci", take, "1 3 0 0 0 1 0 1", "1 2"},
      {"NA|N/A|nan|.| |apple", {}, "1 0 0 0 0 0 0 0", "1"}};
  for (const Case& c : cases) {
    ImportDesk desk;
    desk.Files.Put("C:\\Data\\AB Responses.csv",
                   "response,item\r\nbad,intrusion\r\nskipped,skip\r\nDeci,2\r\napple,5\r\n");
    Options given = c.Given;
    given.insert(given.end(), {{"--separator", "|"}, {"--shape", "lists"}});
    const ImportDraft draft = desk.Draft("subject,list,word\na,1," + std::string(c.Responses) + "\na,2,vase\n", given);
    std::string counts = c.Counts;
    counts[0] = static_cast<char>(counts[0] + 1);  // vase
    EXPECT_EQ(CountsOf(draft), counts) << c.Responses;
    EXPECT_THAT(ImportDesk::CasesOf(draft),
                HasSubstr("'AB Responses.csv', line 5: 'apple' is a word; what was decided about it is passed over"));
    if (!draft.Plan.MayBeWritten()) continue;
    desk.Run(draft);
    EXPECT_EQ(desk.Lists(), "a:" + (*c.List == 0 ? std::string() : " " + std::string(c.List)) + " | 5") << c.Responses;
  }
}

// What a table leaves open is asked, with its rows; what is given is not.
TEST(Import, AsksAndReports) {
  const std::string head = "subject,list,position,word,minute,rating,sex\n";
  struct Case {
    const char* Rows;
    Options Given;
    const char* Cases;
    const char* Lists;  ///< after the import; "" when nothing is written
  };
  const Case cases[] = {
      {"a,1,1,apple,1,2,m\na,1,2,vase,2,9,m\na,1,3,yo-yo,9,1,m\na,2,1,vase,2,,m\n",
       {{"--times", "number"}},
       "rating 3 rating a 1 '9' is no rating from 1 to 3\nminute 4 minute a 1 '9' is in none of the minutes 1 to 2\n"
       "check 3 rating a 1 test 1, line 2: There was a space detected in the data.\n",
       ""},
      {"a,1,1,apple,1,2,m\na,1,x,vase,2,1,m\na,1,1,yo-yo,2,1,m\na,1,-2,table,2,1,m\na,2,1,vase,2,,m\n",
       {},
       "error 3 position a 1 'x' is no position; --order rows takes the order of the rows\n"
       "error 5 position a 1 '-2' is no position; --order rows takes the order of the rows\n"
       "error 4 position a 1 position 1 stands twice\n",
       ""},
      {"a,1,1,apple,1,2,m\na,1,x,vase,2,1,m\na,2,1,vase,2,,m\n", {{"--order", "rows"}}, "", "a: 1/1/2 5/2/1 | 5/2"},
      {"a,1,5,apple,1,2,1\na,1,9,vase,2,1,\na,1,7,apple,2,1,\na,2,1,vase,2,,\n", {}, "", "a: 1/1/2 5/2/1 | 5/2"},
      {"a,1,1,apple,2,2,x\na,2,1,vase,2,,\nb,1,1,apple,2,2,m\nb,2,1,vase,2,,f\n",
       {},
       "undecided --level\nlevel 2 sex a  'x' is no level of Sex\n"
       "level 5 sex b  the subject has another value than 'm' before\n",
       ""},
      {"a,1,1,apple,2,2,x\na,2,1,vase,2,,\n",
       {{"--level", "SEX=f"}},
       "level 2 sex a  'x' is no level of Sex\n",
       "a: 1/2/2 | 5/2"},
      {"b,1,1,apple,2,2,m\nb,2,1,vase,1,,m\na,1,1,apple,2,2,m\n",
       {},
       "undecided --missing-tests 4\n"
       "check 3 minute b 2 test 2, line 1: The last item in Test 2 was during minute 1.\n"
       "check 4  a  the subject has no rows for test 2\ncheck 4  a  test 2, line 1: Test number 2 was blank.\n",
       ""},
      {"a,1,1,apple,0.5,2,m\na,2,1,vase,120,,m\n",
       {},
       "undecided --times 2\n"
       "minute 2 minute a 1 '0.5' is in none of the minutes 1 to 2\nminute 3 minute a 2 '120' is in none of the "
       "minutes "
       "1 to 2\ncheck 2 minute a 1 test 1, line 1: There was at least 1 blank space detected in the minute data for "
       "this "
       "test.\n",
       ""},
      {"a,1,1,apple,60,2,m\na,2,1,vase,120,,m\n", {{"--times", "s"}}, "", "a: 1/2/2 | 5/2"},
      {"a,1,1,apple,2,2,m\na,2,1,vase,3,,m\n",
       {},
       "undecided --times 3\nminute 3 minute a 2 '3' is in none of the minutes 1 to 2\n"
       "check 3 minute a 2 test 2, line 1: There was at least 1 blank space detected in the minute data for this "
       "test.\n",
       ""},
      {"a,1,2147483647,apple,2,2,m\na,1,2147483647,vase,2,2,m\na,2,1,vase,2,,m\n",
       {{"--level", "Foo=1"}, {"--level", "sex=x"}},
       "error 0    --level: 'Foo' is no variable of the project\nerror 0    --level: 'x' is no level of sex\n"
       "error 3 position a 1 position 2147483647 stands twice\n",
       ""},
      {"a,1,1,apple,2,2,m\n",
       {{"--where", "sex=f"}, {"--where", "list=1"}},
       "error 0    no row has sex=f, list=1\n",
       ""},
      {"a,5,1,apple,2,2,m\na,9,1,vase,2,,m\nb,9,1,apple,2,2,m\n",
       {{"--missing-tests", "leave-out"}},
       "undecided --tests\ncheck 4  b  the subject has no rows for test 1\n"
       "check 4  b  test 1, line 1: Test number 1 was blank.\n",
       ""},
      {"a,5,1,apple,2,2,m\na,9,1,vase,2,,m\nb,9,1,apple,2,2,m\n",
       {{"--tests", "rank"}, {"--missing-tests", "empty"}},
       "check 4  b  the subject has no rows for test 2\n"
       "check 4  b  test 2, line 1: Test number 2 was blank.\n",
       "a: 1/2/2 | 5/2; b: 1/2/2 |"},
      {"a,1,1,apple,2,2,m\na,2,1,vase,2,,m\na,3,1,vase,2,,m\n",
       {},
       "error 0    The table has 3 tests; the project has 2\n",
       ""},
      {"a,1,1,apple,2,2,m\na,2,1,vase,2,,m\nA,1,1,apple,2,2,m\nA,2,1,vase,2,,m\nx/y,1,1,apple,2,2,m\nx/"
       "y,2,1,vase,2,,m\n",
       {},
       "error 4  A  'A' and 'a' differ in case alone; --ids number numbers the subjects\n"
       "error 6  x/y  'x/y' cannot be a subject's identifier; --ids number numbers the subjects\n",
       ""},
      {"b,1,1,apple,2,2,m\nb,2,1,vase,2,,m\nx/y,1,1,table,2,2,f\nx/y,2,1,vase,2,,\n",
       {{"--ids", "number"}},
       "",
       "1: 1/2/2 | 5/2; 2: 2/2/2 | 5/2"}};
  for (const Case& c : cases) {
    ImportDesk desk({.Items = 6, .Minutes = 2, .MaxRating = 3, .Rated = "YN", .Variables = {"Sex"}});
    desk.Project.LevelCounts[0] = 2;
    desk.Project.LevelNames[0][0] = "m";
    desk.Project.LevelNames[0][1] = "f";
    const ImportDraft draft = desk.Draft(head + c.Rows, c.Given);
    EXPECT_EQ(ImportDesk::CasesOf(draft), c.Cases) << c.Rows;
    if (draft.Plan.MayBeWritten()) desk.Run(draft);
    EXPECT_EQ(desk.Lists(), c.Lists) << c.Rows;
  }
}

TEST(Import, CutsListsThatRepeatsMakeTooLong) {
  const std::string table =
      "subject,list,word\na,1,apple\na,1,table\na,1,apple\na,2,vase\na,2,apple\na,2,table\na,2,vase\nb,1,vase\nb,2,"
      "apple\n";
  const std::tuple<Options, const char*, const char*> cases[] = {
      {{}, "a: 1 2 | 3 1 2; b: 3 | 1", ""},
      {{{"--repeats", "keep"}}, "", "undecided --too-long 8\ntoo-long 8  a 2 4 recalls of 3 items\n"},
      {{{"--repeats", "keep"}, {"--too-long", "cut"}},
       "a: 1 2 1 | 3 1 2; b: 3 | 1",
       "too-long 8  a 2 4 recalls of 3 items\n"},
      {{{"--repeats", "keep"}, {"--too-long", "leave-out"}}, "b: 3 | 1", "too-long 8  a 2 4 recalls of 3 items\n"}};
  for (const auto& [given, lists, found] : cases) {
    ImportDesk desk({.Tests = 2, .Items = 3});
    desk.Words.Words = {{"apple", ""}, {"table", ""}, {"vase", ""}};
    const ImportDraft draft = desk.Draft(table, given);
    EXPECT_EQ(ImportDesk::CasesOf(draft), found);
    if (draft.Plan.MayBeWritten()) desk.Run(draft);
    EXPECT_EQ(desk.Lists(), lists);
  }
}

// Words that others studied are intrusions; an order that is not the saved one is kept.
TEST(Import, KnowsWhatWasStudied) {
  const std::string table =
      "subject,list,trial_type,position,item\n"
      "a,1,study,2,apple\na,1,study,1,vase\na,1,recall,1,aplpe\na,1,recall,2,table\na,1,recall,3,vase\n"
      "b,1,study,1,table\nb,1,study,2,apple\nb,1,recall,1,apple\nb,1,recall,2,tabel\n"
      "c,1,study,1,vase\nc,1,study,2,apple\nc,1,recall,1,tabel\n";
  const Options given = {{"--accept-distance", "1"}, {"--others", "skip"}};
  ImportDesk pool({.Tests = 1, .Items = 3});
  pool.Words.Words = {{"apple", ""}, {"table", ""}, {"vase", ""}};
  pool.Run(pool.Draft(table, given));
  EXPECT_EQ(pool.Lists(), "a: 1 3; b: 1 2; c:");
  EXPECT_EQ(pool.Files.Get("C:\\Data\\AB Intrusions.csv"),
            "subject,test,place,response,minute,rating\r\na,1,1,table,,\r\n");
  EXPECT_EQ(pool.Files.Get("C:\\Data\\AB Responses.csv"), "response,item\r\naplpe,1\r\n")
      << "'tabel' is open in a list";
  EXPECT_FALSE(pool.Files.Has("C:\\Data\\AB Study Order.csv")) << "two of three items";

  ImportDesk position({.Tests = 1, .Items = 2});
  position.Words = {};
  Options byPosition = given;
  byPosition.emplace_back("--items", "position");
  position.Run(position.Draft(table, byPosition));
  EXPECT_EQ(position.Lists(), "a: 2 1; b: 2 1; c:");
  EXPECT_EQ(position.Files.Get("C:\\Data\\AB Study Order.csv"),
            "subject,test,position,item\r\na,1,1,1\r\na,1,2,2\r\nb,1,1,1\r\nb,1,2,2\r\nc,1,1,1\r\nc,1,2,2\r\n");
  EXPECT_EQ(ImportDesk::CasesOf(pool.Draft("subject,list,trial_type,item\na,1,study,0\na,1,study,2\na,1,recall,2\n",
                                           {{"--existing", "skip"}})),
            "undecided --first-item 2\n");
}

// A number decided in position mode is the word at that place in the list where the response stands first, also when
// that list is imported already; a response near other words in other lists is decided for each.
TEST(Import, ReadsNumbersByPositionInTheirLists) {
  const std::string head = "subject,list,trial_type,position,item\n";
  const std::string first = head + "a,1,study,1,apple\na,1,study,2,tree\na,1,recall,1,pot\na,1,recall,2,tre\n";
  const std::string both = first + "b,1,study,1,tree\nb,1,study,2,apple\nb,1,recall,1,pot\nb,1,recall,2,tre\n" +
                           "c,1,study,1,apple\nc,1,study,2,dog\nc,1,study,3,trey\nc,1,recall,1,tre\n";
  ImportDesk desk({.Tests = 1, .Items = 3});
  desk.Words = {};
  const std::string ofWordList = "response,item\r\ntre,1\r\n";
  desk.Files.Put("C:\\Data\\AB Responses.csv", ofWordList);
  const auto draw = [](ImportDesk& used, const std::string& table, const std::string& decided) {
    ImportDraft draft = used.Draft(table, {{"--items", "position"}, {"--others", "skip"}});
    used.Files.Put("C:\\d.csv", decided);
    AddDecisions(used.OfFiles, "C:\\d.csv", ItemsBy::Position, draft.Context);
    RefreshImport(used.OfFiles, draft);
    return draft;
  };
  desk.Run(draw(desk, first, "response,item\npot,1\n"));
  const ImportDraft open = draw(desk, both, "response,item\npot,1\n");
  EXPECT_EQ(FormatUnmatched(open.Plan), "response,item,distance,count,subject\r\ntre,2,1,2,a\r\ntre,3,1,1,c\r\n");
  desk.Run(open);
  EXPECT_EQ(desk.Lists(), "a: 1; b: 2; c:");
  const ImportDraft decided = draw(desk, both, FormatUnmatched(open.Plan) + "pot,1,,2,a\r\n");
  ImportDraft taken = desk.Draft(both, {{"--items", "position"}, {"--accept-distance", "1"}, {"--others", "skip"}});
  EXPECT_EQ(CountsOf(decided), "0 5 0 0 0 0 0 0");
  EXPECT_EQ(CountsOf(taken), "0 0 3 3 2 0 0 2");
  taken = decided;
  taken.Options.Existing = ExistingSubjects::Replace;
  RefreshImport(desk.OfFiles, taken);
  desk.Run(taken);
  EXPECT_EQ(desk.Lists(), "a: 1 2; b: 2 1; c: 3");
  EXPECT_EQ(desk.Files.Get("C:\\Data\\AB Responses.csv"), ofWordList) << "numbers of lists mean nothing elsewhere";

  ImportDesk lists({.Tests = 2, .Items = 2});
  lists.Words = {};
  const std::string two = head + "a,1,study,1,dog\na,1,study,2,tree\na,1,recall,1,tre\n" +
                          "a,2,study,1,trey\na,2,study,2,pot\na,2,recall,1,tre\n";
  const std::string unmatched = FormatUnmatched(draw(lists, two, "response,item\n").Plan);
  EXPECT_EQ(unmatched, "response,item,distance,count,subject,test\r\ntre,2,1,1,a,1\r\ntre,1,1,1,a,2\r\n");
  lists.Run(draw(lists, two, unmatched));
  EXPECT_EQ(lists.Lists(), "a: 2 | 1");
}

// Of a number and a word the number counts; a word without a number is matched.
TEST(Import, TakesWordsWhereNumbersLack) {
  ImportDesk desk({.Tests = 1, .Items = 6});
  const ImportDraft draft = desk.Draft(
      "subject,list,position,item,word\na,1,1,2,\na,1,2,1,vase\na,1,3,NA,zebra\na,1,4,,yo-yo\na,1,5,3,chili\na,1,6,,\n",
      {{"--others", "intrusion"}});
  EXPECT_EQ(ImportDesk::CasesOf(draft), "check 3 word a 1 'vase' is item 5; item 1 of the row is taken\n");
  desk.Run(draft);
  EXPECT_EQ(desk.Lists(), "a: 2 1 4 3");
  EXPECT_THAT(desk.Files.Get("C:\\Data\\AB Intrusions.csv"), HasSubstr("\r\na,1,2,zebra,,\r\n"));
}

// Two pieces of a cell that together are a word are asked about once, whatever was decided.
TEST(Import, KeepsWhatWasDecidedAboutTwoPieces) {
  ImportDesk desk({.Tests = 1, .Items = 6});
  const Options cells = {{"--shape", "lists"}, {"--separator", "|"}};
  ImportDraft draft = desk.Draft("subject,list,word\na,1,yo|yo|apple\n", cells);
  desk.Files.Put("C:\\d.csv", "response,item\nyo yo,intrusion\n");
  AddDecisions(desk.OfFiles, "C:\\d.csv", ItemsBy::Pool, draft.Context);
  RefreshImport(desk.OfFiles, draft);
  EXPECT_EQ(ImportDesk::CasesOf(draft), "");
  desk.Run(draft);
  EXPECT_EQ(desk.Files.Get("C:\\Data\\AB Responses.csv"), "response,item\r\nyo yo,intrusion\r\n");
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft("subject,list,word\nb,1,apple|yo|yo\n", cells)), "");
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft("subject,list,word\nb,1,yo yo\n")),
            "check 0    'AB Responses.csv', line 2: 'yo yo' is a word; what was decided about it is passed over\n");
}

// The review's list goes out, comes back edited, and leaves nothing to be decided.
TEST(Import, TakesTheUnmatchedBack) {
  ImportDesk desk({.Tests = 1, .Items = 6});
  const std::string table = "subject,list,word\na,1,aplpe\na,1,zebra\nb,1,vaes\nb,1,aplpe\nb,1,\"the, dog\"\n";
  ImportDraft draft = desk.Draft(table);
  const std::string unmatched = FormatUnmatched(draft.Plan);
  EXPECT_EQ(unmatched,
            "response,item,distance,count,subject\r\naplpe,1,1,2,a\r\nzebra,,,1,a\r\nvaes,5,1,1,b\r\n"
            "\"the, dog\",,,1,b\r\n");
  desk.Files.Put("C:\\edited.csv",
                 "response;item;distance;count;subject\r\naplpe;1;1;2;a\r\nzebra;Skip;;1;a\r\n"
                 "vaes;INTRUSION;1;1;b\r\nthe, dog;2;;1;b\r\nApple;2;;1;b\r\n");
  AddDecisions(desk.OfFiles, "C:\\edited.csv", ItemsBy::Pool, draft.Context);
  RefreshImport(desk.OfFiles, draft);
  EXPECT_TRUE(draft.Plan.MayBeWritten());
  EXPECT_EQ(ImportDesk::CasesOf(draft),
            "check 0    'edited.csv', line 6: 'Apple' is a word; what was decided about it is passed over\n");
  desk.Run(draft);
  EXPECT_EQ(desk.Lists(), "a: 1; b: 1 2");
  EXPECT_EQ(desk.Files.Get("C:\\Data\\AB Responses.csv"),
            "response,item\r\naplpe,1\r\nzebra,skip\r\nvaes,intrusion\r\n\"the, dog\",2\r\n");
  EXPECT_EQ(TakeProposals(desk.Draft(table).Plan, 1, draft.Context.Decided), 0U) << "decided in the project now";

  desk.Files.Put("C:\\Data\\AB Intrusions.csv", "subject,test\r\n");
  EXPECT_THAT(ImportDesk::CasesOf(desk.Draft(table)),
              HasSubstr("error 0    'C:\\Data\\AB Intrusions.csv': Line 1: The header is not"));
}

// Twice the same table changes nothing; other data are asked about; a changed table stops.
TEST(Import, LeavesExistingSubjectsAndChangedTablesAlone) {
  ImportDesk desk({.Tests = 1, .Items = 6});
  const std::string table = "subject,list,word\na,1,apple\nb,1,vase\nb,1,zebra\n";
  const Options given = {{"--others", "intrusion"}};
  desk.Run(desk.Draft(table, given));
  const Tree once = desk.Files.Snapshot();
  const ImportDraft again = desk.Draft(table, given);
  EXPECT_EQ(again.Plan.CountOf(SubjectAction::Same), 2U);
  EXPECT_EQ(desk.Run(again).Written, 0U);
  EXPECT_EQ(desk.Files.Snapshot(), once);
  const std::string fewer = "subject,list,word\na,1,apple\nb,1,vase\n";
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft(fewer)), "undecided --existing\n") << "without the intrusion";
  desk.Run(desk.Draft(fewer, {{"--existing", "skip"}}));
  EXPECT_EQ(desk.Files.Get("C:\\Data\\AB Intrusions.csv"), once.at("C/Data/AB Intrusions.csv"));
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft("subject,list,word\na,1,apple\n,1,apple\n", {{"--ids", "number"}})),
            "error 2  a  'a' is in the project under this name; with a number it would be there twice\n"
            "error 3    the row has no subject\n");
  const std::string other = "subject,list,word\na,1,table\nc,1,vase\n";
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft(other)), "undecided --existing\n");
  desk.Run(desk.Draft(other, {{"--existing", "skip"}}));
  EXPECT_EQ(desk.Lists(), "a: 1; b: 5; c: 5");
  desk.Run(desk.Draft(other, {{"--existing", "replace"}}));
  EXPECT_EQ(desk.Lists(), "a: 2; b: 5; c: 5");
  desk.Files.Put("C:\\Data\\Sdata\\Second\\First\\AB Sub#z.dat", "");
  EXPECT_EQ(ImportDesk::CasesOf(desk.Draft("subject,list,word\nz,1,vase\n")), "undecided --existing\n")
      << "the first entry, whose data are lost, would be deleted";

  const ImportDraft planned = desk.Draft("subject,list,word\nd,1,table\ne,1,vase\nf,1,vase\n");
  desk.Files.Put("C:\\t.csv", "subject,list,word\nd,1,table\ne,1,apple\nf,1,vase\n");
  ScriptedBoxes boxes = {Told("The table has changed since it was read.  Nothing more was imported.")};
  EXPECT_FALSE(desk.Run(planned, boxes).Completed);
  EXPECT_EQ(desk.Lists(), "a: 2; b: 5; c: 5; d: 2");
}

TEST(Import, KeepsUnfinishedSubjectsOrdersOfStudyAndNumbers) {
  ImportDesk desk({.Tests = 1, .Items = 3, .Minutes = 2});
  desk.Words.Words.resize(3);
  const std::string rows = "a/1,recall,1,apple,\nb,recall,1,table,2\n";
  const std::string head = "subject,trial_type,position,word,minute\n";
  std::string table = head + "b,study,1,table,\nb,study,2,apple,\nb,study,3,chilipowder,\n" + rows;
  for (int id = 3; id <= 10; ++id) table += "x" + std::to_string(id) + ",recall,1,apple,2\n";
  const Options given = {{"--accept-incomplete", ""}, {"--ids", "number"}};
  EXPECT_EQ(desk.Run(desk.Draft(table, given)).Written, 10U);
  EXPECT_THAT(desk.Files.Get("C:\\Data\\AB Subjects.csv"), HasSubstr("original\r\n1,b\r\n10,x10\r\n2,a/1\r\n3,x3\r\n"));
  const Tree once = desk.Files.Snapshot();
  for (const std::string& again : {table, head + rows}) {
    const ImportDraft draft = desk.Draft(again, given);
    EXPECT_EQ(draft.Plan.CountOf(SubjectAction::Same), draft.Plan.Subjects.size());
    desk.Run(draft);
    Tree now = desk.Files.Snapshot();
    now["C/t.csv"] = once.at("C/t.csv");
    EXPECT_EQ(now, once);
  }
  desk.Put("2", "1/1");
  const ImportDraft refused =
      desk.Draft(head + "a/1,recall,1,dog,\na/1,recall,2,table,\n",
                 {{"--accept-incomplete", ""}, {"--existing", "replace"}, {"--others", "skip"}});
  EXPECT_EQ(refused.Plan.CountOf(SubjectAction::Refuse), 1U) << "complete by now";
  EXPECT_THAT(ImportDesk::CasesOf(refused), HasSubstr("check 2  a/1  the project has complete data of the subject"));
}

// Whatever call fails or is the last one: each subject is whole or not there, no old one is harmed, and the companion
// files in both directories are those from before or those after.
TEST(Import, LeavesWholeSubjectsWhereverItEnds) {
  const std::string table = "subject,list,word\na,1,apple\nb,1,vase\nb,1,zebra\nc,1,table\n";
  const std::map<std::string, std::string> whole = {{"a", "1"}, {"b", "5"}, {"c", "2"}};
  const std::string before = "subject,test,place,response,minute,rating\r\nb,1,0,old,,\r\n";
  const std::string after = "subject,test,place,response,minute,rating\r\nb,1,1,zebra,,\r\n";
  for (const bool isKilled : {false, true}) {
    for (int call = 1;; call += kFailureStep) {
      ImportDesk desk({.Tests = 1, .Items = 6});
      desk.Project.BackupDir = "D:\\B";
      desk.Files.MakeDirectory("D:\\B");
      desk.Put("b", "6");
      desk.Files.Put("C:\\Data\\AB Intrusions.csv", before);
      desk.Files.Put("D:\\B\\AB Intrusions.csv", before);
      ImportDraft draft = desk.Draft(table, {{"--others", "intrusion"}, {"--existing", "replace"}});
      draft.Context.Decided.Add({"old", {Verdict::Skip}});
      isKilled ? desk.Files.Faults.KillAt(call) : desk.Files.Faults.FailAt(call);
      AnsweringBoxes boxes(BoxAnswer::Cancel);
      const ImportOutcome outcome = desk.Run(draft, boxes);
      const bool hasFailed = desk.Files.Faults.HasFailed();
      desk.Files.Faults.FailNever();
      EXPECT_TRUE(FinishInterruptedChanges(desk.Project, desk.Desk.With(desk.Files.Files, boxes))) << call;
      const std::string kept = desk.Files.Get("C:\\Data\\AB Intrusions.csv");
      EXPECT_TRUE(kept == before || kept == after) << call << kept;
      EXPECT_EQ(kept, desk.Files.Get("D:\\B\\AB Intrusions.csv")) << call;
      const bool hasDecided = desk.Files.Has("C:\\Data\\AB Responses.csv");
      EXPECT_TRUE(hasDecided || (kept == before && outcome.Written == 0)) << call;
      EXPECT_EQ(hasDecided, desk.Files.Has("D:\\B\\AB Responses.csv")) << call;
      for (const auto& [id, items] : whole) {
        const std::string file = "AB Sub#" + id + ".dat";
        for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
          if (!desk.Files.Has(sdata + file)) continue;
          SubjectRecord record;
          LoadSubjectFile(desk.OfFiles, sdata + file, desk.Project, record);
          const int item = record.Lists.At(1, 1).Item;
          EXPECT_TRUE(std::to_string(item) == items || (id == "b" && item == 6)) << call << sdata << id;
        }
      }
      EXPECT_TRUE(desk.Files.Has("C:\\Data\\Sdata\\AB Sub#b.dat")) << call;
      if (!hasFailed) {
        EXPECT_TRUE(outcome.Completed);
        EXPECT_EQ(desk.Lists(), "a: 1; b: 5; c: 2");
        break;
      }
    }
  }
}

// Blanks inside aside, what the project writes for other programs comes back as the same files.
TEST(Import, ReadsItsOwnLongCsv) {
  ImportDesk desk({.Tests = 2,
                   .Items = 6,
                   .PerCategory = 3,
                   .Minutes = 3,
                   .MaxRating = 4,
                   .Rated = "YN",
                   .Lures = true,
                   .Variables = {"Group"}});
  desk.Words = {};
  desk.Project.LevelCounts[0] = 2;
  desk.Project.LevelNames[0][0] = desk.Project.LevelNames[0][1] = "same";
  for (const auto& [id, lists, level] : {std::tuple("x 1", "3/1/2 1/2/4 3/3/1 | 6/2", 2), {"y", "| 1/2 3/3", 1}}) {
    SubjectRecord record;
    record.SubjectId = id;
    record.Levels[0] = static_cast<std::int16_t>(level);
    record.Lists = MakeLists(desk.Project, lists);
    desk.PutFile("AB Sub#" + record.SubjectId + ".dat", FormatSubject(record, desk.Project));
  }
  const Tree before = desk.Files.Snapshot();
  const FurtherData data = ReadFurtherData(desk.OfFiles, desk.Project, std::nullopt);
  LongExport exporter(desk.Project, data);
  std::string table = exporter.Header() + "\r\n";
  for (const std::string id : {"x 1", "y"}) {
    SubjectRecord record;
    LoadSubjectFile(desk.OfFiles, "C:\\Data\\Sdata\\AB Sub#" + id + ".dat", desk.Project, record);
    ScoringArrays scores;
    std::string rows;
    exporter.Build({id, record, scores, {}}, rows);
    table += rows + "\r\n";
  }
  const ImportDraft same = desk.Draft(table);
  EXPECT_EQ(same.Plan.CountOf(SubjectAction::Same), 2U) << ImportDesk::CasesOf(same);
  for (const char* id : {"x 1", "y"})
    std::filesystem::remove(desk.Files.Native(std::string("C:\\Data\\Sdata\\AB Sub#") + id + ".dat"));
  desk.Run(desk.Draft(table));
  for (const auto& [name, bytes] : before) {
    if (name.ends_with(".dat")) {
      EXPECT_EQ(desk.Files.Snapshot()[name], bytes) << name;
    }
  }
}

TEST(ImportFindings, AnErrorBehindTheListedCasesStillCounts) {
  ImportFindings findings;
  for (std::size_t i = 0; i <= ImportFindings::kMaxCases; ++i) findings.Add({.Kind = CaseKind::Check});
  EXPECT_FALSE(findings.HasErrors);
  EXPECT_EQ(findings.Uncounted()->Count, 1U);
  findings.Add({.Kind = CaseKind::Error});
  EXPECT_TRUE(findings.HasErrors);
  EXPECT_EQ(findings.Cases.back().Kind, CaseKind::Error);
}

TEST(NewProject, CanBeMadeAgainWhereverItsMakingFails) {
  bool failed = true;
  for (int call = 1; failed; call += kFailureStep) {
    Scratch scratch;
    ProjectParameters project = MakeProject({.Tests = 1, .Items = 1});
    EXPECT_EQ(PlaceProject(scratch.Files, project, "My", "C:\\My", "C:\\Param"), "");
    scratch.Faults.FailAt(call);
    AnsweringBoxes boxes(BoxAnswer::Cancel);
    const bool isMade = CreateProject(scratch.Files, boxes, project, {{{"apple", ""}}, false}, "C:\\Param");
    failed = scratch.Faults.HasFailed();
    scratch.Faults.FailNever();
    EXPECT_EQ(PlaceProject(scratch.Files, project, "My", "C:\\My", "C:\\Param").empty(), !isMade) << call;
    EXPECT_TRUE(isMade || failed);
  }
}

TEST(NewProject, IsThatOfTheTable) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  const auto propose = [&](const std::string& table, const Options& given, const std::string& words = "") {
    scratch.Put("C:\\t.csv", table);
    ImportOptions options;
    for (const auto& [name, value] : given) EXPECT_EQ(SetImportOption(options, name, value), "");
    WordList list;
    if (!words.empty()) scratch.Put("C:\\w.txt", words), list = ReadNewWords(disk, "C:\\w.txt");
    return ProposeProject(disk, DraftNewProject(disk, "C:\\t.csv", options, list));
  };
  const std::string head = "subject,list,trial_type,word,category,\"my \"\"group\"\", a\",day,minute,rating\n";
  ProjectProposal found =
      propose(head +
                  "a,1,study,dog,animal,x,1,,\na,1,study,pear,fruit,x,1,,\na,1,study,cat,animal,x,1,,\n"
                  "a,1,study,plum,fruit,x,2,,\na,1,recall,cat,,x,2,2,\nb,2,recall,dog,,y,1,1,3\n",
              {});
  EXPECT_EQ(found.Fault, "");
  EXPECT_EQ(FormatWordList(found.Words),
            "item,word,category\r\n1,dog,animal\r\n2,cat,animal\r\n3,pear,fruit\r\n4,plum,fruit\r\n");
  EXPECT_TRUE(AddVariable(found, "My \"Group\", a"));
  EXPECT_EQ(SetUpTable(disk, "C:\\t.csv", {}, found.Project).Columns.Variables[0], 5);
  EXPECT_FALSE(AddVariable(found, "day")) << "changes within a subject";
  EXPECT_EQ(PlaceProject(disk, found.Project, "My Study", "C:\\Data", "C:\\Param"), "");
  EXPECT_EQ(FormatProject(found.Project, kCurrentMarker),
            "2,4,1,2,2,1,2,,,1,3,,1,\"My Study\",\"C:\\Data\",\"(none)\",\"My Study.prm\",0,,\"VB Version\"\r\n"
            "2\r\n\"my group a\"\r\n\"x\"\r\n\"y\"\r\n\"N\"\r\n\"Y\"\r\n");
  // The summary, the items, the notes; or the fault.
  const auto describe = [](const ProjectProposal& proposal) {
    if (!proposal.Fault.empty()) return proposal.Fault;
    std::string text = ProjectSummary(proposal.Project) + ":";
    for (const Word& word : proposal.Words.Words)
      text += " " + word.Text + (word.Category.empty() ? "" : "/" + word.Category);
    for (const std::string& note : proposal.Notes) text += "; " + note;
    return text;
  };
  const std::string numbers = "subject,list,trial_type,item,word,category\n";
  const std::string own = "subject,list,trial_type,position,item,word,category,category_name,order\n";
  const std::string recalled = "subject,list,word\na,1,x\n";
  const std::tuple<std::string, Options, const char*, const char*> cases[] = {
      {recalled,
       {},
       "",
       "The table has neither study rows nor item numbers; a new project needs one of them, or --words."},
      {recalled, {{"--items", "position"}}, "", "There are no study rows, which --items position needs."},
      {"subject,word\n", {}, "x\n", "The table has no rows of recalls."},
      {recalled, {}, "item,word,category\n1,x,a\n2,y,a\n3,z,b\n", "All categories must have an equal number of items."},
      {recalled, {}, "item,word\n2,apple\n1,vase\n", "1 test, 2 items: vase apple"},
      {recalled, {}, "Frequency;Length;Word\n3;4;rose, red\n1;5;vase\n", "1 test, 2 items: rose, red vase"},
      {recalled, {}, "Word\n1 plum\n2 pear, green\n", "1 test, 2 items: 1 plum 2 pear, green"},
      {numbers + "a,1,study,3,dog,x\na,1,study,2,cat,y\na,1,study,1,ant,y\na,1,study,4,eel,x\na,1,recall,2,kat,\n"
                 "a,1,recall,99,bee,\n",
       {},
       "",
       "1 test, 4 items in 2 categories: ant/y cat/y dog/x eel/x; the largest item is 4: 99 on line 7 is none"},
      {numbers + "a,1,study,0,dog,x\na,1,study,1,cat,y\na,1,recall,1,,\n",
       {{"--first-item", "0"}},
       "",
       "1 test, 2 items in 2 categories: dog/x cat/y"},
      {numbers + "a,1,study,1,dog,x\na,1,study,2,cat,y\na,1,study,3,eel,x\na,1,study,4,ant,y\na,2,study,1,cow,x\na,1,"
                 "recall,1,dog,\n",
       {},
       "",
       "2 tests, 4 items:; made without a word list: item 1 is 'dog' on line 2 and 'cow' on line 6; made without "
       "categories: Item 2 is in 'y', but category 1 of the project is 'x'"},
      {own + "a,1,study,1,1,dog,1,animal,saved\na,1,study,2,2,pea,2,fruit,saved\na,1,recall,1,2,pea,2,fruit,saved\n",
       {},
       "",
       "1 test, 2 items in 2 categories: dog/animal pea/fruit"},
      {"subject,list,item,minute,rating\na,1,1,2,\na,1,2,3,4\na,1,9,100,\n",
       {},
       "",
       "1 test, 9 items, 100 minutes, ratings from 1 to 4:; no row has the items from 3 to 8; 9 stands on line 4; "
       "the largest minute is 100; if these are times, say so by --times"}};
  for (const auto& [table, given, words, expected] : cases) {
    EXPECT_EQ(describe(propose(table, given, words)), expected) << table << words;
  }
  std::string many = "subject,list,item,session\n";
  for (int list = 1; list <= 16; ++list) many += "a," + std::to_string(list) + ",1," + std::to_string(list % 2) + "\n";
  EXPECT_EQ(propose(many, {}).Fault,
            "The table has 16 tests; a project has at most 15; a part by --where would fit: list, session");
  EXPECT_EQ(propose(many, {{"--where", "session=1"}}).Project.TestCount, 8);
}

}  // namespace
}  // namespace zova::testing
