// SPDX-License-Identifier: GPL-3.0-or-later

#include "tables/import/ImportContext.h"

#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/PathParts.h"
#include "project/DirectoryRules.h"
#include "project/ProjectLayout.h"
#include "text/CsvReader.h"
#include "text/Encoding.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

TextMap<std::string> NamesIn(Disk& disk, const ProjectParameters& project, const std::string& directory) {
  TextMap<std::string> names;
  for (std::string& name : ListSubjectFiles(disk, project, directory)) {
    std::string upper = UpperCase(name);
    names.emplace(std::move(upper), std::move(name));
  }
  return names;
}

// A companion file that does not fit is a fault of the import, not of reading.
template <typename Value, typename Parse>
void LoadOrNote(Disk& disk, ImportContext& context, CompanionFile file, Value& value, Parse&& parse) {
  try {
    auto loaded = LoadCompanion(disk, context.Project, file, std::forward<Parse>(parse));
    if (loaded) value = *std::move(loaded);
  } catch (const FileError& error) {
    if (error.Cause() != FileCause::EndOfData) throw;
    context.Faults.push_back({"'" + error.Path() + "': " + error.Detail()});
  }
}

}  // namespace

ImportContext NewImportContext(const ProjectParameters& project, WordList words) {
  ImportContext context;
  context.Project = project;
  context.Words = std::move(words);
  return context;
}

ImportContext ReadImportContext(Disk& disk, const ProjectParameters& project) {
  ImportContext context;
  context.Project = project;
  const auto with = [&](auto parse) {
    return [&project, parse](std::string_view bytes) { return parse(bytes, project); };
  };
  LoadOrNote(disk, context, CompanionFile::Words, context.Words, with(ParseWordList));
  LoadOrNote(disk, context, CompanionFile::Responses, context.Decided, with(ParseResponses));
  LoadOrNote(disk, context, CompanionFile::Intrusions, context.Intrusions, with(ParseIntrusions));
  LoadOrNote(disk, context, CompanionFile::StudyOrder, context.StudyOrders, with(ParseStudyOrders));
  LoadOrNote(disk, context, CompanionFile::Subjects, context.OriginalIds, ParseOriginalIds);
  context.Subjects = NamesIn(disk, project, SubjectDirectory(project.PrimaryDir));
  context.Subjects.merge(NamesIn(disk, project, PlaceDirectory(project.PrimaryDir, SubjectPlace::First)));
  context.Unfinished = NamesIn(disk, project, UnfinishedDirectory(project.PrimaryDir));
  return context;
}

void AddDecisions(Disk& disk, const std::string& path, ItemsBy items, ImportContext& context) {
  std::string bytes;
  disk.Read(path, bytes);
  try {
    const Responses given = ParseProposedResponses(bytes, context.Project, items == ItemsBy::Position);
    for (DecidedResponse decided : given.All()) {
      decided.File = LastPathComponent(path);
      context.Decided.Replace(std::move(decided));
    }
  } catch (const CsvError& fault) {
    throw CompanionError(fault, path);
  }
}

}  // namespace zova
