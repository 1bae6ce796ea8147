// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFileSystemWatcher>
#include <QString>
#include <functional>
#include <string>

namespace zova {

/// What the running copy does about requests.
struct OpenRequestActs {
  std::function<std::string()> ParamDir;  ///< the Param directory in use now
  std::function<bool()> MayOpen;          ///< false: the request is left to whoever made it
  std::function<void(const std::string& projectFile)> Open;
};

/// One copy of the program asks another, of the same user on the same computer, to open a project. The request is a
/// file of two lines, Param directory and project, in the directory of the settings. The copy that uses that Param
/// removes it and acts; a request that no one removes is withdrawn.
class OpenRequests : public QObject {
  Q_OBJECT

 public:
  explicit OpenRequests(const QString& directory);
  /// True when another copy took the request within `patience` milliseconds.
  bool Send(const std::string& paramDir, const std::string& projectFile, int patience = 2000);
  void Listen(OpenRequestActs acts);

 private:
  void Look();

  QString m_directory;
  QString m_file;
  QFileSystemWatcher m_watcher;
  OpenRequestActs m_acts;
};

}  // namespace zova
