// SPDX-License-Identifier: GPL-3.0-or-later

#include "means/MeansExaminer.h"

#include "master/groups/SerialPositions.h"
#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

constexpr const char* kMaster = "C:\\Data\\AB Master.txt";
const std::string kHeader = "Sub ID's, Sex, Net(Test 1), Net(Test 2), ArcScore(Test 1), ArcScore(Test 2)\r\n";
const std::string kRows = "1,  1,  3,  2,  1,  0\r\n2,  2,  3,  3, -2, -2\r\n9,  2,  0,  1,  0,  0\r\n";

// The master of three subjects; those of "9" have no ARC score, and test 2 of "1" neither.
struct Desk : FakePlatform, Study {
  Desk() : Study({.Items = 4, .PerCategory = 2, .Variables = {"Sex"}}) {
    Project.LevelCounts[0] = 2;
    Project.LevelNames[0] = {"Man", "Woman"};
    Put("1", "1 2 3 | 2 1", 1);
    Put("2", "1 3 2 | 1 3 2", 2);
    Put("9", "| 4", 2);
    PutFile("Z Sub#1.dat", "another project's");
    Files.Put(kMaster, kHeader + kRows);
  }
  void Choose(const std::string& path) {
    Dialogs.Answers.emplace_back(path);
    Means.ChooseMaster();
  }
  void Save(const std::string& path) {
    Dialogs.Answers.emplace_back(path);
    Means.SaveTable();
  }
  // Rows between bars, measures by their first letter and test: "N1 Man 1 3.00 ... | ...".
  [[nodiscard]] std::string Table() const {
    std::string text;
    for (int row = 0; row < Means.RowCount(); ++row) {
      text += row == 0 ? "" : " | ";
      for (int column = 0; column < static_cast<int>(Means.Headings().size()); ++column) {
        const std::string cell = Means.CellText(row, column);
        text += (column == 0 ? cell.substr(0, 1) + cell[cell.size() - 2] : " " + cell);
      }
    }
    return text;
  }

  MeansExaminer Means{With(OfFiles)};
};

TEST(MeansExaminer, TheTableFollowsWhatIsChosenAndLeavesOutWhatWasNotComputed) {
  Desk desk;
  MeansExaminer& means = desk.Means;
  std::string whileReading;
  means.SetObserver([&] { whileReading = means.NoteLine(); });
  means.Open(desk.Project, "");
  EXPECT_EQ(means.FileLine(), "Master: C:\\Data\\AB Master.txt (3 rows)");
  EXPECT_TRUE(whileReading.starts_with("Reading the subjects"));
  EXPECT_EQ(desk.Table(), "N1 3 2.00 1.73 -2.30 6.30 0") << "the first measure, no variable";
  EXPECT_EQ(means.NoteLine(), "");
  EXPECT_FALSE(means.CanLeaveOut());

  means.ChooseVariables({0});
  means.ChooseMeasures({2});
  EXPECT_EQ(desk.Table(),
            "A1 Man 1 1.00    0 | A1 Woman 2 -1.00* 1.41 -13.71 11.71 1 | A1 (all) 3 -0.33* 1.53 -4.13 3.46 1");
  EXPECT_EQ(means.NoteLine(),
            "1 value of the chosen measures could not be computed and counts as 0 (*), as in the master.");
  EXPECT_EQ(means.RowTip(0), "");
  EXPECT_EQ(means.RowTip(1), "1 value could not be computed; counted as 0 here, as in the master.");
  means.SetLeavesOut(true);
  EXPECT_EQ(desk.Table(), "A1 Man 1 1.00    0 | A1 Woman 1 -2.00    1 | A1 (all) 2 -0.50 2.12 -19.56 18.56 1");
  EXPECT_EQ(means.NoteLine(), "1 value of the chosen measures could not be computed and is left out.");

  means.ChooseWholeSeries();
  EXPECT_EQ(means.ChosenMeasures(), (std::vector<std::size_t>{2, 3}));
  EXPECT_TRUE(means.NoteLine().starts_with("3 values ")) << means.NoteLine();
  const int results = means.ResultRevision();
  means.ChooseMeasures({});
  EXPECT_GT(means.ResultRevision(), results);
  EXPECT_FALSE(means.HasPlot());
  EXPECT_FALSE(means.CanLeaveOut());
  EXPECT_EQ(means.RowCount(), 0);
  EXPECT_EQ(means.Picture().Note, "Choose a measure.");
}

