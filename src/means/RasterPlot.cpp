// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/RasterPlot.h"

#include <algorithm>
#include <map>
#include <set>

#include "master/columns/ColumnName.h"
#include "master/columns/FurtherFamilies.h"
#include "text/Counted.h"

namespace zova {

namespace {

constexpr std::size_t kNamedPositions = 5;  // in the legend

template <typename Column>
void AddTests(const Column& column, std::set<int>& tests) {
  const auto& [place, axis] = std::pair(column.Place, column.Family->Shape.Axis);
  if (axis == MeasureAxis::Test || axis == MeasureAxis::TestPair) tests.insert(place.Index);
  if (axis == MeasureAxis::TestPair || TraitsOf(axis).LiesWithinTests) tests.insert(place.Test);
}

std::set<int> TestsOf(const MasterTable& table, const MeansRequest& request, int testCount) {
  std::set<int> tests;
  for (const std::size_t measure : request.Measures) {
    const std::string& name = table.MeasureName(measure);
    if (const auto further = table.IsFurther(measure) ? FurtherColumnByName(name) : std::nullopt) {
      AddTests(*further, tests);
    } else if (const auto known = ColumnByName(name)) {
      AddTests(*known, tests);
    }
  }
  // A master may be older than the project's last change of its tests.
  std::erase_if(tests, [&](int test) { return test < 1 || test > testCount; });
  for (int test = 1; tests.empty() && test <= testCount; ++test) tests.insert(test);
  return tests;
}

// The rows of the table whose lists are known, cell by cell of the crossed variables.
using Cell = std::pair<std::string, std::vector<std::size_t>>;

std::vector<Cell> CellsOf(const MasterTable& table, const MeansRequest& request, const ProjectParameters& project) {
  const std::vector<OccurringLevels> variables = LevelsOf(table, request, &project);
  std::map<std::vector<std::size_t>, std::vector<std::size_t>> rows;
  for (std::size_t row = 0; row < table.RowCount(); ++row) {
    if (!table.Further.Lists.IsRead[row]) continue;
    std::vector<std::size_t> key;
    key.reserve(variables.size());
    for (const OccurringLevels& variable : variables) key.push_back(variable.OfRow[row]);
    rows[key].push_back(row);
  }
  std::vector<Cell> cells;
  cells.reserve(rows.size());
  for (auto& [key, ofCell] : rows) {
    std::string name;
    for (std::size_t variable = 0; variable < variables.size(); ++variable) {
      const std::string& level = variables[variable].Names[key[variable]];
      name += ", " + LevelName(table.Variables[request.Variables[variable]], level);
    }
    cells.emplace_back(std::move(name), std::move(ofCell));
  }
  return cells;
}

// Sorts the recalls by how they look.
class MarkSorter {
 public:
  explicit MarkSorter(RasterColours colours) : m_byPosition(colours == RasterColours::StudyPosition) {}

  void Add(const RecallMark& mark, RasterMarks::Place place) {
    const RasterLook look = LookOf(mark);
    const int shade = look == RasterLook::Graded ? mark.Position : look == RasterLook::Category ? mark.Category : 0;
    m_places[{look, shade}].push_back(place);
  }

  std::vector<RasterMarks> Sorted(int positions, const std::vector<std::string>& categories) && {
    std::vector<RasterMarks> marks;
    marks.reserve(m_places.size());
    for (auto& [key, places] : m_places) {
      const auto& [look, shade] = key;
      marks.push_back({NameOf(look, shade, categories), look, ShadeOf(look, shade, positions), std::move(places)});
    }
    NamePositions(marks);
    return marks;
  }

 private:
  [[nodiscard]] RasterLook LookOf(const RecallMark& mark) const {
    switch (mark.Kind) {
      case RecallKind::First: break;
      case RecallKind::Lure: return RasterLook::Lure;
      case RecallKind::Intrusion: return RasterLook::Intrusion;
      default: return RasterLook::Repeat;
    }
    if (m_byPosition) return mark.Position > 0 ? RasterLook::Graded : RasterLook::Plain;
    return mark.Category > 0 ? RasterLook::Category : RasterLook::Plain;
  }

  static double ShadeOf(RasterLook look, int shade, int positions) {
    if (look == RasterLook::Category) return shade - 1;
    return positions < 2 || look != RasterLook::Graded ? 0 : static_cast<double>(shade - 1) / (positions - 1);
  }

