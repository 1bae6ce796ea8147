// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/OriginalIds.h"

#include <algorithm>
#include <unordered_map>

#include "platform/files/EntryNames.h"
#include "text/Csv.h"
#include "words/CompanionCsv.h"

namespace zova {

bool StandsBefore(const OriginalId& left, const OriginalId& right) { return ListsBefore(left.Subject, right.Subject); }

std::vector<OriginalId> ParseOriginalIds(std::string_view bytes) {
  CompanionRows rows(bytes, {"subject", "original"});
  std::vector<OriginalId> ids;
  std::unordered_map<std::string, std::size_t> subjects;
  std::unordered_map<std::string, std::size_t> originals;
  const auto take = [&](std::unordered_map<std::string, std::size_t>& lines, std::string_view text) {
    const auto [known, isNew] = lines.emplace(text, rows.Line());
    if (!isNew) rows.Refuse("'" + known->first + "' is on line " + std::to_string(known->second) + " already");
    return known->first;
  };
  while (rows.Next()) ids.push_back({take(subjects, rows.Text(0)), take(originals, rows.Text(1))});
  std::sort(ids.begin(), ids.end(),
            [](const OriginalId& one, const OriginalId& other) { return StandsBefore(one, other); });
  return ids;
}

std::string FormatOriginalIds(const std::vector<OriginalId>& ids) {
  std::string text = "subject,original";
  text += kCsvLineEnd;
  for (const OriginalId& id : ids) {
    AppendCsvField(text, id.Subject);
    text += ',';
    AppendCsvField(text, id.Original);
    text += kCsvLineEnd;
  }
  return text;
}

}  // namespace zova