TEST(MeansExaminer, APlotOfLuresHasTheirWords) {
  Desk desk;
  desk.Project.FalseMemory = 1;
  desk.Files.Put(kMaster, "Sub ID's, Sex, Lure(Test# 1 Lure# 1), Lure(Test# 1 Lure# 2)\r\n1,  1,  1,  0\r\n");
  desk.Files.Put("C:\\Data\\AB Words.csv", "item,word\r\n1,a\r\n2,rose\r\n3,b\r\n4,tulip\r\n");
  desk.Means.Open(desk.Project, "");
  desk.Means.ChooseMeasures({0, 1});
  EXPECT_EQ(desk.Means.Picture().Ticks, (std::vector<std::string>{"1 rose", "2 tulip"}));
}

TEST(MeansExaminer, TheFurtherMeasuresAreReadWhenTheFirstIsChosen) {
  Desk desk;
  MeansExaminer& means = desk.Means;
  means.Open(desk.Project, "");
  ASSERT_EQ(means.FurtherGroups().size(), 4U);
  const MeasureGroup& clustering = means.FurtherGroups()[1];
  EXPECT_EQ(clustering.Heading, "Clustering");
  EXPECT_EQ(means.Measures()[clustering.First], "RR(Test 1)");
  std::vector<std::string> notes;
  means.SetObserver([&] { notes.push_back(means.NoteLine()); });
  means.ChooseMeasures({clustering.First});  // 1 2 3 and 1 3 2; nothing
  EXPECT_EQ(desk.Table(), "R1 2 0.25 0.35 -2.93 3.43 1");
  means.ChooseWholeSeries();
  EXPECT_EQ(means.RowCount(), 2);
  EXPECT_EQ(notes, std::vector<std::string>{"Reading the subjects, for the further measures ..."});
  EXPECT_EQ(means.NoteLine(), "2 values of the chosen further measures could not be computed and are left out.");
  EXPECT_FALSE(means.CanLeaveOut());
  EXPECT_EQ(means.Picture().YLabel, "Repetition ratio");

  means.ChooseMeasures({0, 1});
  means.SetBars(PlotBars::Within);
  EXPECT_TRUE(means.Picture().Note.ends_with("a value on all tests, drawn about the means shown."))
      << means.Picture().Note;
  EXPECT_NE(means.EffectLines().find("Net(Test 2) - Net(Test 1): difference = 0.00"), std::string::npos);
  means.SetMore(true);
  EXPECT_EQ(means.Headings().size(), 14U);
  EXPECT_TRUE(desk.Table().starts_with("N1 3 2.00 1.73 1.00 3.00 0.00 3.00 ")) << desk.Table();

  desk.Files.Put("C:\\Data\\AB Combined Master.txt", kHeader + "Group 1 (1+2), 1, 1, 1, 0, 0\r\n");
  desk.Choose("C:\\Data\\AB Combined Master.txt");
  EXPECT_TRUE(means.FurtherGroups().empty()) << "groups have none";
}

// A row per list, a letter per recall: G3 is shade 3 of 0 to 9, C1 the category.
std::string Lists(const PlotPicture& picture) {
  std::vector<std::string> rows;
  for (const Raster::Group& group : picture.Lists.Groups) {
    for (const std::string& row : group.Rows) rows.push_back("[" + group.Name + "] " + row);
  }
  for (std::size_t place = 1; place <= picture.Ticks.size(); ++place) {
    for (const RasterMarks& marks : picture.Lists.Marks) {
      for (const auto& [output, row] : marks.Places) {
        if (static_cast<std::size_t>(output) != place) continue;
        const bool isGraded = marks.Look == RasterLook::Graded;
        rows[row] += std::string(" ") + "GCPRLI"[static_cast<int>(marks.Look)];
        if (marks.Look <= RasterLook::Category)
          rows[row] += std::to_string(std::lround(marks.Shade * (isGraded ? 9 : 1)));
      }
    }
  }
  std::string text;
  for (const std::string& row : rows) text += row + "; ";
  return text + picture.Note;
}

