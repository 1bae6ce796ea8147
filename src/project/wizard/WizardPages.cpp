// SPDX-License-Identifier: GPL-3.0-or-later
//
// Functions shared by the pages, and the pages with only a question and a number.

#include "project/wizard/WizardPages.h"

#include <algorithm>

#include "platform/desktop/FileErrorBoxes.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"

namespace zova {

WizardEntries::WizardEntries() { Text(WizardBox::Primary) = Text(WizardBox::Backup) = kNoDirectory; }

WizardBox Refuse(const Platform& platform, const char* text, WizardBox box, BoxIcon icon) {
  platform.Boxes.Show({.Text = text, .Icon = icon});
  return box;
}

WizardBox Refuse(const Platform& platform, const char* text, WizardBox box, const FileError& fault) {
  Warn(platform.Boxes, text, FaultText(fault));
  return box;
}

std::optional<std::int16_t> NumberInBox(std::string& text, std::size_t length, int least, int most) {
  text.resize(FirstCharacters(text, length).size());
  if (!IsWholeNumberText(text)) return std::nullopt;
  const auto number = LeadingInteger16(text);
  if (!number || *number < least || *number > most) return std::nullopt;
  text = std::to_string(*number);
  return number;
}

void DropRatings(ProjectParameters& project) {
  project.Rated = 0;
  project.MaxRating = 0;
  project.RatedTests.fill("N");
}

WizardFault LeaveGeneralPage(WizardState& state, const Platform& platform) {
  WizardEntries& entries = state.Entries;
  const auto tests = NumberInBox(entries.Text(WizardBox::Tests), 3, 1, kMaxTests);
  if (!tests) return Refuse(platform, "Number of tests must be between 1 and 15.", WizardBox::Tests);
  const auto items = NumberInBox(entries.Text(WizardBox::Items), 4, 1, kMaxItems);
  if (!items) return Refuse(platform, kBadItemCount, WizardBox::Items);

  if (*tests != state.Project.TestCount) {
    entries.Option(WizardOption::Ratings) = false;
    entries.RatedTests.fill(false);
    DropRatings(state.Project);
  }
  state.Project.TestCount = *tests;
  state.Project.ItemCount = *items;
  return std::nullopt;
}

WizardFault LeaveVariablesPage(WizardState& state, const Platform& platform) {
  if (!state.Entries.Option(WizardOption::Variables)) {
    VariableEditor().Store(state.Project);  // the editor keeps the names in case the user changes the answer
    return std::nullopt;
  }
  if (!state.Entries.Variables.Check(platform.Boxes)) return WizardBox::Variable;
  state.Entries.Variables.Store(state.Project);
  return std::nullopt;
}

WizardFault LeaveMinutesPage(WizardState& state, const Platform& platform) {
  std::int16_t minutes = 0;
  const bool recorded = state.Entries.Option(WizardOption::Minutes);
  if (recorded) {
    const auto number = NumberInBox(state.Entries.Text(WizardBox::Minutes), 4, 1, kMaxMinutes);
    if (!number) {
      return Refuse(platform, "Value for number of minutes must be between 1 and 6000.", WizardBox::Minutes);
    }
    minutes = *number;
  }
  state.Project.MinutesRecorded = recorded ? 1 : 0;
  state.Project.MaxMinutes = minutes;
  return std::nullopt;
}

WizardFault LeaveRatingsPage(WizardState& state, const Platform& platform) {
  WizardEntries& entries = state.Entries;
  ProjectParameters& project = state.Project;
  if (!entries.Option(WizardOption::Ratings)) {
    DropRatings(project);
    return std::nullopt;
  }
  const auto most = NumberInBox(entries.Text(WizardBox::MaxRating), 4, 1, kMaxRating);
  if (!most) return Refuse(platform, "Value for the maximum rating must be between 1 and 1000.", WizardBox::MaxRating);
  const auto end = entries.RatedTests.begin() + project.TestCount;
  if (std::find(entries.RatedTests.begin(), end, true) == end) {
    return Refuse(platform, "At least 1 test must be rated.", WizardBox::RatedTests);
  }
  project.Rated = 1;
  project.MaxRating = *most;
  project.RatedTests.fill("N");
  std::transform(entries.RatedTests.begin(), end, project.RatedTests.begin(),
                 [](bool rated) { return std::string(1, rated ? 'Y' : 'N'); });
  return std::nullopt;
}

}  // namespace zova
