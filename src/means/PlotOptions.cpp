// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/PlotOptions.h"

#include <algorithm>
#include <cstring>

#include "master/columns/FurtherFamilies.h"
#include "master/groups/NominalGroups.h"
#include "means/MeansPlot.h"
#include "text/Cells.h"
#include "text/Counted.h"
#include "text/Csv.h"
#include "text/CsvReader.h"
#include "text/DecimalNumber.h"
#include "text/Encoding.h"
#include "text/NumberText.h"
#include "text/TypedText.h"

namespace zova {

namespace {

constexpr std::string_view kToMaximum = "..";

constexpr std::pair<PlotBars, std::string_view> kBarWords[] = {{PlotBars::Confidence, "ci"},
                                                               {PlotBars::StandardError, "se"},
                                                               {PlotBars::Within, "within"},
                                                               {PlotBars::None, "none"}};
constexpr std::pair<RasterColours, std::string_view> kColourWords[] = {{RasterColours::StudyPosition, "position"},
                                                                       {RasterColours::Category, "category"}};

std::string NoneOf(std::string_view text, const std::vector<std::string>& known) {
  return "'" + std::string(text) + "' is none of " + Joined(known, ", ");
}

template <typename Words, typename Choice>
std::string SetByWord(const Words& words, std::string_view word, Choice& choice) {
  std::vector<std::string> known;
  for (const auto& [meaning, text] : words) {
    if (text == word) {
      choice = meaning;
      return {};
    }
    known.emplace_back(text);  // NOLINT: a few
  }
  return NoneOf(word, known);
}

template <typename Words, typename Choice>
std::string WordOf(const Words& words, Choice choice) {
  const auto found = std::find_if(std::begin(words), std::end(words), [&](const auto& w) { return w.first == choice; });
  return std::string(found->second);
}

std::vector<std::string> ListedNames(std::string_view text) {
  CsvReader reader([&text](char* buffer, std::size_t size) {
    const std::size_t count = std::min(size, text.size());
    std::memcpy(buffer, text.data(), count);
    text.remove_prefix(count);
    return count;
  });
  try {
    if (!reader.Next()) return {};
  } catch (const CsvError&) {
    return {};
  }
  return {reader.Fields().begin(), reader.Fields().end()};
}

std::string NamesAsList(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!list.empty()) list += ',';
    AppendCsvField(list, name);
  }
  return list;
}

// The kinds of pictures that a report of the project may have.
std::vector<std::string> PlotKinds(const ProjectParameters& project) {
  std::vector<std::string> kinds;
  const auto add = [&](const auto& family, unsigned needs) {
    const bool isThere = HasDataFor(needs, project) && family.Shape.FirstTest <= project.TestCount;
    if (isThere && std::find(kinds.begin(), kinds.end(), family.Stem) == kinds.end()) kinds.emplace_back(family.Stem);
  };
  for (const MeasureFamily& family : AllMeasureFamilies()) add(family, NeedsOf(family));
  for (const FurtherFamily& family : AllFurtherFamilies()) {
    if ((family.Rules & FurtherFamily::OfGroups) == 0) add(family, family.Needs);
  }
  kinds.emplace_back(kRasterKind);
  return kinds;
}

std::string SetAxis(std::string_view ends, PlotFrame& frame) {
  const std::size_t at = ends.find(kToMaximum);
  const auto axis = at == std::string_view::npos
                        ? std::nullopt
                        : FrameOf(frame.Title, ends.substr(0, at), ends.substr(at + kToMaximum.size()));
  if (!axis) return "'" + std::string(ends) + "' is no axis MIN..MAX from one number to a larger one";
  frame = *axis;
  return {};
}

std::string SetFrame(const PlotOption& option, const ProjectParameters& project, PlotOptions& options) {
  const auto& [name, value] = option;
  const std::size_t at = value.find('=');
  if (at == std::string::npos) return "'" + value + "' has no '=' behind a measure";
  const std::string kind(WithoutOuterBlanks(std::string_view(value).substr(0, at)));
  const std::vector<std::string> kinds = PlotKinds(project);
  if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) return NoneOf(kind, kinds);
  const std::string rest = value.substr(at + 1);
  const auto known = options.Frames.find(kind);
  PlotFrame frame = known == options.Frames.end() ? PlotFrame() : known->second;
  if (name == "axis") {
    if (std::string fault = SetAxis(rest, frame); !fault.empty()) return fault;
  } else {
    frame.Title = rest;
  }
  options.Frames[kind] = std::move(frame);
  return {};
}

// The level of this name, exact or else without regard to case and outer blanks; null for none.
const std::string* FindLevel(const std::vector<std::string>& levels, std::string_view name) {
  auto found = std::find(levels.begin(), levels.end(), name);
  if (found == levels.end()) {
    found = std::find_if(levels.begin(), levels.end(), [&](const std::string& level) {
      return EqualsIgnoringCase(WithoutOuterBlanks(level), WithoutOuterBlanks(name));
    });
  }
  return found == levels.end() ? nullptr : &*found;
}

