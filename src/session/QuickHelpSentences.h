// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

#include "session/QuickHelp.h"

namespace zova {

/// What quick help says about one control.
struct Sentence {
  std::string_view Name;
  std::string_view Text;
};

constexpr bool IsBefore(const Sentence& left, const Sentence& right) { return left.Name < right.Name; }

/// The sentences of this form, in the order of IsBefore. Those of the measures' boxes are in MeasureFamilies.
std::span<const Sentence> SentencesOf(QuickHelpForm form) noexcept;
/// Those of the screens of the menu Data, which have one form.
std::span<const Sentence> DataScreenSentences() noexcept;
/// Those of the project's pages where they are only read, and of the screen for a new backup.
std::span<const Sentence> ViewedProjectSentences() noexcept;
std::span<const Sentence> NewBackupSentences() noexcept;

}  // namespace zova
