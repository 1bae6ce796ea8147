// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <string>

#include "project/ProjectFile.h"
#include "session/Session.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"

namespace zova::testing {

/// Asked before a project is restored.
inline const ExpectedBox kRestoreAsked = {
    .Text =
        "This procedure will allow you to select a parameter (.prm) file for a project.  The file can be found in "
        "the 'Param' directory.  Backups can also be found in the primary or backup directories of a project.  "
        "Once the file is selected, ZOVA will copy all appropriate files and directories from the backup location "
        "to the primary location.  ZOVA will overwrite all existing data (.dat) files in primary directory that "
        "are related to the project.  Do you wish to continue?",
    .Answer = BoxAnswer::Yes,
    .Default = BoxAnswer::No,
    .Title = "Restore from Backup"};

/// A session over a scratch disk, with everything around it scripted.
class SessionTest : public ::testing::Test, protected FakePlatform {
 protected:
  static constexpr const char* kSetting = "Startup/ParamPath$";
  static constexpr const char* kExample = "C:\\Param\\Example.prm";

  Session& Make() {
    m_session = std::make_unique<Session>(With(m_disk), "C:\\ZOVA", PathText(m_scratch.Native("C:\\Installed")));
    return *m_session;
  }
  /// Started with an existing Param directory.
  Session& Started() {
    m_scratch.MakeDirectory("C:\\Param");
    Settings.Values[kSetting] = "C:\\Param";
    Make().Start();
    return *m_session;
  }
  void OpenProject(Session& session, const std::string& path) {
    Dialogs.Answers.emplace_back(path);
    session.OpenExistingProject();
  }

  /// Started, with the example or another project in its place open.
  Session& OpenExample(const ProjectParameters& project = ExampleProject("C:\\ZOVA")) {
    m_scratch.Put(kExample, FormatProject(project, kCurrentMarker));
    m_scratch.MakeDirectory("C:\\ZOVA\\Sample Data\\Sdata");
    OpenProject(Started(), kExample);
    return *m_session;
  }

  Scratch m_scratch;
  Disk m_disk = m_scratch.MakeDisk();
  std::unique_ptr<Session> m_session;
};

}  // namespace zova::testing
