// The window of the cues, and their commands in the desk's menu.

#include <set>

#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

class CueWindow : public TestDesk {
 protected:
  CueWindow() {
    click(*desk.form.examples.at(0));
    click(desk.form.cues);
  }
  MenuItem& command(const std::string& name) {
    return dynamic_cast<MenuItem&>(*desk.form.find(name));
  }
  template <class Box>
  void set(Box& box, const std::string& text) {
    event([&] { box.setText(text); });
  }
  void choose(ListBox& box, int index) {
    event([&] { box.choose(index); });
  }
  std::string row(int index) {
    std::string text = form.list.row(index).text;
    for (const std::string& cell : form.list.row(index).sub) text += "|" + cell;
    return text;
  }
  /// Cues of the left deck's first effects, cut to, each for three seconds.
  void fill(int count) {
    for (int i = 0; i < count; ++i) {
      click(form.add);
      set(form.fields.name, "cue " + std::to_string(i));
      choose(form.fields.left, 1 + i % v.A.efxList.count());
      choose(form.fields.move, 3);
      choose(form.fields.end, 1);
      set(form.fields.after, "3");
    }
  }

  CuesForm& form = desk.cues.form;
  CueList& list = desk.cues.run.list;
};

TEST_F(CueWindow, OpensFromItsMenuAndSaysWhatToDo) {
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(form.now.look().caption, "No cue is on.");
  EXPECT_EQ(form.then.look().caption, "Record makes a cue of what is on.");
  EXPECT_FALSE(command("cueGo").look().enabled) << "space is free";
  EXPECT_EQ(command("cueGo").key(), "Space");
}

TEST_F(CueWindow, ACueIsMadeEditedAndPlayed) {
  const std::string effect = v.A.efxList.cell(1, 0);
  click(form.add);
  EXPECT_EQ(row(0), "next|1  new cue||||by hand");
  set(form.fields.name, "Opening");
  choose(form.fields.left, 2);
  choose(form.fields.move, 1);
  choose(form.fields.fade, 1);
  set(form.fields.master, "60");
  choose(form.fields.end, 1);
  set(form.fields.after, "12,5");
  EXPECT_EQ(row(0),
            "next|1  Opening|" + effect + "||fade left, " + v.efxX.at(0).name + "; 60 %|12.5 s");
  EXPECT_TRUE(command("cueGo").look().enabled);
  click(command("cueGo"));
  EXPECT_EQ(v.A.efxList.current(), 1);
  EXPECT_EQ(desk.form.grandMaster.value(), 60);
  EXPECT_EQ(form.list.row(0).text, "\u25b6 on");
  advance(3000);
  EXPECT_EQ(form.now.look().caption, "On: 1  Opening, 9.5 s");
  EXPECT_EQ(form.list.cell(0, 5), "9.5 s");
}

TEST_F(CueWindow, WhatIsOnStaysInTheMiddleApartFromTheSelection) {
  fill(6);
  event([this] { form.list.click(5, 1); });
  click(form.go);
  EXPECT_EQ(form.list.centered(), 0);
  EXPECT_EQ(form.list.selected(), 5);
  advance(3000);
  EXPECT_EQ(form.list.centered(), 1);
  EXPECT_EQ(form.list.selected(), 5);
  EXPECT_EQ(form.list.row(1).text, "\u25b6 on");
  EXPECT_EQ(form.list.row(2).text, "next");
  EXPECT_EQ(form.list.row(0).text, "");
  event([this] { form.list.doubleClick(4); });
  EXPECT_EQ(form.list.row(4).text, "\u25b6 on");
}

