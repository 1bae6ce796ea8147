// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/LurePositions.h"

#include "master/groups/SavedOrders.h"
#include "project/ProjectLayout.h"
#include "project/StudyItems.h"
#include "scoring/ScoreSubject.h"
#include "text/Encoding.h"
#include "text/LeadingNumber.h"

namespace zova {

std::set<int> LurePositions(const ProjectParameters& project, std::string_view masterPath, int positionCount,
                            Disk& disk) {
  const std::string own = ResultName(project, ResultFile::SerialMaster);
  if (!IsFalseMemoryInForce(project) || positionCount != project.ItemCount ||
      !EqualsIgnoringCase(LastPathComponent(masterPath), own)) {
    return {};
  }
  SerialOrder order = FirstSerialOrder(project);
  try {
    order = ReadSavedSerialOrder(disk, project).value_or(order);
  } catch (const FileError&) {
    // The order screen reports it; until then the first order holds, as it does there.
  }
  std::set<int> positions;
  for (int item = 1; item <= project.ItemCount; ++item) {
    if (IsLure(item, project)) positions.insert(order[static_cast<std::size_t>(item) - 1]);
  }
  return positions;
}

void NameLures(std::vector<std::string>& ticks, const WordList& words, const ProjectParameters& project) {
  for (std::string& tick : ticks) {
    const int lure = LeadingInteger16(tick).value_or(0);
    const std::string_view word = words.TextOf(lure * project.ItemsPerCategory);
    if (!word.empty()) tick.append(" ").append(word);
  }
}

}  // namespace zova
