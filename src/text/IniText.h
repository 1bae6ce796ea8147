// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zova {

/// The text of a key in an INI file as Qt writes it; nullopt when there is none. Names are compared with their case.
std::optional<std::string> IniValue(std::string_view content, std::string_view section, std::string_view key);

/// `content` with that key set to `value`, or without it. All other lines stay byte for byte.
std::string WithIniValue(std::string_view content, std::string_view section, std::string_view key,
                         const std::optional<std::string>& value);

}  // namespace zova
