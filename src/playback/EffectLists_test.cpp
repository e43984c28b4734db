#include "playback/EffectLists.h"

#include "generators/color/MxColorForm.h"
#include "generators/paint/MxPaintForm.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class EffectLists : public TestDecks {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
  void add(int count) {
    for (int i = 0; i < count; ++i) click(panel.add);
  }
};
KORVANE_BOTH_DECKS(EffectLists);

class AllLists : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
};

TEST_P(EffectLists, StartWithOneSelectedRowInTheDecksColour) {
  EXPECT_EQ(texts(deck.efxList), Texts{"new effect"});
  EXPECT_EQ(slots(deck.efxList), Texts{"0"});
  EXPECT_EQ(deck.efxList.selected(), 0);
  EXPECT_EQ(deck.efxList.current(), 0);
  EXPECT_EQ(deck.efx[0].color1, deck.isB() ? rgb(0, 0, 255) : rgb(255, 0, 0));
  EXPECT_FALSE(deck.efxEdited[0]);
}

TEST_P(EffectLists, AnAddedRowIsNotSelectedAndStartsNothing) {
  const std::vector<std::string> before = takeCalls();
  deck.frame.fill({1, 2, 3});
  add(1);
  EXPECT_EQ(slots(deck.efxList), (Texts{"0", "1"}));
  EXPECT_EQ(deck.efxList.selected(), 0);
  EXPECT_EQ(deck.sel, 0);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{1, 2, 3}));
}

TEST_P(EffectLists, TakesThe256thRowAndRefusesThe257th) {
  add(255);
  EXPECT_EQ(deck.efxCount, 256);
  EXPECT_EQ(takeBoxes(), Texts{});
  add(1);
  EXPECT_EQ(deck.efxCount, 256);
  EXPECT_EQ(deck.efxList.count(), 256);
  EXPECT_EQ(takeBoxes(), Texts{"more then 256 effects are not allowed !"});
}

TEST_P(EffectLists, TheLimitCountsRowsNotSlots) {
  add(255);
  pick(deck.efxList, 255);
  click(panel.remove);
  add(1);
  EXPECT_EQ(deck.efxCount, 256);
  EXPECT_EQ(slots(deck.efxList).back(), "256");
}

TEST_P(EffectLists, TheLastRowCanNotBeRemovedButTheWarningStillComes) {
  engine.v.efxXDeleted = 31;
  pick(deck.efxList, 0);
  click(panel.remove);
  EXPECT_EQ(deck.efxList.count(), 1);
  EXPECT_EQ(deck.efxDeleted, 0);
  EXPECT_EQ(takeBoxes(),
            Texts{"more then 30 deleted effects in memory\nplease Save and Reload effects !"});
}

TEST_P(EffectLists, AfterAFirstWarningEveryPressOfARemoveButtonWarns) {
  engine.v.efxXDeleted = 31;
  for (int press = 0; press < 2; ++press) {
    click(panel.remove);
    click(plugin.matrixForm.removeX);
    EXPECT_EQ(takeBoxes().size(), 2U);
  }
}

TEST_P(EffectLists, RemovingNeedsTheMarkOfSelection) {
  add(2);
  pick(deck.efxList, 1);
  deck.efxList.unselectAll();
  click(panel.remove);
  EXPECT_EQ(deck.efxList.count(), 3);
}

TEST_P(EffectLists, RemovingTheFirstRowSelectsTheNewFirst) {
  add(2);
  pick(deck.efxList, 0);
  click(panel.remove);
  EXPECT_EQ(slots(deck.efxList), (Texts{"1", "2"}));
  EXPECT_EQ(deck.efxList.selected(), 0);
  EXPECT_EQ(deck.sel, 1);
  EXPECT_EQ(deck.efxCount, 2);
  EXPECT_EQ(deck.efxDeleted, 1);
}

TEST_P(EffectLists, RemovingRowFiveSelectsRowFour) {
  add(5);
  pick(deck.efxList, 4);
  click(panel.remove);
  EXPECT_EQ(deck.efxList.selected(), 3);
  EXPECT_EQ(deck.sel, 3);
}

TEST_P(EffectLists, RemovingStartsTheNextEffectOnlyIfItsTypeDiffers) {
  add(1);
  deck.efx[0].type = kColor;
  pick(deck.efxList, 1);
  choose(deck.type, kGradient);
  click(panel.remove);
  EXPECT_EQ(deck.type.index(), kColor);
  EXPECT_EQ(deck.frame.at(0, 0), colorParts(deck.efx[0].color1));
  add(1);
  pick(deck.efxList, 1);
  deck.frame.fill({9, 9, 9});
  click(panel.remove);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{9, 9, 9}));
}

