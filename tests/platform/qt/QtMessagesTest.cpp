#include "platform/qt/QtMessages.h"

#include <QDebug>
#include <string>

#include "gtest/gtest.h"

namespace vorlent {
namespace {

TEST(QtMessages, WarningsGoWhereTheyAreWantedAndNotToStandardError) {
  std::string told;
  testing::internal::CaptureStderr();
  {
    const QtMessages messages([&told](std::string_view line) { told += line; });
    qWarning("the socket %d is odd", 7);
    qCritical() << "and the other";
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(told, "the socket 7 is odd\nand the other\n");
}

TEST(QtMessages, GoToStandardErrorAgainAfterwards) {
  std::string told;
  {
    const QtMessages messages([&told](std::string_view line) { told += line; });
  }
  testing::internal::CaptureStderr();
  qWarning("late");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "late\n");
  EXPECT_EQ(told, "");
}

TEST(QtMessagesDeathTest, WhatEndsTheProcessIsOnStandardErrorBefore) {
  const auto fail = [] {
    const QtMessages messages([](std::string_view) {});
    qFatal("no screen");
  };
  EXPECT_DEATH(fail(), "no screen");
}

}  // namespace
}  // namespace vorlent
