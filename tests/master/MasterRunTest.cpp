// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/run/MasterRun.h"

#include <functional>
#include <set>

#include "master/groups/SavedOrders.h"
#include "scoring/Examples.h"
#include "support/FailingFileLayer.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

constexpr const char* kMaster = "C:\\Data\\AB Master.txt";
constexpr const char* kSerialMaster = "C:\\Data\\AB Serial Position Master.txt";

struct Lab : Study {
  explicit Lab(const Shape& shape) : Study(shape) {
    Files.MakeDirectory("D:\\Out");
    Request.Selection.SetDefaultMeasures(Project);
  }
  void Put(const std::string& name, const std::string& lists) {
    PutFile(name, Subject(lists, 2));
    ++Request.SubjectFileCount;
  }
  MasterRunResult Run(MessageBoxes& boxes, FileLayer* layer = nullptr) {
    Disk disk(layer ? *layer : Files.Layer(), Files.Drives());
    return CreateMasters(Project, Request, FakePlatform().With(disk, boxes, Bar));
  }

  MasterRequest Request;
  RecordingProgress Bar;
};

TEST(MasterRun, ThreeSubjectsByHand) {
  const std::string header =
      "Sub ID's, Sex, Net(Test 1), Net(Test 2), Losses(Test 1 to 2), Gains(Test 1 to 2), ArcScore(Test 1), "
      "ArcScore(Test 2), Bi-ITR(Tests 1 and 2), #OfCategoriesUsed(Test 1), #OfCategoriesUsed(Test 2), "
      "AvgItemsPerCat(Test 1), AvgItemsPerCat(Test 2)\r\n";
  const std::string row1 = "1,  2,  3,  2,  1,  0,  1,  0,  .333,  2,  1,  1.5,  2\r\n";
  const std::string row2 = "2,  2,  3,  3,  0,  0, -2, -2,  .666,  2,  2,  1.5,  1.5\r\n";
  const std::string row3 = "ABC Sub#9,  2,  0,  1,  0,  1,  0,  0,  0,  0,  1,  0,  1\r\n";
  Lab lab({.Items = 4, .PerCategory = 2, .Variables = {"Sex"}});
  lab.Request.Selection = Only(lab.Project, {Measure::Basic, Measure::Bi, Measure::Cat});
  lab.Put("ABC Sub#9.dat", "| 4");  // another project's
  lab.Put("ab sub#2.DAT", "1 3 2 | 1 3 2");
  lab.Put("AB Sub#1.dat", "1 2 3 | 2 1");
  lab.Files.Put("C:\\Data\\Sdata\\Unfinished\\AB Sub#5.dat", "");
  lab.Files.Put(kMaster, "old\r\n");
  ScriptedBoxes boxes;

  const MasterRunResult result = lab.Run(boxes);
  EXPECT_EQ(lab.Files.Get(kMaster), header + row1 + row2 + row3);
  EXPECT_EQ(result.Written, std::vector{lab.Files.At(kMaster)});
  EXPECT_EQ(lab.Bar.Shown, (std::vector{33, 66, 100}));
  EXPECT_EQ(lab.Bar.Text, "The master is 100% Complete.");
  const std::string end = ".  You should delete these subjects before analysis.";
  boxes.Expect({"For at least 1 test, the ARC score was unable to be calculated for subject(s): 1, ABC Sub#9" + end,
                BoxAnswer::Ok, "", BoxIcon::Exclamation});
  boxes.Expect({"For at least 1 test, Bi-Directional ITR was unable to be calculated for subject(s): ABC Sub#9" + end});
  ShowMasterWarnings(result.Notices, boxes);

  // Another destination gets the header and the serial positions; the rows go where they always go.
  lab.Files.Put(kMaster, "old\r\n");
  lab.Request.Destination = lab.Files.Native("D:\\Out\\Mine.txt").string();
  lab.Request.Order = SerialOrder{2, 3, 4, 1};
  EXPECT_EQ(lab.Run(boxes).Written.size(), 3U);
  EXPECT_EQ(lab.Files.Get("D:\\Out\\Mine.txt"), header);
  EXPECT_EQ(lab.Files.Get(kMaster), "old\r\n" + row1 + row2 + row3);
  EXPECT_EQ(lab.Files.Get("D:\\Out\\AB Serial Position Master.txt"),
            "Type, SP(Test 1 Pos 1), SP(Test 1 Pos 2), SP(Test 1 Pos 3), SP(Test 1 Pos 4), SP(Test 2 Pos 1), "
            "SP(Test 2 Pos 2), SP(Test 2 Pos 3), SP(Test 2 Pos 4)\r\n"
            "Actual, 0, .666, .666, .666, .333, .666, .666, .333\r\n"
            "Smooth, 0, .444, .666, .666, .333, .555, .555, .333\r\n");
}

