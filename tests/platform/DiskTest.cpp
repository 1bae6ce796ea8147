// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/Disk.h"

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include "platform/files/SystemText.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

using namespace zova;
using namespace zova::testing;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

constexpr const char* kLeftover = ".zova-123.tmp";

class DiskTest : public ::testing::Test, protected Scratch {};

}  // namespace

#ifdef __linux__
static std::string flushed;

// In the place of the system's, whose work no test could see.
extern "C" int fsync(int file) {
  struct stat entry = {};
  EXPECT_EQ(fstat(file, &entry), 0);
  flushed += S_ISDIR(entry.st_mode) ? "directory " : "file ";
  return 0;
}

TEST_F(DiskTest, AsksTheSystemToKeepAFileThenItsName) {
  flushed.clear();
  Disk disk = MakeDisk();
  disk.Write("C:\\f", "new");
  EXPECT_EQ(flushed, "file directory ");
  disk.CreateDirectories("C:\\a\\b");
  EXPECT_EQ(flushed, "file directory directory directory ") << "the names of new directories";
}
#endif

TEST_F(DiskTest, LooksUpExactlyThenWithoutCase) {
  Put("C:\\Data\\a.dat", "a");
  if (Has("C:\\data\\A.dat")) GTEST_SKIP() << "this file system has no case";
  Put("C:\\Data\\A.DAT", "A");
  Put("C:\\data\\other", "");
  Put("C:\\DATEN\\x", "x");
  std::string content;
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\Data\\a.dat", "a"}, {"C:\\Data\\A.dat", "A"}, {"C:\\DATA\\a.dat", "a"}, {"c:\\daten\\X", "x"}};
  for (const auto& [path, expected] : cases) {
    Files.Read(path, content);
    EXPECT_EQ(content, expected) << path;
  }
  Files.Write("C:\\daten\\New.txt", "n");  // a new name as typed, below the directory that is there
  Files.Write("C:\\Daten\\X", "replaced");
  EXPECT_EQ(TreeOf(Native("C:\\DATEN")), (Tree{{"New.txt", "n"}, {"x", "replaced"}}));
}

TEST_F(DiskTest, TellsWhatIsMissing) {
  Put("C:\\big", "");
  Put("C:\\file", "f");
  fs::resize_file(Native("C:\\big"), kMaxFileSize + 1);
  std::string content;
  for (const char* path : {"C:\\none\\x", "C:\\file\\x", "E:\\x"}) {
    EXPECT_EQ(CauseOf([&] { Files.Read(path, content); }), "path not found") << path;
    EXPECT_EQ(CauseOf([&] { Files.Write(path, ""); }), "path not found") << path;
    EXPECT_EQ(CauseOf([&] { Files.CreateDirectory(path); }), "path not found") << path;
  }
  EXPECT_EQ(CauseOf([&] { Files.Read("C:\\none", content); }), TextOf(std::errc::no_such_file_or_directory));
  EXPECT_EQ(CauseOf([&] { Files.Write("C:\\", ""); }), TextOf(std::errc::is_a_directory));
  EXPECT_EQ(CauseOf([&] { Files.Read("C:\\big", content); }), "end of data");
  EXPECT_FALSE(Files.FileExists("C:\\"));
  EXPECT_FALSE(Files.FileExists("E:\\x"));
  EXPECT_FALSE(Files.DirectoryExists("C:\\file"));
}

TEST_F(DiskTest, ListsFilesByPrefixAndSuffix) {
  const std::string pattern = kIsWindows ? "[x]" : "[x]*";  // no name has a "*" there
  for (const std::string& name :
       Names{"b1.dat", "B2.DAT", "A_.dat", "a.dat", "c.txt", "B.dat", pattern + ".dat", "[y.dat", kLeftover}) {
    Put("C:\\L\\" + name, "");
  }
  MakeDirectory("C:\\L\\b3.dat");
  EXPECT_EQ(Files.ListFiles("C:\\L", "B", ".dat"), (Names{"B.dat", "b1.dat", "B2.DAT"}));
  EXPECT_EQ(Files.ListFiles("C:\\l", "", ""),
            (Names{"a.dat", "A_.dat", "B.dat", "b1.dat", "B2.DAT", "c.txt", pattern + ".dat", "[y.dat"}));
  EXPECT_EQ(Files.ListFiles("C:\\L", pattern, ".DAT"), Names{pattern + ".dat"});  // nothing in a prefix is special
  EXPECT_EQ(Files.ListFiles("C:\\L", "a.d", ".dat"), Names{}) << "prefix and suffix must not overlap";
  EXPECT_EQ(Files.ListFiles("C:\\none", "", ""), Names{});
}

