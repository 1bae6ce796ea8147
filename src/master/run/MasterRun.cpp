// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/MasterRun.h"

#include <algorithm>
#include <functional>

#include "master/run/RunContext.h"
#include "master/run/RunExports.h"
#include "master/run/RunRetry.h"
#include "master/run/RunStart.h"
#include "scoring/ScoreSubject.h"
#include "text/Counted.h"

namespace zova {

namespace {

void AddName(std::string& list, const char* opening, const std::string& name) {
  list += list.empty() ? opening : ", ";
  list += name;
}

class IndividualRun {
 public:
  IndividualRun(const ProjectParameters& project, const MasterRequest& request, const Platform& platform)
      : m_request(request),
        m_context(project, request.Selection, request.SubjectFileCount, platform),
        m_exports(m_context) {
    m_serialCounts.Reset(project.ItemCount, project.TestCount);
  }

  MasterRunResult Run() {
    const bool isWhole = BuildHeader(m_context.Project, m_request.Selection, MasterKind::Individual, m_context.Boxes,
                                     m_context.Header) &&
                         PrepareFiles() && WriteHeaders() && ListSubjects() && WriteRows() && m_context.Master.Close();
    const bool completed = isWhole && m_exports.Close() && (!m_request.Order || WriteSerialPositions());
    if (isWhole) {
      m_notices.OlderPieces =
          OlderPieces(ResultFile::Master, m_paths.Master.Pieces.size(), m_context.Project, m_context.Files);
      m_notices.ListsWithoutOrder = m_exports.ListsWithoutOrder();
      m_notices.DanglingLinks = DanglingSubjectLinks(m_context.Project, m_context.Files);
    }
    return {completed, isWhole, m_rowCount, std::move(m_notices), std::move(m_context.Written)};
  }

 private:
  bool ListSubjects() {
    return WithRetry(m_context.Boxes, [&] { m_context.Subjects.List(m_request.SubjectFileCount); });
  }

  bool PrepareFiles() {
    const bool hasFurther = m_request.Further != FurtherColumns::None;
    const auto readData = [&] { m_data = ReadFurtherData(m_context.Files, m_context.Project, m_request.Order); };
    if ((m_request.LongFile || hasFurther) && !WithRetry(m_context.Boxes, readData)) return false;
    WarnOfFaults(m_data, m_context.Boxes);
    if (hasFurther) m_further.emplace(m_data, m_request.Further);
    m_paths =
        IndividualPaths(m_request, m_context.Header.MasterColumnCount, m_context.Project, m_context.Files.Drives());
    m_exports.Open(m_paths, m_request.Further, m_data);
    return WithRetry(m_context.Boxes, [&] { CheckRunPaths(m_paths, m_context.Project, m_context.Files); });
  }

  // A device shows only when it is written to whether it takes anything: devices come before any file is emptied, and
  // the CSV files before the master.
  bool WriteHeaders() {
    struct Target {
      std::string Path;
      std::function<bool()> WriteHeader;
      bool IsDevice = false;
    };
    std::vector<Target> targets = {{m_paths.Clean, [&] { return m_exports.WriteCleanHeader(); }},
                                   {m_paths.Long, [&] { return m_exports.WriteLongHeader(); }},
                                   {m_paths.Master.Header, [&] { return WriteMasterHeader(); }}};
    const auto findDevices = [&] {
      for (Target& target : targets) target.IsDevice = !target.Path.empty() && m_context.Files.IsDevice(target.Path);
    };
    if (!WithRetry(m_context.Boxes, findDevices)) return false;
    std::stable_partition(targets.begin(), targets.end(), [](const Target& target) { return target.IsDevice; });
    for (const Target& target : targets) {
      if (target.WriteHeader()) continue;
      if (target.IsDevice) m_rowCount.reset();  // the master's file is as it was
      return false;
    }
    return true;
  }

  // The master's files are named before the others, whenever they are written.
  bool WriteMasterHeader() {
    std::vector<ResolvedPath>& written = m_context.Written;
    const auto others = static_cast<std::ptrdiff_t>(written.size());
    m_rowCount = 0;
    const bool isWritten = m_context.Master.WriteHeader(m_paths.Master, m_context.Header);
    std::rotate(written.begin(), written.begin() + others, written.end());
    return isWritten;
  }

  bool WriteRows() {
    for (int k = 1; k <= m_request.SubjectFileCount; ++k) {
      const auto where = [&] { return m_context.Subjects.Where(k); };
      bool isInOrder = true;
      const auto readAndScore = [&] { isInOrder = ReadAndScore(k); };
      if (!WithRunRetry(m_context.Boxes, readAndScore, where)) return false;
      if (!isInOrder) {
        if (!TakeBackRows()) return false;
        k = 0;
        continue;
      }
      if (!m_context.Master.WriteRow(m_context.Row)) return false;
      m_rowCount = k;
      const std::string id = m_context.Subjects.SubjectId(k);
      if (!HandOn({id, m_context.Record, m_context.Scores, m_context.Row, m_furtherScores})) return false;
      NoteSubject(id, m_context.Scores, m_context.Subjects.Oddities(), m_notices);
      if (m_request.Order) {
        AccumulateSerialPositions(ListsOfTrueItems(m_context.Record.Lists, m_context.Project, m_context.Scores),
                                  *m_request.Order, m_serialCounts);
      }
      m_context.Bar.Show(static_cast<std::size_t>(k));
    }
    return true;
  }

