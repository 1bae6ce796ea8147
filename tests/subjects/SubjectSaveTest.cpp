// SPDX-License-Identifier: GPL-3.0-or-later
//
// Saving a subject: what it leaves on the disk, with every single call failing, and with the program killed there.

#include <set>

#include "subjects/SubjectFile.h"
#include "subjects/SubjectFiles.h"
#include "support/FakePlatform.h"
#include "support/Study.h"

using namespace zova;
using namespace zova::testing;

namespace {

const std::string kFile = "AB Sub#a1.dat";
const std::string kPrimary = "C:\\Data\\Sdata\\" + kFile;
const std::string kBackup = "D:\\B\\Sdata\\" + kFile;

ProjectParameters Project(const std::string& backup = "D:\\B") {
  ProjectParameters project = MakeProject({.Tests = 1, .Items = 20});
  project.BackupDir = backup;
  return project;
}

// `known`: with the primary's complete file accepted for replacement.
SubjectRecord Subject(std::int16_t item, const std::string& note = "", bool known = false) {
  SubjectRecord record;
  record.SubjectId = "a1";
  record.Lists = MakeLists(Project(), std::to_string(item));
  record.UnfinishedNote = note;
  record.HasUnsavedChanges = true;
  if (known) NoteKnownFile(record, kPrimary, "old");
  return record;
}

// A complete file of the subject and these unfinished ones in both places, each holding "old", and an autosave.
void Prepare(const Scratch& scratch, const std::vector<std::string>& unfinished, bool complete = false) {
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    scratch.MakeDirectory(sdata);
    if (complete) scratch.Put(sdata + kFile, "old");
    for (const std::string& name : unfinished) scratch.Put(sdata + "Unfinished\\" + name, "old");
  }
  scratch.Put("C:\\Param\\Temp.txt", "autosaved");
}

// An unfinished copy is gone only after both complete files are new.
void ExpectNothingLost(const Scratch& scratch, const std::string& content, const std::string& call) {
  int fresh = 0;
  for (const std::string sdata : {"C:\\Data\\Sdata\\", "D:\\B\\Sdata\\"}) {
    const std::string bytes = scratch.Get(sdata + kFile);
    EXPECT_TRUE(bytes == "old" || bytes == content) << call << ": " << sdata;
    fresh += bytes == content ? 1 : 0;
  }
  for (const std::string unfinished : {"C:\\Data\\Sdata\\Unfinished\\", "D:\\B\\Sdata\\Unfinished\\"}) {
    EXPECT_TRUE(scratch.Has(unfinished + kFile) ? scratch.Get(unfinished + kFile) == "old" : fresh == 2) << call;
  }
}

}  // namespace

