// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/FurtherFamilies.h"

#include <algorithm>

#include "master/columns/Publications.h"
#include "scoring/further/ScoreFurther.h"
#include "text/NumberedText.h"

namespace zova {

namespace {

constexpr MeasureShape kFirstToLast = {"(Test % to %)", MeasureAxis::TestPair, 2, false, true};
constexpr MeasureShape kFirstToLaterLast = {"(Test % to %)", MeasureAxis::TestPair, 3, false, true};
constexpr MeasureShape kAllTests = {"(Tests % to %)", MeasureAxis::TestPair, 2, false, true};
constexpr MeasureShape kLagOfTest = {"(Test % Lag %)", MeasureAxis::Lag};
constexpr MeasureShape kPositionOfTest = {"(Test % %)", MeasureAxis::Position};

template <Measured FurtherTest::*Field>
std::span<const Measured> OfTest(const FurtherScores& scores, ColumnPlace place) {
  return {&(scores.Tests[place.Index].*Field), 1};
}
template <Measured FurtherPair::*Field>
std::span<const Measured> OfPair(const FurtherScores& scores, ColumnPlace place) {
  return {&(scores.Pairs[place.Index].*Field), 1};
}
template <Measured FurtherScores::*Field>
std::span<const Measured> OfSubject(const FurtherScores& scores, ColumnPlace /*place*/) {
  return {&(scores.*Field), 1};
}
std::span<const Measured> LagsOf(const FurtherScores& scores, ColumnPlace place) {
  return scores.Tests[place.Test].LagCrp;
}
template <TestTable<Measured> FurtherScores::*Table>
std::span<const Measured> OfPositions(const FurtherScores& scores, ColumnPlace place) {
  return {(scores.*Table).Test(place.Test), static_cast<std::size_t>((scores.*Table).RowCount())};
}

constexpr FurtherFamily kFurtherFamilies[] = {
    {"Proportion", kTestShape, FurtherGroup::Amount, Needs::Nothing, &OfTest<&FurtherTest::Proportion>,
     "Proportion recalled", "share of items", "r / N: items recalled, each once, of the items studied.", ""},
    {"Repeats", kTestShape, FurtherGroup::Amount, Needs::Nothing, &OfTest<&FurtherTest::Repeats>, "Repeats", "entries",
     "Entries of studied items beyond an item's first.", ""},
    {"Intrusions", kTestShape, FurtherGroup::Amount, Needs::Nothing, &OfTest<&FurtherTest::Intrusions>, "Intrusions",
     "responses", "Responses that are no item of the list.", ""},
    {"Cumulative", kTestShape, FurtherGroup::Amount, Needs::Nothing, &OfTest<&FurtherTest::Cumulative>,
     "Cumulative recall over tests", "items", "Items recalled on at least one of the tests 1 to t.", kBecker},
    {"NetChange", kFirstToLast, FurtherGroup::Amount, Needs::SeveralTests, &OfSubject<&FurtherScores::NetChange>,
     "Change from the first test to the last", "items", "r on test T - r on test 1.", kBecker},
    {"Gains", kFirstToLaterLast, FurtherGroup::Amount, Needs::SeveralTests, &OfSubject<&FurtherScores::Gains>,
     "Gains between tests", "items", "Items recalled on test T and not on test 1.", kBecker},
    {"Losses", kFirstToLaterLast, FurtherGroup::Amount, Needs::SeveralTests, &OfSubject<&FurtherScores::Losses>,
     "Losses between tests", "items", "Items recalled on test 1 and not on test T.", kBecker},
    {"GainRate", kTestPairShape, FurtherGroup::Amount, Needs::SeveralTests, &OfPair<&FurtherPair::GainRate>,
     "Rate of gains", "share of items", "Gains / items not recalled on the test before.", ""},
    {"LossRate", kTestPairShape, FurtherGroup::Amount, Needs::SeveralTests, &OfPair<&FurtherPair::LossRate>,
     "Rate of losses", "share of items", "Losses / items recalled on the test before.", ""},
    {"RR", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::RepetitionRatio>,
     "Repetition ratio", "", "R / (r - 1).", kCohen, FurtherFamily::Breaks},
    {"MRR", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::ModifiedRatio>,
     "Modified repetition ratio", "", "R / (r - k).", kBower, FurtherFamily::Breaks},
    {"Deviation", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::Deviation>,
     "Deviation of repetitions from chance", "pairs", "R - E.", kBousfield, FurtherFamily::Breaks},
    {"Z", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::ZScore>, "Z of clustering", "",
     "(R - E) / sqrt V, with V = [S2 (S2 + r(r+1)) - 2 r S3 - r^3] / [r^2 (r-1)], S2 and S3 the sums of n_c squared "
     "and cubed.",
     kFrankel, FurtherFamily::Breaks},
    {"LBC", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::ListBased>,
     "List-based clustering", "pairs", "R - (r - 1)(m - 1) / (N - 1).", kStricker, FurtherFamily::Breaks},
    {"CategoryCRP", kTestShape, FurtherGroup::Clustering, Needs::Categories, &OfTest<&FurtherTest::CategoryCrp>,
     "Conditional probability of staying in the category", "",
     "Transitions within a category / transitions at which an unrecalled item of that category was left.", kPolyn,
     FurtherFamily::Transitions},
    {"ForwardItr", kBothTestsShape, FurtherGroup::Organization, Needs::SeveralTests, &OfPair<&FurtherPair::ForwardItr>,
     "Inter-test repetition in the same order", "pairs", "Ordered pairs repeated - c(c - 1) / (hq).", kBousfield,
     FurtherFamily::Breaks},
    {"PairsRepeated", kBothTestsShape, FurtherGroup::Organization, Needs::SeveralTests,
     &OfPair<&FurtherPair::PairsRepeated>, "Pairs repeated", "pairs",
     "O, pairs of neighbours repeated in either order.", kSternberg, FurtherFamily::Breaks},
    {"PairsExpected", kBothTestsShape, FurtherGroup::Organization, Needs::SeveralTests,
     &OfPair<&FurtherPair::PairsExpected>, "Pairs repeated by chance", "pairs",
     "2c(c - 1) / (hq); PairsRepeated - PairsExpected is the pair frequency.", kSternberg, FurtherFamily::Breaks},
    {"SubjectiveOrganization", kAllTests, FurtherGroup::Organization, Needs::SeveralTests,
     &OfSubject<&FurtherScores::SubjectiveOrganization>, "Subjective organization", "",
     "Sum of n_ij log n_ij / sum of n_i log n_i over the successive pairs of all tests; the list closes up over "
     "repeats, lures and intrusions.",
     kTulving},
    {"SharedOrganization", kTestShape, FurtherGroup::Organization, Needs::Nothing, nullptr, "Shared organization",
     "pairs", "Mean pair frequency over all pairs of a group's members.", kCongleton,
     FurtherFamily::OfGroups | FurtherFamily::Breaks},
    {"FirstPosition", kTestShape, FurtherGroup::Serial, Needs::Nothing, &OfTest<&FurtherTest::FirstPosition>,
     "Study position of the first recall", "", "Study position of the first item recalled.", kHogan,
     FurtherFamily::Serial},
    {"TemporalFactor", kTestShape, FurtherGroup::Serial, Needs::Nothing, &OfTest<&FurtherTest::TemporalFactor>,
     "Temporal factor", "",
     "Mean percentile rank of -|lag| of each transition among those to the n items still possible, ties averaged, "
     "(rank - 1) / (n - 1); .5 is chance.",
     kPolyn, FurtherFamily::Serial | FurtherFamily::Transitions},
    {"LagCrp", kLagOfTest, FurtherGroup::Serial, Needs::Nothing, &LagsOf, "Conditional response probability", "",
     "Transitions of lag l / times an unrecalled item stood at lag l.", kKahana,
     FurtherFamily::Serial | FurtherFamily::Transitions},
    {"Position", kPositionOfTest, FurtherGroup::Serial, Needs::Nothing, &OfPositions<&FurtherScores::Positions>,
     "Recall by serial position", "share of subjects", "1 if the item studied i-th was recalled, else 0.", "",
     FurtherFamily::Serial},
    {"FirstRecall", kPositionOfTest, FurtherGroup::Serial, Needs::Nothing, &OfPositions<&FurtherScores::FirstRecalls>,
     "Probability of first recall", "share of subjects",
     "1 if the item studied i-th was recalled first, else 0; not of an empty list.", kHogan, FurtherFamily::Serial},
    {"LureProportion", kTestShape, FurtherGroup::Lures, Needs::Lures, &OfTest<&FurtherTest::LureProportion>,
     "Proportion of lures recalled", "share of lures", "Lures recalled, each once, of all lures.", ""},
    {"LureOutput", kTestShape, FurtherGroup::Lures, Needs::Lures, &OfTest<&FurtherTest::LureOutput>,
     "Output position of lures", "",
     "Mean of (place - 1) / (length - 1) of the lures recalled, in the list of first entries without intrusions.", ""},
};

// All values of a family from one place on.
void HandAt(const FurtherFamily& family, ColumnPlace place, const FurtherScores& scores, const FurtherVisit& visit) {
  FurtherColumn column{&family, place};
  const bool isLag = family.Shape.Axis == MeasureAxis::Lag;
  std::size_t index = 0;
  for (const Measured& value : family.Values(scores, place)) {
    if (isLag) column.Place.Index = LagAt(index++);
    visit(column, value);
    if (!isLag) ++column.Place.Index;
  }
}

}  // namespace

std::string_view FurtherGroupText(FurtherGroup group) {
  switch (group) {
    case FurtherGroup::Amount: return "Amount and change";
    case FurtherGroup::Clustering: return "Clustering";
    case FurtherGroup::Organization: return "Organization";
    case FurtherGroup::Serial: return "Serial position";
    case FurtherGroup::Lures: return "Lures";
  }
  return "";
}

std::span<const FurtherFamily> AllFurtherFamilies() { return kFurtherFamilies; }

void AppendColumnName(std::string& out, const FurtherColumn& column) {
  out += column.Family->Stem;
  AppendNumbered(out, column.Family->Shape.Form, column.Place.Test, column.Place.Index);
}

std::optional<FurtherColumn> FurtherColumnByName(std::string_view name) {
  const std::size_t bracket = std::min(name.find('('), name.size());
  const auto families = AllFurtherFamilies();
  const auto family = std::find_if(families.begin(), families.end(),
                                   [stem = name.substr(0, bracket)](const auto& f) { return f.Stem == stem; });
  if (family == families.end()) return std::nullopt;
  std::string text(name.substr(bracket));
  const std::size_t minus = family->Shape.Axis == MeasureAxis::Lag ? text.find('-') : std::string::npos;
  if (minus != std::string::npos) text.erase(minus, 1);
  const auto numbers = NumbersIn(text, family->Shape.Form);
  if (!numbers) return std::nullopt;
  const auto [first, second] = *numbers;
  const int index = second > 0 ? second : first;
  return FurtherColumn{&*family, {first, minus != std::string::npos ? -index : index}};
}

std::string_view FurtherGapText(FurtherGap gap) {
  switch (gap) {
    case FurtherGap::None: return "";
    case FurtherGap::NotScored: return "not scored";
    case FurtherGap::NoIntrusionsFile: return "no file of intrusions";
    case FurtherGap::IntrusionsUnfit: return "the file of intrusions does not fit";
    case FurtherGap::NoStudyOrder: return "no study order";
    case FurtherGap::StudyOrdersUnfit: return "the file of study orders does not fit";
    case FurtherGap::NothingRecalled: return "nothing was recalled";
    case FurtherGap::FewerThanTwo: return "fewer than 2 recalls";
    case FurtherGap::NoRoom: return "every recall is of another category";
    case FurtherGap::NoVariance: return "every order of these recalls has the same repetitions";
    case FurtherGap::OneStudied: return "only one item was studied";
    case FurtherGap::NothingLeft: return "no transition at which an item of the category was left";
    case FurtherGap::NoTransition: return "no transition at which several items were left";
    case FurtherGap::NothingAtLag: return "no transition at which an item was left at this lag";
    case FurtherGap::EmptyList: return "no recall to compute it from";
    case FurtherGap::NothingTwice: return "no item was followed by another one on two tests";
    case FurtherGap::EverythingBefore: return "everything was recalled on the test before";
    case FurtherGap::NothingBefore: return "nothing was recalled on the test before";
    case FurtherGap::NoLure: return "no lure was recalled";
    case FurtherGap::LureAlone: return "nothing but the lure was recalled";
  }
  return "";
}

void WalkFurtherColumns(const ProjectParameters& project, const FurtherScores& scores, const FurtherVisit& visit) {
  const int tests = project.TestCount;
  for (const FurtherFamily& family : AllFurtherFamilies()) {
    if ((family.Rules & FurtherFamily::OfGroups) != 0 || !HasDataFor(family.Needs, project)) continue;
    const MeasureShape& shape = family.Shape;
    if (shape.IsFirstToLast) {
      if (tests >= shape.FirstTest) HandAt(family, {1, tests}, scores, visit);
      continue;
    }
    for (int test = shape.FirstTest; test <= tests; ++test) {
      const bool isPair = shape.Axis == MeasureAxis::TestPair;
      HandAt(family, {isPair ? test - 1 : test, TraitsOf(shape.Axis).LiesWithinTests ? 1 : test}, scores, visit);
    }
  }
}

std::vector<std::string> FurtherColumnNames(const ProjectParameters& project, FurtherColumns columns) {
  std::vector<std::string> names;
  if (columns == FurtherColumns::None) return names;
  FurtherScores empty;
  ResetFurther(MakeStudyList(project), columns, empty);
  WalkFurtherColumns(project, empty, [&](const FurtherColumn& column, const Measured&) {
    AppendColumnName(names.emplace_back(), column);
  });
  return names;
}

}  // namespace zova
