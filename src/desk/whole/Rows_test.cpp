// What a person does with rows of lists beside the buttons: dragging, several at once, names.

#include "desk/whole/TestDesk.h"

namespace korvane {
namespace {

using Names = std::vector<std::string>;

class Rows : public TestDesk {
 protected:
  Rows() {
    click(*desk.form.examples.at(0));
    names = namesOf(v.A.efxList);
  }
  static Names namesOf(const ListView& list) {
    Names all;
    for (const ListView::Row& row : list.rows()) all.push_back(row.text);
    return all;
  }
  void act(ListView& list, const std::string& caption, std::vector<int> rows) {
    for (const ListView::Action& action : list.actions)
      if (action.caption == caption) event([&] { action.run(rows); });
  }
  void drop(ListView& from, std::vector<int> rows, ListView& to, int before, bool copy = false) {
    ASSERT_TRUE(to.takesRowsOf(from));
    event([&] { to.onDrop({from, std::move(rows), before, copy}); });
  }
  /// How far the effect that plays has come, and where it plays.
  struct Playing {
    std::int16_t slot;
    std::string row;
    std::vector<Rgb> frame;
    bool operator==(const Playing&) const = default;
  };
  Playing playing(const Deck& deck) const {
    Playing now{deck.sel, deck.efxList.row(deck.efxList.current()).text, {}};
    for (int col = 0; col < v.matrixCols; ++col)
      for (int row = 0; row < v.matrixRows; ++row) now.frame.push_back(deck.frame.at(col, row));
    return now;
  }

