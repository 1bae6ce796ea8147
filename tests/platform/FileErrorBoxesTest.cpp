// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileErrorBoxes.h"

#include <gtest/gtest.h>

#include "support/ScriptedBoxes.h"

using namespace zova;
using namespace zova::testing;

TEST(FileErrorBoxes, ReportsEachCause) {
  const char* const notFound = "Path not found.  Please verify that the correct disk is in the drive.";
  const std::error_code full = std::make_error_code(std::errc::no_space_on_device);
  ScriptedBoxes boxes{{.Text = "This is not a valid file format.  Please select a different file.",
                       .Details = "Reading 'C:\\a.dat'\nLine 3: odd.",
                       .Icon = BoxIcon::Exclamation,
                       .Buttons = BoxButtons::Ok}};
  for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
    for (const std::string& text : {std::string(notFound), full.message()}) {
      boxes.Expect({text, answer, "'C:\\b.dat'", BoxIcon::Exclamation, BoxButtons::RetryCancel});
    }
  }
  EXPECT_TRUE(ReportFileError(boxes, {FileOperation::Read, "C:\\a.dat", FileCause::EndOfData, "Line 3: odd."}));
  for (const bool retry : {true, false}) {
    EXPECT_EQ(ReportFileError(boxes, {FileOperation::Copy, "C:\\b.dat", FileCause::PathNotFound}), retry);
    EXPECT_EQ(ReportFileError(boxes, {FileOperation::Write, "C:\\b.dat", full}), retry);
  }
  EXPECT_FALSE(ReportFileError(boxes, {FileOperation::Read, "", FileCause::DialogCancelled}));
}

TEST(FileErrorBoxes, RepeatsTheStepAsAnswered) {
  const std::tuple<FileCause, BoxAnswer, int> cases[] = {{FileCause::System, BoxAnswer::Retry, 3},
                                                         {FileCause::System, BoxAnswer::Cancel, 1},
                                                         {FileCause::EndOfData, BoxAnswer::Retry, 1}};
  for (const auto& [cause, answer, expectedRuns] : cases) {
    AnsweringBoxes boxes(answer);
    int runs = 0;
    const bool done = WithRetry(boxes, [&, failing = cause] {
      if (++runs < 3) throw FileError(FileOperation::Read, "C:\\x", failing);
    });
    EXPECT_EQ(runs, expectedRuns);
    EXPECT_EQ(done, expectedRuns == 3);
  }
}
