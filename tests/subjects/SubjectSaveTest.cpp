// SPDX-License-Identifier: GPL-3.0-or-later
//
// Saving a subject: what it leaves on the disk, with every single call failing, and with the program killed.

#include <gtest/gtest.h>

#include <set>

#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"
#include "support/FailingFileLayer.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

using namespace zova;
using namespace zova::testing;

namespace {

ProjectParameters Project(const std::string& backup = "D:\\B", const std::string& marker = "VB Version") {
  ProjectParameters project;
  project.TestCount = 1;
  project.ItemCount = 20;
  project.Abbreviation = "Ex";
  project.PrimaryDir = "C:\\P";
  project.BackupDir = backup;
  project.FormatMarker = marker;
  return project;
}

SubjectRecord Subject(const std::string& id, std::int16_t item, const std::string& note = "") {
  SubjectRecord record;
  record.SubjectId = id;
  ResetLists(record, Project());
  record.Lists.At(1, 1).Item = item;
  record.Lists.RecallCount(1) = 1;
  record.UnfinishedNote = note;
  record.HasUnsavedChanges = true;
  return record;
}

constexpr const char* kFile = "Ex Sub#12.dat";
const std::string kOld = "the complete file of before";
const std::string kUnfinished = "the unfinished file of before";

// A complete file and an unfinished one of subject 12 in both places, or an empty project.
void Prepare(const Scratch& scratch, bool used) {
  scratch.MakeDirectory("C:\\Param");
  for (const std::string directory : {"C:\\P", "D:\\B"}) {
    scratch.MakeDirectory(directory);
    if (!used) continue;
    scratch.Put(SubjectDirectory(directory) + "\\" + kFile, kOld);
    scratch.Put(UnfinishedDirectory(directory) + "\\" + kFile, kUnfinished);
    scratch.Put("C:\\Param\\Temp.txt", "autosaved");
  }
}

// The subject's data are on the disk in each place: an unfinished copy is gone only after both complete ones are new.
void ExpectNothingLost(const Scratch& scratch, const std::string& content, const std::string& call) {
  bool bothNew = true;
  for (const std::string directory : {"C:\\P", "D:\\B"}) {
    const std::string bytes = scratch.Get(SubjectDirectory(directory) + "\\" + kFile);
    EXPECT_TRUE(bytes == kOld || bytes == content) << call << ": " << directory;
    bothNew = bothNew && bytes == content;
  }
  for (const std::string directory : {"C:\\P", "D:\\B"}) {
    const std::string path = UnfinishedDirectory(directory) + "\\" + kFile;
    const bool kept = scratch.Has(path) && scratch.Get(path) == kUnfinished;
    EXPECT_TRUE(kept || (bothNew && !scratch.Has(path))) << call << ": " << directory;
  }
}

}  // namespace

// Complete: only the subject's own unfinished copy goes, and the directory with the last file. Subject "a1" in all.
TEST(SubjectSave, PutsFilesInTheirPlaces) {
  using Names = std::vector<std::string>;
  struct Case {
    const char* Note;
    const char* Backup;
    const char* Marker;
    const char* Saved;  ///< below Sdata
    Names Unfinished;   ///< before the save, in both places
    Names Left;         ///< after it
  };
  const Case cases[] = {
      {"", "(none)", "Old ZOVA", "Exa1.dat", {}, {}},
      {"", "D:\\B", "VB Version", "Ex Sub#a1.dat", {}, {}},
      {"note", "(none)", "VB Version", "Unfinished/Ex Sub#a1.dat", {}, {}},
      {"note", "D:\\B", "VB Version", "Unfinished/Ex Sub#a1.dat", {"Ex Sub#b.dat"}, {"Ex Sub#b.dat"}},
      {"", "D:\\B", "VB Version", "Ex Sub#a1.dat", {"Ex Sub#a1.dat", ".zova-5.tmp"}, {}},
      {"", "D:\\B", "VB Version", "Ex Sub#a1.dat", {"Ex Sub#a1.dat", "Ex Sub#a12.dat"}, {"Ex Sub#a12.dat"}},
      {"", "D:\\B", "VB Version", "Ex Sub#a1.dat", {"Ex Sub#a1.dat", "Other.txt"}, {"Other.txt"}},
      {"", "D:\\B", "VB Version", "Ex Sub#a1.dat", {"Ex Sub#A1.dat"}, {"Ex Sub#A1.dat"}}};
  for (const Case& c : cases) {
    Scratch scratch;
    Disk disk = scratch.MakeDisk();
    Prepare(scratch, false);
    scratch.Put("C:\\Param\\Temp.txt", "autosaved");
    const ProjectParameters project = Project(c.Backup, c.Marker);
    SubjectRecord record = Subject("a1", 7, c.Note);
    SubjectRecord expectedRecord = record;
    expectedRecord.HasUnsavedChanges = false;
    const bool complete = record.UnfinishedNote.empty();
    if (complete) ResetLists(expectedRecord, project);
    Tree expected = {{"C/", ""}, {"C/P/", ""}, {"C/Param/", ""}, {"D/", ""}, {"D/B/", ""}};
    for (const std::string directory : {"C:\\P", "D:\\B"}) {
      if (directory == "D:\\B" && IsNoDirectory(c.Backup)) continue;
      for (const std::string& name : c.Unfinished) scratch.Put(UnfinishedDirectory(directory) + "\\" + name, "u");
      const std::string sdata = directory.substr(0, 1) + "/" + directory.substr(3) + "/Sdata/";
      expected[sdata] = "";
      if (!complete || !c.Left.empty()) expected[sdata + "Unfinished/"] = "";
      for (const std::string& name : c.Left) expected[sdata + "Unfinished/" + name] = "u";
      expected[sdata + c.Saved] = FormatSubject(record, project);
    }
    ScriptedBoxes boxes{{.Text = complete ? "Completed subject saved." : "Incomplete subject saved.",
                         .Icon = BoxIcon::Information,
                         .Buttons = BoxButtons::Ok}};
    CountingDesktop desktop;
    const SaveOutcome outcome = SaveSubject(record, project, "C:\\Param", disk, boxes, desktop);
    EXPECT_TRUE(outcome.Saved);
    EXPECT_EQ(outcome.UnfinishedEmptied, complete && !c.Unfinished.empty() && c.Left.empty());
    EXPECT_EQ(record, expectedRecord);
    EXPECT_EQ(scratch.Snapshot(), expected);
    EXPECT_EQ(desktop.Shown, 1);
  }
}

