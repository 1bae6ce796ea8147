// SPDX-License-Identifier: GPL-3.0-or-later

#include "project/ProjectBackup.h"

#include <chrono>
#include <set>

#include "project/ProjectFile.h"
#include "support/FakePlatform.h"
#include "support/Scratch.h"

namespace zova::testing {
namespace {

namespace fs = std::filesystem;

ExpectedBox Restored(const std::string& details = "") {
  return {"The data was successfully restored.", BoxAnswer::Ok, details, BoxIcon::Information, {}, {}, "Restore"};
}
ExpectedBox NotFound(const std::string& details, BoxAnswer answer = BoxAnswer::Cancel) {
  return {"Path not found.  Please verify that the correct disk is in the drive.", answer, details};
}
ExpectedBox Missing(const std::string& directory, BoxAnswer answer) {
  return {"'" + directory + "' Directory does not exist.  Do you wish to create it?", answer};
}
ExpectedBox HasBackup(BoxAnswer answer) {
  const char* text =
      "This feature will create a new backup of all the entered data for the current project.  This project's data "
      "already has a backup location at: 'D:\\Backup'.  To recreate or refresh the data at this location, select "
      "'No'.  Do you want to specify a new backup location?";
  return {text, answer, "", BoxIcon::Question, BoxButtons::YesNoCancel, BoxAnswer::No};
}
const ExpectedBox kCreated = Told("The backup directory and files were successfully created.", BoxIcon::Information);
const ExpectedBox kUpdated = Told("The backup data files were updated.", BoxIcon::Information);
using Names = std::vector<std::string>;
const Names kPrimary{"AB Sub#1.dat", "ab sub#2.DAT"};
const std::string kOwnFile =
    "2,4,0,0,0,0,0,,,0,0,,0,\"AB\",\"C:\\Data\",\"D:\\Backup\",\"Study.prm\",0,,\"VB Version\"\r\n";
const std::string kCopy =
    "2,4,0,0,0,0,0,\"D:\\Backup\",,0,0,,0,\"AB\",\"C:\\Data\",\"D:\\New\",\"Study.prm\",0,,\"VB Backup\"\r\n";

// The tree once these files of the directory `from` were copied to `to`, which was created when missing.
Tree Copied(Tree tree, const std::string& from, const std::string& to, const Names& names) {
  tree[to] = "";
  for (const std::string& name : names) tree[to + name] = tree.at(from + name);
  return tree;
}

// A project whose backup is behind: it has an older subject 1, and one that the primary directory lacks.
struct Lab : Scratch {
  explicit Lab(MessageBoxes& boxes) : Boxes(boxes) {
    for (const char* path : {"C:/Data/Sdata/AB Sub#1.dat", "C:/Data/Sdata/ab sub#2.DAT", "C:/Data/Sdata/x.bak",
                             "C:/Data/Sdata/Unfinished/AB Sub#4.dat", "D:/Backup/Sdata/AB Sub#1.dat",
                             "D:/Backup/Sdata/ab sub#7.DAT", "D:/Backup/Sdata/ABC8.dat"}) {
      Put(path, path);  // shows where a copy came from
    }
    for (const char* path : {"C:/Param/Study.prm", "C:/Data/Study.prm"}) Put(path, kOwnFile);
    Put("D:/Backup/Study.prm", "3" + kOwnFile.substr(1));
    MakeDirectory("D:/New");
  }
  // These show the command's message, if any, and tell whether there was one.
  bool Show(const std::optional<MessageBox>& message) { return message && (Boxes.Show(*message), true); }
  bool Begin(bool asks) {
    const BackupOutcome outcome = BeginBackup(Project, ParamDir, Around);
    EXPECT_EQ(outcome.AsksDestination, asks);
    return Show(outcome.Message);
  }
  bool BackUp(const std::string& text) { return Show(BackUpTo(Project, text, Saved, Around)); }
  bool Restore(const std::string& path) { return Show(RestoreData(Project, path, ParamDir, Around)); }
  void Lose(const char* path) const { fs::remove_all(Native(path)); }

