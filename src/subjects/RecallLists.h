// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <vector>

namespace zova {

/// One entry of a recall list; 0 is a blank cell.
struct Recall {
  std::int16_t Item = 0;    ///< item number, from 1
  std::int16_t Minute = 0;  ///< minute of the test, from 1
  std::int16_t Rating = 0;  ///< from 1

  bool operator==(const Recall&) const = default;
};

/// A subject's recall lists: per test the entries in the order of recall, padded with blanks to the length of the study
/// list. Tests and positions count from 1; access is unchecked.
class RecallLists {
 public:
  RecallLists() = default;
  RecallLists(int testCount, int positionCount) { Reset(testCount, positionCount); }

  /// Resizes; sets all entries blank and all counts 0.
  void Reset(int testCount, int positionCount) {
    m_positionCount = positionCount;
    m_entries.assign(static_cast<std::size_t>(testCount) * static_cast<std::size_t>(positionCount), {});
    m_counts.assign(static_cast<std::size_t>(testCount), 0);
  }

  [[nodiscard]] int TestCount() const noexcept { return static_cast<int>(m_counts.size()); }
  [[nodiscard]] int PositionCount() const noexcept { return m_positionCount; }

  [[nodiscard]] Recall& At(int test, int position) noexcept { return m_entries[Index(test, position)]; }
  [[nodiscard]] const Recall& At(int test, int position) const noexcept { return m_entries[Index(test, position)]; }
  /// The test's positions, contiguous.
  [[nodiscard]] Recall* Test(int test) noexcept { return m_entries.data() + Index(test, 1); }
  [[nodiscard]] const Recall* Test(int test) const noexcept { return m_entries.data() + Index(test, 1); }

  /// The last count of positions with an item of 1 or more.
  [[nodiscard]] std::int16_t& RecallCount(int test) noexcept { return m_counts[static_cast<std::size_t>(test) - 1]; }
  [[nodiscard]] std::int16_t RecallCount(int test) const noexcept {
    return m_counts[static_cast<std::size_t>(test) - 1];
  }

  bool operator==(const RecallLists&) const = default;

 private:
  [[nodiscard]] std::size_t Index(int test, int position) const noexcept {
    return (static_cast<std::size_t>(test) - 1) * static_cast<std::size_t>(m_positionCount) +
           static_cast<std::size_t>(position) - 1;
  }

  int m_positionCount = 0;
  std::vector<Recall> m_entries;
  std::vector<std::int16_t> m_counts;
};

}  // namespace zova
