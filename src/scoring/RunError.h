// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zova {

enum class RunFault {
  Overflow,            ///< a count or product beyond the 16-bit signed range
  SubscriptOutOfRange  ///< an item or minute outside the project's range
};

/// A subject that cannot be scored; `what()` says what and where ("item 70 on test 2 ...").
class RunError : public std::runtime_error {
 public:
  RunError(RunFault fault, const std::string& reason) : std::runtime_error(reason), m_fault(fault) {}
  [[nodiscard]] RunFault Fault() const noexcept { return m_fault; }

 private:
  RunFault m_fault;
};

/// What the error box says of a fault.
inline const char* RunFaultText(RunFault fault) {
  switch (fault) {
    case RunFault::Overflow: return "Overflow";
    case RunFault::SubscriptOutOfRange: return "Subscript out of range";
  }
  return "";
}

/// Throws the RunError (Overflow) of `what` on `test`.
[[noreturn]] void ThrowOverflow(std::int64_t value, const char* what, int test);

/// `value` as a 16-bit count. Throws RunError (Overflow) naming `what` on `test`.
inline std::int16_t Checked16(std::int64_t value, const char* what, int test) {
  if (value < INT16_MIN || value > INT16_MAX) ThrowOverflow(value, what, test);
  return static_cast<std::int16_t>(value);
}

}  // namespace zova
