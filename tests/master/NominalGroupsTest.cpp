// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/GroupLabel.h"
#include "master/groups/NominalGroups.h"

#include <functional>

#include "master/groups/SavedOrders.h"
#include "master/run/CombinedMaster.h"
#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

constexpr const char* kCombined = "D:\\Out\\AB Combined Master.txt";

TEST(NominalGroups, SizesAreWholeNumbersFrom2) {
  const std::pair<const char*, std::optional<int>> kCases[] = {
      {"2", 2}, {" 12 ", 12}, {"99999", 32768}, {"1", {}}, {"", {}}, {"3.0", {}}, {"+3", {}}, {"3a", {}}, {"1e3", {}}};
  for (const auto& [text, size] : kCases) EXPECT_EQ(ParseGroupSize(text), size) << text;
}

TEST(NominalGroups, AreCutWithinLevelsInTheirOrder) {
  ProjectParameters project = MakeProject({.Variables = {"Age", "Sex"}});
  project.LevelCounts = {0, 2};
  project.LevelNames[1] = {"Man", "Woman"};
  const std::vector<std::string> ids = {"a", "b", "c", "d", "e", "f", "g"};
  const std::vector<std::int16_t> levels = {2, 1, 2, 2, 1, 2, 3};

  const GroupPlan listed = FormGroups(levels, FirstGroupOrder(7), 2);
  EXPECT_EQ(listed.Groups, (std::vector<NominalGroup>{{1, {1, 4}}, {2, {0, 2}}, {2, {3, 5}}}));
  EXPECT_EQ(GroupPlanText(listed, ids, project, 1),
            "Sex, Man: 1 group of 2\nSex, Woman: 2 groups of 2\nSex, 3: no groups of 2, left over: subject g");
  const GroupPlan ordered = FormGroups(levels, {7, 6, 5, 4, 3, 2, 1}, 3);
  EXPECT_EQ(ordered.Groups, (std::vector<NominalGroup>{{2, {5, 3, 2}}}));
  EXPECT_EQ(ordered.Levels, (std::vector<LevelPlan>{{1, 2, 0, {4, 1}}, {2, 4, 1, {0}}, {3, 1, 0, {6}}}));
  const GroupPlan unseparated = FormGroups(std::vector<std::int16_t>(7, 0), FirstGroupOrder(7), 4);
  EXPECT_EQ(unseparated.Groups, (std::vector<NominalGroup>{{0, {0, 1, 2, 3}}}));
  EXPECT_EQ(GroupPlanText(unseparated, ids, project, {}), "1 group of 4, left over: subjects e, f, g");
  const GroupPlan none = FormGroups({0, 0}, FirstGroupOrder(2), ParseGroupSize("99999").value());
  EXPECT_EQ(GroupPlanText(none, ids, project, {}), "no groups, left over: subjects a, b") << "not of 32768";
  EXPECT_EQ(GroupLabel(1, {"4", "17", "9"}), "Group 1 (4+17+9)");
  EXPECT_EQ(FindVariable(project, "sex"), std::size_t{1});
  EXPECT_EQ(FindVariable(project, ""), std::nullopt) << "names behind the project's variables are none";
}

TEST(NominalGroups, PoolDistinctItemsByTheirEarliestEntry) {
  struct Case {
    const char* Why;
    Shape Project;
    std::vector<std::string> Members;
    std::string Pooled;
  };
  const Case kCases[] = {
      {"no minutes: member, then position; blanks go", {.Items = 6}, {"4 2 | 1 0 6 5", "2 5 4 1 | 6"}, "4 2 5 1 | 1 6"},
      {"kept minutes count only in a project with minutes", {.Items = 6}, {"4/3 2/1 |", "2/1 4/1 |"}, "4/3 2/1 |"},
      {"minutes first; of the same, member, then position; ratings stay with their entries",
       {.Items = 6, .Minutes = 3, .MaxRating = 7},
       {"3/2/1 1/2/2 5/3/3 | 6/1/4", "5/1/5 3/2/6 2/2/7 | 6/1/1 4/1/2", "4/1/3 | 4/1/1 6/3/1"},
       "5/1/5 4/1/3 3/2/1 1/2/2 2/2/7 | 6/1/4 4/1/2"},
      {"repeats, the earlier minute behind", {.Items = 4, .Minutes = 9}, {"2/5 2/3 1/4 |", "1/9 2/3 |"}, "2/3 1/4 |"},
      {"lures like all others",
       {.Items = 4, .PerCategory = 2, .Minutes = 9, .Lures = true},
       {"2/2 | 4/2", "4/1 2/1 |"},
       "4/1 2/1 | 4/2"},
      {"nobody recalled anything", {}, {"", ""}, ""},
      {"every item of the list, each member's list full",
       {.Items = 3},
       {"3 2 1 | 1 1 1", "1 2 3 | 2 3 2"},
       "3 2 1 | 1 2 3"}};
  for (const Case& test : kCases) {
    const ProjectParameters project = MakeProject(test.Project);
    GroupRecall recall(project);
    recall.Add(MakeLists(project, "1/1 | 2/1"));
    recall.Reset();
    for (const std::string& lists : test.Members) recall.Add(MakeLists(project, lists));
    EXPECT_EQ(recall.Pooled(), MakeLists(project, test.Pooled)) << test.Why;
  }
}