TEST_F(AllLists, ThirtyOneRemovalsOverAllListsBringTheWarningOnThe31st) {
  for (int i = 0; i < 31; ++i) {
    click(plugin.matrixForm.panelA.add);
    click(plugin.matrixForm.panelB.add);
    click(plugin.matrixForm.addX);
  }
  const auto removeOne = [&](int i) {
    if (i % 3 == 0) {
      pick(v.A.efxList, 1);
      click(plugin.matrixForm.panelA.remove);
    } else if (i % 3 == 1) {
      pick(v.B.efxList, 1);
      click(plugin.matrixForm.panelB.remove);
    } else {
      pick(master.efxXList, 1);
      click(plugin.matrixForm.removeX);
    }
  };
  for (int i = 0; i < 30; ++i) removeOne(i);
  EXPECT_EQ(takeBoxes(), Texts{});
  const int rows = v.A.efxList.count();
  removeOne(30);
  EXPECT_EQ(takeBoxes().size(), 1U);
  EXPECT_EQ(v.A.efxList.count(), rows - 1);
}

TEST_P(EffectLists, MovingExchangesTextsAndLeavesRecordsInTheirSlots) {
  add(2);
  for (int slot = 0; slot < 3; ++slot) {
    deck.efxList.setCell(slot, 0, "effect " + std::to_string(slot));
  }
  pick(deck.efxList, 1);
  click(panel.up);
  EXPECT_EQ(slots(deck.efxList), (Texts{"1", "0", "2"}));
  EXPECT_EQ(texts(deck.efxList), (Texts{"effect 1", "effect 0", "effect 2"}));
  EXPECT_EQ(deck.efxList.selected(), 0);
  EXPECT_EQ(deck.sel, 1);
  click(panel.down);
  click(panel.down);
  EXPECT_EQ(slots(deck.efxList), (Texts{"0", "2", "1"}));
}

TEST_P(EffectLists, UpOnTheFirstAndDownOnTheLastRowDoNothing) {
  add(2);
  pick(deck.efxList, 0);
  click(panel.up);
  EXPECT_EQ(slots(deck.efxList), (Texts{"0", "1", "2"}));
  pick(deck.efxList, 2);
  click(panel.down);
  EXPECT_EQ(slots(deck.efxList), (Texts{"0", "1", "2"}));
}

TEST_P(EffectLists, MovingNeedsTheMarkOfSelection) {
  add(1);
  pick(deck.efxList, 1);
  deck.efxList.unselectAll();
  click(panel.up);
  EXPECT_EQ(slots(deck.efxList), (Texts{"0", "1"}));
}

TEST_P(EffectLists, ClearingBlanksTheDeckAndKeepsTheRowAndItsName) {
  choose(deck.type, kFire);
  deck.efxEdited[0] = true;
  deck.efx[0].name = "flames";
  deck.timer2.enable();
  click(panel.clear);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
  EXPECT_FALSE(deck.efxEdited[0]);
  EXPECT_EQ(deck.efx[0].type, kColor);
  EXPECT_EQ(deck.efx[0].color1, deck.isB() ? rgb(0, 0, 255) : rgb(255, 0, 0));
  EXPECT_EQ(deck.efx[0].name, "flames");
  EXPECT_EQ(deck.frame.at(11, 11), (Rgb{0, 0, 0}));
  EXPECT_EQ(deck.efxList.count(), 1);
}

TEST_P(EffectLists, PastePassesARecordToTheOtherDeckAndStartsIt) {
  choose(deck.type, kGradient);
  deck.efx[0].name = "ramp";
  click(panel.copyMem);
  DeckPanel& there = deck.isB() ? plugin.matrixForm.panelA : plugin.matrixForm.panelB;
  click(there.pasteMem);
  EXPECT_EQ(other.efx[0].name, "ramp");
  EXPECT_EQ(other.efx[0].type, kGradient);
  EXPECT_EQ(other.efx[0].direction, 7);
  EXPECT_TRUE(other.efxEdited[0]);
  EXPECT_EQ(texts(other.efxList), Texts{"ramp"});
  EXPECT_EQ(other.frame.at(11, 0), (Rgb{255, 255, 0}));
}

TEST_P(EffectLists, PasteWithNothingCopiedWritesAnEmptyColorEffect) {
  click(panel.pasteMem);
  EXPECT_EQ(deck.efx[0].name, "");
  EXPECT_EQ(deck.efx[0].type, kColor);
  EXPECT_EQ(deck.frame.at(0, 0), (Rgb{0, 0, 0}));
}

TEST_P(EffectLists, PasteLeavesTheFieldsOfOtherTypes) {
  deck.efx[0].tickerText = "stays";
  click(panel.pasteMem);
  EXPECT_EQ(deck.efx[0].tickerText, "stays");
}

TEST_P(EffectLists, APictureCopiedBeforeTheGridChangedIsPastedInTheGridsSize) {
  choose(deck.type, kPaint);
  const Color corner = deck.effect().paintPixels.at(4, 3);
  click(panel.copyMem);
  resize(5, 4);
  click(panel.pasteMem);
  EXPECT_EQ(deck.efx[0].paintPixels.cols(), 5);
  EXPECT_EQ(deck.efx[0].paintPixels.rows(), 4);
  EXPECT_EQ(deck.efx[0].paintPixels.at(4, 3), corner);
}

