// Shows that run by themselves: automatic play, the tempo, commands, catching up, a long night.

#include <cmath>
#include <map>
#include <set>

#include "desk/cues/Rehearsal.h"
#include "desk/cues/TestShow.h"

namespace korvane {
namespace {

class ShowRuns : public TestShow {
 protected:
  std::string left() { return v.A.efxList.cell(v.A.efxList.current(), 0); }
  std::string right() { return v.B.efxList.cell(v.B.efxList.current(), 0); }
  std::string fadeName() { return master.efxXList.cell(master.efxXList.current(), 0); }
};

TEST_F(ShowRuns, AutomaticPlayLetsTheHiddenDeckTakeTheNextEffectAndTheNextFadeBringsItUp) {
  run.automatic.set({.every = 10});
  command("autoPlay");
  std::string log;
  for (int i = 0; i < 7; ++i) {
    advance(9999);
    log += seen() + " ";
    advance(1);
    log += fadeName() + " ";
  }
  EXPECT_EQ(log, "Fire quick Moon wipe Sea slow Star quick Rain wipe Sun slow Fire quick ");
}

TEST_F(ShowRuns, AutomaticPlayGoesByBeatsToo) {
  run.automatic.set({.every = 4, .unit = AutoPlaySettings::Unit::Beats});
  command("autoPlay");
  for (int i = 0; i < 3; ++i) run.beat();
  EXPECT_DOUBLE_EQ(run.automatic.remaining(), 1);
  EXPECT_FALSE(v.fadeRunning);
  run.beat();
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_EQ(right(), "Moon");
}

TEST_F(ShowRuns, AutomaticPlayWaitsForAFadeThatIsLongerThanItsTime) {
  nameFade(0, "slow", "20");
  nameFade(1, "quick", "20");
  nameFade(2, "wipe", "20");
  pick(master.efxXList, 0);
  run.automatic.set({.every = 5});
  command("autoPlay");
  advance(5000 + 19999);
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_EQ(right(), "Moon");
  advance(1000);
  EXPECT_EQ(left(), "Sea") << "the next change, at once";
}

TEST_F(ShowRuns, RandomAutomaticPlayTakesAnotherEffectEachTime) {
  run.automatic.set({.every = 10, .random = true});
  command("autoPlay");
  std::map<std::string, int> count;
  advance(9000);
  for (int i = 0; i < 60; ++i) {
    const std::string before[] = {left(), right()};
    const bool leftSeen = stage.seen() == Side::A;
    advance(10000);
    EXPECT_NE(leftSeen ? right() : left(), before[leftSeen ? 1 : 0]);
    ++count[leftSeen ? right() : left()];
  }
  EXPECT_EQ(count.size(), 6U) << "each effect has its turn";
}

TEST_F(ShowRuns, CuesAndAutomaticPlayTakeTurns) {
  take({cut(Side::A, "Sea"), cut(Side::B, "Star")});
  for (Cue& cue : run.list.cues) cue.end = Cue::End::Seconds;
  go();
  command("autoPlay");
  EXPECT_TRUE(run.cues.paused());
  advance(100000);
  EXPECT_EQ(run.cues.on(), 0);
  go();
  EXPECT_FALSE(run.automatic.on());
  EXPECT_EQ(run.cues.on(), 1);
}

TEST_F(ShowRuns, TapsSetTheTempoAndAPauseBeginsAnew) {
  int beats = 0;
  run.tempo.onBeat = [&beats] { ++beats; };
  command("tap");
  EXPECT_EQ(run.tempo.bpm(), 0);
  for (int i = 0; i < 4; ++i) {
    advance(500);
    command("tap");
  }
  EXPECT_DOUBLE_EQ(run.tempo.bpm(), 120);
  EXPECT_EQ(beats, 5) << "a tap is the beat that was due";
  beats = 0;
  advance(60000);
  EXPECT_EQ(beats, 120);
  command("tap");
  advance(1000);
  command("tap");
  EXPECT_DOUBLE_EQ(run.tempo.bpm(), 60);
}

TEST_F(ShowRuns, ATempoOfFractionsOfMillisecondsDoesNotDrift) {
  int beats = 0;
  run.tempo.onBeat = [&beats] { ++beats; };
  run.tempo.setBpm(128);  // 468.75 ms
  advance(3600 * 1000);
  EXPECT_EQ(beats, 128 * 60);
}

TEST_F(ShowRuns, EveryCommandHasANameACaptionAndWordsOfItsOwn) {
  std::set<std::string> names, captions, keys;
  for (const ShowCommand& one : showCommands()) {
    EXPECT_EQ(showCommand(one.name), &one);
    EXPECT_TRUE(names.insert(one.name).second) << one.name;
    EXPECT_TRUE(captions.insert(one.caption).second) << one.caption;
    EXPECT_NE(std::string(one.toolTip), "");
    if (*one.key != '\0') {
      EXPECT_TRUE(keys.insert(one.key).second) << one.key;
    }
  }
  EXPECT_FALSE(runCommand(run, "cueStopp"));
}

// What should be on when, as a person would reckon it with a pencil: a plain list of moments.
struct Moment {
  std::int64_t from;
  int cue;
};

TEST_F(ShowRuns, AnHourOfAHundredCuesIsOnAsAPlainModelSays) {
  Random random;
  random.seed(7);
  const auto number = [&random](int below) {
    return static_cast<int>(random.next() * static_cast<float>(below));
  };
  const std::vector<std::string> lefts = {"Fire", "Sea", "Rain"}, rights = {"Sun", "Moon", "Star"};
  const std::vector<std::string> fades = {"slow", "quick", "wipe"};
  const std::int64_t fadeTimes[] = {51 * 100, 11 * 100, 4 * 666};  // steps and the one that ends
  std::vector<Cue> cues;
  std::vector<std::int64_t> lengths;
  std::vector<std::string> seenAt;
  bool left = true;
  for (int i = 0; i < 100; ++i) {
    left = !left;
    const Side side = left ? Side::A : Side::B;
    const std::string effect = (left ? lefts : rights)[static_cast<std::size_t>(number(3))];
    const auto with = static_cast<std::size_t>(number(3));
    const int kind = number(4);
    Cue cue = kind == 0 ? cut(side, effect) : fade(side, effect, fades[with]);
    cue.end = Cue::End::Seconds;
    cue.after = 6 + number(500) / 10.0;
    std::int64_t length = std::llround(cue.after * 1000);
    if (kind == 1) {
      cue.end = Cue::End::FadeDone;
      length = (fadeTimes[with] + 19) / 20 * 20;  // it is looked at each 20 ms
    }
    cues.push_back(cue);
    lengths.push_back(length);
    seenAt.push_back(effect);
  }
  run.list.loop = true;
  take(cues);
  advance(100);
  const std::int64_t start = engine.timers.now();
  command("cueGo");
  std::vector<Moment> model;
  std::int64_t at = start;
  for (int i = 0; at < start + 3600 * 1000; i = (i + 1) % 100) {
    model.push_back({at, i});
    at += lengths[static_cast<std::size_t>(i)];
  }
  EXPECT_GT(model.size(), 100U) << "more than one round";
  std::size_t now = 0;
  int settled = 0;
  for (std::int64_t time = start; time < start + 3600 * 1000; time += 250) {
    advance(time - engine.timers.now());
    while (now + 1 < model.size() && model[now + 1].from <= time) ++now;
    ASSERT_EQ(run.cues.on(), model[now].cue) << time;
    if (v.fadeRunning) continue;
    ++settled;
    ASSERT_EQ(seen(), seenAt[static_cast<std::size_t>(model[now].cue)]) << time;
  }
  EXPECT_GT(settled, 10000) << "of 14400 looks";
}

// The list of cues as a person thinks of it: which one is on, since when, and whether time counts.
struct PlainRun {
  const std::vector<Cue>& cues;
  std::int64_t now = 0, begin = 0, held = 0, lastGo = -1000;
  int on = -1;
  bool loop = false, paused = false;

