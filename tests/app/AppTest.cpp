// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include "app/desktop/Application.h"

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  ::testing::InitGoogleTest(&argc, argv);
  const zova::Application application(argc, argv);
  return RUN_ALL_TESTS();
}
