// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/columns/MeasureSelection.h"

namespace zova {

namespace {

constexpr std::string_view kGeneral = "General Data";
constexpr std::string_view kCategory = "Category Data";
constexpr std::string_view kRating = "Rating Data";
constexpr std::string_view kFalse = "False Memory Data";
constexpr std::string_view kMinute = "Minute By Minute Data";

constexpr std::array<MeasureBox, kMeasureCount> kBoxes = {{
    {Measure::Basic, "chkBasic", "Net Recall, Gains, Losses", kGeneral},
    {Measure::Bi, "chkBi", "Bi-Directional ITR", kGeneral},
    {Measure::IP, "chkIP", "Item Pattern (e.g. NNCN)", kGeneral},
    {Measure::Cat, "chkCat", "ARC scores, Items Per Category, Categories Represented.", kCategory},
    {Measure::Rat, "chkRat", "Average Rating, Items Rated Above/Below/At Median, Gains Rated Above/Below/At Median.",
     kRating},
    {Measure::FBasic, "chkFBasic", "Net Recall, Gains, Losses", kFalse},
    {Measure::FPos, "chkFPos", "Associates Prior/Post Lure", kFalse},
    {Measure::FWhich, "chkFwhich", "Which Lures Recalled", kFalse},
    {Measure::FIP, "chkFIP", "Item Pattern (e.g. NNCN)", kFalse},
    {Measure::MinNet, "chkMinNet", "Net Recall", kMinute},
    {Measure::MinCat, "chkMinCat", "Categories Represented", kMinute},
    {Measure::MinCum, "chkMinCum", "Cumulative Recall", kMinute},
    {Measure::MinGains, "chkMinGains", "Items Gained", kMinute},
}};

bool HasDataFor(Measure measure, const ProjectParameters& project) {
  const bool severalTests = project.TestCount >= 2;
  const bool minutes = project.MinutesRecorded == 1;
  switch (measure) {
    case Measure::Basic: return true;
    case Measure::Bi:
    case Measure::IP: return severalTests;
    case Measure::Cat: return project.Categorized == 1;
    case Measure::Rat: return project.Rated == 1;
    case Measure::FBasic:
    case Measure::FPos:
    case Measure::FWhich: return IsFalseMemoryInForce(project);
    case Measure::FIP: return IsFalseMemoryInForce(project) && severalTests;
    case Measure::MinNet:
    case Measure::MinCat:
    case Measure::MinCum: return minutes;
    case Measure::MinGains: return minutes && severalTests;
  }
  return false;
}

}  // namespace

const std::array<MeasureBox, kMeasureCount>& AllMeasureBoxes() { return kBoxes; }

void MeasureSelection::SetDefaultMeasures(const ProjectParameters& project) {
  for (const MeasureBox& box : kBoxes) {
    m_enabled[Index(box.Which)] = HasDataFor(box.Which, project);
    m_checked[Index(box.Which)] = m_enabled[Index(box.Which)];
  }
}

std::optional<Measure> MeasureByName(std::string_view name) {
  for (const MeasureBox& box : kBoxes) {
    if (box.Name == name) return box.Which;
  }
  return std::nullopt;
}

}  // namespace zova
