// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// Counts the ticks of the autosave's timer, one every 30 seconds: every eleventh writes.
class AutosaveTimer {
 public:
  static constexpr int kTickMilliseconds = 30000;

  [[nodiscard]] bool IsRunning() const noexcept { return m_running; }
  /// Since the last write, 0 to 10.
  [[nodiscard]] int Ticks() const noexcept { return m_ticks; }
  /// Increases with every start, so that a running timer restarts its interval.
  [[nodiscard]] int StartRevision() const noexcept { return m_startRevision; }

  void Start() noexcept {
    m_running = true;
    ++m_startRevision;
  }
  /// Stops and resets the count.
  void Stop() noexcept {
    m_running = false;
    m_ticks = 0;
  }
  void ResetTicks() noexcept { m_ticks = 0; }
  /// True when a write is due.
  bool Tick() noexcept {
    if (!m_running) return false;
    if (m_ticks != kLastTick) {
      ++m_ticks;
      return false;
    }
    m_ticks = 0;
    return true;
  }

 private:
  static constexpr int kLastTick = 10;
  bool m_running = false;
  int m_ticks = 0;
  int m_startRevision = 0;
};

}  // namespace zova
