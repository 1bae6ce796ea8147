// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/DriveMap.h"

#include <gtest/gtest.h>

using namespace zova;

#ifndef _WIN32  // there the map is the identity

TEST(DriveMap, GoesBothWays) {
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
}

#endif
