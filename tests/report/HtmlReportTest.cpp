// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/HtmlReport.h"

#include <gmock/gmock.h>

#include <utility>

#include "report/ReportData.h"
#include "support/FakePlatform.h"
#include "support/Study.h"

namespace zova::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

TEST(HtmlReport, AProjectReadAndShownWithoutAMaster) {
  Study study({.Items = 4, .PerCategory = 2, .Variables = {"<b>Sex"}});
  study.Project.LevelCounts = {2};
  study.Project.LevelNames[0] = {"<script>alert('1')</script>", "\"f\" & m"};
  study.Put("1", "1 2 3 | 1 3", 1);
  study.Put("2", "3 | 3 4", 2);
  study.PutFile("Unfinished\\AB Sub#9.dat", "");
  const auto data = ReadReportData(study.Project, FakePlatform().With(study.OfFiles));
  ASSERT_TRUE(data);
  EXPECT_FALSE(study.Files.Has("C:\\Data\\AB Master.txt"));
  EXPECT_EQ(ChooseMeasures(data->Table, {"Net(Test 1)", "no such"}).Unknown, "no such");
  const MeansRequest means{
      ChooseMeasures(data->Table, {"RR(Test 1)", "Net(Test 1)", "Net(Test 2)"}).Measures, {0}, true};
  std::vector<std::string> drawn;
  const std::string html =
      ReportHtml({study.Project, data->Table, means, {}, false, data->Notices, "zova --report \"<a>\"", "2.0"},
                 [&](const PlotPicture& picture) { return drawn.push_back(picture.YLabel), "<?xml?><svg>plot</svg>"; });
  for (const char* part :
       {"<h1>Study</h1>", "&lt;b&gt;Sex", "&lt;script&gt;alert(&#39;1&#39;)&lt;/script&gt;", "&quot;f&quot; &amp; m",
        "R / (r - 1).", "Cohen, B. H., Sakoda, J. M., &amp; Bousfield",
        "<td>RR(Test 1)</td><td>(all)</td><td>1</td><td>0.500</td>", "1 unfinished subject is left out.",
        "For at least 1 test, the ARC score was unable", "<figure>\n<svg>plot</svg>",
        "Net(Test 2) - Net(Test 1): difference = 0.00", "<pre>zova --report &quot;&lt;a&gt;&quot;</pre>"})
    EXPECT_THAT(html, HasSubstr(part));
  EXPECT_THAT(html, Not(HasSubstr("<script")));
  EXPECT_THAT(html, Not(HasSubstr("<?xml")));
  EXPECT_EQ(std::exchange(drawn, {}), (std::vector<std::string>{"Repetition ratio, test 1", "Net recall (items)"}));

  const ReportChoice usual = ChooseMeasures(data->Table, {});
  EXPECT_EQ(usual.Notice,
            "Left out, since no subject has a value: FirstRecall, Intrusions, LagCrp, Position, TemporalFactor.");
  PlotOptions plots;
  plots.Bars = PlotBars::StandardError;
  plots.Frames["Net"] = {"<Net>", 0, 9};
  std::vector<PlotPicture> pictures;
  const std::string whole =
      ReportHtml({study.Project, data->Table, {usual.Measures, {}, true}, plots, true, {}, "", "2.0"},
                 [&](const PlotPicture& picture) { return pictures.push_back(picture), "<svg>plot</svg>"; });
  EXPECT_EQ(pictures.front().Frame.Title, "<Net>");
  EXPECT_THAT(whole, HasSubstr("Net recall (items).  Bars are standard errors."));
  EXPECT_EQ(pictures.back().Lists.RowCount(), 4U);
}

}  // namespace
}  // namespace zova::testing
