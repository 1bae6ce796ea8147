// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <cstdlib>

/// Ends a fuzz run, and keeps its input, when a property does not hold.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "This does not hold: %s\n", property);
  std::abort();
}
