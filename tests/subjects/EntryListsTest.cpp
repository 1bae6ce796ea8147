// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/entry/EntryLists.h"

#include <gtest/gtest.h>

#include "scoring/Examples.h"
#include "subjects/entry/EntryHistory.h"

using namespace zova;
using namespace zova::testing;

namespace {

const std::string kItemRange = "The entered number was out of item range.";
const std::string kMinuteRange = "The entered number was out of minute range.";
const std::string kRatingRange = "The entered number was out of the rating range.";
const std::string kNoMinutes = "You cannot enter minutes for this project.";
const std::string kNoRatings = "The parameters do not allow ratings to be entered for this project.";
const std::string kNotOnThisTest = "You cannot enter ratings on this test.";

// Test 3's flag is one that only an older file has. Without minutes and ratings the limits and flags are stale.
ProjectParameters Project(bool full = true) {
  ProjectParameters project = MakeProject({.Tests = 3, .Items = 5, .Minutes = 9, .MaxRating = 7, .Rated = "YNy"});
  project.MinutesRecorded = project.Rated = full;
  return project;
}

RecallLists Lists(const std::string& test2) { return MakeLists(Project(), "1/3 2 3 4 5 | " + test2 + " | 2 2 2"); }

std::string Shown(const PastedBlock& block) {
  std::string text = block.Fault.empty() ? "" : std::to_string(block.FaultLine) + block.Fault;
  for (const auto& cells : block.Lines) {
    for (const auto& cell : cells) text += cell ? std::to_string(*cell) + " " : "- ";
    text += "| ";
  }
  return text + std::to_string(block.Columns);
}

}  // namespace

TEST(EntryLists, NamesWhatAnInsertionPushesOff) {
  const std::string kinds[] = {"rating",          "minute",          "minute and rating",      "item",
                               "item and rating", "item and minute", "item, minute and rating"};
  RecallLists lists = Lists("1/1/1 2 3 4/1/1");
  EXPECT_EQ(InsertionLossQuestion(lists, 2), "");
  for (int bits = 1; bits < 8; ++bits) {
    for (int column : {1, 2, 3}) SetCellValue(lists.At(2, 5), column, static_cast<std::int16_t>(bits & (8 >> column)));
    EXPECT_EQ(InsertionLossQuestion(lists, 2),
              "Doing this will delete " + kinds[bits - 1] +
                  " data from the bottom of the list.  Do you wish to continue anyway?");
  }
}

TEST(EntryLists, TakesAPasteWholeOrNamesItsFirstFault) {
  const std::tuple<std::string, int, int, int, std::string> cases[] = {
      {"", 1, 1, 1, "0"},
      {"1\t2\r\n3\t4\r\n", 1, 4, 2, "1 2 - | 3 4 - | 2"},
      {"1;2\r 3 ; 04\r", 1, 1, 1, "1 2 - | 3 4 - | 2"},
      {"\r\n1,,7\r\r,9\n", 1, 2, 1, "0 - - | 1 0 7 | 0 - - | 0 9 - | 3"},
      {"1\n2\n3\n4\n5\n", 1, 1, 1, "1 - - | 2 - - | 3 - - | 4 - - | 5 - - | 1"},
      {"1\n2\n3\n4\n5\n\n", 1, 1, 1, "1 - - | 2 - - | 3 - - | 4 - - | 5 - - | 1"},
      {"1\n2\n3\n4\n5\n\n6", 1, 1, 1, "6" + kItemRange + "0"},
      {"1\n1", 1, 5, 2, "2" + kMinuteRange + "0"},
      {"1\t9\n1\t10\n6", 1, 1, 1, "2" + kMinuteRange + "0"},
      {"1\t2\t3\t", 1, 1, 1, "1" + kRatingRange + "0"},
      {"1\t\n\n1\t3", 2, 1, 2, "3" + kNotOnThisTest + "0"}};
  for (const auto& [text, test, line, column, expected] : cases) {
    EXPECT_EQ(Shown(ParsePaste(text, Project(), test, line, column)), expected) << text;
  }
  for (const char* word : {"-1", "-0", "+1", "1.0", "1x", "1 2", "\"1\"", "65537", "4294967297", "1,5;1", "1;5\t1"}) {
    EXPECT_EQ(ParsePaste(word, Project(), 1, 1, 1).Fault, kItemRange) << word;
  }
  EXPECT_EQ(ParsePaste("1\t\t\n2\t0", Project(false), 1, 1, 1).Fault, kNoMinutes);
  EXPECT_EQ(ParsePaste("1\t\t1", Project(false), 1, 1, 1).Fault, kNoRatings);
}

TEST(EntryHistory, CoversEveryTestThatAChangeTouched) {
  const RecallLists before = Lists("5/1 4/2 3/3");
  RecallLists after = before;
  DeleteLines(after, 1, 1, 2);
  after.At(3, 5).Rating = 7;
  RecallLists lists = after;
  EntryHistory history;
  history.Note(before, after);
  EXPECT_EQ(history.Undo(lists).Test, 1);
  EXPECT_EQ(lists, before);
  history.Redo(lists);
  EXPECT_EQ(lists, after);
}
