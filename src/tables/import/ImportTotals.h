// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/import/ImportPlan.h"

namespace zova {

/// Fills the totals of the plan: how the table is read, its columns and tests, and what its rows come to.
void AddTotals(ImportDraft& draft);

}  // namespace zova
