// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace zova {

/// "1 row", "2 rows": the number, and the word for one or for several. The number may also be a text, such as "-".
inline std::string Counted(std::string_view number, std::string_view one, std::string_view several) {
  return std::string(number).append(" ").append(number == "1" ? one : several);
}
inline std::string Counted(std::size_t number, std::string_view one, std::string_view several) {
  return Counted(std::to_string(number), one, several);
}

}  // namespace zova
