// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

#include "platform/desktop/DirectoryBrowser.h"
#include "platform/desktop/Platform.h"
#include "project/ParamLocation.h"
#include "project/ProjectBackup.h"

namespace zova {

/// The texts of the location screen.
struct LocationTexts {
  std::string Title;
  std::string Instruction;
  std::string Note;
};

/// The screen that chooses a directory, in three forms: the Param directory at a start without one, its move, and a new
/// destination for a project's backup.
class LocationFlow {
 public:
  enum class Form { SelectParam, ChangeParam, BackupDestination };

  LocationFlow(ParamDirectory& param, std::string programDir, const Platform& platform);
  /// Called with the result of an act on the screen.
  void SetObserver(std::function<void(const LocationOutcome&)> observer) { m_observer = std::move(observer); }

  /// Opens the form for creating or moving the Param directory.
  void OpenParam();
  /// Both must outlive the screen.
  void OpenBackup(ProjectParameters& project, const SavedProject& saved);

  [[nodiscard]] Form CurrentForm() const noexcept;
  [[nodiscard]] LocationTexts Texts() const;
  DirectoryBrowser& Browser() noexcept { return m_browser; }
  [[nodiscard]] const std::string& Text() const noexcept { return m_text; }
  /// Drops what a stored path cannot hold.
  void SetText(const std::string& text);
  /// The Param directory for the text; "" in the backup's form.
  [[nodiscard]] std::string Result() const;

  /// The same as a path of the system; "" where it looks the same.
  [[nodiscard]] std::string NativeResult() const;
  /// The parent of the directory chosen, when that is itself a Param directory with projects; else "".
  [[nodiscard]] std::string ParentOffered();
  /// Chooses it.
  void TakeParent();

  void Accept();
  void Cancel();
  /// Closing the window: true when the program may end.
  bool MayClose();
  /// See ParamLocation.
  void NoteOtherAct() noexcept { m_param.NoteOtherAct(); }

 private:
  [[nodiscard]] bool IsBackup() const noexcept { return m_project != nullptr; }
  void Show();

  Platform m_platform;
  ParamLocation m_param;
  DirectoryBrowser m_browser;
  std::function<void(const LocationOutcome&)> m_observer;
  std::string m_text;
  ProjectParameters* m_project = nullptr;  // the project to back up
  const SavedProject* m_saved = nullptr;
};

}  // namespace zova
