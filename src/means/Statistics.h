// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cmath>
#include <cstddef>
#include <optional>
#include <unordered_map>

namespace zova {

/// The two-sided critical value of Student's t: with `degrees` (at least 1) degrees of freedom, P(-t < T < t) = `level`
/// (between 0 and 1). 2.228 for 10 degrees and .95.
double StudentT(int degrees, double level);

/// Level of the confidence intervals.
inline constexpr double kConfidence = .95;

/// Caches the critical values of the confidence intervals: a table has many intervals but few sample sizes.
class CriticalValues {
 public:
  /// `degrees` of freedom: at least 1.
  double Of(std::size_t degrees);

 private:
  std::unordered_map<std::size_t, double> m_values;
};

/// n, mean and dispersion of a sample.
struct SampleStatistics {
  std::size_t N = 0;
  std::optional<double> Mean;       ///< nullopt for an empty sample
  std::optional<double> Sd;         ///< sample standard deviation (n - 1); nullopt below two values
  std::optional<double> HalfWidth;  ///< of the confidence interval of the mean: t(n - 1) * Sd / sqrt(n)

  /// The standard error of the mean.
  [[nodiscard]] std::optional<double> Se() const {
    return Sd ? std::optional(*Sd / std::sqrt(static_cast<double>(N))) : std::nullopt;
  }
  [[nodiscard]] std::optional<double> Low() const {
    return HalfWidth ? std::optional(*Mean - *HalfWidth) : std::nullopt;
  }
  [[nodiscard]] std::optional<double> High() const {
    return HalfWidth ? std::optional(*Mean + *HalfWidth) : std::nullopt;
  }
};

/// Accumulates a sample in one pass by Welford's algorithm, without the cancellation of sums of squares. Values are
/// taken relative to the first one, so that a large mean costs no precision either. Welford, B. P. (1962). Note on a
/// method for calculating corrected sums of squares and products. Technometrics, 4, 419-420.
class Sample {
 public:
  void Add(double value) noexcept;
  [[nodiscard]] SampleStatistics Statistics(CriticalValues& critical) const;

 private:
  std::size_t m_n = 0;
  double m_first = 0;
  double m_mean = 0;  // relative to the first value, as it grew
  double m_sum = 0;   // likewise relative: of whole numbers it is exact, so that equal means look alike
  double m_squares = 0;
};

}  // namespace zova
