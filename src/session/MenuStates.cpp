// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/MenuStates.h"

namespace zova {

namespace {

void AllowPreferences(MenuStates& states, const MenuFacts& facts) noexcept {
  states.SkipMinutes = facts.ProjectOpen && facts.MinutesKept;
  states.NextBlank = true;
  states.Autosave = true;
}

void AllowMainScreen(MenuStates& states, const MenuFacts& facts) noexcept {
  const bool usable = facts.ProjectOpen && !facts.ViewOnly;
  states.Open = true;
  states.Create = true;
  states.Restore = true;
  states.MoveParam = true;
  states.Import = true;  // without a project it asks for one
  states.Words = states.Subjects = states.SecondEntry = usable || !facts.ProjectOpen;
  states.Enter = usable;
  states.Master = usable;
  states.Examine = usable;
  states.ReadOld = usable;
  states.View = facts.ProjectOpen;
  states.Backup = usable && facts.MayBackUp;
  states.Unfinished = usable && facts.HasUnfinished;
  AllowPreferences(states, facts);
}

}  // namespace

MenuStates MenusFor(const MenuFacts& facts) noexcept {
  MenuStates states;
  switch (facts.Shown) {
    case Screen::Main: AllowMainScreen(states, facts); break;
    case Screen::Wizard: states.Open = true; break;
    case Screen::Viewing:
    case Screen::Location:
    case Screen::Masters:
    case Screen::Means:
    case Screen::Words:
    case Screen::Import:
    case Screen::Subjects:
    case Screen::Compare: break;
    case Screen::Identification: AllowPreferences(states, facts); break;
    case Screen::Entry:
      AllowPreferences(states, facts);
      states.SaveIncomplete = true;
      break;
  }
  return states;
}

}  // namespace zova
