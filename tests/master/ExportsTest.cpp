// SPDX-License-Identifier: GPL-3.0-or-later

#include "master/exports/ScoreGapText.h"
#include "master/run/MasterRun.h"
#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

// Keeps the rows of the master that it is handed.
struct RowSink final : ScoredSubjectSink {
  bool Add(const ScoredSubject& subject) override { return Rows += subject.MasterRow + "\n", --Left > 0; }
  void Restart() override { Rows.clear(); }
  std::string Rows;
  int Left = 100;
};

struct ExportLab : Study {
  explicit ExportLab(const Shape& shape) : Study(shape) {
    Request.Selection.SetDefaultMeasures(Project);
    Request.CleanFile = "";
    Request.LongFile = "";
  }
  MasterRunResult Run(MessageBoxes& boxes) {
    Request.SubjectFileCount = SubjectFileCount();
    return CreateMasters(Project, Request, FakePlatform().With(OfFiles, boxes));
  }

  MasterRequest Request;
};

TEST(Exports, WhatOtherProgramsRead) {
  ExportLab lab({.Items = 6,
                 .PerCategory = 3,
                 .Minutes = 9,
                 .MaxRating = 5,
                 .Rated = "NY",
                 .Lures = true,
                 .Variables = {"Subject", "list"}});
  lab.Project.LevelCounts = {2, 3};
  lab.Project.LevelNames[0] = {"Young, \"fit\"", "Old"};
  lab.Project.LevelNames[1] = {" late", "due", "due"};
  lab.Request.Selection = Only(lab.Project, {Measure::Cat, Measure::Bi, Measure::Rat});
  lab.Request.Selection.Check(Measure::Rat, false);
  lab.Put("07", "4/1/3 1/2/4 2/2/4 | 2/1/5 3/1/1 0/1 2/9 1/9/2", 1);  // a lure, a blank, a repeat, no rating
  lab.Put("8", "1/1 | ", 2);
  // Item 2 came first; a row of the lures' positions is never wanted.
  lab.Files.Put("C:\\Data\\AB Serial Order.dat", "1,2\r\n2,1\r\n3,6\r\n4,3\r\n5,4\r\n6,5\r\n");
  RowSink sink;
  lab.Request.Sink = &sink;
  ScriptedBoxes none;
  const MasterRunResult result = lab.Run(none);
  EXPECT_EQ(
      lab.Files.Get("C:\\Data\\AB Clean.csv"),
      "Subject,Subject (2),list,ArcScore(Test 1),ArcScore(Test 2),Bi-ITR(Tests 1 and 2),"
      "#OfCategoriesUsed(Test 1),#OfCategoriesUsed(Test 2),AvgItemsPerCat(Test 1),AvgItemsPerCat(Test 2),"
      "Not Computed\r\n"
      "07,\"Young, \"\"fit\"\"\",\" late\",1,,-1.3333334,2,1,1.5,3,"
      "ArcScore(Test 2): fewer than 2 categories or 3 recalls\r\n"
      "8,Old,due (2),,,,1,0,1,,ArcScore(Test 1): fewer than 2 categories or 3 recalls; ArcScore(Test 2): fewer than 2 "
      "categories or 3 recalls; Bi-ITR(Tests 1 and 2): no recall to compute it from; AvgItemsPerCat(Test 2): "
      "no recall to compute it from\r\n");
  const auto study = [](const std::string& subjectAndTest, const std::string& levels) {
    std::string rows;
    for (const char* middle : {"1,2,1,0", "2,1,1,0", "3,4,2,0", "4,5,2,0"}) {
      rows.append(subjectAndTest).append(",study,").append(middle).append(",,,saved,").append(levels).append("\r\n");
    }
    return rows;
  };
  const std::string seven = "\"Young, \"\"fit\"\"\",\" late\"";
  EXPECT_EQ(lab.Files.Get("C:\\Data\\AB Long.csv"),
            "subject,list,trial_type,position,item,category,lure,minute,rating,order,Subject,list (2)\r\n" +
                study("07,1", seven) + "07,1,recall,1,4,2,0,1,,saved," + seven + "\r\n07,1,recall,2,1,1,0,2,,saved," +
                seven + "\r\n07,1,recall,3,2,1,0,2,,saved," + seven + "\r\n" + study("07,2", seven) +
                "07,2,recall,1,2,1,0,1,5,saved," + seven + "\r\n07,2,recall,2,3,1,1,1,1,saved," + seven +
                "\r\n07,2,recall,4,2,1,0,9,,saved," + seven + "\r\n07,2,recall,5,1,1,0,9,2,saved," + seven + "\r\n" +
                study("8,1", "Old,due (2)") + "8,1,recall,1,1,1,0,1,,saved,Old,due (2)\r\n" +
                study("8,2", "Old,due (2)"));
  const std::string master = lab.Files.Get("C:\\Data\\AB Master.txt");
  EXPECT_EQ(std::count(sink.Rows.begin(), sink.Rows.end(), '\n'), 2);
  EXPECT_NE(master.find(sink.Rows.substr(0, sink.Rows.find('\n')) + "\r\n"), std::string::npos);
  EXPECT_EQ(result.Written,
            (std::vector{lab.Files.At("C:\\Data\\AB Master.txt"), lab.Files.At("C:\\Data\\AB Clean.csv"),
                         lab.Files.At("C:\\Data\\AB Long.csv")}));

  sink.Left = 1;  // gives up after the first subject
  EXPECT_FALSE(lab.Run(none).Completed);
  EXPECT_EQ(lab.Files.Get("C:\\Data\\AB Clean.csv").find("\r\n8,"), std::string::npos);
}

