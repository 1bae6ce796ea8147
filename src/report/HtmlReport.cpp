// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/HtmlReport.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "means/EffectSizes.h"
#include "means/OccurringLevels.h"
#include "means/RasterPlot.h"
#include "means/UncomputedValues.h"
#include "project/ProjectLayout.h"
#include "report/ReportFamilies.h"
#include "report/ReportStyle.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr std::size_t kMostLines = 150;  // of a table that nobody asked for
constexpr std::size_t kMostLists = 300;  // some 300 kB

// Where no measure was named, and with those of the serial position.
bool ShowsLists(const ReportRequest& request, const std::vector<ReportFamily>& families) {
  return request.IsUsual || std::any_of(families.begin(), families.end(), [](const ReportFamily& family) {
           return family.Further != nullptr && family.Further->Group == FurtherGroup::Serial;
         });
}

class Page {
 public:
  explicit Page(const ReportRequest& request)
      : m_request(request),
        m_data(request.Data),
        m_families(FamiliesOf(m_data.Table, request.Means.Measures, m_data.Groups.has_value())) {
    m_results.reserve(m_families.size());
    for (const ReportFamily& family : m_families) m_results.push_back(ResultsOf(family));
  }

  std::string Build(const DrawFigure& draw) {
    const std::string title = EscapedHtml(ProjectTitle(m_request.Project));
    m_html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + title +
             "</title>\n<style>\n" + std::string(kReportStyle) + "</style>\n</head>\n<body>\n";
    Element("h1", ProjectTitle(m_request.Project));
    AddDesign();
    AddSubjects();
    AddLeftOut();
    AddList("Notices", m_data.Notices);
    AddConventions();
    for (std::size_t k = 0; k < m_families.size(); ++k) AddFamily(m_families[k], m_results[k], draw);
    if (ShowsLists(m_request, m_families)) AddLists(draw);
    m_html += "<footer>\n";
    Element("p", "Made by ZOVA " + m_request.Version + ". The same page again:");
    Element("pre", m_request.CommandLine);
    m_html += "</footer>\n</body>\n</html>\n";
    return std::move(m_html);
  }

 private:
  struct Results {
    MeansTable Means;
    std::vector<Effect> Effects;  // none where the table is left out
  };

  [[nodiscard]] Results ResultsOf(const ReportFamily& family) const {
    if (family.Measures.empty()) return {};
    const MeansRequest request = MeansOf(family);
    Results results{ComputeMeans(m_data.Table, request, &m_request.Project), {}};
    if (!IsLeftOut(results.Means)) results.Effects = ComputeEffects(m_data.Table, request, &m_request.Project);
    return results;
  }

  static std::size_t LineCount(const MeansTable& means) { return means.Measures.size() * means.Cells.size(); }
  [[nodiscard]] bool IsLeftOut(const MeansTable& means) const {
    return m_request.IsUsual && LineCount(means) > kMostLines;
  }

  void Element(std::string_view tag, std::string_view text) {
    m_html.append("<").append(tag).append(">").append(EscapedHtml(text)).append("</").append(tag).append(">\n");
  }

  void Row(std::string_view tag, const std::vector<std::string>& cells) {
    m_html += "<tr>";
    for (const std::string& cell : cells) {
      m_html.append("<").append(tag).append(">").append(EscapedHtml(cell)).append("</").append(tag).append(">");
    }
    m_html += "</tr>\n";
  }

  void Table(const std::vector<std::string>& header, const std::vector<std::vector<std::string>>& rows) {
    m_html += "<table>\n";
    if (!header.empty()) {
      m_html += "<thead>\n";
      Row("th", header);
      m_html += "</thead>\n";
    }
    m_html += "<tbody>\n";
    for (const std::vector<std::string>& row : rows) Row("td", row);
    m_html += "</tbody>\n</table>\n";
  }

  void List(const std::vector<std::string>& lines) {
    if (lines.empty()) return;
    m_html += "<ul>\n";
    for (const std::string& line : lines) Element("li", line);
    m_html += "</ul>\n";
  }

  void AddList(std::string_view heading, const std::vector<std::string>& lines) {
    if (!lines.empty()) Element("h2", heading);
    List(lines);
  }

  void AddDesign() {
    const ProjectParameters& project = m_request.Project;
    Element("h2", "Design");
    std::vector<std::vector<std::string>> rows = {{"Tests", std::to_string(project.TestCount)},
                                                  {"Items", std::to_string(project.ItemCount)}};
    if (project.Categorized == 1) {
      rows.push_back({"Categories", std::to_string(project.CategoryCount) + " of " +
                                        std::to_string(project.ItemsPerCategory) + " items"});
    }
    if (IsFalseMemoryInForce(project)) rows.push_back({"Lures", "the last item of each category"});
    if (project.MinutesRecorded == 1) rows.push_back({"Minutes per test", std::to_string(project.MaxMinutes)});
    if (project.Rated == 1) rows.push_back({"Ratings", "1 to " + std::to_string(project.MaxRating) + RatedTests()});
    rows.push_back({"Order of study", OrderText()});
    Table({}, rows);
  }

