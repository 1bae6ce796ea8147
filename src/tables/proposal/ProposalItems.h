// SPDX-License-Identifier: GPL-3.0-or-later
//
// The items of a new project: how many, their words and their categories. A word list that is given says it all but
// the categories. In a table of numbers the rows say which word and category a number has; otherwise the studied words
// are numbered by category, then in the order of their first rows.
#pragma once

#include "tables/proposal/ProposalSurvey.h"

namespace zova {

/// Sets them in a proposal that has the given word list or none. What makes a project impossible is its fault; what is
/// left out, a note. Throws FileError.
void ProposeItems(Disk& disk, const ProposalSurvey& survey, const ImportDraft& draft, ProjectProposal& proposal);

}  // namespace zova
