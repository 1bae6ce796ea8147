// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectChanges.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"
#include "subjects/table/SubjectTableReader.h"
#include "text/Encoding.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

constexpr std::array kSubjectCompanions = {CompanionFile::Intrusions, CompanionFile::StudyOrder,
                                           CompanionFile::Subjects, CompanionFile::SecondSample};

// Where the field that begins at `at` ends: at its comma, or at the end of the line.
std::size_t EndOfField(std::string_view line, std::size_t at) {
  at = std::min(line.find_first_not_of(" \t", at), line.size());
  if (at < line.size() && line[at] == '"') at = std::min(line.find('"', at + 1), line.size());
  return std::min(line.find(',', at), line.size());
}

// A first line without a second field, which no save of this program writes, stays as it is.
std::string WithIdentifier(std::string_view bytes, std::string_view id) {
  const std::string_view line = bytes.substr(0, bytes.find_first_of("\r\n"));
  const std::size_t begin = EndOfField(line, 0) + 1;
  if (begin >= line.size()) return std::string(bytes);
  std::string text(bytes.substr(0, begin));
  return text.append("\"").append(id).append("\"").append(bytes.substr(EndOfField(line, begin)));
}

std::vector<std::pair<std::size_t, std::size_t>> FirstLines(std::string_view bytes, std::size_t count) {
  std::vector<std::pair<std::size_t, std::size_t>> lines;  // begin and end
  lines.reserve(count);
  for (std::size_t begin = 0; begin < bytes.size() && lines.size() < count;) {
    const std::size_t end = std::min(bytes.find_first_of("\r\n", begin), bytes.size());
    lines.emplace_back(begin, end);
    begin = end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1);
  }
  return lines;
}

// nullopt for a file in which a level does not stand at the end of the variable's line.
std::optional<std::string> WithLevels(std::string_view bytes, const ProjectParameters& project,
                                      const NewLevels& levels) {
  const auto variables = static_cast<std::size_t>(project.VariableCount);
  const auto lines = FirstLines(bytes, variables + 1);
  if (lines.size() <= variables) return std::nullopt;
  std::string text(bytes);
  for (std::size_t v = variables; v > 0; --v) {
    const auto [begin, end] = lines[v];
    const std::size_t comma = bytes.substr(0, end).rfind(',');
    if (levels[v - 1] == 0) continue;
    if (comma == std::string_view::npos || comma < begin) return std::nullopt;
    text.replace(comma + 1, end - comma - 1, std::to_string(levels[v - 1]));
  }
  SubjectRecord before, after;
  try {
    ParseSubject(bytes, project, before);
    ParseSubject(text, project, after);
  } catch (const FieldError&) {
    return std::nullopt;
  }
  for (std::size_t v = 0; v < variables; ++v) {
    if (levels[v] != 0) before.Levels[v] = levels[v];
  }
  return before == after ? std::optional(std::move(text)) : std::nullopt;
}

std::string Existing(std::string_view id) { return "A subject '" + std::string(id) + "' already exists."; }

// Adds that a file gets another name, first the new one, so that no moment is without it. Spellings of one name are one
// file on some systems, and the old one has to go first.
void AddMove(FileChanges& changes, bool inBackup, const std::string& from, const std::string& to, std::string before,
             std::string after) {
  FileChange gone{.InBackup = inBackup, .Name = from, .Before = std::move(before), .After = {}};
  FileChange made{.InBackup = inBackup, .Name = to, .Before = {}, .After = std::move(after)};
  if (EqualsIgnoringCase(from, to)) std::swap(gone, made);
  changes.Files.push_back(std::move(made));
  changes.Files.push_back(std::move(gone));
}

