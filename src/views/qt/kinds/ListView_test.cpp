#include "platform/ListView.h"

#include <QLineEdit>
#include <QTreeView>
#include <set>

#include "platform/Raster.h"
#include "views/qt/testing/Settle.h"
#include "views/qt/testing/ShownForm.h"

namespace korvane::qt {
namespace {

class ListViews : public ShownForm {
 protected:
  ListViews() {
    list.setColumns({{.title = "Color", .width = 0.6, .colored = true},
                     {.title = "Time(s)", .width = 0.3, .editable = true},
                     {.title = "Slot", .width = 0}});
    for (int i = 0; i < 3; ++i) list.add("||||", {std::to_string(i), "slot"}, rgb(255, 0, 0));
    list.onClick = [this](int row, int col) { clicks.emplace_back(row, col); };
    list.onDoubleClick = [this](int row) { doubleClicks.push_back(row); };
    show({&list});
  }
  QTreeView& tree() { return on<QTreeView>(list); }
  QPoint at(int row, int col) {
    return tree().visualRect(tree().model()->index(row, col)).center();
  }
  void click(int row, int col) {
    QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, at(row, col));
  }
  QLineEdit* editor() { return tree().viewport()->findChild<QLineEdit*>(); }

  ListView list{"list"};
  std::vector<std::pair<int, int>> clicks;
  std::vector<int> doubleClicks;
};

TEST_F(ListViews, AClickFiresOnceWithItsCellAndMarksTheRow) {
  click(1, 1);
  EXPECT_EQ(clicks, (std::vector<std::pair<int, int>>{{1, 1}}));
  EXPECT_EQ(list.selected(), 1);
  EXPECT_TRUE(tree().selectionModel()->isRowSelected(1));
}

// A text of a colour that drowns in the mark of its row has a plate behind it; nothing has none.
TEST_F(ListViews, AMarkedRowWithoutATextHasNothingBehindIt) {
  const auto inks = [this] {
    const QImage row =
        tree().viewport()->grab(tree().visualRect(tree().model()->index(1, 0))).toImage();
    std::set<QRgb> all;
    for (int x = 20; x < row.width(); ++x)  // beside the bar of the current row
      all.insert(row.pixel(x, row.height() / 2));
    return all.size();
  };
  const QColor mark = tree().palette().color(QPalette::Highlight);
  const Color drowned = rgb(mark.red(), mark.green(), mark.blue());
  list.setRows({{"||||", {"0", "slot"}, drowned}, {"||||", {"1", "slot"}, drowned}});
  click(1, 1);
  EXPECT_GT(inks(), 1U) << "a plate";
  list.setRows({{"", {"0", "slot"}, drowned}, {"", {"1", "slot"}, drowned}});
  list.select(1);
  EXPECT_EQ(inks(), 1U);
}

TEST_F(ListViews, ADoubleClickIsOneClickAndOneDoubleClick) {
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, at(2, 0));
  QTest::mouseDClick(tree().viewport(), Qt::LeftButton, {}, at(2, 0));
  EXPECT_EQ(doubleClicks, (std::vector<int>{2}));
}

TEST_F(ListViews, ControlAndShiftGatherRowsForAnActionWithoutAClick) {
  std::vector<int> removed;
  list.actions = {{"Remove", "Del", [&removed](const auto& rows) { removed = rows; }}};
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::ControlModifier, at(2, 0));
  EXPECT_EQ(list.gathered(), (std::vector<int>{0, 2})) << "with the current row";
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::ControlModifier, at(0, 0));
  EXPECT_EQ(list.gathered(), (std::vector<int>{2}));
  EXPECT_TRUE(clicks.empty());
  QTest::keyClick(&tree(), Qt::Key_Delete);
  EXPECT_EQ(removed, (std::vector<int>{2}));
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, Qt::ShiftModifier, at(1, 0));
  EXPECT_EQ(list.gathered(), (std::vector<int>{0, 1}));
  click(2, 0);
  EXPECT_TRUE(list.gathered().empty());
  QTest::keyClick(&tree(), Qt::Key_Delete);
  EXPECT_EQ(removed, (std::vector<int>{2}));
}

TEST_F(ListViews, LettersGoToTheFirstRowWhoseNameBeginsSo) {
  const char* kNames[] = {"Amber", "Embers", "Eclipse"};
  for (int row = 0; row < 3; ++row) list.setCell(row, 0, kNames[row]);
  QTest::keyClick(&tree(), Qt::Key_E);
  EXPECT_EQ(list.current(), 1);
  QTest::keyClick(&tree(), Qt::Key_C);
  EXPECT_EQ(list.current(), 2);
  QTest::keyClick(&tree(), Qt::Key_X);
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(clicks.size(), 2U);
}

TEST_F(ListViews, ARowThatCanBeDraggedIsClickedWhenTheButtonIsLetGo) {
  list.takesRowsOf = [](const ListView&) { return true; };
  QTest::mousePress(tree().viewport(), Qt::LeftButton, {}, at(1, 0));
  EXPECT_TRUE(clicks.empty());
  QTest::mouseRelease(tree().viewport(), Qt::LeftButton, {}, at(1, 0));
  EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(ListViews, AnEditorOpensWithItsTextSelected) {
  list.onName = [](int) { return "name alone"; };
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_F2);
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->selectedText().toStdString(), "name alone");
}

