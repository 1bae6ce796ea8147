// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/desktop/FileErrorBoxes.h"
#include "scoring/ScoringError.h"

namespace zova {

/// Runs a step that reads and scores, again each time the user asks for it; false when the user gave up, or a file
/// ended early. `where()` says where a run-time error was found.
template <typename Step, typename Where>
bool WithRunRetry(MessageBoxes& boxes, Step&& step, Where&& where) {
  for (;;) {
    try {
      return WithRetry(boxes, step);
    } catch (const ScoringError& error) {
      if (!ShowRetryBox(boxes, ScoringFaultText(error.Fault()), where() + ": " + error.what() + ".")) return false;
    }
  }
}

}  // namespace zova
