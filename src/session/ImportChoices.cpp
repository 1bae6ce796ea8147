// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ImportChoices.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "project/ProjectLayout.h"

namespace zova {

namespace {

std::string Found(std::string_view what) { return "Found out: " + std::string(what); }

template <typename Value, std::size_t Count>
int IndexOf(const std::array<Value, Count>& values, const std::optional<Value>& value) {
  if (!value) return 0;
  const auto found = std::find(values.begin(), values.end(), *value);
  return static_cast<int>(found - values.begin()) + 1;
}

// The first answer is that it is found out.
template <typename Value, std::size_t Count>
std::optional<Value> ValueAt(const std::array<Value, Count>& values, int answer) {
  if (answer < 1 || static_cast<std::size_t>(answer) > Count) return std::nullopt;
  return values[static_cast<std::size_t>(answer) - 1];
}

constexpr std::array kEncodings = {TableEncoding::Utf8, TableEncoding::Windows1252};
constexpr std::array kDelimiters = {',', '\t', ';'};
constexpr std::array kTimes = {TimeUnit::MinuteNumbers, TimeUnit::Seconds, TimeUnit::Milliseconds, TimeUnit::Minutes};
constexpr std::array kShapes = {TableShape::Long, TableShape::Lists, TableShape::Wide};
const std::array<std::string, 6>& Separators() {
  static const std::array<std::string, 6> kSeparators = {",", ";", "|", "/", " ", "\n"};
  return kSeparators;
}

std::string SeparatorText(const std::string& separator) {
  if (separator == " ") return "blank";
  if (separator == "\n") return "line end";
  return separator == "\t" ? "tab" : "'" + separator + "'";
}

std::string ShapeText(TableShape shape) {
  switch (shape) {
    case TableShape::Long: return "a row per recall";
    case TableShape::Lists: return "a row per subject and test";
    case TableShape::Wide: return "a row per subject";
  }
  return {};
}

bool HasCells(const TableLayout& layout) {
  return std::any_of(layout.Responses.begin(), layout.Responses.end(),
                     [](const ResponseColumn& column) { return column.IsCell; });
}

// A yes/no choice of the plan.
struct PlanSwitch {
  const char* Name;
  const char* Text;
  std::array<const char*, 2> Answers;
  bool (*Get)(const ImportDraft& draft);
  void (*Set)(ImportOptions& options, bool second);
};

constexpr std::string_view kItems = "--items";
constexpr std::string_view kIds = "--ids";

constexpr std::array<PlanSwitch, 6> kSwitches = {{
    {kItems.data(),
     "Items are",
     {"the numbers of the word list", "positions in the study list"},
     [](const ImportDraft& d) { return d.Options.Items == ItemsBy::Position; },
     [](ImportOptions& o, bool second) { o.Items = second ? ItemsBy::Position : ItemsBy::Pool; }},
    {"--repeats",
     "Repeated recalls",
     {"First one only", "Keep all"},
     [](const ImportDraft& d) { return KeptRepeats(d.Options, d.Setup) == Repeats::Keep; },
     [](ImportOptions& o, bool second) { o.Repeated = second ? Repeats::Keep : Repeats::First; }},
    {"--accents",
     "Accents",
     {"May be missing", "Have to be right"},
     [](const ImportDraft& d) { return d.Options.ExactAccents; },
     [](ImportOptions& o, bool second) { o.ExactAccents = second; }},
    {"--order",
     "Order of recall",
     {"By the position, if there is one", "That of the rows"},
     [](const ImportDraft& d) { return d.Options.OrderByRows; },
     [](ImportOptions& o, bool second) { o.OrderByRows = second; }},
    {kIds.data(),
     "Identifiers",
     {"Those of the table", "Number the subjects"},
     [](const ImportDraft& d) { return d.Options.NumberIds; },
     [](ImportOptions& o, bool second) { o.NumberIds = second; }},
    {"--accept-incomplete",
     "Subjects that fail a check",
     {"Leave them out", "Save them as unfinished"},
     [](const ImportDraft& d) { return d.Options.AcceptIncomplete; },
     [](ImportOptions& o, bool second) { o.AcceptIncomplete = second; }},
}};

struct AnswerName {
  const char* Option;
  const char* Answer;
  const char* Text;
};

constexpr std::array<AnswerName, 18> kAnswers = {{
    {"--tests", "labels", "By their labels"},
    {"--tests", "rank", "Each subject's own, in order"},
    {"--first-item", "0", "The first item is 0"},
    {"--first-item", "1", "The first item is 1"},
    {"--times", "s", "Seconds"},
    {"--times", "ms", "Milliseconds"},
    {"--times", "min", "Minutes"},
    {"--times", "number", "Numbers of minutes"},
    {"--others", "intrusion", "Intrusions"},
    {"--others", "skip", "Leave them out"},
    {"--too-long", "cut", "Cut them"},
    {"--too-long", "leave-out", "Leave the subjects out"},
    {"--missing-tests", "empty", "Count as empty"},
    {"--missing-tests", "leave-out", "Leave the subjects out"},
    {"--existing", "skip", "Keep those in the project"},
    {"--existing", "replace", "Replace them"},
    {"--order", "rows", "Take the order of the rows"},
    {"--ids", "number", "Number all subjects"},
}};

// The longer ones first.
constexpr std::array<std::pair<std::string_view, std::string_view>, 10> kControls = {{
    {"name one by --columns word=NAME, or the shape by --shape",
     "highlight one and choose 'Word' under 'Used as', or choose another shape"},
    {"name one by --columns subject=NAME", "highlight one and choose 'Subject' under 'Used as'"},
    {"one of them, or --words", "one of them, or a word list (Open Words)"},
    {"no word list; --items position needs none",
     "no word list: 'Word List' in the menu Data makes one; 'Items are positions in the study list' needs none"},
    {"--items position", "'Items are positions in the study list'"},
    {"--order rows", "'Order of recall: That of the rows'"},
    {"--ids number", "'Identifiers: Number the subjects'"},
    {"--tests rank", "'Each subject's own, in order'"},
    {"a part by --where", "a part by 'Only rows with'"},
    {"say so by --times", "choose so under 'Minutes are'"},
}};

constexpr const char* kNoUse = "(none)";

std::string ShownRole(ColumnRole role) {
  std::string name(RoleName(role));
  name.front() = static_cast<char>(name.front() - 'a' + 'A');
  return role == ColumnRole::TrialType ? "Trial type" : name;
}

}  // namespace

std::vector<ImportChoice> TableChoices(const ImportDraft& draft) {
  const TableOptions& options = draft.Options.Table;
  const TableFormat& format = draft.Setup.Format;
  const TableLayout& layout = draft.Setup.Layout;
  const auto foundDelimiter = std::string(DelimiterName(format.Delimiter));
  std::vector<ImportChoice> choices = {
      {"--delimiter",
       "Columns are separated by",
       {options.Delimiter ? "Find out" : Found(foundDelimiter), "comma", "tab", "semicolon"},
       IndexOf(kDelimiters, options.Delimiter)},
      {"--encoding",
       "Encoding",
       {options.Encoding ? "Find out" : Found(EncodingName(format.Encoding)), "utf-8", "windows-1252"},
       IndexOf(kEncodings, options.Encoding)},
      {"--no-header", "The first row", {"Names the columns", "Is data"}, options.HasHeader ? 0 : 1},
      {"--shape",
       "Shape",
       {options.Shape ? "Find out" : Found(ShapeText(layout.Shape)), ShapeText(TableShape::Long),
        ShapeText(TableShape::Lists), ShapeText(TableShape::Wide)},
       IndexOf(kShapes, options.Shape)}};
  if (!HasCells(layout)) return choices;
  ImportChoice separator{"--separator", "Responses in a cell are separated by", {}, 0};
  separator.Answers.push_back(options.Separator ? "Find out" : Found(SeparatorText(layout.Separator)));
  for (const std::string& text : Separators()) separator.Answers.push_back(SeparatorText(text));
  separator.Chosen = IndexOf(Separators(), options.Separator);
  choices.push_back(std::move(separator));
  return choices;
}

void ChooseForTable(TableOptions& options, const std::string& name, int answer) {
  if (name == "--delimiter") options.Delimiter = ValueAt(kDelimiters, answer);
  if (name == "--encoding") options.Encoding = ValueAt(kEncodings, answer);
  if (name == "--no-header") options.HasHeader = answer == 0;
  if (name == "--shape") options.Shape = ValueAt(kShapes, answer);
  if (name == "--separator") options.Separator = ValueAt(Separators(), answer);
}

std::vector<ImportChoice> PlanChoices(const ImportDraft& draft, bool isNew) {
  std::vector<ImportChoice> choices;
  choices.reserve(kSwitches.size() + 1);
  for (const PlanSwitch& choice : kSwitches) {
    if (isNew && choice.Name != kItems) continue;
    if (choice.Name == kIds && !draft.Context.OriginalIds.empty()) {
      const std::string file = CompanionName(draft.Context.Project, CompanionFile::Subjects);
      choices.push_back({choice.Name, choice.Text, {"Numbered, as in '" + file + "'"}, 0});
      continue;
    }
    choices.push_back({choice.Name, choice.Text, {choice.Answers[0], choice.Answers[1]}, choice.Get(draft) ? 1 : 0});
  }
  if (draft.Context.Project.MinutesRecorded == 1 && draft.Setup.Columns.Has(ColumnRole::Minute)) {
    choices.push_back({"--times",
                       "Minutes are",
                       {"Numbers of minutes", "Times in seconds", "Times in milliseconds", "Times in minutes"},
                       std::max(IndexOf(kTimes, draft.Options.Times) - 1, 0)});
  }
  return choices;
}

void ChooseForPlan(ImportOptions& options, const std::string& name, int answer) {
  if (name == "--times") options.Times = ValueAt(kTimes, answer + 1);
  for (const PlanSwitch& choice : kSwitches) {
    if (choice.Name == name) choice.Set(options, answer == 1);
  }
}

std::string OnScreen(std::string text) {
  for (const auto& [option, control] : kControls) {
    for (std::size_t at = text.find(option); at != std::string::npos; at = text.find(option, at + control.size())) {
      text.replace(at, option.size(), control);
    }
  }
  return text;
}

std::string AnswerText(const ImportQuestion& question, const std::string& answer) {
  for (const AnswerName& known : kAnswers) {
    if (question.Option == known.Option && answer == known.Answer) return known.Text;
  }
  return answer;
}

std::vector<std::string> ColumnUses(const ProjectParameters& project) {
  std::vector<std::string> uses = {kNoUse};
  for (std::size_t role = 0; role < kColumnRoleCount; ++role) uses.push_back(ShownRole(static_cast<ColumnRole>(role)));
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    uses.push_back("Variable " + project.VariableNames[v]);
  }
  return uses;
}

