// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/MeasureFamilies.h"

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
    {Measure::Cat, "chkCat", "arc", &kCategory, "ARC scores, Items Per Category, Categories Represented.", 'A',
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
    // Enabled without categories too, where it adds no column.
    {Measure::MinCat, "chkMinCat", "minute-categories", &kMinute, "Categories Represented", 'C', Needs::Minutes,
     "Adds how many categories had their first item of the test in each minute."},
    {Measure::MinCum, "chkMinCum", "cumulative", &kMinute, "Cumulative Recall", 'u', Needs::Minutes,
     "Adds the number of items recalled up to each minute, counted on across all tests."},
    {Measure::MinGains, "chkMinGains", "minute-gains", &kMinute, "Items Gained", 'G',
     Needs::Minutes | Needs::SeveralTests,
     "Adds the number of items gained in each minute of each test after the first."},
}};

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

std::optional<Measure> MeasureByName(std::string_view name) {
  for (const MeasureBox& box : kBoxes) {
    if (box.Name == name || box.Word == name) return box.Which;
  }
  return std::nullopt;
}

}  // namespace zova
