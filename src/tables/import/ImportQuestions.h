// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>

#include "project/ProjectLimits.h"
#include "tables/import/ImportPlan.h"

namespace zova {

/// Asks what the table leaves open before it is known which words its responses are: the tests, the first number, the
/// unit of its minutes.
void AskAboutTable(ImportDraft& draft);

/// Asks what the table leaves undecided, be it answered by an option or not. `withoutLevel` has the number of subjects
/// for whom the table has no level that fits, by variable.
void AskQuestions(ImportDraft& draft, const std::array<std::size_t, kMaxVariables>& withoutLevel);

}  // namespace zova
