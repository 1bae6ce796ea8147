// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/FurtherData.h"

#include "master/groups/SavedOrders.h"
#include "words/CompanionCsv.h"
#include "words/Intrusions.h"
#include "words/StudyOrders.h"

namespace zova {

std::string_view OrderOriginText(OrderOrigin origin) {
  switch (origin) {
    case OrderOrigin::Subject: return "subject";
    case OrderOrigin::Saved: return "saved";
    case OrderOrigin::None: return "none";
  }
  return "";
}

KnownOrder OrderOf(const FurtherData& data, const std::string& subjectId, int test) {
  const auto own = data.Orders.find(subjectId);
  if (own != data.Orders.end()) {
    const StudyRanks& ranks = own->second[static_cast<std::size_t>(test) - 1];
    if (!ranks.empty()) return {&ranks, OrderOrigin::Subject};
  }
  if (data.Common.empty()) return {};
  return {&data.Common, OrderOrigin::Saved};
}

std::span<const IntrusionPlace> IntrusionsOf(const FurtherData& data, const std::string& subjectId) {
  const auto intrusions = data.Intrusions.find(subjectId);
  if (intrusions == data.Intrusions.end()) return {};
  return intrusions->second;
}

FurtherData ReadFurtherData(Disk& disk, const ProjectParameters& project, const std::optional<SerialOrder>& named) {
  FurtherData data;
  data.Study = MakeStudyList(project);
  enum class Found { Nothing, Whole, Unfit };
  const auto load = [&](CompanionFile file, auto&& parse) {
    const auto bytes = ReadCompanion(disk, project, file);
    if (!bytes) return Found::Nothing;
    try {
      parse(*bytes);
      return Found::Whole;
    } catch (const CsvError& fault) {
      data.Faults.push_back(CompanionError(fault, CompanionPath(project.PrimaryDir, project, file)));
      return Found::Unfit;
    }
  };
  const Found intrusions = load(CompanionFile::Intrusions, [&](const std::string& bytes) {
    for (const Intrusion& intrusion : ParseIntrusions(bytes, project)) {
      data.Intrusions[intrusion.Subject].push_back(
          {static_cast<std::int16_t>(intrusion.Test), static_cast<std::int16_t>(intrusion.Place)});
    }
  });
  if (intrusions == Found::Whole) data.NoIntrusions = FurtherGap::None;
  if (intrusions == Found::Unfit) data.NoIntrusions = FurtherGap::IntrusionsUnfit;
  const Found orders = load(CompanionFile::StudyOrder, [&](const std::string& bytes) {
    for (const StudyOrder& order : ParseStudyOrders(bytes, project)) {
      std::vector<StudyRanks>& tests = data.Orders[order.Subject];
      tests.resize(static_cast<std::size_t>(project.TestCount));
      tests[static_cast<std::size_t>(order.Test) - 1] = RanksOf(order.Positions, data.Study);
    }
  });
  if (orders == Found::Unfit) data.NoOrder = FurtherGap::StudyOrdersUnfit;
  load(CompanionFile::Words, [&](const std::string& bytes) { data.Words = ParseWordList(bytes, project); });
  const std::optional<SerialOrder> common = named ? named : ReadSavedSerialOrder(disk, project);
  if (common) data.Common = RanksOf(*common, data.Study);
  return data;
}

void CountOrders(const FurtherData& data, const std::string& subjectId, OrderCounts& counts) {
  for (int test = 1; test <= data.Study.TestCount; ++test) {
    ++counts[static_cast<std::size_t>(OrderOf(data, subjectId, test).Origin)];
  }
}

void WarnOfFaults(const FurtherData& data, MessageBoxes& boxes) {
  for (const FileError& fault : data.Faults) WarnPassedOver(boxes, fault);
}

const FurtherScores& FurtherScorer::Score(const std::string& subjectId, const RecallLists& lists) {
  m_orders.clear();
  for (int test = 1; test <= m_data.Study.TestCount; ++test) m_orders.push_back(OrderOf(m_data, subjectId, test).Ranks);
  ScoreFurther({lists, m_data.NoIntrusions, IntrusionsOf(m_data, subjectId), m_orders, m_data.NoOrder}, m_data.Study,
               m_columns, m_scores, m_work);
  return m_scores;
}

}  // namespace zova
