// SPDX-License-Identifier: GPL-3.0-or-later
//
// A move loses no data whenever it ends: it copies all files, registers the new directory, and only then deletes the
// old files. A move that is cancelled earlier deletes its copies, so that a half-filled directory cannot be mistaken
// for the real one; they stay if the stored setting names them and cannot be set back.

#include "project/ParamLocation.h"

#include <algorithm>
#include <set>
#include <utility>
#include <vector>

#include "platform/desktop/FileErrorBoxes.h"
#include "project/CopyRun.h"
#include "project/DirectoryRules.h"
#include "project/ProjectFile.h"
#include "project/ProjectLayout.h"
#include "text/Encoding.h"

namespace zova {

using Step = LocationOutcome::Step;

namespace {

constexpr const char* kMoved = "'Param' directory successfully moved!";
constexpr const char* kCreated = "'Param' directory successfully created.";
constexpr const char* kRegistered = "'Param' directory successfully registered.";

LocationOutcome CloseWith(std::string text) {
  return {Step::Close, MessageBox{.Text = std::move(text), .Icon = BoxIcon::Information}};
}

template <typename Call>
bool Succeeds(Call&& call) {
  try {
    call();
    return true;
  } catch (const FileError&) {
    return false;
  }
}

}  // namespace

struct ParamLocation::Load {
  std::vector<std::string> Names;
  std::set<std::string> TargetNames;  // upper-cased, before the move
  bool TargetIsNew = false;
};

ParamLocation::ParamLocation(ParamDirectory& param, std::string programDir, const Platform& platform)
    : m_param(param), m_programDir(std::move(programDir)), m_platform(platform) {}

void ParamLocation::Open() {
  m_changes = m_param.Exists();
  m_refusals = 0;
}

std::string ParamLocation::Target(const std::string& text) const {
  const std::string directory = m_platform.Files.Drives().StoredDirectory(text);
  if (IsNoDirectory(directory) || !HasDrive(directory)) return "";
  return ParamDirectoryIn(directory);
}

LocationOutcome ParamLocation::Say(const std::string& text, const std::string& details) {
  Warn(m_platform.Boxes, text, details);
  return {};
}

LocationOutcome ParamLocation::SayInUse(Step next) {
  ReportParamInUse(m_platform.Boxes);
  return {next};
}

bool ParamLocation::CanHold(const std::string& target) {
  return !target.empty() && HasValidComponents(target) && m_platform.Files.DirectoryExists(DriveRoot(target)) &&
         !m_platform.Files.FileExists(target);
}

LocationOutcome ParamLocation::Accept(const std::string& text) {
  NoteOtherAct();
  const std::string target = Target(text);
  const std::string old = m_param.Path();
  bool hasOld = false;
  bool moves = false;
  bool isThere = false;
  bool isOld = false;
  try {
    // Looked for now, since a disk may have come or gone meanwhile. To a move, one that cannot be read is not lost.
    hasOld = m_changes ? m_platform.Files.DirectoryExists(old) : m_param.Exists();
    moves = hasOld && m_changes;
    if (!CanHold(target)) {
      throw FileError(FileOperation::List, target.empty() ? text : target, FileCause::PathNotFound);
    }
    isThere = m_platform.Files.DirectoryExists(target);
    isOld = hasOld && (m_platform.Files.IsSame(target, old) || (moves && m_platform.Files.LiesInside(target, old)));
  } catch (const FileError& error) {
    return Say(kPathNotFound, FaultText(error));
  }
  if (isOld) return Say("This already is the location of the 'Param' folder.");
  if (moves) return Move(old, target);
  if (isThere && !hasOld && m_param.IsRegistered()) return RestoreOrRegister(target);
  return Select(target, isThere);
}

LocationOutcome ParamLocation::Select(const std::string& target, bool isThere) {
  if (!isThere && !CreateParamDirectory(target, m_programDir, m_platform.Files, m_platform.Boxes)) return {};
  if (!m_param.Lock(target)) return SayInUse(m_changes ? Step::Stay : Step::EndProgram);
  if (!WithRetry(m_platform.Boxes, [&] { m_param.Register(target); })) return {};
  return CloseWith(isThere ? kRegistered : kCreated);
}

LocationOutcome ParamLocation::RestoreOrRegister(const std::string& found) {
  const std::string original = m_param.Path();
  const BoxAnswer answer =
      m_platform.Boxes.Show({.Text = "Do you want to restore this directory to the original 'Param' location at: '" +
                                     original + "'?  If you select 'No' then ZOVA will register its current location.",
                             .Icon = BoxIcon::Question,
                             .Buttons = BoxButtons::YesNoCancel,
                             .Default = BoxAnswer::No});
  if (answer == BoxAnswer::Cancel) return {};
  return answer == BoxAnswer::Yes ? Move(found, original) : Select(found, true);
}

LocationOutcome ParamLocation::Move(const std::string& from, const std::string& to) {
  const Step whenInUse = m_changes ? Step::Stay : Step::EndProgram;
  if (!m_param.Lock(from)) return SayInUse(whenInUse);
  Load load;
  const bool listed = WithRetry(m_platform.Boxes, [&] {
    load.TargetIsNew = !m_platform.Files.DirectoryExists(to);
    load.TargetNames.clear();
    for (const std::string& name : m_platform.Files.ListFiles(to, "", "")) load.TargetNames.insert(UpperCase(name));
    load.Names = m_platform.Files.ListFiles(from, "", "");
  });
  const auto makeTarget = [&] { m_platform.Files.CreateDirectories(to); };
  if (!listed || !MayReplace(load) || !WithRetry(m_platform.Boxes, makeTarget)) return {};
  if (!m_param.Lock(to)) return SayInUse(whenInUse);
  const auto registerIt = [&] {
    if (to != m_param.Path()) m_param.Register(to);
  };
  const bool isCopied = CopyFiles(from, to, load);
  if (!isCopied || !WithRetry(m_platform.Boxes, registerIt)) {
    m_param.Unlock();  // before the directory can be deleted
    // While the stored setting may name the copies, they stay.
    if (!isCopied || Succeeds([&] { m_param.KeepRegistration(); })) RollBack(to, load);
    return m_param.Lock(from) ? LocationOutcome{} : SayInUse(Step::EndProgram);
  }
  if (DeleteOld(from, load)) return CloseWith(kMoved);
  return {
      Step::Close,
      MessageBox{.Text = "ZOVA could not delete the old directory.", .Icon = BoxIcon::Exclamation, .Details = from}};
}

// Moved files whose names differ only in case would replace each other's copies.
bool ParamLocation::MayReplace(const Load& load) {
  std::set<std::string> taken = load.TargetNames;
  for (const std::string& name : load.Names) {
    if (taken.insert(UpperCase(name)).second) continue;
    const Question question = {.Text = "The new location already holds '" + name + "'.  Do you wish to replace it?",
                               .Buttons = BoxButtons::YesNo,
                               .Title = "Warning"};
    if (!Confirm(m_platform.Boxes, question)) return false;
  }
  return true;
}

bool ParamLocation::CopyFiles(const std::string& from, const std::string& to, const Load& load) {
  const BusyPointer busy(m_platform.Pointer);
  return CopyFilesByName(from, to, load.Names, m_platform).IsComplete;
}

// All names, since a failed copy may have created its file.
void ParamLocation::RollBack(const std::string& to, const Load& load) {
  const BusyPointer busy(m_platform.Pointer);
  ForEachFile(load.Names, m_platform.Bar, [&](const std::string& name) {
    if (load.TargetNames.count(UpperCase(name)) == 0) Succeeds([&] { m_platform.Files.Delete(JoinPath(to, name)); });
  });
  if (load.TargetIsNew) Succeeds([&] { m_platform.Files.RemoveDirectory(to); });
}

bool ParamLocation::DeleteOld(const std::string& from, const Load& load) {
  const BusyPointer busy(m_platform.Pointer);
  ForEachFile(load.Names, m_platform.Bar,
              [&](const std::string& name) { Succeeds([&] { m_platform.Files.Delete(JoinPath(from, name)); }); });
  return Succeeds([&] { m_platform.Files.RemoveDirectory(from); });
}

LocationOutcome ParamLocation::Refuse(const MessageBox& message) {
  if (m_param.Exists()) return m_param.Lock(m_param.Path()) ? LocationOutcome{Step::Close} : SayInUse(Step::EndProgram);
  m_platform.Boxes.Show(message);
  return {++m_refusals < 2 ? Step::Stay : Step::EndProgram};
}

LocationOutcome ParamLocation::Cancel() {
  return Refuse({.Text = "You cannot continue using ZOVA without selecting a location for the 'Param' Directory.",
                 .Icon = BoxIcon::Critical});
}

LocationOutcome ParamLocation::Close() {
  return Refuse({.Text = "You cannot use ZOVA without selecting a location for the param directory.",
                 .Icon = BoxIcon::Exclamation});
}

bool CreateParamDirectory(const std::string& path, const std::string& programDir, Disk& disk, MessageBoxes& boxes) {
  bool isThere = false;
  if (!WithRetry(boxes, [&] { isThere = disk.DirectoryExists(path); })) return false;
  if (isThere) return true;
  return WithRetry(boxes, [&] { disk.CreateDirectories(path); }) && WriteExampleProject(path, programDir, disk, boxes);
}

}  // namespace zova
