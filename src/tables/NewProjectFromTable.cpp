// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/NewProjectFromTable.h"

#include <algorithm>
#include <map>
#include <set>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "tables/ProposalSurvey.h"
#include "tables/SubjectBuilder.h"
#include "text/Encoding.h"
#include "text/TypedText.h"
#include "words/CompanionCsv.h"
#include "words/WordKey.h"

namespace zova {

namespace {

// Categories need equal sizes; the items of one stand together, in the order of their first rows.
void OrderByCategory(const ProposalSurvey& survey, ProjectProposal& proposal) {
  const auto hasNone = [](const StudiedWord& word) { return word.Category.empty(); };
  if (std::all_of(survey.Words.begin(), survey.Words.end(), hasNone)) return;
  std::vector<std::string> names;
  std::map<std::string, std::vector<Word>> members;
  for (const StudiedWord& word : survey.Words) {
    if (hasNone(word)) {
      proposal.Notes.push_back("made without categories: '" + word.Text + "' has none");
      return;
    }
    std::vector<Word>& category = members[word.Category];
    if (category.empty()) names.push_back(word.Category);
    category.push_back({word.Text, word.Category});
  }
  const std::size_t size = members[names.front()].size();
  for (const std::string& name : names) {
    if (members[name].size() == size) continue;
    proposal.Notes.push_back("made without categories: '" + names.front() + "' has " + std::to_string(size) +
                             " items, '" + name + "' has " + std::to_string(members[name].size()));
    return;
  }
  proposal.Words.Words.clear();
  for (const std::string& name : names) {
    for (Word& word : members[name]) proposal.Words.Words.push_back(std::move(word));
  }
  proposal.Words.HasCategories = true;
}

// The category column of the word list makes a categorised project.
std::string Categorize(ProjectProposal& proposal) {
  const std::vector<Word>& words = proposal.Words.Words;
  const auto end = std::find_if(words.begin(), words.end(),
                                [&](const Word& word) { return word.Category != words.front().Category; });
  const auto size = static_cast<std::size_t>(end - words.begin());
  if (words.size() % size != 0) return "All categories must have an equal number of items.";
  proposal.Project.Categorized = 1;
  proposal.Project.ItemsPerCategory = static_cast<std::int16_t>(size);
  proposal.Project.CategoryCount = static_cast<std::int16_t>(words.size() / size);
  const std::vector<WordFault> faults = FindWordFaults(proposal.Words, proposal.Project);
  return faults.empty() ? std::string() : faults.front().Text;
}

// The number of items; 0 when nothing tells it.
std::size_t FindItems(const ProposalSurvey& survey, const TableSurvey& table, const ImportOptions& options,
                      ProjectProposal& proposal) {
  if (options.Items == ItemsBy::Position) {
    proposal.Words = {};
    return survey.LongestStudy;
  }
  if (!proposal.Words.IsEmpty()) return proposal.Words.Words.size();
  if (table.HasNumbers) {
    return static_cast<std::size_t>(table.LargestNumber + (options.FirstItem.value_or(1) == 0 ? 1 : 0));
  }
  for (const StudiedWord& word : survey.Words) proposal.Words.Words.push_back({word.Text, {}});
  if (survey.HasCategories && !survey.Words.empty()) OrderByCategory(survey, proposal);
  return proposal.Words.Words.size();
}

std::string FindTests(Disk& disk, const TableSetup& setup, const TableSurvey& table, const ImportOptions& options,
                      ProjectParameters& project) {
  const int count = options.Tests == TestsBy::Rank ? table.MostLabels : static_cast<int>(table.Labels.size());
  if (count < 1) return "The table has no rows of recalls.";
  if (count > kMaxTests) {
    return "The table has " + std::to_string(count) + " tests; a project has at most 15" + PartsText(disk, setup);
  }
  project.TestCount = static_cast<std::int16_t>(count);
  return {};
}

void FindMinutesAndRatings(const ProposalSurvey& survey, const TableSurvey& table, const ImportOptions& options,
                           ProjectParameters& project) {
  if (survey.LastMinute > 0) {
    project.MinutesRecorded = 1;
    project.MaxMinutes = static_cast<std::int16_t>(std::min(survey.LastMinute, kMaxMinutes));
  }
  project.RatedTests.fill("N");
  if (survey.LargestRating < 1 || survey.LargestRating > kMaxRating) return;
  project.Rated = 1;
  project.MaxRating = static_cast<std::int16_t>(survey.LargestRating);
  const std::vector<int> tests = TestsOfLabels(table, project.TestCount);
  for (int test = 1; test <= project.TestCount; ++test) {
    bool isRated = options.Tests == TestsBy::Rank;
    for (const std::size_t label : survey.RatedLabels) isRated = isRated || tests[label] == test;
    if (isRated) project.RatedTests[static_cast<std::size_t>(test) - 1] = "Y";
  }
}

}  // namespace

ProjectProposal ProposeProject(Disk& disk, const TableSetup& setup, const ImportOptions& options, WordList words) {
  ProjectProposal proposal;
  proposal.Words = std::move(words);
  proposal.Project.FormatMarker = kCurrentMarker;
  if (!setup.Columns.Faults.empty()) {
    proposal.Fault = setup.Columns.Faults.front().Text;
    return proposal;
  }
  const TableSurvey table = SurveyTable(disk, setup, !proposal.Words.IsEmpty());
  proposal.Fault = FindTests(disk, setup, table, options, proposal.Project);
  if (!proposal.Fault.empty()) return proposal;
  ProposalSurvey survey = SurveyForProject(disk, setup, table, options);
  const std::size_t items = FindItems(survey, table, options, proposal);
  if (items < 1) {
    proposal.Fault = "The table has neither study rows nor item numbers; a new project needs one of them, or --words.";
    return proposal;
  }
  if (items > static_cast<std::size_t>(kMaxItems)) {
    proposal.Fault = "The table has " + std::to_string(items) +
                     " items; a project has at most 999.  --items position counts those of one list" +
                     PartsText(disk, setup);
    return proposal;
  }
  proposal.Project.ItemCount = static_cast<std::int16_t>(items);
  if (proposal.Words.HasCategories) proposal.Fault = Categorize(proposal);
  FindMinutesAndRatings(survey, table, options, proposal.Project);
  proposal.Variables = std::move(survey.Variables);
  return proposal;
}

bool AddVariable(ProjectProposal& proposal, const std::string& name) {
  const auto offer = std::find_if(proposal.Variables.begin(), proposal.Variables.end(),
                                  [&](const VariableOffer& v) { return PlainName(v.Name) == PlainName(name); });
  ProjectParameters& project = proposal.Project;
  if (offer == proposal.Variables.end() || project.VariableCount >= kMaxVariables) return false;
  const auto variable = static_cast<std::size_t>(project.VariableCount++);
  project.VariableNames[variable] = ColumnText(offer->Name);
  project.LevelCounts[variable] = static_cast<std::int16_t>(offer->Levels.size());
  for (std::size_t level = 0; level < offer->Levels.size(); ++level) {
    project.LevelNames[variable][level] = FieldText(offer->Levels[level]);
  }
  return true;
}

WordList ReadNewWords(Disk& disk, const std::string& path) {
  std::string bytes;
  disk.Read(path, bytes);
  const DataText text(bytes);
  try {
    CsvReader reader(TextSource(text.Content()));
    WordList list;
    bool isFirst = true;
    std::size_t wordColumn = 0;
    std::size_t categoryColumn = 0;
    while (reader.Next()) {
      const auto fields = reader.Fields();
      const bool isHeader = isFirst && fields.size() > 1 && PlainName(fields[0]) == "item";
      isFirst = false;
      if (isHeader) {
        wordColumn = 1;
        categoryColumn = fields.size() > 2 ? 2 : 0;
        list.HasCategories = categoryColumn != 0;
        continue;
      }
      if (fields.size() <= std::max(wordColumn, categoryColumn))
        throw CsvError("There are too few fields", reader.Line());
      const std::string_view word = WithoutOuterBlanks(fields[wordColumn]);
      if (WordKey(word).empty()) throw CsvError("'" + std::string(word) + "' has no letter or digit", reader.Line());
      list.Words.push_back(
          {std::string(word), categoryColumn != 0 ? std::string(fields[categoryColumn]) : std::string()});
    }
    const std::vector<WordFault> faults = FindWordFaults({list.Words, false}, {});
    if (!faults.empty()) throw CsvError(faults.front().Text, static_cast<std::size_t>(faults.front().Item));
    return list;
  } catch (const CsvError& fault) {
    throw CompanionError(fault, path);
  }
}

std::string PlaceProject(Disk& disk, ProjectParameters& project, const std::string& title, const std::string& directory,
                         const std::string& paramDir) {
  const std::string name(WithoutOuterBlanks(title));
  if (!IsWholeFileName(name)) return "'" + title + "' cannot be the title of a project.";
  if (!HasDrive(directory) || !HasValidComponents(directory)) return "'" + directory + "' cannot be a directory.";
  project.ProjectFileName = ParameterFileName(name);
  project.Abbreviation = WithoutOuterBlanks(FirstCharacters(name, kMaxAbbreviationLength));
  project.PrimaryDir = directory;
  project.BackupDir = kNoDirectory;
  for (const std::string& place : {paramDir, directory}) {
    if (disk.FileExists(ParameterFilePath(place, project))) {
      return "There already is an experiment entitled '" + name + "' in '" + place + "'.";
    }
  }
  if (!ListDataFiles(disk, project.Abbreviation, SubjectDirectory(directory)).empty()) {
    return "There are already data files with the prefix '" + project.Abbreviation + "' in the primary directory.";
  }
  return {};
}

bool CreateProject(Disk& disk, MessageBoxes& boxes, ProjectParameters& project, const WordList& words,
                   const std::string& paramDir) {
  for (const std::string& directory : {project.PrimaryDir, paramDir}) {
    if (!WithRetry(boxes, [&] { disk.CreateDirectories(directory); })) return false;
  }
  if (!WriteProjectFile(project, paramDir, false, disk, boxes)) return false;
  if (words.IsEmpty()) return true;
  return WithRetry(boxes, [&] { WriteCompanion(disk, project, CompanionFile::Words, FormatWordList(words)); });
}

}  // namespace zova
