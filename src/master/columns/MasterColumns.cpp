// SPDX-License-Identifier: GPL-3.0-or-later
//
// Walks the families in the order of their table, each by tests or pairs of tests and within these by minutes or lures.
// Families marked BesideLast alternate at every place.

#include "master/columns/MasterColumns.h"

#include <algorithm>

namespace zova {

namespace {

using Families = std::span<const MeasureFamily>;

class Walk {
 public:
  Walk(const ProjectParameters& project, const ScoringArrays& scores, ColumnSink& sink)
      : m_project(project), m_scores(scores), m_sink(sink) {}

  // All columns of families that alternate.
  void Hand(Families families) {
    const MeasureShape& shape = families.front().Shape;
    const int tests = m_project.TestCount;
    m_onlyRated = (NeedsOf(families.front()) & Needs::Ratings) != 0;
    if (shape.FirstTest == 0) {
      HandAt(families, {shape.Axis == MeasureAxis::Pattern ? tests : 0, 1});
      return;
    }
    for (int test = shape.FirstTest; test <= tests; ++test) {
      if (shape.Axis == MeasureAxis::TestPair) {
        HandAt(families, {test - 1, test});
      } else {
        HandAt(families, {test, TraitsOf(shape.Axis).LiesWithinTests ? 1 : test});
      }
    }
    if (shape.HasFirstToLast && tests >= 3) HandAt(families, {1, tests});
  }

 private:
  void HandAt(Families families, ColumnPlace place) {
    if (m_onlyRated && !AreRated(families.front().Shape.Axis, place)) return;
    for (const MeasureFamily& family : families) {
      MasterColumn column{&family, place};
      if (const auto* counts = std::get_if<CountsAt>(&family.Values)) {
        for (const std::int16_t value : (*counts)(m_scores, place)) {
          m_sink.Count(column, value);
          ++column.Place.Index;
        }
      } else {
        for (const Ratio& value : std::get<SharesAt>(family.Values)(m_scores, place)) {
          m_sink.Share(column, value);
          ++column.Place.Index;
        }
      }
    }
  }

  [[nodiscard]] bool AreRated(MeasureAxis axis, ColumnPlace place) const {
    return IsTestRated(m_project, place.Test) && (axis != MeasureAxis::TestPair || IsTestRated(m_project, place.Index));
  }

  const ProjectParameters& m_project;
  const ScoringArrays& m_scores;
  ColumnSink& m_sink;
  bool m_onlyRated = false;
};

class VisitSink final : public ColumnSink {
 public:
  explicit VisitSink(const std::function<void(const MasterColumn&)>& visit) : m_visit(visit) {}
  void Count(const MasterColumn& column, std::int16_t) override { m_visit(column); }
  void Share(const MasterColumn& column, const Ratio&) override { m_visit(column); }

 private:
  const std::function<void(const MasterColumn&)>& m_visit;
};

}  // namespace

void WalkMeasureColumns(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                        const ScoringArrays& scores, ColumnSink& sink) {
  Walk walk(project, scores, sink);
  const auto isBeside = [](const MeasureFamily& family) { return (family.Rules & MeasureFamily::BesideLast) != 0; };
  for (Families rest = AllMeasureFamilies(); !rest.empty();) {
    const auto end = std::find_if_not(rest.begin() + 1, rest.end(), isBeside);
    const Families families(rest.begin(), end);
    rest = Families(end, rest.end());
    const MeasureFamily& family = families.front();
    const bool isOfKind = kind == MasterKind::Individual || (family.Rules & MeasureFamily::IndividualOnly) == 0;
    if (isOfKind && selection.IsChecked(family.Box) && HasDataFor(NeedsOf(family), project)) walk.Hand(families);
  }
}

void ForEachColumn(const ProjectParameters& project, const MeasureSelection& selection, MasterKind kind,
                   const std::function<void(const MasterColumn&)>& visit) {
  VisitSink sink(visit);
  ScoringArrays empty;
  ResetScores(empty, project);
  WalkMeasureColumns(project, selection, kind, empty, sink);
}

}  // namespace zova
