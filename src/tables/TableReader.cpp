// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/TableReader.h"

#include <algorithm>
#include <deque>
#include <functional>
#include <span>

#include "tables/TableSurvey.h"
#include "tables/TableValues.h"
#include "text/Encoding.h"
#include "text/TypedText.h"

namespace zova {

namespace {

// Rows become entries of their subject.
class EntryMaker {
 public:
  EntryMaker(const TableReader& reader, const TableSetup& setup, const TableSurvey& survey, std::size_t variableCount)
      : m_reader(reader), m_setup(setup), m_survey(survey), m_variableCount(variableCount) {}

  void Start(SubjectRows& rows, std::string_view subject) const {
    rows.Original = subject;
    rows.Line = m_reader.Line();
    rows.Texts.clear();
    rows.Entries.clear();
    rows.Levels.assign(m_variableCount, {});
  }

  void Add(SubjectRows& rows) {
    NoteLevels(rows);
    const RowKind kind = KindOfRow(m_reader.Text(ColumnRole::TrialType));
    if (kind == RowKind::Other) return;
    for (const ResponseColumn& column : m_setup.Layout.Responses) {
      TableEntry entry;
      entry.Line = m_reader.Line();
      entry.Column = static_cast<int>(column.Column);
      entry.Label = LabelOf(column.TestLabel.empty() ? m_reader.Text(ColumnRole::Test) : column.TestLabel);
      entry.IsStudy = kind == RowKind::Study;
      entry.IsOrdered = m_setup.OrderColumn == kNoColumn || m_reader.Text(m_setup.OrderColumn) != "none";
      entry.IsCell = column.IsCell;
      entry.Response = Keep(rows, m_reader.Text(entry.Column));
      if (m_setup.Layout.Shape == TableShape::Long) {
        entry.Item = Keep(rows, m_reader.Text(ColumnRole::Item));
        entry.Position = Keep(rows, m_reader.Text(ColumnRole::Position));
        entry.Minute = Keep(rows, m_reader.Text(ColumnRole::Minute));
        entry.Rating = Keep(rows, m_reader.Text(ColumnRole::Rating));
      }
      rows.Entries.push_back(entry);
    }
  }

 private:
  int LabelOf(std::string_view text) {
    if (m_label >= 0 && m_labelText == text) return m_label;
    const auto found = m_survey.LabelIndices.find(text);
    if (found == m_survey.LabelIndices.end()) {
      throw TableError(m_setup.Path, m_reader.Line(), "The table has changed while it was read");
    }
    m_labelText = text;
    m_label = static_cast<int>(found->second);
    return m_label;
  }

  static TextSpan Keep(SubjectRows& rows, std::string_view text) {
    const TextSpan span{static_cast<std::uint32_t>(rows.Texts.size()), static_cast<std::uint32_t>(text.size())};
    rows.Texts += text;
    return span;
  }

  void NoteLevels(SubjectRows& rows) const {
    for (std::size_t v = 0; v < m_variableCount; ++v) {
      const std::string_view text = m_reader.Text(m_setup.Columns.Variables[v]);
      LevelText& level = rows.Levels[v];
      if (text == level.Text || IsNothing(text)) continue;
      if (level.Line == 0) {
        level.Text = text;
        level.Line = m_reader.Line();
      } else if (level.ChangedLine == 0) {
        level.ChangedLine = m_reader.Line();
      }
    }
  }

