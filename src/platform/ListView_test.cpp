#include "platform/ListView.h"

#include <gtest/gtest.h>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class ListViewTest : public testing::Test {
 protected:
  ListViewTest() {
    list.setColumns({{"Color", 0.6}, {"Time(s)", 0.3, true}});
    list.onClick = [this](int row, int col) { note("click", row, col); };
    list.onDoubleClick = [this](int row) { note("dblclick", row, 0); };
    list.onEdited = [this](int row, int col) { note("edited", row, col); };
  }
  void note(const std::string& event, int row, int col) {
    events.push_back(event + " " + std::to_string(row) + " " + std::to_string(col));
  }
  void fill(int count) {
    for (int i = 0; i < count; ++i) list.add("row" + std::to_string(i), {std::to_string(i)});
  }
  Texts texts() const {
    Texts all;
    for (const ListView::Row& row : list.rows()) all.push_back(row.text);
    return all;
  }

  ListView list{"ColorList"};
  Texts events;
};

TEST_F(ListViewTest, AnEmptyListHasNoCurrentRowAndNoMark) {
  EXPECT_EQ(list.current(), -1);
  EXPECT_EQ(list.selected(), -1);
  EXPECT_EQ(failureOf([&] { list.row(0); }), kSubscript);
}

TEST_F(ListViewTest, TheFirstRowIsCurrentButNotMarked) {
  fill(2);
  EXPECT_EQ(list.current(), 0);
  EXPECT_EQ(list.selected(), -1);
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListViewTest, SelectingMarksOneRowAndMakesItCurrentWithoutAnEvent) {
  fill(3);
  list.select(2);
  list.select(1);
  EXPECT_EQ(list.current(), 1);
  EXPECT_EQ(list.selected(), 1);
  EXPECT_FALSE(list.row(2).selected);
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListViewTest, TakingTheMarkOffKeepsTheCurrentRow) {
  fill(3);
  list.select(2);
  list.unselectAll();
  EXPECT_EQ(list.current(), 2);
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, AClickSelectsAndTellsTheCellEveryTime) {
  fill(2);
  list.click(1, 0);
  list.click(1, 1);
  EXPECT_EQ(list.selected(), 1);
  EXPECT_EQ(events, (Texts{"click 1 0", "click 1 1"}));
}

TEST_F(ListViewTest, ADoubleClickTellsTheRow) {
  fill(2);
  list.doubleClick(1);
  EXPECT_EQ(events, Texts{"dblclick 1 0"});
}

TEST_F(ListViewTest, RowsThatAreNotThereAreRefused) {
  fill(2);
  for (const int row : {-1, 2, 99}) {
    EXPECT_EQ(failureOf([&] { list.click(row, 0); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.doubleClick(row); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.select(row); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.remove(row); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.setCell(row, 0, "x"); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.exchange(row, 0); }), kSubscript);
    EXPECT_EQ(failureOf([&] { list.beginEdit(row, 1); }), kSubscript);
  }
  EXPECT_EQ(failureOf([&] { list.setCell(0, -1, "x"); }), kSubscript);
  EXPECT_EQ(texts(), (Texts{"row0", "row1"}));
  EXPECT_EQ(events, Texts{});
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, CellsAreTheTextAndTheSubTexts) {
  fill(1);
  EXPECT_EQ(list.cell(0, 0), "row0");
  EXPECT_EQ(list.cell(0, 1), "0");
  EXPECT_EQ(list.cell(0, 2), "");
  EXPECT_EQ(list.cell(0, -1), "");
  list.setCell(0, 0, "a");
  list.setCell(0, 2, "c");
  EXPECT_EQ(list.cell(0, 0), "a");
  EXPECT_EQ(list.row(0).sub, (Texts{"0", "c"}));
}

TEST_F(ListViewTest, RemovingAnEarlierRowKeepsTheSameRowCurrent) {
  fill(4);
  list.select(2);
  list.remove(0);
  EXPECT_EQ(list.row(list.current()).text, "row2");
  EXPECT_EQ(list.selected(), 1);
}

TEST_F(ListViewTest, RemovingALaterRowChangesNothing) {
  fill(4);
  list.select(1);
  list.remove(3);
  EXPECT_EQ(list.current(), 1);
  EXPECT_EQ(list.selected(), 1);
}

