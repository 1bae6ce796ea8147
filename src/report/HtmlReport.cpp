// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/HtmlReport.h"

#include <algorithm>
#include <cctype>

#include "master/columns/ColumnName.h"
#include "master/columns/FurtherFamilies.h"
#include "means/EffectSizes.h"
#include "means/OccurringLevels.h"
#include "means/RasterPlot.h"
#include "project/ProjectLayout.h"
#include "report/ReportStyle.h"

namespace zova {

namespace {

constexpr std::size_t kMostLines = 150;  // of a table that nobody asked for
constexpr std::size_t kMostLists = 300;  // some 300 kB

// The measures of one family among those of the request.
struct FamilyOfReport {
  std::string_view Stem;
  std::string_view Label;
  std::string_view Definition;
  std::string_view Source;
  std::vector<std::size_t> Measures;
};

FamilyOfReport FamilyOf(const MasterTable& table, std::size_t measure) {
  const std::string& name = table.MeasureName(measure);
  if (const auto further = FurtherColumnByName(name); further && table.IsFurther(measure)) {
    const FurtherFamily& family = *further->Family;
    return {family.Stem, family.Label, family.Definition, family.Source, {measure}};
  }
  if (const auto known = ColumnByName(name)) {
    const MeasureFamily& family = *known->Family;
    const MeasureBox& box = AllMeasureBoxes()[static_cast<std::size_t>(family.Box)];
    return {family.Stem, family.Label, box.QuickHelp, "", {measure}};
  }
  return {name, name, "", "", {measure}};
}

// A master's and a further family may have one name, Gains.
std::vector<FamilyOfReport> FamiliesOf(const ReportRequest& request) {
  std::vector<FamilyOfReport> families;
  for (const std::size_t measure : request.Means.Measures) {
    const FamilyOfReport family = FamilyOf(request.Table, measure);
    const auto known = std::find_if(families.begin(), families.end(), [&](const FamilyOfReport& other) {
      return other.Stem == family.Stem && other.Definition == family.Definition;
    });
    if (known == families.end()) {
      families.push_back(family);
    } else {
      known->Measures.push_back(measure);
    }
  }
  return families;
}

// A box's quick help says what it adds: "Adds the number of items recalled."
std::string WithoutVerb(std::string_view definition) {
  constexpr std::string_view kVerb = "Adds ";
  if (!definition.starts_with(kVerb)) return std::string(definition);
  definition.remove_prefix(kVerb.size());
  return std::string(1, static_cast<char>(std::toupper(static_cast<unsigned char>(definition.front())))) +
         std::string(definition.substr(1));
}

// Where no measure was named, and with those of the serial position.
bool ShowsLists(const ReportRequest& request) {
  const std::vector<std::size_t>& measures = request.Means.Measures;
  return request.IsUsual || std::any_of(measures.begin(), measures.end(), [&](std::size_t measure) {
           const auto further = FurtherColumnByName(request.Table.MeasureName(measure));
           return further && request.Table.IsFurther(measure) && further->Family->Group == FurtherGroup::Serial;
         });
}

class Page {
 public:
  explicit Page(const ReportRequest& request) : m_request(request) {}

  std::string Build(const DrawSvg& draw) {
    const std::string title = EscapedHtml(ProjectTitle(m_request.Project));
    m_html = "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>" + title +
             "</title>\n<style>\n" + std::string(kReportStyle) + "</style>\n</head>\n<body>\n";
    Element("h1", ProjectTitle(m_request.Project));
    AddDesign();
    AddSubjects();
    AddNotices();
    for (const FamilyOfReport& family : FamiliesOf(m_request)) AddFamily(family, draw);
    if (ShowsLists(m_request)) AddLists(draw);
    m_html += "<footer>\n";
    Element("p", "Made by ZOVA " + m_request.Version + ". The same page again:");
    Element("pre", m_request.CommandLine);
    m_html += "</footer>\n</body>\n</html>\n";
    return std::move(m_html);
  }

 private:
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
    m_html += "<table>\n<thead>\n";
    Row("th", header);
    m_html += "</thead>\n<tbody>\n";
    for (const std::vector<std::string>& row : rows) Row("td", row);
    m_html += "</tbody>\n</table>\n";
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
    if (project.Rated == 1) rows.push_back({"Ratings", "1 to " + std::to_string(project.MaxRating)});
    Table({"", ""}, rows);
  }

