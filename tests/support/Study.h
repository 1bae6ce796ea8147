// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <string>
#include <vector>

#include "project/ProjectLayout.h"
#include "project/ProjectParameters.h"
#include "subjects/SubjectFile.h"
#include "support/Scratch.h"

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
  std::vector<std::string> Variables = {};
};

/// The project "AB" of this shape, with its data in C:\Data.
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
  project.Abbreviation = "AB";
  project.PrimaryDir = "C:\\Data";
  project.ProjectFileName = "Study.prm";
  project.FormatMarker = kCurrentMarker;
  project.VariableCount = static_cast<std::int16_t>(shape.Variables.size());
  std::copy(shape.Variables.begin(), shape.Variables.end(), project.VariableNames.begin());
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

/// A project with its subjects' files on a scratch disk.
struct Study {
  explicit Study(const Shape& shape) : Project(MakeProject(shape)) {}
  /// What the file of a subject holds; each variable's level is `level`.
  [[nodiscard]] std::string Subject(const std::string& lists, std::int16_t level = 0) const {
    SubjectRecord record;
    record.Levels.fill(level);
    record.Lists = MakeLists(Project, lists);
    return FormatSubject(record, Project);
  }
  void Put(const std::string& id, const std::string& lists, std::int16_t level = 0) {
    PutFile("AB Sub#" + id + ".dat", Subject(lists, level));
  }
  void PutFile(const std::string& name, const std::string& bytes) { Files.Put("C:\\Data\\Sdata\\" + name, bytes); }
  [[nodiscard]] int SubjectFileCount() {
    return static_cast<int>(ListSubjectFiles(OfFiles, Project, "C:\\Data\\Sdata").size());
  }

  Scratch Files;
  Disk OfFiles = Files.MakeDisk();
  ProjectParameters Project;
};

}  // namespace zova::testing
