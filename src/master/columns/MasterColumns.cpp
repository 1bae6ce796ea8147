// SPDX-License-Identifier: GPL-3.0-or-later
//
// The blocks of columns, in the order of the file. Kept as they are: losses stand before gains, but a lure's gains
// before its losses; the lures' gains by rating stand behind their averages, those of true items before everything
// categorical.

#include "master/columns/MasterColumns.h"

#include "text/NumberText.h"

namespace zova {

namespace {

// The names of the blocks that true items and lures have in common, and where a lure's differ.
struct ItemSetNames {
  std::string_view ByMin, Cumulative, GainsByMin;
  std::string_view Average, Above, Below, At;
  std::string_view GainsAbove, GainsBelow, GainsAt;
  std::string_view Up, Down, Same;
};

constexpr ItemSetNames kTrueNames = {"RecallByMin(Test ",
                                     "CumulativeRecall(Min ",
                                     "GainsByMin(Test ",
                                     "RatingAvg(Test ",
                                     "RateAboveMedian(Test ",
                                     "RateBelowMedian(Test ",
                                     "RateAtMedian(Test ",
                                     "GainsAboveMedian(Test ",
                                     "GainsBelowMedian(Test ",
                                     "GainsAtMedian(Test ",
                                     "Up(Test ",
                                     "Down(Test ",
                                     "Same(Test "};

constexpr ItemSetNames kLureNames = {
    "FalseByMin(Test ",         "FalseCumulative(Min ",  "LureGainByMin(Test ", "FalseRateAvg(Test ",
    "FalseAboveMid(Test ",      "FalseBelowMid(Test ",   "FalseAtMid(Test ",    "FalseGainsAboveMid(Test ",
    "FalseGainsBelowMid(Test ", "FalseGainsAtMid(Test ", "FalseUp(Test ",       "FalseDown(Test ",
    "FalseSame(Test "};

class Walk {
 public:
  Walk(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
       const ScoringArrays& scores, ColumnSink& sink)
      : m_project(project),
        m_selection(selection),
        m_individual(kind == MasterKind::Individual),
        m_scores(scores),
        m_sink(sink),
        m_tests(project.TestCount),
        m_minutes(project.MaxMinutes) {}

  void All() {
    const ItemScores& items = m_scores.True;
    if (Has(Measure::Basic)) NetLossesGains();
    if (m_project.MinutesRecorded == 1) MinuteBlocks(items, kTrueNames, ScoreFamily::Minutes);
    if (HasRatings()) GainsByRating(items, kTrueNames, ScoreFamily::Ratings);
    if (Has(Measure::IP)) Patterns(Measure::IP, "ItemsWithPattern(", m_scores.Patterns.ItemsWithPattern);
    if (m_individual) ClusteringBlocks();
    if (m_project.Categorized == 1) CategoryBlocks();
    if (HasRatings()) {
      RatingBlocks(items, kTrueNames, ScoreFamily::Ratings);
      if (m_individual) RatingChanges(items, kTrueNames, ScoreFamily::Ratings);
    }
    if (IsFalseMemoryInForce(m_project)) LureBlocks();
  }

 private:
  [[nodiscard]] bool Has(Measure measure) const { return m_selection.IsChecked(measure); }
  [[nodiscard]] bool HasRatings() const { return Has(Measure::Rat) && m_project.Rated == 1; }
  [[nodiscard]] bool IsRated(int test) const { return IsTestRated(m_project, test); }

  static ColumnName OfTest(std::string_view text, int test) { return {text, test, ")"}; }
  static ColumnName OfTests(std::string_view text, int earlier, int later) {
    return {text, earlier, " to ", later, ")"};
  }
  static ColumnName OfMinute(std::string_view text, int test, int minute) { return {text, test, " Min ", minute, ")"}; }

  void NetLossesGains() {
    const ColumnOrigin origin{Measure::Basic, ScoreFamily::Basic};
    const ItemScores& items = m_scores.True;
    for (int t = 1; t <= m_tests; ++t) m_sink.Count(origin, OfTest("Net(Test ", t), items.Net[t]);
    for (int t = 2; t <= m_tests; ++t) m_sink.Count(origin, OfTests("Losses(Test ", t - 1, t), items.Losses[t]);
    for (int t = 2; t <= m_tests; ++t) m_sink.Count(origin, OfTests("Gains(Test ", t - 1, t), items.Gains[t]);
  }

