// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/desktop/Desktop.h"

namespace zova {

/// Shows the share of `total` steps that are done, and updates the bar only when the percentage changes.
class PercentProgress {
 public:
  /// The label is `before`, the percentage, `after`.
  PercentProgress(Progress& bar, std::size_t total, const char* before, const char* after)
      : m_bar(bar), m_total(total), m_before(before), m_after(after) {}

  void Show(std::size_t done) {
    const float share = static_cast<float>(done) / static_cast<float>(m_total);
    const int percent = static_cast<int>(share * 100.0F);
    if (percent == m_percent) return;
    m_percent = percent;
    m_bar.Show(percent, m_before + std::to_string(percent) + m_after);
  }

 private:
  Progress& m_bar;
  std::size_t m_total;
  const char* m_before;
  const char* m_after;
  int m_percent = -1;
};

}  // namespace zova
