// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// The check marks of the Preferences menu, not stored.
struct Preferences {
  bool SkipMinutes = false;     ///< Enter in an item's cell goes to the rating or the next line
  bool NextBlankSpace = false;  ///< Enter goes to the next blank cell
  bool Autosave = true;
};

}  // namespace zova