  // ", of tests 1 and 3".
  [[nodiscard]] std::string RatedTests() const {
    std::string tests;
    for (int test = 1; test <= m_request.Project.TestCount; ++test) {
      if (IsTestRated(m_request.Project, test)) tests += (tests.empty() ? "" : ", ") + std::to_string(test);
    }
    return tests.empty() ? ", of no test" : ", of test " + tests;
  }

  [[nodiscard]] std::string OrderText() const {
    constexpr std::string_view kTexts[] = {"the subject's own", "the saved serial order", "not known"};
    std::string text;
    for (std::size_t origin = 0; origin < m_data.Orders.size(); ++origin) {
      if (m_data.Orders[origin] == 0) continue;
      text.append(text.empty() ? "" : "; ").append(kTexts[origin]);
      text += " (" + Counted(m_data.Orders[origin], "list", "lists") + ")";
    }
    return text;
  }

  void AddSubjects() {
    Element("h2", "Subjects");
    Element("p", "n = " + std::to_string(m_data.Table.RowCount()));
    for (std::size_t variable = 0; variable < m_data.Table.Variables.size(); ++variable) {
      const OccurringLevels levels = LevelsOf(m_data.Table, variable, &m_request.Project);
      std::vector<std::size_t> counts(levels.Names.size(), 0);
      for (const std::size_t level : levels.OfRow) ++counts[level];
      std::vector<std::vector<std::string>> rows;
      rows.reserve(counts.size());
      for (std::size_t level = 0; level < counts.size(); ++level) {
        rows.push_back({levels.Names[level], std::to_string(counts[level])});
      }
      Table({m_data.Table.Variables[variable], "n"}, rows);
    }
  }

  [[nodiscard]] MeansRequest MeansOf(const ReportFamily& family) const {
    MeansRequest request = m_request.Means;
    request.Measures = family.Measures;
    request.Orders = m_request.Plots.Orders;
    if (m_request.Plots.Bars == PlotBars::Within) request.More.Within = true;
    return request;
  }

  void AddLeftOut() {
    std::vector<std::string> lines;
    if (!m_request.LeftOut.empty()) lines.push_back(m_request.LeftOut);
    for (const ReportFamily& family : m_families) {
      std::vector<GapCount> all;
      for (const std::size_t measure : family.Measures) {
        for (const GapCount& gap : CountGaps(m_data.Table, measure)) {
          const auto known =
              std::find_if(all.begin(), all.end(), [&](const GapCount& other) { return other.Reason == gap.Reason; });
          if (known == all.end()) {
            all.push_back(gap);
          } else {
            known->Count += gap.Count;
          }
        }
      }
      for (const GapCount& gap : all) {
        lines.push_back(std::string(family.Stem) + ": " + Counted(gap.Count, "value", "values") + ", " +
                        std::string(gap.Reason) + ".");
      }
    }
    if (lines.empty()) lines.emplace_back("Every value of these measures could be computed.");
    AddList("What was left out, and why", lines);
  }

  void AddConventions() {
    std::vector<std::string> lines = ConventionsOf(m_families);
    std::set<std::string_view> kinds;
    for (const Results& results : m_results) {
      for (const Effect& effect : results.Effects) kinds.insert(effect.Kind);
    }
    for (const std::string_view kind : {"d", "difference", "d_z", "eta squared"}) {
      if (kinds.contains(kind)) lines.push_back(std::string(EffectDefinition(kind)) + ".");
    }
    if (m_request.Plots.Bars == PlotBars::Within) lines.emplace_back(kWithinText);
    AddList("Symbols and conventions", lines);
  }

  void AddFamily(const ReportFamily& family, const Results& results, const DrawFigure& draw) {
    Element("h2", std::string(family.Stem) + ": " + std::string(family.Label));
    if (!family.Definition.empty()) Element("p", family.Definition);
    if (!family.Source.empty()) Element("cite", family.Source);
    if (family.Measures.empty()) return AddGroups(*m_data.Groups);
    const MeansTable& means = results.Means;
    if (IsLeftOut(means)) {
      Element("p", "The table has " + std::to_string(LineCount(means)) +
                       " lines. Examine Means has it, and a report of these measures.");
      return AddPlot(PictureOf(means, m_request.Plots.Bars), draw);
    }
    AddMeans(means);
    List(GapTexts(m_data.Table, family.Measures));
    std::vector<std::string> lines;
    lines.reserve(results.Effects.size());
    for (const Effect& effect : results.Effects) lines.push_back(effect.Measure + ": " + EffectText(effect));
    List(lines);
    AddPlot(PictureOf(means, m_request.Plots.Bars), draw);
  }

