// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportReview.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zova {
namespace {

class ImportReviewTest : public ::testing::Test {
 protected:
  ImportReviewTest() {
    m_context.Project.ItemCount = 3;
    m_context.Words.Words = {{"rose", ""}, {"nose", ""}, {"tulip", ""}};
    m_context.Decided.Add({"hm", {Verdict::Skip}, 2});
    m_plan.Findings.Responses = {
        {.Response = "tulipp", .Count = 2, .Near = {{3, "tulip", 1}}, .Subject = "A"},
        {.Response = "tose", .Count = 1, .Near = {{1, "rose", 1}, {2, "nose", 1}}, .Subject = "B"},
        {.Response = "hm", .Count = 9, .Subject = "C", .Decided = Decision{Verdict::Skip}},
        {.Response = "tullipp", .Count = 1, .Near = {{3, "tulip", 2}}, .Subject = "C"}};
    m_review.Open(m_plan, m_context);
  }

  // Items of all rows.
  [[nodiscard]] std::string Items() const {
    std::string items;
    for (int row = 0; row < m_review.RowCount(); ++row) items += m_review.Text(row, ImportReview::ItemColumn) + "; ";
    return items;
  }

  ImportContext m_context;
  ImportPlan m_plan;
  ImportReview m_review;
};

TEST_F(ImportReviewTest, ShowsWhatIsProposedAndWhatWasDecided) {
  std::vector<std::string> rows;
  for (int row = 0; row < m_review.RowCount(); ++row) {
    std::string& texts = rows.emplace_back();
    for (int column = 0; column < ImportReview::kColumns; ++column) texts += m_review.Text(row, column) + "/";
  }
  EXPECT_EQ(rows, (std::vector<std::string>{"tulipp/2/3?/tulip?/1/A/", "tose/1/1?, 2?/rose?, nose?/1/B/",
                                            "hm/9/skip///C/", "tullipp/1/3?/tulip?/2/C/"}));
}

TEST_F(ImportReviewTest, EachActIsOneStepThatCanBeUndone) {
  EXPECT_EQ(m_review.OpenCount(), 3U);
  EXPECT_EQ(m_review.NearCount(), 1U);  // not a tie
  m_review.TakeNear();
  EXPECT_EQ(Items(), "3; 1?, 2?; skip; 3?; ");
  EXPECT_FALSE(m_review.TakeProposals({1})) << "a tie proposes nothing";
  EXPECT_TRUE(m_review.TakeProposals({1, 3}));
  EXPECT_EQ(Items(), "3; 1?, 2?; skip; 3; ");
  EXPECT_EQ(m_review.NextOpen(3), 1);
  EXPECT_EQ(m_review.Assign({1}, "NOSE"), "");
  m_review.Decide({2, 3}, {Verdict::Intrusion});
  EXPECT_EQ(Items(), "3; 2; intrusion; intrusion; ");
  EXPECT_EQ(m_review.NextOpen(0), std::nullopt);
  for (const char* expected :
       {"3; 2; skip; 3; ", "3; 1?, 2?; skip; 3; ", "3; 1?, 2?; skip; 3?; ", "3?; 1?, 2?; skip; 3?; "}) {
    EXPECT_TRUE(m_review.HasChanges());
    m_review.Undo();
    EXPECT_EQ(Items(), expected);
  }
  EXPECT_FALSE(m_review.HasChanges());
  EXPECT_FALSE(m_review.CanUndo());
}

TEST_F(ImportReviewTest, AddsItsDecisionsToThoseOfTheProject) {
  EXPECT_EQ(m_review.Assign({0}, "4"), "'4' is no item from 1 to 3.");
  EXPECT_EQ(m_review.Assign({0}, "lily"), "'lily' is not on the word list.");
  EXPECT_EQ(m_review.Assign({0}, "?"), "'?' is not on the word list.");
  m_review.Assign({0}, "1");
  m_review.Decide({2}, {Verdict::Intrusion});
  EXPECT_EQ(FormatResponses(m_review.Decisions()), "response,item\r\nhm,intrusion\r\ntulipp,1\r\n");
  // The next page and back: the table is planned again, and rows stand elsewhere.
  m_context.Decided = m_review.Decisions();
  std::swap(m_plan.Findings.Responses[0], m_plan.Findings.Responses[2]);
  m_plan.Findings.Responses[0].Decided = Decision{Verdict::Intrusion};
  m_plan.Findings.Responses[2].Decided = Decision{Verdict::Item, 1};
  m_review.Open(m_plan, m_context);
  EXPECT_FALSE(m_review.HasChanges());
  m_review.Undo();
  m_review.Undo();
  EXPECT_EQ(Items(), "skip; 1?, 2?; 3?; 3?; ");
  EXPECT_EQ(FormatResponses(m_review.Decisions()), "response,item\r\nhm,skip\r\n");
  m_review.Clear();
  EXPECT_FALSE(m_review.CanUndo());
}

}  // namespace
}  // namespace zova
