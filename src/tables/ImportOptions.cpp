// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/ImportOptions.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zova {

namespace {

template <typename Value>
struct Named {
  std::string_view Name;
  Value What;
};

constexpr std::array<Named<char>, 6> kDelimiters = {
    {{"comma", ','}, {"tab", '\t'}, {"semicolon", ';'}, {",", ','}, {"\t", '\t'}, {";", ';'}}};
constexpr std::array<Named<TableEncoding>, 2> kEncodings = {
    {{"utf-8", TableEncoding::Utf8}, {"windows-1252", TableEncoding::Windows1252}}};
constexpr std::array<Named<TableShape>, 3> kShapes = {
    {{"long", TableShape::Long}, {"lists", TableShape::Lists}, {"wide", TableShape::Wide}}};
constexpr std::array<Named<TestsBy>, 2> kTests = {{{"labels", TestsBy::Labels}, {"rank", TestsBy::Rank}}};
constexpr std::array<Named<ItemsBy>, 2> kItems = {{{"pool", ItemsBy::Pool}, {"position", ItemsBy::Position}}};
constexpr std::array<Named<int>, 2> kFirstItems = {{{"0", 0}, {"1", 1}}};
constexpr std::array<Named<int>, 3> kDistances = {{{"0", 0}, {"1", 1}, {"2", 2}}};
constexpr std::array<Named<TimeUnit>, 4> kTimes = {{{"s", TimeUnit::Seconds},
                                                    {"ms", TimeUnit::Milliseconds},
                                                    {"min", TimeUnit::Minutes},
                                                    {"number", TimeUnit::MinuteNumbers}}};
constexpr std::array<Named<Leftovers>, 2> kOthers = {{{"intrusion", Leftovers::Intrusion}, {"skip", Leftovers::Skip}}};
constexpr std::array<Named<Repeats>, 2> kRepeats = {{{"first", Repeats::First}, {"keep", Repeats::Keep}}};
constexpr std::array<Named<TooLong>, 2> kTooLong = {{{"cut", TooLong::Cut}, {"leave-out", TooLong::LeaveOut}}};
constexpr std::array<Named<MissingTests>, 2> kMissing = {
    {{"empty", MissingTests::Empty}, {"leave-out", MissingTests::LeaveOut}}};
constexpr std::array<Named<ExistingSubjects>, 2> kExisting = {
    {{"skip", ExistingSubjects::Skip}, {"replace", ExistingSubjects::Replace}}};
constexpr std::array<Named<bool>, 2> kOrders = {{{"positions", false}, {"rows", true}}};
constexpr std::array<Named<bool>, 2> kAccents = {{{"any", false}, {"exact", true}}};
constexpr std::array<Named<bool>, 1> kIds = {{{"number", true}}};

template <typename Value, std::size_t Count>
std::string_view NameOf(const std::array<Named<Value>, Count>& names, const Value& value) {
  for (const auto& named : names) {
    if (named.What == value) return named.Name;
  }
  return {};
}

// Sets `target` to what `text` names; else says what it may be.
template <typename Target, typename Value, std::size_t Count>
std::string Choose(Target& target, const std::array<Named<Value>, Count>& names, std::string_view text) {
  std::string allowed;
  for (const auto& named : names) {
    if (named.Name == text) {
      target = named.What;
      return {};
    }
    if (named.Name.size() > 1 || named.Name.front() >= '0') allowed.append(allowed.empty() ? "" : ", ") += named.Name;
  }
  return "'" + std::string(text) + "' is none of " + allowed;
}

template <typename Pair>
std::string AddPair(std::vector<Pair>& pairs, std::string_view text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string_view::npos || sign == 0) return "'" + std::string(text) + "' has no '=' behind a name";
  pairs.push_back({std::string(text.substr(0, sign)), std::string(text.substr(sign + 1))});
  return {};
}

// Pairs separated by commas; a column's name that holds one is given by its number.
std::string AddColumns(std::vector<ColumnChoice>& choices, std::string_view list) {
  for (;;) {
    const std::size_t end = std::min(list.find(','), list.size());
    if (std::string fault = AddPair(choices, list.substr(0, end)); !fault.empty()) return fault;
    if (end == list.size()) return {};
    list.remove_prefix(end + 1);
  }
}

