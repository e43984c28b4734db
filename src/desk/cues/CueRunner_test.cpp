// Cues one after the other: by hand, by time, by beats, by the end of a fade.

#include <set>

#include "desk/cues/TestShow.h"

namespace korvane {
namespace {

class Cues : public TestShow {};

TEST_F(Cues, GoPressesTheRowsOfTheCueAndCutsOrFades) {
  take({cut(Side::B, "Moon"), fade(Side::A, "Rain", "quick")});
  run.list.cues[1].master = 40;
  EXPECT_EQ(run.cues.next(), 0);
  go();
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(run.cues.next(), 1);
  EXPECT_EQ(seen(), "Moon");
  EXPECT_EQ(grandMaster, 100) << "the cue leaves it";
  go();
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_EQ(master.efxXList.cell(master.efxXList.current(), 0), "quick");
  EXPECT_EQ(grandMaster, 40);
  advance(1200);
  EXPECT_EQ(seen(), "Rain");
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(run.cues.next(), -1) << "the list has an end";
  go();
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(Cues, GoTwiceWithinTheGuardIsOnceAndTheGuardCanBeChanged) {
  take({cut(Side::A, "Fire"), cut(Side::A, "Sea"), cut(Side::A, "Rain")});
  go();
  advance(99);
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 0);
  advance(1);
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 1);
  run.list.guard = 0;
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 2);
}

TEST_F(Cues, ACueEndsAfterSecondsAndTheTimeThatIsLeftCountsDown) {
  take({lasting(cut(Side::A, "Sea"), 2.5), cut(Side::B, "Star")});
  go();
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 2.5);
  advance(1000);
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 1.5);
  advance(1499);
  EXPECT_EQ(run.cues.on(), 0);
  advance(1);
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(seen(), "Star");
  EXPECT_LT(run.cues.remaining(), 0) << "by hand";
}