TEST(MasterRun, NamesSubjectsWhoseFilesHoldMoreThanNumbers) {
  Lab lab({.Tests = 1, .Items = 3});
  lab.Put("AB Sub#good.dat", "1 2");
  for (const auto& [id, lines] : {std::pair("words", "1,one,0,0\r\n2,2,0,0\r\n3,0,0,0\r\n"),
                                  {"gap", "1,1,0,0\r\n2,0,0,0\r\n3,3,0,0\r\n"},
                                  {"rating", "1,1,0,\"much\"\r\n2,2,,0\r\n3,0,0,0\r\n"}}) {
    lab.Files.Put(std::string("C:\\Data\\Sdata\\AB Sub#") + id + ".dat", std::string("header\r\n") + lines);
    ++lab.Request.SubjectFileCount;
  }
  lab.Files.Put("C:\\Data\\AB Master1.txt", "a piece");
  lab.Files.Put("C:\\Data\\AB Master2.txt", "another");
  ScriptedBoxes boxes{Told("Text stood where numbers belong, and was read as 0, for subject(s): rating, words."),
                      Told("An item 0 stands inside a list of subject(s): gap, words."),
                      Told("Pieces of an earlier, wider master are still in the primary directory: AB Master1.txt, AB "
                           "Master2.txt.")};
#ifndef _WIN32  // where a listing does not show them
  LinkFile("nothing.dat", lab.Files.Native("C:\\Data\\Sdata\\AB Sub#lost.dat"));
  boxes.Expect(Told("Links that lead to no file were left out: AB Sub#lost.dat."));
#endif
  ShowMasterWarnings(lab.Run(boxes).Notices, boxes);
}

TEST(MasterRun, ARunTimeErrorIsRetriedOrEndsTheRun) {
  Lab lab({.Tests = 1, .Items = 3});
  lab.Request.Order = SerialOrder{1, 2, 3};
  for (const char* id : {"1", "2", "4", "5"}) lab.Put(std::string("AB Sub#") + id + ".dat", "1 2");
  lab.Put("AB Sub#3.dat", "1 7");
  ScriptedBoxes cancel{{"Subscript out of range", BoxAnswer::Cancel,
                        "AB Sub#3.dat'\nSubject 3: item 7 at position 2 of test 1", BoxIcon::Exclamation,
                        BoxButtons::RetryCancel}};
  const MasterRunResult cancelled = lab.Run(cancel);
  EXPECT_FALSE(cancelled.Completed);
  EXPECT_FALSE(cancelled.IsMasterWhole);
  EXPECT_EQ(cancelled.RowCount, 2);
  const std::string rows = "Sub ID's, Net(Test 1)\r\n1,  2\r\n2,  2\r\n";
  EXPECT_EQ(lab.Files.Get(kMaster), rows);
  EXPECT_FALSE(lab.Files.Has(kSerialMaster)) << "no further master";

  AnsweringBoxes retry(BoxAnswer::Retry);
  retry.Meanwhile = [&] { lab.Put("AB Sub#3.dat", "3 3"), --lab.Request.SubjectFileCount; };
  EXPECT_TRUE(lab.Run(retry).Completed);
  EXPECT_EQ(lab.Files.Get(kMaster), rows + "3,  2\r\n4,  2\r\n5,  2\r\n");
  EXPECT_TRUE(lab.Files.Get(kSerialMaster).ends_with("\r\nActual, .8, .8, .4\r\nSmooth, .8, .666, .4\r\n"))
      << "a repeated item counts each time";
}

