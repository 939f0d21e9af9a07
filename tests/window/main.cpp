#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  // A screen of the size that people have; the platform's own is 800 by 800.
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (platform.isEmpty() || platform == "offscreen") {
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" QUORVANE_SCREENS);
  }
  const QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
