// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "platform/desktop/Platform.h"
#include "project/ProjectParameters.h"
#include "project/wizard/VariableEditor.h"

namespace zova {

/// The controls that can have the wizard's cursor. Those up to `Abbreviation` are text boxes.
enum class WizardBox {
  Title,
  Primary,
  Backup,
  Tests,
  Items,
  Categories,
  Variable,
  Minutes,
  MaxRating,
  Abbreviation,
  DriveList,
  CategoriesOption,
  VariablesOption,
  MinutesOption,
  RatingsOption,
  RatedTests
};
inline constexpr std::size_t kWizardTextCount = static_cast<std::size_t>(WizardBox::Abbreviation) + 1;

/// The yes/no questions of the pages.
enum class WizardOption { Categorized, FalseMemory, Variables, Minutes, Ratings };
inline constexpr std::size_t kWizardOptionCount = static_cast<std::size_t>(WizardOption::Ratings) + 1;

/// The user's input, accepted or not. Going back keeps it; only Cancel clears it.
struct WizardEntries {
  WizardEntries();  ///< both directories start as "(none)", all answers as "no"

  std::string& Text(WizardBox box) { return Texts.at(static_cast<std::size_t>(box)); }
  [[nodiscard]] const std::string& Text(WizardBox box) const { return Texts.at(static_cast<std::size_t>(box)); }
  bool& Option(WizardOption option) { return Options.at(static_cast<std::size_t>(option)); }
  [[nodiscard]] bool Option(WizardOption option) const { return Options.at(static_cast<std::size_t>(option)); }

  std::array<std::string, kWizardTextCount> Texts;  ///< the editor has that of `Variable`
  std::array<bool, kWizardOptionCount> Options{};
  std::array<bool, kMaxTests> RatedTests{};
  VariableEditor Variables;
};

/// The state shared by the pages: the input, and the record of the accepted pages.
struct WizardState {
  std::string ParamDir;  ///< directory of the parameter file
  WizardEntries Entries;
  ProjectParameters Project;
  std::string DefaultAbbreviation;  ///< the prefix that page 1 last proposed
  /// The prefix of the project that the user allowed page 1 to overwrite.
  std::optional<std::string> OverwrittenAbbreviation;
};

/// What was entered on a page in a few words: "3 tests, 60 items", "none".
std::string ShortAnswer(const WizardEntries& entries, int page);

/// The result of checking a page: nullopt when its answers are accepted and stored in the record; else the box to
/// correct, after a message.
using WizardFault = std::optional<WizardBox>;

WizardFault LeaveTitlePage(WizardState& state, const Platform& platform);
WizardFault LeaveDirectoriesPage(WizardState& state, const Platform& platform);
WizardFault LeaveGeneralPage(WizardState& state, const Platform& platform);
WizardFault LeaveCategoriesPage(WizardState& state, const Platform& platform);
WizardFault LeaveVariablesPage(WizardState& state, const Platform& platform);
WizardFault LeaveMinutesPage(WizardState& state, const Platform& platform);
WizardFault LeaveRatingsPage(WizardState& state, const Platform& platform);
WizardFault LeaveAbbreviationPage(WizardState& state, const Platform& platform);

/// Shows why a page is not accepted, and returns the box to correct.
WizardBox Refuse(const Platform& platform, const char* text, WizardBox box, BoxIcon icon = BoxIcon::Exclamation);

/// The same with the fault as secondary text.
WizardBox Refuse(const Platform& platform, const char* text, WizardBox box, const FileError& fault);

/// Sets the record to no ratings and no rated test, as after "No". Keeps the boxes.
void DropRatings(ProjectParameters& project);

/// Cuts the box to `length` characters and takes them as a number from `least` to `most`, which is rounded and then
/// stands in the box; nullopt for anything else.
std::optional<std::int16_t> NumberInBox(std::string& text, std::size_t length, int least, int most);

inline constexpr const char* kBadFileName = "Bad file name.  Please select another.";
inline constexpr const char* kDriveNotReady = "Drive is not ready or the disk is not correctly formatted.";
/// Shown for a number of items outside 1 to 999, also when lures cause it.
inline constexpr const char* kBadItemCount = "Value for number of items must be greater than 0 and less than 1000.";

}  // namespace zova
