// SPDX-License-Identifier: GPL-3.0-or-later
//
// How far two entries of the same protocols agree.
//
// Cohen's kappa: J. Cohen (1960), A coefficient of agreement for nominal scales, Educational and Psychological
// Measurement 20, 37-46. Its standard error: J. L. Fleiss, J. Cohen and B. S. Everitt (1969), Large sample standard
// errors of kappa and weighted kappa, Psychological Bulletin 72, 323-327.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "project/ProjectParameters.h"
#include "subjects/SubjectRecord.h"

namespace zova {

/// Cohen's kappa with its 95 % interval.
struct Kappa {
  double Value = 0;
  double Low = 0;
  double High = 0;
};

/// Of a square table: how often the first rater chose the row's category and the second one the column's. nullopt when
/// it is not defined, since both always chose the same single category, or nothing was rated.
std::optional<Kappa> KappaOf(const std::vector<std::vector<std::int64_t>>& table);

/// The counts of some subjects or tests.
struct Agreement {
  std::int64_t Cells = 0;  ///< items, minutes, ratings and levels of both entries, side by side
  std::int64_t AgreeingCells = 0;
  std::int64_t Differences = 0;
  /// For each item and test: recalled in both entries, in the first alone, in the second alone, in none.
  std::array<std::int64_t, 4> Items{};

  Agreement& operator+=(const Agreement& other);
};

/// The agreement of first and second entries: of all, by test, by level of each variable, and by subject, those that
/// differ most first.
class AgreementReport {
 public:
  explicit AgreementReport(const ProjectParameters& project);

  /// Levels count by the first entry.
  void Add(std::string_view subjectId, const SubjectRecord& first, const SubjectRecord& second);
  [[nodiscard]] std::size_t SubjectCount() const noexcept { return m_subjects.size(); }
  /// RFC 4180.
  [[nodiscard]] std::string CsvText() const;

 private:
  struct Part {
    std::string Name;
    std::int64_t Subjects = 0;
    Agreement Counts;
  };
  [[nodiscard]] Part* LevelPart(std::size_t variable, int level);

  const ProjectParameters& m_project;
  Part m_all;
  std::vector<Part> m_tests;
  std::vector<std::vector<Part>> m_levels;  // by variable and level
  std::vector<Part> m_subjects;
};

}  // namespace zova
