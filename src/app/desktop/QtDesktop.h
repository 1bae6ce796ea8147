// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/desktop/Desktop.h"

namespace zova {

class QtDesktop final : public Desktop {
 public:
  void ShowBusyPointer() override { Count(m_busy, 1); }
  void RestorePointer() override { Count(m_busy, -1); }
  void Beep() override;
  /// Set by the owner of the requests.
  std::function<bool(const std::string& paramDir, const std::string& projectFile)> Sender;
  bool HandOver(const std::string& paramDir, const std::string& projectFile) override {
    return Sender && Sender(paramDir, projectFile);
  }
  bool OpenFolder(const ResolvedPath& directory) override;

  /// For the lifetime of a box or dialog: shows the normal pointer even when the program is busy, and restores the
  /// focus afterwards.
  class Pause {
   public:
    explicit Pause(QtDesktop& desktop);
    ~Pause();
    Pause(const Pause&) = delete;
    Pause& operator=(const Pause&) = delete;
    /// The box's parent: the active window, or the main window of a program in the background.
    [[nodiscard]] QWidget* Window() const { return m_window; }

   private:
    QtDesktop& m_desktop;
    QPointer<QWidget> m_window;
    QPointer<QWidget> m_focus;
  };

 private:
  void Count(int& what, int by);

  int m_busy = 0;
  int m_pauses = 0;
  bool m_shown = false;
};

}  // namespace zova
