// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "master/exports/FurtherData.h"

namespace zova {

/// What members of a nominal group share: a CSV (RFC 4180) with one line per group. Columns: "Group", its label,
/// "Size", its members, and the further measures of groups per test; empty where a member's list is.
class GroupsExport {
 public:
  /// `data` must outlive this.
  explicit GroupsExport(const FurtherData& data);

  /// "SharedOrganization(Test 1)".
  [[nodiscard]] std::vector<std::string> Names() const;
  /// Without its line end.
  [[nodiscard]] std::string Header() const;
  /// Begins the next group.
  void Reset() noexcept { m_memberCount = 0; }
  /// Reads a member's lists; KeepRead makes it one of the group. Throws ScoringError.
  void Read(const std::string& subjectId, const RecallLists& lists);
  void KeepRead();
  /// The group's measures, in the order of the header.
  [[nodiscard]] std::vector<Measured> Values();
  /// Replaces `row` by the group's line, without its line end.
  void Build(const std::string& label, std::string& row);

 private:
  const FurtherData& m_data;
  std::vector<RecallSequence> m_read;                  // per test
  std::vector<std::vector<RecallSequence>> m_members;  // per test; kept between groups so that a run allocates once
  std::size_t m_memberCount = 0;
  std::vector<std::int16_t> m_next;
};

}  // namespace zova
