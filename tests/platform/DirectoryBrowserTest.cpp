// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/DirectoryBrowser.h"

#include "support/Scratch.h"
#include "support/ScriptedBoxes.h"

using namespace zova;
using namespace zova::testing;
namespace fs = std::filesystem;

static std::string Shown(const DirectoryBrowser& browser) {
  std::string shown = browser.Path() + " |";
  for (const auto& entry : browser.Entries()) shown += " " + std::string(std::size_t(entry.Depth), '>') + entry.Name;
  EXPECT_EQ(browser.Entries().at(browser.OpenEntry()).Path, browser.Path());
  return shown;
}

TEST(DirectoryBrowser, ListsWhatCanBeEnteredAndStored) {
  if (kIsWindows) GTEST_SKIP() << "these names cannot exist on Windows; WindowsFiles has a test of its own";
  Scratch scratch;
  for (const char* path : {"C:\\b\\deep", "C:\\B", "C:\\.hidden", "D:\\target"}) scratch.MakeDirectory(path);
  scratch.Put("C:\\file.txt", "");
  const fs::path root = scratch.Native("C:\\");
  for (const char* name : {"not\xFFutf", "back\\slash", "quo\"te", "zlocked"}) fs::create_directory(root / name);
  fs::create_directory_symlink(scratch.Native("D:\\target"), root / "link");
  fs::permissions(root / "zlocked", fs::perms::owner_read);  // it can be listed, but nothing in it reached
  std::error_code code;                                      // none for the system's administrator, who goes anywhere
  (void)fs::exists(root / "zlocked" / "x", code);
  ScriptedBoxes boxes;
  DirectoryBrowser browser(scratch.Files, boxes, "Not ready.");
  EXPECT_EQ(browser.Drives(), (std::vector<char>{'C', 'D'}));
  EXPECT_EQ(Shown(browser), std::string("C:\\ | C:\\ >B >b >link") + (code ? "" : " >zlocked"));
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"C:\\b\\deep\\\\", "C:\\b\\deep | C:\\ >b >>deep"},
      {"c:/LINK/./x/..", "C:\\link | C:\\ >link"},
      {PathText(scratch.Native("D:\\target")), "D:\\target | D:\\ >target"}};
  for (const auto& [path, shown] : cases) EXPECT_EQ(browser.TryOpen(path) ? Shown(browser) : "", shown);
  for (const char* path : {"E:\\", "C:\\none", "C:\\file.txt", "", "/"}) EXPECT_FALSE(browser.TryOpen(path)) << path;
  EXPECT_EQ(Shown(browser), cases.back().second);
}

TEST(DirectoryBrowser, TellsOfWhatIsGoneAndGoesOn) {
  Scratch scratch;
  scratch.MakeDirectory("C:\\a\\b\\c");
  ScriptedBoxes boxes;
  DirectoryBrowser browser(scratch.Files, boxes, "Not ready.");
  for (const std::size_t entry : {1U, 2U, 4U}) EXPECT_EQ(browser.Open(entry), entry < 4);
  const ExpectedBox notReady{.Text = "Not ready.", .Icon = BoxIcon::Exclamation, .Buttons = BoxButtons::Ok};
  for (const int n : {1, 2, 3, 5}) {  // the 4th looks at an entry, which is shown then
    scratch.Faults.FailAt(n, std::errc::io_error);
    boxes.Expect(notReady);
    EXPECT_FALSE(browser.Open(1)) << scratch.Faults.FailedCall();
    EXPECT_EQ(Shown(browser), "C:\\a\\b | C:\\ >a >>b >>>c") << scratch.Faults.FailedCall();
  }
  std::vector<std::tuple<const char*, std::size_t, const char*>> cases = {{"C:\\a\\b", 3, "C:\\a | C:\\ >a"},
                                                                          {"C:\\", 1, "D:\\ | D:\\"}};
  if (!kIsWindows) cases.emplace_back("D:\\", 0, "C:\\ | C:\\");  // there the system has drives beside these
  for (const auto& [gone, entry, shown] : cases) {
    fs::remove_all(scratch.Native(gone));
    boxes.Expect(notReady);
    EXPECT_EQ(browser.Open(entry) ? "" : Shown(browser), shown);
  }
}
