// Runs the Qt layer's tests on Qt's own screen without a display. Each test makes an application of
// its own.
#include <QByteArray>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", QByteArray("offscreen"));
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
