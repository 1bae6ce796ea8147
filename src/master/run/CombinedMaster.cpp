// SPDX-License-Identifier: GPL-3.0-or-later
//
// The members of a group are read one after the other and pooled at once, so that a run of any length holds one
// subject's lists and one group's recall.

#include "master/run/CombinedMaster.h"

#include "master/run/RunSteps.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

class CombinedWriter : private RunParts {
 public:
  CombinedWriter(const ProjectParameters& project, const CombinedRequest& request, const Platform& platform)
      : RunParts(project, MasterKind::Combined, static_cast<int>(request.Plan.Groups.size()), platform),
        m_request(request),
        m_path(CombinedMasterPath(ResolveDestination(request.Destination, project, platform.Files.Drives()), project)),
        m_recall(project) {}

  MasterRunResult Run() {
    m_result.Completed = BuildHeader(m_project, m_request.Selection, MasterKind::Combined, m_boxes, m_header) &&
                         m_subjects.Take(m_request.Subjects.FileNames) && m_files.WriteHeader(m_path, m_header) &&
                         WriteRows() && m_files.CloseRows();
    return std::move(m_result);
  }

 private:
  bool WriteRows() {
    int number = 0;
    for (const NominalGroup& group : m_request.Plan.Groups) {
      const std::string label = GroupLabel(++number, IdsOf(group));
      if (!PoolAndScore(group, label)) return false;
      BuildGroupRow(label, m_request.Separator, group.Level, m_project, m_request.Selection, m_scores, m_row);
      if (!m_files.WriteRow(m_path, m_row)) return false;
      m_progress.Show(number);
    }
    return true;
  }

  [[nodiscard]] std::vector<std::string> IdsOf(const NominalGroup& group) const {
    std::vector<std::string> ids;
    for (const std::size_t member : group.Members) ids.push_back(m_request.Subjects.SubjectIds[member]);
    return ids;
  }

  // A number that is too large for the group is the fault of no single member: after a Retry all are read again.
  bool PoolAndScore(const NominalGroup& group, const std::string& label) {
    bool pooled = false;
    const auto poolAndScore = [&] {
      pooled = Pool(group);
      if (pooled) ScoreSubject(m_recall.Pooled(), m_project, m_header.Families, m_scores);
    };
    return WithRunRetry(m_boxes, poolAndScore, [&] { return label; }) && pooled;
  }

  bool Pool(const NominalGroup& group) {
    m_recall.Reset();
    for (const std::size_t member : group.Members) {
      const int k = static_cast<int>(member) + 1;
      const auto readAndAdd = [&] {
        m_subjects.Read(k, m_record);
        m_recall.Add(m_record.Lists);
      };
      if (!WithRunRetry(m_boxes, readAndAdd, [&] { return m_subjects.Where(k); })) return false;
    }
    return true;
  }

  const CombinedRequest& m_request;
  std::string m_path;
  GroupRecall m_recall;
};

}  // namespace

std::vector<std::int16_t> GroupSubjects::LevelsOf(std::optional<std::size_t> variable) const {
  std::vector<std::int16_t> levels(Levels.size(), 0);
  if (!variable) return levels;
  for (std::size_t subject = 0; subject < levels.size(); ++subject) levels[subject] = Levels[subject][*variable];
  return levels;
}

std::optional<GroupSubjects> ReadGroupSubjects(const ProjectParameters& project, int subjectFileCount, bool withLevels,
                                               const Platform& platform) {
  SubjectReader reader(project, platform.Files, platform.Boxes, platform.Bar);
  if (!reader.List(subjectFileCount)) return std::nullopt;
  GroupSubjects subjects;
  SubjectRecord record;
  for (int k = 1; k <= subjectFileCount; ++k) {
    const auto take = [&] {
      if (withLevels || k > reader.Count()) reader.Read(k, record);
    };
    if (!WithRetry(platform.Boxes, take)) return std::nullopt;
    subjects.FileNames.push_back(reader.Name(k));
    subjects.SubjectIds.push_back(reader.SubjectId(k));
    subjects.Levels.push_back(record.Levels);
  }
  return subjects;
}

MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform) {
  return CombinedWriter(project, request, platform).Run();
}

}  // namespace zova
