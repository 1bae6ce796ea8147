// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "master/groups/SerialPositions.h"
#include "platform/desktop/MessageBoxes.h"
#include "platform/files/Disk.h"
#include "scoring/further/RecallMarks.h"
#include "scoring/further/ScoreFurther.h"
#include "words/WordList.h"

namespace zova {

/// Whose order of study a list has.
enum class OrderOrigin {
  Subject,  ///< the subject's own
  Saved,    ///< that of all subjects, named or saved
  None      ///< not known
};

/// "subject", "saved", "none".
std::string_view OrderOriginText(OrderOrigin origin);

/// What the further measures and the long CSV need beside the subjects' files.
struct FurtherData {
  StudyList Study;
  FurtherGap NoIntrusions = FurtherGap::NoIntrusionsFile;                   ///< None if intrusions were kept
  FurtherGap NoOrder = FurtherGap::NoStudyOrder;                            ///< why orders are not known that are not
  std::unordered_map<std::string, std::vector<IntrusionPlace>> Intrusions;  ///< by subject: by test, then place
  std::unordered_map<std::string, std::vector<StudyRanks>> Orders;  ///< by subject and test; empty where not known
  StudyRanks Common;                                                ///< of all others; empty if not known
  WordList Words;
  std::vector<FileError> Faults;  ///< of companion files with a line that does not fit, which are passed over
};

struct KnownOrder {
  const StudyRanks* Ranks = nullptr;  ///< null if not known
  OrderOrigin Origin = OrderOrigin::None;
};

/// The subject's own order of the test, else the common one.
KnownOrder OrderOf(const FurtherData& data, const std::string& subjectId, int test);

/// The subject's intrusions; none if there are none.
std::span<const IntrusionPlace> IntrusionsOf(const FurtherData& data, const std::string& subjectId);

/// Reads the companion files. The common order is `named`, else the saved serial order. Throws FileError.
FurtherData ReadFurtherData(Disk& disk, const ProjectParameters& project, const std::optional<SerialOrder>& named);

/// Whose orders the lists of a subject have, counted.
using OrderCounts = std::array<std::size_t, 3>;  ///< by OrderOrigin
void CountOrders(const FurtherData& data, const std::string& subjectId, OrderCounts& counts);

/// Tells of each file that is passed over.
void WarnOfFaults(const FurtherData& data, MessageBoxes& boxes);

/// Computes the further measures of one subject after the other. `data` must outlive it.
class FurtherScorer {
 public:
  FurtherScorer(const FurtherData& data, FurtherColumns columns) : m_data(data), m_columns(columns) {}

  /// Valid until the next call. Throws ScoringError.
  const FurtherScores& Score(const std::string& subjectId, const RecallLists& lists);
  /// Adds the lists of the subject scored last.
  void AppendLists(RecallMarks& marks) const { AppendMarks(m_work.Tests, m_orders, m_data.Study, marks); }

 private:
  const FurtherData& m_data;
  FurtherColumns m_columns;
  FurtherScores m_scores;
  FurtherWork m_work;
  std::vector<const StudyRanks*> m_orders;
};

}  // namespace zova
