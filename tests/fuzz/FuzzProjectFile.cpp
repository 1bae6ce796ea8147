// SPDX-License-Identifier: GPL-3.0-or-later
//
// Any bytes as a parameter file: either a FieldError or a record within its tables. A record that was read is written
// in the current layout and must come back the same.

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "Require.h"
#include "project/ProjectFile.h"
#include "text/FieldReader.h"

using namespace zova;

namespace {

void RequireWithinTables(const ProjectParameters& project) {
  const auto within = [](int count, int most) { return count >= 0 && count <= most; };
  Require(within(project.TestCount, kMaxTests) && within(project.VariableCount, kMaxVariables), "a shape with a table");
  for (const int count :
       {project.ItemCount, project.CategoryCount, project.ItemsPerCategory, project.MaxMinutes, project.MaxRating}) {
    Require(count >= 0, "no negative count");
  }
  for (const int levels : project.LevelCounts) Require(within(levels, kMaxLevels), "levels within 11");
}

// The layout escapes nothing, so a text with a quote in it (possible in an unquoted field) cannot come back.
bool HasQuotes(const ProjectParameters& project) {
  const auto hasQuote = [](const std::string& text) { return text.find('"') != std::string::npos; };
  const auto anyHasQuote = [&](const auto& texts) { return std::any_of(texts.begin(), texts.end(), hasQuote); };
  return hasQuote(project.Abbreviation) || hasQuote(project.PrimaryDir) || hasQuote(project.BackupDir) ||
         hasQuote(project.ProjectFileName) || hasQuote(project.PreviousBackupDir) ||
         anyHasQuote(project.VariableNames) || anyHasQuote(project.RatedTests) ||
         std::any_of(project.LevelNames.begin(), project.LevelNames.end(), anyHasQuote);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ProjectParameters project;
  try {
    project = ParseProject(bytes, "C:\\Param\\Fuzz.prm");
  } catch (const FieldError&) {
    return 0;
  }
  RequireWithinTables(project);

  project.FormatMarker = kCurrentMarker;
  const std::string written = FormatProject(project, kCurrentMarker, project.PreviousBackupDir);
  if (HasQuotes(project)) return 0;
  Require(ParseProject(written, "C:\\Param\\Fuzz.prm") == project, "a written project is read back the same");
  return 0;
}
