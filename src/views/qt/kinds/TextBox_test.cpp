#include <QLineEdit>
#include <QPlainTextEdit>

#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class TextBoxes : public ShownForm {
 protected:
  TextBoxes() {
    for (TextBox* box : {&live, &late, &page}) {
      box->onChange = [this] { ++changes; };
      box->onKeyPress = [this](int key) { keys.push_back(key); };
    }
    show({&live, &late, &page, &fixed});
  }
  TextBox live{"live"};
  TextBox late{"late", {}, "3.00", {TextBoxStyle::Commit::OnLeave}};
  TextBox page{"page", {}, "", {.lines = 4}};
  TextBox fixed{"fixed", {}, "words", {.readOnly = true}};
  int changes = 0;
  std::vector<int> keys;
};

TEST_F(TextBoxes, ALiveBoxHandsOverEachKeystroke) {
  QTest::keyClicks(&on<QLineEdit>(live), "abc");
  EXPECT_EQ(live.text(), "abc");
  EXPECT_EQ(changes, 3);
}

TEST_F(TextBoxes, ABoxThatWaitsCommitsOnceByEnter) {
  auto& line = on<QLineEdit>(late);
  line.setFocus();
  line.selectAll();
  QTest::keyClicks(&line, "4.5");
  EXPECT_EQ(changes, 0);
  QTest::keyClick(&line, Qt::Key_Return);
  on<QLineEdit>(live).setFocus();
  EXPECT_EQ(late.text(), "4.5");
  EXPECT_EQ(changes, 1);
}

TEST_F(TextBoxes, ABoxThatWaitsCommitsOnceByLeaving) {
  auto& line = on<QLineEdit>(late);
  line.setFocus();
  line.selectAll();
  QTest::keyClicks(&line, "7");
  on<QLineEdit>(live).setFocus();
  EXPECT_EQ(late.text(), "7");
  EXPECT_EQ(changes, 1);
}

TEST_F(TextBoxes, AClickIntoABoxSelectsItsText) {
  on<QLineEdit>(live).setFocus();
  auto& line = on<QLineEdit>(late);
  QTest::mouseClick(&line, Qt::LeftButton);
  EXPECT_TRUE(QTest::qWaitFor([&line] { return line.selectedText() == "3.00"; }));
}

TEST_F(TextBoxes, ShowWhatTheHandlerMadeOfTheText) {
  late.onChange = [this] { late.setText("3.00"); };
  auto& line = on<QLineEdit>(late);
  line.selectAll();
  QTest::keyClicks(&line, "abc");
  QTest::keyClick(&line, Qt::Key_Return);
  EXPECT_EQ(line.text(), "3.00");
}

TEST_F(TextBoxes, EnterAndEscapeAreKeyCodes) {
  QTest::keyClick(&on<QLineEdit>(live), Qt::Key_Return);
  QTest::keyClick(&on<QLineEdit>(live), Qt::Key_Escape);
  EXPECT_EQ(keys, (std::vector<int>{13, 27}));
}

TEST_F(TextBoxes, FollowTheProgramWithoutAnEchoAndKeepTheCursor) {
  live.setText("from the program");
  EXPECT_EQ(on<QLineEdit>(live).text(), "from the program");
  EXPECT_EQ(changes, 1);
  on<QLineEdit>(live).setCursorPosition(4);
  QTest::keyClicks(&on<QLineEdit>(live), "X");
  EXPECT_EQ(live.text(), "fromX the program");
  EXPECT_EQ(on<QLineEdit>(live).cursorPosition(), 5);
}

TEST_F(TextBoxes, APageTakesLines) {
  QTest::keyClicks(&on<QPlainTextEdit>(page), "a");
  QTest::keyClick(&on<QPlainTextEdit>(page), Qt::Key_Return);
  QTest::keyClicks(&on<QPlainTextEdit>(page), "b");
  EXPECT_EQ(page.text(), "a\nb");
}

TEST_F(TextBoxes, AReadOnlyBoxTakesNothing) {
  QTest::keyClicks(&on<QLineEdit>(fixed), "x");
  EXPECT_EQ(fixed.text(), "words");
}

}  // namespace
}  // namespace korvane::qt
