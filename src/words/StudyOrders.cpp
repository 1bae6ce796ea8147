// SPDX-License-Identifier: GPL-3.0-or-later

#include "words/StudyOrders.h"

#include <algorithm>
#include <map>
#include <utility>

#include "platform/files/EntryNames.h"
#include "project/StudyItems.h"
#include "text/Csv.h"
#include "words/CompanionCsv.h"

namespace zova {

namespace {

struct OpenOrder {
  std::size_t Index = 0;    // in the orders
  std::size_t Line = 0;     // its last one
  std::vector<bool> Taken;  // positions, from index 0
};

std::string OrderName(const StudyOrder& order) {
  return "subject '" + order.Subject + "' on test " + std::to_string(order.Test);
}

}  // namespace

bool StandsBefore(const StudyOrder& left, const StudyOrder& right) {
  return left.Subject != right.Subject ? ListsBefore(left.Subject, right.Subject) : left.Test < right.Test;
}

std::vector<StudyOrder> ParseStudyOrders(std::string_view bytes, const ProjectParameters& project) {
  CompanionRows rows(bytes, {"subject", "test", "position", "item"});
  const int count = StudiedItemCount(project);
  std::vector<StudyOrder> orders;
  std::map<std::pair<std::string, int>, OpenOrder> open;
  while (rows.Next()) {
    const int test = rows.Number(1, 1, project.TestCount);
    const int position = rows.Number(2, 1, count);
    const int item = rows.Number(3, 1, project.ItemCount);
    const auto [place, isNew] =
        open.try_emplace({std::string(rows.Text(0)), test},
                         OpenOrder{orders.size(), 0, std::vector<bool>(static_cast<std::size_t>(count))});
    if (isNew) {
      orders.push_back(
          {place->first.first, test, std::vector<std::int16_t>(static_cast<std::size_t>(project.ItemCount))});
    }
    OpenOrder& known = place->second;
    StudyOrder& order = orders[known.Index];
    known.Line = rows.Line();
    if (!IsStudied(item, project)) rows.Refuse("Item " + std::to_string(item) + " is a lure, which is not studied");
    std::int16_t& at = order.Positions[static_cast<std::size_t>(item) - 1];
    if (at != 0) rows.Refuse("Item " + std::to_string(item) + " of " + OrderName(order) + " stands twice");
    if (known.Taken[static_cast<std::size_t>(position) - 1]) {
      rows.Refuse("Position " + std::to_string(position) + " of " + OrderName(order) + " is taken twice");
    }
    known.Taken[static_cast<std::size_t>(position) - 1] = true;
    at = static_cast<std::int16_t>(position);
  }
  for (const auto& [key, known] : open) {
    const auto missing = std::find(known.Taken.begin(), known.Taken.end(), false);
    if (missing == known.Taken.end()) continue;
    throw CsvError("Position " + std::to_string(missing - known.Taken.begin() + 1) + " of " +
                       OrderName(orders[known.Index]) + " is missing",
                   known.Line);
  }
  std::sort(orders.begin(), orders.end(),
            [](const StudyOrder& left, const StudyOrder& right) { return StandsBefore(left, right); });
  return orders;
}

std::string FormatStudyOrders(const std::vector<StudyOrder>& orders) {
  std::string text = "subject,test,position,item";
  text += kCsvLineEnd;
  std::vector<std::size_t> items;  // by position
  for (const StudyOrder& order : orders) {
    std::string start;
    AppendCsvField(start, order.Subject);
    start += ',' + std::to_string(order.Test) + ',';
    items.assign(order.Positions.size() + 1, 0);
    for (std::size_t i = 0; i < order.Positions.size(); ++i) {
      items[static_cast<std::size_t>(order.Positions[i])] = i + 1;
    }
    for (std::size_t position = 1; position < items.size(); ++position) {
      if (items[position] == 0) continue;
      text.append(start).append(std::to_string(position)).append(",").append(std::to_string(items[position]));
      text += kCsvLineEnd;
    }
  }
  return text;
}

}  // namespace zova
