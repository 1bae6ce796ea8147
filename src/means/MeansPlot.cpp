// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansPlot.h"

#include <algorithm>
#include <array>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "master/columns/ColumnName.h"
#include "master/columns/FurtherFamilies.h"
#include "text/Cells.h"
#include "text/Counted.h"

namespace zova {

namespace {

using Names = std::vector<std::string>;

// A measure to draw and its column in the means.
struct Drawn {
  std::string_view Family;
  std::string_view Label;
  std::string_view Unit;
  MeasureAxis Axis = MeasureAxis::Test;
  ColumnPlace Place;
  std::size_t Column = 0;
};

template <typename Family>
Drawn DrawnOf(const Family& family, ColumnPlace place, std::size_t column) {
  return {family.Stem, family.Label, family.Unit, family.Shape.Axis, place, column};
}

Drawn DrawnOf(std::string_view measure, std::size_t column) {
  const auto known = ColumnByName(measure);
  if (known) return DrawnOf(*known->Family, known->Place, column);
  const auto further = FurtherColumnByName(measure);
  if (further) return DrawnOf(*further->Family, further->Place, column);
  return {measure, measure, {}, MeasureAxis::Test, {}, column};
}

// The distinct measures of the first chosen one's family. Sets `others` to the number of measures of other families. An
// unknown name is a family of its own.
std::vector<Drawn> FirstFamily(const MeansTable& means, std::size_t& others) {
  std::vector<Drawn> family;
  std::unordered_set<std::string_view> seen;
  others = 0;
  for (std::size_t column = 0; column < means.Measures.size(); ++column) {
    const std::string& text = means.Measures[column];
    if (!seen.insert(text).second) continue;
    const Drawn drawn = DrawnOf(text, column);
    if (family.empty() || drawn.Family == family.front().Family) {
      family.push_back(drawn);
    } else {
      ++others;
    }
  }
  return family;
}

void AddToNote(std::size_t count, const char* one, const char* several, std::string& note) {
  if (count == 0) return;
  note.append(note.empty() ? "" : "  ").append(Counted(count, one, several));
}

std::string TestText(const ColumnPlace& place) { return "test " + std::to_string(place.Test); }

std::string IndexText(MeasureAxis axis, const ColumnPlace& place) {
  return std::string(TraitsOf(axis).Noun) + " " + std::to_string(place.Index);
}

// The place on the axis in words: "test 1", "test 2, minute 3", "NNC".
std::string PlaceText(MeasureAxis axis, const ColumnPlace& place) {
  switch (axis) {
    case MeasureAxis::TestPair: return "tests " + std::to_string(place.Test) + " and " + std::to_string(place.Index);
    case MeasureAxis::RunningMinute: return IndexText(axis, place) + " over all tests";
    case MeasureAxis::Pattern: return PatternText(place);
    default: return (TraitsOf(axis).LiesWithinTests ? TestText(place) + ", " : "") + IndexText(axis, place);
  }
}

std::string TickText(MeasureAxis axis, const ColumnPlace& place) {
  if (axis == MeasureAxis::TestPair) return std::to_string(place.Test) + "-" + std::to_string(place.Index);
  return axis == MeasureAxis::Pattern ? PatternText(place) : std::to_string(place.Index);
}

// "Net recall, test 1 (items)"; `place` is common to everything drawn.
std::string YLabelOf(const Drawn& drawn, const std::string& place) {
  std::string label(drawn.Label);
  if (drawn.Place.Index > 0 && !place.empty()) label += ", " + place;
  if (!drawn.Unit.empty()) label.append(" (").append(drawn.Unit).append(")");
  return label;
}

bool IsNumber(const std::string& text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// The levels of a cell from variable `first` on.
Names LevelsFrom(const MeansTable& means, const MeansCell& cell, std::size_t first) {
  Names names;
  for (std::size_t variable = first; variable < cell.Levels.size(); ++variable) {
    names.push_back(LevelName(means.Variables[variable], cell.Levels[variable]));
  }
  return names;
}

std::optional<double> BarOf(const MeansCell& cell, std::size_t measure, PlotBars bars) {
  switch (bars) {
    case PlotBars::Confidence: return cell.Measures[measure].HalfWidth;
    case PlotBars::StandardError: return cell.Measures[measure].Se();
    case PlotBars::Within: return cell.Within.empty() ? std::nullopt : cell.Within[measure].HalfWidth;
    case PlotBars::None: break;
  }
  return std::nullopt;
}

void AddPoint(PlotSeries& series, double x, const MeansCell& cell, std::size_t measure, PlotBars bars) {
  if (cell.Measures[measure].Mean) {
    series.Points.push_back({x, *cell.Measures[measure].Mean, BarOf(cell, measure, bars)});
  }
}

// All cells of the design, without the marginal ones and the total, which is last, unless it is the only one.
std::vector<const MeansCell*> DrawnCells(const MeansTable& means) {
  std::vector<const MeansCell*> cells;
  for (const MeansCell& cell : means.Cells) {
    if (!cell.IsMarginal) cells.push_back(&cell);
  }
  if (cells.size() > 1) cells.pop_back();
  return cells;
}

// The series of a plot along the first variable's levels: the combinations of the other variables' levels, in ascending
// order even if the first level lacks some.
class SeriesOfOthers {
 public:
  SeriesOfOthers(const MeansTable& means, const std::vector<const MeansCell*>& cells) {
    for (const Names& levels : means.LevelNames) {
      auto& ranks = m_ranks.emplace_back();
      for (const std::string& level : levels) ranks.emplace(level, ranks.size());
    }
    for (const MeansCell* cell : cells) m_places.emplace(KeyOf(*cell), 0);
    std::size_t next = 0;
    for (auto& [key, place] : m_places) place = next++;
  }

  [[nodiscard]] std::size_t Count() const { return m_places.size(); }
  [[nodiscard]] std::size_t At(const MeansCell& cell) const { return m_places.find(KeyOf(cell))->second; }

 private:
  using Key = std::vector<std::size_t>;

  [[nodiscard]] Key KeyOf(const MeansCell& cell) const {
    Key key;
    for (std::size_t variable = 1; variable < cell.Levels.size(); ++variable) {
      key.push_back(m_ranks[variable].find(cell.Levels[variable])->second);
    }
    return key;
  }

  std::vector<std::unordered_map<std::string_view, std::size_t>> m_ranks;  // per variable: the ranks of its levels
  std::map<Key, std::size_t> m_places;
};

// Draws one measure along the levels of the first variable. `empty` counts the cells without values.
PlotPicture ByLevels(const MeansTable& means, const Drawn& drawn, PlotBars bars, std::size_t& empty) {
  PlotPicture picture;
  picture.HasLines = false;
  picture.YLabel = YLabelOf(drawn, PlaceText(drawn.Axis, drawn.Place));
  if (!means.Variables.empty()) picture.XLabel = means.Variables.front();
  const std::vector<const MeansCell*> cells = DrawnCells(means);
  const SeriesOfOthers places(means, cells);
  picture.Series.resize(places.Count());
  for (const MeansCell* cell : cells) {
    const std::string level = cell->Levels.empty() ? "All" : cell->Levels.front();
    if (picture.Ticks.empty() || picture.Ticks.back() != level) picture.Ticks.push_back(level);
    PlotSeries& series = picture.Series[places.At(*cell)];
    series.Name = Joined(LevelsFrom(means, *cell, 1), ", ");
    if (!cell->Measures[drawn.Column].Mean) ++empty;
    AddPoint(series, static_cast<double>(picture.Ticks.size()), *cell, drawn.Column, bars);
  }
  return picture;
}

bool HaveSame(const std::vector<Drawn>& family, int ColumnPlace::*number) {
  return std::all_of(family.begin(), family.end(),
                     [&](const Drawn& drawn) { return drawn.Place.*number == family.front().Place.*number; });
}

// Sort key of a place on the axis: pairs of consecutive tests come before the pair of first and last test.
using Rank = std::array<int, 3>;

Rank RankOf(const Drawn& drawn) {
  const auto& [test, index] = drawn.Place;
  if (drawn.Axis != MeasureAxis::TestPair) return {0, 0, index};
  return {index > test + 1 ? 1 : 0, test, index};
}

// The axis of a family. Numbers are to scale; pairs, patterns and lures are evenly spaced.
class FamilyAxis {
 public:
  explicit FamilyAxis(const std::vector<Drawn>& family) : m_axis(family.front().Axis) {
    for (const Drawn& drawn : family) m_texts.emplace(RankOf(drawn), TickText(m_axis, drawn.Place));
    int next = 0;
    for (const auto& [place, text] : m_texts) {
      next = HasDistances() ? place[2] - m_texts.begin()->first[2] + 1 : next + 1;
      m_positions.emplace(place, next);
    }
  }

  [[nodiscard]] int At(const Drawn& drawn) const { return m_positions.find(RankOf(drawn))->second; }

  [[nodiscard]] Names Ticks() const {
    Names ticks;
    for (const auto& [place, text] : m_texts) {
      while (static_cast<int>(ticks.size()) + 1 < m_positions.find(place)->second) {  // a number without a point
        ticks.push_back(std::to_string(m_texts.begin()->first[2] + static_cast<int>(ticks.size())));
      }
      ticks.push_back(text);
    }
    return ticks;
  }

  // No item follows itself: the curves of the two directions are separate.
  [[nodiscard]] std::optional<double> Break() const {
    const int first = m_texts.begin()->first[2];
    return m_axis == MeasureAxis::Lag && first < 0 ? std::optional<double>(1 - first) : std::nullopt;
  }

  // Lines connect successive points. The pair of first and last test does not follow the pair before it.
  [[nodiscard]] bool HasLines() const {
    const bool anyFarPair = m_texts.rbegin()->first[0] == 1;
    return HasDistances() || (m_axis == MeasureAxis::TestPair && !anyFarPair);
  }

 private:
  [[nodiscard]] bool HasDistances() const { return TraitsOf(m_axis).HasDistances; }

  MeasureAxis m_axis;
  std::map<Rank, std::string> m_texts;
  std::map<Rank, int> m_positions;
};

// For an axis within tests, the place that all measures share: their only test, or their only minute or lure, in which
// case the axis becomes the tests. "" if both vary or the axis spans all tests.
std::string ExtractCommonPlace(std::vector<Drawn>& family) {
  const auto [axis, place] = std::pair(family.front().Axis, family.front().Place);
  if (!TraitsOf(axis).LiesWithinTests) return {};
  if (HaveSame(family, &ColumnPlace::Test)) return TestText(place);
  if (!HaveSame(family, &ColumnPlace::Index)) return {};
  std::string common = IndexText(axis, place);
  for (Drawn& drawn : family) {
    drawn.Axis = MeasureAxis::Test;
    drawn.Place.Index = drawn.Place.Test;
  }
  return common;
}

// One series per cell, and per test if the axis is within tests and there are several.
void AddSeries(const MeansTable& means, const MeansCell& cell, const std::vector<Drawn>& family, const FamilyAxis& axis,
               PlotBars bars, std::vector<PlotSeries>& all) {
  const bool perTest = TraitsOf(family.front().Axis).LiesWithinTests && !HaveSame(family, &ColumnPlace::Test);
  std::map<int, PlotSeries> series;
  for (const Drawn& drawn : family) {
    AddPoint(series[perTest ? drawn.Place.Test : 0], axis.At(drawn), cell, drawn.Column, bars);
  }
  for (auto& [test, points] : series) {
    Names names = LevelsFrom(means, cell, 0);
    if (perTest) names.push_back("Test " + std::to_string(test));
    points.Name = Joined(names, ", ");
    all.push_back(std::move(points));
  }
}

// Draws several measures of one family along its axis. `empty` counts the lines without values.
PlotPicture AlongAxis(const MeansTable& means, std::vector<Drawn> family, PlotBars bars, std::size_t& empty) {
  PlotPicture picture;
  picture.YLabel = YLabelOf(family.front(), ExtractCommonPlace(family));
  std::sort(family.begin(), family.end(), [](const Drawn& a, const Drawn& b) { return RankOf(a) < RankOf(b); });
  const FamilyAxis axis(family);
  picture.XLabel = TraitsOf(family.front().Axis).Label;
  picture.Ticks = axis.Ticks();
  picture.HasLines = axis.HasLines();
  picture.Break = axis.Break();
  for (const MeansCell* cell : DrawnCells(means)) AddSeries(means, *cell, family, axis, bars, picture.Series);
  for (const PlotSeries& series : picture.Series) empty += series.Points.empty() ? 1 : 0;
  return picture;
}

}  // namespace

std::string_view BarsText(PlotBars bars) {
  switch (bars) {
    case PlotBars::Confidence: return "Bars are 95 % confidence intervals.";
    case PlotBars::StandardError: return "Bars are standard errors.";
    case PlotBars::Within:
      return "Bars are 95 % confidence intervals within subjects (Cousineau-Morey) of the subjects with a value on all "
             "tests, drawn about the means shown.";
    case PlotBars::None: return "";
  }
  return "";
}

PlotPicture PictureOf(const MeansTable& means, PlotBars bars) {
  std::size_t others = 0;
  const std::vector<Drawn> family = FirstFamily(means, others);
  if (family.empty()) return {};
  std::size_t empty = 0;
  PlotPicture picture =
      family.size() == 1 ? ByLevels(means, family.front(), bars, empty) : AlongAxis(means, family, bars, empty);
  picture.Kind = family.front().Family;
  std::erase_if(picture.Series, [](const PlotSeries& series) { return series.Points.empty(); });
  AddToNote(others, "chosen measure of another kind is not in the plot.",
            "chosen measures of other kinds are not in the plot.", picture.Note);
  if (picture.Series.empty()) return picture;
  AddToNote(empty, "combination without values is not in the plot.", "combinations without values are not in the plot.",
            picture.Note);
  return picture;
}

std::string LevelName(const std::string& variable, const std::string& level) {
  return IsNumber(level) ? variable + " " + level : level;
}

std::size_t Raster::RowCount() const {
  std::size_t count = 0;
  for (const Group& group : Groups) count += group.Rows.size();
  return count;
}

bool HasIntervals(const PlotPicture& picture) {
  return std::any_of(picture.Series.begin(), picture.Series.end(), [](const PlotSeries& series) {
    return std::any_of(series.Points.begin(), series.Points.end(),
                       [](const PlotPoint& point) { return point.HalfWidth.has_value(); });
  });
}

}  // namespace zova
