// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace zova {

/// The capital of a code point, in every locale; the code point itself if it has none of one letter.
char32_t CapitalOf(char32_t letter) noexcept;

}  // namespace zova
