#include <QLabel>
#include <QSlider>

#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class Sliders : public ShownForm {
 protected:
  Sliders() {
    level.onChange = upright.onChange = [this] { ++changes; };
    show({&level, &upright});
    view->window(*form).resize(500, 400);
  }
  Slider level{"level", SliderRange{-100, 100}};
  Slider upright{"upright", SliderRange{0, 255, true}, {.caption = "Red"}};
  int changes = 0;
};

TEST_F(Sliders, BeginAtTheValueOfTheControl) {
  EXPECT_EQ(on<QSlider>(level).value(), level.value());
  EXPECT_EQ(on<QSlider>(level).minimum(), -100);
  EXPECT_EQ(on<QSlider>(upright).orientation(), Qt::Vertical);
}

TEST_F(Sliders, APressTakesTheHandleThereAtOnce) {
  auto& slider = on<QSlider>(level);
  QTest::mouseClick(&slider, Qt::LeftButton, {}, {3 * slider.width() / 4, slider.height() / 2});
  EXPECT_NEAR(level.value(), 50, 5);
  EXPECT_EQ(changes, 1);
}

TEST_F(Sliders, AnUprightOneGrowsUpward) {
  auto& slider = on<QSlider>(upright);
  QTest::mouseClick(&slider, Qt::LeftButton, {}, {slider.width() / 2, 4});
  EXPECT_EQ(upright.value(), 255);
}

TEST_F(Sliders, ADragMovesIt) {
  auto& slider = on<QSlider>(level);
  const int middle = slider.height() / 2;
  QTest::mousePress(&slider, Qt::LeftButton, {}, {slider.width() / 4, middle});
  const int pressed = level.value();
  QTest::mouseMove(&slider, {3 * slider.width() / 4, middle});
  QTest::mouseRelease(&slider, Qt::LeftButton, {}, {3 * slider.width() / 4, middle});
  EXPECT_LT(pressed, -30);
  EXPECT_GT(level.value(), 30);
}

TEST_F(Sliders, KeysMoveItByOneAndByATenth) {
  auto& slider = on<QSlider>(level);
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_EQ(level.value(), 1);
  QTest::keyClick(&slider, Qt::Key_PageUp);
  EXPECT_EQ(level.value(), 21);
}

TEST_F(Sliders, FollowTheProgramWithoutAnEchoAndShowTheNumber) {
  level.setValue(37);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(on<QSlider>(level).value(), 37);
  EXPECT_EQ(on<>(level).findChild<QLabel*>("number")->text(), "37");
}

}  // namespace
}  // namespace korvane::qt
