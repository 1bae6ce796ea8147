// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/Intrusions.h"

#include <algorithm>
#include <tuple>

#include "platform/files/EntryNames.h"
#include "text/Csv.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

void AppendKept(std::string& line, int value) {
  line += ',';
  if (value != 0) line += std::to_string(value);
}

}  // namespace

bool StandsBefore(const Intrusion& left, const Intrusion& right) {
  if (left.Subject != right.Subject) return ListsBefore(left.Subject, right.Subject);
  return std::tie(left.Test, left.Place) < std::tie(right.Test, right.Place);
}

std::vector<Intrusion> ParseIntrusions(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"subject", "test", "place", "response", "minute", "rating"});
  std::vector<Intrusion> intrusions;
  while (rows.Next()) {
    intrusions.push_back({.Subject = std::string(rows.Text(0)),
                          .Test = rows.Number(1, 1, project.TestCount),
                          .Place = rows.Number(2, 0, project.ItemCount),
                          .Response = std::string(rows.Text(3)),
                          .Minute = rows.NumberOrEmpty(4, 1, kMaxMinutes),
                          .Rating = rows.NumberOrEmpty(5, 1, kMaxRating)});
  }
  std::stable_sort(intrusions.begin(), intrusions.end(),
                   [](const Intrusion& left, const Intrusion& right) { return StandsBefore(left, right); });
  return intrusions;
}

std::string FormatIntrusions(const std::vector<Intrusion>& intrusions) {
  std::string text = "subject,test,place,response,minute,rating";
  text += kCsvLineEnd;
  for (const Intrusion& intrusion : intrusions) {
    AppendCsvField(text, intrusion.Subject);
    text += ',' + std::to_string(intrusion.Test) + ',' + std::to_string(intrusion.Place) + ',';
    AppendCsvField(text, intrusion.Response);
    AppendKept(text, intrusion.Minute);
    AppendKept(text, intrusion.Rating);
    text += kCsvLineEnd;
  }
  return text;
}

}  // namespace zova