  static std::string NameOf(RasterLook look, int shade, const std::vector<std::string>& categories) {
    switch (look) {
      case RasterLook::Graded: return std::to_string(shade);
      case RasterLook::Category: return categories[static_cast<std::size_t>(shade) - 1];
      case RasterLook::Plain: return "Item";
      case RasterLook::Repeat: return "Repeat";
      case RasterLook::Lure: return "Lure";
      case RasterLook::Intrusion: return "Intrusion";
    }
    return "";
  }

  // The legend has some positions, from the first to the last.
  static void NamePositions(std::vector<RasterMarks>& marks) {
    const auto end = std::find_if(marks.begin(), marks.end(),
                                  [](const RasterMarks& known) { return known.Look != RasterLook::Graded; });
    const auto count = static_cast<std::size_t>(end - marks.begin());
    const std::size_t last = count == 0 ? 0 : count - 1;
    std::set<std::size_t> named;
    for (std::size_t k = 0; k < kNamedPositions; ++k) named.insert(k * last / (kNamedPositions - 1));
    for (std::size_t i = 0; i < count; ++i) {
      std::string& name = marks[i].Name;
      name = named.contains(i) ? "Study position " + name : "";
    }
  }

  bool m_byPosition;
  std::map<std::pair<RasterLook, int>, std::vector<RasterMarks::Place>> m_places;
};

void AddToNote(std::string sentence, PlotPicture& picture) {
  picture.Note += (picture.Note.empty() ? "" : "  ") + std::move(sentence);
}

// What was chosen, or the other where it is not known.
RasterColours ColoursFor(RasterColours chosen, const MasterTable& table, PlotPicture& picture) {
  const std::vector<RecallMark>& marks = table.Further.Lists.Marks;
  const auto any = [&](std::int16_t RecallMark::*known) {
    return std::any_of(marks.begin(), marks.end(), [&](const RecallMark& mark) { return mark.*known > 0; });
  };
  if (chosen == RasterColours::StudyPosition && !any(&RecallMark::Position)) {
    AddToNote("The order of study is not known.", picture);
    return RasterColours::Category;
  }
  if (chosen == RasterColours::Category && !any(&RecallMark::Category)) {
    AddToNote("The items have no categories.", picture);
    return RasterColours::StudyPosition;
  }
  return chosen;
}

}  // namespace

PlotPicture RasterOf(const MasterTable& table, const MeansRequest& request, RasterColours colours,
                     const ProjectParameters& project) {
  PlotPicture picture;
  picture.Kind = kRasterKind;
  picture.XLabel = "Output position";
  picture.YLabel = "Recall lists of the subjects";
  MarkSorter sorter(ColoursFor(colours, table, picture));
  std::size_t row = 0, left = 0, longest = 0;
  const std::vector<Cell> cells = CellsOf(table, request, project);
  for (const int test : TestsOf(table, request, project.TestCount)) {
    for (const auto& [name, rows] : cells) {
      Raster::Group group{"Test " + std::to_string(test) + name, {}};
      for (const std::size_t subject : rows) {
        if (row == kMostRasterRows) {
          ++left;
          continue;
        }
        const auto list = table.Further.Lists.ListOf(subject, test);
        for (std::size_t place = 0; place < list.size(); ++place) {
          sorter.Add(list[place], {static_cast<int>(place) + 1, row});
        }
        longest = std::max(longest, list.size());
        group.Rows.push_back(table.Subjects[subject]);
        ++row;
      }
      if (!group.Rows.empty()) picture.Lists.Groups.push_back(std::move(group));
    }
  }
  picture.Lists.Marks = std::move(sorter).Sorted(MakeStudyList(project).TrueCount, table.Further.Categories);
  for (std::size_t place = 1; place <= std::max<std::size_t>(longest, 1); ++place) {
    picture.Ticks.push_back(std::to_string(place));
  }
  if (left > 0) AddToNote(Counted(left, "more list is", "more lists are") + " not in the plot.", picture);
  return picture;
}

std::vector<std::string> CategoryNames(const WordList& words, const ProjectParameters& project) {
  std::vector<std::string> names;
  for (int category = 1; project.Categorized == 1 && category <= project.CategoryCount; ++category) {
    const std::string_view name = words.CategoryName(category, project);
    names.push_back(name.empty() ? "Category " + std::to_string(category) : std::string(name));
  }
  return names;
}

}  // namespace zova
