// SPDX-License-Identifier: GPL-3.0-or-later
//
// Only ratios have gaps. The walk over the columns has the same order for every subject, so column names are built once
// and the n-th ratio is then identified by its index.

#include "means/UncomputedValues.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "master/columns/MasterColumns.h"
#include "master/exports/ScoreGapText.h"
#include "master/groups/GroupLabel.h"
#include "master/groups/NominalGroups.h"
#include "means/RasterPlot.h"
#include "platform/desktop/PercentProgress.h"
#include "scoring/ScoreSubject.h"
#include "subjects/SubjectReader.h"

namespace zova {

namespace {

constexpr double kNoValue = std::numeric_limits<double>::quiet_NaN();
constexpr std::size_t kNone = std::numeric_limits<std::size_t>::max();

// Finds the walk's columns in a table.
class ColumnFinder final : public ColumnSink {
 public:
  explicit ColumnFinder(const MasterTable& table) {
    for (std::size_t measure = 0; measure < table.Measures.size(); ++measure) {
      m_measures.emplace(table.Measures[measure], measure);
    }
  }
  void Count(const MasterColumn& column, std::int16_t) override { (void)Find(column); }
  void Share(const MasterColumn& column, const Ratio&) override { Shares.push_back(Find(column)); }

  FamilySet Families;               // with a column in the table
  std::vector<std::size_t> Shares;  // the measure of the walk's n-th ratio, or kNone

 private:
  std::size_t Find(const MasterColumn& column) {
    m_name.clear();
    AppendColumnName(m_name, column);
    const auto found = m_measures.find(m_name);
    if (found == m_measures.end()) return kNone;
    Families.Add(column.Family->Scores);
    return found->second;
  }

  std::unordered_map<std::string_view, std::size_t> m_measures;
  std::string m_name;
};

ColumnFinder FindColumns(const ProjectParameters& project, const MeasureSelection& selection,
                         const MasterTable& table) {
  ScoringArrays empty;
  ResetScores(empty, project);
  ColumnFinder finder(table);
  WalkMeasureColumns(project, selection, MasterKind::Individual, empty, finder);
  return finder;
}

// Collects the names of a walk's columns.
class ColumnCollector final : public ColumnSink {
 public:
  explicit ColumnCollector(std::vector<std::string>& measures) : m_measures(measures) {}
  void Count(const MasterColumn& column, std::int16_t) override { AppendColumnName(m_measures.emplace_back(), column); }
  void Share(const MasterColumn& column, const Ratio&) override {
    Shares.push_back(m_measures.size());
    AppendColumnName(m_measures.emplace_back(), column);
  }

  std::vector<std::size_t> Shares;  // as in ColumnFinder

 private:
  std::vector<std::string>& m_measures;
};

// Marks the zeros of a row whose ratios have no value.
class GapMarker final : public ColumnSink {
 public:
  GapMarker(MasterTable& table, std::size_t row, const std::vector<std::size_t>& shares)
      : m_table(table), m_row(row), m_shares(shares) {}
  void Count(const MasterColumn&, std::int16_t) override {}
  void Share(const MasterColumn&, const Ratio& value) override {
    const std::size_t measure = m_shares[m_next++];
    if (measure == kNone || value.Gap == ScoreGap::None || m_table.Value(m_row, measure) != 0) return;
    m_table.Gaps[m_row * m_table.Measures.size() + measure] = value.Gap;
  }

 private:
  MasterTable& m_table;
  std::size_t m_row;
  const std::vector<std::size_t>& m_shares;
  std::size_t m_next = 0;
};

// If the directory cannot be listed, no row can be scored.
std::vector<std::string> ListedSubjects(SubjectReader& reader) {
  try {
    reader.List(0);
    return reader.SubjectIds();
  } catch (const FileError&) {
    return {};
  }
}

void AppendFurther(const FurtherScores& scores, const ProjectParameters& project, FurtherValues& further) {
  WalkFurtherColumns(project, scores, [&](const FurtherColumn&, const Measured& value) {
    further.Values.push_back(value.Gap == FurtherGap::None ? value.Value : kNoValue);
    further.Gaps.push_back(value.Gap);
  });
}

// Scores the rows of a table again.
class Rescoring {
 public:
  Rescoring(const ProjectParameters& project, const FamilySet& families, Disk& disk, Progress& bar)
      : m_project(project),
        m_families(families),
        m_reader(project, disk, bar),
        m_index(ListedSubjects(m_reader)),
        m_pool(project) {}

  // False if the subject or group cannot be scored.
  bool Score(const std::string& subject) {
    const int number = m_index.NumberOf(subject);
    const std::vector<int> members = number > 0 ? std::vector<int>{} : m_index.MembersOf(subject);
    if (number == 0 && members.empty()) return false;
    try {
      if (number > 0) {
        m_reader.Read(number, m_record);
        ScoreSubject(m_record.Lists, m_project, m_families, m_scores);
      } else {
        ScoreGroup(members);
      }
      return true;
    } catch (const FileError&) {
      return false;
    } catch (const ScoringError&) {
      return false;
    }
  }

  [[nodiscard]] const ScoringArrays& Scores() const noexcept { return m_scores; }

 private:
  void ScoreGroup(const std::vector<int>& members) {
    m_pool.Reset();
    for (const int member : members) {
      m_reader.Read(member, m_record);
      m_pool.Add(m_record.Lists);
    }
    ScoreSubject(m_pool.Pooled(), m_project, m_families, m_scores);
  }

