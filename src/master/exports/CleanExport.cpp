// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/CleanExport.h"

#include <algorithm>

#include "master/columns/MasterColumns.h"
#include "master/exports/ScoreGapText.h"
#include "text/Csv.h"
#include "text/NumberText.h"
#include "text/NumberedText.h"

namespace zova {

namespace {

// Most values are whole numbers.
void AppendMeasured(std::string& row, double value) {
  const int whole = static_cast<int>(value);
  if (whole == value) {
    AppendNumber(row, whole);
  } else {
    AppendPlainNumber(row, value);
  }
}

bool IsFirstSerial(const FurtherColumn& column) {
  static const auto kFamilies = AllFurtherFamilies();
  static const auto kFirst = std::find_if(kFamilies.begin(), kFamilies.end(), [](const FurtherFamily& family) {
    return (family.Rules & FurtherFamily::Serial) != 0;
  });
  return column.Family == &*kFirst;
}

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
    AddReason([&] { AppendColumnName(m_reasons, column); }, ScoreGapText(value.Gap));
  }
  void Further(const FurtherColumn& column, const Measured& value) {
    m_row += ',';
    if (value.Gap == FurtherGap::None) {
      AppendMeasured(m_row, value.Value);
    } else if (value.Gap != FurtherGap::NoStudyOrder && value.Gap != FurtherGap::StudyOrdersUnfit) {
      AddReason([&] { AppendColumnName(m_reasons, column); }, FurtherGapText(value.Gap));
    } else if (IsFirstSerial(column)) {  // all serial measures of the test lack it
      AddReason([&] { AppendNumbered(m_reasons, "Serial(Test %)", column.Place.Test); }, FurtherGapText(value.Gap));
    }
  }

 private:
  template <typename AppendName>
  void AddReason(AppendName&& appendName, std::string_view reason) {
    if (!m_reasons.empty()) m_reasons += "; ";
    appendName();
    m_reasons.append(": ").append(reason);
  }

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
  for (const std::string& further : FurtherColumnNames(m_project, m_further)) header.Add(further);
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
  if (subject.Further != nullptr) {
    WalkFurtherColumns(m_project, *subject.Further,
                       [&](const FurtherColumn& column, const Measured& value) { sink.Further(column, value); });
  }
  row += ',';
  AppendCsvField(row, m_reasons);
}

}  // namespace zova
