#include <gtest/gtest.h>

#include <QApplication>

/// Windows need a QApplication; this one draws on the system's screen.
int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
