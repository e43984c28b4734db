#include <gtest/gtest.h>

#include <QApplication>

#include "views/qt/windows/Theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  // A screen in memory, unless the caller asks for another one.
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  korvane::qt::applyTheme(application);
  return RUN_ALL_TESTS();
}
