// SPDX-License-Identifier: GPL-3.0-or-later

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "app/MainWindow.h"
#include "app/ReportRun.h"
#include "app/desktop/Application.h"
#include "app/desktop/Console.h"
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
#include "platform/files/PathParts.h"
#include "session/Version.h"

namespace zova {
namespace {

constexpr const char* kReportOption = "report";

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

struct CommandLine {
  std::string Project;                  ///< "" for none
  std::optional<ReportOptions> Report;  ///< it ends without a window
};

[[noreturn]] void RefuseUsage(const std::string& fault) {
  PrintOrShow("zova: " + fault + "\nTry 'zova --help'.");
  std::exit(2);
}

QList<QCommandLineOption> OptionsOfPlots() {
  return {{"bars", "With --report: what the plots draw about a mean: ci, se, within or none.", "BARS"},
          {"title", "With --report: the title of a plot. May be repeated, like those below.", "MEASURE=TEXT"},
          {"axis", "With --report: the ends of a plot's value axis; one may be empty.", "MEASURE=MIN..MAX"},
          {"order", "With --report: the levels of a variable in the order of the plots.", "VARIABLE=LEVEL,..."},
          {"colours", "With --report: what the raster's colours show, position or category.", "COLOURS"}};
}

std::string DrivePath(const Disk& disk, const QString& path) {
  std::string text = FromQt(path);
  if (HasDrive(text)) return text;
  return disk.Drives().ToDrivePath(FromQt(QDir::toNativeSeparators(QFileInfo(path).absoluteFilePath())));
}

// Of a command line with --report.
ReportOptions ReadReportOptions(const QCommandLineParser& parser, const Disk& disk) {
  const QStringList files = parser.positionalArguments();
  if (files.isEmpty()) RefuseUsage("--report needs a project's file");
  if (files.size() > 1) RefuseUsage("unexpected argument: " + FromQt(files[1]));
  if (parser.value(kReportOption).isEmpty()) RefuseUsage("--report: a file needs a name");
  ReportOptions options{DrivePath(disk, parser.value(kReportOption)),
                        DrivePath(disk, files.front()),
                        FromQt(parser.value("means")),
                        FromQt(parser.value("measures")),
                        std::nullopt,
                        std::nullopt,
                        {},
                        {}};
  if (parser.isSet("group-size")) options.GroupSize = FromQt(parser.value("group-size"));
  if (parser.isSet("group-by")) options.GroupBy = FromQt(parser.value("group-by"));
  if (parser.isSet("group-order")) options.GroupOrderFile = DrivePath(disk, parser.value("group-order"));
  for (const QCommandLineOption& option : OptionsOfPlots()) {
    for (const QString& value : parser.values(option)) {
      options.Plots.emplace_back(FromQt(option.names().front()), FromQt(value));
    }
  }
  return options;
}

CommandLine ReadCommandLine(const Disk& disk) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Recall experiments: define a project, enter its subjects, make their masters.");
  parser.addHelpOption();
  parser.addVersionOption();
  parser.addPositionalArgument("FILE.prm", "The project that is to be opened.", "[FILE.prm]");
  const QCommandLineOption report(kReportOption, "Write a report of the project without a window.", "FILE.html");
  const QCommandLineOption groupSize("group-size", "With --report: also what nominal groups of N subjects share.", "N");
  const QCommandLineOption groupBy("group-by", "Only subjects of one level of this variable form a group.", "VARIABLE");
  const QCommandLineOption groupOrder("group-order", "The order in which groups are formed, as for zova-master.",
                                      "FILE");
  const QList<QCommandLineOption> ofReport =
      QList<QCommandLineOption>{{"means", "With --report: the variables of its means, crossed.", "VARIABLE,..."},
                                {"measures", "With --report: its measures, by their names in the master.", "NAME,..."},
                                groupSize,
                                groupBy,
                                groupOrder} +
      OptionsOfPlots();
  parser.addOptions(QList{report} + ofReport);
  if (!parser.parse(QCoreApplication::arguments())) RefuseUsage(FromQt(parser.errorText()));
  parser.process(*QCoreApplication::instance());  // prints help and version
  const auto need = [&](const QCommandLineOption& option, const QCommandLineOption& other) {
    if (!parser.isSet(option) || parser.isSet(other)) return;
    RefuseUsage("--" + FromQt(option.names().front()) + " requires --" + FromQt(other.names().front()));
  };
  for (const QCommandLineOption& option : ofReport) need(option, report);
  need(groupBy, groupSize);
  need(groupOrder, groupSize);
  CommandLine line;
  if (!parser.positionalArguments().isEmpty()) line.Project = DrivePath(disk, parser.positionalArguments().front());
  if (parser.isSet(report)) line.Report = ReadReportOptions(parser, disk);
  return line;
}

// A report is made without a display, too, and nobody needs one to read the help. Windows and macOS are never without
// one, and their programs come without Qt's offscreen platform.
bool NeedsNoDisplay([[maybe_unused]] std::string_view argument) {
#if defined(Q_OS_WIN) || defined(Q_OS_MACOS)
  return false;
#else
  for (const std::string_view text : {"-h", "--help", "--help-all", "-v", "--version"}) {
    if (argument == text) return true;
  }
  return argument.starts_with(std::string("--") + kReportOption);
#endif
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
  const CommandLine line = ReadCommandLine(disk);
  if (line.Report) return RunReport(*line.Report, disk);
  const std::string& project = line.Project;
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
  const OpenRequestActs acts = {
      .ParamDir = [&session] { return session.ParamPath(); },
      .MayOpen = [&session, &window] { return !window.IsBusy() && session.Shown() == Screen::Main; },
      .Open =
          [&window](const std::string& file) {
            ComeUp(window);
            window.Run([&file](Session& running) { running.OpenProject(file); });
          }};
  requests.Listen(acts);
  const auto openFile = [&](const QString& file) {
    const std::string path = DrivePath(disk, file);
    if (acts.MayOpen()) return acts.Open(path);
    ComeUp(window);
    if (!window.IsBusy()) Warn(boxes, "Leave this screen before you open another project.", path);
  };
  window.KeepPlace(settings);
  window.show();
  // After the window's first events, so that a box at start-up appears in front of a window that is in place.
  QTimer::singleShot(50, &window, [&] {
    window.Start(project);
    application.SetFileHandler(openFile);
  });
  const int result = QApplication::exec();
  application.SetFileHandler({});
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
  zova::UseConsoleOfShell();
  QCoreApplication::setOrganizationName("ZOVA");
  QCoreApplication::setApplicationName("Dorvan's ZOVA");
  QCoreApplication::setApplicationVersion(zova::kVersion);
  const bool isHeadless = std::any_of(argv, argv + argc, zova::NeedsNoDisplay);
  if (isHeadless && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  zova::Application application(argc, argv);
  // Where the system's own font is not installed, as under Wine, Qt would take the first one by name.
  QFont::insertSubstitutions(QApplication::font().family(), {"Segoe UI", "Tahoma", "Arial", "DejaVu Sans"});
  QApplication::setStyle(new zova::Style);
  QApplication::setDesktopFileName("zova");
  QApplication::setWindowIcon(zova::NamedIcon("zova"));
  return zova::RunReporting(application);
}
