// SPDX-License-Identifier: GPL-3.0-or-later
//
// What a table's texts for numbers, times and levels mean.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "project/ProjectParameters.h"
#include "tables/ImportOptions.h"

namespace zova {

/// True for what stands for nothing: "", ".", NA, N/A and NaN in any case.
bool IsNothing(std::string_view text) noexcept;

/// A whole number with nothing behind it but ".0".
std::optional<int> WholeNumber(std::string_view text) noexcept;

/// The minute of a recall, from 1 to `maxMinutes`; nullopt for a text that gives none. With a unit of time the text is
/// the time since the start of the test: floor(seconds / 60) + 1, and the last minute at the exact end. A decimal comma
/// is allowed where it is not the delimiter.
std::optional<int> MinuteOf(std::string_view text, const std::optional<TimeUnit>& unit, int maxMinutes, char delimiter);

/// The least number of minutes in which a recall at this time would lie; nullopt for a text that is no time.
std::optional<int> LastMinuteOf(std::string_view text, const std::optional<TimeUnit>& unit, char delimiter);

/// The level of a variable with this name, else with this number; 0 for none. `variable` counts from 0.
int LevelOf(std::string_view text, const ProjectParameters& project, std::size_t variable);

}  // namespace zova
