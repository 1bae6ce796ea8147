// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectFile.h"

#include <gtest/gtest.h>

#include "project/ProjectLayout.h"
#include "project/ProjectOpening.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"
#include "text/FieldReader.h"

using namespace zova;
using namespace zova::testing;

namespace {

const std::string kLists =
    "2\r\n3\r\n\"Experimenter\"\r\n\"Joe\"\r\n\"Jane\"\r\n\"Interval\"\r\n\"24 Hours\"\r\n\"1 Week\"\r\n\"2 "
    "Weeks\"\r\n";
const std::string kFlags = "\"N\"\r\n\"N\"\r\n\"Y\"\r\n";
const std::string kExample =
    "3,66,1,6,11,1,7,,,1,6,,2,\"Example\",\"D\\Sample Data\",\"(none)\",\"Example.prm\",1,,\"VB Version\"\r\n" +
    kLists + kFlags;
constexpr const char* kPathNotFound = "Path not found.  Please verify that the correct disk is in the drive.";
constexpr const char* kPath = "C:\\Param\\Opened.prm";

std::string Replaced(std::string text, std::string_view what, std::string_view by) {
  const auto at = text.find(what);
  EXPECT_NE(at, std::string::npos) << what;
  return text.replace(at, what.size(), by);
}

std::string FaultOf(std::string_view bytes) {
  try {
    (void)ParseProject(bytes, kPath);
  } catch (const FieldError& fault) {
    return fault.what();
  }
  return "";
}

}  // namespace

TEST(ProjectFile, WritesAndReadsTheExample) {
  EXPECT_EQ(FormatProject(ExampleProject("D"), "VB Version"), kExample);
  EXPECT_EQ(ParseProject(kExample, kPath), ExampleProject("D"));
  ProjectParameters unrated = ExampleProject("D");
  unrated.Rated = 0;
  EXPECT_TRUE(FormatProject(unrated, "VB Version").ends_with(kLists)) << "no flags without ratings";
  const std::string backup = FormatProject(ExampleProject("D"), "VB Backup", "B:\\Old");
  EXPECT_EQ(backup, Replaced(Replaced(kExample, ",7,,", ",7,\"B:\\Old\","), "VB Version", "VB Backup"));
  const ProjectParameters read = ParseProject("\xEF\xBB\xBF" + backup + "\x1Ajunk", kPath);
  EXPECT_EQ(read.PreviousBackupDir, "B:\\Old");
  ScriptedBoxes boxes{
      {"You cannot use the backup parameters to open this project.  If the proper project file does not "
       "exist in the 'Param' folder then you must first use the 'Restore From Backup' feature on the "
       "'Tools' menu."}};
  EXPECT_FALSE(MayOpenProject(read, boxes));
  EXPECT_TRUE(MayOpenProject(ExampleProject("D"), boxes));
  EXPECT_EQ(ParseProject(Replaced(kExample, "Jane", "J\xE4ne"), kPath).LevelNames[0][1], "J\xC3\xA4ne");
  EXPECT_EQ(ParseProject(Replaced(kExample, "3,66,1", "\" 3x\", 65.5 ,"), kPath).ItemCount, 66);
}

TEST(ProjectFile, ReadsTheOlderLayouts) {
  ProjectParameters expected = ExampleProject("");
  expected.FormatMarker = "Sc 1.2";
  expected.ProjectFileName = "Opened.prm";
  expected.BackupDir = "B:\\Safe";
  expected.PrimaryDir = "C:\\Lab\\Data";
  const std::string intermediate =
      "3,66,1,6,11,1,7,1,1,1,6,,2,\"Example\",\"Safe\\\",\"Lab\\Data\\ \\ \\\",\"b\",1,,\"Sc 1.2\"\r\n";
  EXPECT_EQ(ParseProject(intermediate + kLists + "\"n\"\r\n\"N\"\r\n\"y\"\r\n", kPath), expected);
  expected.BackupDir = expected.PrimaryDir = "(none)";
  EXPECT_EQ(ParseProject(Replaced(intermediate, ",1,1,1,6", ",0,,1,6") + kLists + kFlags, kPath), expected);

  expected.FormatMarker = "Old ZOVA";
  expected.PrimaryDir = "C:\\Data";
  expected.Rated = expected.MaxRating = expected.FalseMemory = 0;
  expected.RatedTests = {};
  for (const std::string abbreviation : {"Example", "1995"}) {  // all digits: recognised by the 14 fields
    expected.Abbreviation = abbreviation;
    const std::string oldest = "3,66,1,6,11,1,7,1,0,2,\"" + abbreviation + "\",\"Safe\\\",\"Data\\\",\"b\"\r\n";
    EXPECT_EQ(ParseProject(oldest + kLists, kPath), expected) << abbreviation;
    const ProjectParameters plain = ParseProject(Replaced(oldest, ",0,2,", ",1,0,"), kPath);
    EXPECT_EQ(plain.FormatMarker + plain.BackupDir, "Old ZOVAB:\\Safe");
    EXPECT_EQ(plain.VariableCount, 0);
  }
  ProjectParameters titled;
  for (const auto& [file, title] :
       {std::pair("Alt.dat", "Alt"), {"\xC3\x9C.\xC3\xBC\xC3\xBC\xC3\xBC", "\xC3\x9C"}, {"abc", ""}}) {
    titled.ProjectFileName = file;
    EXPECT_EQ(ProjectTitle(titled), title);
  }
}

