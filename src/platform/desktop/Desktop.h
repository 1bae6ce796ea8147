// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/ResolvedPath.h"

namespace zova {

/// The desktop as the rules use it. Calls of ShowBusyPointer and RestorePointer nest.
class Desktop {
 public:
  virtual ~Desktop() = default;
  virtual void ShowBusyPointer() = 0;
  virtual void RestorePointer() = 0;
  virtual void Beep() = 0;
  /// Asks the copy of the program that uses `paramDir` on this desktop to open a project. False when there is none.
  virtual bool HandOver(const std::string& /*paramDir*/, const std::string& /*projectFile*/) { return false; }
  /// Opens a directory in the system's file manager. False when that fails.
  virtual bool OpenFolder(const ResolvedPath& directory) = 0;
};

/// The progress of a long run.
class Progress {
 public:
  virtual ~Progress() = default;
  /// `percent` is 0 to 100; `text` is the label beside the bar.
  virtual void Show(int percent, const std::string& text) = 0;
  /// Lets the window repaint, at most every 50 ms. Input during that time is discarded while the bar is shown, and
  /// deferred otherwise.
  virtual void ProcessEvents() = 0;

  /// Files are being copied or deleted, `done` of `total`. False once the user has cancelled, which is possible only
  /// with `mayStop`. EndCopying removes the progress from the screen.
  virtual bool ShowCopying(std::size_t /*done*/, std::size_t /*total*/, bool /*mayStop*/) { return true; }
  virtual void EndCopying() {}
};

class BusyPointer {
 public:
  explicit BusyPointer(Desktop& desktop) : m_desktop(desktop) { m_desktop.ShowBusyPointer(); }
  ~BusyPointer() { m_desktop.RestorePointer(); }
  BusyPointer(const BusyPointer&) = delete;
  BusyPointer& operator=(const BusyPointer&) = delete;

 private:
  Desktop& m_desktop;
};

}  // namespace zova