TEST_F(CueWindow, ARenamedEffectIsShownAndARemovedOneIsSaidToBeLost) {
  fill(3);
  event([this] {
    v.A.efxList.setCell(1, 0, "Other name");
    v.A.efx.at(1).name = "Other name";
  });
  EXPECT_EQ(form.list.cell(1, 2), "Other name");
  pick(v.A.efxList, 1);
  click(tool.panelA.remove);
  EXPECT_EQ(row(1), "lost|2  cue 1|lost: Other name||cut left|3 s");
  click(form.go);
  EXPECT_EQ(form.then.look().caption, "Next: 3  cue 2");
}

TEST_F(CueWindow, ATextThatIsNoNumberIsToldAndTakenBack) {
  fill(1);
  machine.boxes.clear();
  set(form.fields.after, "soon");
  ASSERT_EQ(machine.boxes.size(), 1U);
  EXPECT_EQ(machine.boxes[0], "A cue ends after 0.1 to 86400 seconds.");
  EXPECT_EQ(form.fields.after.text(), "3");
  set(form.fields.master, "101");
  EXPECT_EQ(form.fields.master.text(), "");
  set(form.bpm, "-5");
  EXPECT_EQ(form.bpm.text(), "0");
  EXPECT_EQ(machine.boxes.size(), 3U);
}

TEST_F(CueWindow, RowsAreMovedDuplicatedAndRemoved) {
  fill(3);
  event([this] { form.list.click(0, 1); });
  click(form.down);
  click(form.duplicate);
  std::string names;
  for (const Cue& cue : list.cues) names += cue.name + " ";
  EXPECT_EQ(names, "cue 1 cue 0 cue 0 cue 2 ");
  EXPECT_EQ(form.list.current(), 2);
  click(form.remove);
  EXPECT_EQ(list.count(), 3);
}

TEST_F(CueWindow, AutomaticPlayAndTheTempoAreSetInTheWindow) {
  set(form.every, "20");
  check(form.autoPlay);
  EXPECT_TRUE(command("autoPlay").lit());
  advance(5000);
  EXPECT_EQ(form.now.look().caption, "Automatic play: next effect in 0:15");
  const int before = v.B.efxList.current();
  advance(15000);
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_NE(v.B.efxList.current(), before);
  set(form.bpm, "120");
  EXPECT_EQ(desk.cues.run.tempo.bpm(), 120);
  choose(form.unit, 1);
  EXPECT_EQ(form.now.look().caption, "Automatic play: next effect in 20 beats");
  advance(2000);
  EXPECT_EQ(form.now.look().caption, "Automatic play: next effect in 16 beats");
}

TEST_F(CueWindow, AThousandCuesAreShownAndRun) {
  fill(1);
  list.cues.resize(1000, list.cues[0]);
  event([this] { form.refresh(); });
  EXPECT_EQ(form.list.count(), 1000);
  click(form.go);
  advance(3000 * 998 + 100);
  EXPECT_EQ(form.list.row(998).text, "\u25b6 on");
}

/// Undo of what was done in the window.
class UndoneCues : public CueWindow {
 protected:
  UndoneCues() { fill(5); }
  void act(const std::string& caption, const std::vector<int>& rows) {
    for (const ListView::Action& action : form.list.actions)
      if (action.caption == caption) event([&] { action.run(rows); });
  }
  void drop(std::vector<int> rows, int before) {
    event([&] { form.list.onDrop({form.list, std::move(rows), before, false}); });
  }
  /// Takes a step back, makes it again, and takes it back for good. The words of the step.
  std::string undoes(const CueList& before) {
    const CueList after = list;
    std::string words = desk.form.undo.look().caption;
    click(desk.form.undo);
    EXPECT_EQ(list, before) << words;
    click(desk.form.redo);
    EXPECT_EQ(list, after) << words;
    click(desk.form.undo);
    EXPECT_EQ(list, before) << words;
    EXPECT_EQ(form.list.count(), before.count());
    return words;
  }
};

