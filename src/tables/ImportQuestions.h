// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "project/ProjectLimits.h"
#include "tables/ImportPlan.h"

namespace zova {

/// Asks what the table leaves undecided and no option answers. `withoutLevel` has the number of subjects without a
/// level that fits, by variable.
void AskQuestions(ImportDraft& draft, const std::array<std::size_t, kMaxVariables>& withoutLevel);

}  // namespace zova
