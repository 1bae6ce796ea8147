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

/// A list of drives above a list of directories. A double click, Enter or Space opens the highlighted directory;
/// Backspace or Left the one above the open directory. Arrows and typed letters only move the highlight. Choosing the
/// drive that is shown changes nothing.
class DriveDirectoryList : public QWidget {
  Q_OBJECT

 public:
  /// Shows `browser`, which must outlive it; the two lists get the given names.
  DriveDirectoryList(DirectoryBrowser& browser, const char* driveName, const char* directoryName,
                     QWidget* parent = nullptr);

  /// Puts a label above each list; their texts bring their access keys.
  void SetLabels(const char* driveLabelName, const QString& driveText, const char* directoryLabelName,
                 const QString& directoryText);
  /// Shows what the browser holds. The highlight stays while that is unchanged.
  void Refresh();
  /// Where the cursor goes that is put into the two lists.
  [[nodiscard]] QWidget* DriveList() const;

 signals:
  /// The user opened a drive or a directory. Refresh is done, and is never the cause.
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
  std::vector<std::string> m_shownPaths;  // one for each row of the list; the open directory's comes last
  std::string m_shownPath;
};

}  // namespace zova