TEST_F(ListViewTest, RemovingTheCurrentRowMakesItsFollowerCurrentWithoutAMark) {
  fill(3);
  list.select(1);
  list.remove(1);
  EXPECT_EQ(list.row(list.current()).text, "row2");
  EXPECT_EQ(list.selected(), -1);
}

TEST_F(ListViewTest, RemovingTheLastRowMakesTheOneBeforeItCurrent) {
  fill(3);
  list.select(2);
  list.remove(2);
  EXPECT_EQ(list.current(), 1);
}

TEST_F(ListViewTest, RemovingTheOnlyRowLeavesNoCurrentOne) {
  fill(1);
  list.remove(0);
  EXPECT_EQ(list.current(), -1);
  fill(1);
  EXPECT_EQ(list.current(), 0);
}

TEST_F(ListViewTest, ClearingForgetsRowsCurrentAndEditor) {
  fill(2);
  list.beginEdit(0, 1);
  list.clear();
  EXPECT_EQ(list.count(), 0);
  EXPECT_EQ(list.current(), -1);
  EXPECT_FALSE(list.editing());
}

TEST_F(ListViewTest, TheViewHearsOfEveryChange) {
  int shows = 0;
  list.onShown = [&] { ++shows; };
  fill(2);
  list.setCell(0, 0, "x");
  list.exchange(0, 1);
  list.select(1);
  list.unselectAll();
  list.remove(0);
  list.clear();
  EXPECT_EQ(shows, 8);
}

TEST_F(ListViewTest, OnlyEditableCellsOpenTheEditor) {
  fill(1);
  EXPECT_FALSE(list.beginEdit(0, 0));
  EXPECT_FALSE(list.beginEdit(0, 2));
  EXPECT_FALSE(list.beginEdit(0, -1));
  EXPECT_FALSE(list.editing());
  EXPECT_TRUE(list.beginEdit(0, 1));
  EXPECT_TRUE(list.editing());
  EXPECT_EQ(list.editRow(), 0);
  EXPECT_EQ(list.editCol(), 1);
}

TEST_F(ListViewTest, WithoutHandlersTheTypedTextIsStored) {
  fill(2);
  list.beginEdit(1, 1);
  list.endEdit("2.5");
  EXPECT_EQ(list.cell(1, 1), "2.5");
  EXPECT_FALSE(list.editing());
  EXPECT_EQ(events, Texts{"edited 1 1"});
}

TEST_F(ListViewTest, TheTextIsValidatedThenStoredThenTold) {
  fill(1);
  list.onValidate = [](int col, const std::string& typed) {
    return "v" + std::to_string(col) + "(" + typed + ")";
  };
  list.onAfterEdit = [](int col, const std::string& old, const std::string& typed) {
    return std::to_string(col) + ":" + old + ">" + typed;
  };
  std::string seen;
  list.onEdited = [&](int row, int col) { seen = list.cell(row, col); };
  list.beginEdit(0, 1);
  list.endEdit("x");
  EXPECT_EQ(list.cell(0, 1), "1:0>v1(x)");
  EXPECT_EQ(seen, "1:0>v1(x)");
}

TEST_F(ListViewTest, EndingAnEditThatIsNotOpenDoesNothing) {
  fill(1);
  list.endEdit("x");
  EXPECT_EQ(list.cell(0, 1), "0");
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListViewTest, AnEditCanBeDropped) {
  fill(1);
  list.beginEdit(0, 1);
  list.cancelEdit();
  EXPECT_FALSE(list.editing());
  list.endEdit("x");
  EXPECT_EQ(list.cell(0, 1), "0");
  EXPECT_EQ(events, Texts{});
}

TEST_F(ListViewTest, AFailureInAnEditKeepsTheCellAndClosesTheEditor) {
  fill(1);
  list.onValidate = [](int, const std::string&) -> std::string { throw Failure(kTypeMismatch); };
  list.beginEdit(0, 1);
  EXPECT_EQ(failureOf([&] { list.endEdit("x"); }), kTypeMismatch);
  EXPECT_EQ(list.cell(0, 1), "0");
  EXPECT_FALSE(list.editing());
}