TEST(SubjectSave, NeedsTheBackupDirectory) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  Prepare(scratch, false);
  ScriptedBoxes boxes{{"Path not found.  Please verify that the correct disk is in the drive.", BoxAnswer::Cancel,
                       "D:\\Gone\\Sdata\\Ex Sub#12.dat"}};
  CountingDesktop desktop;
  SubjectRecord record = Subject("12", 3);
  EXPECT_FALSE(SaveSubject(record, Project("D:\\Gone"), "C:\\Param", disk, boxes, desktop).Saved);
  EXPECT_EQ(record, Subject("12", 3));
}

TEST(SubjectSave, LosesNothingWhateverCallFails) {
  for (const std::string note : {"", "a note"}) {
    const bool complete = note.empty();
    const std::string content = FormatSubject(Subject("12", 7), Project());
    CountingDesktop desktop;
    Scratch undisturbed;
    Prepare(undisturbed, complete);
    Disk calm = undisturbed.MakeDisk();
    AnsweringBoxes noFault(BoxAnswer::Cancel);
    SubjectRecord first = Subject("12", 7, note);
    ASSERT_TRUE(SaveSubject(first, Project(), "C:\\Param", calm, noFault, desktop).Saved);
    const Tree saved = undisturbed.Snapshot();
    for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
      bool failed = true;
      int asked = 0;
      for (int n = 1; failed; ++n) {
        Scratch scratch;
        Prepare(scratch, complete);
        FailingFileLayer layer(scratch.Layer());
        Disk disk(layer, scratch.Drives());
        AnsweringBoxes boxes(answer);
        SubjectRecord record = Subject("12", 7, note);
        layer.FailAt(n, std::errc::no_space_on_device, FailingFileLayer::Writes::Half);
        const bool done = SaveSubject(record, Project(), "C:\\Param", disk, boxes, desktop).Saved;
        failed = layer.HasFailed();
        const std::string call = layer.FailedCall() + " " + std::to_string(n);
        layer.FailNever();
        const bool wasAsked = boxes.Texts.size() > (done ? 1U : 0U);
        asked += wasAsked ? 1 : 0;
        ASSERT_EQ(done, answer == BoxAnswer::Retry || !wasAsked) << call;
        if (!done) {
          EXPECT_EQ(record, Subject("12", 7, note)) << call;
          if (complete) ExpectNothingLost(scratch, content, call);
          EXPECT_TRUE(SaveSubject(record, Project(), "C:\\Param", disk, boxes, desktop).Saved) << call;
        }
        EXPECT_EQ(record, first) << call;
        Tree tree = scratch.Snapshot();
        // Given up just before the empty directories went: then no later save finds a reason to look at them.
        for (const char* left : {"C/P/Sdata/Unfinished/", "D/B/Sdata/Unfinished/"}) {
          if (!done && complete) tree.erase(left);
        }
        EXPECT_EQ(tree, saved) << call;
      }
      EXPECT_GT(asked, 25);
    }
  }
}

#ifndef _WIN32
TEST(SubjectSave, SurvivesAKillAtAnyMoment) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  Prepare(scratch, false);
  const ProjectParameters project = Project("(none)");
  AnsweringBoxes boxes(BoxAnswer::Cancel);
  CountingDesktop desktop;
  const auto save = [&](std::int16_t item) {
    SubjectRecord record = Subject("12", item);
    return SaveSubject(record, project, "C:\\Param", disk, boxes, desktop).Saved;
  };
  ASSERT_TRUE(save(1));
  const std::set<std::string> versions = {FormatSubject(Subject("12", 1), project),
                                          FormatSubject(Subject("12", 22222), project)};
  std::set<std::string> seen;
  std::minstd_rand random(4711);
  for (int round = 0; round < 60; ++round) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (std::int16_t item = 22222; save(item); item = item == 1 ? 22222 : 1) boxes.Texts.clear();
      _exit(1);
    }
    usleep(static_cast<useconds_t>(random() % 15000));
    kill(child, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status)) << "a save failed by itself";
    const std::string bytes = scratch.Get(std::string("C:\\P\\Sdata\\") + kFile);
    ASSERT_EQ(versions.count(bytes), 1U) << bytes;
    seen.insert(bytes);
  }
  EXPECT_EQ(seen.size(), 2U);
  EXPECT_TRUE(save(1));
  EXPECT_EQ(TreeOf(scratch.Native("C:\\P\\Sdata")), (Tree{{kFile, *versions.begin()}})) << "leftovers stay";
}
#endif
