// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/further/RecallMarks.h"

namespace zova {

std::span<const RecallMark> RecallMarks::ListOf(std::size_t subject, int test) const {
  const std::size_t list = subject * static_cast<std::size_t>(TestCount) + static_cast<std::size_t>(test) - 1;
  const std::size_t first = list == 0 ? 0 : Ends[list - 1];
  return std::span(Marks).subspan(first, Ends[list] - first);
}

void AppendMarks(std::span<const RecallSequence> tests, std::span<const StudyRanks* const> orders,
                 const StudyList& study, RecallMarks& marks) {
  marks.TestCount = study.TestCount;
  marks.IsRead.push_back(true);
  for (std::size_t test = 0; test < tests.size(); ++test) {
    const StudyRanks* ranks = orders[test];
    for (const RecallEntry& entry : tests[test].Entries) {
      const auto item = static_cast<std::size_t>(entry.Item);
      const bool isItem = entry.Kind != RecallKind::Intrusion;
      const std::int16_t position = isItem && ranks != nullptr ? (*ranks)[item] : std::int16_t{0};
      const std::int16_t category = isItem && study.HasCategories ? study.CategoryAt[item] : std::int16_t{0};
      marks.Marks.push_back({entry.Kind, position, category});
    }
    marks.Ends.push_back(marks.Marks.size());
  }
}

void AppendUnread(const StudyList& study, RecallMarks& marks) {
  marks.TestCount = study.TestCount;
  marks.IsRead.push_back(false);
  marks.Ends.insert(marks.Ends.end(), static_cast<std::size_t>(study.TestCount), marks.Marks.size());
}

}  // namespace zova
