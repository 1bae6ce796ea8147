// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectTableReader.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/entry/CompletionChecks.h"
#include "text/Encoding.h"
#include "text/FieldReader.h"
#include "text/LeadingNumber.h"

namespace zova {

namespace {

// The lines below the one that names the file.
std::string ReasonOf(const FileError& error) {
  const std::string facts = FaultText(error);
  const std::size_t end = facts.find('\n');
  std::string reason = end == std::string::npos ? "This is no subject file of the project." : facts.substr(end + 1);
  std::replace(reason.begin(), reason.end(), '\n', ' ');
  return reason;
}

// The files of one directory.
struct Place {
  ResolvedPath Directory;
  std::vector<std::string> Names;
  std::set<std::string, std::less<>> Known;

  [[nodiscard]] bool Has(const std::string& name) const { return Known.contains(name); }
};

class TableReader {
 public:
  TableReader(const ProjectParameters& project, Disk& disk, const CountDifferences& count)
      : m_project(project), m_disk(disk), m_count(count) {}

  void List() {
    RequireDirectory(m_disk, m_project.PrimaryDir, FileOperation::List);
    for (const SubjectPlace place : kSubjectPlaces) m_places[Index(place)] = ListIn(PlaceDirectory(Primary(), place));
    for (const SubjectPlace place : {SubjectPlace::Complete, SubjectPlace::Unfinished}) {
      m_removed[Index(place)] = ListIn(RemovedDirectory(Primary(), place));
    }
    const auto& complete = At(SubjectPlace::Complete).Names;
    const auto& unfinished = At(SubjectPlace::Unfinished).Names;
    m_names = complete;
    std::copy_if(unfinished.begin(), unfinished.end(), std::back_inserter(m_names),
                 [&](const std::string& name) { return !At(SubjectPlace::Complete).Has(name); });
    const auto& removed = m_removed[Index(SubjectPlace::Complete)].Names;
    const auto& removedUnfinished = m_removed[Index(SubjectPlace::Unfinished)].Names;
    m_removedNames = removed;
    std::copy_if(removedUnfinished.begin(), removedUnfinished.end(), std::back_inserter(m_removedNames),
                 [&](const std::string& name) { return !m_removed[Index(SubjectPlace::Complete)].Has(name); });
  }

  [[nodiscard]] std::size_t Count() const { return m_names.size() + m_removedNames.size(); }

  SubjectRow Read(std::size_t index) {
    return index < m_names.size() ? ReadPresent(m_names[index]) : ReadRemoved(m_removedNames[index - m_names.size()]);
  }

 private:
  static std::size_t Index(SubjectPlace place) { return static_cast<std::size_t>(place); }
  [[nodiscard]] const std::string& Primary() const { return m_project.PrimaryDir; }
  [[nodiscard]] const Place& At(SubjectPlace place) const { return m_places[Index(place)]; }

  Place ListIn(const std::string& directory) {
    Place place{m_disk.Resolve(directory, FileOperation::List), ListSubjectFiles(m_disk, m_project, directory), {}};
    place.Known.insert(place.Names.begin(), place.Names.end());
    return place;
  }

  SubjectRow ReadPresent(const std::string& name) {
    SubjectRow row;
    row.Id = SubjectIdFromFileName(m_project, name);
    row.File = name;
    if (!BeginsIgnoringCase(name, ExpectedPrefix(m_project))) {
      row.State = SubjectState::Foreign;
      return row;
    }
    const bool isComplete = At(SubjectPlace::Complete).Has(name);
    const bool isUnfinished = row.HasUnfinished = At(SubjectPlace::Unfinished).Has(name);
    row.State = !isComplete ? SubjectState::Unfinished : isUnfinished ? SubjectState::Both : SubjectState::Complete;
    Fill(row, At(isComplete ? SubjectPlace::Complete : SubjectPlace::Unfinished).Directory);
    if (isComplete && row.HasData()) row.Second = SecondOf(name);
    return row;
  }