TEST(Exports, FurtherMeasuresOfWhatStandsBesideTheSubjects) {
  ExportLab lab({.Items = 4, .PerCategory = 2});
  lab.Request.Selection = Only(lab.Project, {});
  lab.Request.Further = FurtherColumns::All;
  lab.Put("7", "1 2 3 | 2");
  lab.Put("8", "| 4 3");
  const auto value = [&](const std::string& subject, const std::string& column) {
    const std::string csv = lab.Files.Get("C:\\Data\\AB Clean.csv");
    std::istringstream names(csv), row(csv.substr(csv.find("\r\n" + subject + ",") + 2));
    std::string field;
    for (std::string name; std::getline(names, name, ',') && std::getline(row, field, ',') && name != column;) {
    }
    return field;
  };
  ScriptedBoxes boxes;
  EXPECT_EQ(lab.Run(boxes).Notices.ListsWithoutOrder, 4U);
  EXPECT_NE(lab.Files.Get("C:\\Data\\AB Long.csv").find("8,2,study,4,4,2,none\r\n8,2,recall,1,4,2,none"),
            std::string::npos);
  EXPECT_NE(lab.Files.Get("C:\\Data\\AB Clean.csv")
                .find("; Serial(Test 1): no study order; Serial(Test 2): no study order\r\n"),
            std::string::npos);
  EXPECT_EQ(value("7", "Intrusions(Test 1)"), "");
  EXPECT_EQ(value("7", "RR(Test 1)"), "0.5");

  lab.Files.Put("C:\\Data\\AB Intrusions.csv", "subject,test,place,response,minute,rating\r\n7,1,1,pear,,\r\n");
  lab.Files.Put("C:\\Data\\AB Study Order.csv",
                "subject,test,position,item\r\n7,1,1,2\r\n7,1,2,1\r\n7,1,3,3\r\n7,1,4,4\r\n");
  lab.Request.Order = SerialOrder{4, 3, 2, 1};
  EXPECT_EQ(lab.Run(boxes).Notices.ListsWithoutOrder, 0U);
  for (const auto& [subject, column, expected] : {std::tuple("7", "RR(Test 1)", "0"),
                                                  {"7", "Intrusions(Test 1)", "1"},
                                                  {"8", "Intrusions(Test 1)", "0"},
                                                  {"7", "FirstPosition(Test 1)", "2"},
                                                  {"7", "FirstPosition(Test 2)", "3"},
                                                  {"8", "FirstPosition(Test 2)", "1"}})
    EXPECT_EQ(value(subject, column), expected) << subject << column;
  const std::string rows = lab.Files.Get("C:\\Data\\AB Long.csv");
  EXPECT_NE(rows.find("\r\n7,1,study,1,2,1,subject\r\n7,1,study,2,1,1,subject\r\n"), std::string::npos);
  EXPECT_NE(rows.find("\r\n7,2,study,1,4,2,saved\r\n"), std::string::npos);

  // A line that does not fit is reported, and the file passed over.
  lab.Files.Put("C:\\Data\\AB Intrusions.csv", "subject,test,place,response,minute,rating\r\n7,3,1,pear,,\r\n");
  boxes.Expect({"'AB Intrusions.csv' is passed over: a line does not fit.", BoxAnswer::Ok, "ine 2: "});
  EXPECT_TRUE(lab.Run(boxes).Completed);
  EXPECT_EQ(value("7", "RR(Test 1)"), "0.5");
}

