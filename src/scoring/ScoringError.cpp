// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/ScoringError.h"

#include "scoring/MinuteRange.h"

namespace zova {

void ThrowOverflow(std::int64_t value, const char* what, int test) {
  throw ScoringError(ScoringFault::Overflow, std::string(what) + " on test " + std::to_string(test) + " is " +
                                                 std::to_string(value) + ", beyond the 16-bit range");
}

void ThrowItemOutOfRange(int item, int position, int test, int itemCount) {
  throw ScoringError(ScoringFault::SubscriptOutOfRange,
                     "item " + std::to_string(item) + " at position " + std::to_string(position) + " of test " +
                         std::to_string(test) + " is outside 1 to " + std::to_string(itemCount));
}

void ThrowMinuteOutOfRange(const Recall& recall, int test, const ProjectParameters& project) {
  throw ScoringError(ScoringFault::SubscriptOutOfRange,
                     "minute " + std::to_string(recall.Minute) + " of item " + std::to_string(recall.Item) +
                         " on test " + std::to_string(test) + " is outside 1 to " + std::to_string(project.MaxMinutes));
}

}  // namespace zova
