// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/Arguments.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string_view>
#include <utility>

#include "master/groups/NominalGroups.h"
#include "text/Cells.h"

namespace zova {

namespace {

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

MoreStatistics ParseStatistics(std::string_view list) {
  constexpr std::pair<std::string_view, bool MoreStatistics::*> kWords[] = {
      {"se", &MoreStatistics::Se},   {"median", &MoreStatistics::Median},     {"min", &MoreStatistics::Min},
      {"max", &MoreStatistics::Max}, {"marginal", &MoreStatistics::Marginal}, {"within", &MoreStatistics::Within}};
  MoreStatistics statistics;
  for (const std::string& name : SplitNames(list)) {
    const auto* word =
        std::find_if(std::begin(kWords), std::end(kWords), [&](const auto& w) { return w.first == name; });
    if (word == std::end(kWords)) throw UsageError("--statistics: unknown statistic '" + name + "'");
    statistics.*(word->second) = true;
  }
  return statistics;
}

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
  OptionTable options(app);
  options.AddArgument("PROJECT.prm", "the project's file, in Param or in the primary directory", parsed.ProjectFile)
      ->required();
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
  options
      .Add("--statistics", "WORD,...",
           "also these of the means: se, median, min, max; marginal, the means of each\nvariable of several; within, "
           "intervals of the tests without the differences\nbetween subjects (Cousineau-Morey)",
           [&parsed](const std::string& list) { parsed.Statistics = ParseStatistics(list); })
      ->option_text("WORD,...")
      ->needs(means);
  options
      .AddFile("--effects",
               "also write the effect sizes of these variables, and of the tests, as a CSV:\nd, d_z, the paired "
               "difference, eta squared",
               parsed.EffectsFile)
      ->option_text("FILE")
      ->needs(means);
  DeclareFurtherOptions(app, parsed);
  DeclareGroupOptions(options, parsed);
  options.AddStandardFlags();
}

std::string Footer() {
  std::string text = "Words for --measures and --without, beside the names of the measure screen's boxes (chkBasic):\n";
  for (const MeasureBox& box : AllMeasureBoxes()) {
    const std::string name = "  " + std::string(box.Word);
    text += name + std::string(kUsageColumn - name.size(), ' ') + std::string(box.QuickHelp) + "\n";
  }
#ifndef _WIN32  // whose drives are the system's own
  text +=
      "\nFiles are paths of this system or drive-letter paths (C:\\Data\\Study.prm). C: is the home directory and Z:\n"
      "the root; ZOVA_DRIVES='C=/dir;D=/dir' sets other drives.\n";
#endif
  return text +
         "\n"
         "The paths that were written go to standard output, with --means to standard error. Ends with 0 when the\n"
         "masters are made, 1 when the run stopped or there is no data, 2 on wrong usage.";
}

}  // namespace

Arguments ParseArguments(const std::vector<std::string>& arguments) {
  Arguments parsed;
  CLI::App app;
  DeclareOptions(app, parsed);
  const ParsedLine line = ParseLine(app, arguments, {&parsed.ProjectFile});
  parsed.Help = line == ParsedLine::Help;
  parsed.Version = line == ParsedLine::Version;
  if (line != ParsedLine::Work) return parsed;
  if (parsed.Further && !parsed.CleanFile && !parsed.Means) throw UsageError("--further requires --clean or --means");
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