TEST(MasterRun, FilesThatWentOrEndEarlyStopIt) {
  Lab lab({.Tests = 1, .Items = 2});
  for (const char* id : {"1", "2", "3"}) lab.Put(std::string("AB Sub#") + id + ".dat", "1 2");
  const std::string first = "Sub ID's, Net(Test 1)\r\n1,  2\r\n";

  lab.Files.Put("C:\\Data\\Sdata\\AB Sub#2.dat", "\"Subject#\"\r\n1,1,0,0\r\n");
  ScriptedBoxes early{{"This is not a valid file format.  Please select a different file.", BoxAnswer::Ok,
                       "'C:\\Data\\Sdata\\AB Sub#2.dat'", BoxIcon::Exclamation, BoxButtons::Ok}};
  EXPECT_FALSE(lab.Run(early).Completed);
  EXPECT_EQ(lab.Files.Get(kMaster), first);

  lab.Put("AB Sub#2.dat", "2");
  ScriptedBoxes gone{{std::make_error_code(std::errc::no_such_file_or_directory).message(), BoxAnswer::Cancel,
                      "'C:\\Data\\Sdata\\'\n3 of 4 subject files", BoxIcon::Exclamation, BoxButtons::RetryCancel}};
  EXPECT_FALSE(lab.Run(gone).Completed) << "three files, where four were counted";
  const std::string rows = first + "2,  1\r\n3,  2\r\n";
  EXPECT_EQ(lab.Files.Get(kMaster), rows);
  AnsweringBoxes retry(BoxAnswer::Retry);
  retry.Meanwhile = [&] { lab.Put("AB Sub#15.dat", "1"), --lab.Request.SubjectFileCount; };
  lab.Request.CleanFile = "";
  lab.Request.Order = SerialOrder{1, 2};
  EXPECT_TRUE(lab.Run(retry).Completed);
  EXPECT_EQ(lab.Files.Get(kMaster), first + "15,  1\r\n2,  1\r\n3,  2\r\n");
  EXPECT_EQ(lab.Files.Get("C:\\Data\\AB Clean.csv"),
            "Subject,Net(Test 1),Not Computed\r\n1,2,\r\n15,1,\r\n2,1,\r\n3,2,\r\n");
  EXPECT_TRUE(lab.Files.Get(kSerialMaster).ends_with("Actual, .75, .75\r\nSmooth, .75, .75\r\n"));

  const std::string lost = "Path not found.  Please verify that the correct disk is in the drive.";
  for (const auto& [directory, named] :
       {std::pair("C:\\Data\\Sdata", "'C:\\Data\\Sdata'"), {"C:\\Data", "'C:\\Data\\AB Master.txt'"}}) {
    std::filesystem::rename(lab.Files.Native(directory), lab.Files.Native("D:\\away"));
    ScriptedBoxes path{{lost, BoxAnswer::Cancel, named, BoxIcon::Exclamation, BoxButtons::RetryCancel}};
    EXPECT_FALSE(lab.Run(path).Completed);
    std::filesystem::rename(lab.Files.Native("D:\\away"), lab.Files.Native(directory));
    EXPECT_EQ(lab.Files.Get(kMaster), "Sub ID's, Net(Test 1)\r\n") << "the header comes before the listing";
  }
}

