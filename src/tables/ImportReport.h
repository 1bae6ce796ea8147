// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "tables/ImportPlan.h"

namespace zova {

/// The dry run as a CSV with the header what,count,row,column,subject,test,text: the totals, then a row per question
/// and case. The same bytes for the same table, options and project.
std::string FormatImportReport(const ImportPlan& plan);

/// The responses that are no words and not decided, as a CSV with the header response,item,distance,count,subject; the
/// item is the proposed one. ParseResponses reads it back (its first two columns).
std::string FormatUnmatched(const ImportPlan& plan);

}  // namespace zova