// The refusal, or "".
std::string AddCompanions(FileChanges& changes, const SubjectPlaces& places, const std::string& from,
                          const std::string& to) {
  const ProjectParameters& project = places.Project();
  for (int root = 0; root < places.RootCount(); ++root) {
    const std::string& directory = root == 0 ? project.PrimaryDir : project.BackupDir;
    for (const CompanionFile file : kSubjectCompanions) {
      const std::string name = CompanionName(project, file);
      const std::string path = JoinPath(directory, name);
      if (!places.Files().FileExists(path)) continue;
      std::string before;
      places.Files().Read(path, before);
      try {
        RenamedRows rows = RenameSubjectRows(before, from, to);
        if (rows.HasNewName) {
          return "'" + name + "' already has lines of a subject '" + to + "'.  Please select another identifier.";
        }
        if (rows.Text) {
          changes.Files.push_back(
              {.InBackup = root > 0, .Name = name, .Before = std::move(before), .After = std::move(rows.Text)});
        }
      } catch (const CsvError& fault) {
        throw CompanionError(fault, path);
      }
    }
  }
  return {};
}

// What is there of the subject is a second entry without a first one, and the removed subject `row` has none. They may
// be joined.
bool IsSecondAlone(const SubjectPlaces& places, const SubjectRow& row, const std::string& file) {
  if (places.HasAny(file, file)) return false;
  return std::all_of(kSubjectPlaces.begin(), kSubjectPlaces.end(), [&](SubjectPlace place) {
    bool isThere = false;
    bool isRemoved = false;
    for (int root = 0; root < places.RootCount(); ++root) {
      isThere = isThere || places.Read(root > 0, place, file);
      isRemoved = isRemoved || places.ReadRemoved(root > 0, place, row.File);
    }
    return !isThere || (IsOfSecond(place) && !isRemoved);
  });
}

}  // namespace

void SubjectPlaces::AddNames(const SubjectListing& listing, Names& names) {
  for (const SubjectPlace place : kSubjectPlaces) {
    for (const std::string& name : listing.Names(place)) names.emplace(UpperCase(name), name);
  }
}

SubjectPlaces::SubjectPlaces(const ProjectParameters& project, Disk& disk)
    : m_project(project), m_disk(disk), m_rootCount(IsNoDirectory(project.BackupDir) ? 1 : 2) {
  for (int root = 0; root < m_rootCount; ++root) {
    const std::string& directory = root == 0 ? project.PrimaryDir : project.BackupDir;
    RequireDirectory(disk, directory, FileOperation::List);
    const auto in = static_cast<std::size_t>(root);
    // Those of the primary directory, which is listed first.
    m_present[in] = SubjectListing(disk, project, SubjectDirectory(directory), m_present[0].Subjects());
    m_removed[in] = SubjectListing(disk, project, RemovedDirectory(directory), m_removed[0].Subjects());
    AddNames(m_present[in], m_presentNames);
    AddNames(m_removed[in], m_removedNames);
  }
}

std::optional<SubjectPlaces::File> SubjectPlaces::ReadIn(const SubjectListing& listing, SubjectPlace place,
                                                         const std::string& subject) const {
  auto bytes = ReadIfThere(m_disk, listing.File(place, subject));
  if (!bytes) return std::nullopt;
  return File{listing.Name(place, subject), *std::move(bytes)};
}

std::optional<SubjectPlaces::File> SubjectPlaces::Read(bool inBackup, SubjectPlace place,
                                                       const std::string& subject) const {
  return ReadIn(m_present[inBackup ? 1 : 0], place, subject);
}

std::optional<SubjectPlaces::File> SubjectPlaces::ReadRemoved(bool inBackup, SubjectPlace place,
                                                              const std::string& subject) const {
  return ReadIn(m_removed[inBackup ? 1 : 0], place, subject);
}

bool SubjectPlaces::HasAny(std::string_view file, std::string_view except) const {
  const auto [begin, end] = m_presentNames.equal_range(UpperCase(file));
  return std::any_of(begin, end, [&](const auto& name) { return name.second != except; });
}

bool SubjectPlaces::HasRemoved(std::string_view file) const { return m_removedNames.contains(UpperCase(file)); }

void SubjectPlaces::Follow(const FileChanges& changes) {
  for (const FileChange& change : changes.Files) {
    if (change.Before.has_value() == change.After.has_value() || !IsSubjectFileBelow(change.Name)) continue;
    Names& names = IsRemovedBelow(change.Name) ? m_removedNames : m_presentNames;
    std::string name = change.Name.substr(change.Name.rfind('/') + 1);
    std::string key = UpperCase(name);
    if (change.After) {
      names.emplace(std::move(key), std::move(name));
      continue;
    }
    const auto [begin, end] = names.equal_range(key);
    const auto gone = std::find_if(begin, end, [&](const auto& known) { return known.second == name; });
    if (gone != end) names.erase(gone);
  }
}

