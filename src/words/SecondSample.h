// SPDX-License-Identifier: GPL-3.0-or-later
//
// "AB Second Sample.csv": the subjects chosen at random for a second entry. Columns: subject, percent, seed; the last
// two say how the subject was chosen.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zova {

struct SampledSubject {
  std::string Subject;
  int Percent = 0;         ///< 1 to 100
  std::uint32_t Seed = 0;  ///< of the random numbers

  bool operator==(const SampledSubject&) const = default;
};

/// In listing order, each subject once. Throws CsvError.
std::vector<SampledSubject> ParseSecondSample(std::string_view bytes);
std::string FormatSecondSample(const std::vector<SampledSubject>& sample);

/// Chooses `percent` of the subjects, rounded up, by random numbers from `seed`: the same ones on every computer.
std::vector<SampledSubject> DrawSecondSample(const std::vector<std::string>& subjectIds, int percent,
                                             std::uint32_t seed);

}  // namespace zova
