// SPDX-License-Identifier: GPL-3.0-or-later
//
// Group members are read one by one and pooled at once, so that memory is limited to one subject's lists and one
// group's recall.

#include "master/run/CombinedMaster.h"

#include "master/groups/GroupLabel.h"
#include "master/run/RunContext.h"
#include "master/run/RunRetry.h"
#include "master/run/RunStart.h"
#include "scoring/ScoreSubject.h"

namespace zova {

namespace {

class CombinedRun {
 public:
  CombinedRun(const ProjectParameters& project, const CombinedRequest& request, const Platform& platform)
      : m_request(request),
        m_context(project, request.Selection, static_cast<int>(request.Plan.Groups.size()), platform),
        m_recall(project) {}

  MasterRunResult Run() {
    const bool completed =
        BuildHeader(m_context.Project, m_request.Selection, MasterKind::Combined, m_context.Boxes, m_context.Header) &&
        PrepareFiles() && ReadNames() && WriteRows() && m_context.Master.Close();
    MasterNotices notices;
    if (completed) {
      const std::size_t pieces = m_paths.Master.Pieces.size();
      notices.OlderPieces = OlderPieces(ResultFile::CombinedMaster, pieces, m_context.Project, m_context.Files);
    }
    return {completed, false, {}, std::move(notices), std::move(m_context.Written)};
  }

 private:
  bool PrepareFiles() {
    m_paths = CombinedPaths(m_request.Destination, m_context.Header.MasterColumnCount, m_context.Project,
                            m_context.Files.Drives());
    return WithRetry(m_context.Boxes, [&] { CheckRunPaths(m_paths, m_context.Project, m_context.Files); }) &&
           m_context.Master.WriteHeader(m_paths.Master, m_context.Header);
  }

  bool ReadNames() {
    return WithRetry(m_context.Boxes, [&] { m_context.Subjects.UseNames(m_request.Subjects.FileNames); });
  }

  bool WriteRows() {
    int number = 0;
    for (const NominalGroup& group : m_request.Plan.Groups) {
      const std::string label = GroupLabel(++number, IdsOf(group));
      if (!PoolAndScore(group, label)) return false;
      BuildGroupRow(label, m_request.Separator, group.Level, m_context.Project, m_request.Selection, m_context.Scores,
                    m_context.Row);
      if (!m_context.Master.WriteRow(m_context.Row)) return false;
      m_context.Bar.Show(static_cast<std::size_t>(number));
    }
    return true;
  }

  [[nodiscard]] std::vector<std::string> IdsOf(const NominalGroup& group) const {
    std::vector<std::string> ids;
    for (const std::size_t member : group.Members) ids.push_back(m_request.Subjects.SubjectIds[member]);
    return ids;
  }

  // An overflow in a group is not the fault of a single member: after a Retry all are read again.
  bool PoolAndScore(const NominalGroup& group, const std::string& label) {
    bool pooled = false;
    const auto poolAndScore = [&] {
      pooled = Pool(group);
      if (pooled) ScoreSubject(m_recall.Pooled(), m_context.Project, m_context.Header.Families, m_context.Scores);
    };
    return WithRunRetry(m_context.Boxes, poolAndScore, [&] { return label; }) && pooled;
  }

  bool Pool(const NominalGroup& group) {
    m_recall.Reset();
    for (const std::size_t member : group.Members) {
      const int k = static_cast<int>(member) + 1;
      const auto readAndAdd = [&] {
        m_context.Subjects.Read(k, m_context.Record);
        m_recall.Add(m_context.Record.Lists);
      };
      if (!WithRunRetry(m_context.Boxes, readAndAdd, [&] { return m_context.Subjects.Where(k); })) return false;
    }
    return true;
  }

  const CombinedRequest& m_request;
  RunContext m_context;
  RunPaths m_paths;
  GroupRecall m_recall;
};

}  // namespace

MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform) {
  return CombinedRun(project, request, platform).Run();
}

}  // namespace zova
