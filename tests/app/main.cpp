// The tests of the window run without a display.
#include <gtest/gtest.h>

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const QTemporaryDir settings;                               // not the user's own
  qputenv("XDG_CONFIG_HOME", settings.path().toLocal8Bit());  // nor in programs started from here
  QSettings::setDefaultFormat(QSettings::IniFormat);
  QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, settings.path());
  ::testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