TEST_F(Cues, ACueEndsAfterBeatsFromWhereverTheyCome) {
  take({cut(Side::A, "Sea"), cut(Side::B, "Star")});
  run.list.cues[0].end = Cue::End::Beats;
  run.list.cues[0].after = 4;
  go();
  run.beat();
  run.beat();
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 2);
  run.tempo.setBpm(120);
  advance(999);
  EXPECT_EQ(run.cues.on(), 0);
  advance(1);
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(Cues, ACueEndsWhenItsFadeIsDone) {
  take({fade(Side::B, "Star", "quick"), cut(Side::A, "Rain")});
  run.list.cues[0].end = Cue::End::FadeDone;
  go();
  advance(1050);  // ten steps of 100 ms, and the one that ends the fade
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_NEAR(run.cues.remaining(), 0.1, 0.1);
  advance(100);
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(Cues, AFadeThatAPersonBreaksOffIsDone) {
  take({fade(Side::B, "Star", "slow"), cut(Side::A, "Rain")});
  run.list.cues[0].end = Cue::End::FadeDone;
  go();
  advance(1000);
  pick(master.efxXList, 1);
  advance(20);
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(Cues, AFadeTowardsTheDeckThatIsSeenAlreadyIsDoneAtOnce) {
  take({fade(Side::A, "Sea", "slow"), cut(Side::B, "Moon")});
  run.list.cues[0].end = Cue::End::FadeDone;
  go();
  EXPECT_FALSE(v.fadeRunning);
  advance(20);
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(Cues, ACueThatIsAddedBehindTheLastWaitsForGo) {
  take({lasting(cut(Side::A, "Fire"), 1)});
  go();
  advance(5000);
  run.list.cues.push_back(cut(Side::B, "Moon"));
  run.cues.inserted(1);
  advance(5000);
  EXPECT_EQ(run.cues.on(), 0) << "it is still to be edited";
  EXPECT_EQ(run.cues.next(), 1);
  go();
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(Cues, NextIsChosenApartFromWhatIsOn) {
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain")});
  go();
  command("cueNext", 3);
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(run.cues.next(), 2);
  go();
  EXPECT_EQ(run.cues.on(), 2);
}

TEST_F(Cues, AnEffectThatIsSeenGoesOnAndAHiddenOneBeginsAnew) {
  int pressed = 0;
  v.A.efxList.beforeClick = [&](int) { ++pressed; };
  take({cut(Side::A, "Sea"), cut(Side::A, "Sea"), cut(Side::B, "Moon"), cut(Side::A, "Sea")});
  go();
  EXPECT_EQ(pressed, 1);
  go();
  EXPECT_EQ(pressed, 1) << "it is on and seen";
  go();
  go();
  EXPECT_EQ(pressed, 2) << "it was hidden";
}

TEST_F(Cues, RowsFollowWhenTheyAreRenamedOrMoved) {
  take({cut(Side::A, "Rain")});
  rename(v.A, 2, "Hail");
  pick(v.A.efxList, 2);
  click(plugin.matrixForm.panelA.up);
  click(plugin.matrixForm.panelA.up);
  pick(v.A.efxList, 1);
  run.followNames();
  EXPECT_EQ(run.list.cues[0].row(ShowList::Left).name, "Hail");
  go();
  EXPECT_EQ(v.A.efxList.current(), 0);
  EXPECT_EQ(seen(), "Hail");
}

TEST_F(Cues, ACueThatLostItsEffectIsPassedOver) {
  take({cut(Side::A, "Fire"), cut(Side::A, "Sea"), cut(Side::B, "Moon")});
  pick(v.A.efxList, 1);
  click(plugin.matrixForm.panelA.remove);
  EXPECT_FALSE(run.cues.playable(1));
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left).name, "Sea") << "it says what is gone";
  go();
  EXPECT_EQ(run.cues.next(), 2);
  go();
  EXPECT_EQ(seen(), "Moon");
  command("cueJump", 2);
  EXPECT_EQ(run.cues.on(), 2);
  command("cueBack");
  EXPECT_EQ(run.cues.on(), 0);
}

TEST_F(Cues, ANewEffectDoesNotTakeThePlaceOfARemovedOne) {
  take({cut(Side::A, "Rain")});
  pick(v.A.efxList, 2);
  click(plugin.matrixForm.panelA.remove);
  click(plugin.matrixForm.panelA.add);
  EXPECT_FALSE(run.cues.playable(0));
}

TEST_F(Cues, ALostFadeIsALossForACueThatFadesAlone) {
  take({fade(Side::B, "Star", "wipe"), cut(Side::A, "Rain")});
  run.list.cues[1].row(ShowList::Fades) = ref(ShowList::Fades, "wipe");
  pick(master.efxXList, 2);
  click(plugin.matrixForm.removeX);
  EXPECT_FALSE(run.cues.playable(0));
  EXPECT_TRUE(run.cues.playable(1));
}

TEST_F(Cues, RowsOfALoadedShowAreFoundByTheirNames) {
  take({cut(Side::A, "Sea"), cut(Side::A, "Rain"), cut(Side::B, "Star")});
  for (const int row : {0, 1}) rename(v.A, row, row == 0 ? "Rain" : "Fire");
  rename(v.A, 2, "Wind");
  run.findRows();
  EXPECT_EQ(run.list.cues[0].row(ShowList::Left).slot, RowRef::kGone);
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left).slot, 0);
  EXPECT_EQ(run.list.cues[2].row(ShowList::Right).slot, 2);
}

TEST_F(Cues, RecordMakesACueOfWhatIsOn) {
  pick(v.A.efxList, 1);
  pick(v.B.efxList, 2);
  pick(master.efxXList, 1);
  click(plugin.matrixForm.fadeB);
  grandMaster = 70;
  command("cueRecord");
  ASSERT_EQ(run.list.count(), 1);
  const Cue& cue = run.list.cues[0];
  EXPECT_EQ(cue.name, "Star");
  EXPECT_EQ(cue.row(ShowList::Left), ref(ShowList::Left, "Sea"));
  EXPECT_EQ(cue.row(ShowList::Right), ref(ShowList::Right, "Star"));
  EXPECT_EQ(cue.row(ShowList::Fades), ref(ShowList::Fades, "quick"));
  EXPECT_EQ(cue.move, Cue::Move::FadeRight);
  EXPECT_EQ(cue.master, 70);
  pick(v.A.efxList, 0);
  click(plugin.matrixForm.fadeA);
  grandMaster = 100;
  go();
  advance(2000);
  EXPECT_EQ(seen(), "Star");
  EXPECT_EQ(v.A.efxList.cell(v.A.efxList.current(), 0), "Sea");
  EXPECT_EQ(grandMaster, 70);
}

