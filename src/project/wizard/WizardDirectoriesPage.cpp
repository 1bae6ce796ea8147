// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"
#include "project/wizard/WizardPages.h"
#include "text/Encoding.h"

namespace zova {

namespace {

constexpr const char* kInvalidPrimary = "Invalid Primary directory name.";
constexpr const char* kInvalidBackup = "Invalid Backup directory name.";

bool IsDriveReady(const std::string& directory, Disk& disk) {
  try {
    return disk.DirectoryExists(DriveRoot(directory));
  } catch (const FileError&) {
    return false;
  }
}

// Whether the directory of `box` is there when this returns; if need be it was created.
WizardFault CheckDirectory(WizardBox box, const char* invalidText, WizardState& state, const WizardTools& tools) {
  std::string& directory = state.Entries.Text(box);
  if (!HasDrive(directory)) return Refuse(tools, "Invalid format. Please redo.", box);
  if (!IsDriveReady(directory, tools.Files)) return Refuse(tools, kDriveNotReady, box);
  try {
    if (!HasValidComponents(directory) || tools.Files.FileExists(directory)) return Refuse(tools, invalidText, box);
    if (ExistsOrIsCreated(directory, tools.Files, tools.Boxes)) return std::nullopt;
  } catch (const FileError&) {
    return Refuse(tools, invalidText, box);
  }
  directory = kNoDirectory;
  return box;
}

bool WishesToChange(MessageBoxes& boxes) {
  return boxes.Show({.Text = "It is recommended that you save the information to different drives.  Do you wish to "
                             "change a directory?",
                     .Icon = BoxIcon::Exclamation,
                     .Buttons = BoxButtons::YesNoCancel,
                     .Default = BoxAnswer::Yes}) != BoxAnswer::No;
}

WizardFault CheckPair(const std::string& primary, const std::string& backup, const WizardTools& tools) {
  try {
    if (tools.Files.IsSame(primary, backup)) {
      return Refuse(tools, "The primary and backup directories cannot be the same.", WizardBox::Backup);
    }
  } catch (const FileError&) {
    return Refuse(tools, kInvalidBackup, WizardBox::Backup);
  }
  const bool onOneDrive = EqualsIgnoringCase(DriveRoot(primary), DriveRoot(backup));
  if (onOneDrive && WishesToChange(tools.Boxes)) return WizardBox::Backup;
  return std::nullopt;
}

}  // namespace

WizardFault LeaveDirectoriesPage(WizardState& state, const WizardTools& tools) {
  const DriveMap& drives = tools.Files.Drives();
  std::string& primary = state.Entries.Text(WizardBox::Primary);
  primary = DirectoryFromText(primary, drives);
  if (IsNoDirectory(primary)) return Refuse(tools, "You must have a primary path.", WizardBox::Primary);
  if (auto fault = CheckDirectory(WizardBox::Primary, kInvalidPrimary, state, tools)) return fault;

  std::string& backup = state.Entries.Text(WizardBox::Backup);
  backup = DirectoryFromText(backup, drives);
  if (IsNoDirectory(backup)) {
    backup = kNoDirectory;
  } else {
    if (auto fault = CheckDirectory(WizardBox::Backup, kInvalidBackup, state, tools)) return fault;
    if (auto fault = CheckPair(primary, backup, tools)) return fault;
  }
  state.Project.PrimaryDir = primary;
  state.Project.BackupDir = backup;
  return std::nullopt;
}

}  // namespace zova
