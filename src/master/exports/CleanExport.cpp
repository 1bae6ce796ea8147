// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/CleanExport.h"

#include "master/columns/MasterColumns.h"
#include "master/exports/ScoreGapText.h"
#include "text/Csv.h"
#include "text/NumberText.h"

namespace zova {

namespace {

class ValueSink final : public ColumnSink {
 public:
  ValueSink(std::string& row, std::string& reasons) : m_row(row), m_reasons(reasons) {}
  void Count(const MasterColumn&, std::int16_t value) override {
    m_row += ',';
    AppendNumber(m_row, static_cast<int>(value));
  }
  void Share(const MasterColumn& column, const Ratio& value) override {
    m_row += ',';
    if (value.Gap == ScoreGap::None) {
      AppendExactNumber(m_row, value.Uncut);
      return;
    }
    if (!m_reasons.empty()) m_reasons += "; ";
    AppendColumnName(m_reasons, column);
    m_reasons.append(": ").append(ScoreGapText(value.Gap));
  }

 private:
  std::string& m_row;
  std::string& m_reasons;
};

}  // namespace

void AppendLevelField(std::string& line, const ProjectParameters& project, std::size_t variable, int level) {
  AppendCsvField(line, LevelLabel(project, variable, level));
}

std::string CleanExport::Header() const {
  CsvHeader header;
  header.Add("Subject");
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    header.AddVariable(m_project.VariableNames[v]);
  }
  std::string name;
  ForEachColumn(m_project, m_selection, MasterKind::Individual, [&](const MasterColumn& column) {
    name.clear();
    AppendColumnName(name, column);
    header.Add(name);
  });
  header.Add("Not Computed");
  return header.Line();
}

void CleanExport::Build(const ScoredSubject& subject, std::string& row) {
  row.clear();
  m_reasons.clear();
  AppendCsvField(row, subject.SubjectId);
  for (std::size_t v = 0; v < static_cast<std::size_t>(m_project.VariableCount); ++v) {
    row += ',';
    AppendLevelField(row, m_project, v, subject.Record.Levels[v]);
  }
  ValueSink sink(row, m_reasons);
  WalkMeasureColumns(m_project, m_selection, MasterKind::Individual, subject.Scores, sink);
  row += ',';
  AppendCsvField(row, m_reasons);
}

}  // namespace zova