  void MinuteTable(const ColumnOrigin& origin, std::string_view name, int firstTest,
                   const TestTable<std::int16_t>& table) {
    for (int t = firstTest; t <= m_tests; ++t) {
      for (int m = 1; m <= m_minutes; ++m) m_sink.Count(origin, OfMinute(name, t, m), table.At(m, t));
    }
  }

  void MinuteBlocks(const ItemScores& items, const ItemSetNames& names, ScoreFamily family) {
    if (Has(Measure::MinNet)) MinuteTable({Measure::MinNet, family}, names.ByMin, 1, items.RecallByMin);
    if (Has(Measure::MinCum)) {
      int running = 0;
      for (const std::int16_t value : items.CumulativeRecall) {
        m_sink.Count({Measure::MinCum, family}, OfTest(names.Cumulative, ++running), value);
      }
    }
    if (Has(Measure::MinGains)) MinuteTable({Measure::MinGains, family}, names.GainsByMin, 2, items.GainsByMin);
  }

  void GainsByRating(const ItemScores& items, const ItemSetNames& names, ScoreFamily family) {
    const ColumnOrigin origin{Measure::Rat, family};
    for (int t = 2; t <= m_tests; ++t) {
      if (!IsRated(t)) continue;
      m_sink.Count(origin, OfTest(names.GainsAbove, t), items.GainsAboveMid[t]);
      m_sink.Count(origin, OfTest(names.GainsBelow, t), items.GainsBelowMid[t]);
      m_sink.Count(origin, OfTest(names.GainsAt, t), items.GainsAtMid[t]);
    }
  }

  void Patterns(Measure box, std::string_view name, const std::vector<std::int16_t>& counts) {
    std::string letters(static_cast<std::size_t>(m_tests), 'N');
    for (const std::int16_t count : counts) {
      m_sink.Count({box, ScoreFamily::Patterns}, {name, -1, letters, -1, ")"}, count);
      // on to the next number: the Cs at the end become Ns, and the N before them a C
      std::size_t digit = letters.size();
      while (digit > 0 && letters[digit - 1] == 'C') letters[--digit] = 'N';
      if (digit > 0) letters[digit - 1] = 'C';
    }
  }

  void ClusteringBlocks() {
    if (Has(Measure::Cat) && m_project.Categorized == 1) {
      for (int t = 1; t <= m_tests; ++t) {
        m_sink.Share({Measure::Cat, ScoreFamily::Categories}, OfTest("ArcScore(Test ", t),
                     m_scores.Categories.ArcScore[t]);
      }
    }
    if (!Has(Measure::Bi)) return;
    for (int t = 2; t <= m_tests; ++t) {
      m_sink.Share({Measure::Bi, ScoreFamily::Itr}, {"Bi-ITR(Tests ", t - 1, " and ", t, ")"}, m_scores.Itr.BiItr[t]);
    }
  }

  void CategoryBlocks() {
    const ColumnOrigin origin{Measure::Cat, ScoreFamily::Categories};
    const CategoryScores& categories = m_scores.Categories;
    if (Has(Measure::Cat)) {
      for (int t = 1; t <= m_tests; ++t) {
        m_sink.Count(origin, OfTest("#OfCategoriesUsed(Test ", t), categories.CatsUsed[t]);
      }
    }
    if (Has(Measure::MinCat)) {
      MinuteTable({Measure::MinCat, ScoreFamily::Categories}, "#OfCats(Test ", 1, categories.CatsByMin);
    }
    if (Has(Measure::Cat)) {
      for (int t = 1; t <= m_tests; ++t) {
        m_sink.Share(origin, OfTest("AvgItemsPerCat(Test ", t), categories.ItemsPerCat[t]);
      }
    }
  }

  void RatingBlocks(const ItemScores& items, const ItemSetNames& names, ScoreFamily family) {
    const ColumnOrigin origin{Measure::Rat, family};
    for (int t = 1; t <= m_tests; ++t) {
      if (IsRated(t)) m_sink.Share(origin, OfTest(names.Average, t), items.RatingAvg[t]);
    }
    for (int t = 1; t <= m_tests; ++t) {
      if (!IsRated(t)) continue;
      m_sink.Count(origin, OfTest(names.Above, t), items.RateAboveMid[t]);
      m_sink.Count(origin, OfTest(names.Below, t), items.RateBelowMid[t]);
      m_sink.Count(origin, OfTest(names.At, t), items.RateAtMid[t]);
    }
  }

