// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/import/ImportArguments.h"

#include <CLI/CLI.hpp>
#include <array>

#include "text/Cells.h"

namespace zova {

namespace {

// The options that say how a table is imported. Their values are checked where their meaning is known.
struct ImportOption {
  const char* Name;
  const char* Kind;
  const char* Text;
  bool IsRepeated = false;
};

constexpr std::array<ImportOption, 20> kOptions = {{
    {"--columns", "ROLE=COLUMN,...",
     "which column is what: subject, test, position, item, word, minute, rating,\ntrialtype, category, or a variable "
     "of the project; a column is a name or #3",
     true},
    {"--where", "COLUMN=VALUE", "only rows with this value; may be repeated", true},
    {"--shape", "SHAPE", "long (a row per recall), lists (a row per subject and test), wide (a row\nper subject)"},
    {"--separator", "TEXT", "between the responses of one cell; also blank, tab, line"},
    {"--delimiter", "NAME", "between the columns: comma, tab, semicolon"},
    {"--encoding", "NAME", "utf-8, windows-1252"},
    {"--tests", "HOW", "the table's lists are tests by their labels (labels), or each subject's own\nby rank (rank)"},
    {"--items", "HOW",
     "items are the numbers of the word list (pool, the default), or the words'\nplaces in each list "
     "as studied (position)"},
    {"--first-item", "N", "numbers of items begin with 0 or 1"},
    {"--order", "HOW", "recalls stand in the order of their positions (positions), or of the rows (rows)"},
    {"--times", "UNIT",
     "minutes are times in s, ms or min since the start of the test, or the numbers\nof minutes (number)"},
    {"--accents", "HOW", "any, or exact: words that differ in accents are different"},
    {"--accept-distance", "N", "a response this near to one word alone counts as it: 0, 1, 2"},
    {"--others", "WHAT", "responses that are no words and not decided: intrusion, skip"},
    {"--repeats", "WHAT", "of an item recalled twice: first (the default), keep (in this program's own\ntables)"},
    {"--too-long", "WHAT", "lists of more recalls than items: cut, leave-out (the subject)"},
    {"--missing-tests", "WHAT", "tests without rows: empty, leave-out (the subject)"},
    {"--existing", "WHAT", "subjects that are there with other data: skip, replace"},
    {"--level", "VARIABLE=LEVEL", "for subjects for whom the table has no level that fits; may be repeated", true},
    {"--ids", "HOW", "number: subjects are numbered, and their own identifiers kept beside"},
}};

void SetOrThrow(ImportArguments& parsed, const std::string& name, const std::string& value) {
  const std::string fault = SetImportOption(parsed.Options, name, value);
  if (!fault.empty()) throw UsageError(name + ": " + fault);
}

void DeclareOptions(CLI::App& app, ImportArguments& parsed) {
  OptionTable options(app);
  options.AddArgument("TABLE", "the table: CSV, TSV or semicolons", parsed.Table)->required();
  options.AddArgument("PROJECT.prm", "the project's file; none with --new-project", parsed.ProjectFile);
  bool& isDryRun = parsed.IsDryRun;
  options.AddFlag("--dry-run", "print what would be written, and write nothing", isDryRun);
  for (const ImportOption& option : kOptions) {
    const auto set = [&parsed, name = std::string(option.Name)](const std::string& value) {
      SetOrThrow(parsed, name, value);
    };
    option.IsRepeated ? options.AddRepeated(option.Name, option.Kind, option.Text, set)
                      : options.Add(option.Name, option.Kind, option.Text, set);
  }
  options.AddFlag("--no-header", "the first row holds data; columns are #1, #2, ...", parsed.HasNoHeader);
  options.AddFlag("--accept-incomplete", "subjects that the checks refuse go to Unfinished",
                  parsed.Options.AcceptIncomplete);
  options.AddFile("--responses", "what responses count as: FILE holds response,item", parsed.ResponsesFile)
      ->option_text("FILE");
  options
      .AddFile("--unmatched", "write the responses that are undecided, to be edited and given to\n--responses",
               parsed.UnmatchedFile)
      ->option_text("FILE");
  CLI::Option* project = options.Add("--new-project", "TITLE", "make a project for the table", parsed.NewProject);
  options.AddFile("--directory", "the new project's primary directory", parsed.Directory)
      ->option_text("DIR")
      ->needs(project);
  options
      .AddFile("--param", "the directory of parameter files (default: the primary directory)", parsed.ParamDirectory)
      ->option_text("DIR")
      ->needs(project);
  options.AddFile("--words", "the new project's words: a line each, or item,word[,category]", parsed.WordsFile)
      ->option_text("FILE")
      ->needs(project);
  options
      .Add("--variables", "A,B", "columns that are between-subject variables of the new project",
           [&parsed](const std::string& list) { parsed.Variables = SplitNames(list); })
      ->option_text("A,B")
      ->needs(project);
  options.AddStandardFlags();
}

constexpr const char* kFooter =
    "The report, a CSV with the header what,count,row,column,subject,test,text, goes to standard output. Ends with\n"
    "0 when the import is done or there was nothing to do, 1 when something is undecided or wrong (then nothing is\n"
    "written) or the import was given up, 2 on wrong usage.";

}  // namespace

ImportArguments ParseImportArguments(const std::vector<std::string>& arguments) {
  ImportArguments parsed;
  CLI::App app;
  DeclareOptions(app, parsed);
  const ParsedLine line = ParseLine(app, arguments, {&parsed.Table, &parsed.ProjectFile});
  parsed.Help = line == ParsedLine::Help;
  parsed.Version = line == ParsedLine::Version;
  if (line != ParsedLine::Work) return parsed;
  parsed.Options.Table.HasHeader = !parsed.HasNoHeader;
  if (parsed.NewProject && !parsed.Directory) throw UsageError("--new-project requires --directory");
  if (parsed.NewProject && !parsed.ProjectFile.empty()) {
    throw UsageError("either PROJECT.prm or --new-project");
  }
  if (!parsed.NewProject && parsed.ProjectFile.empty()) throw UsageError("PROJECT.prm is required");
  return parsed;
}

std::string ImportUsageText() {
  ImportArguments unused;
  CLI::App app("Imports recalls from a table into a recall experiment.\n", "zova-import");
  DeclareOptions(app, unused);
  app.footer(kFooter);
  return app.help();
}

}  // namespace zova
