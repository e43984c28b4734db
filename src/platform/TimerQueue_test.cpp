#include "platform/TimerQueue.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace korvane {
namespace {

using Ticks = std::vector<std::string>;

class TimerQueueTest : public testing::Test {
 protected:
  TimerQueueTest() {
    for (Timer* timer : {&a, &b, &c}) {
      timer->onTimer = [this, timer] {
        ticks.push_back(timer->name() + " " + std::to_string(queue.now()));
      };
    }
  }
  void start(Timer& timer, std::int32_t interval) {
    timer.setInterval(interval);
    timer.enable();
  }
  Ticks advance(std::int64_t until) {
    ticks.clear();
    queue.advanceTo(until, gate);
    return ticks;
  }
  Ticks runDue(std::int64_t now) {
    ticks.clear();
    queue.runDue(now, gate);
    return ticks;
  }

  TimerQueue queue;
  TimerQueue::Gate gate = [](const std::function<void()>& event) { event(); };
  Timer a{queue, "a"}, b{queue, "b"}, c{queue, "c"};
  Ticks ticks;
};

TEST_F(TimerQueueTest, TimersStartDisabledWithASecond) {
  EXPECT_FALSE(a.enabled());
  EXPECT_EQ(a.interval(), 1000);
  EXPECT_EQ(queue.nextDue(), TimerQueue::kNever);
  EXPECT_EQ(advance(5000), Ticks{});
  EXPECT_EQ(queue.now(), 5000);
}

TEST_F(TimerQueueTest, TheIntervalCountsFromTheMomentOfEnabling) {
  advance(70);
  start(a, 50);
  EXPECT_EQ(queue.nextDue(), 120);
  EXPECT_EQ(advance(119), Ticks{});
  EXPECT_EQ(advance(120), Ticks{"a 120"});
}

TEST_F(TimerQueueTest, ARunningTimerIsPeriodic) {
  start(a, 50);
  EXPECT_EQ(advance(160), (Ticks{"a 50", "a 100", "a 150"}));
  EXPECT_EQ(queue.nextDue(), 200);
}

TEST_F(TimerQueueTest, EnablingARunningTimerChangesNothing) {
  start(a, 50);
  advance(30);
  a.enable();
  a.setEnabled(true);
  EXPECT_EQ(advance(50), Ticks{"a 50"});
}

TEST_F(TimerQueueTest, DisablingAndEnablingCountsAnew) {
  start(a, 50);
  advance(30);
  a.setEnabled(false);
  EXPECT_EQ(queue.nextDue(), TimerQueue::kNever);
  a.setEnabled(true);
  EXPECT_EQ(advance(100), Ticks{"a 80"});
}

TEST_F(TimerQueueTest, SettingTheIntervalOfARunningTimerCountsAnew) {
  start(a, 50);
  advance(30);
  a.setInterval(100);
  EXPECT_EQ(advance(240), (Ticks{"a 130", "a 230"}));
  a.setInterval(100);  // the same one, too
  EXPECT_EQ(queue.nextDue(), 340);
}

TEST_F(TimerQueueTest, SettingTheIntervalOfAStoppedTimerDoesNotStartIt) {
  a.setInterval(10);
  EXPECT_EQ(advance(100), Ticks{});
  a.enable();
  EXPECT_EQ(advance(110), Ticks{"a 110"});
}

TEST_F(TimerQueueTest, AnIntervalOfZeroNeverFires) {
  start(a, 0);
  EXPECT_TRUE(a.enabled());
  EXPECT_EQ(queue.nextDue(), TimerQueue::kNever);
  EXPECT_EQ(advance(100000), Ticks{});
  EXPECT_EQ(runDue(200000), Ticks{});
  a.setInterval(10);
  EXPECT_EQ(advance(200010), Ticks{"a 200010"});
  a.setInterval(0);
  EXPECT_EQ(advance(300000), Ticks{});
}

TEST_F(TimerQueueTest, ANegativeIntervalNeverFires) {
  start(a, -50);
  EXPECT_EQ(advance(1000), Ticks{});
  EXPECT_EQ(runDue(2000), Ticks{});
}

TEST_F(TimerQueueTest, TicksComeInTheOrderOfTheirTimes) {
  start(a, 70);
  start(b, 30);
  EXPECT_EQ(advance(100), (Ticks{"b 30", "b 60", "a 70", "b 90"}));
}

TEST_F(TimerQueueTest, TicksOfTheSameTimeComeInTheOrderOfEnabling) {
  start(c, 50);
  start(a, 50);
  start(b, 25);
  EXPECT_EQ(advance(50), (Ticks{"b 25", "c 50", "a 50", "b 50"}));
}

TEST_F(TimerQueueTest, ATimerThatIsEnabledAgainGoesBehindTheOthers) {
  start(a, 50);
  start(b, 50);
  a.disable();
  a.enable();
  EXPECT_EQ(advance(50), (Ticks{"b 50", "a 50"}));
}

TEST_F(TimerQueueTest, ATickThatStopsItsTimerAndStartsItAgainCountsFromThere) {
  a.onTimer = [this] {
    a.disable();
    ticks.push_back("a " + std::to_string(queue.now()));
    a.setInterval(a.interval() + 10);
    a.enable();
  };
  start(a, 50);
  EXPECT_EQ(advance(200), (Ticks{"a 50", "a 110", "a 180"}));
}

TEST_F(TimerQueueTest, ATickThatOnlyStopsItsTimerIsTheLast) {
  a.onTimer = [this] {
    ticks.emplace_back("a");
    a.disable();
  };
  start(a, 50);
  EXPECT_EQ(advance(500), Ticks{"a"});
}

TEST_F(TimerQueueTest, ATickCanStopAnotherThatIsDueAtTheSameTime) {
  a.onTimer = [this] { b.disable(); };
  start(a, 50);
  start(b, 50);
  EXPECT_EQ(advance(60), Ticks{});
  b.enable();
  EXPECT_EQ(runDue(200), Ticks{});
}

TEST_F(TimerQueueTest, ATickCanStartAnother) {
  a.onTimer = [this] {
    a.disable();
    start(b, 10);
  };
  start(a, 50);
  EXPECT_EQ(advance(75), (Ticks{"b 60", "b 70"}));
}

TEST_F(TimerQueueTest, ALateCallerGetsEachTimerOnce) {
  start(a, 10);
  start(b, 30);
  EXPECT_EQ(runDue(95), (Ticks{"a 95", "b 95"}));
  EXPECT_EQ(queue.now(), 95);
  EXPECT_EQ(runDue(96), Ticks{});
  EXPECT_EQ(queue.nextDue(), 105);  // what was missed is not made up for
}

TEST_F(TimerQueueTest, ALateCallerGetsThemInTheOrderOfTheirTimes) {
  start(a, 40);
  start(b, 30);
  EXPECT_EQ(runDue(100), (Ticks{"b 100", "a 100"}));
}

TEST_F(TimerQueueTest, ACallerThatIsALittleLateKeepsTheBeat) {
  start(a, 50);
  EXPECT_EQ(runDue(53), Ticks{"a 53"});
  EXPECT_EQ(queue.nextDue(), 100);
}

TEST_F(TimerQueueTest, ALateTicksOwnTimerCountsFromTheEndOfTheTick) {
  a.onTimer = [this] {
    a.disable();
    a.enable();
  };
  start(a, 50);
  runDue(170);
  EXPECT_EQ(queue.nextDue(), 220);
}

TEST_F(TimerQueueTest, ATimerStartedByALateTickWaitsItsWholeInterval) {
  a.onTimer = [this] {
    a.disable();
    start(b, 10);
  };
  start(a, 50);
  EXPECT_EQ(runDue(170), Ticks{});
  EXPECT_EQ(queue.nextDue(), 180);
}

TEST_F(TimerQueueTest, TimeNeverGoesBack) {
  advance(100);
  start(a, 50);
  EXPECT_EQ(runDue(20), Ticks{});
  EXPECT_EQ(advance(30), Ticks{});
  EXPECT_EQ(queue.now(), 100);
  EXPECT_EQ(advance(150), Ticks{"a 150"});
}

TEST_F(TimerQueueTest, ATickMayRunTheQueueItself) {
  // A message box in a tick goes on serving timers until it is answered.
  a.onTimer = [this] {
    a.disable();
    ticks.push_back("a " + std::to_string(queue.now()));
    queue.runDue(queue.now() + 100, gate);
    a.enable();
  };
  start(a, 50);
  start(b, 60);
  EXPECT_EQ(runDue(60), (Ticks{"a 60", "b 160"}));
  EXPECT_EQ(queue.nextDue(), 210);
}

TEST_F(TimerQueueTest, EveryTickRunsThroughTheGate) {
  int passed = 0;
  gate = [&](const std::function<void()>&) { ++passed; };
  start(a, 50);
  EXPECT_EQ(advance(100), Ticks{});
  EXPECT_EQ(runDue(150), Ticks{});
  EXPECT_EQ(passed, 3);
}

TEST_F(TimerQueueTest, AGateThatLetsAFailureOutLeavesTheQueueInOrder) {
  start(a, 50);
  gate = [](const std::function<void()>&) { throw 1; };
  EXPECT_THROW(queue.advanceTo(60, gate), int);
  gate = [](const std::function<void()>& event) { event(); };
  EXPECT_EQ(queue.now(), 50);
  EXPECT_EQ(advance(100), Ticks{"a 100"});
}

TEST_F(TimerQueueTest, ATimerWithoutAHandlerIsHarmless) {
  Timer bare(queue, "bare");
  start(bare, 10);
  EXPECT_EQ(advance(30), Ticks{});
  EXPECT_EQ(queue.timers().back(), &bare);
}

// A queue with a clock that the test moves, as a person's minutes and slow ticks move it.
class ClockedTimers : public TimerQueueTest {
 protected:
  ClockedTimers() {
    queue.clock = [this] { return time; };
  }
  std::int64_t time = 0;
};

TEST_F(ClockedTimers, AMinuteInAFileDialogIsNotTakenOffWhatItLoaded) {
  queue.runDue(0, gate);
  time = 60'000;  // within the event that opened the dialog
  start(a, 3000);
  EXPECT_EQ(queue.nextDue(), 63'000);
  time = 70'000;
  a.setInterval(500);
  EXPECT_EQ(queue.nextDue(), 70'500);
}

TEST_F(ClockedTimers, ASlowTickIsFollowedByAWholePause) {
  for (const bool restarts : {false, true}) {
    a.disable();
    time = 1000;
    queue.runDue(time, gate);
    start(a, 50);
    a.onTimer = [this, restarts] {
      if (restarts) a.disable();
      time += 80;
      a.setEnabled(true);
    };
    const std::int64_t begun = queue.now();
    time = std::max(time, begun + 50);
    queue.runDue(time, gate);
    EXPECT_EQ(queue.nextDue(), time + 50) << restarts;
  }
}

TEST_F(ClockedTimers, ASlowTickDoesNotBringAnotherTimersTickTwice) {
  start(a, 50);
  start(b, 60);
  a.onTimer = [this] {
    time += 500;
    ticks.emplace_back("a");
  };
  time = 60;
  EXPECT_EQ(runDue(60), (Ticks{"a", "b 560"}));
  EXPECT_EQ(queue.nextDue(), 610);
}

TEST_F(ClockedTimers, WhatBecomesDueDuringASlowTickWaitsForTheNextPass) {
  start(a, 50);
  start(b, 70);
  a.onTimer = [this] { time += 500; };
  time = 50;
  EXPECT_EQ(runDue(50), Ticks{});
  EXPECT_EQ(runDue(550), Ticks{"b 550"});
}

TEST_F(ClockedTimers, WithinAnAdvanceTimeStandsStillHoweverLongItTakes) {
  a.onTimer = [this] {
    a.disable();
    time += 7;
    ticks.push_back("a " + std::to_string(queue.now()));
    a.enable();
  };
  start(a, 50);
  EXPECT_EQ(advance(160), (Ticks{"a 50", "a 100", "a 150"}));
  gate = [](const std::function<void()>&) { throw 1; };
  EXPECT_THROW(queue.advanceTo(200, gate), int);
  time = 1000;
  start(b, 10);
  EXPECT_EQ(b.enabled(), true);
  EXPECT_EQ(queue.now(), 1000) << "the clock counts again, even after a failure";
}

TEST_F(ClockedTimers, WhoWaitsIsToldWhenTheNextTimerIsKnown) {
  std::int64_t due = 0;
  queue.onCount = [&] { due = queue.nextDue(); };
  time = 300;
  start(a, 50);
  EXPECT_EQ(due, 350);
}

}  // namespace
}  // namespace korvane
