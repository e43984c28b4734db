#include "state/Engine.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "testing/EngineTest.h"

namespace korvane {
namespace {

TEST(Boolean, IsSixteenBitsWithMinusOneForTrue) {
  static_assert(sizeof(Boolean) == 2);
  EXPECT_EQ(Boolean().raw(), 0);
  EXPECT_EQ(Boolean(true).raw(), -1);
  EXPECT_EQ(Boolean(false).raw(), 0);
  EXPECT_TRUE(Boolean(true));
  EXPECT_FALSE(Boolean(false));
}

TEST(FadeTypes, HaveTheirNumbersAndNames) {
  EXPECT_STREQ(kFadeTypeNames[kCrossFade], "CrossFade");
  EXPECT_STREQ(kFadeTypeNames[4], "Flow Down");
  EXPECT_STREQ(kFadeTypeNames[5], "Fill up");
  EXPECT_STREQ(kFadeTypeNames[10], "Add");
  EXPECT_EQ(kFadeTypes, 11);
}

TEST_F(EngineTest, StartsWithItsDefaults) {
  EXPECT_EQ(v.masterValue, 0.5);
  EXPECT_EQ(v.fadeTypeNow, 0);
  EXPECT_EQ(v.fadeTime, 3);
  EXPECT_EQ(v.fadeSteps, 30);
  EXPECT_EQ(v.fadeStep, 0);
  EXPECT_EQ(v.fadeDirection, 1);
  EXPECT_EQ(v.A.colorIndex, -1);
  EXPECT_EQ(v.B.colorIndex, -1);
  EXPECT_FALSE(v.fadeRunning || v.outputActive || v.simActive || v.simOpen);
  EXPECT_FALSE(v.matrixConfigured || v.quickConfigured || v.configChanged);
}

TEST_F(EngineTest, ADecksControlsAndTimersCarryItsLetter) {
  EXPECT_EQ(v.A.timer1.name(), "timerA1");
  EXPECT_EQ(v.A.timer2.name(), "timerA2");
  EXPECT_EQ(v.B.timer1.name(), "timerB1");
  EXPECT_EQ(v.B.timer2.name(), "timerB2");
  EXPECT_EQ(v.A.efxList.name(), "efxAList");
  EXPECT_EQ(v.B.efxList.name(), "efxBList");
  EXPECT_EQ(v.A.type.name(), "typeA");
  EXPECT_EQ(v.B.picture.name(), "PB_B");
  EXPECT_EQ(v.A.mini.name(), "miniA");
  EXPECT_EQ(v.B.image.name(), "imageB");
  EXPECT_EQ(v.A.named("add"), "addA");
  EXPECT_EQ(v.B.named("add"), "addB");
  EXPECT_FALSE(v.A.isB());
  EXPECT_TRUE(v.B.isB());
}

TEST_F(EngineTest, ThereAreSixTimersAndAllAreStopped) {
  std::vector<std::string> names;
  for (const Timer* timer : engine.timers.timers()) {
    names.push_back(timer->name());
    EXPECT_FALSE(timer->enabled());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"timerA1", "timerA2", "timerB1", "timerB2", "timerM",
                                             "timerM2"}));
}

TEST_F(EngineTest, ADeckPlaysTheRecordInTheSelectedSlot) {
  for (Deck* deck : {&v.A, &v.B}) {
    EXPECT_EQ(failureOf([&] { deck->effect(); }), kSubscript);
    deck->efx.resize(2);
    deck->sel = 1;
    EXPECT_EQ(&deck->effect(), &deck->efx[1]);
    deck->sel = 2;
    EXPECT_EQ(failureOf([&] { deck->effect(); }), kSubscript);
    deck->sel = -1;
    EXPECT_EQ(failureOf([&] { deck->effect(); }), kSubscript);
  }
}

TEST_F(EngineTest, AnyEditDeckButZeroMeansDeckB) {
  v.editDeck = 0;
  EXPECT_EQ(&engine.editedDeck(), &v.A);
  for (const std::int16_t other : {std::int16_t{1}, std::int16_t{-1}, std::int16_t{7}}) {
    v.editDeck = other;
    EXPECT_EQ(&engine.editedDeck(), &v.B);
  }
}

TEST_F(EngineTest, WithoutADeskThereIsNoHost) {
  EXPECT_EQ(&engine.host(), &host);
  v.host = nullptr;
  EXPECT_EQ(failureOf([&] { engine.host(); }), kObjectNotSet);
}

TEST_F(EngineTest, TheTimeOfDaySeedsTheRandomNumbers) {
  const auto numberAt = [this](std::int64_t milliseconds) {
    platform.time = milliseconds;
    engine.randomize();
    return engine.random.next();
  };
  const float early = numberAt(1000);
  EXPECT_NE(numberAt(2000), early);
  EXPECT_EQ(numberAt(1000), early);
}

TEST_F(EngineTest, TheStartSeedsTheRandomNumbersToo) {
  platform.time = 5000;
  Engine one(platform);
  Engine same(platform);
  EXPECT_EQ(one.random.next(), same.random.next());
  platform.time = 6000;
  Engine later(platform);
  EXPECT_NE(one.random.next(), later.random.next());
}

TEST_F(EngineTest, TwoEnginesShareNothing) {
  FakeHost otherHost;
  Engine other(platform);
  redim(2, 2);
  other.v.host = &otherHost;
  v.masterValue = 1;
  engine.timers.advanceTo(100, [](const std::function<void()>& event) { event(); });
  EXPECT_EQ(other.v.matrixCols, 0);
  EXPECT_EQ(other.v.masterValue, 0.5);
  EXPECT_EQ(other.timers.now(), 0);
  EXPECT_TRUE(other.v.frameA.empty());
}

}  // namespace
}  // namespace korvane
