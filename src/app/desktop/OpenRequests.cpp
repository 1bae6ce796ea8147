// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/desktop/OpenRequests.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QSaveFile>
#include <QThread>
#include <utility>

#include "app/widgets/Controls.h"

#ifdef Q_OS_WIN
#include "platform/files/WindowsFiles.h"
#endif

namespace zova {

namespace {
constexpr int kPause = 20;  // milliseconds
}  // namespace

OpenRequests::OpenRequests(const QString& directory)
    : m_directory(directory), m_file(QDir(directory).filePath("Open Project.txt")) {
  connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &OpenRequests::Look);
}

bool OpenRequests::Send(const std::string& paramDir, const std::string& projectFile, int patience) {
#ifdef Q_OS_WIN  // only the program that the user has just started may hand the foreground on
  AllowSetForegroundWindow(ASFW_ANY);
#endif
  QSaveFile file(m_file);
  if (!file.open(QIODevice::WriteOnly)) return false;
  file.write(QByteArray::fromStdString(paramDir + "\n" + projectFile));
  if (!file.commit()) return false;
  for (QDeadlineTimer deadline(patience); !deadline.hasExpired(); QThread::msleep(kPause)) {
    if (!QFile::exists(m_file)) return true;
  }
  return !QFile::remove(m_file);  // taken at the last moment
}

void OpenRequests::Listen(OpenRequestActs acts) {
  m_acts = std::move(acts);
  QDir().mkpath(m_directory);
  m_watcher.addPath(m_directory);
}

void OpenRequests::Look() {
  QFile file(m_file);
  if (!file.open(QIODevice::ReadOnly)) return;
  const QList<QByteArray> lines = file.readAll().split('\n');
  file.close();
  const bool isOurs = lines.size() == 2 && lines.front().toStdString() == m_acts.ParamDir();
  if (!isOurs || !m_acts.MayOpen() || !QFile::remove(m_file)) return;
  m_acts.Open(lines.back().toStdString());
}

}  // namespace zova
