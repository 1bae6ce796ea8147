// SPDX-License-Identifier: GPL-3.0-or-later

#include "compare/EntryPairs.h"

#include <algorithm>
#include <iterator>

#include "platform/desktop/PercentProgress.h"
#include "platform/files/DataFileError.h"
#include "platform/files/EntryNames.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"

namespace zova {

namespace {

class PairReader {
 public:
  PairReader(const ProjectParameters& project, Disk& disk) : m_project(project), m_disk(disk) {}

  void Read(const ResolvedPath& first, const ResolvedPath& second, const std::string& name, const PairSink& add) {
    ReadOne(Below(first, name), m_first);
    ReadOne(Below(second, name), m_second);
    add(SubjectIdFromFileName(m_project, name), m_first, m_second);
  }

 private:
  void ReadOne(const ResolvedPath& file, SubjectRecord& record) {
    m_disk.Read(file, m_bytes);
    ParsingFile(file.Shown, [&] { ParseSubject(m_bytes, m_project, record); });
  }

  const ProjectParameters& m_project;
  Disk& m_disk;
  SubjectRecord m_first;
  SubjectRecord m_second;
  std::string m_bytes;
};

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

void ReadSecondEntries(const ProjectParameters& project, Disk& disk, Progress& bar, const PairSink& add) {
  const auto place = [&](SubjectPlace kind) {
    return disk.Resolve(PlaceDirectory(project.PrimaryDir, kind), FileOperation::Read);
  };
  RequireDirectory(disk, project.PrimaryDir, FileOperation::List);
  const ResolvedPath complete = place(SubjectPlace::Complete);
  const ResolvedPath second = place(SubjectPlace::Second);
  const ResolvedPath typed = place(SubjectPlace::First);
  PairReader reader(project, disk);
  ForEachName(ListSubjectFiles(disk, project, second.Shown), bar, [&](const std::string& name) {
    const bool isSettled = disk.Kind(Below(typed, name), FileOperation::Read) != EntryKind::Missing;
    reader.Read(isSettled ? typed : complete, second, name, add);
  });
}

std::vector<std::string> ReadPairsWith(const std::string& directory, const ProjectParameters& project, Disk& disk,
                                       Progress& bar, const PairSink& add) {
  const std::string sdata = SubjectDirectory(project.PrimaryDir);
  RequireDirectory(disk, sdata, FileOperation::List);
  RequireDirectory(disk, directory, FileOperation::List);
  const std::vector<std::string> own = ListSubjectFiles(disk, project, sdata);
  const std::vector<std::string> other = ListSubjectFiles(disk, project, directory);
  std::vector<std::string> both, alone;
  std::set_intersection(own.begin(), own.end(), other.begin(), other.end(), std::back_inserter(both), ListsBefore);
  std::set_symmetric_difference(own.begin(), own.end(), other.begin(), other.end(), std::back_inserter(alone),
                                ListsBefore);
  const ResolvedPath first = disk.Resolve(sdata, FileOperation::Read);
  const ResolvedPath second = disk.Resolve(directory, FileOperation::Read);
  PairReader reader(project, disk);
  ForEachName(both, bar, [&](const std::string& name) { reader.Read(first, second, name, add); });
  return alone;
}

}  // namespace zova