TEST_F(DiskTest, ReplacesWholeOrNotAtAll) {
  std::string calls;
  std::string call = "first";
  for (int n = 1; !call.empty(); ++n) {
    Put("C:\\f", "old");
    Faults.FailAt(n, std::errc::no_space_on_device, FailingFileLayer::Writes::Half);
    const std::string cause = CauseOf([&] { Files.Write("C:\\F", "fresh"); });
    call = Faults.FailedCall();
    calls += " " + call;
    Faults.FailNever();
    EXPECT_EQ(Get("C:\\f"), cause.empty() || call == "FlushDirectory" ? "fresh" : "old") << call;
    EXPECT_EQ(Files.ListFiles("C:\\", "", ""), Names{"f"});
    EXPECT_TRUE(cause.empty() || cause == TextOf(std::errc::no_space_on_device)) << call << ": " << cause;
    Put(std::string("C:\\") + kLeftover, "of a save that was killed");
    Files.Write("C:\\f", "last");
    EXPECT_EQ(TreeOf(Native("C:\\")), (Tree{{"f", "last"}}));
  }
  EXPECT_TRUE(calls.ends_with(" Create Write Flush Close Kind CopyPermissions Rename FlushDirectory ")) << calls;
}

#ifndef _WIN32
TEST_F(DiskTest, TakesNoPipeForAFileAndTellsTheCauseOfAFailedLook) {
  ASSERT_EQ(mkfifo(Native("C:\\pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", Native("C:\\device"));
  fs::create_symlink("ring", Native("C:\\ring"));
  std::string content;
  for (const char* path : {"C:\\pipe", "C:\\device"}) {
    EXPECT_EQ(CauseOf([&] { Files.Read(path, content); }), TextOf(std::errc::not_supported)) << path;
  }
  MakeDirectory("C:\\piped");
  ASSERT_EQ(mkfifo(Native("C:\\piped\\pipe").c_str(), 0600), 0);
  EXPECT_FALSE(Files.IsEmptyDirectory("C:\\piped")) << "the system would not remove it";
  EXPECT_EQ(Files.ListFiles("C:\\", "", ""), (Names{"device", "pipe", "ring"})) << "reading one tells what it is";
  EXPECT_EQ(Files.ListDanglingLinks("C:\\", "", ""), Names{});
  const std::string ring = TextOf(std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(CauseOf([&] { Files.ListDirectories("C:\\ring"); }), ring);
  EXPECT_THROW(Layer().IsReadOnly(Native("C:\\ring")), std::system_error);
}
#endif

// A save of another program with the same directory is going on.
TEST_F(DiskTest, LeavesATemporaryFileToItsWriter) {
  auto file = Layer().Create(Native("C:\\.zova-7.tmp"));
  file->Close();
  Files.Write("C:\\f", "");
  EXPECT_TRUE(Has("C:\\.zova-7.tmp"));
  file.reset();
  Files.Write("C:\\f", "");
  EXPECT_FALSE(Has("C:\\.zova-7.tmp"));
}

TEST_F(DiskTest, KnowsOneFileByAnyName) {
  Put("C:\\Data\\Sub\\f", "");
  Put("C:\\Data\\g", "");
  fs::create_hard_link(Native("C:\\Data\\g"), Native("C:\\hard"));
  LinkFile("Data/g", Native("C:\\soft"));
  LinkFile("soft", Native("C:\\softer"));
  LinkDirectory(Native("C:\\Data\\Sub"), Native("D:\\Link"));
  struct Case {
    const char *Left, *Right;
    bool IsSame, LiesInside;  // the left one in the right one
  };
  std::vector<Case> cases = {{"C:\\hard", "C:\\Data\\g", true, false},
                             {"C:\\SOFTER", "C:\\Data\\..\\hard", true, false},
                             {"C:\\Data\\g", "C:\\Data\\Sub\\f", false, false},
                             {"D:\\Link\\..\\Link\\f", "C:\\Data\\Sub\\f", true, false},
                             {"C:\\None\\..\\..\\..\\hard", "C:\\hard", true, false},
                             {"C:\\Gone\\a", "C:\\GONE\\b\\..\\A", true, false},
                             {"C:\\Gone", "C:\\Gone\\a", false, false},
                             {"C:\\Gone\\a\\b", "C:\\gone", false, true},
                             {"D:\\Link\\f", "C:\\Data", false, true},
                             {"D:\\Link\\new", "C:\\data\\SUB", false, true},
                             {"D:\\Link", "D:\\", false, false},
                             {"C:\\Data", "C:\\Data", true, false},
                             {"X:\\a", "x:\\A", true, false},
                             {"X:\\a\\b", "X:\\a", false, false}};
  if (!kIsWindows) {  // Wine makes no link to what is not there
    fs::create_symlink("Data/new", Native("C:\\dangling"));
    cases.push_back({"C:\\dangling", "C:\\data\\NEW", true, false});
  }
  for (const auto& c : cases) {
    EXPECT_EQ(Files.IsSame(c.Left, c.Right), c.IsSame) << c.Left << ' ' << c.Right;
    EXPECT_EQ(Files.LiesInside(c.Left, c.Right), c.LiesInside) << c.Left << ' ' << c.Right;
  }
  for (int n = 1; n == 1 || Faults.HasFailed(); ++n) {  // a fault is no answer
    Faults.FailAt(n, std::errc::io_error);
    const std::string cause = CauseOf([&] { EXPECT_TRUE(Files.IsSame("C:\\hard", "C:\\Data\\g")); });
    EXPECT_EQ(cause, Faults.HasFailed() ? TextOf(std::errc::io_error) : "") << Faults.FailedCall();
  }
}

TEST_F(DiskTest, KeepsWhatItWritesInto) {
#ifdef _WIN32
  GTEST_SKIP() << "permissions, devices and pipes of POSIX; WindowsFiles has tests of the attributes and names";
#else
  Disk disk(Layer(), DriveMap({{'C', Native("C:\\")}, {'Z', "/"}}));
  Put("C:\\real", "older and longer");
  fs::create_symlink("real", Native("C:\\soft"));
  fs::create_hard_link(Native("C:\\real"), Native("C:\\hard"));
  fs::permissions(Native("C:\\real"), fs::perms(0604));
  disk.WriteInPlace("C:\\other", "made");
  Tree written = {{"real", "new"}, {"soft", "new"}, {"hard", "new"}, {"other", "made"}};
  for (const bool inPlace : {true, false}) {
    inPlace ? disk.WriteInPlace("C:\\SOFT", "new") : disk.Write("C:\\SOFT", "replaced");
    if (!inPlace) written["real"] = written["soft"] = "replaced";
    EXPECT_EQ(TreeOf(Native("C:\\")), written);
    EXPECT_TRUE(fs::is_symlink(Native("C:\\soft")));
    EXPECT_EQ(fs::status(Native("C:\\real")).permissions(), fs::perms(0604));
  }
  disk.WriteInPlace("Z:\\dev\\null", "gone");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  AppendFile full = disk.OpenForAppend("Z:\\dev\\full");
  for (int attempt = 1; attempt <= 2; ++attempt) {
    EXPECT_EQ(CauseOf([&] { full.Append("row"); }), TextOf(std::errc::no_space_on_device)) << attempt;
  }

  fs::permissions(Native("C:\\real"), fs::perms(0444));
  MakeDirectory("D:\\directory");
  ASSERT_EQ(mkfifo(Native("D:\\pipe").c_str(), 0600), 0);
  const std::pair<const char*, std::string> refusals[] = {{"C:\\real", TextOf(std::errc::permission_denied)},
                                                          {"D:\\directory", TextOf(std::errc::is_a_directory)},
                                                          {"D:\\pipe", TextOf(std::errc::not_supported)},
                                                          {"D:\\none\\x", "path not found"}};
  for (const auto& refusal : refusals) {
    const char* const path = refusal.first;
    EXPECT_EQ(CauseOf([&] { Files.Write(path, "refused"); }), refusal.second) << path;
    EXPECT_EQ(CauseOf([&] { Files.WriteInPlace(path, "refused"); }), refusal.second) << path;
    EXPECT_EQ(CauseOf([&] { Files.OpenForAppend(path).Append("refused"); }), refusal.second) << path;
  }
  EXPECT_EQ(TreeOf(Native("C:\\")), written) << "refused before it was emptied";
#endif
}

TEST(SystemText, IsUtf8WhateverTheSystemEncodes) {
  struct : std::error_category {
    [[nodiscard]] const char* name() const noexcept override { return "old"; }
    [[nodiscard]] std::string message(int) const override {
      return "besch\xE4"
             "digt";
    }
  } old;
  const std::system_error fault(1, old, "where");
  EXPECT_EQ(SystemText(fault.code()), "besch\u00E4digt");
  EXPECT_EQ(SystemText(static_cast<const std::exception&>(fault)), "besch\u00E4digt");
  EXPECT_EQ(SystemText(std::runtime_error("of the program")), "of the program");
}

// The outer layer leaves half of a row, the inner one lets the cutting back fail: after any pair of faults, appending
// again gives whole rows.
TEST(AppendFile, HoldsWholeRowsOnly) {
  int faults = 0;
  for (int pair = 0; pair < 10 * 10; ++pair) {
    Scratch scratch;
    FailingFileLayer& inner = scratch.Faults;
    FailingFileLayer outer(static_cast<FileLayer&>(inner));
    scratch.Put("C:\\m", "header\r\n");
    std::string expected = "header\r\n";
    AppendFile file(outer, {"C:\\m", scratch.Native("C:\\m")});
    outer.FailAt(pair / 10, std::errc::io_error, FailingFileLayer::Writes::Half);
    inner.FailAt(pair % 10, std::errc::io_error);
    for (const char* row : {"row one\r\n", "row two\r\n", "row three\r\n"}) {
      while (!CauseOf([&] { file.Append(row); }).empty()) {
        ASSERT_LE(++faults, 200);
        // Only a cut that failed as well may leave a part of the row behind.
        EXPECT_TRUE(inner.FailedCall() == "Truncate" || scratch.Get("C:\\m") == expected) << pair;
      }
      expected += row;
      EXPECT_EQ(scratch.Get("C:\\m"), expected) << pair;
    }
  }
  EXPECT_GT(faults, 100);
}
