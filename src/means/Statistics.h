// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <unordered_map>

namespace zova {

/// The two-sided critical value of Student's t: a t variable of `degrees` (at least 1) degrees of freedom lies between
/// -t and t with probability `level` (between 0 and 1). 2.228 for 10 degrees and .95.
double StudentT(int degrees, double level);

/// The probability of the confidence intervals.
inline constexpr double kConfidence = .95;

/// The critical values of the confidence intervals, each found once: a table has as many intervals as it has cells and
/// measures, but few sizes of samples.
class CriticalValues {
 public:
  /// `degrees` of freedom, at least 1.
  double Of(std::size_t degrees);

 private:
  std::unordered_map<std::size_t, double> m_values;
};

/// n, mean and spread of a sample.
struct SampleStatistics {
  std::size_t N = 0;
  std::optional<double> Mean;       ///< nothing for an empty sample
  std::optional<double> Sd;         ///< of the sample (divided by n - 1); nothing below two values
  std::optional<double> HalfWidth;  ///< of the confidence interval of the mean: t(n - 1) * Sd / sqrt(n)

  [[nodiscard]] std::optional<double> Low() const {
    return HalfWidth ? std::optional(*Mean - *HalfWidth) : std::nullopt;
  }
  [[nodiscard]] std::optional<double> High() const {
    return HalfWidth ? std::optional(*Mean + *HalfWidth) : std::nullopt;
  }
};

/// Takes values one by one in one pass (Welford 1962), without the loss of digits that sums of squares have; relative
/// to the first value, so that a large mean costs none of the spread's digits either.
class Sample {
 public:
  void Add(double value) noexcept;
  [[nodiscard]] SampleStatistics Statistics(CriticalValues& critical) const;

 private:
  std::size_t m_n = 0;
  double m_first = 0;
  double m_mean = 0;  // less the first value
  double m_squares = 0;
};

}  // namespace zova