TEST_F(Cues, RandomOrderHasEachCueOnceARoundAndNoneTwiceInARow) {
  std::vector<Cue> cues;
  for (int i = 0; i < 7; ++i) cues.push_back(cut(Side::A, "Sea"));
  run.list.random = run.list.loop = true;
  take(cues);
  int last = -1;
  for (int round = 0; round < 20; ++round) {
    std::set<int> seenCues;
    for (int i = 0; i < 7; ++i) {
      go();
      EXPECT_NE(run.cues.on(), last);
      last = run.cues.on();
      seenCues.insert(last);
    }
    EXPECT_EQ(seenCues.size(), 7U) << "round " << round;
  }
}

TEST_F(Cues, ARandomListWithoutALoopEndsAfterARound) {
  run.list.random = true;
  take({cut(Side::A, "Fire"), cut(Side::A, "Sea"), cut(Side::A, "Rain")});
  std::vector<int> order;
  for (int i = 0; i < 3; ++i) {
    go();
    order.push_back(run.cues.on());
  }
  EXPECT_EQ(run.cues.next(), -1);
  command("cueBack");
  EXPECT_EQ(run.cues.on(), order[1]);
  command("cueBack");
  EXPECT_EQ(run.cues.on(), order[0]);
}

TEST_F(Cues, EditingTheListKeepsWhatIsOn) {
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain"), cut(Side::B, "Star")});
  command("cueJump", 2);
  std::swap(run.list.cues[0], run.list.cues[1]);
  run.cues.exchanged(0, 1);
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(run.cues.next(), 1);
  run.list.cues.erase(run.list.cues.begin() + 1);
  run.cues.removed(1);
  EXPECT_EQ(run.cues.next(), 1);
  run.list.cues.erase(run.list.cues.begin());
  run.cues.removed(0);
  EXPECT_EQ(run.cues.on(), -1);
  EXPECT_EQ(run.cues.next(), 0) << "Go goes on behind what was removed";
  go();
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(Cues, ALoopOfCuesWithoutAFadeStillLetsTimePass) {
  run.list.loop = true;
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon")});
  for (Cue& cue : run.list.cues) cue.end = Cue::End::FadeDone;
  go();
  advance(100);
  EXPECT_EQ(run.cues.on(), 1) << "each has been on for 20 ms";
}

TEST_F(Cues, AFailureOnTheStageDoesNotEndTheRun) {
  take({lasting(cut(Side::A, "Sea"), 1), cut(Side::B, "Star")});
  v.A.efxList.beforeClick = [](int) { throw Failure(kSubscript, "no picture"); };
  advance(100);
  EXPECT_FALSE(command("cueGo"));
  advance(1000);
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(seen(), "Star");
}

TEST_F(Cues, APositionGoesOnInAnotherRun) {
  run.list.loop = run.list.random = true;
  std::vector<Cue> cues;
  for (int i = 0; i < 9; ++i) cues.push_back(lasting(cut(Side::A, "Sea"), 1 + i * 0.25));
  take(cues);
  go();
  advance(12345);
  ShowRun other(engine.timers, stage);
  other.list = run.list;
  other.cues.goOnFrom(run.cues.position());
  for (int i = 0; i < 40; ++i) {
    EXPECT_EQ(other.cues.on(), run.cues.on());
    EXPECT_EQ(other.cues.next(), run.cues.next());
    advance(777);
  }
}

}  // namespace
}  // namespace korvane