TEST(MeansExaminer, ARasterShowsTheListsOfTheChosenTests) {
  Desk desk;
  MeansExaminer& means = desk.Means;
  desk.Put("2", "1 3 3 | 1 3 2", 2);
  desk.Files.Put("C:\\Data\\AB Intrusions.csv", "subject,test,place,response,minute,rating\r\n2,1,1,pear,,\r\n");
  means.Open(desk.Project, "");
  means.SetPlotShown(PlotShown::Raster);
  EXPECT_EQ(Lists(means.Picture()),
            "[Test 1] 1 C0 C0 C1; [Test 1] 2 C0 I C1 R; [Test 1] 9; The order of study is not known.");
  desk.Files.Put("C:\\Data\\AB Study Order.csv",
                 "subject,test,position,item\r\n1,1,1,3\r\n1,1,2,1\r\n1,1,3,2\r\n1,1,4,4\r\n");
  means.Open(desk.Project, "");
  means.ChooseMeasures({0, 1});
  means.ChooseVariables({0});
  means.SetPlotShown(PlotShown::Raster);
  EXPECT_EQ(Lists(means.Picture()),
            "[Test 1, Man] 1 G3 G6 G0; [Test 1, Woman] 2 P I P R; [Test 1, Woman] 9; "
            "[Test 2, Man] 1 P P; [Test 2, Woman] 2 P P P; [Test 2, Woman] 9 P; ");
  EXPECT_TRUE(means.HasPlot());
  means.Close();
  EXPECT_FALSE(means.HasPlot());
}

TEST(MeansExaminer, WhatIsChosenForPlotsHoldsForTheirKind) {
  Desk desk;
  MeansExaminer& means = desk.Means;
  means.Open(desk.Project, "");
  means.ChooseVariables({0});
  PlotAnswers answers = means.Answers();
  answers.Title = "By sex";
  answers.Min = "5";
  answers.Max = "2.5";
  desk.Boxes.Expect({"The value axis goes from one number to a larger one.", BoxAnswer::Ok, "Leave a box empty"});
  EXPECT_FALSE(means.Answer(answers));
  answers.Min = "-1";
  std::swap(answers.Factors[0].Levels[0], answers.Factors[0].Levels[1]);
  EXPECT_TRUE(means.Answer(answers));
  EXPECT_EQ(means.Picture().Frame, (PlotFrame{"By sex", -1, 2.5}));
  EXPECT_EQ(means.Picture().Ticks, (std::vector<std::string>{"Woman", "Man"}));
  EXPECT_TRUE(means.Picture().Note.ends_with("1 mean lies beyond the axis that you chose.")) << means.Picture().Note;
  EXPECT_EQ(desk.Table().substr(0, 8), "N1 Woman");
  means.ChooseMeasures({2});
  EXPECT_EQ(means.Picture().Frame, PlotFrame{}) << "of another measure";
  means.Open(desk.Project, "");
  EXPECT_EQ(means.Picture().Frame.Title, "By sex") << "while the project is open";

  const PlotOptions& options = means.Options();
  PlotOptions read;
  for (const PlotOption& option : CommandOptions(options, desk.Project)) {
    EXPECT_EQ(SetPlotOption(option, desk.Project, read), "") << option.second;
  }
  EXPECT_EQ(read, options);
  read.Frames["Lures of another project"] = {"x", 1, 2};
  read.Orders.push_back({"Of another project", {"a"}});
  read.Orders[0].Levels.insert(read.Orders[0].Levels.begin(), "Gone");
  EXPECT_EQ(CommandOptions(read, desk.Project),
            (std::vector<PlotOption>{{"title", "Net=By sex"}, {"axis", "Net=-1..2.5"}, {"order", "Sex=Woman,Man"}}));
  ProjectParameters other = desk.Project;
  other.Abbreviation = "CD";
  means.Open(other, "");
  EXPECT_EQ(means.Options(), PlotOptions{});
}