TEST_F(ListViewTest, RemovingARowClosesTheEditor) {
  fill(3);
  list.beginEdit(2, 1);
  list.remove(0);
  EXPECT_FALSE(list.editing());
  list.endEdit("x");
  EXPECT_EQ(list.cell(1, 1), "2");
}

TEST(ListViewKeys, MeanAClickADoubleClickAndAnEdit) {
  ListView list("ColorList");
  list.setColumns({{"Color", 0.5}, {"Time(s)", 0.5, true}});
  std::vector<std::string> told;
  list.onClick = [&](int row, int col) {
    told.push_back("click " + std::to_string(row) + " " + std::to_string(col));
  };
  list.onDoubleClick = [&](int row) { told.push_back("double " + std::to_string(row)); };
  for (const int key : {113, 32, 13}) {
    EXPECT_TRUE(ListView::takesKey(key));
    list.key(key);  // on an empty list
  }
  EXPECT_FALSE(ListView::takesKey(27));
  EXPECT_TRUE(told.empty());
  list.add("red", {"1"});
  list.add("blue", {"2"});
  list.reach(1);
  list.reach(1);
  list.reach(-1);
  list.reach(2);
  EXPECT_EQ(told, std::vector<std::string>{"click 1 0"}) << "only another row that there is";
  list.key(32);
  list.key(13);
  EXPECT_EQ(told, (std::vector<std::string>{"click 1 0", "click 1 0", "double 1"}));
  list.key(113);
  EXPECT_TRUE(list.editing());
  EXPECT_EQ(list.editRow(), 1);
  EXPECT_EQ(list.editCol(), 1);
}

TEST(ListViewKeys, EditNothingWithoutAnEditableColumn) {
  ListView list("efxAList");
  list.setColumns({{"Name", 1}});
  list.add("fire");
  list.key(113);
  EXPECT_FALSE(list.editing());
}

TEST(ListViewRows, AreExchangedWholeWhileTheMarkStays) {
  ListView list("ColorList");
  list.add("red", {"1"}, rgb(255, 0, 0));
  list.add("blue", {"2", "more"}, rgb(0, 0, 255));
  list.select(1);
  list.exchange(0, 1);
  EXPECT_EQ(list.cell(0, 0) + list.cell(0, 1) + list.cell(0, 2), "blue2more");
  EXPECT_EQ(list.row(1).color, rgb(255, 0, 0));
  EXPECT_EQ(list.selected(), 1);
  EXPECT_EQ(list.current(), 1);
}

TEST(ListRows, LettersTypedCloselyAreOneWordAndAfterAPauseAnother) {
  ListView list("list");
  for (const char* name : {"Amber", "Embers", "Eclipse"}) list.add(name);
  list.typed("e", 5000);
  EXPECT_EQ(list.current(), 1);
  list.typed("c", 5900);
  EXPECT_EQ(list.current(), 2);
  list.typed("A", 6901);
  EXPECT_EQ(list.current(), 0);
  list.typed("q", 6950);
  EXPECT_EQ(list.current(), 0) << "none begins so";
}

TEST(ListRows, GatheredRowsAreThoseOfAnActionUntilTheListChanges) {
  ListView list("list");
  for (const char* name : {"a", "b", "c", "d"}) list.add(name);
  list.clickGathering(2, 0);
  EXPECT_EQ(list.current(), 2) << "without an action it is a click";
  list.actions = {{"Remove", "Del", nullptr}};
  list.clickRange(0, 0);
  EXPECT_EQ(list.gathered(), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(list.rowsFor(1), (std::vector<int>{0, 1, 2}));
  EXPECT_EQ(list.rowsFor(3), (std::vector<int>{3}));
  EXPECT_EQ(list.current(), 2);
  list.remove(3);
  EXPECT_TRUE(list.gathered().empty());
  EXPECT_EQ(list.actionOf("Del"), &list.actions.front());
  EXPECT_EQ(list.actionOf("Ins"), nullptr);
  list.actions.push_back({"Edit", "", nullptr});
  EXPECT_EQ(list.actionOf(""), nullptr) << "Control alone";
}

}  // namespace
}  // namespace korvane
