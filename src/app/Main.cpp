// SPDX-License-Identifier: GPL-3.0-or-later

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>

#include "app/MainWindow.h"
#include "app/desktop/Application.h"
#include "app/desktop/HelpWindow.h"
#include "app/desktop/OpenRequests.h"
#include "app/desktop/QtDesktop.h"
#include "app/desktop/QtFileDialogs.h"
#include "app/desktop/QtMessageBoxes.h"
#include "app/desktop/QuickHelpFilter.h"
#include "app/desktop/Style.h"
#include "app/screens/ProgressPanel.h"
#include "app/widgets/Colours.h"
#include "app/widgets/Controls.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/FileSettings.h"
#include "session/Version.h"

namespace zova {
namespace {

// The directory of help and example: beside `bin` in an installation, beside the program in a build folder. macOS has
// them in the bundle, and an installation on Windows in the program's directory, where they are used.
std::string InstalledData() {
  const QDir programs(QCoreApplication::applicationDirPath());
#if defined(Q_OS_MACOS)
  return FromQt(QDir::cleanPath(programs.filePath("../Resources")));
#elif defined(Q_OS_WIN)
  return FromQt(QDir::toNativeSeparators(programs.filePath("share/zova")));
#else
  const QString installed = QDir::cleanPath(programs.filePath("../share/zova"));
  return FromQt(QFileInfo(installed).isDir() ? installed : programs.filePath("share/zova"));
#endif
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
  return FromQt(QDir::toNativeSeparators(settings.fileName()));
}

// The project that the command line names, as a drive-letter path.
std::string ProjectToOpen(const Disk& disk) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Recall experiments: define a project, enter its subjects, make their masters.");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument("FILE.prm", "The project that is to be opened.", "[FILE.prm]");
  parser.process(*QCoreApplication::instance());
  if (parser.positionalArguments().isEmpty()) return {};
  const QString file = QFileInfo(parser.positionalArguments().front()).absoluteFilePath();
  return disk.Drives().ToDrivePath(FromQt(QDir::toNativeSeparators(file)));
}

void ComeUp(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

int RunApplication(Application& application, QtDesktop& desktop, QtMessageBoxes& boxes) {
  NativeFileLayer layer;
  Disk disk(layer, DriveMap::FromEnvironment());
  const std::string project = ProjectToOpen(disk);
  QtFileDialogs dialogs(disk, desktop);
  FileSettings settings(disk, SettingsFile());
  HelpWindow help(disk);
  QtProgress progress;
  Session session({disk, boxes, dialogs, settings, desktop, help, progress}, ProgramDirectoryPath(), InstalledData());
  session.Prepare();  // so that the window opens with its first screen
  MainWindow window(session, progress);
  boxes.SetBeforeShow([&window] { window.Refresh(); });

  application.SetFaultHandler([&session](const std::exception_ptr& fault) { session.Recover(fault); });
  QuickHelpFilter quickHelp(session);
  application.installEventFilter(&quickHelp);
  QObject::connect(&window, &MainWindow::Ended, &application, [] { QCoreApplication::exit(); });
  OpenRequests requests(QFileInfo(ToQt(SettingsFile())).path());
  desktop.Sender = [&requests](const auto& param, const auto& file) { return requests.Send(param, file); };
  requests.Listen({.ParamDir = [&session] { return session.ParamPath(); },
                   .MayOpen = [&session, &window] { return !window.IsBusy() && session.Shown() == Screen::Main; },
                   .Open =
                       [&window](const std::string& file) {
                         ComeUp(window);
                         window.Run([&file](Session& running) { running.OpenProject(file); });
                       }});
  window.KeepPlace(settings);
  window.show();
  // After the window's first events, so that a box at start-up appears in front of a window that is in place.
  QTimer::singleShot(50, &window, [&window, &project] { window.Start(project); });
  const int result = QApplication::exec();
  desktop.Sender = {};
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
  QApplication::setWindowIcon(zova::NamedIcon("zova"));
  return zova::RunReporting(application);
}
