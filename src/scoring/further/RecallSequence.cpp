// SPDX-License-Identifier: GPL-3.0-or-later

#include "scoring/further/RecallSequence.h"

#include "scoring/ScoringError.h"

namespace zova {

namespace {

void AddIntrusion(RecallSequence& sequence) {
  sequence.Entries.push_back({0, RecallKind::Intrusion});
  sequence.Chain.push_back(0);
  ++sequence.Intrusions;
}

void AddItem(std::int16_t item, const StudyList& study, RecallSequence& sequence) {
  const auto at = static_cast<std::size_t>(item);
  const bool isFirst = !sequence.Has[at];
  sequence.Has[at] = true;
  if (study.LureAt[at]) {
    sequence.Entries.push_back({item, isFirst ? RecallKind::Lure : RecallKind::RepeatedLure});
    sequence.Chain.push_back(0);
    sequence.Lures += isFirst ? 1 : 0;
    return;
  }
  sequence.Entries.push_back({item, isFirst ? RecallKind::First : RecallKind::Repeat});
  if (!isFirst) {
    ++sequence.Repeats;
    return;
  }
  sequence.Items.push_back(item);
  sequence.Chain.push_back(item);
}

}  // namespace

void ReadSequence(const RecallLists& lists, int test, std::span<const IntrusionPlace> intrusions,
                  const StudyList& study, RecallSequence& sequence) {
  sequence.Entries.clear();
  sequence.Items.clear();
  sequence.Chain.clear();
  sequence.Has.assign(study.LureAt.size(), false);
  sequence.Repeats = sequence.Lures = sequence.Intrusions = 0;
  int place = 0;
  for (int position = 1; position <= lists.PositionCount(); ++position) {
    const std::int16_t item = lists.At(test, position).Item;
    if (item == 0) continue;
    if (item < 1 || item > study.ItemCount) ThrowItemOutOfRange(item, position, test, study.ItemCount);
    for (; !intrusions.empty() && intrusions.front().Place <= place; intrusions = intrusions.subspan(1)) {
      AddIntrusion(sequence);
    }
    AddItem(item, study, sequence);
    ++place;
  }
  for (std::size_t left = intrusions.size(); left > 0; --left) AddIntrusion(sequence);
}

}  // namespace zova
