#pragma once

#include <string>
#include <vector>

#include "desk/cues/PlugInStage.h"
#include "desk/cues/ShowRun.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// A plug-in with rows that have names, and what lets it run by itself.
class TestShow : public TestPlugin {
 protected:
  void SetUp() override {
    ASSERT_TRUE(open());
    resize(3, 2);
    takeBoxes();
    stage.getMaster = [this] { return grandMaster; };
    stage.putMaster = [this](int percent) { grandMaster = percent; };
    name(v.A, plugin.matrixForm.panelA, {"Fire", "Sea", "Rain"});
    name(v.B, plugin.matrixForm.panelB, {"Sun", "Moon", "Star"});
    while (master.efxXList.count() < 3) click(plugin.matrixForm.addX);
    nameFade(0, "slow", "5");
    nameFade(1, "quick", "1");
    nameFade(2, "wipe", "2");
    choose(master.fadeType, kScrollLeft);
    pick(v.A.efxList, 0);
    pick(v.B.efxList, 0);
    pick(master.efxXList, 0);
    click(plugin.matrixForm.fadeA);
  }

  void name(Deck& deck, DeckPanel& panel, const std::vector<std::string>& names) {
    while (std::cmp_less(deck.efxList.count(), names.size())) click(panel.add);
    for (std::size_t i = 0; i < names.size(); ++i) rename(deck, static_cast<int>(i), names[i]);
  }
  void rename(Deck& deck, int row, const std::string& text) {
    deck.efxList.setCell(row, 0, text);
    deck.efx.at(std::stoul(deck.efxList.cell(row, 1))).name = text;
  }
  void nameFade(int row, const char* text, const char* seconds) {
    pick(master.efxXList, row);
    type(master.fadeName, text);
    type(master.fadeTimeText, seconds);
  }
  /// The row of this name as a cue holds it.
  RowRef ref(ShowList list, const std::string& text) {
    for (const ShowStage::Row& row : stage.rows(list)) {
      if (row.name == text) return {row.slot, row.name};
    }
    ADD_FAILURE() << "no row " << text;
    return {};
  }
  /// A cue of a deck's effect that is cut to.
  Cue cut(Side side, const std::string& effect) {
    Cue cue{.name = effect};
    cue.row(listOf(side)) = ref(listOf(side), effect);
    cue.move = side == Side::A ? Cue::Move::CutLeft : Cue::Move::CutRight;
    return cue;
  }
  Cue fade(Side side, const std::string& effect, const std::string& fade) {
    Cue cue = cut(side, effect);
    cue.move = side == Side::A ? Cue::Move::FadeLeft : Cue::Move::FadeRight;
    cue.row(ShowList::Fades) = ref(ShowList::Fades, fade);
    return cue;
  }
  static Cue lasting(Cue cue, double seconds) {
    cue.end = Cue::End::Seconds;
    cue.after = seconds;
    return cue;
  }
  void take(std::vector<Cue> cues) {
    run.list.cues = std::move(cues);
    run.cues.stop();
  }
  bool command(const char* text, int argument = 0) {
    return event([&] { EXPECT_TRUE(runCommand(run, text, argument)); });
  }
  /// Go, long after the one before.
  void go() {
    advance(run.list.guard);
    command("cueGo");
  }
  /// What is seen: the deck's effect, or both while the fader is on its way.
  std::string seen() {
    std::string left = v.A.efxList.cell(v.A.efxList.current(), 0);
    std::string right = v.B.efxList.cell(v.B.efxList.current(), 0);
    const int fader = master.faderM.value();
    if (fader == -100) return left;
    return fader == 100 ? right : left + "+" + right;
  }

  int grandMaster = 100;
  PlugInStage stage{plugin};
  ShowRun run{engine.timers, stage};
};

}  // namespace korvane
