// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ProgramDirectory.h"

#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;

TEST(ProgramDirectory, GetsOnlyWhatItLacks) {
  const std::string prm = "ZOVA/Sample Data/Example.prm";
  const std::string subject = "ZOVA/Sample Data/Sdata/Example Sub#1.dat";
  const std::string help = "ZOVA/ZOVA2.hlp";
  const struct {
    std::vector<std::string> Own;  // files that are there before, relative to the drive
    Tree Added;
  } cases[] = {{{}, {{prm, "prm"}, {subject, "one"}, {help, "help"}}},
               {{"ZOVA/Sample Data/mine", help}, {{subject, "one"}}},
               {{"ZOVA/Sample Data/Sdata/mine"}, {{help, "help"}}}};
  for (const auto& [own, added] : cases) {
    Scratch scratch;
    scratch.Put("D:\\share\\ZOVA2.hlp", "help");
    scratch.Put("D:\\share\\Sample Data\\Example.prm", "prm");
    scratch.Put("D:\\share\\Sample Data\\Sdata\\Example Sub#1.dat", "one");
    Disk disk = scratch.MakeDisk();
    Tree expected = {{"ZOVA/", ""}, {"ZOVA/Sample Data/", ""}, {"ZOVA/Sample Data/Sdata/", ""}};
    expected.insert(added.begin(), added.end());
    for (const std::string& name : own) scratch.Put("C:\\" + name, expected[name] = "own");
    FillProgramDirectory(PathText(scratch.Native("D:\\missing")), "C:\\ZOVA", disk);
    FillProgramDirectory(PathText(scratch.Native("D:\\share")), "X:\\ZOVA", disk);
    EXPECT_EQ(scratch.Has("C:\\ZOVA"), !own.empty());
    FillProgramDirectory(PathText(scratch.Native("D:\\share")), "C:\\ZOVA", disk);
    EXPECT_EQ(TreeOf(scratch.Root() / "C"), expected);
  }
}
