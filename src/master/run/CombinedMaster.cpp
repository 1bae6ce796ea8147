// SPDX-License-Identifier: GPL-3.0-or-later
//
// Group members are read one by one and pooled at once, so that memory is limited to one subject's lists and one
// group's recall.

#include "master/run/CombinedMaster.h"

#include "master/exports/GroupsExport.h"
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
        PrepareFiles() && ReadNames() && WriteRows() && m_context.Master.Close() &&
        (!m_groups || m_groups->File.Close());
    MasterNotices notices;
    if (completed) {
      const std::size_t pieces = m_paths.Master.Pieces.size();
      notices.OlderPieces = OlderPieces(ResultFile::CombinedMaster, pieces, m_context.Project, m_context.Files);
    }
    return {completed, false, {}, std::move(notices), std::move(m_context.Written)};
  }

 private:
  bool PrepareFiles() {
    m_paths = CombinedPaths(m_request.Destination, m_request.GroupsFile, m_context.Header.MasterColumnCount,
                            m_context.Project, m_context.Files.Drives());
    return WithRetry(m_context.Boxes, [&] { CheckRunPaths(m_paths, m_context.Project, m_context.Files); }) &&
           m_context.Master.WriteHeader(m_paths.Master, m_context.Header) && PrepareGroups();
  }

  bool PrepareGroups() {
    if (!m_request.GroupsFile) return true;
    const auto readData = [&] { m_data = ReadFurtherData(m_context.Files, m_context.Project, std::nullopt); };
    if (!WithRetry(m_context.Boxes, readData)) return false;
    WarnOfFaults(m_data, m_context.Boxes);
    m_groups.emplace(
        GroupsFile{GroupsExport(m_data), RowFile(m_context.Files, m_context.Boxes, m_context.Written), {}});
    return m_groups->File.WriteHeader({m_paths.Groups, m_paths.Groups, {}}, {m_groups->Lines.Header(), 0, {}});
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
      if (!m_context.Master.WriteRow(m_context.Row) || !WriteGroup(label)) return false;
      m_context.Bar.Show(static_cast<std::size_t>(number));
    }
    return true;
  }

  bool WriteGroup(const std::string& label) {
    if (!m_groups) return true;
    m_groups->Lines.Build(label, m_groups->Row);
    return m_groups->File.WriteRow(m_groups->Row);
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
    if (m_groups) m_groups->Lines.Reset();
    for (const std::size_t member : group.Members) {
      const int k = static_cast<int>(member) + 1;
      const auto readAndAdd = [&] {
        m_context.Subjects.Read(k, m_context.Record);
        if (m_groups) m_groups->Lines.Read(m_context.Subjects.SubjectId(k), m_context.Record.Lists);
        m_recall.Add(m_context.Record.Lists);
        if (m_groups) m_groups->Lines.KeepRead();
      };
      if (!WithRunRetry(m_context.Boxes, readAndAdd, [&] { return m_context.Subjects.Where(k); })) return false;
    }
    return true;
  }

  struct GroupsFile {
    GroupsExport Lines;
    RowFile File;
    std::string Row;
  };

  const CombinedRequest& m_request;
  RunContext m_context;
  RunPaths m_paths;
  GroupRecall m_recall;
  FurtherData m_data;
  std::optional<GroupsFile> m_groups;
};

}  // namespace

MasterRunResult CreateCombinedMaster(const ProjectParameters& project, const CombinedRequest& request,
                                     const Platform& platform) {
  return CombinedRun(project, request, platform).Run();
}

}  // namespace zova