  const TableReader& m_reader;
  const TableSetup& m_setup;
  const TableSurvey& m_survey;
  std::size_t m_variableCount;
  std::string m_labelText;
  int m_label = -1;
};

int FindOrderColumn(const TableSetup& setup) {
  const int column = ColumnNamed(setup.Format, "order");
  if (column == setup.Columns.Of(ColumnRole::Position)) return kNoColumn;
  const auto isOrigin = [&](const std::vector<std::string>& row) {
    const auto index = static_cast<std::size_t>(column);
    return index < row.size() && (row[index] == "none" || row[index] == "saved" || row[index] == "subject");
  };
  const auto& sample = setup.Format.Sample;
  return std::all_of(sample.begin(), sample.end(), isOrigin) ? column : kNoColumn;
}

std::uint64_t DigestOf(const SubjectRows& rows) {
  constexpr std::uint64_t kFactor = 0x9E3779B97F4A7C15U;
  std::uint64_t digest = std::hash<std::string>{}(rows.Texts);
  const auto mix = [&](std::uint64_t value) { digest = (digest ^ value) * kFactor; };
  for (const TableEntry& entry : rows.Entries) {
    mix((static_cast<std::uint64_t>(entry.Item.Begin) << 32U) | entry.Position.Begin);
    mix((static_cast<std::uint64_t>(entry.Minute.Begin) << 32U) | entry.Rating.Begin);
    mix((static_cast<std::uint64_t>(entry.Label) << 1U) | (entry.IsStudy ? 1U : 0U));
  }
  for (const LevelText& level : rows.Levels) mix(std::hash<std::string>{}(level.Text) + level.ChangedLine);
  return digest;
}

}  // namespace

RowKind KindOfRow(std::string_view trialType) {
  if (trialType.empty() || EqualsIgnoringCase(trialType, "recall")) return RowKind::Recall;
  return EqualsIgnoringCase(trialType, "study") ? RowKind::Study : RowKind::Other;
}

TableSetup SetUpTable(Disk& disk, const std::string& path, const TableOptions& options,
                      const ProjectParameters& project) {
  TableSetup setup;
  setup.Path = path;
  setup.Options = options;
  setup.Format = FindTableFormat(disk, path, options);
  setup.Columns = FindTableColumns(setup.Format, options.Columns, project);
  setup.Layout = FindTableLayout(setup.Format, setup.Columns, options);
  setup.OrderColumn = FindOrderColumn(setup);
  for (const RowFilter& filter : options.Where) {
    if (ColumnNamed(setup.Format, filter.Column) != kNoColumn) continue;
    setup.Columns.Faults.push_back({filter.Column, "There is no column '" + filter.Column + "' in the table"});
  }
  if (setup.Layout.Responses.empty()) {
    setup.Columns.Faults.push_back(
        {"", "No column of responses was found; name one by --columns word=NAME, or the shape by --shape"});
  }
  if (!setup.Columns.Has(ColumnRole::Subject)) {
    setup.Columns.Faults.push_back({"", "No column of subjects was found; name one by --columns subject=NAME"});
  }
  return setup;
}

Repeats KeptRepeats(const ImportOptions& options, const TableSetup& setup) noexcept {
  return options.Repeated.value_or(setup.OrderColumn == kNoColumn ? Repeats::First : Repeats::Keep);
}

bool HasRole(const TableSetup& setup, int column) {
  const auto& roles = setup.Columns.Roles;
  const auto& responses = setup.Layout.Responses;
  return std::find(roles.begin(), roles.end(), column) != roles.end() ||
         std::any_of(responses.begin(), responses.end(),
                     [&](const ResponseColumn& r) { return static_cast<int>(r.Column) == column; });
}

TableReader::TableReader(Disk& disk, const TableSetup& setup)
    : m_setup(setup), m_reader(OpenTable(disk, setup.Path, setup.Format)), m_passedOver(setup.Format.RowsAbove) {
  for (const RowFilter& filter : setup.Options.Where) {
    m_where.emplace_back(ColumnNamed(setup.Format, filter.Column), filter.Value);
  }
  std::stable_sort(m_where.begin(), m_where.end(),
                   [](const auto& left, const auto& right) { return left.first < right.first; });
}

// Several values of one column are alternatives.
bool TableReader::Passes() const noexcept {
  for (std::size_t i = 0; i < m_where.size();) {
    bool fits = false;
    const int column = m_where[i].first;
    for (; i < m_where.size() && m_where[i].first == column; ++i) fits = fits || Text(column) == m_where[i].second;
    if (!fits) return false;
  }
  return true;
}

bool TableReader::Next() {
  try {
    for (;;) {
      if (!m_reader.Next()) return false;
      if (m_passedOver > 0) {
        --m_passedOver;
        continue;
      }
      const auto fields = m_reader.Fields();
      if (!HasText(fields)) continue;
      m_fields.clear();
      for (const std::string_view field : fields) m_fields.push_back(WithoutOuterBlanks(field));
      const std::size_t count = m_setup.Format.Names.size();
      const bool hasMore = fields.size() > count && HasText(std::span(m_fields).subspan(count));
      const bool hasLess = fields.size() < count && m_setup.Layout.Shape == TableShape::Long;
      if (hasMore || hasLess) {
        throw CsvError("There are " + std::to_string(fields.size()) + " fields instead of " + std::to_string(count),
                       m_reader.Line());
      }
      if (Passes()) return true;
    }
  } catch (const CsvError& fault) {
    throw TableError(m_setup.Path, fault.Line(), fault.what());
  }
}

void ForEachSubject(Disk& disk, const TableSetup& setup, const TableSurvey& survey, std::size_t variableCount,
                    const std::function<bool(const SubjectRows&)>& use) {
  TableReader reader(disk, setup);
  EntryMaker maker(reader, setup, survey, variableCount);
  std::deque<SubjectRows> subjects;  // one, unless the table is not sorted
  TextMap<SubjectRows*> places;
  SubjectRows* rows = nullptr;
  const auto finish = [&](SubjectRows& done) {
    done.Digest = DigestOf(done);
    return use(done);
  };
  while (reader.Next()) {
    const std::string_view subject = reader.Text(ColumnRole::Subject);
    if (rows == nullptr || rows->Original != subject) {
      if (survey.IsSorted) {
        if (rows != nullptr && !finish(*rows)) return;
        rows = subjects.empty() ? &subjects.emplace_back() : rows;
        maker.Start(*rows, subject);
      } else if (const auto found = places.find(subject); found != places.end()) {
        rows = found->second;
      } else {
        rows = &subjects.emplace_back();
        maker.Start(*rows, subject);
        places.emplace(subject, rows);
      }
    }
    maker.Add(*rows);
  }
  for (SubjectRows& subject : subjects) {
    if (!finish(subject)) return;
  }
}

}  // namespace zova
