// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "platform/files/FileError.h"
#include "tables/import/ImportPlan.h"

namespace zova {

/// The dry run as a CSV with the header what,count,row,column,subject,test,text: the totals, then a row per question,
/// undecided response and case. The same bytes for the same table, options and project.
std::string FormatImportReport(const ImportPlan& plan);
/// Likewise for a table that cannot be read: one row `error`.
std::string FormatImportReport(const FileError& error);

/// The undecided responses as a CSV with the header response,item,distance,count,subject; the item is the proposed one.
/// A column test follows when lists of one subject need decisions of their own.
/// ParseProposedResponses reads it back.
std::string FormatUnmatched(const ImportPlan& plan);

}  // namespace zova
