// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// The screens of the window. Identification and Entry are the two screens of a subject.
enum class Screen {
  Main,
  Wizard,
  Viewing,
  Location,
  Identification,
  Entry,
  Masters,
  Means,
  Words,
  Import,
  Subjects,
  Compare
};

/// Everything that the menus depend on.
struct MenuFacts {
  Screen Shown = Screen::Main;
  bool ProjectOpen = false;
  bool MinutesKept = false;    ///< of the open project
  bool HasUnfinished = false;  ///< of the open project
  bool ViewOnly = false;       ///< the open project (ViewOnlyReason)
  bool MayBackUp = true;       ///< the open project (NoBackupReason)
};

/// Which menu entries are enabled.
struct MenuStates {
  bool Open = false;
  bool Create = false;
  bool SaveIncomplete = false;
  bool Exit = true;
  bool Enter = false;
  bool Master = false;
  bool Examine = false;
  bool ReadOld = false;
  bool Unfinished = false;
  bool View = false;
  bool SkipMinutes = false;
  bool NextBlank = false;
  bool Autosave = false;
  bool Backup = false;
  bool Restore = false;
  bool MoveParam = false;
  bool Words = false;
  bool Import = false;
  bool Subjects = false;
  bool SecondEntry = false;
  bool Topics = true;
  bool About = true;

  bool operator==(const MenuStates&) const = default;
};

MenuStates MenusFor(const MenuFacts& facts) noexcept;

}  // namespace zova