ChangePlan PlanLevels(const SubjectPlaces& places, const SubjectRow& row, const NewLevels& levels) {
  ChangePlan plan{{"Changing the levels of subject '" + row.Id + "'", {}}};
  for (const SubjectPlace place : {SubjectPlace::Complete, SubjectPlace::Unfinished}) {
    const auto primary = places.Read(false, place, row.File);
    if (!primary) continue;
    for (int root = 0; root < places.RootCount(); ++root) {
      // A copy that is missing is made, as by a save.
      const auto before = root == 0 ? primary : places.Read(true, place, row.File);
      auto after = WithLevels(before.value_or(*primary).Bytes, places.Project(), levels);
      if (!after) {
        plan.Refusal = "The data of subject '" + row.Id +
                       "' are not laid out like a subject file.  Please open the subject and save it first.";
        return plan;
      }
      if (before && before->Bytes == *after) continue;
      plan.Changes.Files.push_back({.InBackup = root > 0,
                                    .Name = PlaceName(place, before.value_or(*primary).Name),
                                    .Before = before ? std::optional(before->Bytes) : std::nullopt,
                                    .After = std::move(after)});
    }
  }
  return plan;
}

ChangePlan PlanRename(const SubjectPlaces& places, const SubjectRow& row, const std::string& newId) {
  ChangePlan plan{{"Renaming subject '" + row.Id + "' to '" + newId + "'", {}}};
  if (!IsSubjectId(newId)) {
    plan.Refusal = "Invalid Format.";
    return plan;
  }
  const std::string newFile = SubjectFileName(places.Project(), newId);
  if (places.HasAny(newFile, row.File)) {
    plan.Refusal = Existing(newId);
    return plan;
  }
  for (int root = 0; root < places.RootCount(); ++root) {
    for (const SubjectPlace place : kSubjectPlaces) {
      auto file = places.Read(root > 0, place, row.File);
      if (!file) continue;
      std::string renamed = WithIdentifier(file->Bytes, newId);
      AddMove(plan.Changes, root > 0, PlaceName(place, file->Name), PlaceName(place, newFile), std::move(file->Bytes),
              std::move(renamed));
    }
  }
  plan.Refusal = AddCompanions(plan.Changes, places, row.Id, newId);
  return plan;
}

ChangePlan PlanRemoval(const SubjectPlaces& places, const SubjectRow& row) {
  ChangePlan plan{{"Removing subject '" + row.Id + "'", {}}};
  const std::string stem = row.File.substr(0, row.File.size() - kDataFileEnd.size());
  std::string file = row.File;
  for (int number = 2; places.HasRemoved(file); ++number) {
    file = stem + " (" + std::to_string(number) + ")" + std::string(kDataFileEnd);
  }
  for (int root = 0; root < places.RootCount(); ++root) {
    for (const SubjectPlace place : kSubjectPlaces) {
      const auto content = places.Read(root > 0, place, row.File);
      if (!content) continue;
      AddMove(plan.Changes, root > 0, PlaceName(place, content->Name), RemovedPlaceName(place, file), content->Bytes,
              content->Bytes);
    }
  }
  return plan;
}

ChangePlan PlanReturn(const SubjectPlaces& places, const SubjectRow& row) {
  ChangePlan plan{{"Bringing back subject '" + row.Id + "'", {}}};
  const std::string file = SubjectFileName(places.Project(), row.Id);
  if (places.HasAny(file) && !IsSecondAlone(places, row, file)) {
    plan.Refusal = Existing(row.Id);
    return plan;
  }
  for (int root = 0; root < places.RootCount(); ++root) {
    for (const SubjectPlace place : kSubjectPlaces) {
      const auto content = places.ReadRemoved(root > 0, place, row.File);
      if (!content) continue;
      AddMove(plan.Changes, root > 0, RemovedPlaceName(place, content->Name), PlaceName(place, file), content->Bytes,
              content->Bytes);
    }
  }
  return plan;
}

}  // namespace zova
