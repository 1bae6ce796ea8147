// SPDX-License-Identifier: GPL-3.0-or-later

#include "subjects/table/SubjectTableReader.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DataFileError.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectListing.h"
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

class TableReader {
 public:
  TableReader(const ProjectParameters& project, Disk& disk, const CountDifferences& count)
      : m_project(project), m_disk(disk), m_count(count) {}

  void List() {
    RequireDirectory(m_disk, m_project.PrimaryDir, FileOperation::List);
    m_present = SubjectListing(m_disk, m_project, SubjectDirectory(m_project.PrimaryDir));
    m_removed = SubjectListing(m_disk, m_project, RemovedDirectory(m_project.PrimaryDir));
    std::copy_if(m_removed.Subjects().begin(), m_removed.Subjects().end(), std::back_inserter(m_removedNames),
                 [&](const std::string& name) { return IsOwnSubjectFile(m_project, name); });
  }

  [[nodiscard]] std::size_t Count() const { return m_present.Subjects().size() + m_removedNames.size(); }

  SubjectRow Read(std::size_t index) {
    const auto& present = m_present.Subjects();
    return index < present.size() ? ReadPresent(present[index]) : ReadRemoved(m_removedNames[index - present.size()]);
  }

 private:
  SubjectRow ReadPresent(const std::string& name) {
    SubjectRow row;
    row.Id = SubjectIdFromFileName(m_project, name);
    row.File = name;
    if (!IsOwnSubjectFile(m_project, name)) {
      row.State = SubjectState::Foreign;
      return row;
    }
    const bool isComplete = m_present.Has(SubjectPlace::Complete, name);
    const bool isUnfinished = row.HasUnfinished = m_present.Has(SubjectPlace::Unfinished, name);
    if (isComplete || isUnfinished) {
      row.State = !isComplete ? SubjectState::Unfinished : isUnfinished ? SubjectState::Both : SubjectState::Complete;
      Fill(row, m_present.File(isComplete ? SubjectPlace::Complete : SubjectPlace::Unfinished, name));
    } else {
      row.State = RemainsOf(name);
    }
    row.Second = SecondOf(m_present, row);
    return row;
  }

  // What is left of a subject without data of its own.
  [[nodiscard]] SubjectState RemainsOf(const std::string& name) const {
    if (!m_present.Has(SubjectPlace::First, name)) return SubjectState::SecondAlone;
    const bool isEnteredTwice = m_present.Has(SubjectPlace::Second, name);
    return isEnteredTwice ? SubjectState::EntriesAlone : SubjectState::FirstAlone;
  }

  SubjectRow ReadRemoved(const std::string& name) {
    SubjectRow row;
    row.File = name;
    const auto place = std::find_if(kSubjectPlaces.begin(), kSubjectPlaces.end(),
                                    [&](SubjectPlace at) { return m_removed.Has(at, name); });
    Fill(row, m_removed.File(*place, name));
    const RemovedName removed = RemovedNameOf(m_project, name, m_bytes);
    row.Id = removed.Id;
    row.RemovedNumber = removed.Number;
    row.Second = SecondOf(m_removed, row);
    row.State = SubjectState::Removed;
    return row;
  }

  void Fill(SubjectRow& row, const ResolvedPath& file) {
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

  // What `row` was filled from is in m_first.
  SecondEntry SecondOf(const SubjectListing& listing, const SubjectRow& row) {
    const auto first = listing.FirstEntry(row.File);
    if (!listing.Has(SubjectPlace::Second, row.File)) {
      if (!listing.Has(SubjectPlace::SecondUnfinished, row.File)) return {};
      return {first ? SecondEntry::State::Unfinished : SecondEntry::State::UnfinishedAlone};
    }
    if (!first) return {SecondEntry::State::Alone};
    if (*first == SubjectPlace::Complete && !row.HasData()) return {SecondEntry::State::FirstUnreadable};
    try {
      ReadRecord(listing.File(SubjectPlace::Second, row.File), m_second);
      if (*first == SubjectPlace::First) {
        if (listing.Has(SubjectPlace::Complete, row.File) && IsSettled(listing, row.File)) {
          return {SecondEntry::State::Settled};
        }
        ReadRecord(listing.File(SubjectPlace::First, row.File), m_first);
      }
    } catch (const FileError& error) {
      return {SecondEntry::State::Unreadable, 0, ReasonOf(error)};
    }
    const int differences = m_count(m_first, m_second);
    return {differences == 0 ? SecondEntry::State::Agrees : SecondEntry::State::Differs, differences};
  }

  // The second entry, read last, is the one that the subject was settled with.
  bool IsSettled(const SubjectListing& listing, const std::string& file) {
    if (!listing.Has(SubjectPlace::Settled, file)) return false;
    m_disk.Read(listing.File(SubjectPlace::Settled, file), m_settledBytes);
    return m_settledBytes == m_bytes;
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  const CountDifferences& m_count;
  SubjectListing m_present;
  SubjectListing m_removed;
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
