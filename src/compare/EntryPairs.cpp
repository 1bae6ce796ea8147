// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/EntryPairs.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <utility>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/PercentProgress.h"
#include "platform/files/DataFileError.h"
#include "platform/files/EntryNames.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "text/Encoding.h"

namespace zova {

namespace {

class PairReader {
 public:
  PairReader(const ProjectParameters& project, Disk& disk, const PairSink& add)
      : m_project(project), m_disk(disk), m_add(add) {}

  void Read(const ResolvedPath& first, const ResolvedPath& second, PassedOver& passedOver) {
    try {
      ReadOne(first, m_first);
      ReadOne(second, m_second);
    } catch (const FileError& fault) {
      passedOver.Faults.push_back(FaultText(fault));
      return;
    }
    m_add(SubjectIdFromFileName(m_project, first.Shown), m_first, m_second);
  }

 private:
  void ReadOne(const ResolvedPath& file, SubjectRecord& record) {
    m_disk.Read(file, m_bytes);
    ParsingFile(file.Shown, [&] { ParseSubject(m_bytes, m_project, record); });
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  const PairSink& m_add;
  SubjectRecord m_first;
  SubjectRecord m_second;
  std::string m_bytes;
};

std::vector<std::string> OwnFiles(Disk& disk, const ProjectParameters& project, const std::string& directory) {
  std::vector<std::string> names = ListSubjectFiles(disk, project, directory);
  std::erase_if(names, [&](const std::string& name) { return !IsOwnSubjectFile(project, name); });
  return names;
}

// A directory of subjects with their first entries as they were typed.
class TypedEntries {
 public:
  TypedEntries(Disk& disk, const ProjectParameters& project, const std::string& directory,
               const std::string& firstDirectory)
      : m_complete(disk.Resolve(directory, FileOperation::Read)),
        m_first(disk.Resolve(firstDirectory, FileOperation::Read)),
        m_names(OwnFiles(disk, project, directory)) {
    for (std::string& name : OwnFiles(disk, project, firstDirectory)) m_settled.insert(std::move(name));
  }

  [[nodiscard]] const std::vector<std::string>& Names() const noexcept { return m_names; }
  [[nodiscard]] bool IsSettled(const std::string& name) const { return m_settled.contains(name); }
  [[nodiscard]] ResolvedPath File(const std::string& name) const {
    return Below(IsSettled(name) ? m_first : m_complete, name);
  }

 private:
  ResolvedPath m_complete;
  ResolvedPath m_first;
  std::vector<std::string> m_names;
  std::set<std::string> m_settled;
};

// Which of the names have one in the other list: an exactly equal one, or else one that differs in case alone.
std::map<std::string, std::string> Paired(const std::vector<std::string>& names,
                                          const std::vector<std::string>& others) {
  std::map<std::string, std::string> pairs;
  const std::set<std::string_view> exact(others.begin(), others.end());
  for (const std::string& name : names) {
    if (exact.contains(name)) pairs.emplace(name, name);
  }
  std::multimap<std::string, std::string> left;  // by the upper-cased name
  for (const std::string& other : others) {
    if (!pairs.contains(other)) left.emplace(UpperCase(other), other);
  }
  for (const std::string& name : names) {
    if (pairs.contains(name)) continue;
    const auto found = left.find(UpperCase(name));
    if (found == left.end()) continue;
    pairs.emplace(name, found->second);
    left.erase(found);
  }
  return pairs;
}

template <typename Act>
void ForEachName(const std::vector<std::string>& names, Progress& bar, Act&& act) {
  PercentProgress progress(bar, names.size(), "Comparing: ", " %");
  for (std::size_t done = 0; done < names.size(); ++done) {
    progress.Show(done);
    bar.ProcessEvents();
    act(names[done]);
  }
}

}  // namespace

PassedOver ReadSecondEntries(const ProjectParameters& project, Disk& disk, Progress& bar, const PairSink& add) {
  RequireDirectory(disk, project.PrimaryDir, FileOperation::List);
  const auto directory = [&](SubjectPlace place) { return PlaceDirectory(project.PrimaryDir, place); };
  const TypedEntries firsts(disk, project, directory(SubjectPlace::Complete), directory(SubjectPlace::First));
  const std::set<std::string_view> complete(firsts.Names().begin(), firsts.Names().end());
  const ResolvedPath seconds = disk.Resolve(directory(SubjectPlace::Second), FileOperation::Read);
  PassedOver passedOver;
  PairReader reader(project, disk, add);
  ForEachName(OwnFiles(disk, project, seconds.Shown), bar, [&](const std::string& name) {
    if (!firsts.IsSettled(name) && !complete.contains(name)) {
      passedOver.Alone.push_back("There is no first entry of '" + name + "'.");
    } else {
      reader.Read(firsts.File(name), Below(seconds, name), passedOver);
    }
  });
  return passedOver;
}

PassedOver ReadPairsWith(const std::string& directory, const ProjectParameters& project, Disk& disk, Progress& bar,
                         const PairSink& add) {
  const std::string sdata = SubjectDirectory(project.PrimaryDir);
  RequireDirectory(disk, sdata, FileOperation::List);
  RequireDirectory(disk, directory, FileOperation::List);
  const TypedEntries own(disk, project, sdata, PlaceDirectory(project.PrimaryDir, SubjectPlace::First));
  const TypedEntries other(disk, project, directory, FirstEntriesBelow(directory));
  const std::map<std::string, std::string> pairs = Paired(own.Names(), other.Names());
  PassedOver passedOver;
  PairReader reader(project, disk, add);
  std::vector<std::string> alone;
  std::set<std::string_view> met;
  ForEachName(own.Names(), bar, [&](const std::string& name) {
    const auto pair = pairs.find(name);
    if (pair == pairs.end()) return alone.push_back(name);
    met.insert(pair->second);
    reader.Read(own.File(name), other.File(pair->second), passedOver);
  });
  std::copy_if(other.Names().begin(), other.Names().end(), std::back_inserter(alone),
               [&](const std::string& name) { return !met.contains(name); });
  passedOver.Alone.reserve(alone.size());
  for (const std::string& name : InListingOrder(std::move(alone))) {
    passedOver.Alone.push_back("Only one directory has '" + name + "'.");
  }
  return passedOver;
}

void WarnNotCompared(MessageBoxes& boxes, const PassedOver& passedOver) {
  std::string lines;
  for (const auto* texts : {&passedOver.Alone, &passedOver.Faults}) {
    for (const std::string& text : *texts) lines += (lines.empty() ? "" : "\n") + text;
  }
  if (!lines.empty()) Warn(boxes, "The report leaves out what cannot be compared.", lines);
}

}  // namespace zova
