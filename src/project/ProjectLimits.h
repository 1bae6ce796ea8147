// SPDX-License-Identifier: GPL-3.0-or-later
//
// The limits of a project. Fixed texts that name a limit stand beside their rule.
#pragma once

#include <cstddef>
#include <cstdint>

namespace zova {

inline constexpr int kMaxTests = 15;
inline constexpr int kMaxItems = 999;  ///< including lures
inline constexpr int kMaxCategories = 5000;
inline constexpr int kMaxMinutes = 6000;  ///< per test
inline constexpr int kMaxRating = 1000;
inline constexpr int kMaxVariables = 10;
/// The wizard gives a variable at most `kMaxEditedLevels`; an older file may have one more.
inline constexpr int kMaxEditedLevels = 10;
inline constexpr int kMaxLevels = 11;
inline constexpr int kMaxSubjects = INT16_MAX;  ///< in a master
inline constexpr std::size_t kMaxUnfinished = 10;
inline constexpr std::size_t kMaxAbbreviationLength = 20;  ///< in characters, like the next
inline constexpr std::size_t kMaxSubjectIdLength = 20;

}  // namespace zova
