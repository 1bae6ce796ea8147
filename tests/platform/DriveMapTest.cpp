// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/DriveMap.h"

#include <gtest/gtest.h>

using namespace zova;

#ifndef _WIN32  // there the map is the identity

TEST(DriveMap, GoesBothWays) {
  const DriveMap map = DriveMap::Parse("c=/home/u/;D=/home/u/data;;EE=/x;1=/y;F=;Z=/");
  ASSERT_EQ(map.Drives().size(), 3U);
  const std::pair<const char*, const char*> toNative[] = {{"C:\\Data\\a b", "/home/u/Data/a b"},
                                                          {"d:/x\\\\y\\", "/home/u/data/x/y"},
                                                          {"Z:\\", "/"},
                                                          {"/abs", "/abs"},
                                                          {"F:\\x", "none"},
                                                          {"Data", "none"},
                                                          {"\\x", "none"},
                                                          {"", "none"},
                                                          {"(none)", "none"}};
  for (const auto& [path, native] : toNative) {
    EXPECT_EQ(map.ToNative(path).value_or("none").lexically_normal(), native) << path;
  }
  const std::pair<const char*, const char*> toDrive[] = {{"/home/u/data/x", "D:\\x"},
                                                         {"/home/u/data", "D:\\"},
                                                         {"/home/u/database", "C:\\database"},
                                                         {"/", "Z:\\"},
                                                         {"/home/user", "Z:\\home\\user"},
                                                         {"/home/u/./a/../b/", "C:\\b"},
                                                         {"C:\\x", "C:\\x"},
                                                         {"x", "x"},
                                                         {"", ""}};
  for (const auto& [path, drivePath] : toDrive) EXPECT_EQ(map.ToDrivePath(path), drivePath) << path;
  EXPECT_EQ(DriveMap::Parse("D=/data").ToDrivePath("/home"), "/home") << "below no root";
}

#endif
