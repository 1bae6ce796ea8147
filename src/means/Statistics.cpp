// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/Statistics.h"

#include <boost/math/distributions/students_t.hpp>
#include <cassert>
#include <cmath>

namespace zova {

double StudentT(int degrees, double level) {
  assert(degrees >= 1 && level > 0 && level < 1);
  const boost::math::students_t_distribution<double> distribution(degrees);
  return boost::math::quantile(boost::math::complement(distribution, (1 - level) / 2));
}

double CriticalValues::Of(std::size_t degrees) {
  const auto [value, isNew] = m_values.emplace(degrees, 0);
  if (isNew) value->second = StudentT(static_cast<int>(degrees), kConfidence);
  return value->second;
}

void Sample::Add(double value) noexcept {
  if (m_n++ == 0) m_first = value;
  value -= m_first;
  m_sum += value;
  const double before = value - m_mean;
  m_mean += before / static_cast<double>(m_n);
  m_squares += before * (value - m_mean);
}

SampleStatistics Sample::Statistics(CriticalValues& critical) const {
  SampleStatistics statistics{m_n, std::nullopt, std::nullopt, std::nullopt};
  if (m_n >= 1) statistics.Mean = m_first + m_sum / static_cast<double>(m_n);
  if (m_n < 2) return statistics;
  const auto n = static_cast<double>(m_n);
  statistics.Sd = std::sqrt(m_squares / (n - 1));
  statistics.HalfWidth = critical.Of(m_n - 1) * *statistics.Sd / std::sqrt(n);
  return statistics;
}

}  // namespace zova
