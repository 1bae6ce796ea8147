// SPDX-License-Identifier: GPL-3.0-or-later
//
// What only Windows does to files.

#ifdef _WIN32

#include "platform/files/WindowsFiles.h"

#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DirectoryLock.h"
#include "support/Scratch.h"
#include "text/Encoding.h"

using namespace zova;
using namespace zova::testing;
namespace fs = std::filesystem;

namespace {

WindowsHandle OpenAsAnotherProgram(const fs::path& path, DWORD shared) {
  const HANDLE file = CreateFileW(WindowsName(path).c_str(), GENERIC_READ, shared, nullptr, OPEN_EXISTING, 0, nullptr);
  EXPECT_NE(file, INVALID_HANDLE_VALUE);
  return WindowsHandle(file);
}

std::errc FaultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const FileError& error) {
    return static_cast<std::errc>(error.Code().default_error_condition().value());
  }
  return {};
}

std::optional<FileCause> CauseOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const FileError& error) {
    return error.Cause();
  }
  return std::nullopt;
}

}  // namespace

TEST(WindowsFiles, DrivesAreTheSystemsOwn) {
  ASSERT_TRUE(SetEnvironmentVariableW(L"ZOVA_DRIVES", L"C=D:\\"));
  const DriveMap map = DriveMap::FromEnvironment();
  using Pairs = std::vector<std::pair<const char*, const wchar_t*>>;
  const Pairs natives = {{"C:\\Data\\\xC3\xA9t\xC3\xA9", L"C:\\Data\\\u00E9t\u00E9"},
                         {"c:/Data/x", L"c:\\Data\\x"},
                         {"C:", L"C:\\"},
                         {"C:x", L"C:\\x"},
                         {"\\\\server\\share\\x", L"\\\\server\\share\\x"}};
  for (const auto& [path, native] : natives) EXPECT_EQ(map.ToNative(path).value_or("none").native(), native) << path;
  for (const char* path : {"", "Data", "\\x"}) EXPECT_FALSE(map.ToNative(path).has_value()) << path;
  for (const char* same : {"C:\\x", "\\\\server\\share\\x", "x", ""}) EXPECT_EQ(map.ToDrivePath(same), same);
}

TEST(WindowsFiles, ReservedNamesAreDevicesInEveryDirectory) {
  for (const wchar_t* name : {L"CON", L"nul", L"Aux.txt", L"prn .a.b", L"COM1", L"lpt9.dat", L"COM\u00B2", L"conin$"}) {
    EXPECT_TRUE(IsReservedName(fs::path(L"C:\\Data") / name)) << fs::path(name);
  }
  for (const wchar_t* name : {L"CONS", L"CON Master.txt", L"COM0", L"COM10", L"COM", L"x.con", L"NUL\\x", L""}) {
    EXPECT_FALSE(IsReservedName(fs::path(L"C:\\Data") / name)) << fs::path(name);
  }
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  std::string content;
  EXPECT_EQ(FaultOf([&] { disk.Write("C:\\con.txt", "refused"); }), std::errc::not_supported);
  EXPECT_EQ(FaultOf([&] { disk.Read("C:\\con", content); }), std::errc::not_supported) << "nobody is there to type";
  EXPECT_FALSE(disk.FileExists("C:\\NUL"));
  disk.WriteInPlace("C:\\nul", "gone");
  EXPECT_TRUE(TreeOf(scratch.Native("C:\\")).empty());
}

TEST(WindowsFiles, NamesAreUnicodeWithoutRegardToCase) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  const std::string directory = "C:\\Donn\u00E9es";
  disk.CreateDirectories(directory);
  std::string content;
  // A letter of Windows-1252, one of no Windows code page beside it, and one outside the first 65,536 characters.
  for (const std::string name : {"\u00C9t\u00E9 \u20AC.dat", "\u0416\u65E5.dat", "\U0001F600.dat"}) {
    disk.Write(JoinPath(directory, name), name);
    EXPECT_EQ(disk.ListFiles(UpperCase(directory), "", ".DAT"), std::vector<std::string>{name});
    disk.Read(JoinPath("c:\\donn\u00E9es", UpperCase(name)), content);
    EXPECT_EQ(content, name);
    disk.Delete(JoinPath(directory, name));
  }
}

// A dot hides nothing here, and the leftover of a save is no name to show.
TEST(WindowsFiles, DirectoriesAreListedAndEnteredThroughJunctions) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  for (const char* path : {"C:\\b\\deep", "C:\\.seen", "C:\\.zova-1.tmp", "D:\\target\\in"})
    scratch.MakeDirectory(path);
  LinkDirectory(scratch.Native("D:\\target"), scratch.Native("C:\\link"));
  EXPECT_EQ(disk.ListDirectories("C:\\"), (std::vector<std::string>{".seen", "b", "link"}));
  EXPECT_EQ(disk.ListDirectories("c:\\LINK"), std::vector<std::string>{"in"});
  fs::remove_all(scratch.Native("D:\\target"));
  EXPECT_EQ(disk.ListDirectories("C:\\"), (std::vector<std::string>{".seen", "b"})) << "it leads nowhere";
  EXPECT_FALSE(scratch.Layer().Identity(scratch.Native("C:\\link")).has_value());
}

