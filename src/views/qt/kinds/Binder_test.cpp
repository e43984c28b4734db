#include "views/qt/kinds/Binder.h"

#include <QAbstractButton>
#include <QLabel>
#include <QLineEdit>

#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class EveryKind : public ShownForm {
 protected:
  Button button{"button", {.caption = "Press", .toolTip = "tip of Button"}};
  PictureButton picture{"picture", Icon::Add, {.toolTip = "tip of PictureButton"}};
  CheckBox check{"check", {.caption = "Check", .toolTip = "tip of CheckBox"}};
  ListBox list{"list", {.toolTip = "tip of ListBox"}};
  ListView rows{"rows", {.toolTip = "tip of ListView"}};
  TextBox box{"box", {.toolTip = "tip of TextBox", .label = "Text : "}};
  Slider slider{"slider", {.toolTip = "tip of Slider"}};
  PictureBox pixels{"pixels", {40, 40}, {.toolTip = "tip of PictureBox"}};
  ColorBox color{"color", {.toolTip = "tip of ColorBox"}};
  Label label{"label", {.caption = "Words", .toolTip = "tip of Label"}};
  Group group{"group", {.caption = "Title", .toolTip = "tip of Group"}};
  std::vector<Control*> all = {&button, &picture, &check, &list,  &rows, &box,
                               &slider, &pixels,  &color, &label, &group};
};

TEST_F(EveryKind, ShowsItsToolTipAndFollowsVisibleAndEnabled) {
  show(all);
  for (Control* control : all) {
    SCOPED_TRACE(control->name());
    QWidget& widget = on<>(*control);
    EXPECT_EQ(widget.toolTip().toStdString(), std::string("tip of ") + kindName(control->kind()));
    control->setEnabled(false);
    EXPECT_FALSE(widget.isEnabled());
    control->setVisible(false);
    EXPECT_FALSE(widget.isVisible());
    control->setVisible(true);
    EXPECT_TRUE(widget.isVisible());
  }
}

TEST_F(EveryKind, IsReachedByTabInTheOrderOfTheForm) {
  rows.setColumns({{"Name", 1}});
  FormWindow& window = show(all);
  on<>(button).setFocus();
  for (const Control* next : std::vector<const Control*>{&picture, &check, &list, &rows, &box}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(window.focusWidget(), &on<>(*next)) << next->name();
  }
}

TEST_F(EveryKind, ALabelBeforeAControlGoesWithIt) {
  FormWindow& window = show(all);
  QLabel* before = nullptr;
  for (QLabel* found : window.findChildren<QLabel*>()) {
    if (found->text() == "Text : ") before = found;
  }
  ASSERT_NE(before, nullptr);
  EXPECT_TRUE(before->isVisible());
  box.setVisible(false);
  EXPECT_FALSE(before->isVisible());
}

TEST_F(EveryKind, ButtonsAreClickedByMouseSpaceAndEnter) {
  int clicks = 0;
  button.onClick = picture.onClick = color.onClick = [&clicks] { ++clicks; };
  show(all);
  for (Control* control : std::vector<Control*>{&button, &picture, &color}) {
    SCOPED_TRACE(control->name());
    clicks = 0;
    QTest::mouseClick(&on<>(*control), Qt::LeftButton);
    QTest::keyClick(&on<>(*control), Qt::Key_Space);
    QTest::keyClick(&on<>(*control), Qt::Key_Return);
    EXPECT_EQ(clicks, 3);
  }
}

TEST_F(EveryKind, AFailingHandlerIsReportedOnceAndTheProgramGoesOn) {
  button.onClick = [] { throw Failure(kOverflow); };
  int others = 0;
  picture.onClick = [&others] { ++others; };
  show(all);
  QTest::mouseClick(&on<>(button), Qt::LeftButton);
  QTest::mouseClick(&on<>(picture), Qt::LeftButton);
  ASSERT_EQ(platform.failures.size(), 1U);
  EXPECT_EQ(platform.failures[0].number, kOverflow);
  EXPECT_EQ(others, 1);
}

TEST_F(EveryKind, APictureButtonIsPressedByTheProgramAlone) {
  show(all);
  auto& widget = on<QAbstractButton>(picture);
  QTest::mouseClick(&widget, Qt::LeftButton);
  EXPECT_FALSE(widget.isChecked());
  picture.setPressed(true);
  EXPECT_TRUE(widget.isChecked());
}

TEST_F(EveryKind, ACheckBoxTakesTheClickAndTheProgramsValue) {
  int changes = 0;
  check.onClick = [&changes] { ++changes; };
  show(all);
  QTest::keyClick(&on<>(check), Qt::Key_Space);
  EXPECT_EQ(check.value(), 1);
  check.setValue(0);
  EXPECT_FALSE(on<QAbstractButton>(check).isChecked());
  EXPECT_EQ(changes, 2);
}

TEST_F(EveryKind, AClickOnALabelIsAnEvent) {
  int clicks = 0;
  label.onClick = [&clicks] { ++clicks; };
  show(all);
  QTest::mouseClick(&on<>(label), Qt::LeftButton);
  EXPECT_EQ(clicks, 1);
}

}  // namespace
}  // namespace korvane::qt