// Complete: only the subject's own unfinished copy goes, and the directory with the last file.
TEST(SubjectSave, PutsFilesInTheirPlaces) {
  struct Case {
    const char* Note;
    const char* Backup;
    std::vector<std::string> Unfinished;  ///< before the save, in both places
    std::vector<std::string> Left;        ///< after it
  };
  const Case cases[] = {{"", "D:\\B", {}, {}},
                        {"", "(none)", {kFile}, {}},
                        {"note", "(none)", {}, {kFile}},
                        {"note", "D:\\B", {"AB Sub#b.dat"}, {kFile, "AB Sub#b.dat"}},
                        {"", "D:\\B", {kFile, ".zova-5.tmp"}, {}},
                        {"", "D:\\B", {kFile, "AB Sub#a12.dat"}, {"AB Sub#a12.dat"}},
                        {"", "D:\\B", {kFile, "Other.txt"}, {"Other.txt"}},
                        {"", "D:\\B", {"AB Sub#A1.dat"}, {"AB Sub#A1.dat"}}};
  for (const auto& [note, backup, unfinished, left] : cases) {
    Scratch scratch;
    Prepare(scratch, unfinished);
    SubjectRecord record = Subject(7, note);
    const std::string content = FormatSubject(record, Project());
    const bool complete = record.UnfinishedNote.empty();
    Tree expected;
    if (complete) expected[kFile] = content;
    if (!left.empty()) expected["Unfinished/"] = "";
    for (const std::string& name : left) expected["Unfinished/" + name] = name == kFile ? content : "old";
    const Tree untouched = TreeOf(scratch.Native("D:\\B\\Sdata"));
    SubjectRecord expectedRecord = record;
    expectedRecord.HasUnsavedChanges = false;
    if (complete) ResetLists(expectedRecord, Project());
    ScriptedBoxes boxes{
        Told(complete ? "Completed subject saved." : "Incomplete subject saved.", BoxIcon::Information)};
    FakePlatform fakes;
    const SaveOutcome outcome = SaveSubject(record, Project(backup), "C:\\Param", fakes.With(scratch.Files, boxes));
    EXPECT_TRUE(outcome.Saved);
    EXPECT_EQ(outcome.UnfinishedEmptied, !unfinished.empty() && left.empty());
    record.KnownFiles.clear();
    EXPECT_EQ(record, expectedRecord);
    EXPECT_EQ(TreeOf(scratch.Native("C:\\Data\\Sdata")), expected);
    EXPECT_EQ(TreeOf(scratch.Native("D:\\B\\Sdata")), IsNoDirectory(backup) ? untouched : expected);
    EXPECT_FALSE(scratch.Has("C:\\Param\\Temp.txt"));
    EXPECT_EQ(fakes.Pointer.Shown, 1);
  }
}

TEST(SubjectSave, AsksBeforeItReplacesAnotherEntry) {
  const std::string unfinished = "C:\\Data\\Sdata\\Unfinished\\";
  const std::string other = "C:\\Data\\Sdata\\AB Sub#A1.dat";
  struct Case {
    const char* Note;
    std::string Known;  ///< the file that was loaded, then "old"
    Tree OnDisk;        ///< at the save
    std::string Boxes;  ///< o: another entry, c: changed; a capital says No
  };
  const Case cases[] = {{"", kPrimary, {{kPrimary, "old"}, {kBackup, "old"}}, ""},
                        {"", kPrimary, {{kPrimary, "old"}, {kBackup, "new"}}, "o"},
                        {"", kPrimary, {{kPrimary, "new"}, {kBackup, "new"}}, "c"},
                        {"", kPrimary, {{kPrimary, "new"}, {kBackup, "newer"}}, "cO"},
                        {"", "C:\\data\\sdata\\ab sub#A1.dat", {{kPrimary, "new"}}, "C"},
                        {"", "D:\\" + kFile, {{kPrimary, "new"}}, "O"},
                        {"", "D:\\" + kFile, {{kPrimary, "old"}}, ""},
                        {"", "", {{kBackup, "new"}}, "O"},
                        {"note", kPrimary, {{unfinished + kFile, "new"}, {kPrimary, "new"}}, "O"},
                        {"note", "", {{unfinished + "AB Sub#A1.dat", "new"}}, "o"},
                        {"note",
                         "",
                         {{unfinished + "AB Sub#A1.dat", "another subject's"}, {kPrimary, "a"}, {other, "A"}},
                         kIsWindows ? "o" : ""},
                        {"note", unfinished + kFile, {{unfinished + kFile, "new"}}, "c"}};
  for (const auto& [note, known, onDisk, letters] : cases) {
    Scratch scratch;
    Prepare(scratch, {});
    for (const auto& [path, content] : onDisk) scratch.Put(path, content);
    const Tree before = scratch.Snapshot();
    SubjectRecord record = Subject(7, note);
    if (!known.empty()) NoteKnownFile(record, known, "old");
    const SubjectRecord entered = record;
    const bool refused = !letters.empty() && letters.back() < 'a';
    FakePlatform fakes;
    for (const char letter : letters) {
      const std::string name(kIsWindows ? kFile : LastPathComponent(onDisk.begin()->first));
      const char* const changed =
          "The data for this subject have changed on the disk since they were read.  Do you wish to replace them?";
      const char* const holds = "' already holds another entry of this subject.  Do you wish to replace it?";
      fakes.Boxes.Expect(Warned((letter | 0x20) == 'c' ? changed : "The file '" + name + holds,
                                letter < 'a' ? BoxAnswer::No : BoxAnswer::Yes));
    }
    if (!refused) fakes.Boxes.Expect({*note == '\0' ? "Completed subject saved." : "Incomplete subject saved."});
    EXPECT_EQ(SaveSubject(record, Project(), "C:\\Param", fakes.With(scratch.Files)).Saved, !refused) << letters;
    if (!refused) continue;
    EXPECT_EQ(scratch.Snapshot(), before) << letters;
    EXPECT_EQ(record, entered) << letters;
  }
}

