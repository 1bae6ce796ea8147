// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/groups/GroupLabel.h"

#include <algorithm>

#include "text/TypedText.h"

namespace zova {

std::string GroupLabel(int number, const std::vector<std::string>& memberIds) {
  std::string label = "Group " + std::to_string(number) + " (";
  for (std::size_t member = 0; member < memberIds.size(); ++member) {
    if (member > 0) label += '+';
    label += memberIds[member];
  }
  return label + ")";
}

bool IsGroupLabel(std::string_view text) {
  return text.starts_with("Group ") && text.find('(') != std::string_view::npos && text.ends_with(')');
}

SubjectIndex::SubjectIndex(const std::vector<std::string>& subjectIds) {
  int number = 0;
  for (const std::string& subjectId : subjectIds) {
    const std::string id(WithoutOuterBlanks(subjectId));
    m_longest = std::max(m_longest, id.size());
    m_numbers.emplace(id, ++number);
  }
}

int SubjectIndex::NumberOf(std::string_view subjectId) const {
  const auto found = m_numbers.find(std::string(WithoutOuterBlanks(subjectId)));
  return found == m_numbers.end() ? 0 : found->second;
}

// Identifiers may contain plus signs, so an identifier matches only if the rest of the label can be split into
// identifiers, too.
std::vector<int> SubjectIndex::MembersOf(std::string_view label) const {
  const std::size_t open = label.find('(');
  if (!IsGroupLabel(label)) return {};
  const std::string_view ids = label.substr(open + 1, label.size() - open - 2);
  std::vector<int> firsts(ids.size() + 2, 0);  // per position: the member that starts there, if the rest can be split
  std::vector<std::size_t> nexts(ids.size() + 2);  // and where the next one starts
  for (std::size_t begin = ids.size(); begin-- > 0;) {
    if (begin > 0 && ids[begin - 1] != '+') continue;
    for (std::size_t end = begin; firsts[begin] == 0 && end < ids.size() && end - begin <= m_longest;) {
      end = std::min(ids.find('+', end + 1), ids.size());
      if (end < ids.size() && firsts[end + 1] == 0) continue;
      firsts[begin] = NumberOf(ids.substr(begin, end - begin));
      nexts[begin] = end + 1;
    }
  }
  std::vector<int> members;
  for (std::size_t place = 0; place < ids.size() && firsts[place] > 0; place = nexts[place]) {
    members.push_back(firsts[place]);
  }
  return members;
}

}  // namespace zova
