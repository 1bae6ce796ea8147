// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/MeasureFamilies.h"

#include "master/columns/Publications.h"

namespace zova {

namespace {

constexpr MeasureFrame kGeneral = {"fraGeneral", "General Data",
                                   "Measures that every project has data for; the last two need more than one test."};
constexpr MeasureFrame kCategory = {"fraCategory", "Category Data",
                                    "Measures for study lists that were made of categories."};
constexpr MeasureFrame kRating = {"fraRating", "Rating Data", "Measures for recalls that were entered with a rating."};
constexpr MeasureFrame kFalse = {"fraFalse", "False Memory Data",
                                 "Measures of the critical items that were never presented."};
constexpr MeasureFrame kMinute = {"fraMinute", "Minute By Minute Data",
                                  "Measures for recalls that were entered with their minute."};

constexpr std::array<MeasureBox, kMeasureCount> kBoxes = {{
    {Measure::Basic, "chkBasic", "recall", &kGeneral, "Net Recall, Gains, Losses", 'N', Needs::Nothing,
     "Adds the number of items recalled on each test, and those lost and gained from test to test."},
    {Measure::Bi, "chkBi", "itr", &kGeneral, "Bi-Directional ITR", 'B', Needs::SeveralTests,
     "Adds the bi-directional inter-test repetition of each pair of neighbouring tests."},
    {Measure::IP, "chkIP", "patterns", &kGeneral, "Item Pattern (e.g. NNCN)", 'I', Needs::SeveralTests,
     "Adds the number of items with each pattern of being recalled (C) or not (N) over all tests."},
    {Measure::Cat, "chkCat", "arc", &kCategory, "ARC scores, Items Per Category, Categories Represented.", 'y',
     Needs::Categories, "Adds ARC scores, the categories represented and the average of items per category."},
    {Measure::Rat, "chkRat", "ratings", &kRating,
     "Average Rating, Items Rated Above/Below/At Median, Gains Rated Above/Below/At Median.", 'v', Needs::Ratings,
     "Adds average ratings and the items rated above, below and at the middle of the scale."},
    {Measure::FBasic, "chkFBasic", "lures", &kFalse, "Net Recall, Gains, Losses", 'L', Needs::Lures,
     "Adds the number of lures recalled on each test, and those gained and lost from test to test."},
    {Measure::FPos, "chkFPos", "associates", &kFalse, "Associates Prior/Post Lure", 's', Needs::Lures,
     "Adds how many items of a lure's category were recalled before it, and how many after it."},
    {Measure::FWhich, "chkFwhich", "which-lures", &kFalse, "Which Lures Recalled", 'W', Needs::Lures,
     "Adds a column for each lure on each test: 1 if it was recalled, 0 if not."},
    {Measure::FIP, "chkFIP", "lure-patterns", &kFalse, "Item Pattern (e.g. NNCN)", 'm',
     Needs::Lures | Needs::SeveralTests,
     "Adds the number of lures with each pattern of being recalled (C) or not (N) over all tests."},
    {Measure::MinNet, "chkMinNet", "minutes", &kMinute, "Net Recall", 'R', Needs::Minutes,
     "Adds the number of items recalled in each minute of each test."},
    // Enabled also without categories, where it adds no column.
    {Measure::MinCat, "chkMinCat", "minute-categories", &kMinute, "Categories Represented", 'C', Needs::Minutes,
     "Adds how many categories had their first item of the test in each minute."},
    {Measure::MinCum, "chkMinCum", "cumulative", &kMinute, "Cumulative Recall", 'u', Needs::Minutes,
     "Adds the number of items recalled up to each minute, counted on across all tests."},
    {Measure::MinGains, "chkMinGains", "minute-gains", &kMinute, "Items Gained", 'G',
     Needs::Minutes | Needs::SeveralTests,
     "Adds the number of items gained in each minute of each test after the first."},
}};

constexpr AxisTraits kAxes[] = {
    {MeasureAxis::Test, "Test", "test", false, true},
    {MeasureAxis::TestPair, "Tests", "", false, false},
    {MeasureAxis::Minute, "Minute", "minute", true, true},
    {MeasureAxis::RunningMinute, "Minute over all tests", "minute", false, true},
    {MeasureAxis::Pattern, "Pattern of recall", "", false, false},
    {MeasureAxis::Lure, "Lure", "lure", true, false},
    {MeasureAxis::Lag, "Lag", "lag", true, true},
    {MeasureAxis::Position, "Serial position", "position", true, true},
};

constexpr MeasureShape kLaterTest = {"(Test %)", MeasureAxis::Test, 2};
constexpr MeasureShape kTestPairAndEnds = {"(Test % to %)", MeasureAxis::TestPair, 2, true};
constexpr MeasureShape kMinuteOfTest = {"(Test % Min %)", MeasureAxis::Minute};
constexpr MeasureShape kMinuteOfLaterTest = {"(Test % Min %)", MeasureAxis::Minute, 2};
constexpr MeasureShape kRunningMinute = {"(Min %)", MeasureAxis::RunningMinute, 0};
constexpr MeasureShape kLetters = {"", MeasureAxis::Pattern, 0};
constexpr MeasureShape kLureOfTest = {"(Test# % Lure# %)", MeasureAxis::Lure};

template <typename Value>
std::span<const Value> At(const PerTest<Value>& values, ColumnPlace place) {
  return {&values[place.Index], 1};
}
template <typename Value>
std::span<const Value> At(const TestTable<Value>& values, ColumnPlace place) {
  return {values.Test(place.Test), static_cast<std::size_t>(values.RowCount())};
}
template <typename Value>
std::span<const Value> At(const std::vector<Value>& values, ColumnPlace /*place*/) {
  return values;
}

template <auto Part, auto Scores>
auto ValuesAt(const ScoringArrays& scores, ColumnPlace place) {
  return At((scores.*Part).*Scores, place);
}

// For a family whose value is a field of a record per test.
template <auto Part, auto Records, auto Field>
auto FieldAt(const ScoringArrays& scores, ColumnPlace place) {
  const auto& value = ((scores.*Part).*Records)[place.Index].*Field;
  return std::span{&value, 1};
}

template <auto Part, Ratio RatingChange::*Kind>
std::span<const Ratio> ChangesAt(const ScoringArrays& scores, ColumnPlace place) {
  const ItemScores& items = scores.*Part;
  const bool areNeighbours = place.Test == place.Index - 1;
  const RatingChange& change = areNeighbours ? items.Changes[place.Index].Ratings : items.FirstToLast;
  return {&(change.*Kind), 1};
}

template <auto Scores>
constexpr auto* kTrue = &ValuesAt<&ScoringArrays::True, Scores>;
template <auto Scores>
constexpr auto* kLure = &ValuesAt<&ScoringArrays::Lures, Scores>;
template <auto Field>
constexpr auto* kTrueChange = &FieldAt<&ScoringArrays::True, &ItemScores::Changes, Field>;
template <auto Field>
constexpr auto* kLureChange = &FieldAt<&ScoringArrays::Lures, &ItemScores::Changes, Field>;
template <auto Field>
constexpr auto* kTrueRating = &FieldAt<&ScoringArrays::True, &ItemScores::Ratings, Field>;
template <auto Field>
constexpr auto* kLureRating = &FieldAt<&ScoringArrays::Lures, &ItemScores::Ratings, Field>;
template <auto Kind>
constexpr auto* kTrueRatingChange = &ChangesAt<&ScoringArrays::True, Kind>;
template <auto Kind>
constexpr auto* kLureRatingChange = &ChangesAt<&ScoringArrays::Lures, Kind>;
template <auto Field>
constexpr auto* kClustering = &FieldAt<&ScoringArrays::Categories, &CategoryScores::Tests, Field>;
template <auto Field>
constexpr auto* kItr = &FieldAt<&ScoringArrays::Itr, &ItrScores::Pairs, Field>;
template <auto Scores>
constexpr auto* kPattern = &ValuesAt<&ScoringArrays::Patterns, Scores>;
template <auto Field>
constexpr auto* kAssociates = &FieldAt<&ScoringArrays::Which, &LureScores::Tests, Field>;

// Kept: losses precede gains, but a lure's gains precede its losses; the lures' gains by rating follow their averages,
// those of true items precede everything categorical.
constexpr MeasureFamily kFamilies[] = {
    {"Net", kTestShape, Measure::Basic, ScoreFamily::Basic, kTrue<&ItemScores::Net>, "Net recall", "items",
     "Entries on the list of the test.", ""},
    {"Losses", kTestPairShape, Measure::Basic, ScoreFamily::Basic, kTrueChange<&TestChange::Losses>,
     "Losses between tests", "items", "Items recalled on the test before and not on this one.", ""},
    {"Gains", kTestPairShape, Measure::Basic, ScoreFamily::Basic, kTrueChange<&TestChange::Gains>,
     "Gains between tests", "items", "Items recalled on this test and not on the one before.", ""},
    {"RecallByMin", kMinuteOfTest, Measure::MinNet, ScoreFamily::Minutes, kTrue<&ItemScores::RecallByMin>,
     "Recall by minute", "items", "Entries of the test recalled in the minute.", ""},
    {"CumulativeRecall", kRunningMinute, Measure::MinCum, ScoreFamily::Minutes, kTrue<&ItemScores::CumulativeRecall>,
     "Cumulative recall", "items",
     "Items recalled up to the minute, counted on over the tests: the entries of test 1, the gains of test 2, and of "
     "each later test the items that were on neither test 1 nor test 2.",
     ""},
    {"GainsByMin", kMinuteOfLaterTest, Measure::MinGains, ScoreFamily::Minutes, kTrue<&ItemScores::GainsByMin>,
     "Gains by minute", "items", "Gains of the test recalled in the minute.", ""},
    {"GainsAboveMedian", kLaterTest, Measure::Rat, ScoreFamily::Ratings, kTrueChange<&TestChange::GainsAboveMid>,
     "Gains rated above the scale midpoint", "items", "Gains rated above (highest rating + 1) / 2.", ""},
    {"GainsBelowMedian", kLaterTest, Measure::Rat, ScoreFamily::Ratings, kTrueChange<&TestChange::GainsBelowMid>,
     "Gains rated below the scale midpoint", "items", "Gains rated below (highest rating + 1) / 2.", "", Needs::Nothing,
     MeasureFamily::BesideLast},
    {"GainsAtMedian", kLaterTest, Measure::Rat, ScoreFamily::Ratings, kTrueChange<&TestChange::GainsAtMid>,
     "Gains rated at the scale midpoint", "items", "Gains rated (highest rating + 1) / 2.", "", Needs::Nothing,
     MeasureFamily::BesideLast},
    {"ItemsWithPattern", kLetters, Measure::IP, ScoreFamily::Patterns, kPattern<&PatternCounts::ItemsWithPattern>,
     "Frequency of the recall pattern", "items",
     "Items of the list with this pattern of being recalled (C) or not (N) on the tests.", ""},
    {"ArcScore", kTestShape, Measure::Cat, ScoreFamily::Categories, kClustering<&TestClustering::ArcScore>,
     "Adjusted ratio of clustering (ARC)", "",
     "(R - E) / (Max - E): R neighbours of one category, E = sum of the squared entries of each category / entries - "
     "1, Max = entries - categories recalled; cut to three decimals. 1 is perfect clustering, 0 is chance.",
     kRoenker, Needs::Nothing, MeasureFamily::IndividualOnly},
    {"Bi-ITR", kBothTestsShape, Measure::Bi, ScoreFamily::Itr, kItr<&PairRepetition::BiItr>,
     "Bi-directional inter-test repetition", "pairs",
     "Neighbours on one list that are neighbours on the other one, in either order, - 2c(c - 1) / (hq), for lists of h "
     "and q entries and c = q - gains; cut to three decimals.",
     kBousfield, Needs::Nothing, MeasureFamily::IndividualOnly},
    {"#OfCategoriesUsed", kTestShape, Measure::Cat, ScoreFamily::Categories, kClustering<&TestClustering::CatsUsed>,
     "Category recall", "categories", "Categories of which an item was recalled.", ""},
    {"#OfCats", kMinuteOfTest, Measure::MinCat, ScoreFamily::Categories,
     &ValuesAt<&ScoringArrays::Categories, &CategoryScores::CatsByMin>, "Category recall by minute", "categories",
     "Categories whose first item of the test came in the minute.", "", Needs::Categories},
    {"AvgItemsPerCat", kTestShape, Measure::Cat, ScoreFamily::Categories, kClustering<&TestClustering::ItemsPerCat>,
     "Recall per category", "items", "Entries / categories of which an item was recalled; cut to two decimals.", ""},
    {"RatingAvg", kTestShape, Measure::Rat, ScoreFamily::Ratings, kTrueRating<&TestRatings::RatingAvg>,
     "Average rating", "rating points",
     "Sum of the ratings / entries, cut to two decimals; an entry without a rating counts as 0.", ""},
    {"RateAboveMedian", kTestShape, Measure::Rat, ScoreFamily::Ratings, kTrueRating<&TestRatings::RateAboveMid>,
     "Recall rated above the scale midpoint", "items", "Entries rated above (highest rating + 1) / 2.", ""},
    {"RateBelowMedian", kTestShape, Measure::Rat, ScoreFamily::Ratings, kTrueRating<&TestRatings::RateBelowMid>,
     "Recall rated below the scale midpoint", "items", "Entries rated below (highest rating + 1) / 2.", "",
     Needs::Nothing, MeasureFamily::BesideLast},
    {"RateAtMedian", kTestShape, Measure::Rat, ScoreFamily::Ratings, kTrueRating<&TestRatings::RateAtMid>,
     "Recall rated at the scale midpoint", "items", "Entries rated (highest rating + 1) / 2.", "", Needs::Nothing,
     MeasureFamily::BesideLast},
    {"Up", kTestPairAndEnds, Measure::Rat, ScoreFamily::Ratings, kTrueRatingChange<&RatingChange::Up>,
     "Ratings raised between tests", "share of items",
     "Of the items recalled on both tests, the share rated higher on the later one; cut to two decimals.", "",
     Needs::Nothing, MeasureFamily::IndividualOnly},
    {"Down", kTestPairAndEnds, Measure::Rat, ScoreFamily::Ratings, kTrueRatingChange<&RatingChange::Down>,
     "Ratings lowered between tests", "share of items",
     "Of the items recalled on both tests, the share rated lower on the later one; cut to two decimals.", "",
     Needs::Nothing, MeasureFamily::IndividualOnly | MeasureFamily::BesideLast},
    {"Same", kTestPairAndEnds, Measure::Rat, ScoreFamily::Ratings, kTrueRatingChange<&RatingChange::Same>,
     "Ratings kept between tests", "share of items",
     "Of the items recalled on both tests, the share rated the same; cut to two decimals.", "", Needs::Nothing,
     MeasureFamily::IndividualOnly | MeasureFamily::BesideLast},
    {"FalseNet", kTestShape, Measure::FBasic, ScoreFamily::Lures, kLure<&ItemScores::Net>, "False recall", "lures",
     "Entries of lures on the list of the test.", ""},
    {"LureGain", kTestPairShape, Measure::FBasic, ScoreFamily::Lures, kLureChange<&TestChange::Gains>,
     "Lures gained between tests", "lures", "Lures recalled on this test and not on the one before.", ""},
    {"LureLoss", kTestPairShape, Measure::FBasic, ScoreFamily::Lures, kLureChange<&TestChange::Losses>,
     "Lures lost between tests", "lures", "Lures recalled on the test before and not on this one.", ""},
    {"FalseByMin", kMinuteOfTest, Measure::MinNet, ScoreFamily::Lures, kLure<&ItemScores::RecallByMin>,
     "False recall by minute", "lures", "Entries of lures recalled in the minute.", "", Needs::Lures},
    {"FalseCumulative", kRunningMinute, Measure::MinCum, ScoreFamily::Lures, kLure<&ItemScores::CumulativeRecall>,
     "Cumulative false recall", "lures",
     "Lures recalled up to the minute, counted on over the tests: the entries of test 1, the gains of test 2, and of "
     "each later test the lures that were on neither test 1 nor test 2.",
     "", Needs::Lures},
    {"LureGainByMin", kMinuteOfLaterTest, Measure::MinGains, ScoreFamily::Lures, kLure<&ItemScores::GainsByMin>,
     "Lures gained by minute", "lures", "Lures gained on the test and recalled in the minute.", "", Needs::Lures},
    {"FalseRateAvg", kTestShape, Measure::Rat, ScoreFamily::Lures, kLureRating<&TestRatings::RatingAvg>,
     "Average rating of false recall", "rating points",
     "Sum of the ratings of lures / entries of lures, cut to two decimals; an entry without a rating counts as 0.", "",
     Needs::Lures},
    {"FalseAboveMid", kTestShape, Measure::Rat, ScoreFamily::Lures, kLureRating<&TestRatings::RateAboveMid>,
     "False recall rated above the scale midpoint", "lures", "Entries of lures rated above (highest rating + 1) / 2.",
     "", Needs::Lures},
    {"FalseBelowMid", kTestShape, Measure::Rat, ScoreFamily::Lures, kLureRating<&TestRatings::RateBelowMid>,
     "False recall rated below the scale midpoint", "lures", "Entries of lures rated below (highest rating + 1) / 2.",
     "", Needs::Lures, MeasureFamily::BesideLast},
    {"FalseAtMid", kTestShape, Measure::Rat, ScoreFamily::Lures, kLureRating<&TestRatings::RateAtMid>,
     "False recall rated at the scale midpoint", "lures", "Entries of lures rated (highest rating + 1) / 2.", "",
     Needs::Lures, MeasureFamily::BesideLast},
    {"FalseGainsAboveMid", kLaterTest, Measure::Rat, ScoreFamily::Lures, kLureChange<&TestChange::GainsAboveMid>,
     "Gained lures rated above the scale midpoint", "lures", "Gained lures rated above (highest rating + 1) / 2.", "",
     Needs::Lures},
    {"FalseGainsBelowMid", kLaterTest, Measure::Rat, ScoreFamily::Lures, kLureChange<&TestChange::GainsBelowMid>,
     "Gained lures rated below the scale midpoint", "lures", "Gained lures rated below (highest rating + 1) / 2.", "",
     Needs::Lures, MeasureFamily::BesideLast},
    {"FalseGainsAtMid", kLaterTest, Measure::Rat, ScoreFamily::Lures, kLureChange<&TestChange::GainsAtMid>,
     "Gained lures rated at the scale midpoint", "lures", "Gained lures rated (highest rating + 1) / 2.", "",
     Needs::Lures, MeasureFamily::BesideLast},
    {"FalseUp", kTestPairAndEnds, Measure::Rat, ScoreFamily::Lures, kLureRatingChange<&RatingChange::Up>,
     "Ratings of lures raised between tests", "share of lures",
     "Of the lures recalled on both tests, the share rated higher on the later one; cut to two decimals.", "",
     Needs::Lures, MeasureFamily::IndividualOnly},
    {"FalseDown", kTestPairAndEnds, Measure::Rat, ScoreFamily::Lures, kLureRatingChange<&RatingChange::Down>,
     "Ratings of lures lowered between tests", "share of lures",
     "Of the lures recalled on both tests, the share rated lower on the later one; cut to two decimals.", "",
     Needs::Lures, MeasureFamily::IndividualOnly | MeasureFamily::BesideLast},
    {"FalseSame", kTestPairAndEnds, Measure::Rat, ScoreFamily::Lures, kLureRatingChange<&RatingChange::Same>,
     "Ratings of lures kept between tests", "share of lures",
     "Of the lures recalled on both tests, the share rated the same; cut to two decimals.", "", Needs::Lures,
     MeasureFamily::IndividualOnly | MeasureFamily::BesideLast},
    {"Lure", kLureOfTest, Measure::FWhich, ScoreFamily::Lures,
     &ValuesAt<&ScoringArrays::Which, &LureScores::LureRecalled>, "Recall of the lure", "share of subjects",
     "1 if the lure was recalled, else 0.", ""},
    {"ItemsPreLure", kTestShape, Measure::FPos, ScoreFamily::Lures, kAssociates<&TestLures::ItemsPreLure>,
     "Associates recalled before the lure", "items",
     "Entries of a lure's category before its first entry, summed over the lures recalled.", "", Needs::Nothing,
     MeasureFamily::IndividualOnly},
    {"ItemsPostLure", kTestShape, Measure::FPos, ScoreFamily::Lures, kAssociates<&TestLures::ItemsPostLure>,
     "Associates recalled after the lure", "items",
     "Entries of a lure's category after its first entry, summed over the lures recalled.", "", Needs::Nothing,
     MeasureFamily::IndividualOnly | MeasureFamily::BesideLast},
    {"LuresWithPattern", kLetters, Measure::FIP, ScoreFamily::Patterns, kPattern<&PatternCounts::LuresWithPattern>,
     "Frequency of the recall pattern", "lures",
     "Lures with this pattern of being recalled (C) or not (N) on the tests.", ""},
};

}  // namespace

bool HasDataFor(unsigned needs, const ProjectParameters& project) {
  unsigned has = Needs::Nothing;
  if (project.TestCount >= 2) has |= Needs::SeveralTests;
  if (project.MinutesRecorded == 1) has |= Needs::Minutes;
  if (project.Rated == 1) has |= Needs::Ratings;
  if (project.Categorized == 1) has |= Needs::Categories;
  if (IsFalseMemoryInForce(project)) has |= Needs::Lures;
  return (needs & ~has) == 0;
}

const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes() { return kBoxes; }

unsigned NeedsOf(const MeasureFamily& family) {
  return kBoxes[static_cast<std::size_t>(family.Box)].Needs | family.MoreNeeds;
}

std::span<const MeasureFamily> AllMeasureFamilies() { return kFamilies; }

const AxisTraits& TraitsOf(MeasureAxis axis) { return kAxes[static_cast<std::size_t>(axis)]; }

std::optional<Measure> MeasureByName(std::string_view name) {
  for (const MeasureBox& box : kBoxes) {
    if (box.Name == name || box.Word == name) return box.Which;
  }
  return std::nullopt;
}

}  // namespace zova
