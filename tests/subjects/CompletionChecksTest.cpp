// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/CompletionChecks.h"

#include <gtest/gtest.h>

#include <map>

#include "scoring/Examples.h"

using namespace zova;
using namespace zova::testing;

namespace {

// "test,position,column" and the message, the fixed ones by their first letters: S(pace), N(o minute), D(escending),
// B(lank test), E(arly last item).
std::string Shown(const CheckFinding& finding) {
  const std::string test = std::to_string(finding.Test);
  const std::map<std::string, std::string> letters = {
      {"There was a space detected in the data.  Please correct the data.", "S"},
      {"There was at least 1 blank space detected in the minute data for this test.  Please update.", "N"},
      {"Minute data must be in ascending order.", "D"},
      {"Test number " + test + " was blank.  Do you wish to edit the data?", "B"},
      {"The last item in Test " + test + " was during minute 1.  Do you wish to edit the data?", "E"}};
  const auto letter = letters.find(finding.Message);
  return test + "," + std::to_string(finding.Position) + "," + std::to_string(finding.Column) + " " +
         (letter == letters.end() ? finding.Message : letter->second);
}

// Only test 1 of two is rated; the kinds of data that are not kept have stale limits and flags.
ProjectParameters Project(bool minutes, bool ratings) {
  ProjectParameters project = MakeProject({.Tests = 2, .Items = 6, .Minutes = 9, .MaxRating = 7, .Rated = "YN"});
  project.MinutesRecorded = minutes, project.Rated = ratings;
  return project;
}

}  // namespace

TEST(CompletionChecks, FindTheFirstFaultInTheirOrder) {
  // What is kept and the lists; the recalls counted (-1 where the checks did not come) and what is found,
  // with a mark before a fault.
  const std::pair<std::string, std::string> cases[] = {
      {"- 1/9/0 2/1/0 | 3/1/1", "2 1"},      {"m 1/1 2/2 | 0/1", "2 0 2,1,1 B"},
      {"- 3 0 5 | 0 1", "2 -1 !1,2,1 S"},    {"- 1 2 | 0 0 0 0 0 6", "2 1 !2,5,1 S"},
      {"- -1 2 | 1", "1 1 1,1,1 B"},         {"r 1/0/7 2/0/0 | 1", "2 -1 !1,2,3 S"},
      {"r 1/0/0 0 3 | 1", "1 -1 !1,1,3 S"},  {"r 1/0/1 0 3/0/0 | 1", "2 -1 !1,2,1 S"},
      {"m 2/2 1/1 | 0 1", "2 1 !2,1,1 S"},   {"mr 1/1/1 2/1/1 3/2/1 | 1/9", "3 1"},
      {"m 1/2 2/1 | 0", "2 0 !1,2,2 D"},     {"m 1/2 2/3 | 1/1 2/2 3/0", "2 3 !2,3,2 N"},
      {"m 1/2 2/0 3/1 | 1", "3 1 !1,2,2 N"}, {"m 1/1 2/1 3/1 4/1 5/1 6/1 | 1/2", "6 1 1,6,2 E"},
      {"m 0 | 4/1", "0 1 1,1,1 B 2,1,2 E"},  {"r 0/0/4 0/0/5 | 0/0/1 0/0/3", "0 0 1,1,1 B 2,1,1 B"}};
  for (const auto& [given, expected] : cases) {
    const std::string kept = given.substr(0, given.find(' '));
    const ProjectParameters project = Project(kept[0] == 'm', kept.back() == 'r');
    RecallLists lists = MakeLists(project, given.substr(kept.size()));
    RecallLists after = lists;
    if (after.At(1, 2).Rating == 5) after.At(1, 2).Rating = 0;  // not the first line's, nor an unrated test's
    lists.RecallCount(1) = lists.RecallCount(2) = -1;
    const CheckResult result = CheckLists(lists, project);
    std::string found = std::to_string(lists.RecallCount(1)) + " " + std::to_string(lists.RecallCount(2));
    if (result.Fault) found += " !" + Shown(*result.Fault);
    for (const CheckFinding& finding : result.Warnings) found += " " + Shown(finding);
    EXPECT_EQ(found, expected) << given;
    for (int test : {1, 2}) after.RecallCount(test) = lists.RecallCount(test);
    EXPECT_EQ(lists, after) << given;
  }
}

TEST(CompletionChecks, RemoveOneDuplicateAtATime) {
  const ProjectParameters project = Project(true, true);
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"1/1/1 7/1/2 3/2/3 4/2/4 7/3/5 6/4/6 | 9 9", "1,5,1", "1/1/1 7/1/2 3/2/3 4/2/4 6/4/6 | 9 9"},
      {"1 2 3 | 5 6 6 5", "2,4,1", "1 2 3 | 5 6 6"},  // the smallest first position, not the first repetition
      {"4 4/1/1 4/2/2 | 1", "1,2,1", "4 4/2/2 | 1"},
      {"1 2 3 4 5 1/9/7 | 1", "1,6,1", "1 2 3 4 5 | 1"}};
  for (const auto& [text, place, after] : cases) {
    RecallLists lists = MakeLists(project, text);
    EXPECT_EQ(Shown(RemoveFirstDuplicate(lists).value()).substr(0, 5), place) << text;
    EXPECT_EQ(lists, MakeLists(project, after)) << text;
  }
  RecallLists lists = MakeLists(project, "1/1/1 0/1/1 0/1/1 2/1/1 | 2 3 4 5 3 1");
  EXPECT_EQ(RemoveFirstDuplicate(lists)->Message,
            "Duplicate entry found! Item # 3 was located in positions 2 and 5 of test 2.  Item in position 5 has been "
            "deleted.  Please edit the raw data.  You will be given a chance to review the data.");
  EXPECT_FALSE(RemoveFirstDuplicate(lists));
}
