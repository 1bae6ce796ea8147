// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/Disk.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <functional>

#include "support/FailingFileLayer.h"
#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;
namespace fs = std::filesystem;
using Names = std::vector<std::string>;

namespace {

constexpr const char* kLeftover = ".zova-123.tmp";

// What went wrong as "cause code", or "".
std::string CauseOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const FileError& error) {
    EXPECT_FALSE(error.Path().empty());
    if (error.Cause() == FileCause::System) return error.Code().default_error_condition().message();
    return error.Cause() == FileCause::PathNotFound ? "path not found" : "end of data";
  }
  return "";
}

std::string Message(std::errc code) { return std::make_error_code(code).message(); }

#ifdef __linux__
std::string flushed;
#endif

}  // namespace

#ifdef __linux__
// In the place of the system's, whose work no test could see.
extern "C" int fsync(int file) {
  struct stat entry = {};
  EXPECT_EQ(fstat(file, &entry), 0);
  flushed += S_ISDIR(entry.st_mode) ? "directory " : "file ";
  return 0;
}

TEST(Disk, AsksTheSystemToKeepAFileThenItsName) {
  Scratch scratch;
  flushed.clear();
  Disk disk = scratch.MakeDisk();
  disk.Write("C:\\f", "new");
  EXPECT_EQ(flushed, "file directory ");
  disk.CreateDirectories("C:\\a\\b");
  EXPECT_EQ(flushed, "file directory directory directory ") << "the names of new directories";
}
#endif

TEST(Disk, LooksUpExactlyThenWithoutCase) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  scratch.Put("C:\\Data\\a.dat", "a");
  if (scratch.Has("C:\\data\\A.dat")) GTEST_SKIP() << "this file system has no case";
  scratch.Put("C:\\Data\\A.DAT", "A");
  scratch.Put("C:\\data\\other", "");
  scratch.Put("C:\\DATEN\\x", "x");
  std::string content;
  const std::pair<const char*, const char*> cases[] = {
      {"C:\\Data\\a.dat", "a"}, {"C:\\Data\\A.dat", "A"}, {"C:\\DATA\\a.dat", "a"}, {"c:\\daten\\X", "x"}};
  for (const auto& [path, expected] : cases) {
    disk.Read(path, content);
    EXPECT_EQ(content, expected) << path;
  }
  disk.Write("C:\\daten\\New.txt", "n");  // a new name as typed, below the directory that is there
  disk.Write("C:\\Daten\\X", "replaced");
  EXPECT_EQ(TreeOf(scratch.Native("C:\\DATEN")), (Tree{{"New.txt", "n"}, {"x", "replaced"}}));
}

TEST(Disk, TellsWhatIsMissing) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  scratch.Put("C:\\big", "");
  scratch.Put("C:\\file", "f");
  fs::resize_file(scratch.Native("C:\\big"), kMaxFileSize + 1);
  std::string content;
  for (const char* path : {"C:\\none\\x", "C:\\file\\x", "E:\\x"}) {
    EXPECT_EQ(CauseOf([&] { disk.Read(path, content); }), "path not found") << path;
    EXPECT_EQ(CauseOf([&] { disk.Write(path, ""); }), "path not found") << path;
    EXPECT_EQ(CauseOf([&] { disk.CreateDirectory(path); }), "path not found") << path;
  }
  EXPECT_EQ(CauseOf([&] { disk.Read("C:\\none", content); }), Message(std::errc::no_such_file_or_directory));
  EXPECT_EQ(CauseOf([&] { disk.Write("C:\\", ""); }), Message(std::errc::is_a_directory));
  EXPECT_EQ(CauseOf([&] { disk.Read("C:\\big", content); }), "end of data");
  EXPECT_FALSE(disk.FileExists("C:\\"));
  EXPECT_FALSE(disk.FileExists("E:\\x"));
  EXPECT_FALSE(disk.DirectoryExists("C:\\file"));
}

TEST(Disk, ListsFilesByPrefixAndSuffix) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  const std::string pattern = kIsWindows ? "[x]" : "[x]*";  // no name has a "*" there
  for (const std::string& name :
       Names{"b1.dat", "B2.DAT", "A_.dat", "a.dat", "c.txt", "B.dat", pattern + ".dat", "[y.dat", kLeftover}) {
    scratch.Put("C:\\L\\" + name, "");
  }
  scratch.MakeDirectory("C:\\L\\b3.dat");
  EXPECT_EQ(disk.ListFiles("C:\\L", "B", ".dat"), (Names{"B.dat", "b1.dat", "B2.DAT"}));
  EXPECT_EQ(disk.ListFiles("C:\\l", "", ""),
            (Names{"a.dat", "A_.dat", "B.dat", "b1.dat", "B2.DAT", "c.txt", pattern + ".dat", "[y.dat"}));
  EXPECT_EQ(disk.ListFiles("C:\\L", pattern, ".DAT"), Names{pattern + ".dat"});  // nothing in a prefix is special
  EXPECT_EQ(disk.ListFiles("C:\\L", "a.d", ".dat"), Names{}) << "prefix and suffix must not overlap";
  EXPECT_EQ(disk.ListFiles("C:\\none", "", ""), Names{});
}

