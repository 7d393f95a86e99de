#include <gtest/gtest.h>

#include <QApplication>

/// Windows need a QApplication; this one draws into memory, wherever the tests run.
int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
