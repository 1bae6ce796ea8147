// SPDX-License-Identifier: GPL-3.0-or-later

#include <QDir>
#include <QFileInfo>
#include <QIcon>
#include <QSettings>
#include <QTimer>

#include "app/MainWindow.h"
#include "app/desktop/Application.h"
#include "app/desktop/HelpWindow.h"
#include "app/desktop/QtDesktop.h"
#include "app/desktop/QtFileDialogs.h"
#include "app/desktop/QtMessageBoxes.h"
#include "app/desktop/QuickHelpFilter.h"
#include "app/desktop/Style.h"
#include "app/screens/ProgressPanel.h"
#include "app/widgets/Controls.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/FileSettings.h"
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

// The INI file of the user's configuration directory, under the application's name.
std::string SettingsFile() {
  const QSettings settings(QSettings::IniFormat, QSettings::UserScope, "ZOVA", "Dorvan's ZOVA");
  return FromQt(settings.fileName());
}

int RunApplication(Application& application, QtDesktop& desktop, QtMessageBoxes& boxes) {
  NativeFileLayer layer;
  Disk disk(layer, DriveMap::FromEnvironment());
  QtFileDialogs dialogs(disk, desktop);
  FileSettings settings(disk, SettingsFile());
  HelpWindow help(disk);
  QtProgress progress;
  Session session({disk, boxes, dialogs, settings, desktop, help, progress}, ProgramDirectoryPath(), InstalledData());
  session.Prepare();  // so that the window opens with its first screen
  MainWindow window(session, progress);
  boxes.SetBeforeShow([&window] { window.Refresh(); });

  application.SetFaultHandler([&session](const std::exception_ptr& fault) { session.Recover(fault); });
  application.installEventFilter(new QuickHelpFilter(&application));
  QObject::connect(&window, &MainWindow::Ended, &application, [] { QCoreApplication::exit(); });
  window.KeepPlace(settings);
  window.show();
  // After the window's first events, so that a box at start-up appears in front of a window that is in place.
  QTimer::singleShot(50, &window, &MainWindow::Start);
  const int result = QApplication::exec();
  application.SetFaultHandler({});
  return result;
}

// What fails before the window stands, or after it, ends the program, but with a message.
int RunReporting(Application& application) {
  QtDesktop desktop;
  QtMessageBoxes boxes(desktop);
  try {
    return RunApplication(application, desktop, boxes);
  } catch (...) {
    boxes.SetBeforeShow({});
    ReportFault(boxes, std::current_exception());
    return 1;
  }
}

}  // namespace
}  // namespace zova

int main(int argc, char** argv) {
  QCoreApplication::setOrganizationName("ZOVA");
  QCoreApplication::setApplicationName("Dorvan's ZOVA");
  QCoreApplication::setApplicationVersion(zova::kVersion);
  zova::Application application(argc, argv);
  QApplication::setStyle(new zova::Style);
  QApplication::setDesktopFileName("zova");
  QApplication::setWindowIcon(QIcon(":/icons/zova.svg"));
  return zova::RunReporting(application);
}