TEST(Disk, ReplacesWholeOrNotAtAll) {
  std::string calls;
  bool failed = true;
  for (int n = 1; failed; ++n) {
    Scratch scratch;
    FailingFileLayer layer(scratch.Layer());
    Disk disk(layer, scratch.Drives());
    scratch.Put("C:\\f", "old");
    layer.FailAt(n, std::errc::no_space_on_device, FailingFileLayer::Writes::Half);
    const std::string cause = CauseOf([&] { disk.Write("C:\\F", "fresh"); });
    failed = layer.HasFailed();
    ASSERT_TRUE(failed || n > 5);
    const std::string call = layer.FailedCall();
    calls += " " + call;
    layer.FailNever();
    EXPECT_EQ(scratch.Get("C:\\f"), cause.empty() || call == "FlushDirectory" ? "fresh" : "old") << call;
    EXPECT_EQ(disk.ListFiles("C:\\", "", ""), Names{"f"});
    EXPECT_TRUE(cause.empty() || cause == Message(std::errc::no_space_on_device)) << call << ": " << cause;
    scratch.Put(std::string("C:\\") + kLeftover, "of a save that was killed");
    disk.Write("C:\\f", "last");
    EXPECT_EQ(TreeOf(scratch.Native("C:\\")), (Tree{{"f", "last"}}));
  }
  EXPECT_TRUE(calls.ends_with(" Create Write Flush Close Kind CopyPermissions Rename FlushDirectory ")) << calls;
}

#ifndef _WIN32
TEST(Disk, TakesNoPipeForAFileAndTellsTheCauseOfAFailedLook) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  ASSERT_EQ(mkfifo(scratch.Native("C:\\pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", scratch.Native("C:\\device"));
  fs::create_symlink("ring", scratch.Native("C:\\ring"));
  std::string content;
  for (const char* path : {"C:\\pipe", "C:\\device"}) {
    EXPECT_EQ(CauseOf([&] { disk.Read(path, content); }), Message(std::errc::not_supported)) << path;
  }
  scratch.MakeDirectory("C:\\piped");
  ASSERT_EQ(mkfifo(scratch.Native("C:\\piped\\pipe").c_str(), 0600), 0);
  EXPECT_FALSE(disk.IsEmptyDirectory("C:\\piped")) << "the system would not remove it";
  EXPECT_EQ(disk.ListFiles("C:\\", "", ""), (Names{"device", "pipe", "ring"})) << "reading one tells what it is";
  EXPECT_EQ(disk.ListDanglingLinks("C:\\", "", ""), Names{});
  const std::string ring = Message(std::errc::too_many_symbolic_link_levels);
  EXPECT_EQ(CauseOf([&] { disk.ListDirectories("C:\\ring"); }), ring);
  EXPECT_THROW(scratch.Layer().IsReadOnly(scratch.Native("C:\\ring")), std::system_error);
}
#endif

// A save of another program with the same directory is going on.
TEST(Disk, LeavesATemporaryFileToItsWriter) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  auto file = scratch.Layer().Create(scratch.Native("C:\\.zova-7.tmp"));
  file->Close();
  disk.Write("C:\\f", "");
  EXPECT_TRUE(scratch.Has("C:\\.zova-7.tmp"));
  file.reset();
  disk.Write("C:\\f", "");
  EXPECT_FALSE(scratch.Has("C:\\.zova-7.tmp"));
}

TEST(Disk, KeepsWhatAFileIs) {
#ifdef _WIN32
  GTEST_SKIP() << "POSIX permissions; WindowsFiles has a test of the attributes";
#else
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  scratch.Put("C:\\real", "old");
  fs::permissions(scratch.Native("C:\\real"), fs::perms(0604));
  fs::create_symlink(scratch.Native("C:\\real"), scratch.Native("D:\\link"));
  disk.Write("D:\\link", "new");
  EXPECT_TRUE(fs::is_symlink(scratch.Native("D:\\link")));
  EXPECT_EQ(scratch.Get("C:\\real"), "new");
  EXPECT_EQ(fs::status(scratch.Native("C:\\real")).permissions(), fs::perms(0604));
  fs::permissions(scratch.Native("C:\\real"), fs::perms(0444));
  EXPECT_EQ(CauseOf([&] { disk.Write("C:\\real", "refused"); }), Message(std::errc::permission_denied));
  EXPECT_EQ(scratch.Snapshot(), (Tree{{"C/", ""}, {"C/real", "new"}, {"D/", ""}, {"D/link", "new"}}));
#endif
}