std::string SetSeparator(std::optional<std::string>& separator, std::string_view text) {
  if (text.empty()) return "a separator has at least one character";
  separator = text == "blank" ? " " : text == "tab" ? "\t" : text == "line" ? "\n" : std::string(text);
  return {};
}

// nullopt for an option that does not say how the table is read.
std::optional<std::string> SetTableOption(TableOptions& table, std::string_view name, std::string_view value) {
  if (name == "--encoding") return Choose(table.Encoding, kEncodings, value);
  if (name == "--delimiter") return Choose(table.Delimiter, kDelimiters, value);
  if (name == "--shape") return Choose(table.Shape, kShapes, value);
  if (name == "--columns") return AddColumns(table.Columns, value);
  if (name == "--separator") return SetSeparator(table.Separator, value);
  if (name == "--where") return AddPair(table.Where, value);
  if (name != "--no-header") return std::nullopt;
  table.HasHeader = false;
  return std::string();
}

}  // namespace

std::string SetImportOption(ImportOptions& options, std::string_view name, std::string_view value) {
  if (auto fault = SetTableOption(options.Table, name, value)) return *std::move(fault);
  if (name == "--tests") return Choose(options.Tests, kTests, value);
  if (name == "--items") return Choose(options.Items, kItems, value);
  if (name == "--first-item") return Choose(options.FirstItem, kFirstItems, value);
  if (name == "--order") return Choose(options.OrderByRows, kOrders, value);
  if (name == "--times") return Choose(options.Times, kTimes, value);
  if (name == "--accents") return Choose(options.ExactAccents, kAccents, value);
  if (name == "--others") return Choose(options.Others, kOthers, value);
  if (name == "--accept-distance") return Choose(options.AcceptDistance, kDistances, value);
  if (name == "--repeats") return Choose(options.Repeated, kRepeats, value);
  if (name == "--too-long") return Choose(options.Long, kTooLong, value);
  if (name == "--missing-tests") return Choose(options.Missing, kMissing, value);
  if (name == "--existing") return Choose(options.Existing, kExisting, value);
  if (name == "--level") return AddPair(options.Levels, value);
  if (name == "--ids") return Choose(options.NumberIds, kIds, value);
  if (name != "--accept-incomplete") return "there is no such option";
  options.AcceptIncomplete = true;
  return {};
}

std::string AnswerQuestion(ImportOptions& options, const ImportQuestion& question, std::string_view answer) {
  if (question.Variable.empty()) return SetImportOption(options, question.Option, answer);
  std::erase_if(options.Levels, [&](const LevelChoice& level) { return level.Variable == question.Variable; });
  options.Levels.push_back({question.Variable, std::string(answer)});
  return {};
}

std::string AnswerTo(const ImportQuestion& question, const ImportOptions& options) {
  const auto named = [](const auto& names, const auto& chosen) {
    return std::string(chosen ? NameOf(names, *chosen) : std::string_view());
  };
  const std::string_view name = question.Option;
  if (name == "--tests") return named(kTests, options.Tests);
  if (name == "--first-item") return named(kFirstItems, options.FirstItem);
  if (name == "--times") return named(kTimes, options.Times);
  if (name == "--others") return named(kOthers, options.Others);
  if (name == "--too-long") return named(kTooLong, options.Long);
  if (name == "--missing-tests") return named(kMissing, options.Missing);
  if (name == "--existing") return named(kExisting, options.Existing);
  const auto level = std::find_if(options.Levels.begin(), options.Levels.end(),
                                  [&](const LevelChoice& choice) { return choice.Variable == question.Variable; });
  return level == options.Levels.end() ? std::string() : level->Level;
}

std::string_view DelimiterName(char delimiter) noexcept { return NameOf(kDelimiters, delimiter); }

std::string_view EncodingName(TableEncoding encoding) noexcept { return NameOf(kEncodings, encoding); }

std::string_view ShapeName(TableShape shape) noexcept { return NameOf(kShapes, shape); }

}  // namespace zova