TEST_F(UndoneCues, EachEditOfTheListIsAStepWithAName) {
  const CueList before = list;
  click(form.add);
  EXPECT_EQ(undoes(before), "Undo: added cue 'new cue'");
  click(command("cueRecord"));
  EXPECT_EQ(undoes(before), "Undo: added cue '" + v.A.efxList.cell(0, 0) + "'");
  act("Duplicate", {1, 2});
  EXPECT_EQ(undoes(before), "Undo: added 2 cues");
  act("Remove", {1});
  EXPECT_EQ(undoes(before), "Undo: removed cue 'cue 1'");
  act("Remove", {0, 2, 4});
  EXPECT_EQ(undoes(before), "Undo: removed 3 cues");
  drop({0, 1}, 4);
  EXPECT_EQ(undoes(before), "Undo: order of the cues");
  event([this] { form.list.click(3, 1); });
  set(form.fields.name, "Doors");
  EXPECT_EQ(undoes(before), "Undo: name of cue 'cue 3'");
  choose(form.fields.left, 1);
  EXPECT_EQ(undoes(before), "Undo: left effect of cue 'cue 3'");
  set(form.fields.after, "7");
  EXPECT_EQ(undoes(before), "Undo: end of cue 'cue 3'");
  check(form.loop);
  EXPECT_EQ(undoes(before), "Undo: options of the cues");
}

TEST_F(UndoneCues, WhatIsOnGoesOnAndGoGoesOnFromThere) {
  event([this] { desk.cues.run.cues.jump(2); });
  advance(1000);
  act("Remove", {0, 3});
  EXPECT_EQ(desk.cues.run.cues.on(), 1);
  EXPECT_EQ(desk.cues.run.cues.next(), 2);
  click(desk.form.undo);
  EXPECT_EQ(desk.cues.run.cues.on(), 2);
  EXPECT_EQ(desk.cues.run.cues.next(), 3) << "the one that came back";
  EXPECT_EQ(form.now.look().caption, "On: 3  cue 2, 2.0 s");
  drop({2}, 5);
  click(desk.form.undo);
  EXPECT_EQ(desk.cues.run.cues.on(), 2);
  advance(2000);
  EXPECT_EQ(desk.cues.run.cues.on(), 3);
}

TEST_F(UndoneCues, AnEndThatIsTakenBackCountsForTheCueThatIsOn) {
  event([this] { desk.cues.run.cues.jump(0); });
  event([this] { form.list.click(0, 1); });
  set(form.fields.after, "60");
  click(desk.form.undo);
  advance(3000);
  EXPECT_EQ(desk.cues.run.cues.on(), 1);
}

TEST_F(UndoneCues, InRandomOrderEachCueHasItsTurnOnceAfterARemovedOneIsBack) {
  check(form.random);
  event([this] { desk.cues.run.cues.go(); });
  const int on = desk.cues.run.cues.on();
  act("Remove", {on == 4 ? 3 : 4});
  click(desk.form.undo);
  std::set<int> seen = {desk.cues.run.cues.on()};
  EXPECT_EQ(*seen.begin(), on);
  for (int turn = 0; turn < 4; ++turn) {
    advance(1000);
    click(form.go);
    seen.insert(desk.cues.run.cues.on());
  }
  EXPECT_EQ(seen.size(), 5U);
}

TEST_F(UndoneCues, ARowThatComesBackIsFoundByItsCueAgain) {
  pick(v.A.efxList, 3);
  const CueList before = list;
  click(tool.panelA.remove);
  EXPECT_FALSE(desk.cues.run.cues.playable(3));
  EXPECT_EQ(undoes(before).rfind("Undo: removed '", 0), 0U);
  EXPECT_TRUE(desk.cues.run.cues.playable(3));
  pick(v.A.efxList, 0);
  event([this] { v.A.efxList.beginEdit(0, 0); });
  event([this] { v.A.efxList.endEdit("Lava"); });
  EXPECT_EQ(list.at(0).row(ShowList::Left).name, "Lava");
  click(desk.form.undo);
  EXPECT_EQ(list, before);
}

}  // namespace
}  // namespace korvane
