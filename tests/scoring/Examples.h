// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <initializer_list>
#include <sstream>
#include <string>

#include "master/columns/MasterLines.h"

namespace zova::testing {

/// The facts of a project that scores depend on; 0 or "" is a thing not kept.
struct Shape {
  std::int16_t Tests = 2;
  std::int16_t Items = 12;
  std::int16_t PerCategory = 0;
  std::int16_t Minutes = 0;
  std::int16_t MaxRating = 0;
  std::string Rated = "";  ///< a flag per test, "YN"
  bool Lures = false;
};

inline ProjectParameters MakeProject(const Shape& shape) {
  ProjectParameters project;
  project.TestCount = shape.Tests;
  project.ItemCount = shape.Items;
  project.Categorized = shape.PerCategory > 0;
  project.ItemsPerCategory = shape.PerCategory;
  if (shape.PerCategory > 0) project.CategoryCount = static_cast<std::int16_t>(shape.Items / shape.PerCategory);
  project.MinutesRecorded = shape.Minutes > 0;
  project.MaxMinutes = shape.Minutes;
  project.Rated = shape.MaxRating > 0;
  project.MaxRating = shape.MaxRating;
  project.FalseMemory = shape.Lures;
  project.FormatMarker = kCurrentMarker;
  for (std::size_t t = 0; t < shape.Rated.size(); ++t) project.RatedTests[t] = shape.Rated.substr(t, 1);
  return project;
}

/// Lists in the form "1 2/3 4/3/7 | 5": item, minute, rating; a bar between tests; 0 is a blank.
inline RecallLists MakeLists(const ProjectParameters& project, const std::string& text) {
  RecallLists lists(project.TestCount, project.ItemCount);
  std::istringstream words(text);
  int test = 1;
  int position = 0;
  for (std::string word; words >> word;) {
    if (word == "|") {
      ++test;
      position = 0;
      continue;
    }
    Recall& recall = lists.At(test, ++position);
    EXPECT_GE(std::sscanf(word.c_str(), "%hd/%hd/%hd", &recall.Item, &recall.Minute, &recall.Rating), 1) << text;
    if (recall.Item >= 1) ++lists.RecallCount(test);
  }
  return lists;
}

/// `count` entries from item `first` on, all in minute 1 with the same rating.
inline std::string Sequence(int count, int rating = 0, int first = 1) {
  std::string text;
  for (int item = first; item < first + count; ++item) {
    text += std::to_string(item) + "/1/" + std::to_string(rating) + " ";
  }
  return text;
}

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
