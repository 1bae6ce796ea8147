// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QtChoosers.h"

#include <QDir>
#include <QFileDialog>

#include "app/Controls.h"

namespace zova {
namespace {

// Captions carry a wildcard in brackets of their own. Qt takes the last pair for the patterns and, told to hide the
// details, shows what stands before it. "*.*" means every file here, also one without a point in its name.
QStringList FilterTexts(const std::vector<FileFilter>& filters) {
  QStringList texts;
  for (const FileFilter& filter : filters) {
    texts << ToQt(filter.Caption + " (" + (filter.Pattern == "*.*" ? "*" : filter.Pattern) + ")");
  }
  return texts;
}

// As it is spelt on the disk, or where the dialog begins by itself.
QString StartDirectory(Disk& disk, const std::string& path) {
  try {
    return ToQt(PathText(disk.Resolve(path, FileOperation::List)));
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

std::optional<std::string> QtChoosers::ChooseFile(const FileQuestion& question) {
  const QtDesktop::Pause pause(m_desktop);
  QFileDialog dialog(pause.Window(), ToQt(question.Title), StartDirectory(m_disk, question.Directory));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
  dialog.setOption(QFileDialog::DontUseNativeDialog);  // those of Linux cut the captions at their first bracket
#endif
  dialog.setNameFilters(FilterTexts(question.Filters));
  if (dialog.exec() != QFileDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return m_disk.Drives().ToDrivePath(FromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst())));
}

}  // namespace zova
