// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <sstream>
#include <string>

#include "master/columns/MasterLines.h"
#include "support/Study.h"

namespace zova::testing {

/// What all families make of `lists`.
inline ScoringArrays Scored(const ProjectParameters& project, const std::string& lists) {
  FamilySet all;
  for (std::size_t family = 0; family < kScoreFamilyCount; ++family) all.Add(static_cast<ScoreFamily>(family));
  ScoringArrays scores;
  ScoreSubject(MakeLists(project, lists), project, all, scores);
  return scores;
}

/// The boxes that a test is about, as far as the project has data for them.
inline MeasureSelection Only(const ProjectParameters& project, std::initializer_list<Measure> boxes) {
  MeasureSelection selection;
  selection.SetDefaultMeasures(project);
  for (const MeasureBox& box : AllMeasureBoxes())
    selection.Check(box.Which, std::count(boxes.begin(), boxes.end(), box.Which) > 0);
  return selection;
}

/// The columns of `boxes` in a row of the master, in the form "Net 12 14, Losses 1": each measure with its values.
inline std::string Columns(const ProjectParameters& project, const ScoringArrays& scores,
                           std::initializer_list<Measure> boxes) {
  const MeasureSelection selection = Only(project, boxes);
  std::string row;
  BuildMasterRow("", {}, project, selection, scores, row);
  std::istringstream names(BuildMasterHeader(project, selection, MasterKind::Individual).MasterHeader + ",");
  std::istringstream values(row);
  std::string text;
  std::string last = "Sub ID's";
  for (std::string name, value; std::getline(names, name, ',') && std::getline(values, value, ',');) {
    name.resize(std::min(name.size(), name.find('(')));
    if (name != last) text += text.empty() ? name.substr(1) : "," + name;
    last = name;
    text += value.substr(std::min(value.size(), value.find_last_of(' ')));
  }
  return text;
}

}  // namespace zova::testing
