// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/MasterFlow.h"

#include "scoring/Examples.h"
#include "support/FakePlatform.h"

namespace zova::testing {
namespace {

constexpr const char* kMaster = "C:\\Data\\AB Master.txt";
const ExpectedBox kCreated = {.Text = "Master(s) Successfully Created!", .Icon = BoxIcon::None};
const ExpectedBox kCombinedCreated = {.Text = "Master(s) successfully created!", .Icon = BoxIcon::Information};

// A flow over the data of five subjects, 1 to 3 men.
struct Lab : Study, MessageBoxes {
  // "i", "c" and "e" for the boxes: serial positions, groups, both CSV files.
  explicit Lab(std::string_view settings) : Study({.Items = 3, .Variables = {""}}) {
    Project.LevelCounts[0] = 1;
    Project.LevelNames[0][0] = "Man";
    for (int id = 1; id <= 5; ++id) Put(id, std::to_string(id % 3 + 1) + " 3 | 2 3");
    Files.MakeDirectory("D:\\Out");
    Flow.SetObserver([this] { Trail += "COMIDWGF"[static_cast<int>(Flow.CurrentStage())]; });
    EXPECT_TRUE(Flow.Open(Project));
    Options.ChkItemAnalysis = settings.find('i') != std::string_view::npos;
    Options.ChkCombine = settings.find('c') != std::string_view::npos;
    Options.ChkExportClean = Options.ChkExportLong = settings.find('e') != std::string_view::npos;
    Options.SetPerGroupText("2");
  }
  void Put(int id, const std::string& lists) { Study::Put(std::to_string(id), lists, id <= 3 ? 1 : 2); }
  BoxAnswer Show(const MessageBox& box) override {
    EXPECT_NE(Flow.CurrentStage(), MasterFlow::Stage::Closed) << "the main screen comes after the messages";
    return Fakes.Boxes.Show(box);
  }
  // Gives every screen's command in turn; those of screens that are not up must do nothing. The initials of the stages,
  // then of the masters and CSV files that there are.
  std::string Walk(char cancelAt = 0) {
    for (const auto go :
         {&MasterFlow::Continue, &MasterFlow::GoSerial, &MasterFlow::GoGroups, &MasterFlow::GoCombine}) {
      if (Trail.back() != cancelAt)
        (Flow.*go)();
      else
        Flow.CancelOptions(), Flow.CancelGroups(), Flow.CancelOrder();
    }
    std::string made = Trail + " ";
    for (const auto& [name, bytes] : Files.Snapshot()) {
      if (name.ends_with("Master.txt") || name.ends_with(".csv")) made += name[name.find("AB ") + 3];
    }
    return made;
  }