// The order of a variable's levels by their names; or why they have none.
std::string SetLevels(std::string_view list, const ProjectParameters& project, std::size_t variable,
                      std::vector<LevelOrder>& orders) {
  const std::string& name = project.VariableNames[variable];
  const std::vector<std::string> known = LevelsOf(project, variable);
  const std::vector<std::string> texts = ListedNames(list);
  LevelOrder order{name, {}};
  order.Levels.reserve(texts.size());
  for (const std::string& text : texts) {
    const std::string* const level = FindLevel(known, text);
    if (level == nullptr) {
      return "'" + text + "' is no level of " + name + "; its levels are " + Joined(known, ", ");
    }
    order.Levels.push_back(*level);
  }
  if (order.Levels.empty())
    return "'" + std::string(list) + "' is no list of levels; " + name + " has " + Joined(known, ", ");
  std::erase_if(orders, [&](const LevelOrder& other) { return other.Variable == name; });
  orders.push_back(std::move(order));
  return {};
}

// The names of variables and of levels may have '=' in them: the longest variable counts whose levels follow it.
std::string SetOrder(std::string_view value, const ProjectParameters& project, std::vector<LevelOrder>& orders) {
  std::string fault;
  for (std::size_t at = value.rfind('='); at != std::string_view::npos && at > 0; at = value.rfind('=', at - 1)) {
    std::string unknown;
    const auto found = FindVariables(project, {std::string(value.substr(0, at))}, unknown);
    if (found.empty()) continue;
    std::string other = SetLevels(value.substr(at + 1), project, found.front(), orders);
    if (other.empty()) return other;
    if (fault.empty()) fault = std::move(other);
  }
  const std::string_view first = value.substr(0, value.find('='));
  if (first.size() == value.size()) return "'" + std::string(value) + "' has no '=' behind a variable";
  return fault.empty() ? NoVariableText(project, first) : fault;
}

// A master may have levels that the project has not.
std::vector<std::string> KnownLevels(const LevelOrder& order, const ProjectParameters& project, std::size_t variable) {
  std::vector<std::string> levels = order.Levels;
  const std::vector<std::string> known = LevelsOf(project, variable);
  std::erase_if(levels, [&](const std::string& level) { return FindLevel(known, level) == nullptr; });
  return levels;
}

}  // namespace

std::optional<PlotFrame> FrameOf(std::string title, std::string_view min, std::string_view max) {
  PlotFrame frame{std::move(title), {}, {}};
  for (const auto& [text, end] :
       {std::pair(WithoutOuterBlanks(min), &frame.Min), {WithoutOuterBlanks(max), &frame.Max}}) {
    if (text.empty()) continue;
    *end = DecimalNumber(text, Exponent::None);
    if (!*end) return std::nullopt;
  }
  if (frame.Min && frame.Max && *frame.Min >= *frame.Max) return std::nullopt;
  return frame;
}

void ApplyFrame(const PlotOptions& options, PlotPicture& picture) {
  const auto frame = options.Frames.find(picture.Kind);
  if (frame == options.Frames.end()) return;
  picture.Frame = frame->second;
  const auto& [title, min, max] = picture.Frame;
  std::size_t beyond = 0;
  for (const PlotSeries& series : picture.Series) {
    for (const PlotPoint& point : series.Points) beyond += (min && point.Y < *min) || (max && point.Y > *max) ? 1 : 0;
  }
  if (beyond == 0) return;
  if (!picture.Note.empty()) picture.Note += "  ";
  picture.Note += Counted(beyond, "mean lies", "means lie") + " beyond the axis that you chose.";
}

std::vector<PlotOption> CommandOptions(const PlotOptions& options, const ProjectParameters& project) {
  std::vector<PlotOption> all;
  const std::vector<std::string> kinds = PlotKinds(project);
  const PlotOptions defaults;
  if (options.Bars != defaults.Bars) all.emplace_back("bars", WordOf(kBarWords, options.Bars));
  if (options.Colours != defaults.Colours) all.emplace_back("colours", WordOf(kColourWords, options.Colours));
  for (const auto& [kind, frame] : options.Frames) {
    if (std::find(kinds.begin(), kinds.end(), kind) == kinds.end()) continue;
    if (!frame.Title.empty()) all.emplace_back("title", kind + "=" + frame.Title);
    if (!frame.Min && !frame.Max) continue;
    all.emplace_back("axis",
                     kind + "=" + PlainNumberText(frame.Min) + std::string(kToMaximum) + PlainNumberText(frame.Max));
  }
  for (const LevelOrder& order : options.Orders) {
    const auto variable = FindVariable(project, order.Variable);
    const std::vector<std::string> levels =
        variable ? KnownLevels(order, project, *variable) : std::vector<std::string>();
    if (!levels.empty()) all.emplace_back("order", project.VariableNames[*variable] + "=" + NamesAsList(levels));
  }
  return all;
}

std::string SetPlotOption(const PlotOption& option, const ProjectParameters& project, PlotOptions& options) {
  const auto& [name, value] = option;
  if (name == "bars") return SetByWord(kBarWords, value, options.Bars);
  if (name == "colours") return SetByWord(kColourWords, value, options.Colours);
  return name == "order" ? SetOrder(value, project, options.Orders) : SetFrame(option, project, options);
}

}  // namespace zova
