// SPDX-License-Identifier: GPL-3.0-or-later

#include "text/Capitals.h"

#include <utf8proc.h>

namespace zova {

// Sharp s and Georgian stay as they are: few fonts have their capitals.
char32_t CapitalOf(char32_t letter) noexcept {
  if (letter < 0x80) return letter >= 'a' && letter <= 'z' ? letter - 'a' + 'A' : letter;
  if (letter == 0xDF || (letter >= 0x10D0 && letter <= 0x10FF)) return letter;
  return static_cast<char32_t>(utf8proc_toupper(static_cast<utf8proc_int32_t>(letter)));
}

}  // namespace zova
