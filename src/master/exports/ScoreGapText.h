// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

#include "scoring/Score.h"

namespace zova {

/// The reason in words: "fewer than 2 categories or 3 recalls". "" for None.
std::string_view ScoreGapText(ScoreGap gap);

}  // namespace zova