TEST(MasterRun, NeverTakesThePlaceOfAProjectsOwnFile) {
  namespace fs = std::filesystem;
  Lab lab({.Tests = 1, .Items = 2});
  lab.Project.BackupDir = "D:\\Backup";
  lab.Put("AB Sub#1.dat", "1 2");
  for (const char* path :
       {"C:\\Data\\AB.prm", "C:\\Data\\AB Serial Order.dat", "C:\\Data\\AB Combine Order.dat", "C:\\Param\\Temp.txt",
        "C:\\Param\\Temp 1.txt", "C:\\Data\\Sdata\\XY1.dat", "C:\\Data\\Sdata\\Unfinished\\AB Sub#2.dat",
        "D:\\Backup\\Sdata\\kept.txt", "D:\\Other\\Sdata\\XX Sub#1.dat", "D:\\Store\\AB Sub#3.dat", "D:\\Out\\Temp.txt",
        "D:\\Out\\plain.dat", "D:\\Out\\other.dat"}) {
    lab.Files.Put(path, "kept");
  }
  const fs::path out = lab.Files.Native("D:\\Out");
  const fs::path subject = lab.Files.Native("C:\\Data\\Sdata\\AB Sub#1.dat");
  LinkFile("../../C/Data/Sdata/AB Sub#1.dat", out / "soft.txt");
  LinkFile("soft.txt", out / "softer.txt");
  LinkDirectory(subject.parent_path(), out / "linked");
  LinkDirectory(lab.Files.Native("D:\\Store"), lab.Files.Native("D:\\Backup\\Sdata\\Unfinished"));
  LinkFile(out / "other.dat", subject.parent_path() / "XY2.dat");
  fs::create_hard_link(subject, out / "hard.txt");
  fs::create_hard_link(lab.Files.Native("C:\\Data\\AB.prm"), out / "hard.csv");
  fs::create_hard_link(out / "plain.dat", out / "twin.dat");
  const Tree before = lab.Files.Snapshot();
  for (const char* own : {"C:\\Data\\Sdata\\AB Sub#1.dat", "c:\\data\\SDATA\\ab sub#1.DAT",
                          "C:\\Data\\Sdata\\..\\Sdata\\AB Sub#1.dat", "D:\\Out\\softer.txt", "D:\\Out\\linked\\XY1.dat",
                          "C:\\Data\\Sdata\\xy2.DAT", "D:\\Out\\..\\..\\Out\\linked\\XY1.dat", "D:\\Out\\hard.txt",
                          "D:\\Out\\hard.csv", "AB.prm", "AB Serial Order.dat", "ab combine order.DAT",
                          "C:\\Param\\Temp.txt", "C:\\Param\\temp 1.txt", "C:\\Data\\Sdata\\Unfinished\\AB Sub#2.dat",
                          "D:\\Other\\SDATA\\XX Sub#1.dat", "C:\\Data\\Sdata\\new.DAT", "D:\\Store\\new.dat"}) {
    lab.Request.Destination = own;
    ScriptedBoxes refused{{std::make_error_code(std::errc::file_exists).message(), BoxAnswer::Cancel,
                           "A master cannot take the place of a project's own file."}};
    EXPECT_FALSE(lab.Run(refused).Completed) << own;
    EXPECT_EQ(lab.Files.Snapshot(), before) << own;
  }
  ScriptedBoxes none;
  for (const char* allowed :
       {"D:\\Out\\Temp.txt", "D:\\Out\\twin.dat", "C:\\Data\\Sdata\\mine.txt", "D:\\Out\\AB Master2.txt"}) {
    lab.Request.Destination = allowed;
    EXPECT_TRUE(lab.Run(none).Completed) << allowed;
    EXPECT_EQ(lab.Files.Get(allowed), "Sub ID's, Net(Test 1)\r\n");
  }
}