TEST(Disk, KnowsOneFileByAnyName) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  scratch.Put("C:\\Data\\Sub\\f", "");
  scratch.Put("C:\\Data\\g", "");
  fs::create_hard_link(scratch.Native("C:\\Data\\g"), scratch.Native("C:\\hard"));
  LinkFile("Data/g", scratch.Native("C:\\soft"));
  LinkFile("soft", scratch.Native("C:\\softer"));
  LinkDirectory(scratch.Native("C:\\Data\\Sub"), scratch.Native("D:\\Link"));
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
    fs::create_symlink("Data/new", scratch.Native("C:\\dangling"));
    cases.push_back({"C:\\dangling", "C:\\data\\NEW", true, false});
  }
  for (const auto& c : cases) {
    EXPECT_EQ(disk.IsSame(c.Left, c.Right), c.IsSame) << c.Left << ' ' << c.Right;
    EXPECT_EQ(disk.LiesInside(c.Left, c.Right), c.LiesInside) << c.Left << ' ' << c.Right;
  }
  FailingFileLayer layer(scratch.Layer());
  Disk failing(layer, scratch.Drives());
  bool failed = true;
  for (int n = 1; failed; ++n) {  // a fault is no answer
    layer.FailAt(n, std::errc::io_error);
    const std::string cause = CauseOf([&] { EXPECT_TRUE(failing.IsSame("C:\\hard", "C:\\Data\\g")); });
    failed = layer.HasFailed();
    EXPECT_EQ(cause, failed ? Message(std::errc::io_error) : "") << layer.FailedCall();
  }
}

TEST(Disk, WritesInPlaceIntoWhatIsThere) {
#ifdef _WIN32
  GTEST_SKIP() << "devices and pipes of POSIX; WindowsFiles has a test of the reserved names";
#else
  Scratch scratch;
  Disk disk(scratch.Layer(), DriveMap({{'C', scratch.Native("C:\\")}, {'Z', "/"}}));
  scratch.Put("C:\\real", "older and longer");
  fs::create_symlink("real", scratch.Native("C:\\soft"));
  fs::create_hard_link(scratch.Native("C:\\real"), scratch.Native("C:\\hard"));
  fs::permissions(scratch.Native("C:\\real"), fs::perms(0604));
  disk.WriteInPlace("C:\\SOFT", "new");
  disk.WriteInPlace("C:\\other", "made");
  const Tree written = {{"real", "new"}, {"soft", "new"}, {"hard", "new"}, {"other", "made"}};
  EXPECT_EQ(TreeOf(scratch.Native("C:\\")), written);
  EXPECT_TRUE(fs::is_symlink(scratch.Native("C:\\soft")));
  EXPECT_EQ(fs::status(scratch.Native("C:\\real")).permissions(), fs::perms(0604));

  disk.WriteInPlace("Z:\\dev\\null", "gone");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  AppendFile full = disk.OpenForAppend("Z:\\dev\\full");
  for (int attempt = 1; attempt <= 2; ++attempt) {
    EXPECT_EQ(CauseOf([&] { full.Append("row"); }), Message(std::errc::no_space_on_device)) << attempt;
  }

  fs::permissions(scratch.Native("C:\\real"), fs::perms(0444));
  scratch.MakeDirectory("D:\\directory");
  ASSERT_EQ(mkfifo(scratch.Native("D:\\pipe").c_str(), 0600), 0);
  Disk both = scratch.MakeDisk();
  const std::pair<const char*, std::string> refusals[] = {{"C:\\hard", Message(std::errc::permission_denied)},
                                                          {"D:\\directory", Message(std::errc::is_a_directory)},
                                                          {"D:\\pipe", Message(std::errc::not_supported)},
                                                          {"D:\\none\\x", "path not found"}};
  for (const auto& refusal : refusals) {
    const char* const path = refusal.first;
    EXPECT_EQ(CauseOf([&] { both.Write(path, "refused"); }), refusal.second) << path;
    EXPECT_EQ(CauseOf([&] { both.WriteInPlace(path, "refused"); }), refusal.second) << path;
    EXPECT_EQ(CauseOf([&] { both.OpenForAppend(path).Append("refused"); }), refusal.second) << path;
  }
  EXPECT_EQ(TreeOf(scratch.Native("C:\\")), written) << "refused before it was emptied";
#endif
}

// The outer layer leaves half of a row, the inner one lets the cutting back fail: after any pair of faults, appending
// again gives whole rows.
TEST(AppendFile, HoldsWholeRowsOnly) {
  int faults = 0;
  for (int pair = 0; pair < 10 * 10; ++pair) {
    Scratch scratch;
    FailingFileLayer inner(scratch.Layer());
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