  MessageBoxes& Boxes;
  FakePlatform Fakes;
  Platform Around = Fakes.With(Files, Boxes);
  ProjectParameters Project = ParseProject(kOwnFile, "");
  SavedProject Saved{"C:\\Param\\Study.prm", "D:\\Backup"};
  std::string ParamDir = "C:\\Param";
};

TEST(ProjectBackup, RefreshesTheLocationItHasUnlessAnotherIsWantedOrItIsStopped) {
  ScriptedBoxes boxes{HasBackup(BoxAnswer::Cancel),
                      HasBackup(BoxAnswer::Yes),
                      HasBackup(BoxAnswer::No),
                      Told("Copying was cancelled.  Of 2 files, 1 had been copied.", BoxIcon::Information),
                      HasBackup(BoxAnswer::No),
                      kUpdated};
  Lab lab(boxes);
  Tree tree = lab.Snapshot();
  EXPECT_FALSE(lab.Begin(false));
  EXPECT_FALSE(lab.Begin(true));
  EXPECT_EQ(lab.Snapshot(), tree);
  lab.Fakes.Bar.StopsAt = 1;
  EXPECT_FALSE(lab.Begin(false));
  EXPECT_EQ(lab.Snapshot(), Copied(tree, "C/Data/Sdata/", "D/Backup/Sdata/", {"AB Sub#1.dat"}));
  lab.Fakes.Bar.StopsAt = SIZE_MAX;
  EXPECT_TRUE(lab.Begin(false));
  tree = Copied(tree, "C/Data/Sdata/", "D/Backup/Sdata/", kPrimary);
  EXPECT_EQ(lab.Snapshot(), Copied(tree, "C/Param/", "D/Backup/", {"Study.prm"}));
  lab.Project.BackupDir = "(none)";
  EXPECT_FALSE(lab.Begin(true));
}

TEST(ProjectBackup, NewDestinations) {
  ScriptedBoxes boxes;
  Lab lab(boxes);
  lab.Put("D:/File", "");
  LinkDirectory(lab.Native("C:/Data"), lab.Native("D:/Link"));
  Tree tree = lab.Snapshot();
  const auto refuses = [&](const std::string& text, const std::vector<ExpectedBox>& expected) {
    for (const ExpectedBox& box : expected) boxes.Expect(box);
    EXPECT_FALSE(lab.BackUp(text)) << text;
    EXPECT_EQ(lab.Project, ParseProject(kOwnFile, "")) << text;
    EXPECT_EQ(lab.Snapshot(), tree) << text;
  };
  for (const char* text : {"", "(none)", "New"}) {
    refuses(text, {Told("Invalid format. Please redo.")});
  }
  for (const char* text : {"D:\\a|b", "D:\\New\\..", "D:\\File"}) {
    refuses(text, {Told("Invalid Backup directory name.")});
  }
  for (const std::string& text : {std::string(" c:/DATA\\ "), lab.Native("D:/Link").string()}) {
    refuses(text, {Told("The primary and backup directories cannot be the same.")});
  }
  refuses("X:\\New", {NotFound("'X:\\New'", BoxAnswer::Retry), NotFound("'X:\\New'")});
  refuses("D:\\No\\Deep", {Missing("D:\\No\\Deep", BoxAnswer::No)});
  const std::string below = "D:\\File\\A";  // Retry does not ask again
  refuses(below, {Missing(below, BoxAnswer::Yes), NotFound(below, BoxAnswer::Retry), NotFound(below)});

  for (const auto& box : {Missing("D:\\A\\B", BoxAnswer::Yes), kCreated, kCreated, kUpdated}) boxes.Expect(box);
  for (const std::string& text : {lab.Native("D:/A/B").string() + "/", std::string("D:\\New\\ ")})
    EXPECT_TRUE(lab.BackUp(text)) << text;
  EXPECT_EQ(lab.Get("D:/New/Study Backup.prm"), kCopy) << "names the saved directory, not D:\\A\\B";
  EXPECT_EQ(lab.Project.PreviousBackupDir + lab.Project.BackupDir, "D:\\BackupD:\\New");
  lab.Lose("D:/A"), lab.Lose("D:/New/Study Backup.prm");
  lab.Project.FormatMarker = "Old ZOVA";
  lab.Saved.File = "C:\\Old\\Study.prm";  // Param's is another project
  lab.Put("C:/Old/Study.prm", "old");
  tree = lab.Snapshot();
  EXPECT_TRUE(lab.BackUp("D:\\New"));
  tree = Copied(tree, "C/Data/Sdata/", "D/New/Sdata/", kPrimary);
  EXPECT_EQ(lab.Snapshot(), Copied(tree, "C/Old/", "D/New/", {"Study.prm"}));
}

TEST(ProjectBackup, TellsOfATargetThatLeadsNowhereAndReplacesOnlyProjects) {
  // A link that leads to itself, or a directory on Windows, where few users may make such a link.
  const auto fault = kIsWindows ? std::errc::is_a_directory : std::errc::too_many_symbolic_link_levels;
  const std::string cannotBeWritten = TextOf(fault);
  const std::string exists = TextOf(std::errc::file_exists);
  ScriptedBoxes boxes{HasBackup(BoxAnswer::No),
                      {cannotBeWritten, BoxAnswer::Cancel, "'D:\\Backup\\Sdata\\AB Sub#1.dat'"}};
  Lab lab(boxes);
  const fs::path target = lab.Native("D:/Backup/Sdata/AB Sub#1.dat");
  fs::remove(target);
  kIsWindows ? void(fs::create_directory(target)) : fs::create_symlink("AB Sub#1.dat", target);
  EXPECT_FALSE(lab.Begin(false));
  lab.Lose("D:/Backup/Sdata/AB Sub#1.dat");
  for (const std::string& content : {kOwnFile, kCopy}) {
    lab.Project = ParseProject(content, "");
    lab.Put(content == kCopy ? "C:/Data/Study.prm" : "C:/Param/Study.prm", "the user's own");
    const Tree before = lab.Snapshot();
    boxes.Expect({exists, BoxAnswer::Cancel, "A file that is no project is not replaced."});
    EXPECT_FALSE(lab.Restore("D:\\Backup\\Study.prm"));
    EXPECT_EQ(lab.Snapshot(), before);
    lab.Put("C:/Param/Study.prm", kOwnFile);
  }
}

TEST(ProjectBackup, RestoresFromWhereTheBackupIs) {
  for (const auto& [marker, names] : {std::pair("VB Version", Names{"AB Sub#1.dat", "ab sub#7.DAT"}),
                                      {"Old ZOVA", {"AB Sub#1.dat", "ab sub#7.DAT", "ABC8.dat"}}}) {
    ScriptedBoxes boxes{Restored()};
    Lab lab(boxes);
    lab.Project.FormatMarker = marker;
    Tree tree = Copied(lab.Snapshot(), "D/Backup/Sdata/", "C/Data/Sdata/", names);
    EXPECT_TRUE(lab.Restore("C:\\Param\\Study.prm"));
    EXPECT_EQ(lab.Snapshot(), Copied(tree, "D/Backup/", "C/Param/", {"Study.prm"})) << marker;

    fs::rename(lab.Native("D:/Backup"), lab.Native("D:/Moved"));
    lab.Lose("C:/Data/Sdata/AB Sub#1.dat"), lab.Lose("C:/Param/Study.prm");
    tree = lab.Snapshot();
    for (const char* path : {"C:\\Param\\Study.prm", "C:\\Data\\Study.prm"}) {  // none beside it, or the primary's
      boxes.Expect(NotFound("Listing 'D:\\Backup\\Sdata'"));
      EXPECT_FALSE(lab.Restore(path));
      EXPECT_EQ(lab.Snapshot(), tree);
    }
    boxes.Expect(Restored("'D:\\Moved\\Sdata'"));
    EXPECT_TRUE(lab.Restore("D:\\Moved\\Study.prm"));
    tree = Copied(tree, "D/Moved/Sdata/", "C/Data/Sdata/", names);
    EXPECT_EQ(lab.Snapshot(), Copied(tree, "D/Moved/", "C/Param/", {"Study.prm"})) << marker;
  }
}

TEST(ProjectBackup, ARestoreAsksBeforeItReplacesNewerData) {
  const ExpectedBox newer = {
      "1 data files in the primary directory are newer than their backup copies.  Do you wish to replace them?",
      BoxAnswer::No,
      "",
      BoxIcon::Exclamation,
      BoxButtons::YesNo,
      BoxAnswer::No,
      "Restore"};
  ScriptedBoxes boxes{newer};
  Lab lab(boxes);
  const auto makeNewer = [&](const char* name) {
    const fs::path file = lab.Native(name);
    fs::last_write_time(file, fs::last_write_time(file) + std::chrono::hours(1));
  };
  makeNewer("C:/Data/Sdata/AB Sub#1.dat");
  makeNewer("C:/Data/Sdata/ab sub#2.DAT");  // the backup has none
  const Tree before = lab.Snapshot();
  EXPECT_FALSE(lab.Restore("C:\\Param\\Study.prm"));
  EXPECT_EQ(lab.Snapshot(), before);
  ExpectedBox taken = newer;
  taken.Answer = BoxAnswer::Yes;
  boxes.Expect(taken), boxes.Expect(Restored("2 files were copied."));
  EXPECT_TRUE(lab.Restore("C:\\Param\\Study.prm"));
  makeNewer("C:/Data/Sdata/AB Sub#1.dat");  // but the same as its copy
  boxes.Expect(Restored());
  EXPECT_TRUE(lab.Restore("C:\\Param\\Study.prm"));
}

TEST(ProjectBackup, CarriesTheCompanionFilesAndAsksBeforeANewerOneIsReplaced) {
  ScriptedBoxes boxes{HasBackup(BoxAnswer::No), kUpdated};
  Lab lab(boxes);
  for (const char* name : {"AB Words.csv", "AB Study Order.csv", "AB Long.csv", "AB C Words.csv"}) {
    lab.Put(std::string("C:/Data/") + name, name);
  }
  Tree tree = lab.Snapshot();
  EXPECT_TRUE(lab.Begin(false));
  tree = Copied(Copied(tree, "C/Data/Sdata/", "D/Backup/Sdata/", kPrimary), "C/Param/", "D/Backup/", {"Study.prm"});
  EXPECT_EQ(lab.Snapshot(), Copied(tree, "C/Data/", "D/Backup/", {"AB Study Order.csv", "AB Words.csv"}));
  lab.Lose("C:/Data/AB Study Order.csv");
  lab.Put("C:/Data/AB Words.csv", "newer");
  fs::last_write_time(lab.Native("C:/Data/AB Words.csv"), fs::file_time_type::clock::now() + std::chrono::hours(1));
  for (const BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
    boxes.Expect({"'AB Words.csv' in the primary directory is newer than its backup.  Do you wish to replace it?",
                  answer, "", BoxIcon::Exclamation, BoxButtons::YesNo, BoxAnswer::No, "Warning"});
    boxes.Expect(Restored());
    EXPECT_TRUE(lab.Restore("C:\\Param\\Study.prm"));
    EXPECT_EQ(lab.Snapshot().at("C/Data/AB Words.csv"), answer == BoxAnswer::No ? "newer" : "AB Words.csv");
    EXPECT_EQ(lab.Snapshot().at("C/Data/AB Study Order.csv"), "AB Study Order.csv");
  }
}

TEST(ProjectBackup, NothingIsCopiedOntoItselfOrToNowhere) {
  const char* noBackup =
      "There was not a backup location for this project.  If you saved one manually you can create an 'Sdata' folder "
      "in your primary directory and copy all data (.dat) files to it.  You can determine your primary directory by "
      "selecting 'Options', 'View Parameters', then 'Next'.";
  ScriptedBoxes boxes{HasBackup(BoxAnswer::No), kUpdated, Restored(), NotFound("'(none)\\Sdata'"), Told(noBackup)};
  Lab lab(boxes);
  lab.Lose("D:/Backup/Sdata");
  LinkDirectory(lab.Native("C:/Data/Sdata"), lab.Native("D:/Backup/Sdata"));
  lab.ParamDir = "d:\\backup";
  for (const char* file : {"C:/Data/Sdata/AB Sub#1.dat", "D:/Backup/Study.prm"}) {
    fs::permissions(lab.Native(file), fs::perms::owner_read);  // a copy would be refused
  }
  EXPECT_TRUE(lab.Begin(false));
  EXPECT_TRUE(lab.Restore("D:\\Backup\\Study.prm"));

  lab.Project.PrimaryDir = "(none)";
  EXPECT_FALSE(lab.Restore("D:\\Backup\\Study.prm"));
  lab.Project.BackupDir = "(none)";
  EXPECT_TRUE(lab.Restore("D:\\Backup\\Study.prm"));
}

// Lets call `n` of a backup to a new destination fail, or of the restore after the loss of all but that. Retry ends as
// if nothing had been; Cancel leaves each file as it was or as it would have become. False when there is no such call.
bool SurvivesFailure(bool restores, int n, BoxAnswer answer) {
  AnsweringBoxes boxes(answer);
  Lab lab(boxes);
  if (restores) {
    EXPECT_TRUE(lab.BackUp("D:\\New"));
    lab.Project = ParseProject(lab.Get("D:/New/Study Backup.prm"), "");
    lab.Lose("C:/Data"), lab.Lose("C:/Param/Study.prm"), lab.Lose("D:/Backup");
    boxes.Texts.clear();
  }
  const Tree before = lab.Snapshot();
  Tree finished = restores ? Copied(before, "D/New/Sdata/", "C/Data/Sdata/", kPrimary)
                           : Copied(before, "C/Data/Sdata/", "D/New/Sdata/", kPrimary);
  if (restores) finished["C/Data/"] = "", finished["C/Param/Study.prm"] = finished["C/Data/Study.prm"] = kOwnFile;
  if (!restores) finished["D/New/Study Backup.prm"] = kCopy;

  lab.Faults.FailAt(n, std::errc::io_error, FailingFileLayer::Writes::Half);
  const bool done = restores ? lab.Restore("D:\\New\\Study Backup.prm") : lab.BackUp("D:\\New");
  SCOPED_TRACE((restores ? "restore, call " : "backup, call ") + std::to_string(n) + " " + lab.Faults.FailedCall());
  const std::size_t faults = boxes.Texts.size() - (done ? 1 : 0);
  EXPECT_LE(faults, lab.Faults.HasFailed() ? 1U : 0U);
  EXPECT_EQ(done, faults == 0 || answer == BoxAnswer::Retry);
  EXPECT_EQ(lab.Project == ParseProject(kOwnFile, ""), restores || !lab.Has("D:/New/Sdata"));
  const Tree left = lab.Snapshot();
  EXPECT_TRUE(!done || left == finished);
  std::set<Tree::value_type> allowed(before.begin(), before.end());
  allowed.insert(finished.begin(), finished.end());
  for (const auto& file : left) EXPECT_TRUE(allowed.contains(file)) << file.first;
  return lab.Faults.HasFailed();
}

TEST(ProjectBackup, SurvivesTheFailureOfAnySingleDiskCall) {
  for (const auto answer : {BoxAnswer::Cancel, BoxAnswer::Retry}) {
    for (const bool restores : {false, true}) {
      int n = 1;
      while (SurvivesFailure(restores, n, answer)) n += kFailureStep;
      EXPECT_GT(n, 40);
    }
  }
}

}  // namespace
}  // namespace zova::testing
