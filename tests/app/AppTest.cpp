// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "app/desktop/Application.h"

// Qt does not unwind: it leaves a guard of its own behind when a test lets an exception pass through it.
extern "C" const char* __lsan_default_suppressions();   // NOLINT: the name is the leak sanitizer's
extern "C" const char* __lsan_default_suppressions() {  // NOLINT
  return "leak:QtSharedPointer::ExternalRefCountData::getAndRef\n";
}

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const zova::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
