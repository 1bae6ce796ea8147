// SPDX-License-Identifier: GPL-3.0-or-later
//
// What only Windows does to files.

#ifdef _WIN32

#include "platform/files/WindowsFiles.h"

#include <functional>
#include <future>

#include "platform/desktop/FileErrorBoxes.h"
#include "platform/files/DirectoryLock.h"
#include "platform/files/SystemText.h"
#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"
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

class WindowsFilesTest : public ::testing::Test, protected Scratch {
 protected:
  Disk m_disk = MakeDisk();  // all flushes of Windows included
};

}  // namespace

TEST_F(WindowsFilesTest, DrivesAreTheSystemsOwn) {
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

TEST_F(WindowsFilesTest, ReservedNamesAreDevicesInEveryDirectory) {
  for (const wchar_t* name : {L"CON", L"nul", L"Aux.txt", L"prn .a.b", L"COM1", L"lpt9.dat", L"COM\u00B2", L"conin$"}) {
    EXPECT_TRUE(IsReservedName(fs::path(L"C:\\Data") / name)) << fs::path(name);
  }
  for (const wchar_t* name : {L"CONS", L"CON Master.txt", L"COM0", L"COM10", L"COM", L"x.con", L"NUL\\x", L""}) {
    EXPECT_FALSE(IsReservedName(fs::path(L"C:\\Data") / name)) << fs::path(name);
  }
  std::string content;
  EXPECT_EQ(CauseOf([&] { m_disk.Write("C:\\con.txt", "refused"); }), TextOf(std::errc::not_supported));
  EXPECT_EQ(CauseOf([&] { m_disk.Read("C:\\con", content); }), TextOf(std::errc::not_supported))
      << "nobody is there to type";
  EXPECT_FALSE(m_disk.FileExists("C:\\NUL"));
  m_disk.WriteInPlace("C:\\nul", "gone");
  EXPECT_TRUE(TreeOf(Native("C:\\")).empty());
}

TEST_F(WindowsFilesTest, NamesAreUnicodeWithoutRegardToCase) {
  const std::string directory = "C:\\Donn\u00E9es";
  m_disk.CreateDirectories(directory);
  std::string content;
  // A letter of Windows-1252, one of no Windows code page beside it, and one outside the first 65,536 characters.
  for (const std::string name : {"\u00C9t\u00E9 \u20AC.dat", "\u0416\u65E5.dat", "\U0001F600.dat"}) {
    m_disk.Write(JoinPath(directory, name), name);
    EXPECT_EQ(m_disk.ListFiles(UpperCase(directory), "", ".DAT"), std::vector<std::string>{name});
    m_disk.Read(JoinPath("c:\\donn\u00E9es", UpperCase(name)), content);
    EXPECT_EQ(content, name);
    m_disk.Delete(JoinPath(directory, name));
  }
}

// A dot hides nothing here, and the leftover of a save is no name to show.
TEST_F(WindowsFilesTest, DirectoriesAreListedAndEnteredThroughJunctions) {
  for (const char* path : {"C:\\b\\deep", "C:\\.seen", "C:\\.zova-1.tmp", "D:\\target\\in"}) MakeDirectory(path);
  LinkDirectory(Native("D:\\target"), Native("C:\\link"));
  EXPECT_EQ(m_disk.ListDirectories("C:\\"), (std::vector<std::string>{".seen", "b", "link"}));
  EXPECT_EQ(m_disk.ListDirectories("c:\\LINK"), std::vector<std::string>{"in"});
  fs::remove_all(Native("D:\\target"));
  EXPECT_EQ(m_disk.ListDirectories("C:\\"), (std::vector<std::string>{".seen", "b"})) << "it leads nowhere";
  EXPECT_FALSE(Layer().Identity(Native("C:\\link")).has_value());
}

TEST_F(WindowsFilesTest, OneFileHasOneIdentityAndOneRealPath) {
  Put("C:\\Data\\Sub\\file.dat", "");
  Put("C:\\Data\\other.dat", "");
  const fs::path file = Native("C:\\Data\\Sub\\file.dat");
  const fs::path link = Native("D:\\Link");
  LinkDirectory(Native("C:\\Data"), link);
  const auto identity = Layer().Identity(file).value();
  EXPECT_EQ(identity.Links, 1U);
  fs::create_hard_link(file, Native("D:\\hard.dat"));
  EXPECT_EQ(Layer().Identity(file).value().Links, 2U);
  for (const fs::path& same : {Native("D:\\HARD.dat"), Native("c:\\DATA\\sub\\FILE.DAT"), link / "Sub" / "file.dat",
                               link / ".." / "Link" / "." / "Sub" / "file.dat"}) {
    EXPECT_TRUE(IsSameFile(Layer().Identity(same).value(), identity)) << same;
  }
  EXPECT_FALSE(IsSameFile(Layer().Identity(link / "other.dat").value(), identity));
  EXPECT_FALSE(Layer().Identity(link / "none" / "x").has_value());

  EXPECT_EQ(Layer().RealPath(link / "Sub" / "file.dat"), file);
  EXPECT_EQ(Layer().RealPath(link / "none" / ".." / "new" / "x.dat"), Native("C:\\Data\\new\\x.dat"));
  EXPECT_EQ(Layer().RealPath(link / ".." / "new.dat"), Native("D:\\new.dat")) << "by the text alone";
  for (const char* same : {"Q:\\none\\x.dat", "C:\\NUL"}) EXPECT_EQ(Layer().RealPath(same), fs::path(same));
}

TEST_F(WindowsFilesTest, ADriveThatIsNotThereIsAPathNotFound) {
  Disk disk(Layer(), DriveMap({}));
  std::string content;
  const std::function<void()> calls[] = {[&] { disk.Write("Q:\\x", ""); }, [&] { disk.Read("Q:\\x", content); },
                                         [&] { disk.OpenForAppend("Q:\\x").Append("row"); },
                                         [&] { disk.CreateDirectory("Q:\\x"); },
                                         [&] { disk.Resolve("\\\\?\\Q:\\x", FileOperation::Read); }};
  for (const auto& call : calls) EXPECT_EQ(CauseOf(call), "path not found");
  const std::string there = "\\\\?\\" + PathText(Root()) + "\\none\\x";  // written like a server's share
  EXPECT_EQ(disk.Resolve(there, FileOperation::Read).Native, PathFromText(there));
}

TEST_F(WindowsFilesTest, PathsMayBeLongerThan260Characters) {
  std::string directory = "C:";
  for (int level = 0; level < 5; ++level) directory += "\\" + std::string(80, static_cast<char>('a' + level));
  m_disk.CreateDirectories(directory);
  const std::string file = directory + "\\x.dat";
  m_disk.Write(file, "first");
  m_disk.Write(file, "second");
  AppendFile rows = m_disk.OpenForAppend(file);
  rows.Append(" row");
  rows.Close();
  std::string content;
  m_disk.Read(directory + "/X.DAT", content);
  EXPECT_EQ(content, "second row");
  EXPECT_EQ(m_disk.ListFiles(directory, "", ""), std::vector<std::string>{"x.dat"});
  EXPECT_TRUE(WindowsName(Native(file)).starts_with(L"\\\\?\\"));
  EXPECT_EQ(WindowsName(L"\\\\server\\share\\" + std::wstring(260, L'x')).substr(0, 16), L"\\\\?\\UNC\\server\\s");
  DirectoryLock first;
  DirectoryLock second;
  EXPECT_EQ(first.Acquire(Native(directory)), DirectoryLock::Outcome::Held);
  EXPECT_EQ(first.Acquire(Native(directory)), DirectoryLock::Outcome::Held) << "its own already";
  EXPECT_EQ(second.Acquire(Native(directory)), DirectoryLock::Outcome::InUse);
  first.Release();
  m_disk.Delete(file);
  for (; directory.size() > 2; directory.resize(directory.find_last_of('\\'))) m_disk.RemoveDirectory(directory);
  EXPECT_TRUE(TreeOf(Native("C:\\")).empty());
}

// The other program is this one, run to hold the lock until it is killed.
TEST_F(WindowsFilesTest, DISABLED_HoldsALock) {
  DirectoryLock lock;
  ASSERT_EQ(lock.Acquire(_wgetenv(L"ZOVA_LOCKED")), DirectoryLock::Outcome::Held);
  Sleep(INFINITE);
}

TEST_F(WindowsFilesTest, ALockEndsWithAKilledProgram) {
  std::wstring program(32768, L'\0');
  program.resize(GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size())));
  std::wstring arguments = L"test --gtest_also_run_disabled_tests --gtest_filter=WindowsFilesTest.DISABLED_HoldsALock";
  ASSERT_TRUE(SetEnvironmentVariableW(L"ZOVA_LOCKED", Root().c_str()));
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
  while (isRunning() && !OpenForFacts(WindowsName(Root() / L".zova-lock.tmp"))) continue;
  ASSERT_TRUE(isRunning()) << "it could not take the lock";
  DirectoryLock lock;
  EXPECT_EQ(lock.Acquire(Root()), DirectoryLock::Outcome::InUse);
  ASSERT_TRUE(TerminateProcess(process.get(), 1));
  ASSERT_EQ(WaitForSingleObject(process.get(), INFINITE), WAIT_OBJECT_0);
  EXPECT_EQ(lock.Acquire(Root()), DirectoryLock::Outcome::Held);
}

