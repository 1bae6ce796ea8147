// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/DriveMap.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <vector>

using namespace zova;

TEST(PathParts, KnowsDrivePathsAndNativeOnes) {
  const struct {
    const char *Directory, *Name, *Path, *Above;  // what stands before the name when it is taken off again
    std::vector<std::string_view> Components;
  } cases[] = {{"C:\\Data", "a/b", "C:\\Data\\a/b", "C:\\Data\\a", {"Data", "a", "b"}},
               {"C:\\", "x.txt", "C:\\x.txt", "C:", {"x.txt"}},
               {"C:/lab/", "x.txt", "C:/lab/x.txt", "C:/lab", {"lab", "x.txt"}},
               {"/srv/lab", "a\\b", "/srv/lab/a\\b", "/srv/lab", {"srv", "lab", "a\\b"}},
               {"/", "x.txt", "/x.txt", "/", {"x.txt"}},
               {"Data\\", "", "Data\\", "Data", {"Data"}}};
  for (const auto& c : cases) {
    const std::string path = JoinPath(c.Directory, c.Name);
    EXPECT_EQ(path, c.Path);
    EXPECT_EQ(DirectoryOfPath(path), c.Above);
    EXPECT_EQ(PathComponents(path), c.Components) << path;
  }
  EXPECT_EQ(LastPathComponent("/srv/a\\b"), "a\\b");
  EXPECT_EQ(LastPathComponent("C:\\a/b"), "b");
  EXPECT_EQ(DirectoryOfPath("name"), "");
}

TEST(DriveMap, GoesBothWays) {
#ifdef _WIN32
  GTEST_SKIP() << "paths of POSIX; WindowsFiles has a test of the drives";
#else
  const DriveMap map = DriveMap::Parse("c=/home/u/;D=/home/u/data;;EE=/x;1=/y;F=;Z=/");
  ASSERT_EQ(map.Drives().size(), 3U);
  using Pairs = std::vector<std::pair<const char*, const char*>>;
  const Pairs bothWays = {{"D:\\x", "/home/u/data/x"},
                          {"C:\\database", "/home/u/database"},
                          {"Z:\\", "/"},
                          {"Z:\\home\\user", "/home/user"}};
  for (const auto& [path, native] : bothWays) {
    EXPECT_EQ(map.ToNative(path).value_or("none"), native) << path;
    EXPECT_EQ(map.ToDrivePath(native), path) << native;
  }
  EXPECT_EQ(map.ToNative("d:/x\\\\y\\").value().lexically_normal(), "/home/u/data/x/y");
  EXPECT_EQ(map.ToNative("/abs"), "/abs");
  for (const char* path : {"F:\\x", "Data", "\\x", ""}) EXPECT_FALSE(map.ToNative(path).has_value()) << path;
  EXPECT_EQ(map.ToDrivePath("/home/u/./a/../b/"), "C:\\b");
  for (const char* same : {"C:\\x", "x", ""}) EXPECT_EQ(map.ToDrivePath(same), same);
  EXPECT_EQ(DriveMap::Parse("D=/data").ToDrivePath("/home"), "/home") << "below no root";

  setenv("HOME", "/home/u", 1);
  unsetenv("ZOVA_DRIVES");
  EXPECT_EQ(DriveMap::FromEnvironment().ToDrivePath("/home/u/x"), "C:\\x");
  EXPECT_EQ(DriveMap::FromEnvironment().ToDrivePath("/srv"), "Z:\\srv");
  setenv("ZOVA_DRIVES", "D=/data", 1);
  EXPECT_EQ(DriveMap::FromEnvironment().Drives().size(), 1U);
#endif
}
