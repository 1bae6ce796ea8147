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

/// Where the wizard's cursor can stand. Those up to `Abbreviation` are text boxes.
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

/// The pages' questions that are answered by yes or no.
enum class WizardOption { Categorized, FalseMemory, Variables, Minutes, Ratings };
inline constexpr std::size_t kWizardOptionCount = static_cast<std::size_t>(WizardOption::Ratings) + 1;

/// What the user typed and chose, accepted or not. It outlives going back; only Cancel clears it.
struct WizardEntries {
  WizardEntries();  ///< the boxes of the two directories start as "(none)", all answers as "no"

  std::string& Text(WizardBox box) { return Texts.at(static_cast<std::size_t>(box)); }
  [[nodiscard]] const std::string& Text(WizardBox box) const { return Texts.at(static_cast<std::size_t>(box)); }
  bool& Option(WizardOption option) { return Options.at(static_cast<std::size_t>(option)); }
  [[nodiscard]] bool Option(WizardOption option) const { return Options.at(static_cast<std::size_t>(option)); }

  std::array<std::string, kWizardTextCount> Texts;  ///< that of `Variable` is the editor's
  std::array<bool, kWizardOptionCount> Options{};
  std::array<bool, kMaxTests> RatedTests{};
  VariableEditor Variables;
};

/// The wizard between its pages: what stands in the boxes, and the record as far as pages were accepted.
struct WizardState {
  std::string ParamDir;  ///< where the parameter file is to go
  WizardEntries Entries;
  ProjectParameters Project;
  std::string DefaultAbbreviation;  ///< what page 1 last put into the prefix box by itself
  /// The prefix of the project that page 1's question allowed to be overwritten, when there is one.
  std::optional<std::string> OverwrittenAbbreviation;
};

/// The check of a page that is left forward. Nothing when its answers are accepted, and then they stand in the
/// record; else the user was told, and this is the box to mend.
using WizardFault = std::optional<WizardBox>;

WizardFault LeaveTitlePage(WizardState& state, const Platform& platform);
WizardFault LeaveDirectoriesPage(WizardState& state, const Platform& platform);
WizardFault LeaveGeneralPage(WizardState& state, const Platform& platform);
WizardFault LeaveCategoriesPage(WizardState& state, const Platform& platform);
WizardFault LeaveVariablesPage(WizardState& state, const Platform& platform);
WizardFault LeaveMinutesPage(WizardState& state, const Platform& platform);
WizardFault LeaveRatingsPage(WizardState& state, const Platform& platform);
WizardFault LeaveAbbreviationPage(WizardState& state, const Platform& platform);

/// Tells why a page is not accepted, with an OK button, and gives the box to mend.
WizardBox Refuse(const Platform& platform, const char* text, WizardBox box, BoxIcon icon = BoxIcon::Exclamation);

/// As "No" leaves the ratings: none in the record, no test rated. What the boxes hold stays.
void DropRatings(ProjectParameters& project);

/// The number in a box whose first `length` characters must be one, whole, and lie within `least` and `most`. The
/// box keeps those characters. Nothing when it is no such number.
std::optional<std::int16_t> NumberInBox(std::string& text, std::size_t length, int least, int most);

inline constexpr const char* kBadFileName = "Bad file name.  Please select another.";
inline constexpr const char* kDriveNotReady = "Drive is not ready or the disk is not correctly formatted.";
/// What is said of a number of items beyond 1 to 999, also when it is the lures that lead there.
inline constexpr const char* kBadItemCount = "Value for number of items must be greater than 0 and less than 1000.";

}  // namespace zova
