// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>

#include "app/desktop/QtDesktop.h"
#include "platform/desktop/MessageBoxes.h"

namespace zova {

/// Message boxes with plain text. Escape and closing the box mean Cancel, else No, else OK.
class QtMessageBoxes final : public MessageBoxes {
 public:
  explicit QtMessageBoxes(QtDesktop& desktop) : m_desktop(desktop) {}
  /// Called before a box opens, to refresh the window behind it.
  void SetBeforeShow(std::function<void()> beforeShow) { m_beforeShow = std::move(beforeShow); }
  BoxAnswer Show(const MessageBox& box) override;

 private:
  QtDesktop& m_desktop;
  std::function<void()> m_beforeShow;
};

}  // namespace zova
