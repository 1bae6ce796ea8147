// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/desktop/FileSettings.h"

#include "support/Scratch.h"

using namespace zova;
using namespace zova::testing;

namespace {

constexpr const char* kFile = "C:\\config\\ZOVA\\Dorvan's ZOVA.ini";
const std::string kContent =
    "[Other]\nParamPath%24=x\n\n[Startup]\r\nParamPath%24=C:\\\\Old, too\r\nmine=1\n\n[Last]\na=\"b\"\n";

}  // namespace

TEST(FileSettings, AnySingleFailureLeavesTheOldTextOrTheNewOne) {
  Scratch scratch;
  bool failed = true;
  for (int n = 1; failed; ++n) {
    scratch.Put(kFile, kContent);
    FileSettings settings(scratch.Files, kFile);
    scratch.Faults.FailAt(n, std::errc::no_space_on_device, FailingFileLayer::Writes::Half);
    bool told = false;
    try {
      settings.Set("Startup", "ParamPath$", "D:\\New");
    } catch (const FileError& error) {
      told = error.Path() == kFile || error.Path() == "C:\\config\\ZOVA";
    }
    failed = scratch.Faults.HasFailed();
    SCOPED_TRACE(scratch.Faults.FailedCall());
    scratch.Faults.FailNever();
    const std::string stored = settings.Get("Startup", "ParamPath$");
    EXPECT_TRUE(stored == "D:\\New" || (told && stored == "C:\\Old, too")) << stored;
    EXPECT_EQ(settings.Get("Last", "a") + settings.Get("Other", "ParamPath$") + settings.Get("Startup", "mine"), "bx1");
    settings.Remove("Startup", "ParamPath$");
    settings.Set("Window", "Place", "");
    std::string rest = kContent;
    rest.erase(rest.find("ParamPath%24=C"), std::string("ParamPath%24=C:\\\\Old, too\r\n").size());
    EXPECT_EQ(scratch.Get(kFile), rest + "\n[Window]\nPlace=\n");
  }
}