  FakePlatform Fakes;
  Platform Around = Fakes.With(OfFiles, *this);
  std::string Trail;
  MasterFlow Flow{Around};
  MasterOptions& Options = Flow.Options();
};

TEST(MasterFlow, TheOrderOfTheScreensAndCancelAtEach) {
  // The boxes and the screen to cancel.
  const std::pair<std::string, std::string> kCases[] = {
      {"", "OWFC M"},  {"i", "OIWFC MS"}, {"c", "ODWGWFC CM"}, {"ic", "OIDWGWFC CMS"}, {"icO", "OC "},
      {"icI", "OIO "}, {"cD", "ODO "},    {"icD", "OIDO "},    {"icG", "OIDWGFC MS"}};
  for (const auto& [settings, walk] : kCases) {
    Lab lab(settings);
    lab.Put(5, "|");  // nothing recalled: a notice, at the end of all
    if (walk.find('W') != std::string::npos) {
      lab.Fakes.Boxes.Expect(
          {"For at least 1 test, Bi-Directional ITR was unable to be calculated for subject(s): 5.  You "
           "should delete these subjects before analysis."});
      lab.Fakes.Boxes.Expect(walk.find("GWFC") != std::string::npos ? kCombinedCreated : kCreated);
    }
    EXPECT_EQ(lab.Walk(settings.empty() ? '\0' : settings.back()), walk);
    const bool closed = walk.find('C') != std::string::npos;
    EXPECT_EQ(lab.Options.ChkCombine, !closed) << walk << ": kept for another try";
    EXPECT_EQ(lab.Options.PerGroupText(), closed ? "" : "2") << walk;
  }
}

TEST(MasterFlow, DestinationsAndRunsThatStop) {
  const auto type = [](const char* text) { return [text](Lab& lab) { lab.Options.SetDestination(text); }; };
  const auto move = [](const char* path) {
    return [path](Lab& lab) {
      path[3] == 0 ? lab.Options.Browser().SelectDrive(*path) : lab.Options.Browser().TryOpen(path);
      lab.Options.FollowBrowser();
    };
  };
  const auto native = [](Lab& lab) { lab.Options.SetDestination(PathText(lab.Files.Native("D:\\Out")) + "/"); };
  const auto stay = [](Lab& lab) { lab.Options.SetDestination("Mine.txt"), lab.Options.FollowBrowser(); };
  const auto widen = [](Lab& lab) {
    lab.Project.TestCount = 15;  // 32,768 patterns
    lab.Options.ChkItemAnalysis = true;
  };
  const auto clash = [](Lab& lab) {
    lab.Options.ChkItemAnalysis = true;
    lab.Options.SetDestination("AB Serial Position Master.txt");
  };
  const auto spoil = [](Lab& lab) { lab.Put(3, "9 | 1"); };
  const auto remove = [](Lab& lab) { std::filesystem::remove(lab.Files.Native("C:\\Data\\Sdata\\AB Sub#2.dat")); };
  const auto combine = [&](Lab& lab) { remove(lab), lab.Options.ChkCombine = true; };
  const ExpectedBox none, stop{"Subscript out of range", BoxAnswer::Cancel};
  const ExpectedBox gone{std::make_error_code(std::errc::no_such_file_or_directory).message(), BoxAnswer::Cancel};
  const ExpectedBox noDrive{"Path not found.  Please verify that the correct disk is in the drive.", BoxAnswer::Cancel};
  const ExpectedBox taken{std::make_error_code(std::errc::file_exists).message(), BoxAnswer::Cancel};
  const std::tuple<std::function<void(Lab&)>, ExpectedBox, const char*, std::string> kCases[] = {
      {move("D:\\Out"), none, "OWFC MM", "D:\\Out\\AB Master.txt"},
      {move("D:\\"), none, "OWFC MM", "D:\\AB Master.txt"},
      {move("Q:\\"), none, "OWFC M", kMaster},
      {type("D:\\Out\\My.txt"), none, "OWFC M", "D:\\Out\\My.txt"},
      {type(" Mine.txt "), none, "OWFC M", "C:\\Data\\Mine.txt"},
      {type("Sdata/"), none, "OWFC MM", "C:\\Data\\Sdata/AB Master.txt"},
      {type(" \t"), none, "OWFC M", kMaster},
      {type("D:"), none, "OWFC MM", "D:\\AB Master.txt"},
      {type("D:Out"), none, "OWFC MM", "D:\\Out\\AB Master.txt"},
      {type("D:\\Out\\"), none, "OWFC MM", "D:\\Out\\AB Master.txt"},
      {native, none, "OWFC MM", "D:\\Out\\AB Master.txt"},
      {stay, none, "OWFC M", "C:\\Data\\Mine.txt"},
      {widen, {"Overflow", BoxAnswer::Cancel, "uncheck 'General Data: Item Pattern"}, "O ", ""},
      {clash, taken, "OIWO ", ""},
      {type("AB Combine Order.dat"), taken, "OWO ", ""},
      {spoil, stop, "OWO M", ""},
      {type("Q:\\AB.txt"), noDrive, "OWO ", ""},
      {remove, gone, "OWO M", ""},
      {combine, gone, "OO ", ""}};
  for (const auto& [act, box, walk, path] : kCases) {
    Lab lab("");
    act(lab);
    if (!box.Text.empty()) lab.Fakes.Boxes.Expect(box);
    if (!path.empty()) lab.Fakes.Boxes.Expect(kCreated);
    EXPECT_EQ(lab.Walk(), walk);
    EXPECT_EQ(lab.Flow.LastMaster(), path.empty() ? "" : "C:\\Data\\AB Master.txt") << "where the rows are";
    EXPECT_EQ(lab.Flow.StatusLine().empty(), std::string(walk) != "OWO M") << "says how far a run came that stopped";
    if (path.empty()) continue;
    EXPECT_EQ(lab.Options.Destination(), path) << "stands in the box";
    EXPECT_TRUE(lab.Files.Get(path).starts_with(lab.Flow.LastHeader() + "\r\n")) << path;
    EXPECT_NE(lab.Files.Get(kMaster).find("5,  2,  2,  2, "), std::string::npos) << "rows stay with the data";
  }
}

TEST(MasterFlow, GroupsAsPreviewedInTheirOrder) {
  Lab lab("c");
  lab.PutFile("AB Sub#3.dat", "");
  lab.Flow.Continue();
  EXPECT_EQ(lab.Flow.GroupsPreview(), "2 groups of 2, left over: subject 5") << "no subject is read";
  lab.Fakes.Boxes.Expect({"This is not a valid file format.  Please select a different file."});
  lab.Flow.ChooseVariable(1);
  EXPECT_EQ(lab.Options.ChosenVariable(), 0) << "given up";
  lab.Put(3, "1 3 | 2 3");
  lab.Flow.ChooseVariable(1);
  EXPECT_EQ(lab.Flow.GroupsPreview(), ", Man: 1 group of 2, left over: subject 3\n, 2: 1 group of 2");
  for (const auto& [size, preview, box] :
       {std::tuple("1", "", kGroupSizeFault), {"4", kTooFewSubjects, kTooFewSubjects}}) {
    lab.Options.SetPerGroupText(size);
    EXPECT_EQ(lab.Flow.GroupsPreview(), preview);
    lab.Fakes.Boxes.Expect({.Text = box, .Icon = BoxIcon::Exclamation});
    lab.Flow.GoGroups();
  }
  lab.Options.SetPerGroupText("2");
  lab.Flow.GoGroups();
  EXPECT_EQ(lab.Flow.Order().Cells().Text({3, 0}) + lab.Flow.Order().Cells().Text({4, 0}), "3, Man4, 2");
  EXPECT_EQ(lab.Flow.OrderPreview(), ", Man: 1 group of 2, left over: subject 3\n, 2: 1 group of 2");
  lab.Flow.Order().Cells().SetEntryText("3");
  EXPECT_EQ(lab.Flow.OrderPreview(), "The groups show here once every subject has a position of its own.");
  lab.Flow.Order().Cells().Paste("3\n2\n1");
  EXPECT_EQ(lab.Flow.OrderPreview(), ", Man: 1 group of 2, left over: subject 1\n, 2: 1 group of 2");
  lab.Put(3, "9 | 1");
  lab.Fakes.Boxes.Expect({"Subscript out of range", BoxAnswer::Cancel, "Subject 3: item 9"});
  lab.Flow.GoCombine();
  EXPECT_EQ(lab.Trail, "ODWGWO") << "a run that was given up ends on the master screen";
  lab.Put(3, "1 3 | 2 3");
  lab.Flow.Continue();
  lab.Flow.GoGroups();
  EXPECT_EQ(lab.Flow.Order().Positions().front(), 3) << "the order was saved";
  lab.Fakes.Boxes.Expect(kCombinedCreated);
  lab.Flow.GoCombine();
  const std::string combined = lab.Files.Get(lab.Flow.LastMaster());
  for (const char* group : {"\r\nGroup 1 (3+2),  1,", "\r\nGroup 2 (4+5),  2,"})
    EXPECT_NE(combined.find(group), std::string::npos) << combined;

  EXPECT_TRUE(lab.Flow.Open(lab.Project));
  lab.Options.ChkCombine = true;
  lab.Options.SetPerGroupText("2");
  lab.Flow.Continue();
  EXPECT_EQ(lab.Flow.GroupsPreview(), "2 groups of 2, left over: subject 5") << "no variable is chosen again";
  lab.Flow.ChooseVariable(1);
  EXPECT_EQ(lab.Flow.GroupsPreview(), ", Man: 1 group of 2, left over: subject 1\n, 2: 1 group of 2")
      << "in the saved order";
}

TEST(MasterFlow, ARunThatEndsByAnExceptionLeadsBackToTheOptions) {
  Lab lab("");
  lab.Fakes.Bar.Meanwhile = [] { throw std::bad_alloc(); };
  EXPECT_THROW(lab.Flow.Continue(), std::bad_alloc);
  EXPECT_EQ(lab.Flow.CurrentStage(), MasterFlow::Stage::Options);
  EXPECT_EQ(lab.Fakes.Pointer.Busy, 0);
}

}  // namespace
}  // namespace zova::testing
