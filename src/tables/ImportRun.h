// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>

#include "platform/desktop/Platform.h"
#include "tables/ImportPlan.h"

namespace zova {

struct ImportOutcome {
  std::size_t Written = 0;  ///< subjects
  bool Completed = false;   ///< false when it was given up, or the table has changed
};

/// Writes what `draft.Plan` says, which must be one that may be written: first the companion files, then each subject
/// by the same save as a typed one, last the companion files of the subjects that are there. Reads the table again;
/// when its rows are others than those planned, this is reported and nothing more is written. The user may give up
/// after any subject (Progress::ShowCopying).
ImportOutcome RunImport(const ImportDraft& draft, const std::string& paramDir, const Platform& platform);

}  // namespace zova
