// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/Differences.h"

#include "support/Study.h"

namespace zova::testing {
namespace {

ProjectParameters Project() {
  ProjectParameters project =
      MakeProject({.Tests = 2, .Items = 30, .Minutes = 9, .MaxRating = 5, .Rated = "NY", .Variables = {"Age", "Sex"}});
  project.LevelCounts = {2, 2};
  return project;
}

std::string TextOf(const Comparison& comparison) {
  constexpr const char* kNames[] = {"level", "first", "second", "moved", "swapped", "item", "minute", "rating"};
  std::string text;
  for (const Difference& difference : comparison.Differences) {
    text += (text.empty() ? "" : ", ") + std::string(kNames[static_cast<std::size_t>(difference.Is)]);
    if (difference.Test == 0) {
      text += " " + std::to_string(difference.Line);
      continue;
    }
    const auto place = [&](std::size_t line) {
      const AlignedLine& at = comparison.Tests[static_cast<std::size_t>(difference.Test) - 1][line];
      return " " + std::to_string(at.First) + "/" + std::to_string(at.Second);
    };
    text += place(difference.Line);
    if (difference.OtherLine != 0) text += place(difference.OtherLine);
  }
  return text;
}

// Each planted error shows once, and nothing else does. Both ways round, since either entry may have it.
TEST(Differences, ShowEachTypingErrorOnce) {
  struct Case {
    const char* What;
    const char* Second;
    const char* Differences;  ///< positions in the first entry / in the second
  };
  const std::string first = "1/1 2/1 3/2 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3";
  const Case cases[] = {
      {"none", "1/1 2/1 3/2 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", ""},
      {"left out", "1/1 2/1 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "first 3/0"},
      {"left out at an end", "1/1 2/1 3/2 4/2 5/3 6/3 7/4 | 11/1/1 12/2/2 13/3/3", "first 8/0"},
      {"doubled", "1/1 2/1 3/2 3/2 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "second 0/4"},
      {"added", "9/1 1/1 2/1 3/2 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "second 0/1"},
      {"swapped lines", "1/1 2/1 3/2 5/3 4/2 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 4/4 5/5"},
      {"swapped items", "1/1 2/1 3/2 5/2 4/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 4/4 5/5"},
      {"exchanged afar", "1/1 6/1 3/2 4/2 5/3 2/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 2/2 6/6"},
      {"exchanged across a line", "1/1 2/1 5/2 4/2 3/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 3/3 5/5"},
      {"lines exchanged across a line", "1/1 2/1 5/3 4/2 3/2 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 3/3 5/5"},
      {"lines exchanged afar", "1/1 6/3 3/2 4/2 5/3 2/1 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "swapped 2/2 6/6"},
      {"moved", "1/1 3/2 4/2 5/3 6/3 2/1 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "moved 2/0 0/6"},
      {"digit error", "1/1 2/1 3/2 14/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "item 4/4"},
      {"digit error that doubles", "1/1 2/1 3/2 5/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "item 4/4"},
      {"wrong minute", "1/1 2/1 3/2 4/3 5/3 6/3 7/4 8/4 | 11/1/1 12/2/2 13/3/3", "minute 4/4"},
      {"wrong rating", "1/1 2/1 3/2 4/2 5/3 6/3 7/4 8/4 | 11/1/1 12/2/5 13/3/3", "rating 2/2"},
      {"several", "2/1 3/2 4/2 15/3 6/3 7/4 8/5 8/5 | 12/2/2 11/1/1 13/3/4",
       "first 1/0, item 5/4, minute 8/7, second 0/8, swapped 1/1 2/2, rating 3/3"},
      {"a test left out", "1/1 2/1 3/2 4/2 5/3 6/3 7/4 8/4 |", "first 1/0, first 2/0, first 3/0"},
  };
  const ProjectParameters project = Project();
  SubjectRecord one, other;
  one.Levels = {1, 2};
  other.Levels = {1, 2};
  one.Lists = MakeLists(project, first);
  for (const auto& [what, second, differences] : cases) {
    other.Lists = MakeLists(project, second);
    EXPECT_EQ(TextOf(Compare(one, other, project)), differences) << what;
    EXPECT_EQ(CountDifferencesOf(other, one, project), CountDifferencesOf(one, other, project)) << what;
  }
  other.Lists = one.Lists;
  other.Levels = {1, 1};
  EXPECT_EQ(TextOf(Compare(one, other, project)), "level 1");
}

}  // namespace
}  // namespace zova::testing
