// Cues in a desk's project, and going on after a crash.

#include "desk/cues/CueSections.h"

#include "desk/cues/TestShow.h"

namespace korvane {
namespace {

class CueFiles : public TestShow {
 protected:
  void SetUp() override {
    TestShow::SetUp();
    for (Section& section : cueSections(run)) project.add(section);
    Cue first = fade(Side::B, "Star", "wipe");
    first.end = Cue::End::Beats;
    first.after = 16;
    first.master = 55;
    Cue second = cut(Side::A, "Rain");
    second.end = Cue::End::Seconds;
    second.after = 2.5;
    take({first, second, fade(Side::A, "Sea", "quick")});
    run.list.loop = true;
    run.list.guard = 250;
    run.automatic.set({.every = 8, .unit = AutoPlaySettings::Unit::Beats, .random = true});
    run.tempo.setBpm(99.5);
  }

  DeskProject project;
};

TEST_F(CueFiles, WhatIsWrittenIsReadAgain) {
  const std::string text = project.text();
  const CueList list = run.list;
  const AutoPlaySettings settings = run.automatic.settings();
  run.clear();
  EXPECT_EQ(project.read(text), std::vector<std::string>{});
  EXPECT_EQ(run.list, list);
  EXPECT_EQ(run.automatic.settings(), settings);
  EXPECT_EQ(run.tempo.bpm(), 99.5);
  EXPECT_EQ(run.cues.on(), -1);
  EXPECT_EQ(run.cues.next(), 0);
}

TEST_F(CueFiles, AProjectThatSaysNothingOfCuesHasNone) {
  EXPECT_EQ(project.read(R"({"version": 1})"), std::vector<std::string>{});
  EXPECT_EQ(run.list, CueList{});
  EXPECT_EQ(run.tempo.bpm(), 0);
}

TEST_F(CueFiles, ARowIsFoundByItsPlaceThenByItsName) {
  const std::string text = project.text();
  rename(v.A, 0, "Rain");  // there are two of the name now
  EXPECT_EQ(project.read(text).size(), 0U);
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left).slot, 2);
  rename(v.A, 2, "Hail");
  project.read(text);
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left).slot, 0);
  rename(v.A, 0, "Snow");
  project.read(text);
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left), (RowRef{RowRef::kGone, "Rain"}));
  EXPECT_FALSE(run.cues.playable(1));
}

TEST_F(CueFiles, WhatIsWrongIsNamedAndItsNeighboursAreTaken) {
  const auto faults = project.read(R"({"version": 1, "cues": {"guard": -3, "loop": true, "list": [
    {"name": "one", "move": "sideways", "master": 300, "end": "seconds", "after": 4},
    {"name": 2, "left": {"row": 1, "name": "Sea"}, "end": "beats", "after": 0.5}]},
    "automatic": {"every": "often", "random": true}, "tempo": {"bpm": 5}})");
  std::string all;
  for (const std::string& fault : faults) all += fault.substr(0, fault.find(' ')) + " ";
  for (const char* path :
       {"/cues/guard", "/cues/list/0/move", "/cues/list/0/master", "/cues/list/1/name",
        "/cues/list/1/after", "/automatic/every", "/tempo/bpm"})
    EXPECT_NE(all.find(path), std::string::npos) << path << " is not in " << all;
  EXPECT_EQ(faults.size(), 7U);
  ASSERT_EQ(run.list.count(), 2);
  EXPECT_TRUE(run.list.loop);
  EXPECT_EQ(run.list.cues[0].name, "one");
  EXPECT_EQ(run.list.cues[0].after, 4);
  EXPECT_EQ(run.list.cues[1].row(ShowList::Left).slot, 1);
  EXPECT_TRUE(run.automatic.settings().random);
}

TEST_F(CueFiles, ARunThatWasKilledAtAnyMomentGoesOnAtItsCue) {
  Random random;
  random.seed(3);
  for (Cue& cue : run.list.cues) {
    cue.end = Cue::End::Seconds;
    cue.after = 3 + random.next() * 9;
  }
  go();
  for (int kill = 0; kill < 100; ++kill) {
    advance(static_cast<std::int64_t>(random.next() * 20000));
    const std::string kept = toJson(run).dump();
    const int on = run.cues.on(), next = run.cues.next(), level = grandMaster;
    const double left = run.cues.remaining();
    const std::string was = v.fadeRunning ? "" : seen();
    // Another program begins with other rows and an idle list.
    event([this] {
      run.cues.stop();
      stage.press(ShowList::Left, 0);
      stage.press(ShowList::Right, 0);
      stage.cutTo(Side::A);
      stage.setMaster(100);
    });
    std::vector<std::string> faults;
    const Json json = Json::parse(kept);
    event([&] { EXPECT_TRUE(goOnFrom(run, Member(&json, "", faults))); });
    EXPECT_EQ(faults, std::vector<std::string>{});
    ASSERT_EQ(run.cues.on(), on);
    EXPECT_EQ(run.cues.next(), next);
    EXPECT_NEAR(run.cues.remaining(), left, 0.001);
    EXPECT_EQ(grandMaster, level);
    if (!was.empty()) {
      EXPECT_EQ(seen(), was);
    }
  }
}

TEST_F(CueFiles, AutomaticPlayGoesOnAsWell) {
  run.automatic.set({.every = 30});
  command("autoPlay");
  advance(41'000);
  const Json kept = toJson(run);
  event([this] { run.startAutoPlay(false); });
  std::vector<std::string> faults;
  event([&] { goOnFrom(run, Member(&kept, "", faults)); });
  EXPECT_TRUE(run.automatic.on());
  EXPECT_DOUBLE_EQ(run.automatic.remaining(), 19);
  EXPECT_FALSE(goOnFrom(run, Member(nullptr, "", faults)));
}

}  // namespace
}  // namespace korvane
