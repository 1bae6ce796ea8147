// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/ReportData.h"

#include <algorithm>
#include <map>

#include "master/columns/MasterLines.h"
#include "master/exports/FurtherData.h"
#include "master/run/MasterRun.h"
#include "master/run/RunRetry.h"
#include "master/run/RunStart.h"
#include "means/RasterPlot.h"
#include "means/UncomputedValues.h"
#include "platform/desktop/PercentProgress.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectReader.h"
#include "text/Counted.h"

namespace zova {

namespace {

// Reads and scores one subject after the other.
class Reading {
 public:
  Reading(const ProjectParameters& project, const Platform& platform, int count)
      : m_project(project),
        m_platform(platform),
        m_count(count),
        m_reader(project, platform.Files, platform.Bar),
        m_bar(platform.Bar, static_cast<std::size_t>(count), "Reading subjects: ", "%") {
    m_selection.SetDefaultMeasures(project);
  }

  bool Run(ReportData& report) {
    MasterHeaderLine header;
    if (!BuildHeader(m_project, m_selection, MasterKind::Individual, m_platform.Boxes, header)) return false;
    const auto open = [&] {
      m_data = ReadFurtherData(m_platform.Files, m_project, std::nullopt);
      m_reader.List(m_count);
    };
    if (!WithRetry(m_platform.Boxes, open)) return false;
    WarnOfFaults(m_data, m_platform.Boxes);
    FurtherScorer further(m_data, FurtherColumns::AllAndCurves);
    ScoredTable table(m_project, m_selection, FurtherColumns::AllAndCurves);
    RecallMarks lists;
    MasterNotices notices;
    for (int k = 1; k <= m_count; ++k) {
      bool isInOrder = true;
      const auto read = [&] {
        isInOrder = m_reader.Read(k, m_record);
        if (!isInOrder) return;
        ScoreSubject(m_record.Lists, m_project, header.Families, m_scores);
        m_further = &further.Score(m_reader.SubjectId(k), m_record.Lists);
      };
      if (!WithRunRetry(m_platform.Boxes, read, [&] { return m_reader.Where(k); })) return false;
      if (!isInOrder) {
        table.Restart();
        lists = {};
        notices = {};
        k = 0;
        continue;
      }
      const std::string id = m_reader.SubjectId(k);
      BuildMasterRow(id, m_record.Levels, m_project, m_selection, m_scores, m_row);
      table.Add({id, m_record, m_scores, m_row, m_further});
      further.AppendLists(lists);
      NoteSubject(id, m_scores, m_reader.Oddities(), notices);
      m_bar.Show(static_cast<std::size_t>(k));
    }
    report.Table = table.Table();
    report.Table.Further.Lists = std::move(lists);
    report.Table.Further.Categories = CategoryNames(m_data.Words, m_project);
    report.Notices = MasterWarnings(notices);
    return true;
  }

 private:
  const ProjectParameters& m_project;
  const Platform& m_platform;
  int m_count;
  MeasureSelection m_selection;
  SubjectReader m_reader;
  PercentProgress m_bar;
  FurtherData m_data;
  SubjectRecord m_record;
  ScoringArrays m_scores;
  const FurtherScores* m_further = nullptr;
  std::string m_row;
};

constexpr std::string_view kUsual[] = {
    "Net", "Losses", "Gains", "CumulativeRecall", "ArcScore", "Bi-ITR", "#OfCategoriesUsed", "RatingAvg", "FalseNet"};
constexpr std::string_view kUsualFurther[] = {
    "Cumulative",  "Repeats",        "Intrusions", "LBC",     "CategoryCRP", "SubjectiveOrganization",
    "FirstRecall", "TemporalFactor", "LagCrp",     "Position"};

bool IsUsual(const MasterTable& table, std::size_t measure) {
  const std::string& name = table.MeasureName(measure);
  const std::string_view stem = std::string_view(name).substr(0, name.find('('));
  const auto isIn = [&](const auto& stems) {
    return std::find(std::begin(stems), std::end(stems), stem) != std::end(stems);
  };
  return table.IsFurther(measure) ? isIn(kUsualFurther) : isIn(kUsual);
}

bool HasValue(const MasterTable& table, std::size_t measure) {
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (!table.IsUncomputed(row, measure)) return true;
  }
  return false;
}

// A family is left out if none of its measures has a value.
ReportChoice UsualMeasures(const MasterTable& table) {
  ReportChoice choice;
  choice.IsUsual = true;
  std::map<std::string, bool> hasValues;
  const auto stemOf = [&](std::size_t measure) {
    const std::string& name = table.MeasureName(measure);
    return (table.IsFurther(measure) ? "+" : "") + name.substr(0, name.find('('));
  };
  for (std::size_t measure = 0; measure < table.MeasureCount(); ++measure) {
    if (!IsUsual(table, measure)) continue;
    bool& hasValue = hasValues[stemOf(measure)];
    hasValue = hasValue || HasValue(table, measure);
    choice.Measures.push_back(measure);
  }
  std::erase_if(choice.Measures, [&](std::size_t measure) { return !hasValues[stemOf(measure)]; });
  for (const auto& [stem, hasValue] : hasValues) {
    if (hasValue) continue;
    choice.Notice += choice.Notice.empty() ? "Left out, since no subject has a value: " : ", ";
    choice.Notice += stem.substr(stem.starts_with('+') ? 1 : 0);
  }
  if (!choice.Notice.empty()) choice.Notice += ".";
  return choice;
}

std::string Quoted(const std::string& text) { return "\"" + text + "\""; }

std::string Joined(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) list += (list.empty() ? "" : ",") + name;
  return list;
}

}  // namespace

std::optional<ReportData> ReadReportData(const ProjectParameters& project, const Platform& platform) {
  const auto count = CountSubjectFiles(project, platform.Files, platform.Boxes);
  if (count.value_or(0) == 0) return std::nullopt;
  ReportData report;
  if (!Reading(project, platform, *count).Run(report)) return std::nullopt;
  const auto addUnfinished = [&] { AddUnfinishedNotice(project, platform.Files, report.Notices); };
  if (!WithRetry(platform.Boxes, addUnfinished)) return std::nullopt;
  return report;
}

void AddUnfinishedNotice(const ProjectParameters& project, Disk& disk, std::vector<std::string>& notices) {
  const auto names = ListSubjectFiles(disk, project, UnfinishedDirectory(project.PrimaryDir));
  if (names.empty()) return;
  notices.push_back(Counted(names.size(), "unfinished subject is", "unfinished subjects are") + " left out.");
}

ReportChoice ChooseMeasures(const MasterTable& table, const std::vector<std::string>& names) {
  if (names.empty()) return UsualMeasures(table);
  ReportChoice choice;
  for (const std::string& name : names) {
    std::size_t measure = 0;
    while (measure < table.MeasureCount() && table.MeasureName(measure) != name) ++measure;
    if (measure == table.MeasureCount()) {
      choice.Unknown = name;
      return choice;
    }
    choice.Measures.push_back(measure);
  }
  return choice;
}

std::string ReportCommand(const std::string& reportFile, const std::string& projectFile,
                          const std::vector<std::string>& variables, const std::vector<std::string>& measures,
                          const PlotOptions& plots) {
  std::string command = "zova --report " + Quoted(reportFile);
  if (!variables.empty()) command += " --means " + Quoted(Joined(variables));
  if (!measures.empty()) command += " --measures " + Quoted(Joined(measures));
  for (const auto& [option, value] : CommandOptions(plots)) command += " --" + option + " " + Quoted(value);
  return command + " " + Quoted(projectFile);
}

}  // namespace zova