TEST(NominalGroups, AMemberThatCannotBeScoredAddsNothing) {
  const ProjectParameters project = MakeProject({.Items = 3, .Minutes = 2});
  GroupRecall recall(project);
  for (const char* lists : {"1/1 4/1 |", "1/1 | 2/3", "1/1 -2/1 2/1 |"}) {
    EXPECT_THROW(recall.Add(MakeLists(project, lists)), ScoringError) << lists;
  }
  EXPECT_EQ(recall.Pooled(), MakeLists(project, ""));
}

// Groups of two within each sex; Sex is 1 for subjects up to 5, then 2.
struct GroupLab : Study {
  explicit GroupLab(Shape shape) : Study((shape.Variables = {"Age", "Sex"}, shape)) {
    Files.MakeDirectory("D:\\Out");
    Request.Selection.SetDefaultMeasures(Project);
    Request.Destination = "D:\\Out\\Mine.txt";
  }
  void Put(int id, const std::string& lists) {
    SubjectRecord record;
    record.Levels = {7, static_cast<std::int16_t>(id <= 5 ? 1 : 2)};
    record.Lists = MakeLists(Project, lists);
    PutFile("AB Sub#" + std::to_string(id) + ".dat", FormatSubject(record, Project));
  }
  // In the order of the listing.
  void Plan(int subjectCount) {
    ScriptedBoxes none;
    Request.Subjects = ReadGroupSubjects(Project, subjectCount, true, FakePlatform().With(OfFiles, none, Bar)).value();
    Request.Separator = 1;
    Request.Plan = FormGroups(Request.Subjects.LevelsOf(1), FirstGroupOrder(Request.Subjects.FileNames.size()), 2);
  }
  MasterRunResult Run(MessageBoxes& boxes) {
    return CreateCombinedMaster(Project, Request, FakePlatform().With(OfFiles, boxes, Bar));
  }

  CombinedRequest Request;
  RecordingProgress Bar;
};

TEST(CombinedMaster, ListsSubjectsThatAreBackInTheirPlace) {
  GroupLab lab({.Items = 4});
  for (const int id : {1, 3}) lab.Put(id, "1 | 2");
  AnsweringBoxes retry(BoxAnswer::Retry);
  retry.Meanwhile = [&] { lab.Put(2, "1 | 2"); };
  const auto subjects = ReadGroupSubjects(lab.Project, 3, false, FakePlatform().With(lab.OfFiles, retry, lab.Bar));
  EXPECT_EQ(subjects.value().SubjectIds, (std::vector<std::string>{"1", "2", "3"}));
}

TEST(CombinedMaster, TwoGroupsByHand) {
  GroupLab lab({.Items = 4, .PerCategory = 2});
  lab.Request.Selection = Only(lab.Project, {Measure::Basic, Measure::Bi, Measure::Cat});
  for (const auto& [id, lists] : {std::pair(2, "1 2 | 1"), {4, "4 | 2 3"}, {5, "1 | 1"}, {6, "3 | 3"}, {7, "3 | 4 1"}})
    lab.Put(id, lists);
  lab.Plan(5);
  lab.Files.Put("C:\\Data\\AB Combined Master1.txt", "a piece");
  ScriptedBoxes boxes;
  const MasterRunResult result = lab.Run(boxes);
  EXPECT_TRUE(result.Completed);
  EXPECT_EQ(result.Notices.OlderPieces, std::vector<std::string>{"AB Combined Master1.txt"});
  EXPECT_EQ(result.Written, std::vector{lab.Files.At(kCombined)});
  EXPECT_EQ(lab.Files.Get(kCombined),
            "Sub ID's, Age, Sex, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2), "
            "#OfCategoriesUsed(Test 1), #OfCategoriesUsed(Test 2), AvgItemsPerCat(Test 1), AvgItemsPerCat(Test 2)\r\n"
            "Group 1 (2+4), XXXXXXX,  1,  3,  3,  1,  1,  2,  2,  1.5,  1.5\r\n"
            "Group 2 (6+7), XXXXXXX,  2,  1,  3,  0,  2,  1,  2,  1,  1.5\r\n");
  EXPECT_EQ(lab.Bar.Shown, (std::vector{50, 100}));

  lab.Request.Separator.reset();
  EXPECT_TRUE(lab.Run(boxes).Completed);
  EXPECT_NE(lab.Files.Get(kCombined).find("\r\nGroup 1 (2+4), XXXXXXX, XXXXXXX,  3,"), std::string::npos);
}