TEST(PlotOptions, OfACommandAreKnownToTheProject) {
  ProjectParameters project = MakeProject({.Tests = 1, .Items = 4, .Variables = {"Sex", "A=b, c", "A"}});
  project.LevelCounts = {2, 2, 2};
  project.LevelNames[0] = {"Man", "Woman, other"};
  project.LevelNames[1] = {"x=y", ""};
  project.LevelNames[2] = {"b, c=2", "2"};
  struct Case {
    PlotOption Option;
    const char* Fault;  ///< its beginning; "" for none
    LevelOrder Order;
  };
  const Case cases[] = {{{"bars", "no"}, "'no' is none of ci, se, within, none", {}},
                        {{"colours", "red"}, "'red' is none of position, category", {}},
                        {{"axis", "Net=1"}, "'1' is no axis MIN..MAX from one number to a larger one", {}},
                        {{"axis", "Net=2..1"}, "'2..1' is no axis", {}},
                        {{"axis", "Nett=1..2"}, "'Nett' is none of Net, Proportion, Repeats", {}},
                        {{"title", "ArcScore=x"}, "'ArcScore' is none of Net, ", {}},
                        {{"title", "Raster=a=b"}, "", {}},
                        {{"title", "By sex"}, "'By sex' has no '=' behind a measure", {}},
                        {{"order", "Sex"}, "'Sex' has no '=' behind a variable", {}},
                        {{"order", "Sex="}, "'' is no list of levels; Sex has Man, Woman, other", {}},
                        {{"order", "Age=1"}, "the project has no variable 'Age'; it has Sex, A=b, c, A", {}},
                        {{"order", "Sex=Man,Boy"}, "'Boy' is no level of Sex; its levels are Man, Woman, other", {}},
                        {{"order", " sex=\"woman, other\", MAN"}, "", {"Sex", {"Woman, other", "Man"}}},
                        {{"order", "A=b, c=2,x=y"}, "", {"A=b, c", {"2", "x=y"}}},
                        {{"order", "A=2,\"b, c=2\""}, "", {"A", {"2", "b, c=2"}}},
                        {{"order", "A=b, c=z"}, "'z' is no level of A=b, c; its levels are x=y, 2", {}}};
  for (const Case& c : cases) {
    PlotOptions options;
    const std::string fault = SetPlotOption(c.Option, project, options);
    EXPECT_TRUE(*c.Fault == 0 ? fault.empty() : fault.starts_with(c.Fault)) << c.Option.second << ": " << fault;
    EXPECT_EQ(options.Orders, c.Order.Levels.empty() ? std::vector<LevelOrder>() : std::vector{c.Order});
    EXPECT_TRUE(*c.Fault == 0 || options == PlotOptions()) << c.Option.second;
  }
}

TEST(MeansExaminer, VariablesKeepTheOrderInWhichTheyWereChosen) {
  Desk desk;
  desk.Files.Put("D:\\Two.txt", "ID, Age, Sex, Net(Test 1)\r\n1, 1, 2, 5\r\n");
  desk.Means.Open(desk.Project, "");
  desk.Choose("D:\\Two.txt");
  desk.Means.ChooseVariables({1});
  desk.Means.ChooseVariables({0, 1});
  EXPECT_EQ(desk.Table(), "N1 2 1 1 5.00     | N1 (all) (all) 1 5.00    ");
  desk.Means.ChooseVariables({0});
  EXPECT_EQ(desk.Means.ChosenVariables(), std::vector<std::size_t>{0});
}

