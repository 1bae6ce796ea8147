// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QWidget>
#include <string>
#include <vector>

#include "platform/desktop/DirectoryBrowser.h"

class QComboBox;
class QListWidget;
class QVBoxLayout;

namespace zova {

/// A list of drives above a list of directories. A double click, Enter or Space opens the highlighted directory,
/// Backspace or Left the parent of the open one. Arrows and typed letters only move the highlight. Choosing the current
/// drive has no effect.
class DriveDirectoryList : public QWidget {
  Q_OBJECT

 public:
  /// Shows `browser`, which must outlive it, in two lists with the given names.
  DriveDirectoryList(DirectoryBrowser& browser, const char* driveName, const char* directoryName,
                     QWidget* parent = nullptr);

  /// Puts a label above each list; the texts contain the access keys.
  void SetLabels(const char* driveLabelName, const QString& driveText, const char* directoryLabelName,
                 const QString& directoryText);
  /// Shows the browser's content. Keeps the highlight while that is unchanged.
  void Refresh();
  /// The list that gets the focus first.
  [[nodiscard]] QWidget* DriveList() const;

 signals:
  /// The user opened a drive or a directory. Emitted after Refresh, never because of it.
  void Acted();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Answer(bool opened);
  void Fill();

  DirectoryBrowser& m_browser;
  QVBoxLayout* m_rows;
  QComboBox* m_drives;
  QListWidget* m_directories;
  std::vector<char> m_shownDrives;
  std::vector<std::string> m_shownPaths;  // one per row of the list; the open directory's is last
  std::string m_shownPath;
};

}  // namespace zova
