// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/PlotOptions.h"

#include <algorithm>
#include <cstring>

#include "means/MasterFields.h"
#include "means/MeansPlot.h"
#include "text/Counted.h"
#include "text/Csv.h"
#include "text/CsvReader.h"
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

template <typename Words, typename Choice>
bool SetByWord(const Words& words, std::string_view word, Choice& choice) {
  const auto found = std::find_if(std::begin(words), std::end(words), [&](const auto& w) { return w.second == word; });
  if (found == std::end(words)) return false;
  choice = found->first;
  return true;
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

bool SetAxis(std::string_view ends, PlotFrame& frame) {
  const std::size_t at = ends.find(kToMaximum);
  if (at == std::string_view::npos) return false;
  const auto axis = FrameOf(std::move(frame.Title), ends.substr(0, at), ends.substr(at + kToMaximum.size()));
  if (axis) frame = *axis;
  return axis.has_value();
}

bool SetOrder(std::string_view variable, std::string_view levels, std::vector<LevelOrder>& orders) {
  std::vector<std::string> names = ListedNames(levels);
  if (names.empty()) return false;
  std::erase_if(orders, [&](const LevelOrder& order) { return order.Variable == variable; });
  orders.push_back({std::string(variable), std::move(names)});
  return true;
}

}  // namespace

std::optional<PlotFrame> FrameOf(std::string title, std::string_view min, std::string_view max) {
  PlotFrame frame{std::move(title), {}, {}};
  for (const auto& [text, end] :
       {std::pair(WithoutOuterBlanks(min), &frame.Min), {WithoutOuterBlanks(max), &frame.Max}}) {
    if (text.empty()) continue;
    *end = MasterNumber(text);
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

std::vector<PlotOption> CommandOptions(const PlotOptions& options) {
  std::vector<PlotOption> all;
  const PlotOptions defaults;
  if (options.Bars != defaults.Bars) all.emplace_back("bars", WordOf(kBarWords, options.Bars));
  if (options.Colours != defaults.Colours) all.emplace_back("colours", WordOf(kColourWords, options.Colours));
  for (const auto& [kind, frame] : options.Frames) {
    if (!frame.Title.empty()) all.emplace_back("title", kind + "=" + frame.Title);
    if (!frame.Min && !frame.Max) continue;
    all.emplace_back("axis",
                     kind + "=" + PlainNumberText(frame.Min) + std::string(kToMaximum) + PlainNumberText(frame.Max));
  }
  for (const LevelOrder& order : options.Orders) {
    all.emplace_back("order", order.Variable + "=" + NamesAsList(order.Levels));
  }
  return all;
}

bool SetPlotOption(const PlotOption& option, PlotOptions& options) {
  const auto& [name, value] = option;
  if (name == "bars") return SetByWord(kBarWords, value, options.Bars);
  if (name == "colours") return SetByWord(kColourWords, value, options.Colours);
  const std::size_t at = value.find('=');
  if (at == std::string::npos || at == 0) return false;
  const std::string kind = value.substr(0, at);
  const std::string_view rest = std::string_view(value).substr(at + 1);
  if (name == "order") return SetOrder(kind, rest, options.Orders);
  PlotFrame& frame = options.Frames[kind];
  if (name == "axis") return SetAxis(rest, frame);
  frame.Title = rest;
  return name == "title";
}

}  // namespace zova