// Its holder has just ended, but a scanner, say, still has the file of the lock open.
TEST_F(WindowsFilesTest, ALockWaitsUntilTheLastOneIsDeleted) {
  DirectoryLock ended, lock;
  ASSERT_EQ(ended.Acquire(Root()), DirectoryLock::Outcome::Held);
  WindowsHandle open = OpenForFacts(WindowsName(Root() / L".zova-lock.tmp"));
  ended.Release();
  const auto closed = std::async(std::launch::async, [&open] {
    Sleep(100);
    open.reset();
  });
  EXPECT_EQ(lock.Acquire(Root()), DirectoryLock::Outcome::Held);
}

// A box offers Retry; the other program closes the file while it is shown.
TEST_F(WindowsFilesTest, AFileThatAnotherProgramHasOpenIsWrittenAfterRetry) {
  const std::string inUse = SystemText(std::error_code(ERROR_SHARING_VIOLATION, std::system_category()));
  const std::pair<const char*, std::function<void(Disk&)>> writes[] = {
      {"replace", [](Disk& disk) { disk.Write("C:\\f", "new"); }},
      {"in place", [](Disk& disk) { disk.WriteInPlace("C:\\f", "new"); }},
      {"append", [](Disk& disk) { disk.OpenForAppend("C:\\f").Append("new"); }},
      {"delete", [](Disk& disk) { disk.Delete("C:\\f"); }}};
  for (const auto& [name, write] : writes) {
    Scratch scratch;
    scratch.Put("C:\\f", "old");
    AnsweringBoxes boxes(BoxAnswer::Retry);
    WindowsHandle open = OpenAsAnotherProgram(scratch.Native("C:\\f"), FILE_SHARE_READ);
    boxes.Meanwhile = [&] { open.reset(); };
    EXPECT_TRUE(WithRetry(boxes, [&, &write = write] { write(scratch.Files); })) << name;
    EXPECT_EQ(boxes.Texts, std::vector<std::string>{inUse}) << name;
    const Tree expected = name == std::string("delete")   ? Tree{}
                          : name == std::string("append") ? Tree{{"f", "oldnew"}}
                                                          : Tree{{"f", "new"}};
    EXPECT_EQ(TreeOf(scratch.Native("C:\\")), expected) << name;
  }
}

TEST_F(WindowsFilesTest, AReadOnlyFileIsRefusedAndAttributesAreKept) {
  Put("C:\\f", "old");
  const std::wstring name = WindowsName(Native("C:\\f"));
  ASSERT_TRUE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_READONLY));
  EXPECT_EQ(CauseOf([&] { m_disk.Write("C:\\F", "refused"); }), TextOf(std::errc::permission_denied));
  EXPECT_EQ(CauseOf([&] { m_disk.WriteInPlace("C:\\f", "refused"); }), TextOf(std::errc::permission_denied));
  EXPECT_EQ(CauseOf([&] { m_disk.OpenForAppend("C:\\f").Append("refused"); }), TextOf(std::errc::permission_denied));
  EXPECT_EQ(Get("C:\\f"), "old");
  ASSERT_TRUE(SetFileAttributesW(name.c_str(), FILE_ATTRIBUTE_HIDDEN));
  m_disk.Write("C:\\f", "new");
  EXPECT_NE(GetFileAttributesW(name.c_str()) & FILE_ATTRIBUTE_HIDDEN, 0U);
  EXPECT_EQ(TreeOf(Native("C:\\")), (Tree{{"f", "new"}})) << "no temporary file is left";
}

#endif
