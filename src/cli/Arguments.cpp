// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>

#include "master/groups/NominalGroups.h"

namespace zova {

namespace {

// Splits at commas; no names for "".
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

std::vector<Measure> ParseMeasures(const char* option, std::string_view list) {
  std::vector<Measure> measures;
  for (const std::string& name : SplitNames(list)) {
    const auto measure = MeasureByName(name);
    if (!measure) throw UsageError(std::string(option) + ": unknown measure '" + name + "'");
    measures.push_back(*measure);
  }
  return measures;
}

int GroupSizeOf(const std::string& text) {
  const auto size = ParseGroupSize(text);
  if (!size) throw UsageError(std::string("--group-size: ") + kGroupSizeFault);
  return *size;
}

constexpr std::size_t kColumn = 24;  // column of the explanations

std::string NameFault(const std::string& file) { return file.empty() ? "a file needs a name" : ""; }

// Options with one value each. A list is one value with commas, so that it cannot swallow the project's file. Values
// are kept as typed, also an empty one, which the library's optional types would drop. The last value of a repeated
// option counts.
class OptionTable {
 public:
  explicit OptionTable(CLI::App& app) : m_app(app) {}

  template <typename Use>
  CLI::Option* Add(const char* name, const char* kind, const std::string& description, Use use) {
    return m_app.add_option_function<std::string>(name, use, description)->type_name(kind)->take_last();
  }

  CLI::Option* Add(const char* name, const char* kind, const std::string& description,
                   std::optional<std::string>& target) {
    return Add(name, kind, description, [&target](const std::string& value) { target = value; });
  }

  CLI::Option* AddFile(const char* name, const std::string& description, std::optional<std::string>& target) {
    return Add(name, "FILE", description, target)->check(NameFault);
  }

