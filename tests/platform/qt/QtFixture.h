#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <functional>

#include "gtest/gtest.h"

namespace vorlent {

class QtFixture : public testing::Test {
 protected:
  /// Dispatches events until the condition holds; false after 10 s without it.
  static bool comes(const std::function<bool()>& condition) {
    QElapsedTimer waited;
    for (waited.start(); !condition() && waited.elapsed() < 10000;)
      QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    return condition();
  }

 private:
  int argumentCount_ = 1;
  char name_[5] = "test";
  char* arguments_[2] = {name_, nullptr};
  QCoreApplication application_{argumentCount_, arguments_};
};

}  // namespace vorlent
