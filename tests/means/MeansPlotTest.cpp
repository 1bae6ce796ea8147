// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansPlot.h"

#include <gtest/gtest.h>

#include <sstream>

#include "means/SerialPositionTable.h"

namespace zova::testing {
namespace {

// "x label; y label; ticks, | for joined: series of x=y, ~ for one without interval: note"
std::string Described(const PlotPicture& picture) {
  std::ostringstream text;
  text << picture.XLabel << "; " << picture.YLabel << ";";
  for (const std::string& tick : picture.Ticks) text << " " << tick;
  text << (picture.HasLines ? " |" : " .");
  if (picture.Break) text << " break " << *picture.Break;
  for (const PlotSeries& series : picture.Series) {
    text << " [" << series.Name << (series.IsDashed ? " dashed" : "");
    for (const PlotPoint& point : series.Points)
      text << " " << point.X << "=" << point.Y << (point.HalfWidth ? "" : "~");
    text << "]";
  }
  return text.str() + picture.Note;
}

// Every value is 100 a + 10 b + m for measure m of levels a and b; two rows each, but one for a = 2, b = 2.
std::string PictureOfMeasures(const std::string& measures, std::size_t variables) {
  MasterTable table;
  table.Variables = {"Age", "Sex"};
  std::istringstream names(measures);
  for (std::string name; std::getline(names >> std::ws, name, ',');) table.Measures.push_back(name);
  for (const auto& [a, b] : {std::pair(1, 1), {1, 1}, {1, 2}, {1, 2}, {2, 1}, {2, 1}, {2, 2}}) {
    std::string row = "s, " + std::to_string(a) + ", " + std::to_string(b);
    for (std::size_t m = 1; m <= table.Measures.size(); ++m)
      row += ", " + std::to_string(100 * a + 10 * b + static_cast<int>(m));
    AddMasterRow(row, table);
  }
  MeansRequest request;
  for (std::size_t m = 0; m < table.Measures.size(); ++m) request.Measures.push_back(m);
  for (std::size_t v = 0; v < variables; ++v) request.Variables.push_back(v);
  ProjectParameters project;
  project.VariableCount = 1;
  project.VariableNames[0] = "Age";
  project.LevelCounts[0] = 2;
  project.LevelNames[0] = {"young", "old"};
  return Described(PictureOf(ComputeMeans(table, request, &project)));
}

TEST(MeansPlot, Pictures) {
  struct Case {
    const char* Measures;
    std::size_t Variables;
    const char* Picture;
  };
  const Case kCases[] = {
      {"ArcScore(Test 2)", 0, "; Adjusted ratio of clustering (ARC), test 2; All . [ 1=158.143]"},
      {"Net(Test 1)", 1, "Age; Net recall, test 1 (items); young old . [ 1=116 2=214.333]"},
      {"Net(Test 1)", 2, "Age; Net recall, test 1 (items); young old . [Sex 1 1=111 2=211] [Sex 2 1=121 2=221~]"},
      {"My own(1)", 1, "Age; My own(1); young old . [ 1=116 2=214.333]"},
      {"Net(Test 4), Net(Test 2), Gains(Test 1 to 2)", 0,
       "Test; Net recall (items); 2 3 4 | [ 1=159.143 3=158.143]1 chosen measure of another kind is not in the plot."},
      {"Net(Test 1), Net(Test 2)", 2,
       "Test; Net recall (items); 1 2 | [young, Sex 1 1=111 2=112] [young, Sex 2 1=121 2=122] "
       "[old, Sex 1 1=211 2=212] [old, Sex 2 1=221~ 2=222~]"},
      {"RecallByMin(Test 1 Min 1), RecallByMin(Test 1 Min 2), RecallByMin(Test 2 Min 2)", 1,
       "Minute; Recall by minute (items); 1 2 | [young, Test 1 1=116 2=117] [young, Test 2 2=118] "
       "[old, Test 1 1=214.333 2=215.333] [old, Test 2 2=216.333]"},
      {"RecallByMin(Test 2 Min 5), RecallByMin(Test 2 Min 7)", 0,
       "Minute; Recall by minute, test 2 (items); 5 6 7 | [ 1=158.143 3=159.143]"},
      {"RecallByMin(Test 2 Min 5), RecallByMin(Test 1 Min 5)", 0,
       "Test; Recall by minute, minute 5 (items); 1 2 | [ 1=159.143 2=158.143]"},
      {"FalseCumulative(Min 1), FalseCumulative(Min 2)", 0,
       "Minute over all tests; Cumulative false recall (lures); 1 2 | [ 1=158.143 2=159.143]"},
      {"Bi-ITR(Tests 1 and 2), Bi-ITR(Tests 2 and 3)", 0,
       "Tests; Bi-directional inter-test repetition (pairs); 1-2 2-3 | [ 1=158.143 2=159.143]"},
      {"Up(Test 1 to 3), Up(Test 1 to 2), Up(Test 2 to 3)", 0,
       "Tests; Ratings raised between tests (share of items); 1-2 2-3 1-3 . [ 1=159.143 2=160.143 3=158.143]"},
      {"ItemsWithPattern(CC), ItemsWithPattern(NC)", 0,
       "Pattern of recall; Frequency of the recall pattern (items); NC CC . [ 1=159.143 2=158.143]"},
      {"LagCrp(Test 2 Lag 1), LagCrp(Test 2 Lag -2), LagCrp(Test 2 Lag -1)", 0,
       "Lag; Conditional response probability, test 2; -2 -1 0 1 | break 3 [ 1=159.143 2=160.143 4=158.143]"},
      {"FirstRecall(Test 1 2), FirstRecall(Test 1 1)", 1,
       "Serial position; Probability of first recall, test 1 (share of subjects); 1 2 | [young 1=117 2=116] "
       "[old 1=215.333 2=214.333]"},
      {"Lure(Test# 1 Lure# 1), Lure(Test# 1 Lure# 3), Lure(Test# 2 Lure# 1)", 0,
       "Lure; Recall of the lure (share of subjects); 1 3 . [Test 1 1=158.143 2=159.143] [Test 2 1=160.143]"}};
  for (const Case& test : kCases) EXPECT_EQ(PictureOfMeasures(test.Measures, test.Variables), test.Picture);
}

TEST(MeansPlot, NothingToDraw) {
  EXPECT_EQ(Described(PictureOf(MeansTable{})), "; ; |");
  const auto none = ParseMaster("Sub ID's, Sex, Net(Test 1)", "");
  EXPECT_EQ(Described(PictureOf(ComputeMeans(*none, {{0}, {0}}, nullptr))), "Sex; Net recall, test 1 (items); All .");
}

TEST(MeansPlot, SeriesKeepTheirNamesAndTheOrderOfTheLevels) {
  const auto pictureOf = [](const std::string& rows, const MeansRequest& request,
                            const std::vector<std::size_t>& uncomputed) {
    auto table = *ParseMaster("Sub ID's, Age, Sex, ArcScore(Test 1), ArcScore(Test 2)\r\n" + rows, "");
    for (const std::size_t row : uncomputed) table.Gaps[2 * row] = table.Gaps[2 * row + 1] = ScoreGap::EmptyList;
    return Described(PictureOf(ComputeMeans(table, request, nullptr)));
  };
  const std::string rows = "1, 1, 2, 5, 6\r\n2, 2, 10, 7, 8\r\n3, 2, 1, 3, 4\r\n";
  const std::string byAge = "Age; Adjusted ratio of clustering (ARC), test 1; ";
  EXPECT_EQ(pictureOf(rows, {{0}, {0, 1}}, {}), byAge + "1 2 . [Sex 1 2=3~] [Sex 2 1=5~] [Sex 10 2=7~]");
  EXPECT_EQ(pictureOf(rows, {{0}, {0, 1}, true}, {0, 1}),
            byAge + "1 2 . [Sex 1 2=3~]2 combinations without values are not in the plot.");
  EXPECT_EQ(pictureOf(rows, {{0, 1}, {1}, true}, {0, 2}),
            "Test; Adjusted ratio of clustering (ARC); 1 2 | [Sex 10 1=7~ 2=8~]"
            "2 combinations without values are not in the plot.");
}

TEST(MeansPlot, SerialPositions) {
  const std::string names = "Type, SP(Test 1 Pos 1), SP(Test 1 Pos 2), SP(Test 2 Pos 1), SP(Test 2 Pos 2)\r\n";
  const auto table = ParseSerialPositionMaster(names + "Actual, .5, 0, 1, 1.25\r\nSmooth, .25, 0, 1, 1\r\n");
  ASSERT_TRUE(table);
  EXPECT_EQ(
      Described(PictureOf(*table, {2, 1})),
      "Serial position; Recall (share of subjects); 1 2 | [Test 2 1=1~ 2=1.25~] [Test 2, smoothed dashed 1=1~ 2=1~] "
      "[Test 1 1=0.5~ 2=0~] [Test 1, smoothed dashed 1=0.25~ 2=0~]");
  for (const std::string& text :
       {std::string(), names, names + "Actual, .5, 0, 1, 1\r\n", names + "Actual, .5, 0, 1\r\nSmooth, 0, 0, 1\r\n",
        names + "Smooth, 0, 0, 1, 1\r\nActual, 0, 0, 1, 1\r\n", names + "Actual, 0, x, 1, 1\r\nSmooth, 0, 0, 1, 1\r\n",
        std::string("Type, SP(Test 1 Pos 2), SP(Test 1 Pos 1)\r\nActual, 0, 0\r\nSmooth, 0, 0\r\n"),
        std::string("Type, SP(Test 1 Pos 1), SP(Test 2 Pos 2)\r\nActual, 0, 0\r\nSmooth, 0, 0\r\n")}) {
    EXPECT_FALSE(ParseSerialPositionMaster(text)) << text;
  }
}

}  // namespace
}  // namespace zova::testing
