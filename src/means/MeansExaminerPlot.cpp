// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the plot of Examine Means shows, and what is chosen for it.

#include <algorithm>

#include "means/LurePositions.h"
#include "means/MeansExaminer.h"
#include "means/RasterPlot.h"
#include "text/Counted.h"
#include "text/NumberText.h"

namespace zova {

void MeansExaminer::SetBars(PlotBars bars) {
  m_options.Bars = bars;
  Compute();
}

void MeansExaminer::SetPlotShown(PlotShown shown) {
  if (m_reading != nullptr) return;
  const bool isThere = shown == PlotShown::Means || (CanRaster() && ComputeFurtherOnce());
  m_shown = isThere ? shown : PlotShown::Means;
  Compute();
}

PlotPicture MeansExaminer::Drawn() const {
  if (m_shown == PlotShown::Raster) {
    MeansRequest request = m_request;
    request.Orders = m_options.Orders;
    return RasterOf(m_table, request, m_options.Colours, *m_project);
  }
  PlotPicture picture;
  if (m_request.Measures.empty()) {
    picture.Note = m_path.empty() ? "There is no master to show." : "Choose a measure.";
    return picture;
  }
  if (!m_serial) return DrawnMeans();
  std::vector<int> tests;
  tests.reserve(m_request.Measures.size());
  for (const std::size_t measure : m_request.Measures) tests.push_back(static_cast<int>(measure) + 1);
  return PictureOf(*m_serial, tests, m_lurePositions);
}

PlotPicture MeansExaminer::DrawnMeans() const {
  PlotPicture picture = PictureOf(m_means, m_options.Bars);
  if (picture.XLabel == TraitsOf(MeasureAxis::Lure).Label) NameLures(picture.Ticks, m_words, *m_project);
  if (m_uncomputed > 0 && !LeavesOut()) {
    picture.Footnote = Counted(m_uncomputed, "value that", "values that") + " could not be computed " +
                       (m_uncomputed == 1 ? "counts" : "count") + " as 0.";
  }
  if (picture.Series.empty()) picture.Note = "There is no value to show.";
  if (!HasIntervals(picture)) return picture;
  picture.Note += picture.Note.empty() ? "" : "  ";
  picture.Note += BarsText(m_options.Bars);
  return picture;
}

PlotAnswers MeansExaminer::Answers() const {
  PlotAnswers answers;
  answers.Colours = m_options.Colours;
  if (const auto known = m_options.Frames.find(m_picture.Kind); known != m_options.Frames.end()) {
    const PlotFrame& frame = known->second;
    answers.Title = frame.Title;
    answers.Min = PlainNumberText(frame.Min);
    answers.Max = PlainNumberText(frame.Max);
  }
  MeansRequest request = m_request;
  request.Orders = m_options.Orders;
  for (OccurringLevels& levels : LevelsOf(m_table, request, OwnProject())) {
    const std::size_t variable = m_request.Variables[answers.Factors.size()];
    answers.Factors.push_back({variable, m_table.Variables[variable], std::move(levels.Names)});
  }
  return answers;
}

bool MeansExaminer::Answer(const PlotAnswers& answers) {
  auto frame = FrameOf(answers.Title, answers.Min, answers.Max);
  if (!frame) {
    Warn(m_platform.Boxes, "The value axis goes from one number to a larger one.",
         "Leave a box empty for an end that fits the plot.");
    return false;
  }
  if (*frame == PlotFrame{}) {
    m_options.Frames.erase(m_picture.Kind);
  } else {
    m_options.Frames[m_picture.Kind] = std::move(*frame);
  }
  m_options.Colours = answers.Colours;
  m_request.Variables.clear();
  for (const PlotFactor& factor : answers.Factors) {
    m_request.Variables.push_back(factor.Variable);
    std::erase_if(m_options.Orders, [&](const LevelOrder& order) { return order.Variable == factor.Name; });
    if (LevelsOf(m_table, factor.Variable, OwnProject()).Names != factor.Levels) {
      m_options.Orders.push_back({factor.Name, factor.Levels});
    }
  }
  Compute();
  return true;
}

}  // namespace zova