  int count() const { return static_cast<int>(cues.size()); }
  std::int64_t length() const {
    const Cue& cue = cues[static_cast<std::size_t>(on)];
    return cue.end == Cue::End::Seconds ? std::llround(cue.after * 1000) : -1;
  }
  int next() const { return on + 1 < count() ? on + 1 : loop ? 0 : -1; }
  void start(int cue, std::int64_t at) {
    if (cue < 0) return;
    on = cue;
    begin = at;
    paused = false;
  }
  void pass(std::int64_t time) {
    while (on >= 0 && !paused && length() >= 0 && begin + length() <= time && next() >= 0)
      start(next(), begin + length());
    now = time;
  }
  void go() {
    if (now - lastGo < 100) return;
    lastGo = now;
    start(next(), now);
  }
  void back() {
    if (on >= 0) start(on > 0 ? on - 1 : loop ? count() - 1 : -1, now);
  }
  void pause() {
    if (on < 0) return;
    if (!paused) held = now - begin;
    if (paused) begin = now - held;
    paused = !paused;
    look();
  }
  void setLoop(bool looped) {
    loop = looped;
    look();
  }
  // A cue that was over for long gives its follower its whole time.
  void look() {
    const bool over = on >= 0 && !paused && length() >= 0 && begin + length() <= now;
    if (over && next() >= 0) start(next(), now - begin - length() > 1000 ? now : begin + length());
  }
};

TEST_F(ShowRuns, AnHourOfARandomOperatorIsOnAsAPlainModelSays) {
  Random random;
  random.seed(21);
  const auto number = [&random](int below) {
    return static_cast<int>(random.next() * static_cast<float>(below));
  };
  std::vector<Cue> cues;
  for (int i = 0; i < 12; ++i) {
    cues.push_back(i % 2 == 0 ? cut(Side::A, i % 3 == 0 ? "Fire" : "Sea")
                              : cut(Side::B, i % 3 == 0 ? "Moon" : "Star"));
    cues.back().end = i % 4 == 3 ? Cue::End::ByHand : Cue::End::Seconds;
    cues.back().after = 1 + number(60) / 10.0;
  }
  cues.back().end = Cue::End::Seconds;
  take(cues);
  advance(1000);
  PlainRun model{cues, engine.timers.now()};
  const std::int64_t end = model.now + 3600 * 1000;
  int changes = 0;
  while (model.now < end) {
    const int was = model.on;
    const std::int64_t time = model.now + 1 + (number(3) == 0 ? number(150) : number(9000));
    advance(time - engine.timers.now());
    model.pass(time);
    ASSERT_EQ(run.cues.on(), model.on) << time;
    switch (number(8)) {
      case 0:
        command("cueBack");
        model.back();
        break;
      case 1:
        command("cuePause");
        model.pause();
        break;
      case 2: {
        const int cue = number(model.count());
        command("cueJump", cue + 1);
        model.start(cue, model.now);
        break;
      }
      case 3:
        event([&] {
          run.list.loop = number(2) == 0;
          run.cues.reordered();
        });
        model.setLoop(run.list.loop);
        break;
      case 4:
      case 5:
        command("cueGo");
        model.go();
        break;
      default:
        move(master.faderM, number(201) - 100);
    }
    ASSERT_EQ(run.cues.on(), model.on) << time;
    ASSERT_EQ(run.cues.next(), model.next()) << time;
    ASSERT_EQ(run.cues.paused(), model.paused) << time;
    changes += was == model.on ? 0 : 1;
  }
  EXPECT_GT(changes, 500);
}

TEST_F(ShowRuns, CatchingUpFindsWhatARunFromTheBeginningHasOn) {
  Random random;
  random.seed(11);
  std::vector<Cue> cues;
  for (int i = 0; i < 40; ++i) {
    Cue cue = i % 2 == 0 ? fade(Side::B, i % 3 == 0 ? "Moon" : "Star", i % 5 == 0 ? "slow" : "wipe")
                         : fade(Side::A, i % 3 == 0 ? "Sea" : "Rain", "quick");
    cue.end = i % 4 == 1 ? Cue::End::FadeDone : Cue::End::Seconds;
    if (i % 7 == 3) {
      cue.end = Cue::End::Beats;
      cue.after = 8;
    }
    if (i % 6 == 0) cue.master = 50 + i;
    cues.push_back(cue);
  }
  for (const bool inRandomOrder : {false, true}) {
    run.list.loop = true;
    run.list.random = inRandomOrder;
    run.tempo.setBpm(100);
    take(cues);
    ShowRun late(engine.timers, stage);
    late.tempo.setBpm(100);
    late.list = run.list;
    advance(100);
    const CuePosition fresh = run.cues.position();
    late.cues.goOnFrom(fresh);
    const std::int64_t start = engine.timers.now();
    run.tempo.setBpm(100);
    command("cueGo");
    int inFades = 0;
    for (int i = 0; i < 200; ++i) {
      advance(1000 + static_cast<std::int64_t>(random.next() * 20000));
      const std::string on = seen();
      const int was = run.cues.on(), next = run.cues.next(), level = grandMaster;
      Rehearsal rehearsal(stage);
      ShowRun again(rehearsal.timers, rehearsal);
      again.list = run.list;
      again.tempo.setBpm(100);
      again.cues.goOnFrom(fresh);
      rehearsal.cutTo(Side::A);
      again.cues.go();
      rehearsal.timers.advanceTo(engine.timers.now() - start, [](const auto& tick) { tick(); });
      ASSERT_EQ(again.cues.on(), was) << i;
      ASSERT_EQ(again.cues.next(), next) << i;
      ASSERT_EQ(rehearsal.master(), level) << i;
      if (v.fadeRunning) {
        ++inFades;
        continue;
      }
      const ShowList list = listOf(rehearsal.seen());
      EXPECT_EQ(ref(list, on).slot, rehearsal.selected(list));
    }
    EXPECT_GT(inFades, 5);
    EXPECT_LT(inFades, 195);
    run.cues.stop();
    click(plugin.matrixForm.fadeA);
  }
}

TEST_F(ShowRuns, SwitchedOnLateTheStageIsBroughtToWhatShouldBeOn) {
  std::vector<Cue> cues = {cut(Side::A, "Sea"), fade(Side::B, "Star", "slow"),
                           cut(Side::A, "Rain")};
  for (Cue& cue : cues) {
    cue.end = Cue::End::Seconds;
    cue.after = 60;
  }
  cues[1].master = 30;
  take(cues);
  event([this] { run.catchUp(95'000, false); });
  EXPECT_EQ(run.cues.on(), 1);
  EXPECT_EQ(seen(), "Star");
  EXPECT_EQ(left(), "Sea");
  EXPECT_EQ(grandMaster, 30);
  EXPECT_DOUBLE_EQ(run.cues.remaining(), 25);
  advance(25'000);
  EXPECT_EQ(seen(), "Rain");
}

TEST_F(ShowRuns, AutomaticPlayCatchesUpAsWell) {
  run.automatic.set({.every = 10});
  event([this] { run.catchUp(35'000, true); });
  EXPECT_EQ(seen(), "Star");
  EXPECT_EQ(left(), "Sea");
  EXPECT_DOUBLE_EQ(run.automatic.remaining(), 5);
  advance(5'000 + 3'000);
  EXPECT_EQ(seen(), "Rain");
}

}  // namespace
}  // namespace korvane
