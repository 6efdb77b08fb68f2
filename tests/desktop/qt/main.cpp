// Runs the Qt layer's tests on Qt's own screen without a display. Each test makes an application of
// its own.
#include <QByteArray>
#include <gtest/gtest.h>

int main(int argc, char** argv) {
#ifndef Q_OS_WIN // where its own screen is what is to be tested
  qputenv("QT_QPA_PLATFORM", QByteArray("offscreen"));
  qputenv("FONTCONFIG_FILE", QByteArray(QT_TESTCASE_SOURCEDIR "/desktop/qt/golden/fonts.conf"));
#endif
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