  ListView& left = v.A.efxList;
  ListView& right = v.B.efxList;
  Names names;
};

TEST_F(Rows, ADraggedRowGoesWhereItIsDroppedAndWhatPlaysGoesOn) {
  pick(left, 2);
  advance(700);
  const Playing before = playing(v.A);
  drop(left, {0}, left, 3);
  EXPECT_EQ(left.cell(0, 0), names[1]);
  EXPECT_EQ(left.cell(1, 0), names[2]);
  EXPECT_EQ(left.cell(2, 0), names[0]);
  EXPECT_EQ(left.current(), 1);
  EXPECT_EQ(playing(v.A).slot, before.slot);
  EXPECT_EQ(playing(v.A), before);
  drop(left, {2, 4}, left, 0);
  drop(left, {0, 1}, left, left.count());
  EXPECT_EQ(left.count(), static_cast<int>(names.size()));
  EXPECT_EQ(playing(v.A), before);
}

TEST_F(Rows, SeveralRowsAreMovedTogetherInTheirOrder) {
  drop(left, {0, 1, 4}, left, 3);
  const Names now = namesOf(left);
  EXPECT_EQ(Names(now.begin(), now.begin() + 5),
            (Names{names[2], names[0], names[1], names[4], names[3]}));
}

TEST_F(Rows, ARowIsCopiedOrMovedToTheOtherDeckAsCopyAndPasteDoIt) {
  pick(right, 0);
  advance(700);
  const Playing before = playing(v.B);
  const Effect clipboard = v.efxClipboard;
  const int count = right.count();
  drop(left, {1}, right, 1, true);
  EXPECT_EQ(right.count(), count + 1);
  EXPECT_EQ(right.cell(1, 0), names[1]);
  EXPECT_EQ(left.count(), static_cast<int>(names.size()));
  const auto slot = static_cast<std::size_t>(std::stoi(right.cell(1, 1)));
  EXPECT_TRUE(v.B.efxEdited.at(slot));
  EXPECT_EQ(v.B.efx.at(slot).type, v.A.efx.at(1).type);
  EXPECT_EQ(playing(v.B), before);
  EXPECT_EQ(v.efxClipboard.name, clipboard.name);
  drop(left, {2}, right, 0);
  EXPECT_EQ(right.cell(0, 0), names[2]);
  EXPECT_EQ(left.cell(2, 0), names[3]);
  EXPECT_EQ(playing(v.B), before);
}

TEST_F(Rows, SeveralAreRemovedInOneStepThatUndoTakesBack) {
  pick(left, 1);
  advance(700);
  const Playing before = playing(v.A);
  const std::size_t steps = desk.history.steps();
  act(left, "Remove", {0, 2, 4});
  EXPECT_EQ(left.count(), static_cast<int>(names.size()) - 3);
  EXPECT_EQ(left.cell(0, 0), names[1]);
  EXPECT_EQ(left.cell(1, 0), names[3]);
  EXPECT_EQ(playing(v.A), before);
  EXPECT_EQ(desk.history.steps(), steps + 1);
  click(desk.form.undo);
  EXPECT_EQ(namesOf(left), names);
  EXPECT_EQ(playing(v.A).slot, before.slot);
}

TEST_F(Rows, UndoSaysWhatWasDoneWithTheRows) {
  const auto undoes = [this] {
    std::string caption = desk.form.undo.look().caption;
    click(desk.form.undo);
    EXPECT_EQ(namesOf(left), names);
    return caption;
  };
  const std::string first = "'" + names[0] + "'", second = "'" + names[1] + "'";
  act(left, "Remove", {1, 3, 4});
  EXPECT_EQ(undoes(), "Undo: removed 3 effects");
  act(left, "Remove", {1});
  EXPECT_EQ(undoes(), "Undo: removed " + second);
  act(left, "Duplicate", {1});
  EXPECT_EQ(undoes(), "Undo: copied " + second);
  act(left, "Duplicate", {1, 2});
  EXPECT_EQ(undoes(), "Undo: copied 2 effects");
  drop(left, {0}, left, 4);
  EXPECT_EQ(undoes(), "Undo: moved " + first);
  drop(left, {5}, left, 1);
  EXPECT_EQ(undoes(), "Undo: moved '" + names[5] + "'");
  drop(left, {0, 1, 2}, left, left.count());
  EXPECT_EQ(undoes(), "Undo: moved 3 effects");
  pick(left, 1);
  click(tool.panelA.up);
  EXPECT_EQ(undoes(), "Undo: exchanged " + second + " and " + first);
  drop(left, {1}, right, 2);
  EXPECT_EQ(undoes(), "Undo: moved " + second + " to the right list");
  drop(left, {1, 2}, right, 2);
  EXPECT_EQ(undoes(), "Undo: moved 2 effects to the right list");
  drop(left, {1, 2}, right, 2, true);
  EXPECT_EQ(undoes(), "Undo: copied 2 effects");
}

// A copy takes the fields of its kind alone, so a row may hold more than its copy.
TEST_F(Rows, UndoSaysWhatWasDraggedWhateverItsKind) {
  for (int row = 0; row < right.count(); ++row) {
    const std::string name = "'" + right.cell(row, 0) + "'";
    drop(right, {row}, left, 2);
    EXPECT_EQ(desk.form.undo.look().caption, "Undo: moved " + name + " to the left list");
    click(desk.form.undo);
    drop(right, {row}, left, 2, true);
    EXPECT_EQ(desk.form.undo.look().caption, "Undo: copied " + name);
    click(desk.form.undo);
  }
}

// What plays next begins as its row is gone.
TEST_F(Rows, ARowThatPlaysIsTakenBackByOneStepWhateverPlaysNext) {
  for (int row = 1; row < static_cast<int>(names.size()); ++row) {
    pick(left, row);
    advance(700);
    act(left, "Remove", {row});
    advance(5000);
    event([] {});
    const std::string& name = names[static_cast<std::size_t>(row)];
    EXPECT_EQ(desk.form.undo.look().caption, "Undo: removed '" + name + "'");
    click(desk.form.undo);
    ASSERT_EQ(namesOf(left), names) << name;
    advance(5000);
    event([] {});
    EXPECT_EQ(desk.form.redo.look().caption, "Redo: removed '" + name + "'");
  }
}

TEST_F(Rows, RemovingWhatPlaysSelectsTheRowAboveAndOneRowStays) {
  pick(left, 2);
  act(left, "Remove", {2});
  EXPECT_EQ(left.row(left.current()).text, names[1]);
  std::vector<int> all;
  for (int row = 0; row < left.count(); ++row) all.push_back(row);
  act(left, "Remove", all);
  EXPECT_EQ(left.count(), 1);
  EXPECT_EQ(v.A.efxCount, 1);
}

TEST_F(Rows, ADuplicateStandsBelowItsRow) {
  pick(left, 0);
  act(left, "Duplicate", {1});
  EXPECT_EQ(left.cell(1, 0), names[1]);
  EXPECT_EQ(left.cell(2, 0), names[1]);
  EXPECT_NE(left.cell(1, 1), left.cell(2, 1)) << "a record of its own";
  EXPECT_EQ(left.current(), 0);
}

TEST_F(Rows, ARowIsRenamedInPlaceAsItsDialogWouldDoIt) {
  pick(left, 1);
  event([this] { left.key(113); });
  ASSERT_TRUE(left.editing());
  EXPECT_EQ(left.textToEdit(1, 0), names[1]);
  event([this] { left.endEdit("Lava"); });
  EXPECT_EQ(left.cell(1, 0), "Lava");
  EXPECT_EQ(v.A.effect().name, "Lava");
  EXPECT_TRUE(v.A.efxEdited.at(static_cast<std::size_t>(v.A.sel)));
  click(tool.panelA.edit);
  act(left, "Rename", {1});
  event([this] { left.endEdit("Lake"); });
  EXPECT_EQ(v.A.effect().name, "Lake") << "the open dialog does not write its own name over it";
  EXPECT_EQ(left.cell(1, 0), "Lake");
}

TEST_F(Rows, WhatIsDraggedIsSavedAsItStands) {
  drop(left, {0}, left, 3);
  drop(left, {1}, right, 0, true);
  act(left, "Remove", {3});
  const Names before = namesOf(left), rightBefore = namesOf(right);
  machine.answers = {folder + "dragged.Korvane"};
  click(desk.form.saveAs);
  open(examples[1].path);
  open(folder + "dragged.Korvane");
  EXPECT_EQ(namesOf(left), before);
  EXPECT_EQ(namesOf(right), rightBefore);
}

TEST_F(Rows, CuesAreDraggedCopiedRenamedAndRemoved) {
  CuesForm& cues = desk.cues.form;
  click(desk.form.cues);
  for (int i = 0; i < 5; ++i) {
    click(cues.add);
    event([&] { cues.fields.name.setText(std::string(1, static_cast<char>('a' + i))); });
  }
  const auto order = [this] {
    std::string all;
    for (const Cue& cue : desk.cues.run.list.cues) all += cue.name;
    return all;
  };
  ASSERT_EQ(order(), "abcde");
  event([this] { desk.cues.run.cues.jump(2); });
  drop(cues.list, {0, 1}, cues.list, 4);
  EXPECT_EQ(order(), "cdabe");
  EXPECT_EQ(desk.cues.run.cues.on(), 0) << "c is on";
  drop(cues.list, {1, 4}, cues.list, 0);
  EXPECT_EQ(order(), "decab");
  EXPECT_EQ(desk.cues.run.cues.on(), 2);
  drop(cues.list, {0}, cues.list, 5, true);
  EXPECT_EQ(order(), "decabd");
  act(cues.list, "Remove", {0, 3, 5});
  EXPECT_EQ(order(), "ecb");
  EXPECT_EQ(desk.cues.run.cues.on(), 1);
  event([&] { cues.list.click(2, 0); });
  event([&] { cues.list.key(113); });
  EXPECT_EQ(cues.list.textToEdit(2, 1), "b") << "without its number";
  event([&] { cues.list.endEdit("last"); });
  EXPECT_EQ(cues.list.cell(2, 1), "3  last");
  EXPECT_FALSE(cues.list.takesRowsOf(left));
}

class RowsOfFades : public Rows {
 protected:
  RowsOfFades() { names = namesOf(fades); }

