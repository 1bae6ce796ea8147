// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/files/DirectoryLock.h"

#include "support/Scratch.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#endif

using namespace zova;
using namespace zova::testing;

using Outcome = DirectoryLock::Outcome;

TEST(DirectoryLock, ChangesHandsWithoutLosingWhatItHolds) {
  Scratch scratch;
  const auto c = scratch.Root() / "C";
  const auto d = scratch.Root() / "D";
  DirectoryLock first;
  DirectoryLock second;
  EXPECT_EQ(first.Acquire(c), Outcome::Held);
  EXPECT_EQ(first.Acquire(d / ".." / "C"), Outcome::Held) << "its own already";
  EXPECT_EQ(second.Acquire(d), Outcome::Held);
  EXPECT_EQ(second.Acquire(c), Outcome::InUse);
  EXPECT_EQ(first.Acquire(d), Outcome::InUse) << "a refusal gave back what was held";
  EXPECT_EQ(first.Acquire(c / "missing"), Outcome::Unavailable);
  EXPECT_EQ(second.Acquire(c), Outcome::Held) << "going without keeps nothing";
  EXPECT_EQ(first.Acquire(d), Outcome::Held) << "the earlier directory was not given back";
  EXPECT_TRUE(scratch.MakeDisk().ListFiles("D:\\", "", "").empty());
}

TEST(DirectoryLock, GoesByTheDirectoryItself) {
#ifdef _WIN32
  GTEST_SKIP() << "a locked directory cannot be deleted on Windows";
#else
  const Scratch scratch;
  const auto param = scratch.Root() / "Param";
  DirectoryLock first;
  DirectoryLock second;
  std::filesystem::create_directory(param);
  ASSERT_EQ(first.Acquire(param), Outcome::Held);
  std::filesystem::remove(param);
  std::filesystem::create_directory(param);
  EXPECT_EQ(first.Acquire(param), Outcome::Held);
  EXPECT_EQ(second.Acquire(param), Outcome::InUse) << "the lock stayed on the directory that was deleted";
  first.Release();
  std::filesystem::permissions(param, std::filesystem::perms(0555));
  EXPECT_EQ(second.Acquire(param), Outcome::Unavailable) << "read-only";
#endif
}

TEST(DirectoryLock, EndsWithAKilledProgram) {
#ifdef _WIN32
  GTEST_SKIP() << "no fork on Windows; WindowsFiles has a test of its own";
#else
  const Scratch scratch;
  int ready[2] = {};
  ASSERT_EQ(pipe(ready), 0);
  DirectoryLock lock;
  const pid_t child = fork();
  if (child == 0) {
    lock.Acquire(scratch.Root());
    if (write(ready[1], "y", 1) == 1) pause();
    _exit(1);
  }
  char answer = 0;
  EXPECT_EQ(read(ready[0], &answer, 1), 1);
  EXPECT_EQ(lock.Acquire(scratch.Root()), Outcome::InUse);
  ASSERT_EQ(kill(child, SIGKILL), 0);
  ASSERT_EQ(waitpid(child, nullptr, 0), child);
  EXPECT_EQ(lock.Acquire(scratch.Root()), Outcome::Held);
#endif
}