TEST(MeansExaminer, WhichMasterIsShownAndWhatIsSaidOfIt) {
  const std::string full = kHeader + kRows, odd = full + "7\r\n8\r\n" + kRows;
  const std::string gone = full + "X, 2, 0, 1, 0, 0\r\n", foreign = "ID, Age, Net(Test 1)\r\n1, 2, 5\r\n";
  const std::string path = "D:\\Other.txt", own = std::string("Master: ") + kMaster, other = "Master: " + path;
  const std::string oddNote = "2 lines do not fit the header and were skipped.  3 rows repeat a subject";
  const std::string goneNote = "1 row has no subject that could be scored again";
  const std::string foreignNote = "This is no master of the open project: ";
  const ExpectedBox noMaster{.Text = "'Other.txt' is no master.", .Details = "Its first line is no header"};
  const ExpectedBox noText{.Text = noMaster.Text, .Details = "It is no text."};
  const ExpectedBox noRows{.Text = noMaster.Text, .Details = "None of its lines fits its header."};
  const ExpectedBox noFile{std::make_error_code(std::errc::no_such_file_or_directory).message(), BoxAnswer::Cancel};
  // What the project's master holds, the header of the last run, the chosen file and what it holds; box, lines shown.
  const struct {
    const char* What;
    std::string Master, Header, Path, Other;
    std::optional<ExpectedBox> Box;
    std::string File, Note;
  } kCases[] = {
      {"none", "", "", "", "", {}, "There is no master of this project yet.", ""},
      {"a header that went elsewhere", kRows, kHeader, "", "", {}, own + " (3 rows)", ""},
      {"the same, chosen", kRows, kHeader, kMaster, kRows, {}, own + " (3 rows)", ""},
      {"and is not known", kRows, "", "", "", {}, std::string("'") + kMaster + "' could not be read.", ""},
      {"lines that do not fit, repeated subjects", odd, "", "", "", {}, own + " (6 rows)", oddNote},
      {"a subject that is gone", gone, "", "", "", {}, own + " (4 rows)", goneNote},
      {"a foreign one", full, "", path, foreign, {}, other + " (1 row)", foreignNote},
      {"the project's variables alone", full, "", path, kHeader, {}, other + " (0 rows)", foreignNote},
      {"and its name", full, "", "D:\\ab combined master.TXT", kHeader, {}, "Master: D:\\ab com", ""},
      {"another project's in its directory", full, "", "C:\\Data\\Z Master.txt", full, {}, "Master: C:", foreignNote},
      {"or its directory", full, "", "C:\\Data\\Mine.txt", kHeader, {}, "Master: C:\\Data\\Mine.txt", ""},
      {"no text", full, "", path, kHeader + '\0', noText, own, ""},
      {"no row that fits", full, "", path, kHeader + "1,2,3\r\n", noRows, own, ""},
      {"no master", full, "", path, kRows, noMaster, own, ""},
      {"no file", full, "", path, "", noFile, own, ""}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.What);
    Desk desk;
    desk.Files.Put(kMaster, c.Master);
    if (c.Master.empty()) std::filesystem::remove(desk.Files.Native(kMaster));
    if (!c.Other.empty()) desk.Files.Put(c.Path, c.Other);
    if (c.Box) desk.Boxes.Expect(*c.Box);
    desk.Means.Open(desk.Project, c.Header);
    if (!c.Path.empty()) desk.Choose(c.Path);
    EXPECT_TRUE(desk.Means.FileLine().starts_with(c.File)) << desk.Means.FileLine();
    EXPECT_TRUE(desk.Means.NoteLine().starts_with(c.Note)) << desk.Means.NoteLine();
    EXPECT_EQ(desk.Means.NoteLine().empty(), c.Note.empty()) << desk.Means.NoteLine();
  }
}

