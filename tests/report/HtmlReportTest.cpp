// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/HtmlReport.h"

#include <gmock/gmock.h>

#include "report/MakeReport.h"
#include "support/FakePlatform.h"
#include "support/Study.h"

namespace zova::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(HtmlReport, AProjectReadAndShownWithoutAMaster) {
  Study study({.Items = 4, .PerCategory = 2, .MaxRating = 7, .Rated = "NY", .Variables = {"<b>Sex, $(id) 'x'"}});
  study.Project.LevelCounts = {2};
  study.Project.LevelNames[0] = {"<script>alert('1')</script>", "\"f\" & m"};
  study.Put("1", "1 2 3 | 1 3", 1);
  study.Put("2", "3 | 3 4", 2);
  study.PutFile("Unfinished\\AB Sub#9.dat", "");
  study.Files.Put("C:\\Data\\AB Intrusions.csv", "no,header\n");
  FakePlatform platform;
  std::string unknown;
  std::vector<std::string> drawn, titles;
  std::size_t lists = 0;
  ReportChoice choice{"C:\\r.html", "C:\\S.prm", {0}, {"no such"}, GroupChoice{2, 0, ""}, {}};
  const auto make = [&] {
    return MakeReport(
        study.Project, choice, "2.0",
        [&](const PlotPicture& picture) {
          drawn.push_back(picture.YLabel);
          titles.push_back(picture.Frame.Title);
          lists = picture.Lists.RowCount();
          return "<svg>plot</svg>";
        },
        platform.With(study.OfFiles), unknown);
  };
  const ExpectedBox passedOver{.Text = "'AB Intrusions.csv' is passed over: a line does not fit."};
  platform.Boxes.Expect(passedOver);
  platform.Boxes.Expect({.Text = "There are not enough subjects for one group."});
  EXPECT_FALSE(make());
  choice.Groups = GroupChoice{2, std::nullopt, ""};
  platform.Boxes.Expect(passedOver);
  EXPECT_FALSE(make());
  EXPECT_EQ(unknown, "no such");
  unknown.clear();
  choice.Measures = {"RR(Test 1)",       "Net(Test 1)", " Net(Test 2)",       "Net(Test 1)",
                     "ArcScore(Test 1)", "Z(Test 1)",   "Intrusions(Test 1)", "FirstPosition(Test 2)"};
  platform.Boxes.Expect(passedOver);
  const auto html = make();
  ASSERT_TRUE(html);
  EXPECT_FALSE(study.Files.Has("C:\\Data\\AB Master.txt"));
  for (const char* part : {"<h1>Study</h1>",
                           "&lt;b&gt;Sex",
                           "&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt;",
                           "&quot;f&quot; &amp; m",
                           "<td>1 to 7, of test 2</td>",
                           "<td>not known (4 lists)</td>",
                           "R / (r - 1).",
                           "Cohen, B. H., Sakoda, J. M., &amp; Bousfield",
                           "<td>RR(Test 1)</td><td>(all)</td><td>1</td><td>0.500</td>",
                           "1 unfinished subject is left out.",
                           "<li>&#39;AB Intrusions.csv&#39; is passed over: a line does not fit.",
                           "For at least 1 test, the ARC score was unable",
                           "<p>Entries on the list of the test.</p>",
                           "<cite>Roenker, D. L.",
                           "<li>FirstPosition: 2 values, no study order.</li>",
                           "<li>RR(Test 1): 1 not computed (fewer than 2 recalls).</li>",
                           "<li>Intrusions(Test 1): 2 not computed (the file of intrusions does not fit).</li>",
                           "<li>n_c: items recalled of category c.</li>",
                           "<li>RR, Z, SharedOrganization: an intrusion or a lure",
                           "<li>d_z: the mean of these",
                           "<figure>\n<svg>plot</svg>",
                           "Net(Test 2) - Net(Test 1): difference = 0.00",
                           "<td>Group 1 (1+2)</td><td>0.000</td>"})
    EXPECT_THAT(*html, HasSubstr(part));
  for (const char* part : {"<script", "<?xml", "N: items studied"}) EXPECT_THAT(*html, Not(HasSubstr(part)));
  drawn.pop_back();  // of the lists
  EXPECT_EQ(drawn, (std::vector<std::string>{"Repetition ratio, test 1", "Net recall (items)",
                                             "Adjusted ratio of clustering (ARC), test 1", "Z of clustering, test 1"}));
  choice.Measures = {};
  choice.Variables = {};
  choice.Plots.Bars = PlotBars::StandardError;
  choice.Plots.Frames["Net"] = {"<Net>", 0, 9};
  platform.Boxes.Expect(passedOver);
  const auto whole = make();
  ASSERT_TRUE(whole);
  EXPECT_THAT(*whole, HasSubstr("and why</h2>\n<ul>\n<li>Left out, since no subject has a value: FirstRecall (no study "
                                "order), Intrusions (the file of intrusions does not fit), LagCrp (no study order), "
                                "Position (no study order), TemporalFactor (no study order).</li>"));
  EXPECT_THAT(*whole, HasSubstr("Net recall (items).  Bars are standard errors."));
  EXPECT_THAT(titles, ::testing::Contains("<Net>"));
  EXPECT_EQ(lists, 4U);
  choice.Plots = {};
  choice.Variables = {0};
#ifndef _WIN32
  EXPECT_EQ(ReportCommand(study.Project, choice),
            R"(zova --report 'C:\r.html' --means '<b>Sex, $(id) '\''x'\''' --group-size 2 'C:\S.prm')");
#endif
  EXPECT_EQ(FindVariables(study.Project, {" <b>Sex", " $(id) 'x' "}, unknown), std::vector<std::size_t>{0});
}

TEST(HtmlReport, ALinePerLevelOfGroups) {
  Study study({.Tests = 1, .Items = 4, .Variables = {"Age"}});
  study.Project.LevelCounts = {2};
  for (const char* id : {"1", "2", "3"}) study.Put(id, "1", 1);
  for (const char* id : {"4", "5"}) study.Put(id, "1", 2);
  FakePlatform platform;
  std::string unknown;
  const auto html = MakeReport(
      study.Project, {"C:\\r.html", "C:\\S.prm", {}, {"Net(Test 1)"}, GroupChoice{2, 0, ""}, {}}, "2.0",
      [](const PlotPicture&) { return ""; }, platform.With(study.OfFiles), unknown);
  EXPECT_THAT(html.value_or(""),
              HasSubstr("<li>Age, 1: 1 group of 2, left over: subject 3</li>\n<li>Age, 2: 1 group of 2</li>"));
}

}  // namespace
}  // namespace zova::testing
