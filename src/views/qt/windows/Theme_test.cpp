#include "views/qt/windows/Theme.h"

#include <gtest/gtest.h>

#include <QLineEdit>

#include "views/qt/kinds/Painting.h"

namespace korvane::qt {
namespace {

constexpr double kReadable = 4.5;  // contrast of a text of usual size, after WCAG 2.1
constexpr double kVisible = 3;     // of a large one, or a mark

double between(const char* one, const char* other) { return contrast(QColor(one), QColor(other)); }

TEST(Theme, EveryTextCanBeReadInLightAndInDark) {
  for (const Shade shade : {Shade::Dark, Shade::Light}) {
    const theme::Colors& colors = theme::colors(shade);
    for (const char* ground : {colors.window, colors.well, colors.face, colors.faceOver}) {
      EXPECT_GE(between(colors.text, ground), kReadable) << ground;
      EXPECT_GE(between(colors.quiet, ground), kReadable) << ground;
    }
    EXPECT_GE(between(colors.onAccent, colors.accent), kVisible);
    EXPECT_GE(between(colors.accent, colors.window), kVisible);
    EXPECT_GE(between(colors.window, colors.live), kReadable);
  }
}

TEST(Theme, AFieldThatTakesNothingIsWrittenPale) {
  for (const Shade shade : {Shade::Dark, Shade::Light}) {
    applyTheme(*qApp, shade);
    QLineEdit field("44");
    field.show();
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(theme::colors(shade).text));
    field.setEnabled(false);
    EXPECT_EQ(field.palette().color(QPalette::Text), QColor(theme::colors(shade).disabled));
  }
  applyTheme(*qApp);
}

TEST(Theme, OpenWindowsFollow) {
  QWidget window;
  window.show();
  applyTheme(*qApp, Shade::Light);
  EXPECT_EQ(window.palette().color(QPalette::Window), QColor(theme::colors(Shade::Light).window));
  applyTheme(*qApp, Shade::Dark);
  EXPECT_EQ(window.palette().color(QPalette::Window), QColor(theme::colors(Shade::Dark).window));
}

}  // namespace
}  // namespace korvane::qt
