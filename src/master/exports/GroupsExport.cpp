// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/GroupsExport.h"

#include <utility>

#include "master/columns/FurtherFamilies.h"
#include "text/Csv.h"
#include "text/NumberText.h"

namespace zova {

GroupsExport::GroupsExport(const FurtherData& data)
    : m_data(data), m_members(static_cast<std::size_t>(data.Study.TestCount)) {}

std::vector<std::string> GroupsExport::Names() const {
  std::vector<std::string> names;
  for (const FurtherFamily& family : AllFurtherFamilies()) {
    if ((family.Rules & FurtherFamily::OfGroups) == 0) continue;
    for (int test = 1; test <= m_data.Study.TestCount; ++test) {
      AppendColumnName(names.emplace_back(), FurtherColumn{&family, {test, test}});
    }
  }
  return names;
}

std::string GroupsExport::Header() const {
  CsvHeader header;
  header.Add("Group");
  header.Add("Size");
  for (const std::string& name : Names()) header.Add(name);
  return header.Line();
}

void GroupsExport::Read(const std::string& subjectId, const RecallLists& lists) {
  ReadSequences(lists, IntrusionsOf(m_data, subjectId), m_data.Study, m_read);
}

void GroupsExport::KeepRead() {
  for (std::size_t test = 0; test < m_members.size(); ++test) {
    if (m_members[test].size() == m_memberCount) m_members[test].emplace_back();
    std::swap(m_members[test][m_memberCount], m_read[test]);
  }
  ++m_memberCount;
}

std::vector<Measured> GroupsExport::Values() {
  std::vector<Measured> values;
  values.reserve(m_members.size());
  for (const std::vector<RecallSequence>& test : m_members) {
    values.push_back(SharedOrganization(std::span(test).first(m_memberCount), m_next));
  }
  return values;
}

void GroupsExport::Build(const std::string& label, std::string& row) {
  row.clear();
  AppendCsvField(row, label);
  row += ',';
  AppendNumber(row, static_cast<int>(m_memberCount));
  for (const Measured& shared : Values()) {
    row += ',';
    if (shared.Gap == FurtherGap::None) AppendPlainNumber(row, shared.Value);
  }
}

}  // namespace zova
