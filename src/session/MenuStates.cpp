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
  states.Open = true;
  states.Create = true;
  states.Restore = true;
  states.MoveParam = true;
  states.Enter = facts.ProjectOpen;
  states.Master = facts.ProjectOpen;
  states.Examine = facts.ProjectOpen;
  states.ReadOld = facts.ProjectOpen;
  states.View = facts.ProjectOpen;
  states.Backup = facts.ProjectOpen;
  states.Unfinished = facts.ProjectOpen && facts.HasUnfinished;
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
    case Screen::Means: break;
    case Screen::Identification: AllowPreferences(states, facts); break;
    case Screen::Entry:
      AllowPreferences(states, facts);
      states.SaveIncomplete = true;
      break;
  }
  return states;
}

}  // namespace zova