TEST_P(EffectLists, OnlyTheRightDeckMarksTheSourceOfACopyAsEdited) {
  click(panel.copyMem);
  EXPECT_EQ(static_cast<bool>(deck.efxEdited[0]), deck.isB());
}

TEST_P(EffectLists, OnlyTheRightDeckKeepsABackupForCancel) {
  deck.efx[0].name = "kept";
  click(panel.edit);
  EXPECT_EQ(deck.efxBackup.name, deck.isB() ? "kept" : "");
}

TEST_P(EffectLists, EditingCommitsOpenDialogsAndOpensTheOneOfTheType) {
  click(panel.edit);
  EXPECT_TRUE(plugin.window<MxColorForm>().visible());
  type(plugin.window<MxColorForm>().myName, "typed");
  click(panel.edit);
  EXPECT_EQ(deck.efx[0].name, "typed");
  EXPECT_TRUE(deck.efxEdited[0]);
  EXPECT_TRUE(plugin.window<MxColorForm>().visible());
  EXPECT_EQ(v.editDeck, deck.isB() ? 1 : 0);
}

TEST_P(EffectLists, TheBackupForCancelIsTakenBeforeOpenDialogsAreCommitted) {
  click(panel.edit);
  type(plugin.window<MxColorForm>().myName, "typed");
  click(panel.edit);
  EXPECT_EQ(deck.effect().name, "typed");
  EXPECT_EQ(deck.efxBackup.name, deck.isB() ? "new effect" : "");
}

TEST_P(EffectLists, AnOpenPaintDialogIsNotCommitted) {
  choose(deck.type, kPaint);
  click(panel.edit);
  type(plugin.window<MxPaintForm>().myName, "typed");
  choose(deck.type, kColor);
  deck.efxEdited[0] = false;
  click(panel.edit);
  EXPECT_TRUE(plugin.window<MxPaintForm>().visible());
  EXPECT_EQ(deck.effect().name, "new effect");
  EXPECT_FALSE(deck.efxEdited[0]);
}

TEST_P(EffectLists, ADoubleClickEdits) {
  event([&] { deck.efxList.doubleClick(0); });
  EXPECT_TRUE(plugin.window<MxColorForm>().visible());
}

TEST_P(EffectLists, SelectingStopsBothTimersAndReadsTheSlotOfTheRow) {
  add(1);
  deck.timer1.enable();
  deck.timer2.enable();
  pick(deck.efxList, 1);
  EXPECT_EQ(deck.sel, 1);
  EXPECT_FALSE(deck.timer1.enabled());
  EXPECT_FALSE(deck.timer2.enabled());
}

TEST_P(EffectLists, SelectingARowOfAnotherTypeRunsTheTypeHandlerToo) {
  add(1);
  deck.efx[1].type = kGradient;
  deck.efx[1].direction = 7;
  plugin.matrixForm.active.setValue(1);
  takeCalls();
  pick(deck.efxList, 1);
  const std::vector<std::string> calls = takeCalls();
  EXPECT_EQ(std::count(calls.begin(), calls.end(), "UserInteraction"), 2);
  pick(deck.efxList, 1);
  EXPECT_EQ(takeCalls(), Texts{"UserInteraction"});
}

TEST_P(EffectLists, OnlyTheLeftEditMakesRoomForAllTimes) {
  choose(deck.type, kColorChange);
  deck.efx[0].colorCount = 3;
  deck.efx[0].colors = {1, 2, 3, 0};
  deck.efx[0].itemTimes = {1.0, 2.0, 3.0};  // as no way through the windows leaves it
  click(panel.edit);
  EXPECT_EQ(deck.efx[0].itemTimes.size(), deck.isB() ? 3U : 4U);
}

TEST_P(EffectLists, ASlotNumberBeyond16BitsIsAnOverflowAndAddsNoRow) {
  deck.efxDeleted = 32766;
  deck.efx.clear();
  click(panel.add);
  EXPECT_EQ(takeFailure(), kOverflow);
  EXPECT_EQ(deck.efxList.count(), 1);
  EXPECT_EQ(deck.efxCount, 1);
}

TEST_F(AllLists, TheSumOfTheDeletedCountersIsOf16Bits) {
  v.efxADeleted = 32000;
  v.efxBDeleted = 700;
  v.efxXDeleted = 67;
  click(plugin.matrixForm.removeX);
  EXPECT_EQ(takeFailure(), 0);
  EXPECT_EQ(takeBoxes().size(), 1U);
  v.efxXDeleted = 68;
  click(plugin.matrixForm.removeX);
  EXPECT_EQ(takeFailure(), kOverflow);
}

TEST_P(EffectLists, CopyingAPictureThatLacksCellsFails) {
  choose(deck.type, kPaint);
  deck.effect().paintPixels.redim(12, 11);
  click(panel.copyMem);  // the spare row is there to be read
  EXPECT_EQ(takeFailure(), 0);
  deck.effect().paintPixels.redim(12, 10);
  click(panel.copyMem);
  EXPECT_EQ(takeFailure(), kSubscript);
  EXPECT_EQ(v.efxClipboard.paintPixels.rows(), 12);
}

}  // namespace
}  // namespace korvane