TEST(MasterRun, RefusesEveryFileBeforeItEmptiesTheFirst) {
  Lab lab({.Tests = 1, .Items = 2});
  lab.Put("AB Sub#1.dat", "1 2");
  lab.Files.Put(kMaster, "the master before\r\n");
  for (const char* old : {"D:\\Out\\clean.csv", "D:\\Out\\long.csv", "C:\\Param\\old.csv"}) lab.Files.Put(old, "old");
  LinkDirectory(lab.Files.Native("C:\\Param"), lab.Files.Native("D:\\Out\\linked"));
#ifdef __linux__
  LinkFile("linked/old.csv", lab.Files.Native("D:\\Out\\soft.csv"));
#endif
  const Tree before = lab.Files.Snapshot();
  const std::string lost = "Path not found.  Please verify that the correct disk is in the drive.";
  const auto text = [](std::errc code) { return std::make_error_code(code).message(); };
  const std::tuple<std::string, std::string, std::string> cases[] = {
      {"C:\\Data\\Sdata", text(std::errc::is_a_directory), "Sdata'"},
      {"D:\\Out\\" + std::string(300, 'x'), text(std::errc::filename_too_long), "xxx'"},
      {"D:\\none\\c.csv", lost, "'D:\\none\\c.csv'"},
      {"C:\\Param\\Temp.txt", text(std::errc::operation_not_permitted), "does not go into a directory 'Param'."},
      {"ab master2.TXT", text(std::errc::file_exists), "The pieces of a wide master have this name."},
      {"D:\\Out\\linked\\new.csv", text(std::errc::operation_not_permitted), "does not go into a directory 'Param'."},
#ifdef __linux__
      {"D:\\Out\\soft.csv", text(std::errc::operation_not_permitted), "does not go into a directory 'Param'."},
      {"/dev/full", text(std::errc::no_space_on_device), "/dev/full'"},
#endif
  };
  for (const auto& [path, fault, details] : cases) {
    for (const int role : {0, 1, 2}) {
      lab.Request.Destination = role == 0 ? path : "";
      lab.Request.CleanFile = role == 1 ? path : "D:\\Out\\clean.csv";
      lab.Request.LongFile = role == 2 ? path : "D:\\Out\\long.csv";
      ScriptedBoxes refused{{fault, BoxAnswer::Cancel, details}};
      const MasterRunResult result = lab.Run(refused);
      EXPECT_FALSE(result.Completed) << path << role;
      EXPECT_EQ(result.RowCount, std::nullopt) << path << role;
      EXPECT_EQ(lab.Files.Snapshot(), before) << path << role;
    }
  }
}

// Two subjects, and columns enough for three pieces.
struct WideLab : Lab {
  WideLab() : Lab({.Items = 2, .Minutes = 130}) {
    Put("AB Sub#1.dat", "1/1 2/130 | 2/7");
    Put("AB Sub#2.dat", "2/2 | 1/1 2/2");
    Request.Order = SerialOrder{2, 1};
    Request.CleanFile = "";
    Request.LongFile = "D:\\Out\\Recalls.csv";
    Files.Put(kMaster, "the master before\r\n");
  }
};

TEST(MasterRun, SurvivesTheFailureOfAnySingleDiskCall) {
  WideLab undisturbed;
  ScriptedBoxes none;
  ASSERT_TRUE(undisturbed.Run(none).Completed);
  const Tree finished = undisturbed.Files.Snapshot();
  ASSERT_EQ(finished.count("C/Data/AB Master3.txt") - finished.count("C/Data/AB Master4.txt"), 1U);

  std::set<std::string> masters;  // after a cancelled run
  int wholeWithoutTheRest = 0;
  bool failed = true;
  for (int n = 1; failed; n += kFailureStep) {
    for (const auto writes : {FailingFileLayer::Writes::Nothing, FailingFileLayer::Writes::Half}) {
      for (const BoxAnswer answer : {BoxAnswer::Cancel, BoxAnswer::Retry}) {
        WideLab lab;
        FailingFileLayer layer(lab.Files.Layer());
        layer.FailAt(n, std::errc::io_error, writes);
        AnsweringBoxes boxes(answer);
        const MasterRunResult result = lab.Run(boxes, &layer);
        const bool completed = result.Completed;
        failed = layer.HasFailed();
        SCOPED_TRACE("call " + std::to_string(n) + ", " + layer.FailedCall());
        EXPECT_LE(boxes.Details.size(), failed ? 1U : 0U);
        EXPECT_EQ(completed, boxes.Details.empty() || answer == BoxAnswer::Retry);
        const Tree left = lab.Files.Snapshot();
        if (completed) {
          EXPECT_EQ(left, finished);
        }
        for (const auto& [name, bytes] : left) {
          ASSERT_TRUE(finished.contains(name)) << name;
          const bool wholeLines = finished.at(name).starts_with(bytes) && (bytes.empty() || bytes.ends_with("\r\n"));
          const bool isFormer = name == "C/Data/AB Master.txt" && bytes == "the master before\r\n";
          EXPECT_TRUE(wholeLines || isFormer) << name;
        }
        if (!completed) masters.insert(lab.Files.Get(kMaster));
        if (result.IsMasterWhole && !completed) ++wholeWithoutTheRest;
        EXPECT_TRUE(!result.IsMasterWhole || left.at("C/Data/AB Master.txt") == finished.at("C/Data/AB Master.txt"));
      }
    }
  }
  if (kFailureStep > 1) return;
  EXPECT_GT(wholeWithoutTheRest, 0) << "an export or the serial positions failed behind it";
  EXPECT_EQ(masters.size(), 5U) << "the old one, none, the header alone, and one row and two behind it";
}