  /// All that the plug-in knows of the selected fade.
  std::string selected() const {
    const Master& master = plugin.engine.master;
    return fades.cell(fades.current(), 0) + "|" + std::to_string(v.selX) + "|" +
           std::to_string(v.fadeTypeNow) + "|" + master.fadeType.text() + "|" +
           master.fadeTimeText.text() + "|" + master.fadeName.text() + "|" +
           std::to_string(master.MFadeColor.backColor()) + "|" + std::to_string(v.fadeTime);
  }
  std::vector<FadeEntry> records() const {
    std::vector<FadeEntry> all;
    for (int row = 0; row < fades.count(); ++row)
      all.push_back(v.efxX.at(std::stoul(fades.cell(row, 1))));
    return all;
  }
  void startFade() {
    click(plugin.engine.master.AutoFadeB);
    advance(300);
    ASSERT_TRUE(v.fadeRunning);
  }

  ListView& fades = plugin.engine.master.efxXList;
};

TEST_F(RowsOfFades, ADraggedFadeGoesWhereItIsDroppedAndTheOneThatRunsGoesOn) {
  ASSERT_GE(fades.count(), 4);
  pick(fades, 1);
  startFade();
  const std::string before = selected();
  const std::vector<FadeEntry> was = records();
  drop(fades, {3}, fades, 0);
  EXPECT_EQ(namesOf(fades).front(), names[3]);
  EXPECT_EQ(records().front().name, was[3].name);
  EXPECT_EQ(records().front().type, was[3].type);
  EXPECT_EQ(fades.current(), 2);
  EXPECT_EQ(selected(), before);
  drop(fades, {0, 2}, fades, fades.count());
  EXPECT_EQ(fades.current(), fades.count() - 1);
  EXPECT_EQ(selected(), before);
  EXPECT_TRUE(v.fadeRunning);
  EXPECT_FALSE(left.takesRowsOf(fades));
  EXPECT_FALSE(fades.takesRowsOf(left));
}

TEST_F(RowsOfFades, SeveralAreRemovedAtOnceAndTheSelectedOneStaysWhatItIs) {
  pick(fades, 2);
  startFade();
  const std::string before = selected();
  act(fades, "Remove", {0, 1, 3});
  EXPECT_EQ(namesOf(fades)[0], names[2]);
  EXPECT_EQ(fades.count(), static_cast<int>(names.size()) - 3);
  EXPECT_EQ(selected(), before);
  EXPECT_TRUE(v.fadeRunning);
  act(fades, "Remove", {0});
  EXPECT_EQ(fades.cell(fades.current(), 0), plugin.engine.master.fadeName.text());
  std::vector<int> all;
  for (int row = 0; row < fades.count(); ++row) all.push_back(row);
  act(fades, "Remove", all);
  EXPECT_EQ(fades.count(), 1) << "as the button, which leaves the last one";
}

TEST_F(RowsOfFades, ADuplicateIsTheSameFadeBelowAndCopyingBringsItAnywhere) {
  pick(fades, 0);
  const std::string before = selected();
  act(fades, "Duplicate", {1});
  EXPECT_EQ(namesOf(fades)[2], names[1]);
  EXPECT_EQ(records()[2].type, records()[1].type);
  EXPECT_EQ(records()[2].time, records()[1].time);
  EXPECT_EQ(records()[2].color, records()[1].color);
  drop(fades, {1}, fades, 0, true);
  EXPECT_EQ(namesOf(fades)[0], names[1]);
  EXPECT_EQ(fades.count(), static_cast<int>(names.size()) + 2);
  EXPECT_EQ(selected(), before);
  for (int step = 0; step < 2; ++step) click(desk.form.undo);
  EXPECT_EQ(namesOf(fades), names);
}

TEST_F(RowsOfFades, ANameIsTypedInPlaceAlsoThatOfTheSelectedOne) {
  pick(fades, 1);
  for (const int row : {0, 1}) {
    event([&] {
      fades.beginEdit(row, 0);
      fades.endEdit("Name " + std::to_string(row));
    });
    EXPECT_EQ(fades.cell(row, 0), "Name " + std::to_string(row));
    EXPECT_EQ(records()[static_cast<std::size_t>(row)].name, fades.cell(row, 0));
  }
  EXPECT_EQ(plugin.engine.master.fadeName.text(), "Name 1");
  EXPECT_EQ(fades.current(), 1);
}

}  // namespace
}  // namespace korvane
