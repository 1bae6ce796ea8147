// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <string>
#include <system_error>

namespace zova {

/// The system's description of an error as UTF-8, whatever the system's own encoding is.
std::string SystemText(const std::error_code& code);

/// The same of any exception: `what()` of an error of the system may be in the system's encoding.
std::string SystemText(const std::exception& fault);

}  // namespace zova
