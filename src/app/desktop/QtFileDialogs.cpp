// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/QtFileDialogs.h"

#include <QDir>
#include <QFileDialog>

#include "app/widgets/Controls.h"

namespace zova {
namespace {

// Captions contain their own wildcard in brackets. Qt reads the last pair as the patterns and hides only that. "*.*"
// means every file, also one without a point in its name.
QStringList FilterTexts(const std::vector<FileFilter>& filters) {
  QStringList texts;
  for (const FileFilter& filter : filters) {
    texts << ToQt(filter.Caption + " (" + (filter.Pattern == "*.*" ? "*" : filter.Pattern) + ")");
  }
  return texts;
}

// The directory as spelt on the disk, or the dialog's default.
QString StartDirectory(Disk& disk, const std::string& path) {
  try {
    return ToQt(NativeText(disk.Resolve(path, FileOperation::List)));
  } catch (const FileError&) {
    return {};
  }
}

// "pdf" for the filter of "*.pdf"; "" for that of all files. A dialog that hides the patterns names a filter without
// them.
QString EndingOf(const FileQuestion& question, const QStringList& filters, const QString& filter) {
  for (std::size_t place = 0; place < question.Filters.size(); ++place) {
    const auto& [caption, pattern] = question.Filters[place];
    if (filter != filters[static_cast<qsizetype>(place)] && filter != ToQt(caption)) continue;
    return pattern.starts_with("*.") && pattern != "*.*" ? ToQt(pattern.substr(2)) : QString();
  }
  return {};
}

}  // namespace

std::optional<std::string> QtFileDialogs::ChooseFile(const FileQuestion& question) { return Ask(question, false); }

std::optional<std::string> QtFileDialogs::ChooseNewFile(const FileQuestion& question) { return Ask(question, true); }

std::optional<std::string> QtFileDialogs::Ask(const FileQuestion& question, bool isNew) {
  const QtDesktop::Pause pause(m_desktop);
  QFileDialog dialog(pause.Window(), ToQt(question.Title), StartDirectory(m_disk, question.Directory));
  dialog.setFileMode(isNew ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setAcceptMode(isNew ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
#if !defined(Q_OS_WIN) && !defined(Q_OS_MACOS)
  dialog.setOption(QFileDialog::DontUseNativeDialog);  // native dialogs of Linux cut the captions at the first bracket
#endif
  const QStringList filters = FilterTexts(question.Filters);
  dialog.setNameFilters(filters);
  if (isNew) {
    dialog.selectFile(ToQt(question.Name));
    const auto follow = [&](const QString& filter) { dialog.setDefaultSuffix(EndingOf(question, filters, filter)); };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    follow(filters.value(0));
  }
  if (dialog.exec() != QFileDialog::Accepted || dialog.selectedFiles().isEmpty()) return std::nullopt;
  return m_disk.Drives().ToDrivePath(FromQt(QDir::toNativeSeparators(dialog.selectedFiles().constFirst())));
}

}  // namespace zova
