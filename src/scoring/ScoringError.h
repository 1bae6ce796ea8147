// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zova {

enum class ScoringFault {
  Overflow,            ///< a count or product beyond the 16-bit signed range
  SubscriptOutOfRange  ///< an item or minute outside the project's range
};

/// A subject that cannot be scored, or a master with too many columns. `what()` names the value and its place ("item 70
/// on test 2 ...").
class ScoringError : public std::runtime_error {
 public:
  ScoringError(ScoringFault fault, const std::string& reason) : std::runtime_error(reason), m_fault(fault) {}
  [[nodiscard]] ScoringFault Fault() const noexcept { return m_fault; }

 private:
  ScoringFault m_fault;
};

/// The error box's text.
inline const char* ScoringFaultText(ScoringFault fault) {
  switch (fault) {
    case ScoringFault::Overflow: return "Overflow";
    case ScoringFault::SubscriptOutOfRange: return "Subscript out of range";
  }
  return "";
}

/// Throws ScoringError (Overflow) naming `what` on `test`.
[[noreturn]] void ThrowOverflow(std::int64_t value, const char* what, int test);

/// Throws ScoringError (SubscriptOutOfRange) for an item beyond the study list.
[[noreturn]] void ThrowItemOutOfRange(int item, int position, int test, int itemCount);

/// `value` as a 16-bit count. Throws ScoringError (Overflow) naming `what` on `test`.
inline std::int16_t Checked16(std::int64_t value, const char* what, int test) {
  if (value < INT16_MIN || value > INT16_MAX) ThrowOverflow(value, what, test);
  return static_cast<std::int16_t>(value);
}

}  // namespace zova
