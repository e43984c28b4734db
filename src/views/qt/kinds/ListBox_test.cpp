#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QWheelEvent>

#include "platform/Text.h"
#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class ListBoxes : public ShownForm {
 protected:
  ListBoxes() {
    for (ListBox* list : {&closed, &open}) {
      list->setItems({"one", "two", "three"});
      list->onClick = [this] { ++clicks; };
    }
    show({&closed, &open});
  }
  ListBox closed{"closed", {}, ListBox::Style::DropDown};
  ListBox open{"open", {}, ListBox::Style::Open};
  int clicks = 0;
};

TEST_F(ListBoxes, ADropDownTakesKeysOncePerChange) {
  QTest::keyClick(&on<QComboBox>(closed), Qt::Key_Down);
  QTest::keyClick(&on<QComboBox>(closed), Qt::Key_Down);
  EXPECT_EQ(closed.text(), "two");
  EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxes, ANumberIsTakenAsItIsTyped) {
  closed.setItems(numbersUpTo(50));
  closed.setIndex(11);
  auto& widget = on<QComboBox>(closed);
  QTest::keyClick(&widget, Qt::Key_1);
  EXPECT_EQ(closed.text(), "1");
  QTest::keyClick(&widget, Qt::Key_7);
  EXPECT_EQ(closed.text(), "17");
  widget.showPopup();
  const int interval = QApplication::keyboardInputInterval();
  QApplication::setKeyboardInputInterval(0);  // a new number begins
  QTest::keyClick(widget.view(), Qt::Key_4);
  QApplication::setKeyboardInputInterval(interval);
  QTest::keyClick(widget.view(), Qt::Key_Return);
  EXPECT_EQ(closed.text(), "4") << "in the open list as well";
}

TEST_F(ListBoxes, APopupShowsAllOfNineKinds) {
  closed.setItems({"a", "b", "c", "d", "e", "f", "g", "h", "last"});
  auto& widget = on<QComboBox>(closed);
  widget.showPopup();
  const QAbstractItemView& entries = *widget.view();
  const QRect last = entries.visualRect(entries.model()->index(8, 0));
  EXPECT_TRUE(entries.viewport()->rect().contains(last));
  widget.hidePopup();
}

TEST_F(ListBoxes, TheWheelLeavesAClosedListAlone) {
  closed.setIndex(0);
  QWidget& widget = on<QComboBox>(closed);
  QWheelEvent wheel(widget.rect().center(), widget.mapToGlobal(widget.rect().center()), {},
                    {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&widget, &wheel);
  EXPECT_EQ(closed.index(), 0);
}

TEST_F(ListBoxes, AnOpenListTakesAClickOnce) {
  auto& list = on<QListWidget>(open);
  const QRect third = list.visualItemRect(list.item(2));
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, third.center());
  EXPECT_EQ(open.text(), "three");
  EXPECT_EQ(clicks, 1);
}

TEST_F(ListBoxes, APressOnTheEntryThatIsShownChoosesIt) {
  auto& list = on<QListWidget>(open);
  const QPoint second = list.visualItemRect(list.item(1)).center();
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(open.text(), "two");
  EXPECT_EQ(clicks, 2);
}

TEST_F(ListBoxes, FollowTheProgramWithoutAnEcho) {
  closed.setIndex(2);
  open.setIndex(1);
  EXPECT_EQ(clicks, 2);
  EXPECT_EQ(on<QComboBox>(closed).currentText(), "three");
  EXPECT_EQ(on<QListWidget>(open).currentRow(), 1);
  closed.setItems({"only"});
  EXPECT_EQ(on<QComboBox>(closed).count(), 1);
  EXPECT_EQ(on<QComboBox>(closed).currentIndex(), -1);
  EXPECT_EQ(clicks, 2);
}

}  // namespace
}  // namespace korvane::qt
