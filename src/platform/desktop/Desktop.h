// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>

namespace zova {

/// What the rules ask of the desktop around them. Calls nest.
class Desktop {
 public:
  virtual ~Desktop() = default;
  virtual void ShowBusyPointer() = 0;
  virtual void RestorePointer() = 0;
  virtual void Beep() = 0;
  /// Shows a directory (a native path) in the system's file manager. False when the system has none that takes it.
  virtual bool OpenFolder(const std::filesystem::path& directory) = 0;
};

/// How far a long run has come.
class Progress {
 public:
  virtual ~Progress() = default;
  /// `percent` from 0 to 100; `text` is the label beside the bar.
  virtual void Show(int percent, const std::string& text) = 0;
  /// Lets the window repaint, at most every 50 ms. What the user does meanwhile is discarded while the bar is up, and
  /// waits while it is not.
  virtual void ProcessEvents() = 0;
};

/// Shows the busy pointer for as long as it lives.
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
