// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/Arguments.h"

#include <algorithm>
#include <string_view>

#include "master/groups/NominalGroups.h"

namespace zova {

namespace {

// The names between the commas; "" has none.
std::vector<std::string> SplitNames(std::string_view list) {
  std::vector<std::string> names;
  if (list.empty()) return names;
  for (;;) {
    const std::size_t end = std::min(list.find(','), list.size());
    names.emplace_back(list.substr(0, end));
    if (end == list.size()) return names;
    list.remove_prefix(end + 1);
  }
}

std::vector<Measure> ParseMeasures(std::string_view list) {
  std::vector<Measure> measures;
  for (const std::string& name : SplitNames(list)) {
    const auto measure = MeasureByName(name);
    if (!measure) throw UsageError("unknown measure '" + name + "'");
    measures.push_back(*measure);
  }
  return measures;
}

int GroupSizeOf(const std::string& text) {
  const auto size = ParseGroupSize(text);
  if (!size) throw UsageError(std::string("option '--group-size': ") + kGroupSizeFault);
  return *size;
}

void RequireComplete(const Arguments& parsed) {
  if (!parsed.GroupSize && parsed.GroupBy) throw UsageError("option '--group-by' needs '--group-size'");
  if (!parsed.GroupSize && parsed.GroupOrderFile) throw UsageError("option '--group-order' needs '--group-size'");
  if (!parsed.Means && parsed.ComputedOnly) throw UsageError("option '--computed-only' needs '--means'");
  if (parsed.ProjectFile.empty() && !parsed.Help && !parsed.Version) throw UsageError("no project file");
}

// An option's value: behind "=" or the next argument.
class Values {
 public:
  explicit Values(const std::vector<std::string>& arguments) : m_arguments(arguments) {}

  [[nodiscard]] bool AtEnd() const { return m_next >= m_arguments.size(); }

  std::string TakeArgument() { return m_arguments[m_next++]; }

  // When `argument` is `option`, its value.
  std::optional<std::string> Of(const std::string& argument, const std::string& option) {
    if (argument.starts_with(option + "=")) return argument.substr(option.size() + 1);
    if (argument != option) return std::nullopt;
    if (AtEnd()) throw UsageError("option '" + option + "' needs a value");
    return TakeArgument();
  }

  // The same for a file, which has a name.
  std::optional<std::string> FileOf(const std::string& argument, const std::string& option) {
    auto file = Of(argument, option);
    if (file && file->empty()) throw UsageError("option '" + option + "' needs a file");
    return file;
  }

 private:
  const std::vector<std::string>& m_arguments;
  std::size_t m_next = 0;
};

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& arguments) {
  Arguments parsed;
  Values values(arguments);
  bool onlyFiles = false;
  while (!values.AtEnd()) {
    const std::string argument = values.TakeArgument();
    if (!onlyFiles && argument == "--") {
      onlyFiles = true;
    } else if (onlyFiles || argument.empty() || argument.front() != '-') {
      if (!parsed.ProjectFile.empty()) throw UsageError("more than one project file: '" + argument + "'");
      if (argument.empty()) throw UsageError("the project file's name is empty");
      parsed.ProjectFile = argument;
    } else if (argument == "--help") {
      parsed.Help = true;
    } else if (argument == "--version") {
      parsed.Version = true;
    } else if (const auto names = values.Of(argument, "--measures")) {
      parsed.Measures = ParseMeasures(*names);
    } else if (const auto order = values.FileOf(argument, "--serial-order")) {
      parsed.SerialOrderFile = *order;
    } else if (const auto destination = values.Of(argument, "--destination")) {
      parsed.Destination = *destination;
    } else if (const auto cleanFile = values.FileOf(argument, "--clean")) {
      parsed.CleanFile = *cleanFile;
    } else if (const auto longFile = values.FileOf(argument, "--long")) {
      parsed.LongFile = *longFile;
    } else if (const auto variables = values.Of(argument, "--means")) {
      parsed.Means = SplitNames(*variables);
    } else if (argument == "--computed-only") {
      parsed.ComputedOnly = true;
    } else if (const auto size = values.Of(argument, "--group-size")) {
      parsed.GroupSize = GroupSizeOf(*size);
    } else if (const auto variable = values.Of(argument, "--group-by")) {
      parsed.GroupBy = *variable;
    } else if (const auto groupOrder = values.FileOf(argument, "--group-order")) {
      parsed.GroupOrderFile = *groupOrder;
    } else {
      throw UsageError("unknown option '" + argument + "'");
    }
  }
  RequireComplete(parsed);
  return parsed;
}

const char* UsageText() {
  return "Usage: zova-master [--measures BOX,...] [--serial-order FILE] [--destination FILE]\n"
         "                   [--clean FILE] [--long FILE] [--means VARIABLE,... [--computed-only]]\n"
         "                   [--group-size N [--group-by VARIABLE] [--group-order FILE]] PROJECT.prm\n"
         "\n"
         "Writes the master of a recall experiment: one row per subject, one column per measure.\n"
         "\n"
         "  --measures BOX,...    only these families of measures: chkBasic chkBi chkIP chkCat chkRat chkFBasic\n"
         "                        chkFPos chkFwhich chkFIP chkMinNet chkMinCat chkMinCum chkMinGains\n"
         "                        (default: all that the project has data for)\n"
         "  --serial-order FILE   also write the serial-position master; FILE holds a line 'item,position' per item\n"
         "  --destination FILE    where the master's header goes; a name without a directory lies in the primary\n"
         "                        directory, where the rows always go\n"
         "  --clean FILE          also write the measures as a CSV for other programs: level names, nothing cut,\n"
         "                        empty fields and the reason for what could not be computed\n"
         "  --long FILE           also write the recalls as a CSV, a row per studied and per recalled item\n"
         "  --means VARIABLE,...  print the means of all measures by these variables, crossed, as a CSV; '' for none\n"
         "  --computed-only       leave out of the means what could not be computed (0 in the master)\n"
         "  --group-size N        also write the combined master: a row per group of N subjects, their recall pooled\n"
         "  --group-by VARIABLE   only subjects of one level of this variable form a group\n"
         "  --group-order FILE    the order in which groups are formed; FILE holds a line '\"identifier\",position'\n"
         "                        per subject (default: the order of the rows); subjects without a line come last\n"
         "  --help, --version\n"
         "\n"
         "Files are paths of this system or drive-letter paths (C:\\Data\\Study.prm). C: is the home directory and Z:\n"
         "the root; ZOVA_DRIVES='C=/dir;D=/dir' sets other drives.\n"
         "\n"
         "The paths that were written go to standard output, with --means to standard error. Ends with 0 when the\n"
         "masters are made, 1 when the run stopped or there is no data, 2 on wrong usage.\n";
}

}  // namespace zova
