// SPDX-License-Identifier: GPL-3.0-or-later
//
// The names of a directory's entries: which are temporary, hidden, listed or fit to be stored, and their order.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/files/FileLayer.h"

namespace zova {

/// ".zova-<n>.tmp", the file of a save that is going on or was interrupted. NewTemporaryName has a random number.
bool IsTemporary(std::string_view name) noexcept;
std::string NewTemporaryName();

/// True for a name that no list of directories shows.
bool IsHidden(std::string_view name) noexcept;

/// False for a name that cannot be part of a path in a data file.
bool FitsStoredPath(std::string_view name) noexcept;

/// Which entries of a directory a listing of files has. A dangling link leads to no file.
enum class EntryChoice { Files, DanglingLinks };
/// The names of those that begin with `prefix` and end with `suffix`, without regard to case, in listing order. None is
/// temporary.
std::vector<std::string> NamesOfFiles(std::vector<DirectoryEntry> entries, EntryChoice choice, std::string_view prefix,
                                      std::string_view suffix);

/// Whether `left` stands before `right` in a listing.
bool ListsBefore(std::string_view left, std::string_view right);
/// Sorted by upper-cased name, then by bytes.
std::vector<std::string> InListingOrder(std::vector<std::string> names);

}  // namespace zova