TEST(Exports, StandBesideTheMasterAndReplaceNoOtherFile) {
  ExportLab lab({.Tests = 1, .Items = 3});
  lab.Put("1", "3");
  lab.Files.MakeDirectory("D:\\Out");
  lab.Request.Destination = "D:\\Out\\m.txt";
  lab.Request.Order = SerialOrder{3, 1, 2};
  lab.Request.LongFile = "bare.csv";
  ScriptedBoxes boxes;
  EXPECT_TRUE(lab.Run(boxes).Completed);
  EXPECT_EQ(lab.Files.Get("D:\\Out\\AB Clean.csv"), "Subject,Net(Test 1),Not Computed\r\n1,1,\r\n");
  EXPECT_EQ(lab.Files.Get("C:\\Data\\bare.csv"),
            "subject,list,trial_type,position,item,order\r\n1,1,study,1,2,saved\r\n1,1,study,2,3,saved\r\n"
            "1,1,study,3,1,saved\r\n1,1,recall,1,3,saved\r\n");
  lab.Files.Put("C:/Data/AB Words.csv", "item,word\n1,rose\n2,\"oak, old\"\n3,fir\n");
  EXPECT_TRUE(lab.Run(boxes).Completed);
  EXPECT_EQ(lab.Files.Get("C:\\Data\\bare.csv"),
            "subject,list,trial_type,position,item,word,order\r\n1,1,study,1,2,\"oak, old\",saved\r\n"
            "1,1,study,2,3,fir,saved\r\n1,1,study,3,1,rose,saved\r\n1,1,recall,1,3,fir,saved\r\n");
  lab.Files.Put("C:/Data/AB Words.csv", "item,word\n1,rose\n1,oak\n");
  boxes.Expect(
      {"'AB Words.csv' is passed over: a line does not fit.", BoxAnswer::Ok, "Line 3: Item 1 is on line 2 already."});
  EXPECT_TRUE(lab.Run(boxes).Completed);
  EXPECT_TRUE(lab.Files.Get("C:\\Data\\bare.csv").starts_with("subject,list,trial_type,position,item,order\r\n"));
  std::filesystem::remove(lab.Files.Native("C:/Data/AB Words.csv"));

  const Tree before = lab.Files.Snapshot();
  for (const char* taken : {"D:\\Out\\m.txt", "ab master.TXT", "D:\\Out\\AB Serial Position Master.txt",
                            "D:\\Out\\AB Clean.csv", "C:\\Data\\Sdata\\AB Sub#1.dat"}) {
    lab.Request.LongFile = taken;
    boxes.Expect({std::make_error_code(std::errc::file_exists).message(), BoxAnswer::Cancel, taken});
    EXPECT_FALSE(lab.Run(boxes).Completed) << taken;
    EXPECT_EQ(lab.Files.Snapshot(), before) << taken;
  }
  // One file under two names: once it is there, either spelling finds it; and a link.
  std::filesystem::create_hard_link(lab.Files.Native("D:\\Out\\AB Clean.csv"), lab.Files.Native("D:\\Out\\hard.csv"));
  for (const auto& [clean, taken] :
       {std::pair("D:\\Out\\new.csv", "D:\\Out\\NEW.csv"), {"D:\\Out\\AB Clean.csv", "D:\\Out\\hard.csv"}}) {
    lab.Request.CleanFile = clean;
    lab.Request.LongFile = taken;
    boxes.Expect({std::make_error_code(std::errc::file_exists).message(), BoxAnswer::Cancel, taken});
    EXPECT_FALSE(lab.Run(boxes).Completed) << taken;
  }
}

}  // namespace
}  // namespace zova::testing
