// SPDX-License-Identifier: GPL-3.0-or-later

#include "report/ReportData.h"

#include <algorithm>
#include <map>
#include <utility>

#include "master/columns/MasterLines.h"
#include "master/exports/GroupsExport.h"
#include "master/groups/GroupLabel.h"
#include "master/run/MasterRun.h"
#include "master/run/RunRetry.h"
#include "master/run/RunStart.h"
#include "means/RasterPlot.h"
#include "means/UncomputedValues.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/PercentProgress.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectReader.h"
#include "text/Cells.h"
#include "text/Counted.h"
#include "text/TypedText.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

// "'AB Intrusions.csv' is passed over: a line does not fit.  Reading 'C:\\Data\\AB Intrusions.csv'  Line 3: ...".
std::string FaultNotice(const FileError& fault) {
  std::string text = PassedOverText(fault) + "  " + FaultText(fault);
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n')) text.replace(end, 1, "  ");
  return text;
}

// Reads and scores one subject after the other.
class Reading {
 public:
  Reading(const ProjectParameters& project, const std::optional<GroupChoice>& groups, const Platform& platform,
          int count)
      : m_project(project),
        m_groups(groups),
        m_platform(platform),
        m_count(count),
        m_reader(project, platform.Files, platform.Bar),
        m_bar(platform.Bar, static_cast<std::size_t>(count), "Reading subjects: ", "%") {
    m_selection.SetDefaultMeasures(project);
  }

  bool Run(ReportData& report) {
    const auto readData = [&] { m_data = ReadFurtherData(m_platform.Files, m_project, std::nullopt); };
    if (!WithRetry(m_platform.Boxes, readData)) return false;
    WarnOfFaults(m_data, m_platform.Boxes);
    return ReadSubjects(report) && (!m_groups || ReadGroups(report)) && AddNotices(report.Notices);
  }

 private:
  bool ReadSubjects(ReportData& report) {
    MasterHeaderLine header;
    if (!BuildHeader(m_project, m_selection, MasterKind::Individual, m_platform.Boxes, header)) return false;
    if (!WithRetry(m_platform.Boxes, [&] { m_reader.List(m_count); })) return false;
    m_columns = CurvesFor(m_project, static_cast<std::size_t>(m_count));
    FurtherScorer further(m_data, m_columns);
    ScoredTable table(m_project, m_selection, m_columns);
    RecallMarks lists;
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
        m_notices = {};
        report.Orders = {};
        k = 0;
        continue;
      }
      const std::string id = m_reader.SubjectId(k);
      BuildMasterRow(id, m_record.Levels, m_project, m_selection, m_scores, m_row);
      table.Add({id, m_record, m_scores, m_row, m_further});
      if (table.Table().RowCount() > lists.IsRead.size()) further.AppendLists(lists);
      CountOrders(m_data, id, report.Orders);
      NoteSubject(id, m_scores, m_reader.Oddities(), m_notices);
      m_bar.Show(static_cast<std::size_t>(k));
    }
    report.Table = std::move(table).Release();
    report.Table.Further.Lists = std::move(lists);
    report.Table.Further.Categories = CategoryNames(m_data.Words, m_project);
    return true;
  }

  bool ReadGroups(ReportData& report) {
    const auto groups = ReadChosenGroups(m_project, m_count, *m_groups, m_platform);
    if (!groups) return false;
    const std::vector<std::string>& ids = groups->Subjects.SubjectIds;
    if (!WithRetry(m_platform.Boxes, [&] { m_reader.UseNames(groups->Subjects.FileNames); })) return false;
    GroupsExport lines(m_data);
    GroupTable& table = report.Groups.emplace();
    table.Names = lines.Names();
    if (m_groups->Separator) table.Separator = m_project.VariableNames[*m_groups->Separator];
    int number = 0;
    for (const NominalGroup& group : groups->Plan.Groups) {
      lines.Reset();
      std::vector<std::string> members;
      for (const std::size_t member : group.Members) {
        const int k = static_cast<int>(member) + 1;
        const auto read = [&] {
          m_reader.Read(k, m_record);
          lines.Read(ids[member], m_record.Lists);
        };
        if (!WithRunRetry(m_platform.Boxes, read, [&] { return m_reader.Where(k); })) return false;
        lines.KeepRead();
        members.push_back(ids[member]);
      }
      const std::string level =
          m_groups->Separator ? LevelLabel(m_project, *m_groups->Separator, group.Level) : std::string();
      table.Lines.push_back({GroupLabel(++number, members), level, lines.Values()});
    }
    if (groups->Plan.HasLeftOver()) {
      const std::string levels = GroupPlanText(groups->Plan, ids, m_project, m_groups->Separator);
      std::string_view rest = levels;
      while (!rest.empty()) report.Notices.emplace_back(NextLine(rest));
    }
    for (const std::string& id : groups->NotInOrder) {
      report.Notices.push_back("Subject " + id + " is not in '" + m_groups->OrderFile + "' and comes last.");
    }
    return true;
  }

  bool AddNotices(std::vector<std::string>& notices) {
    return WithRetry(m_platform.Boxes, [&] {
      std::vector<std::string> all;
      const auto unfinished =
          ListSubjectFiles(m_platform.Files, m_project, UnfinishedDirectory(m_project.PrimaryDir)).size();
      if (unfinished > 0) {
        all.push_back(Counted(unfinished, "unfinished subject is", "unfinished subjects are") + " left out.");
      }
      for (const FileError& fault : m_data.Faults) all.push_back(FaultNotice(fault));
      if (m_columns != FurtherColumns::AllAndCurves) all.emplace_back(kCurvesLeftOut);
      m_notices.DanglingLinks = DanglingSubjectLinks(m_project, m_platform.Files);
      for (std::string& warning : MasterWarnings(m_notices)) all.push_back(std::move(warning));
      notices.insert(notices.begin(), all.begin(), all.end());
    });
  }

  const ProjectParameters& m_project;
  const std::optional<GroupChoice>& m_groups;
  const Platform& m_platform;
  int m_count;
  MeasureSelection m_selection;
  FurtherColumns m_columns = FurtherColumns::AllAndCurves;
  SubjectReader m_reader;
  PercentProgress m_bar;
  FurtherData m_data;
  MasterNotices m_notices;
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