  const ProjectParameters& m_project;
  FamilySet m_families;
  SubjectReader m_reader;
  SubjectIndex m_index;
  GroupRecall m_pool;
  SubjectRecord m_record;
  ScoringArrays m_scores;
};

}  // namespace

int MarkUncomputed(MasterTable& table, const ProjectParameters& project, Disk& disk, Progress& bar) {
  MeasureSelection selection;
  selection.SetDefaultMeasures(project);
  const ColumnFinder columns = FindColumns(project, selection, table);
  if (std::all_of(columns.Shares.begin(), columns.Shares.end(), [](std::size_t m) { return m == kNone; })) return 0;
  Rescoring rescoring(project, columns.Families, disk, bar);
  PercentProgress progress(bar, table.RowCount(), "Reading subjects: ", "%");
  int failures = 0;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (rescoring.Score(table.Subjects[row])) {
      GapMarker marker(table, row, columns.Shares);
      WalkMeasureColumns(project, selection, MasterKind::Individual, rescoring.Scores(), marker);
    } else {
      ++failures;
    }
    progress.Show(row + 1);
  }
  return failures;
}

FurtherColumns CurvesFor(const ProjectParameters& project, std::size_t rows) {
  constexpr std::size_t kMostValues = 20'000'000;
  const std::size_t positions =
      static_cast<std::size_t>(project.TestCount) * static_cast<std::size_t>(project.ItemCount);
  return rows * positions <= kMostValues ? FurtherColumns::AllAndCurves : FurtherColumns::All;
}

void ComputeFurther(MasterTable& table, const ProjectParameters& project, const FurtherData& data,
                    FurtherColumns columns, Disk& disk, Progress& bar) {
  FurtherScorer scorer(data, columns);
  SubjectReader reader(project, disk, bar);
  const SubjectIndex index(ListedSubjects(reader));
  SubjectRecord record;
  PercentProgress progress(bar, table.RowCount(), "Reading subjects: ", "%");
  table.Further.Values.clear();
  table.Further.Gaps.clear();
  table.Further.Lists = {};
  table.Further.Categories = CategoryNames(data.Words, project);
  table.Further.Values.reserve(table.RowCount() * table.Further.Names.size());
  table.Further.Gaps.reserve(table.RowCount() * table.Further.Names.size());
  const auto score = [&](int number) -> const FurtherScores* {
    if (number == 0) return nullptr;
    try {
      reader.Read(number, record);
      return &scorer.Score(reader.SubjectId(number), record.Lists);
    } catch (const FileError&) {
      return nullptr;
    } catch (const ScoringError&) {
      return nullptr;
    }
  };
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (const FurtherScores* scores = score(index.NumberOf(table.Subjects[row]))) {
      AppendFurther(*scores, project, table.Further);
      scorer.AppendLists(table.Further.Lists);
    } else {
      AppendUnread(data.Study, table.Further.Lists);
      table.Further.Values.resize(table.Further.Values.size() + table.Further.Names.size(), kNoValue);
      table.Further.Gaps.resize(table.Further.Values.size(), FurtherGap::NotScored);
    }
    progress.Show(row + 1);
  }
}

std::vector<GapCount> CountGaps(const MasterTable& table, std::size_t measure) {
  std::vector<GapCount> counts;
  const bool isFurther = table.IsFurther(measure);
  const std::size_t width = isFurther ? table.Further.Names.size() : table.Measures.size();
  const std::size_t column = isFurther ? measure - table.Measures.size() : measure;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    const std::size_t at = row * width + column;
    const std::string_view reason = isFurther ? FurtherGapText(table.Further.Gaps[at]) : ScoreGapText(table.Gaps[at]);
    if (reason.empty()) continue;
    const auto known = std::find_if(counts.begin(), counts.end(), [&](const auto& c) { return c.Reason == reason; });
    if (known == counts.end()) {
      counts.push_back({reason, 1});
    } else {
      ++known->Count;
    }
  }
  return counts;
}

ScoredTable::ScoredTable(const ProjectParameters& project, const MeasureSelection& selection, FurtherColumns further)
    : m_project(project), m_selection(selection) {
  m_table.Further.Names = FurtherColumnNames(project, further);
  const auto names = project.VariableNames.begin();
  m_table.Variables.assign(names, names + project.VariableCount);
  ScoringArrays empty;
  ResetScores(empty, project);
  ColumnCollector collector(m_table.Measures);
  WalkMeasureColumns(project, selection, MasterKind::Individual, empty, collector);
  m_shares = std::move(collector.Shares);
}

bool ScoredTable::Add(const ScoredSubject& subject) {
  const std::size_t row = m_table.RowCount();
  const std::string_view fields = std::string_view(subject.MasterRow).substr(subject.SubjectId.size());
  AddMasterRowOf(subject.SubjectId, fields.substr(std::min<std::size_t>(fields.size(), 1)), m_table);
  if (m_table.RowCount() == row) return true;
  GapMarker marker(m_table, row, m_shares);
  WalkMeasureColumns(m_project, m_selection, MasterKind::Individual, subject.Scores, marker);
  if (subject.Further != nullptr) AppendFurther(*subject.Further, m_project, m_table.Further);
  return true;
}

void ScoredTable::Restart() {
  MasterTable empty;
  empty.Variables = std::move(m_table.Variables);
  empty.Measures = std::move(m_table.Measures);
  empty.Further.Names = std::move(m_table.Further.Names);
  m_table = std::move(empty);
}

}  // namespace zova