 private:
  CLI::App& m_app;
};

void DeclareGroupOptions(OptionTable& options, Arguments& parsed) {
  CLI::Option* groupSize = options.Add(
      "--group-size", "N", "also write the combined master: a row per group of N subjects, their\nrecall pooled",
      [&parsed](const std::string& size) { parsed.GroupSize = GroupSizeOf(size); });
  options.Add("--group-by", "VARIABLE", "only subjects of one level of this variable form a group", parsed.GroupBy)
      ->option_text("VARIABLE")
      ->needs(groupSize);
  options
      .AddFile("--group-order",
               "the order in which groups are formed; FILE holds a line\n'\"identifier\",position' per subject "
               "(default: the order of the rows);\nsubjects without a line come last",
               parsed.GroupOrderFile)
      ->option_text("FILE")
      ->needs(groupSize);
  options.AddFile("--groups-csv", "also write a CSV with a row per group: what its members share", parsed.GroupsFile)
      ->option_text("FILE")
      ->needs(groupSize);
}

void DeclareFurtherOptions(CLI::App& app, Arguments& parsed) {
  CLI::Option* further =
      app.add_flag("--further", parsed.Further,
                   "also the further measures, in the CSV of --clean and in --means: clustering,\norganization, serial "
                   "position and others that the field reports")
          ->disable_flag_override()
          ->option_text(" ");
  app.add_flag("--positions", parsed.Positions, "and the recall of each serial position")
      ->disable_flag_override()
      ->option_text(" ")
      ->needs(further);
}

void DeclareOptions(CLI::App& app, Arguments& parsed) {
  app.allow_windows_style_options(false);  // "/data/Study.prm" is a file on every system
  app.get_formatter()->column_width(kColumn);
  app.add_option("PROJECT.prm", parsed.ProjectFile, "the project's file, in Param or in the primary directory")
      ->option_text(" ")
      ->check(NameFault)
      ->required();

  OptionTable options(app);
  options.Add("--measures", "WORD,...",
              "only these families of measures, by their words below\n(default: all that the project has data for)",
              [&parsed](const std::string& list) { parsed.Measures = ParseMeasures("--measures", list); });
  options.Add("--without", "WORD,...", "not these families of measures",
              [&parsed](const std::string& list) { parsed.Without = ParseMeasures("--without", list); });
  options.AddFile("--serial-order",
                  "also write the serial-position master; FILE holds a line\n'item,position' per item",
                  parsed.SerialOrderFile);
  options.Add("--destination", "FILE",
              "where the master's header goes; a name without a directory lies in the\nprimary directory, where the "
              "rows always go",
              [&parsed](const std::string& path) { parsed.Destination = path; });
  options.AddFile(
      "--clean",
      "also write the measures as a CSV for other programs: level names,\nnothing cut, empty fields and the "
      "reason for what could not be computed",
      parsed.CleanFile);
  options.AddFile("--long", "also write the recalls as a CSV, a row per studied and per recalled\nitem",
                  parsed.LongFile);
  CLI::Option* means = options.Add(
      "--means", "VARIABLE,...", "print the means of all measures by these variables, crossed, as a CSV;\n'' for none",
      [&parsed](const std::string& list) { parsed.Means = SplitNames(list); });
  app.add_flag("--computed-only", parsed.ComputedOnly,
               "leave out of the means what could not be computed (0 in the master)")
      ->disable_flag_override()
      ->option_text(" ")
      ->needs(means);
  DeclareFurtherOptions(app, parsed);
  DeclareGroupOptions(options, parsed);
  app.set_help_flag("-h,--help", "print this text");
  app.set_version_flag("--version", "", "print the version");
}

std::string Footer() {
  std::string text = "Words for --measures and --without, beside the names of the measure screen's boxes (chkBasic):\n";
  for (const MeasureBox& box : AllMeasureBoxes()) {
    const std::string name = "  " + std::string(box.Word);
    text += name + std::string(kColumn - name.size(), ' ') + std::string(box.QuickHelp) + "\n";
  }
  return text +
         "\nFiles are paths of this system or drive-letter paths (C:\\Data\\Study.prm). C: is the home directory and "
         "Z:\n"
         "the root; ZOVA_DRIVES='C=/dir;D=/dir' sets other drives.\n"
         "\n"
         "The paths that were written go to standard output, with --means to standard error. Ends with 0 when the\n"
         "masters are made, 1 when the run stopped or there is no data, 2 on wrong usage.";
}

// The arguments in the library's order, last first. It would skip the empty value of "--clean=" and use the next
// argument instead.
std::vector<std::string> ForLibrary(const std::vector<std::string>& arguments) {
  std::vector<std::string> reversed;
  const auto filesFrom = std::find(arguments.begin(), arguments.end(), "--");
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const bool hasEmptyValue =
        argument < filesFrom && argument->starts_with("--") && argument->find('=') == argument->size() - 1;
    reversed.push_back(hasEmptyValue ? argument->substr(0, argument->size() - 1) : *argument);
    if (hasEmptyValue) reversed.emplace_back();
  }
  std::reverse(reversed.begin(), reversed.end());
  return reversed;
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& arguments) {
  Arguments parsed;
  CLI::App app;
  DeclareOptions(app, parsed);
  try {
    app.parse(ForLibrary(arguments));
  } catch (const CLI::CallForHelp&) {
    parsed.Help = true;
    return parsed;
  } catch (const CLI::CallForVersion&) {
    parsed.Version = true;
    return parsed;
  } catch (const CLI::ExtrasError&) {  // its text lists the arguments in reverse
    const std::vector<std::string> extra = app.remaining();
    throw UsageError(
        "unexpected argument: " +
        *std::find_if(extra.begin(), extra.end(), [](const std::string& argument) { return argument != "--"; }));
  } catch (const CLI::ParseError& error) {
    throw UsageError(error.what());
  }
  if (parsed.Further && !parsed.CleanFile && !parsed.Means) throw UsageError("--further requires --clean or --means");
  // The library does not treat "-" and negative numbers as options.
  if (parsed.ProjectFile.starts_with('-') && std::find(arguments.begin(), arguments.end(), "--") == arguments.end()) {
    throw UsageError("unexpected argument: " + parsed.ProjectFile);
  }
  return parsed;
}

std::string UsageText() {
  Arguments unused;
  CLI::App app("Writes the master of a recall experiment: one row per subject, one column per measure.\n",
               "zova-master");
  DeclareOptions(app, unused);
  app.footer(Footer());
  return app.help();
}

}  // namespace zova
