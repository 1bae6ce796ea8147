// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/desktop/DirectoryBrowser.h"
#include "platform/desktop/Platform.h"
#include "project/ParamLocation.h"
#include "project/ProjectBackup.h"

namespace zova {

/// The words of the screen on which a directory is chosen.
struct LocationTexts {
  std::string Title;
  std::string Instruction;
  std::string Note;
};

/// The screen on which a directory is chosen, in its three forms: for the Param directory at a start without one, to
/// move it, and for a new destination of a project's backup.
class LocationFlow {
 public:
  enum class Form { SelectParam, ChangeParam, BackupDestination };

  LocationFlow(ParamDirectory& param, std::string programDir, const Platform& platform);
  /// Called with what an act on the screen leads to.
  void SetObserver(std::function<void(const LocationOutcome&)> observer) { m_observer = std::move(observer); }

  /// Takes the form that fits the Param directory.
  void OpenParam();
  /// Both must outlive the screen.
  void OpenBackup(ProjectParameters& project, const SavedProject& saved);

  [[nodiscard]] Form CurrentForm() const noexcept;
  [[nodiscard]] LocationTexts Texts() const;
  DirectoryBrowser& Browser() noexcept { return m_browser; }
  [[nodiscard]] const std::string& Text() const noexcept { return m_text; }
  void SetText(const std::string& text);
  /// The Param directory that the text gives; "" in the backup's form.
  [[nodiscard]] std::string Result() const;

  void Accept();
  void Cancel();
  /// The window's own closing: true when the program may end.
  bool MayClose();
  /// Any other act of the user on the screen (ParamLocation).
  void NoteOtherAct() noexcept { m_param.NoteOtherAct(); }

 private:
  [[nodiscard]] bool IsBackup() const noexcept { return m_project != nullptr; }
  void Show();

  Platform m_platform;
  ParamLocation m_param;
  DirectoryBrowser m_browser;
  std::function<void(const LocationOutcome&)> m_observer;
  std::string m_text;
  ProjectParameters* m_project = nullptr;  // that gets the backup
  const SavedProject* m_saved = nullptr;
};

}  // namespace zova