TEST(CombinedMaster, AWideOneHasPiecesInThePrimaryDirectory) {
  GroupLab lab({.Items = 2, .Minutes = 130});
  lab.Put(1, "1/1 2/130 | 2/7");
  lab.Put(2, "2/2 | 1/1 2/2");
  lab.Plan(2);
  ScriptedBoxes boxes;
  EXPECT_EQ(lab.Run(boxes).Written.size(), 4U);
  std::string joined;
  for (const char* piece : {"1", "2", "3"}) {
    const std::string bytes = lab.Files.Get(std::string("C:\\Data\\AB Combined Master") + piece + ".txt");
    joined += (joined.empty() ? "" : ",") + bytes.substr(bytes.find("\r\n") + 2);
    joined.resize(joined.size() - 2);
  }
  EXPECT_TRUE(lab.Files.Get(kCombined).ends_with("\r\n" + joined + "\r\n"));
  EXPECT_TRUE(joined.starts_with("Group 1 (1+2), XXXXXXX,  1,  2,  2,  0,  0,  1,  1,  0,"));
}

TEST(CombinedMaster, AFailingMemberIsRetriedOrEndsTheRun) {
  GroupLab lab({.Tests = 1, .Items = 3});
  for (const int id : {1, 2, 3, 4}) lab.Put(id, std::to_string(id % 3 + 1));
  lab.Plan(4);
  lab.Put(4, "2 9");
  const std::string path = "C:\\Data\\Sdata\\AB Sub#4.dat";
  ScriptedBoxes cancel{{"Subscript out of range", BoxAnswer::Cancel, path + "'\nSubject 4: item 9 at position 2"}};
  EXPECT_FALSE(lab.Run(cancel).Completed);
  const std::string first = "Sub ID's, Age, Sex, Net(Test 1)\r\nGroup 1 (1+2), XXXXXXX,  1,  2\r\n";
  EXPECT_EQ(lab.Files.Get(kCombined), first);

  AnsweringBoxes retry(BoxAnswer::Retry);
  retry.Meanwhile = [&] { lab.Put(4, "1 2 1"); };
  EXPECT_TRUE(lab.Run(retry).Completed);
  EXPECT_EQ(lab.Files.Get(kCombined), first + "Group 2 (3+4), XXXXXXX,  1,  2\r\n");
  std::filesystem::remove(lab.Files.Native(path));
  EXPECT_TRUE(lab.Run(retry).Completed);
  EXPECT_NE(retry.Details.back().find(path + "'\nSubject 4"), std::string::npos) << retry.Details.back();

  std::filesystem::remove(lab.Files.Native(path));
  const std::string gone = std::make_error_code(std::errc::no_such_file_or_directory).message();
  ScriptedBoxes missing{{gone, BoxAnswer::Cancel, "'C:\\Data\\Sdata\\'\n3 of 4 subject files were found."}};
  lab.Bar.Breaths = 0;
  EXPECT_FALSE(ReadGroupSubjects(lab.Project, 4, false, FakePlatform().With(lab.OfFiles, missing, lab.Bar)))
      << "three files, where four were counted";
  retry.Meanwhile = [&] { lab.Put(4, "1"); };
  EXPECT_EQ(
      ReadGroupSubjects(lab.Project, 4, true, FakePlatform().With(lab.OfFiles, retry, lab.Bar))->SubjectIds.size(), 4U);
  EXPECT_GE(lab.Bar.Breaths, 4) << "one for each subject that is read";
}

