// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansTable.h"

#include <set>
#include <tuple>

#include "means/EffectSizes.h"
#include "scoring/Examples.h"
#include "text/NumberText.h"

namespace zova::testing {
namespace {

TEST(Statistics, StudentTAsPrinted) {
  const std::tuple<int, double, double> kPrinted[] = {{1, 12.706, 63.657}, {2, 4.303, 9.925},  {5, 2.571, 4.032},
                                                      {10, 2.228, 3.169},  {30, 2.042, 2.750}, {120, 1.980, 2.617}};
  for (const auto& [degrees, at95, at99] : kPrinted) {
    EXPECT_NEAR(StudentT(degrees, .95), at95, .0005) << degrees;
    EXPECT_NEAR(StudentT(degrees, .99), at99, .0005) << degrees;
  }
}

TEST(Statistics, SpreadKeepsItsDigitsBesideALargeMean) {
  Sample sample;
  for (const double value : {1e9 + 1, 1e9 + 2, 1e9 + 4}) sample.Add(value);
  CriticalValues critical;
  const SampleStatistics statistics = sample.Statistics(critical);
  EXPECT_DOUBLE_EQ(statistics.Mean.value_or(0), 1e9 + 7.0 / 3);
  EXPECT_NEAR(statistics.Sd.value_or(0), 1.5275252316519468, 1e-12);
  for (int one = 0; one < 8; ++one) {
    Sample shares;
    for (int i = 0; i < 8; ++i) shares.Add(i == one ? 1 : 0);
    EXPECT_EQ(shares.Statistics(critical).Mean, 0.125) << "whatever the order";
  }
}

TEST(ColumnName, EveryColumnOfAMasterHasAPlaceOfItsOwn) {
  const ProjectParameters project = MakeProject(
      {.Tests = 3, .Items = 8, .PerCategory = 4, .Minutes = 2, .MaxRating = 7, .Rated = "YYY", .Lures = true});
  MeasureSelection everything;
  everything.SetDefaultMeasures(project);
  const auto table = ParseMaster(BuildMasterHeader(project, everything, MasterKind::Individual).MasterHeader, "");
  ASSERT_TRUE(table);
  std::set<std::string> families;
  std::set<std::tuple<std::string, int, int>> places;
  for (const std::string& column : table->Measures) {
    const auto known = ColumnByName(column);
    ASSERT_TRUE(known) << column;
    const std::string stem(known->Family->Stem);
    families.insert(stem);
    EXPECT_TRUE(places.emplace(stem, known->Place.Test, known->Place.Index).second) << column;
  }
  EXPECT_EQ(families.size(), AllMeasureFamilies().size()) << "the project misses a family";
}

TEST(ColumnName, NamesAreTakenApart) {
  const std::tuple<const char*, MeasureAxis, int, int> kNames[] = {
      {"Net(Test 12)", MeasureAxis::Test, 12, 12},
      {"Up(Test 1 to 5)", MeasureAxis::TestPair, 1, 5},
      {"Bi-ITR(Tests 2 and 3)", MeasureAxis::TestPair, 2, 3},
      {"#OfCats(Test 2 Min 31)", MeasureAxis::Minute, 2, 31},
      {"FalseCumulative(Min 90)", MeasureAxis::RunningMinute, 0, 90},
      {"LuresWithPattern(NCC)", MeasureAxis::Pattern, 3, 4},
      {"Lure(Test# 2 Lure# 3)", MeasureAxis::Lure, 2, 3}};
  for (const auto& [text, axis, test, index] : kNames) {
    const auto column = ColumnByName(text);
    ASSERT_TRUE(column) << text;
    EXPECT_EQ(std::tuple(column->Family->Shape.Axis, column->Place.Test, column->Place.Index),
              std::tuple(axis, test, index))
        << text;
  }
  for (const char* text : {"", "Sex", "Net", "Net(Test 1", "Net(Test 01)", "Net(Test 0)", "Net(Test 1) ", "net(Test 1)",
                           "Net(Test 1 to 2)", "Up(Test 2 to 1)", "Bi-ITR(Test 1 to 2)", "Net(Test 123456)",
                           "ItemsWithPattern()", "ItemsWithPattern(NX)", "ItemsWithPattern(NNNNNNNNNNNNNNNN)"}) {
    EXPECT_FALSE(ColumnByName(text)) << text;
  }
}

TEST(MasterTable, ReadsWhatFitsTheHeader) {
  const char* const text =
      "Sub ID's, Sex, Net(Test 1), Odd one, ArcScore(Test 1)\r\n"
      "17,  2,  5,  0, -.457\n"
      "\r\n"
      "4, XXXXXXX,  12,  1,  .285\r\n"
      "Sub ID's, Sex, Net(Test 1), Odd one, ArcScore(Test 1)\r\n"
      "4,  1,  1e1,  0,  0\r\n4,  1,  inf,  0,  0\r\n4,  1,  ,  0,  0\r\n4,  1,  -,  0,  0\r\n"
      "5,  1,  1,  1\r\n5,  1,  1,  1,  1,  1\r\n"
      "17,1,1,2.5,1\x1a rest, 1, 1, 1, 1";
  const auto table = ParseMaster(text, "");
  ASSERT_TRUE(table);
  EXPECT_EQ(table->Variables, std::vector<std::string>{"Sex"});
  EXPECT_EQ(table->Measures, (std::vector<std::string>{"Net(Test 1)", "Odd one", "ArcScore(Test 1)"}));
  EXPECT_EQ(table->Subjects, (std::vector<std::string>{"17", "4", "17"}));
  EXPECT_EQ(table->Levels, (std::vector<std::string>{"2", "XXXXXXX", "1"}));
  EXPECT_EQ(table->Values, (std::vector<double>{5, 0, -.457, 12, 1, .285, 1, 2.5, 1}));
  EXPECT_EQ(table->SkippedLines, 7);
  EXPECT_EQ(table->RepeatedSubjects, 1);

  const auto piece = ParseMaster(" Lure(Test# 1 Lure# 1), Lure(Test# 1 Lure# 2)\r\n  1,  0\r\n  0,  1\r\n", "");
  ASSERT_TRUE(piece);
  EXPECT_EQ(piece->Subjects, (std::vector<std::string>{"", ""}));
  EXPECT_EQ(piece->Values, (std::vector<double>{1, 0, 0, 1}));
  EXPECT_EQ(piece->RepeatedSubjects, 0);

  EXPECT_EQ(ParseMaster("1,  3\r\n2,  4\r\n", "Sub ID's, Net(Test 1)").value_or(MasterTable{}).Values,
            (std::vector<double>{3, 4}));
  EXPECT_FALSE(ParseMaster("1,  3\r\n", "Sub ID's, Sex"));
}

TEST(MasterTable, TheProjectsVariablesAreKnownWhateverTheirNames) {
  ProjectParameters project = MakeProject({.Variables = {"Sex, or gender", "Net(Test 1) "}});
  const char* const own =
      "Sub ID's, Sex, or gender, Net(Test 1) , Net(Test 1), Losses(Test 1 to 2)\n1,  2,  1,  5,  0\n";
  const auto table = ParseMaster(own, "", &project).value_or(MasterTable{});
  EXPECT_EQ(table.Variables, (std::vector<std::string>{"Sex, or gender", "Net(Test 1)"}));
  EXPECT_EQ(table.Measures, (std::vector<std::string>{"Net(Test 1)", "Losses(Test 1 to 2)"}));
  EXPECT_EQ(table.Values, (std::vector<double>{5, 0}));

  project.VariableCount = 1;
  const auto foreign = ParseMaster("Sub ID's, Sex, or gender, Age, Net(Test 1)\n", "", &project);
  EXPECT_EQ(foreign.value_or(MasterTable{}).Variables, (std::vector<std::string>{"Sex", "or gender", "Age"}));
  project.VariableCount = 0;
  EXPECT_FALSE(ParseMaster(" Lure(Test# 1 Lure# 1), Lure(Test# 1 Lure# 2)\n", "", &project)->HasSubjects);
}

constexpr const char* kMasterText =
    "Sub ID's, Dose, Sex, Net(Test 1), ArcScore(Test 1)\r\n"
    "1,  10,  2,  1,  0\r\n2,  2,  1,  5,  .5\r\n3,  10,  2,  3,  .25\r\n4,  2,  3,  5,  0\r\n5,  XXXXXXX,  1,  5,  "
    "0\r\n";

TEST(MeansTable, ARowPerCombinationAndTheTotal) {
  auto table = ParseMaster(kMasterText, "").value_or(MasterTable{});
  ASSERT_EQ(table.RowCount(), 5U);
  table.Gaps[1] = table.Gaps[7] = ScoreGap::TooFewRecalls;  // ArcScore of subjects 1 and 4
  ProjectParameters project = MakeProject({.Variables = {"Sex", "Dose"}});
  project.LevelCounts = {2, 2};
  project.LevelNames = {{{"Woman, or girl", "Woman, or girl"}, {"none", "low"}}};

  EXPECT_EQ(CsvText(LinesOf(ComputeMeans(table, {{0}, {0, 1}}, &project))),
            "Measure,Dose,Sex,n,Mean,SD,95% CI Low,95% CI High,Not Computed\r\n"
            "Net(Test 1),low,\"Woman, or girl (1)\",1,5,,,,0\r\n"
            "Net(Test 1),low,3,1,5,,,,0\r\n"
            "Net(Test 1),10,\"Woman, or girl (2)\",2,2,1.4142135623731,-10.7062047361747,14.7062047361747,0\r\n"
            "Net(Test 1),XXXXXXX,\"Woman, or girl (1)\",1,5,,,,0\r\n"
            "Net(Test 1),(all),(all),5,3.8,1.78885438199983,1.57884391584177,6.02115608415823,0\r\n");
  const MeansTable computed = ComputeMeans(table, {{1, 0}, {0}, true}, nullptr);
  EXPECT_EQ(TabText(LinesOf(computed)).substr(0, 147),
            "Measure\tDose\tn\tMean\tSD\t95% CI Low\t95% CI High\tNot Computed\n"
            "ArcScore(Test 1)\t2\t1\t0.5\t\t\t\t1\n"
            "ArcScore(Test 1)\t10\t1\t0.25\t\t\t\t1\n"
            "ArcScore(Test 1)\tXXXXXXX\t1");
  EXPECT_EQ(computed.Cells.back().Measures[0].N, 3U);
  EXPECT_EQ(computed.Cells.back().Measures[1].N, 5U);
  EXPECT_EQ(ComputeMeans(table, {{1}, {0}}, nullptr).Cells[0].Measures[0].Mean, .25) << "marked, but not left out";

  const MeansTable empty = ComputeMeans(ParseMaster("Sub ID's, Sex, Net(Test 1)", "").value(), {{0}, {0}}, nullptr);
  EXPECT_EQ(CsvText(LinesOf(empty)),
            "Measure,Sex,n,Mean,SD,95% CI Low,95% CI High,Not Computed\r\n"
            "Net(Test 1),(all),0,,,,,0\r\n");
}

// Four subjects of two levels, and two tests.
TEST(MeansTable, WhatItHasOnDemand) {
  const auto table = ParseMaster(
      "Sub ID's, Sex, Room, Net(Test 1), Net(Test 2), Net(Test 3)\n1, 1, 1, 1, 2, 3\n2, 1, 2, 2, 4, 3\n3, 2, 1, 3, 3, "
      "3\n"
      "4, 2, 1, 6, 9, 3\n",
      "");
  ASSERT_TRUE(table);
  const MoreStatistics all{true, true, true, true, true, true};
  const std::string text = CsvText(LinesOf(ComputeMeans(*table, {{0, 1}, {0, 1}, false, all}, nullptr)));
  for (const char* line : {"Measure,Sex,Room,n,Mean,SD,SE,Median,Min,Max,95% CI Low,95% CI High,n Within,95% Within CI "
                           "Low,95% Within CI High,Not "
                           "Computed\r\nNet(Test 1),1,1,1,1,,,1,1,1,,,1,,,0\r\n",
                           "\r\nNet(Test 1),(all),2,1,2,,,2,2,2,,,1,,,0\r\nNet(Test "
                           "1),(all),(all),4,3,2.16024689946929,1.08012344973464,2.5,1,6,"
                           "-0.43743488185831",
                           ",4,1.54741864212262,4.45258135787738,0\r\n"}) {
    EXPECT_NE(text.find(line), std::string::npos) << line << "\n" << text;
  }
  const auto effects = [&](std::vector<std::size_t> measures, std::vector<std::size_t> variables) {
    std::string lines;
    for (const Effect& effect : ComputeEffects(*table, {std::move(measures), std::move(variables)}, nullptr)) {
      lines += effect.Measure + ", " + EffectText(effect) + "\n";
    }
    return lines;
  };
  EXPECT_EQ(effects({0}, {0}), "Net(Test 1), Sex, 1 - 2: d = -1.90 (n = 4)\n");
  EXPECT_EQ(effects({0, 1}, {}),
            "Net, Test, Net(Test 2) - Net(Test 1): difference = 1.50, 95 % CI -0.55 to 3.55 (n = 4)\n"
            "Net, Test, Net(Test 2) - Net(Test 1): d_z = 1.16 (n = 4)\n");
  EXPECT_EQ(effects({0, 1, 2}, {}), "Net, Test: eta squared = 0.12 (n = 4)\n");
}

TEST(MeansTable, NumbersInFilesAndOnTheScreen) {
  for (const auto& [value, text] : {std::pair(-0.0, "0"),
                                    {.1 + .2 - .117, "0.183"},
                                    {-2.0 / 3, "-0.666666666666667"},
                                    {1234567890123456.7, "1234567890123457"},
                                    {.00001, "0.00001"},
                                    {9.9999999999999995, "10"}}) {
    std::string plain;
    AppendPlainNumber(plain, value);
    EXPECT_EQ(plain, text);
  }
  const std::tuple<std::optional<double>, int, const char*> kCases[] = {{{}, 2, ""},          {12, 2, "12.00"},
                                                                        {-.457, 3, "-0.457"}, {-.0001, 3, "0.000"},
                                                                        {-.001, 2, "0.00"},   {1.005, 2, "1.00"}};
  for (const auto& [value, decimals, text] : kCases) EXPECT_EQ(ShownNumber(value, decimals), text);
}

}  // namespace
}  // namespace zova::testing