  SubjectRow ReadRemoved(const std::string& name) {
    SubjectRow row;
    row.File = name;
    const bool isComplete = m_removed[Index(SubjectPlace::Complete)].Has(name);
    Fill(row, m_removed[Index(isComplete ? SubjectPlace::Complete : SubjectPlace::Unfinished)].Directory);
    const RemovedName removed = RemovedNameOf(m_project, name, m_bytes);
    row.Id = removed.Id;
    row.RemovedNumber = removed.Number;
    row.State = SubjectState::Removed;
    return row;
  }

  void Fill(SubjectRow& row, const ResolvedPath& directory) {
    const ResolvedPath file = Below(directory, row.File);
    m_bytes.clear();
    try {
      row.SavedAt = m_disk.ChangedAt(file);
      ReadRecord(file, m_first);
      row.Levels = m_first.Levels;
      row.Recalls.resize(static_cast<std::size_t>(m_project.TestCount));
      for (std::size_t test = 0; test < row.Recalls.size(); ++test) {
        row.Recalls[test] = m_first.Lists.RecallCount(static_cast<int>(test) + 1);
      }
      row.FailedChecks = FailedChecks(m_first, m_project);
    } catch (const FileError& error) {
      row.State = SubjectState::Unreadable;
      row.Reason = ReasonOf(error);
    }
  }

  void ReadRecord(const ResolvedPath& file, SubjectRecord& record) {
    m_disk.Read(file, m_bytes);
    ParsingFile(file.Shown, [&] { ParseSubject(m_bytes, m_project, record); });
  }

  SecondEntry SecondOf(const std::string& name) {
    if (At(SubjectPlace::First).Has(name)) return {SecondEntry::State::Settled};
    if (!At(SubjectPlace::Second).Has(name)) {
      const bool isBegun = At(SubjectPlace::SecondUnfinished).Has(name);
      return {isBegun ? SecondEntry::State::Unfinished : SecondEntry::State::None};
    }
    try {
      ReadRecord(Below(At(SubjectPlace::Second).Directory, name), m_second);
    } catch (const FileError&) {
      return {SecondEntry::State::Unreadable};
    }
    const int differences = m_count(m_first, m_second);
    return {differences == 0 ? SecondEntry::State::Agrees : SecondEntry::State::Differs, differences};
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  const CountDifferences& m_count;
  std::array<Place, kSubjectPlaces.size()> m_places;
  std::array<Place, kSubjectPlaces.size()> m_removed;
  std::vector<std::string> m_names;
  std::vector<std::string> m_removedNames;
  SubjectRecord m_first;  // the next three are kept between subjects, so that memory is allocated once
  SubjectRecord m_second;
  std::string m_bytes;
};

}  // namespace

RemovedName RemovedNameOf(const ProjectParameters& project, std::string_view file, std::string_view bytes) {
  std::string id = SubjectIdFromFileName(project, file);
  const std::size_t open = id.rfind(" (");
  if (open == std::string::npos || id.back() != ')') return {std::move(id)};
  const auto number = DigitsInteger16(std::string_view(id).substr(open + 2, id.size() - open - 3));
  const DataText text(bytes);
  FieldReader reader(text.Content());
  try {
    reader.Skip();
    if (number && reader.Next() == std::string_view(id).substr(0, open)) return {id.substr(0, open), *number};
  } catch (const FieldError&) {
    // A file without a first line has the name that it had.
  }
  return {std::move(id)};
}

std::vector<SubjectRow> ReadSubjectRows(const ProjectParameters& project, Disk& disk, Progress& bar,
                                        const CountDifferences& countDifferences,
                                        const std::function<bool(std::string_view id)>& isChosen,
                                        const std::function<void(int percent)>& showPercent) {
  TableReader reader(project, disk, countDifferences);
  reader.List();
  std::vector<SubjectRow> rows;
  rows.reserve(reader.Count());
  int shown = -1;
  for (std::size_t index = 0; index < reader.Count(); ++index) {
    const int percent = static_cast<int>(index * 100 / reader.Count());
    if (std::exchange(shown, percent) != percent) showPercent(percent);
    bar.ProcessEvents();
    rows.push_back(reader.Read(index));
    rows.back().IsInSample = isChosen(rows.back().Id);
  }
  return rows;
}

}  // namespace zova