TEST(WindowsFiles, OneFileHasOneIdentityAndOneRealPath) {
  Scratch scratch;
  FileLayer& layer = scratch.Layer();
  scratch.Put("C:\\Data\\Sub\\file.dat", "");
  scratch.Put("C:\\Data\\other.dat", "");
  const fs::path file = scratch.Native("C:\\Data\\Sub\\file.dat");
  const fs::path link = scratch.Native("D:\\Link");
  LinkDirectory(scratch.Native("C:\\Data"), link);
  const auto identity = layer.Identity(file).value();
  EXPECT_EQ(identity.Links, 1U);
  fs::create_hard_link(file, scratch.Native("D:\\hard.dat"));
  EXPECT_EQ(layer.Identity(file).value().Links, 2U);
  for (const fs::path& same : {scratch.Native("D:\\HARD.dat"), scratch.Native("c:\\DATA\\sub\\FILE.DAT"),
                               link / "Sub" / "file.dat", link / ".." / "Link" / "." / "Sub" / "file.dat"}) {
    EXPECT_TRUE(IsSameFile(layer.Identity(same).value(), identity)) << same;
  }
  EXPECT_FALSE(IsSameFile(layer.Identity(link / "other.dat").value(), identity));
  EXPECT_FALSE(layer.Identity(link / "none" / "x").has_value());

  EXPECT_EQ(layer.RealPath(link / "Sub" / "file.dat"), file);
  EXPECT_EQ(layer.RealPath(link / "none" / ".." / "new" / "x.dat"), scratch.Native("C:\\Data\\new\\x.dat"));
  EXPECT_EQ(layer.RealPath(link / ".." / "new.dat"), scratch.Native("D:\\new.dat")) << "by the text alone";
  for (const char* same : {"Q:\\none\\x.dat", "C:\\NUL"}) EXPECT_EQ(layer.RealPath(same), fs::path(same));
}

TEST(WindowsFiles, ADriveThatIsNotThereIsAPathNotFound) {
  Scratch scratch;
  Disk disk(scratch.Layer(), DriveMap({}));
  std::string content;
  const std::function<void()> calls[] = {[&] { disk.Write("Q:\\x", ""); }, [&] { disk.Read("Q:\\x", content); },
                                         [&] { disk.OpenForAppend("Q:\\x").Append("row"); },
                                         [&] { disk.CreateDirectory("Q:\\x"); },
                                         [&] { disk.Resolve("\\\\?\\Q:\\x", FileOperation::Read); }};
  for (const auto& call : calls) EXPECT_EQ(CauseOf(call), FileCause::PathNotFound);
  const std::string there = "\\\\?\\" + PathText(scratch.Root()) + "\\none\\x";  // written like a server's share
  EXPECT_EQ(disk.Resolve(there, FileOperation::Read).Native, PathFromText(there));
}

TEST(WindowsFiles, PathsMayBeLongerThan260Characters) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  std::string directory = "C:";
  for (int level = 0; level < 5; ++level) directory += "\\" + std::string(80, static_cast<char>('a' + level));
  disk.CreateDirectories(directory);
  const std::string file = directory + "\\x.dat";
  disk.Write(file, "first");
  disk.Write(file, "second");
  AppendFile rows = disk.OpenForAppend(file);
  rows.Append(" row");
  rows.Close();
  std::string content;
  disk.Read(directory + "/X.DAT", content);
  EXPECT_EQ(content, "second row");
  EXPECT_EQ(disk.ListFiles(directory, "", ""), std::vector<std::string>{"x.dat"});
  EXPECT_TRUE(WindowsName(scratch.Native(file)).starts_with(L"\\\\?\\"));
  EXPECT_EQ(WindowsName(L"\\\\server\\share\\" + std::wstring(260, L'x')).substr(0, 16), L"\\\\?\\UNC\\server\\s");
  DirectoryLock first;
  DirectoryLock second;
  EXPECT_EQ(first.Acquire(scratch.Native(directory)), DirectoryLock::Outcome::Held);
  EXPECT_EQ(first.Acquire(scratch.Native(directory)), DirectoryLock::Outcome::Held) << "its own already";
  EXPECT_EQ(second.Acquire(scratch.Native(directory)), DirectoryLock::Outcome::InUse);
  first.Release();
  disk.Delete(file);
  for (; directory.size() > 2; directory.resize(directory.find_last_of('\\'))) disk.RemoveDirectory(directory);
  EXPECT_TRUE(TreeOf(scratch.Native("C:\\")).empty());
}

