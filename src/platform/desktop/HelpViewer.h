// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

namespace zova {

/// Shows the help file. `topic` is an anchor in it; "" shows the contents.
class HelpViewer {
 public:
  virtual ~HelpViewer() = default;
  virtual void ShowHelp(const std::string& helpFile, const std::string& topic) = 0;
};

}  // namespace zova