  void RatingChanges(const ItemScores& items, const ItemSetNames& names, ScoreFamily family) {
    for (int t = 2; t <= m_tests; ++t) Change(items.Changes[t], names, family, t - 1, t);
    if (m_tests >= 3) Change(items.FirstToLast, names, family, 1, m_tests);
  }

  void Change(const RatingChange& change, const ItemSetNames& names, ScoreFamily family, int earlier, int later) {
    if (!IsRated(earlier) || !IsRated(later)) return;
    const ColumnOrigin origin{Measure::Rat, family};
    m_sink.Share(origin, OfTests(names.Up, earlier, later), change.Up);
    m_sink.Share(origin, OfTests(names.Down, earlier, later), change.Down);
    m_sink.Share(origin, OfTests(names.Same, earlier, later), change.Same);
  }

  void LureBlocks() {
    const ItemScores& lures = m_scores.Lures;
    constexpr ScoreFamily kFamily = ScoreFamily::Lures;
    if (Has(Measure::FBasic)) LureNetGainsLosses();
    if (m_project.MinutesRecorded == 1) MinuteBlocks(lures, kLureNames, kFamily);
    if (HasRatings()) {
      RatingBlocks(lures, kLureNames, kFamily);
      GainsByRating(lures, kLureNames, kFamily);
      if (m_individual) RatingChanges(lures, kLureNames, kFamily);
    }
    if (Has(Measure::FWhich)) WhichLures();
    if (Has(Measure::FPos) && m_individual) {
      const ColumnOrigin origin{Measure::FPos, kFamily};
      for (int t = 1; t <= m_tests; ++t) {
        m_sink.Count(origin, OfTest("ItemsPreLure(Test ", t), m_scores.Which.ItemsPreLure[t]);
        m_sink.Count(origin, OfTest("ItemsPostLure(Test ", t), m_scores.Which.ItemsPostLure[t]);
      }
    }
    if (Has(Measure::FIP)) Patterns(Measure::FIP, "LuresWithPattern(", m_scores.Patterns.LuresWithPattern);
  }

  void LureNetGainsLosses() {
    const ColumnOrigin origin{Measure::FBasic, ScoreFamily::Lures};
    const ItemScores& lures = m_scores.Lures;
    for (int t = 1; t <= m_tests; ++t) m_sink.Count(origin, OfTest("FalseNet(Test ", t), lures.Net[t]);
    for (int t = 2; t <= m_tests; ++t) m_sink.Count(origin, OfTests("LureGain(Test ", t - 1, t), lures.Gains[t]);
    for (int t = 2; t <= m_tests; ++t) m_sink.Count(origin, OfTests("LureLoss(Test ", t - 1, t), lures.Losses[t]);
  }

  void WhichLures() {
    const ColumnOrigin origin{Measure::FWhich, ScoreFamily::Lures};
    const TestTable<std::int16_t>& table = m_scores.Which.LureRecalled;
    for (int t = 1; t <= m_tests; ++t) {
      for (int lure = 1; lure <= table.RowCount(); ++lure) {
        m_sink.Count(origin, {"Lure(Test# ", t, " Lure# ", lure, ")"}, table.At(lure, t));
      }
    }
  }

  const ProjectParameters& m_project;
  const MeasureSelection& m_selection;
  bool m_individual;
  const ScoringArrays& m_scores;
  ColumnSink& m_sink;
  int m_tests;
  int m_minutes;
};

}  // namespace

void AppendColumnName(std::string& out, const ColumnName& name) {
  out += name.Text0;
  if (name.Number0 >= 0) AppendNumber(out, name.Number0);
  out += name.Text1;
  if (name.Number1 >= 0) AppendNumber(out, name.Number1);
  out += name.Text2;
}

void WalkMeasureColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                        const ScoringArrays& scores, ColumnSink& sink) {
  Walk(project, selection, kind, scores, sink).All();
}

}  // namespace zova
