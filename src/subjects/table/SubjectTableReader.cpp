// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectTableReader.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/entry/CompletionChecks.h"
#include "subjects/table/SubjectPlacesListing.h"
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

struct Place {
  ResolvedPath Directory;
  std::vector<std::string> Names;
  std::unordered_set<std::string> Known;

  [[nodiscard]] bool Has(const std::string& name) const { return Known.contains(name); }
};

class TableReader {
 public:
  TableReader(const ProjectParameters& project, Disk& disk, const CountDifferences& count)
      : m_project(project), m_disk(disk), m_count(count) {}

  void List() {
    RequireDirectory(m_disk, m_project.PrimaryDir, FileOperation::List);
    m_places = ListIn(false);
    m_removed = ListIn(true);
    for (Place& place : m_removed) {
      std::erase_if(place.Names, [&](const std::string& name) { return !IsOwnSubjectFile(m_project, name); });
    }
    m_names = NamesIn(m_places);
    m_removedNames = NamesIn(m_removed);
  }

  [[nodiscard]] std::size_t Count() const { return m_names.size() + m_removedNames.size(); }

  SubjectRow Read(std::size_t index) {
    return index < m_names.size() ? ReadPresent(m_names[index]) : ReadRemoved(m_removedNames[index - m_names.size()]);
  }

 private:
  using Places = std::array<Place, kSubjectPlaces.size()>;
  // Of complete subjects, of unfinished ones, and of second entries that stand alone.
  [[nodiscard]] std::vector<std::string> NamesIn(const Places& places) const {
    const Place& complete = places[Index(SubjectPlace::Complete)];
    const Place& unfinished = places[Index(SubjectPlace::Unfinished)];
    std::vector<std::string> names = complete.Names;
    std::copy_if(unfinished.Names.begin(), unfinished.Names.end(), std::back_inserter(names),
                 [&](const std::string& name) { return !complete.Has(name); });
    const auto& seconds = places[Index(SubjectPlace::Second)].Names;
    std::copy_if(seconds.begin(), seconds.end(), std::back_inserter(names), [&](const std::string& name) {
      return !complete.Has(name) && !unfinished.Has(name) && IsOwnSubjectFile(m_project, name);
    });
    return names;
  }
  static std::size_t Index(SubjectPlace place) { return static_cast<std::size_t>(place); }
  [[nodiscard]] const Place& At(SubjectPlace place) const { return m_places[Index(place)]; }

  Places ListIn(bool areRemoved) {
    Places places;
    ListedPlaces listed = ListSubjectPlaces(m_disk, m_project, m_project.PrimaryDir, areRemoved);
    for (std::size_t at = 0; at < places.size(); ++at) {
      places[at].Known.insert(listed[at].Names.begin(), listed[at].Names.end());
      places[at].Directory = std::move(listed[at].Directory);
      places[at].Names = std::move(listed[at].Names);
    }
    return places;
  }

  SubjectRow ReadPresent(const std::string& name) {
    SubjectRow row;
    row.Id = SubjectIdFromFileName(m_project, name);
    row.File = name;
    if (!IsOwnSubjectFile(m_project, name)) {
      row.State = SubjectState::Foreign;
      return row;
    }
    const bool isComplete = At(SubjectPlace::Complete).Has(name);
    const bool isUnfinished = row.HasUnfinished = At(SubjectPlace::Unfinished).Has(name);
    row.State = !isComplete ? SubjectState::Unfinished : isUnfinished ? SubjectState::Both : SubjectState::Complete;
    if (isComplete || isUnfinished) {
      Fill(row, At(isComplete ? SubjectPlace::Complete : SubjectPlace::Unfinished).Directory);
    } else {
      row.State = SubjectState::SecondAlone;
    }
    row.Second = SecondOf(m_places, row);
    return row;
  }

  SubjectRow ReadRemoved(const std::string& name) {
    SubjectRow row;
    row.File = name;
    const auto place = std::find_if(m_removed.begin(), m_removed.end(), [&](const Place& at) { return at.Has(name); });
    Fill(row, place->Directory);
    const RemovedName removed = RemovedNameOf(m_project, name, m_bytes);
    row.Id = removed.Id;
    row.RemovedNumber = removed.Number;
    row.Second = SecondOf(m_removed, row);
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

  SecondEntry SecondOf(const Places& places, const SubjectRow& row) {
    const auto has = [&](SubjectPlace place) { return places[Index(place)].Has(row.File); };
    const auto fileIn = [&](SubjectPlace place) { return Below(places[Index(place)].Directory, row.File); };
    if (!has(SubjectPlace::Second)) {
      return {has(SubjectPlace::SecondUnfinished) ? SecondEntry::State::Unfinished : SecondEntry::State::None};
    }
    if (!has(SubjectPlace::Complete)) return {SecondEntry::State::Alone};
    if (!row.HasData()) return {};
    try {
      ReadRecord(fileIn(SubjectPlace::Second), m_second);
      if (has(SubjectPlace::First)) {
        if (IsSettled(has, fileIn)) return {SecondEntry::State::Settled};
        ReadRecord(fileIn(SubjectPlace::First), m_first);
      }
    } catch (const FileError& error) {
      return {SecondEntry::State::Unreadable, 0, ReasonOf(error)};
    }
    const int differences = m_count(m_first, m_second);
    return {differences == 0 ? SecondEntry::State::Agrees : SecondEntry::State::Differs, differences};
  }

  // The second entry, read last, is the one that the subject was settled with.
  template <typename Has, typename FileIn>
  bool IsSettled(Has&& has, FileIn&& fileIn) {
    if (!has(SubjectPlace::Settled)) return false;
    m_disk.Read(fileIn(SubjectPlace::Settled), m_settledBytes);
    return m_settledBytes == m_bytes;
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  const CountDifferences& m_count;
  Places m_places;
  Places m_removed;
  std::vector<std::string> m_names;
  std::vector<std::string> m_removedNames;
  SubjectRecord m_first;  // the next four are kept between subjects, so that memory is allocated once
  SubjectRecord m_second;
  std::string m_bytes;
  std::string m_settledBytes;
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
