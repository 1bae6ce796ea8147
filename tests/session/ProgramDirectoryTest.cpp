// SPDX-License-Identifier: GPL-3.0-or-later

#include "session/ProgramDirectory.h"

#include <algorithm>

#include "support/FailingFileLayer.h"
#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;

static const std::string kComplete = "ZOVA/Sample Data/Complete.txt";

TEST(ProgramDirectory, GetsOnlyWhatItLacks) {
  const std::string prm = "ZOVA/Sample Data/Example.prm";
  const std::string subject = "ZOVA/Sample Data/Sdata/Example Sub#1.dat";
  const std::string help = "ZOVA/ZOVA2.hlp";
  const struct {
    std::vector<std::string> Own;  // files that are there before, relative to the drive
    Tree Added;
  } cases[] = {{{}, {{prm, "prm"}, {subject, "one"}, {help, "help"}}},
               {{"ZOVA/Sample Data/mine", help}, {{prm, "prm"}, {subject, "one"}}},
               {{"ZOVA/Sample Data/Sdata/Example Sub#1.dat"}, {{prm, "prm"}, {help, "help"}}}};
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
    expected[kComplete] = scratch.Get("C:\\" + kComplete);
    EXPECT_EQ(TreeOf(scratch.Root() / "C"), expected);
  }
}

TEST(ProgramDirectory, IsCompletedByALaterStartAndThenLeftToItsUser) {
  const std::vector<std::string> subjects = {"C:\\ZOVA\\Sample Data\\Sdata\\1.dat",
                                             "C:\\ZOVA\\Sample Data\\Sdata\\2.dat"};
  bool failed = true;
  for (int n = 1; failed; ++n) {
    Scratch scratch;
    for (const char* name : {"1.dat", "2.dat"}) scratch.Put(std::string("D:\\share\\Sample Data\\Sdata\\") + name, "");
    FailingFileLayer layer(scratch.Layer());
    Disk disk(layer, scratch.Drives());
    const auto start = [&] { FillProgramDirectory(PathText(scratch.Native("D:\\share")), "C:\\ZOVA", disk); };
    const auto has = [&](const std::string& file) { return scratch.Has(file); };
    layer.FailAt(n);
    start();
    failed = layer.HasFailed();
    start();
    EXPECT_TRUE(std::ranges::all_of(subjects, has)) << layer.FailedCall();
    disk.Delete(subjects.front());
    start();
    EXPECT_FALSE(has(subjects.front()));
  }
}