TEST(ProjectFile, RefusesFaults) {
  const std::tuple<const char*, const char*, const char*> cases[] = {{"3,66", "16,66", "number too large"},
                                                                     {"3,66", "-1,66", "number too small"},
                                                                     {"3,66", "0,66", "number too small"},
                                                                     {"3,66", "3,", "number too small"},
                                                                     {"3,66", "three,66", "number expected"},
                                                                     {"66", "32768", "number beyond the 16-bit range"},
                                                                     {",2,\"Ex", ",11,\"Ex", "number too large"},
                                                                     {",1,6,,", ",yes,6,,", "number expected"},
                                                                     {"\r\n2\r\n3", "\r\n2\r\n12", "number too large"},
                                                                     {"\r\n2\r\n3", "\r\n-2\r\n3", "number too small"},
                                                                     {"66,1,6,11", "-66,1,6,11", "number too small"}};
  for (const auto& [what, by, fault] : cases) EXPECT_EQ(FaultOf(Replaced(kExample, what, by)), fault) << by;
  EXPECT_EQ(FaultOf("\xFF\xFE" + kExample), "the file is in UTF-16, not in UTF-8 or Windows-1252");
  EXPECT_EQ(FaultOf(kExample + std::string(1, '\0')), "the file holds a NUL byte");
  // Cut behind any delimiter but the last, the file lacks a field.
  for (std::size_t i = 0; i + 2 < kExample.size(); ++i) {
    if (kExample[i] != ',' && kExample[i] != '\n') continue;
    ASSERT_EQ(FaultOf(kExample.substr(0, i + 1)), "input past end of file") << kExample.substr(0, i + 1);
  }
  EXPECT_EQ(FaultOf(kExample.substr(0, kExample.size() - 2)), "") << "the last line needs no end";
}

TEST(ProjectFile, GoesToItsThreeTargets) {
  const std::tuple<std::string, std::string, bool> cases[] = {{"C:\\P", "D:\\B", false},
                                                              {"C:\\P", "(none)", false},
                                                              {"(none)", "D:\\B", false},
                                                              {"C:\\P", "D:\\B", true},
                                                              {"C:\\P", "D:\\Gone", false}};
  for (const auto& [primary, backup, restoring] : cases) {
    Scratch scratch;
    for (const char* directory : {"C:\\P", "D:\\B"}) scratch.MakeDirectory(directory);
    scratch.Put("C:\\Param\\Example.prm", "older");
    const bool gone = backup == "D:\\Gone";
    ScriptedBoxes boxes;
    if (gone) boxes.Expect({kPathNotFound, BoxAnswer::Cancel, backup});
    ProjectParameters project = ExampleProject("D");
    project.PrimaryDir = primary;
    project.BackupDir = backup;
    project.FormatMarker = "Sc";
    Tree expected = scratch.Snapshot();
    const std::string content = FormatProject(project, "VB Version");
    expected["C/Param/Example.prm"] = content;
    if (primary == "C:\\P") expected.insert({{"C/P/Example.prm", content}, {"C/P/Sdata/", ""}});
    if (backup == "D:\\B" && !restoring) expected.insert({{"D/B/Example.prm", content}, {"D/B/Sdata/", ""}});
    EXPECT_EQ(WriteProjectFile(project, "C:\\Param", restoring, scratch.Files, boxes), !gone);
    EXPECT_EQ(scratch.Snapshot(), expected);
    EXPECT_EQ(project.FormatMarker, gone ? "Sc" : "VB Version");  // also while restoring
  }
}

TEST(ProjectFile, ReadsFromTheDisk) {
  Scratch scratch;
  scratch.MakeDirectory("C:\\Param");
  scratch.MakeDirectory("C:\\ZOVA");
  ScriptedBoxes boxes;
  EXPECT_TRUE(WriteExampleProject("C:\\Param", "C:\\ZOVA", scratch.Files, boxes));
  const std::string shipped = ReadFile(std::filesystem::path(ZOVA_DATA) / "Sample Data" / "Example.prm");
  EXPECT_EQ(scratch.Get("C:\\Param\\Example.prm"), shipped);
  EXPECT_EQ(TreeOf(scratch.Native("C:\\ZOVA")), (Tree{{"Sample Data/", ""}, {"Sample Data/Example.prm", shipped}}));
  EXPECT_EQ(ReadProjectFile(scratch.Files, "c:\\param\\EXAMPLE.prm"), ExampleProject("C:\\ZOVA"));
  scratch.Put(kPath, Replaced(kExample, "66", "x"));
  try {
    FAIL() << ReadProjectFile(scratch.Files, kPath).ItemCount;
  } catch (const FileError& error) {
    EXPECT_EQ(std::string(error.what()) + error.Detail(), "Reading 'C:\\Param\\Opened.prm'Line 1: number expected.");
  }
}