TEST(CombinedMaster, AnOverflowIsTheGroups) {
  GroupLab lab({.Tests = 1, .Items = 300, .PerCategory = 300});
  lab.Put(1, Sequence(150));
  lab.Put(2, Sequence(150, 0, 151));
  lab.Plan(2);
  ScriptedBoxes boxes{{"Overflow", BoxAnswer::Cancel, "Group 1 (1+2): "}};
  EXPECT_FALSE(lab.Run(boxes).Completed);
  lab.Request.Selection.Check(Measure::Cat, false);
  EXPECT_TRUE(lab.Run(boxes).Completed) << "no column shows it";
}

TEST(SavedOrders, FitOrAreIgnored) {
  GroupLab lab({.Items = 4, .PerCategory = 2, .Lures = true});
  Disk& disk = lab.OfFiles;
  const std::string items = "C:\\Data\\AB Serial Order.dat";
  EXPECT_EQ(FirstSerialOrder(lab.Project), (SerialOrder{1, 3, 2, 4})) << "lures last";
  EXPECT_EQ(ReadSavedSerialOrder(disk, lab.Project), std::nullopt);
  lab.Files.MakeDirectory("C:\\Data");
  SaveSerialOrder(disk, lab.Project, {4, 1, 3, 2});
  EXPECT_EQ(lab.Files.Get(items), "1,4\r\n2,1\r\n3,3\r\n4,2\r\n");
  EXPECT_EQ(ReadSavedSerialOrder(disk, lab.Project), (SerialOrder{4, 1, 3, 2}));
  lab.Files.Put(items, "1,4\n2,1\n3,3\n4,2\n\n\n");
  EXPECT_EQ(ReadSavedSerialOrder(disk, lab.Project), (SerialOrder{4, 1, 3, 2})) << "blank lines are none";
  for (const char* bytes :
       {"", "1,1\n2,2\n3,3\n", "1,1\n2,2\n3,3\n4,4\n5,5\n", "1,1\n2,2\n3,3\n4,3\n", "1,1\n1,2\n2,3\n3,4\n"}) {
    lab.Files.Put(items, bytes);
    EXPECT_EQ(ReadSavedSerialOrder(disk, lab.Project), std::nullopt) << bytes;
  }
  std::filesystem::remove(lab.Files.Native(items));
  lab.Files.MakeDirectory(items);
  EXPECT_THROW(ReadSavedSerialOrder(disk, lab.Project), FileError) << "no file, but not missing";

  const std::string groups = "C:\\Data\\AB Combine Order.dat";
  SaveGroupOrder(disk, lab.Project, {"1", "a, b", "3"}, {3, 1, 2});
  EXPECT_EQ(lab.Files.Get(groups), "\"1\",3\r\n\"a, b\",1\r\n\"3\",2\r\n");
  const auto read = [&](const std::vector<std::string>& ids) { return ReadSavedGroupOrder(disk, lab.Project, ids); };
  EXPECT_EQ(read({"1", "3", "a, b"}), (GroupOrder{3, 2, 1}));
  EXPECT_EQ(read({"0", "1", "2", "3"}), (GroupOrder{3, 2, 4, 1})) << "one went, new ones at the end";
  lab.Files.Put(groups, "\"1\",2\n\"1\",1\n\n\n");
  EXPECT_EQ(read({"1", "1", "1"}), (GroupOrder{2, 1, 3})) << "two files, one identifier";
  for (const char* bytes : {"", "\"1\"", "\"1\",x\n", "\"1\",2\n", "\"1\",1\n\"2\",1\n"}) {
    lab.Files.Put(groups, bytes);
    EXPECT_EQ(read({"1", "2"}), std::nullopt) << bytes;
  }
  const OrderFault fault = GroupOrderFault({"8", "x", "9"}, {1, 0, 1}).value();
  EXPECT_EQ(fault.Text, "Subject x has no position from 1 to 3.");
  EXPECT_EQ(fault.Row, 1);
  for (const auto& [lines, text] : {std::pair(GroupOrderLines{{"8", "x", "9"}, {2, 3, 2}}, "Position 2 is used twice."),
                                    {{{"x", "9", "x"}, {1, 2, 3}}, "Subject x has more than one position."},
                                    {{{"gone", "gone"}, {1, 2}}, "Subject gone has more than one position."},
                                    {{{"2", "2", "gone"}, {3, 2, 1}}, ""}}) {
    EXPECT_EQ(GroupFileFault(lines, {"x", "2", "2"}).value_or(OrderFault{}).Text, text);
  }
}

}  // namespace
}  // namespace zova::testing