  void AddSubjects() {
    Element("h2", "Subjects");
    Element("p", "n = " + std::to_string(m_request.Table.RowCount()));
    for (std::size_t variable = 0; variable < m_request.Table.Variables.size(); ++variable) {
      const OccurringLevels levels = LevelsOf(m_request.Table, variable, &m_request.Project);
      std::vector<std::size_t> counts(levels.Names.size(), 0);
      for (const std::size_t level : levels.OfRow) ++counts[level];
      std::vector<std::vector<std::string>> rows;
      rows.reserve(counts.size());
      for (std::size_t level = 0; level < counts.size(); ++level) {
        rows.push_back({levels.Names[level], std::to_string(counts[level])});
      }
      Table({m_request.Table.Variables[variable], "n"}, rows);
    }
  }

  void AddNotices() {
    if (m_request.Notices.empty()) return;
    Element("h2", "Notices");
    m_html += "<ul>\n";
    for (const std::string& notice : m_request.Notices) Element("li", notice);
    m_html += "</ul>\n";
  }

  void AddFamily(const FamilyOfReport& family, const DrawSvg& draw) {
    Element("h2", std::string(family.Stem) + ": " + std::string(family.Label));
    if (!family.Definition.empty()) Element("p", WithoutVerb(family.Definition));
    if (!family.Source.empty()) Element("cite", family.Source);
    MeansRequest request = m_request.Means;
    request.Measures = family.Measures;
    request.Orders = m_request.Plots.Orders;
    if (m_request.Plots.Bars == PlotBars::Within) request.More.Within = true;
    const MeansTable means = ComputeMeans(m_request.Table, request, &m_request.Project);
    if (const std::size_t lines = means.Measures.size() * means.Cells.size(); m_request.IsUsual && lines > kMostLines) {
      Element("p", "The table has " + std::to_string(lines) +
                       " lines. Examine Means has it, and a report of these measures.");
      return AddPlot(PictureOf(means, m_request.Plots.Bars), draw);
    }
    AddMeans(means);
    const std::vector<Effect> effects = ComputeEffects(m_request.Table, request, &m_request.Project);
    if (!effects.empty()) {
      m_html += "<ul class=\"effects\">\n";
      for (const Effect& effect : effects) Element("li", effect.Measure + ": " + EffectText(effect));
      m_html += "</ul>\n";
    }
    AddPlot(PictureOf(means, m_request.Plots.Bars), draw);
  }

  void AddLists(const DrawSvg& draw) {
    MeansRequest request = m_request.Means;
    request.Orders = m_request.Plots.Orders;
    PlotPicture picture = RasterOf(m_request.Table, request, m_request.Plots.Colours, m_request.Project);
    const std::size_t rows = picture.Lists.RowCount();
    Element("h2", "Recall lists");
    if (rows > kMostLists) {
      return Element("p", "Examine Means draws the lists of so many subjects.");
    }
    Element("p", "A row for each subject and test, a mark for each recall, from the first to the last.");
    AddPlot(std::move(picture), draw);
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
          const bool isCount = columns[i] == MeansColumn::N || columns[i] == MeansColumn::NotComputed;
          row[first + i] = ShownNumber(NumberOf(cell, measure, columns[i]), isCount ? 0 : decimals);
        }
        rows.push_back(std::move(row));
      }
    }
    Table(lines.Header, rows);
  }

  // Without the prolog, which may stand at the beginning of a document only.
  void AddPlot(PlotPicture picture, const DrawSvg& draw) {
    if (picture.IsEmpty()) return;
    ApplyFrame(m_request.Plots, picture);
    const std::string svg = draw(picture);
    const std::size_t begin = svg.find("<svg");
    if (begin == std::string::npos) return;
    m_html.append("<figure>\n").append(svg, begin, std::string::npos);
    m_html += "\n<figcaption>";
    m_html += EscapedHtml(picture.YLabel +
                          (HasIntervals(picture) ? ".  " + std::string(BarsText(m_request.Plots.Bars)) : "."));
    if (!picture.Note.empty()) m_html += "  " + EscapedHtml(picture.Note);
    m_html += "</figcaption>\n</figure>\n";
  }

  const ReportRequest& m_request;
  std::string m_html;
};

}  // namespace

std::string ReportHtml(const ReportRequest& request, const DrawSvg& draw) { return Page(request).Build(draw); }

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