int UseOfColumn(const TableColumns& columns, int column, const ProjectParameters& project) {
  for (std::size_t role = 0; role < kColumnRoleCount; ++role) {
    if (columns.Roles[role] == column) return static_cast<int>(role) + 1;
  }
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    if (columns.Variables[v] == column) return static_cast<int>(kColumnRoleCount + v) + 1;
  }
  return 0;
}

// All uses are then given: those that were found by name must not come back when the names of others change.
void UseColumn(TableOptions& options, const TableColumns& columns, int column, int use,
               const ProjectParameters& project) {
  const auto place = [](int at) { return at == kNoColumn ? std::string() : "#" + std::to_string(at + 1); };
  options.Columns.clear();
  int index = 0;
  const auto give = [&](std::string name, int at) {
    ++index;
    if (at == column) at = kNoColumn;
    options.Columns.push_back({std::move(name), place(index == use ? column : at)});
  };
  for (std::size_t role = 0; role < kColumnRoleCount; ++role) {
    give(std::string(RoleName(static_cast<ColumnRole>(role))), columns.Roles[role]);
  }
  for (std::size_t v = 0; v < static_cast<std::size_t>(project.VariableCount); ++v) {
    give(project.VariableNames[v], columns.Variables[v]);
  }
}

}  // namespace zova
