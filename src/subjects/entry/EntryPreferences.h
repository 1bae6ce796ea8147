// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// The check marks of the Preferences menu. They are not stored.
struct Preferences {
  bool SkipMinutes = false;     ///< Enter in the item's cell goes on to the rating or the next line
  bool NextBlankSpace = false;  ///< Enter goes on to the next cell that is blank
  bool Autosave = true;
};

}  // namespace zova
