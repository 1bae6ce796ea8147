// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names of a directory's entries: which are temporary, hidden or fit to be stored, and their order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zova {

/// ".zova-<n>.tmp", the file of a save that is going on or was interrupted. NewTemporaryName has a random number.
bool IsTemporary(std::string_view name) noexcept;
std::string NewTemporaryName();

/// True for a name that no list of directories shows.
bool IsHidden(std::string_view name) noexcept;

/// False for a name that cannot be part of a path in a data file.
bool FitsStoredPath(std::string_view name) noexcept;

/// Whether `left` stands before `right` in a listing.
bool ListsBefore(std::string_view left, std::string_view right);
/// Sorted by upper-cased name, then by bytes.
std::vector<std::string> InListingOrder(std::vector<std::string> names);

}  // namespace zova
