// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/UncomputedValues.h"

#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

// Eight items in two categories; two variables, with a comma in the name and with that of a measure.
struct Lab : Study {
  explicit Lab(const Shape& shape = {.Items = 8, .PerCategory = 4, .Variables = {"Sex, or gender", "Net(Test 2)"}})
      : Study(shape) {
    Selection.SetDefaultMeasures(Project);
  }
  void Add(ScoredTable& table, const std::string& id, const std::string& lists) const {
    SubjectRecord record;
    record.Lists = MakeLists(Project, lists);
    const ScoringArrays scores = Scored(Project, lists);
    std::string row;
    BuildMasterRow(id, record.Levels, Project, Selection, scores, row);
    EXPECT_TRUE(table.Add({id, record, scores, row}));
  }
  // The rows with what is marked in them: "1: ArcScore(Test 1), ...; ".
  static std::string Marked(const MasterTable& table) {
    std::string text;
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
      text += table.Subjects[row] + ":";
      for (std::size_t m = 0; m < table.Measures.size(); ++m) {
        if (table.IsUncomputed(row, m)) text += " " + table.Measures[m];
      }
      text += "; ";
    }
    return text;
  }

  MeasureSelection Selection;
};

TEST(UncomputedValues, OfARunWithoutReadingItBack) {
  const Lab lab;
  ScoredTable table(lab.Project, lab.Selection);
  lab.Add(table, "taken back", "1 | 2");
  table.Restart();
  lab.Add(table, "1, the first", "1 5 6 2 | 1 2 5");  // a clustering of exactly 0, and one with a value
  lab.Add(table, "2", "1 5 | ");
  EXPECT_EQ(table.Table().Variables, (std::vector<std::string>{"Sex, or gender", "Net(Test 2)"}));
  EXPECT_EQ(table.Table().SkippedLines, 0);
  EXPECT_EQ(Lab::Marked(table.Table()),
            "1, the first:; 2: ArcScore(Test 1) ArcScore(Test 2) Bi-ITR(Tests 1 and 2) AvgItemsPerCat(Test 2); ");
}

TEST(UncomputedValues, OfAMasterByScoringItsSubjectsAgain) {
  Lab lab;
  lab.Put("zero", "1 5 6 2 | 1 2 5");
  lab.Put("gap", "1 2 3 | ");
  lab.Put("full", "1 2 5 | 5 6 1");
  lab.Put("a+b", " | ");
  lab.Put("a", "1 | ");
  lab.Put("c", " | 1");
  lab.PutFile("AB Sub#torn.dat", "1,2");
  auto table = ParseMaster(
      "Sub ID's, Net(Test 1), ArcScore(Test 1), AvgItemsPerCat(Test 2)\n"
      "full,  0,  0,  0\nzero,  0,  0,  0\ngap,  0,  0,  0\ngap,  0,  .5,  0\ngone,  0,  0,  0\ntorn,  0,  0,  0\n"
      "Group 1 (a+b+c),  0,  0,  0\nGroup 2 (gap+a),  0,  0,  0\nGroup 3 (a+gone),  0,  0,  0\n",
      "");
  ASSERT_TRUE(table);
  RecordingProgress bar;
  EXPECT_EQ(MarkUncomputed(*table, lab.Project, lab.OfFiles, bar), 3);
  EXPECT_EQ(bar.Shown.back(), 100);
  EXPECT_EQ(Lab::Marked(*table),
            "full:; zero:; gap: ArcScore(Test 1) AvgItemsPerCat(Test 2); gap: AvgItemsPerCat(Test 2); gone:; torn:; "
            "Group 1 (a+b+c): ArcScore(Test 1); Group 2 (gap+a): ArcScore(Test 1) AvgItemsPerCat(Test 2); "
            "Group 3 (a+gone):; ");
}

TEST(UncomputedValues, AnOverflowElsewhereIsNoFault) {
  Lab lab({.Items = 200, .PerCategory = 100});
  lab.Put("1", Sequence(150) + "| " + Sequence(150));  // too many in common for Bi-ITR
  RecordingProgress bar;
  auto averages = ParseMaster("Sub ID's, AvgItemsPerCat(Test 1)\n1,  0\n", "");
  EXPECT_EQ(MarkUncomputed(*averages, lab.Project, lab.OfFiles, bar), 0);
  auto repetition = ParseMaster("Sub ID's, Bi-ITR(Tests 1 and 2)\n1,  0\n", "");
  EXPECT_EQ(MarkUncomputed(*repetition, lab.Project, lab.OfFiles, bar), 1);
}

}  // namespace
}  // namespace zova::testing