TEST_F(ListViews, TheRightButtonAndTheEmptyPlaceDoNothing) {
  QTest::mouseClick(tree().viewport(), Qt::RightButton, {}, at(1, 0));
  QTest::mouseClick(tree().viewport(), Qt::LeftButton, {}, {10, tree().viewport()->height() - 2});
  EXPECT_TRUE(clicks.empty());
}

TEST_F(ListViews, TheProgramsChoiceRaisesNoEvent) {
  list.select(2);
  list.add("more", {"9", "slot"});
  list.unselectAll();
  EXPECT_TRUE(clicks.empty());
  EXPECT_EQ(tree().model()->rowCount(), 4);
  EXPECT_TRUE(tree().selectionModel()->selectedRows().isEmpty());
  EXPECT_EQ(tree().currentIndex().row(), 2) << "the current row is there without the mark";
}

TEST_F(ListViews, KeysMoveAndClickAndEnterIsADoubleClick) {
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_Down);
  EXPECT_EQ(clicks, (std::vector<std::pair<int, int>>{{1, 0}}));
  QTest::keyClick(&tree(), Qt::Key_Return);
  EXPECT_EQ(doubleClicks, (std::vector<int>{1}));
}

TEST_F(ListViews, AColumnOfNoWidthIsHiddenAndTheOthersShareTheRoom) {
  EXPECT_TRUE(tree().isColumnHidden(2));
  EXPECT_NEAR(tree().columnWidth(0), 0.6 * tree().viewport()->width(), 2);
}

TEST_F(ListViews, TheEditorThatAHandlerOpensEditsTheCell) {
  list.onClick = [this](int row, int col) {
    if (col == 1) list.beginEdit(row, col);
  };
  int edits = 0;
  list.onEdited = [&edits](int, int) { ++edits; };
  click(1, 1);
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(editor()->text(), "1");
  editor()->selectAll();
  QTest::keyClicks(editor(), "2.5");
  QTest::keyClick(editor(), Qt::Key_Return);
  QTest::qWait(0);
  EXPECT_EQ(list.cell(1, 1), "2.5");
  EXPECT_EQ(edits, 1);
  EXPECT_FALSE(list.editing());
}

TEST_F(ListViews, EscapeLeavesTheCellAsItWas) {
  int edits = 0;
  list.onEdited = [&edits](int, int) { ++edits; };
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_F2);
  ASSERT_NE(editor(), nullptr);
  QTest::keyClicks(editor(), "77");
  QTest::keyClick(editor(), Qt::Key_Escape);
  EXPECT_EQ(list.cell(0, 1), "0");
  EXPECT_FALSE(list.editing());
  EXPECT_EQ(edits, 0);
}

TEST_F(ListViews, LeavingTheEditorTakesItsText) {
  tree().setFocus();
  QTest::keyClick(&tree(), Qt::Key_F2);
  ASSERT_NE(editor(), nullptr);
  editor()->selectAll();
  QTest::keyClicks(editor(), "8");
  click(2, 0);
  EXPECT_EQ(list.cell(0, 1), "8");
}

TEST_F(ListViews, TheCellThatIsEditedStaysInSightUntilItIsDone) {
  for (int i = 0; i < 200; ++i) list.add("more", {"9", "slot"});
  const auto inSight = [this](int row) { return tree().viewport()->rect().contains(at(row, 1)); };
  list.center(100);
  ASSERT_FALSE(inSight(1));
  list.beginEdit(1, 1);
  ASSERT_NE(editor(), nullptr);
  EXPECT_TRUE(inSight(1)) << "the list comes to it";
  list.center(150);
  EXPECT_TRUE(inSight(1));
  QTest::keyClick(editor(), Qt::Key_Escape);
  QTest::qWait(0);
  EXPECT_TRUE(inSight(150));
}

TEST_F(ListViews, ClearingTheListUnderAnOpenEditorIsHarmless) {
  list.beginEdit(1, 1);
  ASSERT_NE(editor(), nullptr);
  list.clear();
  QTest::qWait(0);
  EXPECT_FALSE(list.editing());
  list.add("new", {"1", "slot"});
  list.beginEdit(0, 1);
  EXPECT_NE(editor(), nullptr);
}

TEST_F(ListViews, PicturesAreAskedForRowsThatCanBeSeenAlone) {
  for (int i = 0; i < 200; ++i) list.add("more", {"9", "slot"});
  const Raster picture(2, 1, rgb(0, 200, 0));
  std::set<int> asked;
  list.setPictures([&](int row) {
    asked.insert(row);
    return row == 1 ? nullptr : &picture;
  });
  settle();
  EXPECT_TRUE(asked.contains(0));
  EXPECT_TRUE(asked.contains(1));
  EXPECT_LT(asked.size(), 60U);
  asked.clear();
  list.picturesChanged();
  settle();
  EXPECT_TRUE(asked.contains(0));
  view->window(*form).hide();
  settle();
  asked.clear();
  list.picturesChanged();
  settle();
  EXPECT_TRUE(asked.empty()) << "a window that can't be seen asks for nothing";
}

}  // namespace
}  // namespace korvane::qt