  void AddLists(const DrawFigure& draw) {
    MeansRequest request = m_request.Means;
    request.Orders = m_request.Plots.Orders;
    PlotPicture picture = RasterOf(m_data.Table, request, m_request.Plots.Colours, m_request.Project);
    const std::size_t rows = picture.Lists.RowCount();
    Element("h2", "Recall lists");
    if (rows > kMostLists) {
      return Element("p", "Examine Means draws up to 1000 lists.");
    }
    Element("p", "A row for each subject and test, a mark for each recall, from the first to the last.");
    AddPlot(std::move(picture), draw);
  }

  // A row per group, below them the means of the groups with a value.
  void AddGroups(const GroupTable& groups) {
    std::vector<std::string> header = {"Group"};
    if (!groups.Separator.empty()) header.push_back(groups.Separator);
    header.insert(header.end(), groups.Names.begin(), groups.Names.end());
    std::vector<Sample> samples(groups.Names.size());
    std::vector<std::vector<std::string>> rows;
    rows.reserve(groups.Lines.size() + 1);
    constexpr int kDecimals = 3;
    for (const GroupTable::Line& line : groups.Lines) {
      std::vector<std::string>& row = rows.emplace_back(std::vector<std::string>{line.Label});
      if (!groups.Separator.empty()) row.push_back(line.Level);
      for (std::size_t i = 0; i < line.Values.size(); ++i) {
        const bool isComputed = line.Values[i].Gap == FurtherGap::None;
        if (isComputed) samples[i].Add(line.Values[i].Value);
        row.push_back(isComputed ? ShownNumber(line.Values[i].Value, kDecimals) : "");
      }
    }
    CriticalValues critical;
    for (const auto& [text, statistic] : {std::pair{"n", 0}, {"Mean", 1}, {"95% CI Low", 2}, {"95% CI High", 3}}) {
      std::vector<std::string>& row = rows.emplace_back(std::vector<std::string>{text});
      if (!groups.Separator.empty()) row.emplace_back();
      for (const Sample& sample : samples) {
        const SampleStatistics all = sample.Statistics(critical);
        const std::optional<double> values[] = {static_cast<double>(all.N), all.Mean, all.Low(), all.High()};
        row.push_back(ShownNumber(values[statistic], statistic == 0 ? 0 : kDecimals));
      }
    }
    Table(header, rows);
    if (std::any_of(groups.Lines.begin(), groups.Lines.end(), [](const GroupTable::Line& line) {
          return std::any_of(line.Values.begin(), line.Values.end(),
                             [](const Measured& value) { return value.Gap != FurtherGap::None; });
        })) {
      Element("p", "A field is empty where a member recalled nothing.");
    }
  }

  void AddMeans(const MeansTable& means) {
    const MeansLines lines = LinesOf(means);
    const std::vector<MeansColumn> columns = ColumnsOf(means.More);
    std::vector<std::vector<std::string>> rows;
    rows.reserve(lines.Rows.size());
    for (std::size_t measure = 0; measure < means.Measures.size(); ++measure) {
      const int decimals = DecimalsOf(means, measure);
      for (const MeansCell& cell : means.Cells) {
        std::vector<std::string> row = lines.Rows[rows.size()];
        const std::size_t first = row.size() - columns.size();
        for (std::size_t i = 0; i < columns.size(); ++i) {
          row[first + i] = ShownNumber(NumberOf(cell, measure, columns[i]), IsCount(columns[i]) ? 0 : decimals);
        }
        rows.push_back(std::move(row));
      }
    }
    Table(lines.Header, rows);
  }

  void AddPlot(PlotPicture picture, const DrawFigure& draw) {
    if (picture.IsEmpty()) return;
    ApplyFrame(m_request.Plots, picture);
    m_html += "<figure>\n" + draw(picture) + "\n<figcaption>";
    m_html += EscapedHtml(picture.YLabel +
                          (HasIntervals(picture) ? ".  " + std::string(BarsText(m_request.Plots.Bars)) : "."));
    if (!picture.Note.empty()) m_html += "  " + EscapedHtml(picture.Note);
    m_html += "</figcaption>\n</figure>\n";
  }

  const ReportRequest& m_request;
  const ReportData& m_data;
  std::vector<ReportFamily> m_families;
  std::vector<Results> m_results;  // by family
  std::string m_html;
};

}  // namespace

std::string ReportHtml(const ReportRequest& request, const DrawFigure& draw) { return Page(request).Build(draw); }

std::string EscapedHtml(std::string_view text) {
  std::string escaped;
  escaped.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&': escaped += "&amp;"; break;
      case '<': escaped += "&lt;"; break;
      case '>': escaped += "&gt;"; break;
      case '"': escaped += "&quot;"; break;
      case '\'': escaped += "&#39;"; break;
      default: escaped += static_cast<unsigned char>(c) < 0x20 && c != '\n' ? ' ' : c;
    }
  }
  return escaped;
}

}  // namespace zova