  // Missing subjects are back that stand before others in the listing, and so in the master.
  bool TakeBackRows() {
    m_rowCount = 0;
    m_notices = {};
    m_serialCounts.Reset(m_context.Project.ItemCount, m_context.Project.TestCount);
    if (m_request.Sink != nullptr) m_request.Sink->Restart();
    return m_context.Master.TakeBackRows() && m_exports.TakeBackRows();
  }

  bool ReadAndScore(int k) {
    RunContext& run = m_context;
    if (!run.Subjects.Read(k, run.Record)) return false;
    ScoreSubject(run.Record.Lists, run.Project, run.Header.Families, run.Scores);
    if (m_further) m_furtherScores = &m_further->Score(run.Subjects.SubjectId(k), run.Record.Lists);
    BuildMasterRow(run.Subjects.SubjectId(k), run.Record.Levels, run.Project, m_request.Selection, run.Scores, run.Row);
    return true;
  }

  bool HandOn(const ScoredSubject& subject) {
    return m_exports.WriteRows(subject) && (m_request.Sink == nullptr || m_request.Sink->Add(subject));
  }

  bool WriteSerialPositions() {
    const std::string content =
        FormatSerialPositionMaster(m_serialCounts, m_context.Project.TestCount, m_request.SubjectFileCount);
    return WriteRunFile(m_paths.Serial, content, m_context.Files, m_context.Boxes, m_context.Written);
  }

  const MasterRequest& m_request;
  RunContext m_context;
  RunPaths m_paths;
  FurtherData m_data;
  std::optional<FurtherScorer> m_further;
  const FurtherScores* m_furtherScores = nullptr;  // of the last subject read
  RunExports m_exports;
  MasterNotices m_notices;
  std::optional<int> m_rowCount;
  SerialCounts m_serialCounts;
};

}  // namespace

MasterRunResult CreateMasters(const ProjectParameters& project, const MasterRequest& request,
                              const Platform& platform) {
  return IndividualRun(project, request, platform).Run();
}

std::string MissingOrderText(const MasterNotices& notices) {
  if (notices.ListsWithoutOrder == 0) return "";
  return "The study order of " + Counted(notices.ListsWithoutOrder, "list", "lists") +
         " in the CSV of all recalls is not known: serial measures of other programs would follow the item numbers.";
}

void AddOlderPieces(const MasterNotices& combined, MasterNotices& notices) {
  notices.OlderPieces.insert(notices.OlderPieces.end(), combined.OlderPieces.begin(), combined.OlderPieces.end());
}

void NoteSubject(const std::string& id, const ScoringArrays& scores, const SubjectOddities& oddities,
                 MasterNotices& notices) {
  if (scores.Categories.AnyArcFailed) {
    AddName(notices.ArcFailureList,
            "For at least 1 test, the ARC score was unable to be calculated for subject(s): ", id);
  }
  if (scores.Itr.AnyItrFailed) {
    AddName(notices.BiItrFailureList,
            "For at least 1 test, Bi-Directional ITR was unable to be calculated for subject(s): ", id);
  }
  if (oddities.TextReadAsZero) {
    AddName(notices.TextReadAsZeroList, "Text stood where numbers belong, and was read as 0, for subject(s): ", id);
  }
  if (oddities.BlankInside) AddName(notices.BlankInsideList, "An item 0 stands inside a list of subject(s): ", id);
}

std::vector<std::string> MasterWarnings(const MasterNotices& notices) {
  std::vector<std::string> warnings;
  for (const std::string& list : {notices.ArcFailureList, notices.BiItrFailureList}) {
    if (!list.empty()) warnings.push_back(list + ".  You should delete these subjects before analysis.");
  }
  std::string pieces, links;
  for (const std::string& name : notices.OlderPieces) {
    AddName(pieces, "Pieces of an earlier, wider master are still in the primary directory: ", name);
  }
  for (const std::string& name : notices.DanglingLinks)
    AddName(links, "Links that lead to no file were left out: ", name);
  for (const std::string& list : {notices.TextReadAsZeroList, notices.BlankInsideList, pieces, links}) {
    if (!list.empty()) warnings.push_back(list + ".");
  }
  return warnings;
}

void ShowMasterWarnings(const MasterNotices& notices, MessageBoxes& boxes) {
  for (const std::string& warning : MasterWarnings(notices)) Warn(boxes, warning);
}

}  // namespace zova
