// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOpening.h"

namespace zova {

bool MayOpenProject(const ProjectParameters& project, MessageBoxes& boxes) {
  if (project.FormatMarker != kBackupMarker) return true;
  boxes.Show({.Text = "You cannot use the backup parameters to open this project.  If the proper project file does not "
                      "exist in the 'Param' folder then you must first use the 'Restore From Backup' feature on the "
                      "'Tools' menu.",
              .Icon = BoxIcon::Exclamation});
  return false;
}

}  // namespace zova
