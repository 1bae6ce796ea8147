// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>

#include "platform/desktop/Platform.h"
#include "project/ParamDirectory.h"

namespace zova {

/// The result of an act on the location screen.
struct LocationOutcome {
  enum class Step { Stay, Close, EndProgram };
  Step Next = Step::Stay;
  /// Shown after the screen closes.
  std::optional<MessageBox> Message = {};
};

/// The rules for creating, registering and moving the Param directory. A chosen directory D means D\Param.
class ParamLocation {
 public:
  ParamLocation(ParamDirectory& param, std::string programDir, const Platform& platform);

  /// Checks whether the registered directory exists.
  void Open();
  /// True when it exists and is moved; false when one is selected.
  [[nodiscard]] bool Changes() const noexcept { return m_changes; }
  /// D\Param for the box's text; "" when it names no directory.
  [[nodiscard]] std::string Target(const std::string& text) const;

  LocationOutcome Accept(const std::string& text);
  LocationOutcome Cancel();
  /// Closing the window. Like Cancel it reports its refusal at once; the second in a row ends the program.
  LocationOutcome Close();
  /// Any other act on the screen: resets the count of refusals.
  void NoteOtherAct() noexcept { m_refusals = 0; }

 private:
  /// The files of a move, by name.
  struct Load;

  LocationOutcome Say(const std::string& text, const std::string& details = {});
  LocationOutcome SayInUse(LocationOutcome::Step next);
  LocationOutcome Refuse(const MessageBox& message);
  [[nodiscard]] bool CanHold(const std::string& target);
  LocationOutcome Select(const std::string& target, bool isThere);
  LocationOutcome RestoreOrRegister(const std::string& found);
  LocationOutcome Move(const std::string& from, const std::string& to);
  bool MayReplace(const Load& load);
  bool CopyFiles(const std::string& from, const std::string& to, const Load& load);
  void RollBack(const std::string& to, const Load& load);
  bool DeleteOld(const std::string& from, const Load& load);

  ParamDirectory& m_param;
  std::string m_programDir;
  Platform m_platform;
  bool m_changes = false;
  int m_refusals = 0;
};

/// Creates the Param directory at `path` with every missing level and writes the example project into it; one that has
/// come back stays as it is. False when the user gave up a failed step.
bool CreateParamDirectory(const std::string& path, const std::string& programDir, Disk& disk, MessageBoxes& boxes);

}  // namespace zova
