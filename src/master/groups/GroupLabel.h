// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zova {

/// "Group 1 (4+17+9)".
std::string GroupLabel(int number, const std::vector<std::string>& memberIds);

/// True for a text of this form.
bool IsGroupLabel(std::string_view text);

/// Finds subjects and group members by the first column of a master. Subjects count from 1.
class SubjectIndex {
 public:
  /// Identifiers in the order of the listing; the first of equal ones counts.
  explicit SubjectIndex(const std::vector<std::string>& subjectIds);
  /// Ignores blanks around the identifier. 0 for an unknown subject.
  [[nodiscard]] int NumberOf(std::string_view subjectId) const;
  /// The members named by a group's label; empty if one is unknown.
  [[nodiscard]] std::vector<int> MembersOf(std::string_view label) const;

 private:
  std::unordered_map<std::string, int> m_numbers;
  std::size_t m_longest = 0;
};

}  // namespace zova
