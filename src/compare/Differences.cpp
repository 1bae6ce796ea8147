// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/Differences.h"

#include <algorithm>

#include "subjects/entry/EntryLists.h"

namespace zova {

namespace {

using Kind = Difference::Kind;

class TestComparer {
 public:
  TestComparer(const SubjectRecord& first, const SubjectRecord& second, const ProjectParameters& project, int test,
               const std::vector<AlignedLine>& lines, std::vector<Difference>& differences)
      : m_first(first.Lists),
        m_second(second.Lists),
        m_test(test),
        m_keepsMinutes(IsColumnUsed(project, test, kMinuteColumn)),
        m_keepsRatings(IsColumnUsed(project, test, kRatingColumn)),
        m_lines(lines),
        m_differences(differences) {}

  void Compare() {
    m_isPaired.assign(m_lines.size(), false);
    for (std::size_t line = 0; line < m_lines.size(); ++line) {
      if (!m_isPaired[line]) CompareLine(line);
    }
  }

 private:
  [[nodiscard]] const Recall& First(std::size_t line) const { return m_first.At(m_test, m_lines[line].First); }
  [[nodiscard]] const Recall& Second(std::size_t line) const { return m_second.At(m_test, m_lines[line].Second); }
  void Add(Kind kind, std::size_t line, std::size_t other = 0) { m_differences.push_back({kind, m_test, line, other}); }

  void CompareLine(std::size_t line) {
    const AlignedLine& aligned = m_lines[line];
    if (aligned.Is == AlignedLine::Kind::SwappedFirst) return CompareSwap(line, line + 1);
    if (aligned.First == 0 || aligned.Second == 0) return CompareGap(line);
    const Recall& first = First(line);
    const Recall& second = Second(line);
    if (first.Item != second.Item) return CompareItems(line);
    CompareFurther(line, first, second);
  }

  void CompareFurther(std::size_t line, const Recall& first, const Recall& second) {
    if (m_keepsMinutes && first.Minute != second.Minute) Add(Kind::Minute, line);
    if (m_keepsRatings && first.Rating != second.Rating) Add(Kind::Rating, line);
  }

  [[nodiscard]] int FurtherCost(const Recall& first, const Recall& second) const {
    return (m_keepsMinutes && first.Minute != second.Minute ? 1 : 0) +
           (m_keepsRatings && first.Rating != second.Rating ? 1 : 0);
  }

  // Minutes and ratings stayed on their lines, or went with the items.
  void CompareSwap(std::size_t line, std::size_t other) {
    Add(Kind::Swapped, line, other);
    m_isPaired[other] = true;
    const int stayed = FurtherCost(First(line), Second(line)) + FurtherCost(First(other), Second(other));
    const int went = FurtherCost(First(line), Second(other)) + FurtherCost(First(other), Second(line));
    const bool isWithItems = went < stayed;
    CompareFurther(line, First(line), Second(isWithItems ? other : line));
    CompareFurther(other, First(other), Second(isWithItems ? line : other));
  }

  // Two items that are exchanged over a distance are one error.
  void CompareItems(std::size_t line) {
    for (std::size_t other = line + 1; other < m_lines.size(); ++other) {
      const AlignedLine& aligned = m_lines[other];
      if (m_isPaired[other] || aligned.First == 0 || aligned.Second == 0) continue;
      if (First(other).Item != Second(line).Item || Second(other).Item != First(line).Item) continue;
      return CompareSwap(line, other);
    }
    Add(Kind::Item, line);
    CompareFurther(line, First(line), Second(line));
  }

  // An item that stands alone in both entries was moved.
  void CompareGap(std::size_t line) {
    const bool isFirst = m_lines[line].First != 0;
    const Recall& entry = isFirst ? First(line) : Second(line);
    for (std::size_t other = line + 1; other < m_lines.size(); ++other) {
      const AlignedLine& aligned = m_lines[other];
      const bool isOpposite = isFirst ? aligned.First == 0 : aligned.Second == 0;
      if (m_isPaired[other] || !isOpposite) continue;
      const Recall& moved = isFirst ? Second(other) : First(other);
      if (moved.Item != entry.Item) continue;
      m_isPaired[other] = true;
      Add(Kind::Moved, line, other);
      return isFirst ? CompareFurther(line, entry, moved) : CompareFurther(line, moved, entry);
    }
    Add(isFirst ? Kind::OnlyFirst : Kind::OnlySecond, line);
  }

  const RecallLists& m_first;
  const RecallLists& m_second;
  int m_test;
  bool m_keepsMinutes;
  bool m_keepsRatings;
  const std::vector<AlignedLine>& m_lines;
  std::vector<Difference>& m_differences;
  std::vector<bool> m_isPaired;  // part of an earlier difference of two lines
};

}  // namespace

Comparison Compare(const SubjectRecord& first, const SubjectRecord& second, const ProjectParameters& project) {
  Comparison comparison;
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    if (first.Levels[v] != second.Levels[v]) comparison.Differences.push_back({Kind::Level, 0, v, 0});
  }
  const int tests = std::min(first.Lists.TestCount(), second.Lists.TestCount());
  comparison.Tests.reserve(static_cast<std::size_t>(tests));
  for (int test = 1; test <= tests; ++test) {
    comparison.Tests.push_back(AlignTest(first.Lists, second.Lists, test));
    TestComparer(first, second, project, test, comparison.Tests.back(), comparison.Differences).Compare();
  }
  return comparison;
}

int CountDifferencesOf(const SubjectRecord& first, const SubjectRecord& second, const ProjectParameters& project) {
  if (first.Levels == second.Levels && first.Lists == second.Lists) return 0;
  return static_cast<int>(Compare(first, second, project).Differences.size());
}

}  // namespace zova