struct UsualFamily {
  bool HasValue = false;
  std::vector<std::string> Reasons;  // for its gaps

  void AddReasons(const MasterTable& table, std::size_t measure) {
    for (const GapCount& gap : CountGaps(table, measure)) {
      if (std::find(Reasons.begin(), Reasons.end(), gap.Reason) == Reasons.end()) Reasons.emplace_back(gap.Reason);
    }
  }
};

// A family is left out if none of its measures has a value.
MeasureChoice UsualMeasures(const MasterTable& table) {
  MeasureChoice choice;
  choice.IsUsual = true;
  std::map<std::string, UsualFamily> families;
  const auto familyOf = [&](std::size_t measure) -> UsualFamily& {
    const std::string& name = table.MeasureName(measure);
    return families[(table.IsFurther(measure) ? "+" : "") + name.substr(0, name.find('('))];
  };
  for (std::size_t measure = 0; measure < table.MeasureCount(); ++measure) {
    if (!IsUsual(table, measure)) continue;
    UsualFamily& family = familyOf(measure);
    family.HasValue = family.HasValue || HasValue(table, measure);
    choice.Measures.push_back(measure);
  }
  std::erase_if(choice.Measures, [&](std::size_t measure) {
    UsualFamily& family = familyOf(measure);
    if (!family.HasValue) family.AddReasons(table, measure);
    return !family.HasValue;
  });
  for (const auto& [stem, family] : families) {
    if (family.HasValue) continue;
    choice.LeftOut += choice.LeftOut.empty() ? "Left out, since no subject has a value: " : ", ";
    choice.LeftOut += stem.substr(stem.starts_with('+') ? 1 : 0) + " (" + Joined(family.Reasons, "; ") + ")";
  }
  if (!choice.LeftOut.empty()) choice.LeftOut += ".";
  return choice;
}

}  // namespace

std::optional<ReportData> ReadReportData(const ProjectParameters& project, const std::optional<GroupChoice>& groups,
                                         const Platform& platform) {
  const auto count = CountSubjectFiles(project, platform.Files, platform.Boxes);
  if (count.value_or(0) == 0) return std::nullopt;
  ReportData report;
  if (!Reading(project, groups, platform, *count).Run(report)) return std::nullopt;
  return report;
}

MeasureChoice ChooseMeasures(const MasterTable& table, const std::vector<std::string>& names) {
  if (names.empty()) return UsualMeasures(table);
  MeasureChoice choice;
  std::vector<std::size_t>& measures = choice.Measures;
  for (const std::string& text : names) {
    const std::string_view name = WithoutOuterBlanks(text);
    std::size_t measure = 0;
    while (measure < table.MeasureCount() && table.MeasureName(measure) != name) ++measure;
    if (measure == table.MeasureCount()) {
      choice.Unknown = name;
      return choice;
    }
    if (std::find(measures.begin(), measures.end(), measure) == measures.end()) measures.push_back(measure);
  }
  return choice;
}

}  // namespace zova
