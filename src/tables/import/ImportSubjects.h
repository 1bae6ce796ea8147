// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "tables/import/ImportPlan.h"

namespace zova {

/// Gives each subject of the table the identifier that it will have: its own, or a number. An identifier that cannot be
/// one is an error with its row unless subjects are numbered.
void AssignIdentifiers(ImportDraft& draft);

/// Reports what is wrong with the table as a whole: columns, companion files, and more tests, items or subjects than a
/// project may have.
void NoteTableFaults(Disk& disk, ImportDraft& draft);

}  // namespace zova
