// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the screen of differences makes of its lines: the subject, checked and saved.

#include <utility>

#include "compare/EntrySettlement.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "project/FileChanges.h"
#include "project/ProjectLayout.h"
#include "subjects/SubjectFile.h"
#include "subjects/SubjectListing.h"
#include "subjects/entry/CompletionChecks.h"

namespace zova {

SubjectRecord EntrySettlement::Result() const {
  SubjectRecord result;
  result.SubjectId = m_first.SubjectId;
  ResetLists(result, *m_project);
  int test = 0;
  int position = 0;
  for (const Line& line : m_lines) {
    if (line.Test == 0) {
      result.Levels[line.Variable] = line.Result.front().Item;
      continue;
    }
    if (std::exchange(test, line.Test) != line.Test) position = 0;
    for (const Recall& recall : line.Result) {
      if (position == m_project->ItemCount) break;  // FitsInTheLists refuses it
      result.Lists.At(test, ++position) = recall;
      if (recall.Item >= 1) ++result.Lists.RecallCount(test);
    }
  }
  return result;
}

EntrySettlement::Spot EntrySettlement::SpotOf(int test, int position) const {
  auto left = static_cast<std::size_t>(position) - 1;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (m_lines[line].Test != test) continue;
    if (left < m_lines[line].Result.size()) return {line, left};
    left -= m_lines[line].Result.size();
  }
  return {m_current, 0};
}

bool EntrySettlement::FitsInTheLists() {
  int test = 0;
  std::size_t count = 0;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (std::exchange(test, m_lines[line].Test) != m_lines[line].Test) count = 0;
    count += m_lines[line].Result.size();
    if (test == 0 || count <= static_cast<std::size_t>(m_project->ItemCount)) continue;
    GoTo(line);
    Warn(m_platform.Boxes,
         "The result of test " + std::to_string(test) + " has more lines than the project has items.");
    return false;
  }
  return true;
}

// What the checks find is corrected here, in the result.
bool EntrySettlement::PassesTheChecks(const SubjectRecord& result) {
  RecallLists lists = result.Lists;
  CheckResult checked = CheckLists(lists, *m_project);
  for (const CheckFinding& warning : checked.Warnings) {
    const MessageBox box{warning.Message, BoxIcon::Exclamation, BoxButtons::YesNo, BoxAnswer::Yes, "Warning"};
    if (m_platform.Boxes.Show(box) != BoxAnswer::Yes) continue;
    GoTo(SpotOf(warning.Test, warning.Position).Line);
    return false;
  }
  std::optional<std::size_t> duplicate;
  if (!checked.Fault) {
    checked.Fault = RemoveFirstDuplicate(lists);
    if (checked.Fault) {
      const Spot spot = SpotOf(checked.Fault->Test, checked.Fault->Position);
      duplicate = spot.Line;
      Keep({spot.Line});
      auto& recalls = m_lines[spot.Line].Result;
      recalls.erase(recalls.begin() + static_cast<std::ptrdiff_t>(spot.Index));
    }
  }
  if (checked.Fault) {
    GoTo(duplicate ? *duplicate : SpotOf(checked.Fault->Test, checked.Fault->Position).Line);
    m_platform.Pointer.Beep();
    Warn(m_platform.Boxes, checked.Fault->Message);
    return false;
  }
  const auto finding = FindOutOfRange(result, *m_project);
  return !finding ||
         Confirm(m_platform.Boxes, {.Text = finding->Message, .Buttons = BoxButtons::YesNo, .Title = "Warning"});
}

// nullopt when the data have changed since they were read.
std::optional<FileChanges> EntrySettlement::Plan(const std::string& content) const {
  FileChanges changes{"Settling subject '" + m_first.SubjectId + "'", {}};
  SubjectListing listing;  // the primary directory's comes first
  bool isUnchanged = true;
  for (const std::string& root : {m_project->PrimaryDir, m_project->BackupDir}) {
    const bool inBackup = !changes.Files.empty();
    if (inBackup && IsNoDirectory(root)) continue;
    listing = SubjectListing(m_platform.Files, *m_project, SubjectDirectory(root), listing.Subjects());
    const auto add = [&](SubjectPlace place, const std::string& after) {
      auto before = ReadIfThere(m_platform.Files, listing.File(place, m_file));
      if (place == SubjectPlace::First && before) return;  // it stays as it was typed
      if (place == SubjectPlace::Complete && !inBackup) isUnchanged = before == m_presentBytes;
      changes.Files.push_back({.InBackup = inBackup,
                               .Name = PlaceName(place, listing.Name(place, m_file)),
                               .Before = std::move(before),
                               .After = after});
    };
    add(SubjectPlace::First, m_firstBytes);
    add(SubjectPlace::Complete, content);
    add(SubjectPlace::Settled, m_secondBytes);
  }
  return isUnchanged ? std::optional(std::move(changes)) : std::nullopt;
}

bool EntrySettlement::Settle() {
  if (!IsOpen()) return false;
  if (OpenCount() > 0) {
    GoToNext();
    Warn(m_platform.Boxes, "The differences that are left have to be settled first.", OpenCaption() + ".");
    return false;
  }
  if (!FitsInTheLists()) return false;
  const SubjectRecord result = Result();
  if (!PassesTheChecks(result) || !FinishInterruptedChanges(*m_project, m_platform)) return false;
  const std::string content = FormatSubject(result, *m_project);
  if (WasSettled() && content != m_presentBytes &&
      !Confirm(m_platform.Boxes, {.Text = "This subject was settled before.  Do you wish to replace the settled data?",
                                  .Buttons = BoxButtons::YesNo,
                                  .Title = "Warning"})) {
    return false;
  }
  std::optional<FileChanges> changes;
  if (!WithRetry(m_platform.Boxes, [&] { changes = Plan(content); })) return false;
  if (!changes) {
    Warn(m_platform.Boxes,
         "The data have changed on the disk since they were read.  Close this screen and open it again.");
    return false;
  }
  if (!MakeChanges(*changes, *m_project, m_platform)) return false;
  Inform(m_platform.Boxes, "Completed subject saved.");
  return true;
}

}  // namespace zova
