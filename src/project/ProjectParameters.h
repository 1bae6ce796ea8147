// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "project/ProjectLimits.h"

namespace zova {

/// The marker of a parameter file in the current layout, of a backup copy, and of a file in the oldest layout.
inline constexpr const char* kCurrentMarker = "VB Version";
inline constexpr const char* kBackupMarker = "VB Backup";
inline constexpr const char* kOldestMarker = "Old ZOVA";
/// The text that stands for "no directory".
inline constexpr const char* kNoDirectory = "(none)";

/// The definition of a recall experiment, created by the new-project wizard and read-only from then on. Flags are 1 for
/// yes. Arrays are stored from index 0: test 1 is `RatedTests[0]`, level 2 of variable 1 is `LevelNames[0][1]`.
struct ProjectParameters {
  std::int16_t TestCount = 0;         ///< recall tests per subject, 1 to 15
  std::int16_t ItemCount = 0;         ///< items of the study list, 1 to 999, including lures
  std::int16_t Categorized = 0;       ///< 1: the list has categories
  std::int16_t CategoryCount = 0;     ///< 1 to 5000
  std::int16_t ItemsPerCategory = 0;  ///< including the lure; category c has items (c-1)*size+1 to c*size
  std::int16_t MinutesRecorded = 0;   ///< 1: the minute of each recall is recorded
  std::int16_t MaxMinutes = 0;        ///< minutes per test, 1 to 6000
  std::int16_t Rated = 0;             ///< 1: recalls of some tests have ratings
  std::int16_t MaxRating = 0;         ///< highest rating, 1 to 1000; the lowest is 1
  std::int16_t VariableCount = 0;     ///< between-subject variables, 0 to 10
  std::string Abbreviation;           ///< prefix of every data file's name
  std::string PrimaryDir;             ///< drive-letter path without trailing backslash, or "(none)"
  std::string BackupDir;              ///< the same
  std::string ProjectFileName;        ///< title + ".prm"
  std::int16_t FalseMemory = 0;       ///< 1: the last item of each category is a lure, never studied
  std::string PreviousBackupDir;      ///< only in a backup copy: the backup directory when it was made
  std::string FormatMarker;           ///< layout of the source file
  std::array<std::int16_t, kMaxVariables> LevelCounts{};
  std::array<std::string, kMaxVariables> VariableNames;
  std::array<std::array<std::string, kMaxLevels>, kMaxVariables> LevelNames;
  std::array<std::string, kMaxTests> RatedTests;  ///< "Y" or "N" per test

  bool operator==(const ProjectParameters&) const = default;
};

/// True when lures are scored separately: the flag is set, the list is categorised, and categories have 2 or more
/// items.
bool IsFalseMemoryInForce(const ProjectParameters& project) noexcept;

/// True when ratings are recorded and the test's flag is "Y". `test` counts from 1.
bool IsTestRated(const ProjectParameters& project, int test);

/// The name of a level; "" for a level without one. `variable` counts from 0, `level` from 1.
std::string_view LevelName(const ProjectParameters& project, std::size_t variable, int level);

/// A level as tables show it: its name, with the number where another level has like PrimaryDir ("low (2)"); only the
/// number of one without a name.
std::string LevelLabel(const ProjectParameters& project, std::size_t variable, int level);

}  // namespace zova
