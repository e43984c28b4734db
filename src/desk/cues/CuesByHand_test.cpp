// What a person does while cues run: Go and Back during a fade, Pause, a jump, the fader moved,
// Loop turned on.

#include "desk/cues/TestShow.h"

namespace korvane {
namespace {

class CuesByHand : public TestShow {
 protected:
  int betweenTheDecks() {
    const int fader = master.faderM.value();
    EXPECT_GT(fader, -100);
    EXPECT_LT(fader, 100);
    return fader;
  }
  void expectFadeToRainFrom(int fader) {
    EXPECT_TRUE(v.fadeRunning);
    EXPECT_EQ(v.fadeDirection, -1);
    advance(100);
    EXPECT_NEAR(master.faderM.value(), fader, 12);
    advance(6000);
    EXPECT_EQ(seen(), "Rain");
  }
  void turnLoopOn() {
    event([this] {
      run.list.loop = true;
      run.cues.reordered();
    });
  }
};

TEST_F(CuesByHand, GoDuringAFadeBreaksItOffAndFadesFromThere) {
  take({fade(Side::B, "Star", "slow"), fade(Side::A, "Rain", "slow")});
  go();
  advance(2500);
  const int fader = betweenTheDecks();
  go();
  EXPECT_EQ(run.cues.on(), 1);
  expectFadeToRainFrom(fader);
}

TEST_F(CuesByHand, GoGoesOnFromWhatIsOnAfterAJumpAndAfterTheFaderWasMoved) {
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain"), cut(Side::B, "Star")});
  command("cueJump", 3);
  EXPECT_EQ(run.cues.on(), 2);
  move(master.faderM, 17);
  go();
  EXPECT_EQ(run.cues.on(), 3);
  EXPECT_EQ(seen(), "Star");
  command("cueJump", 9);
  command("cueJump", 0);
  EXPECT_EQ(run.cues.on(), 3) << "there is no such cue";
}

TEST_F(CuesByHand, BackGoesOneUpTheListAndALoopGoesRound) {
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain")});
  go();
  command("cueBack");
  EXPECT_EQ(run.cues.on(), 0) << "before the first there is none";
  run.list.loop = true;
  command("cueBack");
  EXPECT_EQ(run.cues.on(), 2);
  EXPECT_EQ(run.cues.next(), 0);
  go();
  EXPECT_EQ(run.cues.on(), 0);
}

TEST_F(CuesByHand, ALoopThatIsTurnedOnAfterTheLastCuesTimeGoesOnAtOnce) {
  take({cut(Side::A, "Fire"), lasting(cut(Side::B, "Moon"), 2)});
  command("cueJump", 2);
  advance(60'000);
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 0);
  turnLoopOn();
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(run.cues.next(), 1);
  EXPECT_EQ(seen(), "Fire");
}

TEST_F(CuesByHand, ALoopThatIsTurnedOnEarlierLeavesTheCueItsTime) {
  take({lasting(cut(Side::A, "Fire"), 3), lasting(cut(Side::B, "Moon"), 2)});
  command("cueJump", 2);
  advance(1500);
  turnLoopOn();
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 0.5);
  advance(499);
  EXPECT_EQ(run.cues.on(), 1);
  advance(1);
  EXPECT_EQ(run.cues.on(), 0);
}

TEST_F(CuesByHand, ALoopThatIsTurnedOnInAPauseGoesOnAfterIt) {
  take({cut(Side::A, "Fire"), lasting(cut(Side::B, "Moon"), 2)});
  command("cueJump", 2);
  advance(60'000);
  command("cuePause");
  turnLoopOn();
  advance(10'000);
  EXPECT_EQ(run.cues.on(), 1);
  command("cuePause");
  EXPECT_EQ(run.cues.on(), 0);
}

TEST_F(CuesByHand, ALoopGoesOnAfterTheLastFadeAndAtTheNextBeatToo) {
  for (const Cue::End end : {Cue::End::FadeDone, Cue::End::Beats}) {
    run.list.loop = false;
    take({cut(Side::A, "Fire"), fade(Side::B, "Moon", "quick")});
    run.list.cues[1].end = end;
    run.list.cues[1].after = 4;
    command("cueJump", 2);
    advance(5000);
    for (int i = 0; i < 9; ++i) run.beat();
    EXPECT_EQ(run.cues.on(), 1);
    turnLoopOn();
    run.beat();
    EXPECT_EQ(run.cues.on(), 0);
  }
}

TEST_F(CuesByHand, PauseHoldsTheTimeAndTheBeats) {
  take({lasting(cut(Side::A, "Sea"), 10), cut(Side::B, "Star")});
  go();
  advance(4000);
  command("cuePause");
  advance(60000);
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 6);
  command("cuePause");
  advance(5999);
  EXPECT_EQ(run.cues.on(), 0);
  advance(1);
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(CuesByHand, PauseDuringAFadeLetsTheFadeArriveAndHoldsTheTime) {
  take({lasting(fade(Side::B, "Star", "slow"), 10), cut(Side::A, "Rain")});
  go();
  advance(2000);
  command("cuePause");
  advance(60'000);
  EXPECT_EQ(seen(), "Star");
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 8);
  command("cuePause");
  advance(8000);
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(CuesByHand, ACueThatEndsWithItsFadeFollowsAfterThePause) {
  take({fade(Side::B, "Star", "slow"), cut(Side::A, "Rain")});
  run.list.cues[0].end = Cue::End::FadeDone;
  go();
  advance(2000);
  command("cuePause");
  advance(60'000);
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(seen(), "Star");
  command("cuePause");
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(CuesByHand, BackDuringAFadeFadesBackFromThere) {
  take({fade(Side::A, "Rain", "slow"), fade(Side::B, "Star", "slow")});
  go();
  advance(6000);
  go();
  advance(2500);
  const int fader = betweenTheDecks();
  command("cueBack");
  EXPECT_EQ(run.cues.on(), 0);
  EXPECT_EQ(run.cues.next(), 1);
  expectFadeToRainFrom(fader);
}

TEST_F(CuesByHand, BackAndGoFadeFromWhereTheFaderWasMovedTo) {
  take({fade(Side::A, "Rain", "slow"), fade(Side::B, "Star", "slow")});
  go();
  go();
  advance(6000);
  move(master.faderM, 40);
  command("cueBack");
  advance(100);
  EXPECT_NEAR(master.faderM.value(), 40, 12);
  advance(6000);
  EXPECT_EQ(seen(), "Rain");
  move(master.faderM, 100);
  go();
  EXPECT_FALSE(v.fadeRunning) << "it is there already";
  EXPECT_EQ(seen(), "Star");
  command("cueBack");
  EXPECT_TRUE(v.fadeRunning);
  advance(6000);
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(CuesByHand, AFaderMovedDuringAFadeDoesNotHoldUpTheCue) {
  take({fade(Side::B, "Star", "slow"), cut(Side::A, "Rain")});
  run.list.cues[0].end = Cue::End::FadeDone;
  go();
  advance(2500);
  move(master.faderM, -100);
  EXPECT_EQ(run.cues.on(), 0) << "the fade goes on";
  advance(2700);
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(CuesByHand, GoRightAfterAJumpOrBackCounts) {
  take({cut(Side::A, "Fire"), cut(Side::B, "Moon"), cut(Side::A, "Rain"), cut(Side::B, "Star")});
  go();
  command("cueJump", 3);
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 2) << "a second Go within 100 ms is none";
  advance(100);
  command("cueJump", 2);
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 2);
  command("cueBack");
  command("cueGo");
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(CuesByHand, GoEndsAPause) {
  take({lasting(cut(Side::A, "Sea"), 10), lasting(cut(Side::B, "Star"), 1), cut(Side::A, "Rain")});
  go();
  command("cuePause");
  go();
  EXPECT_FALSE(run.cues.paused());
  advance(1000);
  EXPECT_EQ(run.cues.on(), 2);
}

}  // namespace
}  // namespace korvane