TEST(SubjectSave, LosesNothingWhateverCallFails) {
  const std::string content = FormatSubject(Subject(7), Project());
  FakePlatform fakes;
  const std::tuple<BoxAnswer, const char*, bool> cases[] = {{BoxAnswer::Retry, "", false},
                                                            {BoxAnswer::Retry, "a note", false},
                                                            {BoxAnswer::Cancel, "", false},
                                                            {BoxAnswer::Cancel, "a note", false},
                                                            {BoxAnswer::Cancel, "", true}};
  for (const auto& [answer, note, isKilled] : cases) {
    const bool complete = *note == '\0';
    Tree saved;  // by the first round, which has no fault
    SubjectRecord savedRecord;
    int asked = 0;
    std::set<std::string> calls;
    bool failed = false;
    for (int n = 0; n <= kFailureStep || failed; n += kFailureStep) {
      Scratch scratch;
      Prepare(scratch, complete ? std::vector{kFile} : std::vector<std::string>{}, complete);
      FailingFileLayer& layer = scratch.Faults;
      AnsweringBoxes boxes(answer);
      SubjectRecord record = Subject(7, note, true);
      isKilled ? layer.KillAt(n) : layer.FailAt(n, std::errc::io_error, FailingFileLayer::Writes::Half);
      const bool done = SaveSubject(record, Project(), "C:\\Param", fakes.With(scratch.Files, boxes)).Saved;
      failed = layer.HasFailed();
      calls.insert(layer.FailedCall());
      const std::string call = layer.FailedCall() + " " + std::to_string(n);
      layer.FailNever();
      const bool wasAsked = boxes.Texts.size() > (done ? 1U : 0U);
      asked += wasAsked ? 1 : 0;
      // A subject is saved also when only its autosave file could not go.
      const bool keepsAutosave = done && scratch.Has("C:\\Param\\Temp.txt");
      ASSERT_EQ(done, answer == BoxAnswer::Retry || !wasAsked || keepsAutosave) << call;
      if (!done) {
        SubjectRecord entered = record;
        entered.KnownFiles.clear();
        EXPECT_EQ(entered, Subject(7, note)) << call;
        if (complete) ExpectNothingLost(scratch, content, call);
        EXPECT_TRUE(SaveSubject(record, Project(), "C:\\Param", fakes.With(scratch.Files, boxes)).Saved) << call;
      }
      Tree tree = scratch.Snapshot();
      if (keepsAutosave) tree.erase("C/Param/Temp.txt");
      if (n == 0) saved = tree, savedRecord = record;
      // Given up just before the empty directories went: then no later save finds a reason to look at them.
      for (const char* left : {"C/Data/Sdata/Unfinished/", "D/B/Sdata/Unfinished/"}) {
        if (!done && complete) tree.erase(left);
      }
      EXPECT_EQ(tree, saved) << call;
      record.KnownFiles = savedRecord.KnownFiles;
      EXPECT_EQ(record, savedRecord) << call;
    }
    EXPECT_GT(asked, 25 / kFailureStep);
    if (kFailureStep == 1) {
      EXPECT_EQ(calls.count("Flush") + calls.count("FlushDirectory"), 2U) << "a save is on the disk, not in a buffer";
    }
  }
}
