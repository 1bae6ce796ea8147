// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/DirectoryRules.h"
#include "project/wizard/WizardPages.h"
#include "text/Encoding.h"

namespace zova {

namespace {

constexpr const char* kInvalidPrimary = "Invalid Primary directory name.";

bool IsDriveReady(const std::string& directory, Disk& disk) {
  try {
    return disk.DirectoryExists(DriveRoot(directory));
  } catch (const FileError&) {
    return false;
  }
}

// Checks the directory of `box` and creates it if necessary.
WizardFault CheckDirectory(WizardBox box, const char* invalidText, WizardState& state, const Platform& platform) {
  std::string& directory = state.Entries.Text(box);
  if (!HasDrive(directory)) return Refuse(platform, kNoDrivePath, box);
  if (!IsDriveReady(directory, platform.Files)) return Refuse(platform, kDriveNotReady, box);
  try {
    if (!HasValidComponents(directory) || platform.Files.FileExists(directory))
      return Refuse(platform, invalidText, box);
    if (ExistsOrIsCreated(directory, platform.Files, platform.Boxes)) return std::nullopt;
  } catch (const FileError& error) {
    return Refuse(platform, invalidText, box, error);
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

WizardFault CheckPair(const std::string& primary, const std::string& backup, const Platform& platform) {
  try {
    if (platform.Files.IsSame(primary, backup)) {
      return Refuse(platform, kBackupIsPrimary, WizardBox::Backup);
    }
  } catch (const FileError& error) {
    return Refuse(platform, kInvalidBackup, WizardBox::Backup, error);
  }
  const bool onOneDrive = EqualsIgnoringCase(DriveRoot(primary), DriveRoot(backup));
  if (onOneDrive && WishesToChange(platform.Boxes)) return WizardBox::Backup;
  return std::nullopt;
}

}  // namespace

WizardFault LeaveDirectoriesPage(WizardState& state, const Platform& platform) {
  const DriveMap& drives = platform.Files.Drives();
  std::string& primary = state.Entries.Text(WizardBox::Primary);
  primary = drives.StoredDirectory(primary);
  if (IsNoDirectory(primary)) return Refuse(platform, "You must have a primary path.", WizardBox::Primary);
  if (auto fault = CheckDirectory(WizardBox::Primary, kInvalidPrimary, state, platform)) return fault;

  std::string& backup = state.Entries.Text(WizardBox::Backup);
  backup = drives.StoredDirectory(backup);
  if (IsNoDirectory(backup)) {
    backup = kNoDirectory;
  } else {
    if (auto fault = CheckDirectory(WizardBox::Backup, kInvalidBackup, state, platform)) return fault;
    if (auto fault = CheckPair(primary, backup, platform)) return fault;
  }
  state.Project.PrimaryDir = primary;
  state.Project.BackupDir = backup;
  return std::nullopt;
}

}  // namespace zova
