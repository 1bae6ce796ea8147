// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/proposal/NewProjectFromTable.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "tables/import/ImportQuestions.h"
#include "tables/import/SubjectBuilder.h"
#include "tables/proposal/ProposalItems.h"
#include "text/Counted.h"
#include "text/TypedText.h"
#include "words/CompanionCsv.h"
#include "words/ForeignWords.h"

namespace zova {

namespace {

constexpr int kManyMinutes = 30;  // few tests last longer

std::string FindTests(Disk& disk, const ImportDraft& draft, ProjectParameters& project) {
  const TableSurvey& table = draft.Survey;
  const bool isByRank = draft.Options.Tests == TestsBy::Rank;
  const int count = isByRank ? table.MostLabels : static_cast<int>(table.Labels.size());
  if (count < 1) return "The table has no rows of recalls.";
  if (count > kMaxTests) {
    const bool mayRank = !isByRank && table.MostLabels <= kMaxTests;
    return "The table has " + std::to_string(count) + " tests; a project has at most 15" +
           (mayRank ? "; --tests rank counts the " + std::to_string(table.MostLabels) + " of one subject" : "") +
           PartsText(disk, draft.Setup);
  }
  project.TestCount = static_cast<std::int16_t>(count);
  return {};
}

void FindMinutesAndRatings(const ProposalSurvey& survey, const ImportDraft& draft, ProjectProposal& proposal) {
  ProjectParameters& project = proposal.Project;
  if (survey.LastMinute > kManyMinutes && !draft.Options.Times) {
    proposal.Notes.push_back("the largest minute is " + std::to_string(survey.LastMinute) +
                             "; if these are times, say so by --times");
  }
  if (survey.LastMinute > 0) {
    project.MinutesRecorded = 1;
    project.MaxMinutes = static_cast<std::int16_t>(std::min(survey.LastMinute, kMaxMinutes));
  }
  project.RatedTests.fill("N");
  if (survey.LargestRating < 1 || survey.LargestRating > kMaxRating) return;
  project.Rated = 1;
  project.MaxRating = static_cast<std::int16_t>(survey.LargestRating);
  const std::vector<int> tests = TestsOfLabels(draft.Survey, project.TestCount);
  for (int test = 1; test <= project.TestCount; ++test) {
    bool isRated = draft.Options.Tests == TestsBy::Rank;
    for (const std::size_t label : survey.RatedLabels) isRated = isRated || tests[label] == test;
    if (isRated) project.RatedTests[static_cast<std::size_t>(test) - 1] = "Y";
  }
}

// As of a project with as many tests as the table needs.
void AskBeforeProposal(ImportDraft& draft) {
  ProjectParameters& project = draft.Context.Project;
  project.TestCount = static_cast<std::int16_t>(std::min<std::size_t>(draft.Survey.Labels.size(), kMaxTests));
  project.MinutesRecorded = draft.Setup.Columns.Has(ColumnRole::Minute) ? 1 : 0;
  project.MaxMinutes = kMaxMinutes;
  draft.Plan = {};
  if (draft.Setup.Columns.Faults.empty()) AskAboutTable(draft);
}

}  // namespace

ImportDraft DraftNewProject(Disk& disk, const std::string& table, const ImportOptions& options, WordList words) {
  ImportDraft draft{
      .Options = options, .Context = NewImportContext({}, std::move(words)), .Setup = {}, .Survey = {}, .Plan = {}};
  ReadTable(disk, draft, table);
  AskBeforeProposal(draft);
  return draft;
}

void RefreshNewProject(Disk& disk, ImportDraft& draft) {
  if (draft.Setup.Options != draft.Options.Table) ReadTable(disk, draft, draft.Setup.Path);
  AskBeforeProposal(draft);
}

ProjectProposal ProposeProject(Disk& disk, const ImportDraft& draft) {
  ProjectProposal proposal;
  proposal.Words = draft.Context.Words;
  proposal.Project.FormatMarker = kCurrentMarker;
  if (!draft.Setup.Columns.Faults.empty()) {
    proposal.Fault = draft.Setup.Columns.Faults.front().Text;
    return proposal;
  }
  proposal.Fault = FindTests(disk, draft, proposal.Project);
  if (!proposal.Fault.empty()) return proposal;
  ProposalSurvey survey = SurveyForProject(disk, draft);
  ProposeItems(disk, survey, draft, proposal);
  if (proposal.Project.ItemCount < 1) return proposal;
  FindMinutesAndRatings(survey, draft, proposal);
  proposal.Variables = std::move(survey.Variables);
  return proposal;
}

std::string ProjectSummary(const ProjectParameters& project) {
  const auto counted = [](int count, const char* one, const char* many) {
    return Counted(static_cast<std::size_t>(count), one, many);
  };
  std::string text = counted(project.TestCount, "test", "tests") + ", " + counted(project.ItemCount, "item", "items");
  if (project.Categorized == 1) text += " in " + counted(project.CategoryCount, "category", "categories");
  if (project.MinutesRecorded == 1) text += ", " + counted(project.MaxMinutes, "minute", "minutes");
  if (project.Rated == 1) text += ", ratings from 1 to " + std::to_string(project.MaxRating);
  return text;
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
  ProjectParameters unknown;
  unknown.Categorized = 1;
  WordList list;
  std::vector<std::size_t> lines;
  try {
    for (ForeignWord& word : ReadForeignWords(bytes, WordSource::File, 1, unknown)) {
      const auto index = static_cast<std::size_t>(word.Item) - 1;
      list.Words.resize(std::max(list.Words.size(), index + 1));
      lines.resize(list.Words.size(), word.Line);
      list.HasCategories = list.HasCategories || !word.Category.empty();
      list.Words[index] = {std::move(word.Text), std::move(word.Category)};
      lines[index] = word.Line;
    }
    const std::vector<WordFault> faults = FindWordFaults({list.Words, false}, {});
    if (!faults.empty()) throw CsvError(faults.front().Text, lines[static_cast<std::size_t>(faults.front().Item) - 1]);
  } catch (const CsvError& fault) {
    throw CompanionError(fault, path);
  }
  return list;
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
  const auto writeWords = [&] { WriteCompanion(disk, project, CompanionFile::Words, FormatWordList(words)); };
  if (WriteProjectFile(project, paramDir, false, disk, boxes) && (words.IsEmpty() || WithRetry(boxes, writeWords))) {
    return true;
  }
  for (const std::string& place : {paramDir, project.PrimaryDir}) {
    WithRetry(boxes, [&] {
      const std::string path = ParameterFilePath(place, project);
      if (disk.FileExists(path)) disk.Delete(path);
    });
  }
  return false;
}

}  // namespace zova