// The other program is this one, run to hold the lock until it is killed.
TEST(WindowsFiles, DISABLED_HoldsALock) {
  DirectoryLock lock;
  ASSERT_EQ(lock.Acquire(_wgetenv(L"ZOVA_LOCKED")), DirectoryLock::Outcome::Held);
  Sleep(INFINITE);
}

TEST(WindowsFiles, ALockEndsWithAKilledProgram) {
  Scratch scratch;
  std::wstring program(32768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  std::wstring arguments = L"test --gtest_also_run_disabled_tests --gtest_filter=WindowsFiles.DISABLED_HoldsALock";
  ASSERT_TRUE(SetEnvironmentVariableW(L"ZOVA_LOCKED", scratch.Root().c_str()));
  // It runs this one test, whatever share of all of them is ours.
  for (const wchar_t* name : {L"GTEST_TOTAL_SHARDS", L"GTEST_SHARD_INDEX"}) SetEnvironmentVariableW(name, nullptr);
  STARTUPINFOW start = {};
  start.cb = sizeof start;
  PROCESS_INFORMATION child = {};
  ASSERT_TRUE(
      CreateProcessW(program.c_str(), arguments.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &child));
  const WindowsHandle process(child.hProcess);
  const WindowsHandle thread(child.hThread);
  const auto isRunning = [&] { return WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT; };
  while (isRunning() && !OpenForFacts(WindowsName(scratch.Root() / L".zova-lock.tmp"))) continue;
  ASSERT_TRUE(isRunning()) << "it could not take the lock";
  DirectoryLock lock;
  EXPECT_EQ(lock.Acquire(scratch.Root()), DirectoryLock::Outcome::InUse);
  ASSERT_TRUE(TerminateProcess(process.get(), 1));
  ASSERT_EQ(WaitForSingleObject(process.get(), INFINITE), WAIT_OBJECT_0);
  EXPECT_EQ(lock.Acquire(scratch.Root()), DirectoryLock::Outcome::Held);
}

// A box offers Retry; the other program closes the file while it is shown.
TEST(WindowsFiles, AFileThatAnotherProgramHasOpenIsWrittenAfterRetry) {
  struct ClosingBoxes final : MessageBoxes {
    BoxAnswer Show(const MessageBox& box) override {
      Texts.push_back(box.Text);
      Open.reset();
      return BoxAnswer::Retry;
    }
    WindowsHandle Open;
    std::vector<std::string> Texts;
  };
  const std::string inUse = std::error_code(ERROR_SHARING_VIOLATION, std::system_category()).message();
  const std::pair<const char*, std::function<void(Disk&)>> writes[] = {
      {"replace", [](Disk& disk) { disk.Write("C:\\f", "new"); }},
      {"in place", [](Disk& disk) { disk.WriteInPlace("C:\\f", "new"); }},
      {"append", [](Disk& disk) { disk.OpenForAppend("C:\\f").Append("new"); }},
      {"delete", [](Disk& disk) { disk.Delete("C:\\f"); }}};
  for (const auto& [name, write] : writes) {
    Scratch scratch;
    Disk disk = scratch.MakeDisk();
    scratch.Put("C:\\f", "old");
    ClosingBoxes boxes;
    boxes.Open = OpenAsAnotherProgram(scratch.Native("C:\\f"), FILE_SHARE_READ);
    EXPECT_TRUE(WithRetry(boxes, [&, &write = write] { write(disk); })) << name;
    EXPECT_EQ(boxes.Texts, std::vector<std::string>{inUse}) << name;
    const Tree expected = name == std::string("delete")   ? Tree{}
                          : name == std::string("append") ? Tree{{"f", "oldnew"}}
                                                          : Tree{{"f", "new"}};
    EXPECT_EQ(TreeOf(scratch.Native("C:\\")), expected) << name;
  }
}

TEST(WindowsFiles, AReadOnlyFileIsRefusedAndAttributesAreKept) {
  Scratch scratch;
  Disk disk = scratch.MakeDisk();
  scratch.Put("C:\\f", "old");
  const std::wstring name = WindowsName(scratch.Native("C:\\f"));
  ASSERT_TRUE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(FaultOf([&] { disk.Write("C:\\F", "refused"); }), std::errc::permission_denied);
  EXPECT_EQ(FaultOf([&] { disk.WriteInPlace("C:\\f", "refused"); }), std::errc::permission_denied);
  EXPECT_EQ(FaultOf([&] { disk.OpenForAppend("C:\\f").Append("refused"); }), std::errc::permission_denied);
  EXPECT_EQ(scratch.Get("C:\\f"), "old");
  ASSERT_TRUE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN));
  disk.Write("C:\\f", "new");
  EXPECT_NE(GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  EXPECT_EQ(TreeOf(scratch.Native("C:\\")), (Tree{{"f", "new"}})) << "no temporary file is left";
}

#endif