TEST(MasterRun, LargestShapes) {
  Lab lab({.Tests = 15, .Items = 999});
  std::string lists = Sequence(999);
  for (int test = 2; test <= 15; ++test) lists += "| " + Sequence(999);
  lab.Put("AB Sub#1.dat", lists);
  lab.Files.Put(kMaster, "old\r\n");
  const Tree before = lab.Files.Snapshot();
  ScriptedBoxes boxes{{"Overflow", BoxAnswer::Cancel, "'General Data: Item Pattern (e.g. NNCN)'", BoxIcon::Exclamation,
                       BoxButtons::Cancel, BoxAnswer::Cancel}};
  EXPECT_FALSE(lab.Run(boxes).Completed);
  EXPECT_EQ(lab.Files.Snapshot(), before) << "it fails before any file is touched";
  lab.Request.Selection.Check(Measure::IP, false);
  boxes.Expect({"Overflow", BoxAnswer::Cancel, "AB Sub#1.dat'\nSubject 1: the product of "});
  EXPECT_FALSE(lab.Run(boxes).Completed);

  lab.Request.Selection.Check(Measure::Bi, false);
  EXPECT_TRUE(lab.Run(boxes).Completed);
  std::string row = "\r\n1";
  for (int test = 1; test <= 15; ++test) row += ",  999";
  for (int lossesAndGains = 1; lossesAndGains <= 28; ++lossesAndGains) row += ",  0";
  EXPECT_TRUE(lab.Files.Get(kMaster).ends_with(row + "\r\n"));
}

TEST(MasterRun, TenThousandSubjects) {
  Lab lab({.Tests = 1, .Items = 1});
  const int end = kIsWindows ? 11000 : 20000;  // a file takes Wine a hundred times as long
  for (int id = 10000; id < end; ++id) lab.Put("AB Sub#" + std::to_string(id) + ".dat", "1");
  ScriptedBoxes boxes;
  EXPECT_TRUE(lab.Run(boxes).Completed);
  std::string expected = "Sub ID's, Net(Test 1)\r\n";
  for (int id = 10000; id < end; ++id) expected += std::to_string(id) + ",  1\r\n";
  EXPECT_TRUE(lab.Files.Get(kMaster) == expected);
  EXPECT_EQ(lab.Bar.Shown.size(), 101U);
  EXPECT_EQ(lab.Bar.Shown.at(1) + lab.Bar.Shown.back(), 101);
}

TEST(SerialPositions, OrdersAndTheirFaults) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  for (const auto& [bytes, fault] : {std::pair("3,1\n1,2\r\n2,3\n\r\n", ""),
                                     {"1,1\n2,4\n3,3\n", "Item 2 has no position from 1 to 3."},
                                     {"1,3\n2,1\n3,3\n", "Position 3 is used twice."}}) {
    scratch.Put("C:\\order.dat", bytes);
    EXPECT_EQ(SerialOrderFault(ReadSerialOrder(disk, "C:\\order.dat", 3)).value_or(OrderFault{}).Text, fault) << bytes;
  }
  for (const char* bytes :
       {"1,2\n2,1\n", "1,1\n2,2\n3,3\n4,4\n", "1,1\n2,2\n4,3\n", "0,1\n1,2\n2,3\n", "1,1\n2,x\n3,3\n"}) {
    scratch.Put("C:\\order.dat", bytes);
    EXPECT_THROW(ReadSerialOrder(disk, "C:\\order.dat", 3), FileError) << bytes;
  }
}

}  // namespace
}  // namespace zova::testing
