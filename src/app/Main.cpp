// SPDX-License-Identifier: GPL-3.0-or-later

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QTimer>

#include "app/MainWindow.h"
#include "app/desktop/HelpWindow.h"
#include "app/desktop/QtDesktop.h"
#include "app/desktop/QtFileDialogs.h"
#include "app/desktop/QtMessageBoxes.h"
#include "app/desktop/QtSettings.h"
#include "app/desktop/QuickHelpFilter.h"
#include "app/screens/ProgressPanel.h"
#include "app/widgets/Controls.h"
#include "session/Version.h"

namespace zova {
namespace {

// The directory of help and example: beside `bin` in an installation, beside the program in a build folder.
std::string InstalledData() {
  const QDir programs(QCoreApplication::applicationDirPath());
  const QString installed = QDir::cleanPath(programs.filePath("../share/zova"));
  return FromQt(QFileInfo(installed).isDir() ? installed : programs.filePath("share/zova"));
}

std::string ProgramDirectoryPath() {
#ifdef Q_OS_WIN
  return FromQt(QDir::toNativeSeparators(QCoreApplication::applicationDirPath()));
#else
  return "C:\\ZOVA";
#endif
}

int RunApplication(QApplication& application) {
  NativeFileLayer layer;
  Disk disk(layer, DriveMap::FromEnvironment());
  QtDesktop desktop;
  QtMessageBoxes boxes(desktop);
  QtFileDialogs dialogs(disk, desktop);
  QtSettings settings;
  HelpWindow help(disk);
  QtProgress progress;
  Session session({disk, boxes, dialogs, settings, desktop, help, progress}, ProgramDirectoryPath(), InstalledData());
  session.Prepare();  // so that the window opens with its first screen
  MainWindow window(session, progress);
  boxes.SetBeforeShow([&window] { window.Refresh(); });

  application.installEventFilter(new QuickHelpFilter(&application));
  QObject::connect(&window, &MainWindow::Ended, &application, [] { QCoreApplication::exit(); });
  window.show();
  // After the window's first events, so that a box at start-up appears in front of a window that is in place.
  QTimer::singleShot(50, &window, &MainWindow::Start);
  return QApplication::exec();
}

}  // namespace
}  // namespace zova

int main(int argc, char** argv) {
  QCoreApplication::setOrganizationName("ZOVA");
  QCoreApplication::setApplicationName("Dorvan's ZOVA");
  QCoreApplication::setApplicationVersion(zova::kVersion);
  QApplication application(argc, argv);
  QApplication::setDesktopFileName("zova");
  QApplication::setWindowIcon(QIcon(":/icons/zova.svg"));
  return zova::RunApplication(application);
}
