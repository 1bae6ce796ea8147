// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectOpening.h"

#include "project/ProjectFile.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

using namespace zova;
using namespace zova::testing;

TEST(ProjectOpening, AsksUntilAFileIsReadOrGivenUp) {
  Scratch scratch;
  scratch.Put("C:\\P.prm", FormatProject(ExampleProject("C:\\ZOVA"), kCurrentMarker));
  scratch.Put("C:\\notes.prm", "no project");
  Disk disk = scratch.MakeDisk();
  const ExpectedBox noProject{.Text = "This is not a valid file format.  Please select a different file."};
  const std::string missing = std::make_error_code(std::errc::no_such_file_or_directory).message();
  ScriptedBoxes boxes{noProject, noProject, {missing, BoxAnswer::Retry}, {missing, BoxAnswer::Cancel}};
  FileErrorHandler errors(boxes);
  ScriptedChoosers choosers;
  choosers.Answers = {"C:\\notes.prm", "C:\\notes.prm", "C:\\P.prm", std::nullopt, "C:\\none.prm"};
  for (const char* expected : {"C:\\P.prm", "cancelled", "cancelled"}) {
    const auto project = ChooseProject("Load Project", "C:\\Param", disk, choosers, errors);
    EXPECT_EQ(project ? project->Path : "cancelled", expected);
  }
  EXPECT_EQ(choosers.Questions.back().Directory + choosers.Questions.back().Filters.at(1).Pattern, "C:\\Param*");
}
