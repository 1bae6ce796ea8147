// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>

#include "platform/desktop/Platform.h"
#include "tables/import/ImportPlan.h"

namespace zova {

struct ImportOutcome {
  std::size_t Written = 0;  ///< subjects
  bool Completed = false;   ///< false when it was given up, or the table has changed
};

/// Writes what `draft.Plan` says, which must be one that may be written: the companion files, all or none of them, each
/// subject by the save of typed ones, then the companion files again if some were not reached. Reads the table a second
/// time: rows other than those planned are reported, and nothing more is written. The user may give up after any
/// subject (Progress::ShowCopying).
ImportOutcome RunImport(const ImportDraft& draft, const Platform& platform);

}  // namespace zova
