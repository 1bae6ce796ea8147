// SPDX-License-Identifier: GPL-3.0-or-later
//
// zova-compare: how far two entries of a project's subjects agree, as a CSV on standard output.

#include <CLI/CLI.hpp>
#include <algorithm>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "cli/CommandLine.h"
#include "cli/Terminal.h"
#include "compare/Agreement.h"
#include "compare/EntryPairs.h"
#include "platform/desktop/FileErrorBoxes.h"
#include "platform/desktop/NoDesktop.h"
#include "project/ProjectOpening.h"
#include "session/Version.h"

namespace zova {
namespace {

constexpr int kDone = 0;
constexpr int kStopped = 1;
constexpr int kWrongUsage = 2;

class CompareCommand {
 public:
  CompareCommand(std::string projectFile, std::string with)
      : m_projectFile(std::move(projectFile)), m_with(std::move(with)), m_disk(m_layer, DriveMap::FromEnvironment()) {}

  int Run() {
    auto project = OpenForCommand(StoredPath(m_projectFile), m_platform);
    if (!project) return kStopped;
    m_project = std::move(*project);
    std::optional<AgreementReport> report;
    PassedOver passedOver;
    const bool isRead = WithRetry(m_terminal, [&] {
      report.emplace(m_project);
      const PairSink add = [&](std::string_view id, const SubjectRecord& first, const SubjectRecord& second) {
        report->Add(id, first, second);
      };
      if (m_with.empty()) {
        passedOver = ReadSecondEntries(m_project, m_disk, m_terminal, add);
      } else {
        passedOver = ReadPairsWith(StoredPath(m_with), m_project, m_disk, m_terminal, add);
      }
    });
    if (!isRead) return kStopped;
    WarnNotCompared(m_terminal, passedOver);
    if (report->SubjectCount() == 0) {
      if (passedOver.IsEmpty()) std::cerr << "zova-compare: no subject was entered twice\n";
      return kStopped;
    }
    SetStandardOutputBinary();
    std::cout << report->CsvText();
    // Two computers need not have all the same subjects.
    return passedOver.Faults.empty() && (passedOver.Alone.empty() || !m_with.empty()) ? kDone : kStopped;
  }

 private:
  [[nodiscard]] std::string StoredPath(const std::string& text) const {
    return m_disk.Drives().ToDrivePath(AbsolutePath(text));
  }

  std::string m_projectFile;
  std::string m_with;
  NativeFileLayer m_layer;
  Disk m_disk;
  Terminal m_terminal;
  NoDesktop m_desktop;
  Platform m_platform{m_disk, m_terminal, m_desktop, m_desktop, m_desktop, m_desktop, m_terminal};
  ProjectParameters m_project;
};

int RunCommand(const std::vector<std::string>& arguments) {
  CLI::App app(
      "How far the first and the second entries of a project's subjects agree, as a CSV on standard output:\n"
      "cells, items and Cohen's kappa with its 95 % interval, of all, by test, by level and by subject.",
      "zova-compare");
  app.allow_windows_style_options(false);
  std::string projectFile, with;
  app.add_option("PROJECT.prm", projectFile, "the project's file, in Param or in the primary directory")
      ->option_text(" ")
      ->required();
  app.add_option("--with", with,
                 "compare the project's 'Sdata' with the subject files of the same names in\nthis directory instead")
      ->option_text("DIR");
  app.set_help_flag("-h,--help", "print this text");
  app.set_version_flag("--version", std::string("zova-compare ") + kVersion, "print the version");
  std::vector<std::string> texts(arguments.rbegin(), arguments.rend());  // as the library takes them
  try {
    app.parse(texts);
  } catch (const CLI::ParseError& error) {
    return app.exit(error, std::cout, std::cerr) == 0 ? kDone : kWrongUsage;
  }
  return CompareCommand(std::move(projectFile), std::move(with)).Run();
}

}  // namespace
}  // namespace zova

int main(int argc, char** argv) { return zova::RunProgram("zova-compare", argc, argv, zova::RunCommand); }
