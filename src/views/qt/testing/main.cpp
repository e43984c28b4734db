#include <gtest/gtest.h>

#include <QApplication>

#include "views/qt/windows/Theme.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QApplication application(argc, argv);
  korvane::applyTheme(application);
  return RUN_ALL_TESTS();
}
