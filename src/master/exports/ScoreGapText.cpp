// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/ScoreGapText.h"

namespace zova {

std::string_view ScoreGapText(ScoreGap gap) {
  switch (gap) {
    case ScoreGap::None: return "";
    case ScoreGap::TooFewRecalls: return "fewer than 2 categories or 3 recalls";
    case ScoreGap::NoRoom: return "every recall is of another category";
    case ScoreGap::EmptyList:
      return "no recall to compute it from";  // on one of the tests, of a lure, or of a category
    case ScoreGap::NothingInCommon: return "no item was recalled on both tests";
    case ScoreGap::NotScored: return "not scored";
  }
  return "";
}

}  // namespace zova