TEST(MeansExaminer, ASerialPositionMasterIsPlottedOnly) {
  Desk desk;
  SerialCounts counts;
  counts.Reset(4, 2);
  desk.Files.Put("D:\\S.txt", FormatSerialPositionMaster(counts, 2, 3));
  desk.Means.Open(desk.Project, "");
  desk.Choose("D:\\S.txt");
  EXPECT_EQ(desk.Means.Measures(), (std::vector<std::string>{"Test 1", "Test 2"}));
  EXPECT_TRUE(desk.Means.Variables().empty());
  EXPECT_EQ(desk.Means.RowCount(), 0);
  EXPECT_TRUE(desk.Means.HasPlot());
  desk.Means.ChooseWholeSeries();
  EXPECT_EQ(desk.Means.Picture().Series.size(), 4U) << "observed and smoothed, of both tests";
  EXPECT_EQ(desk.Means.Picture().Series[0].Points.size(), 4U);

  desk.Project.FalseMemory = desk.Project.Categorized = 1;
  desk.Project.CategoryCount = desk.Project.ItemsPerCategory = 2;
  desk.Files.Put("D:\\" + ResultName(desk.Project, ResultFile::SerialMaster), FormatSerialPositionMaster(counts, 2, 3));
  desk.Choose("D:\\" + ResultName(desk.Project, ResultFile::SerialMaster));
  const std::vector<PlotPoint>& points = desk.Means.Picture().Series[0].Points;
  ASSERT_EQ(points.size(), 2U) << "lures are left out";
  EXPECT_EQ(points[0].X + points[1].X, 3) << "they stand last in the first order";
  desk.Means.SaveTable();
}

TEST(MeansExaminer, NothingThatHoldsDataIsReplaced) {
  Desk desk;
  desk.Files.Put("D:\\Old.csv", "Measure,n\r\n");
  desk.Files.Put("D:\\Odd.csv", kHeader);
  desk.Files.Put("D:\\Rows.txt", kHeader);
  desk.Means.Open(desk.Project, "");
  desk.Choose("D:\\Rows.txt");
  std::vector<const char*> kept = {"D:\\New.prm", "C:\\Data\\Sdata\\AB Sub#1.dat", "c:\\data\\ab master.txt",
                                   "D:\\Odd.csv", "D:\\ROWS.TXT"};
  namespace fs = std::filesystem;
  desk.Files.Put(kMaster, kRows);  // its header went to another file
  desk.Files.Put("C:\\Data\\AB Combined Master2.txt", kRows);
  LinkFile(desk.Files.Native(kMaster), desk.Files.Native("D:\\soft.csv"));
  fs::create_hard_link(desk.Files.Native("C:\\Data\\AB Combined Master2.txt"), desk.Files.Native("D:\\hard.csv"));
  LinkFile(desk.Files.Native("D:\\Rows.txt"), desk.Files.Native("D:\\shown.csv"));
  kept.insert(kept.end(), {"D:\\soft.csv", "D:\\hard.csv", "D:\\shown.csv"});
  for (const char* path : kept) {
    const Tree before = desk.Files.Snapshot();
    desk.Boxes.Expect({.Text = "A master or a data file of a project is never replaced.  Please select another name.",
                       .Details = path});
    desk.Save(path);
    EXPECT_EQ(desk.Files.Snapshot(), before) << path;
  }
  desk.Save("D:\\Old.csv");
  EXPECT_EQ(desk.Files.Get("D:\\Old.csv").substr(0, 10), "Measure,n,");
  desk.Boxes.Expect(
      {.Text = "Path not found.  Please verify that the correct disk is in the drive.", .Answer = BoxAnswer::Cancel});
  desk.Save("Q:\\New.csv");
  EXPECT_EQ(desk.Dialogs.Questions.back().Name, "AB Means.csv");

  desk.Files.Put(kMaster, kHeader + kRows);
  desk.Choose(kMaster);
  desk.Dialogs.Answers = {"D:\\P.PNG", "D:\\P.gif"};
  const std::vector<PlotFormat> formats = {PlotFormat::Pdf, PlotFormat::Svg, PlotFormat::Png};
  const auto target = desk.Means.AskPlotFile(formats);
  ASSERT_TRUE(target);
  EXPECT_EQ(target->Format, PlotFormat::Png);
  desk.Means.SavePlot(*target, "bytes");
  EXPECT_EQ(desk.Files.Get("D:\\P.PNG"), "bytes");
  desk.Boxes.Expect({.Text = "The name of a plot's file ends in '.pdf', '.svg' or '.png'.", .Details = "D:\\P.gif"});
  EXPECT_FALSE(desk.Means.AskPlotFile(formats));
}

}  // namespace
}  // namespace zova::testing
