// What a person takes back on the desk, and what goes on meanwhile.

#include <gmock/gmock.h>

#include "desk/whole/TestDesk.h"
#include "generators/paint/MxPaintForm.h"
#include "persistence/MatrixDefinition.h"
#include "persistence/ProjectFile.h"

namespace korvane {
namespace {

class Undo : public TestDesk {
 protected:
  void SetUp() override {
    click(desk.form.tool);
    machine.pictures["x.bmp"] = {4, 4, rgb(1, 2, 3)};
  }
  /// All that would be saved of the show and the grid.
  std::string contents() {
    std::string text;
    TextWriter writer(&text);
    writeComposition(plugin.engine, {}, writer);
    writeDefinition(plugin.engine, plugin.matrixConf.MName.text(), writer);
    return text;
  }
  std::string undoCaption() const { return desk.form.undo.look().caption; }
  std::string redoCaption() const { return desk.form.redo.look().caption; }
  void undo() { click(desk.form.undo); }
  void redo() { click(desk.form.redo); }
  /// Gives the left deck's row a kind and opens its dialog.
  EffectDialog& edit(std::int16_t type) {
    event([this, type] { v.A.type.choose(type); });
    click(tool.panelA.edit);
    return *plugin.dialogs.byType[static_cast<std::size_t>(type)];
  }
  /// The left deck's effect goes through red, green and blue.
  void changeColors() {
    v.A.effect().type = kColorChange;
    v.A.effect().colors = {rgb(255, 0, 0), rgb(0, 255, 0), rgb(0, 0, 255)};
    v.A.effect().colorCount = 3;
  }
  void changeColorsAtASpeed() {
    changeColors();
    v.A.effect().itemTimes = {1, 1, 1};
    v.A.effect().speed = 50;
  }
  Slider& slider(EffectDialog& dialog, const char* name) {
    return dynamic_cast<Slider&>(*dialog.find(name));
  }
  /// Lets time pass, so that what follows is a step of its own.
  void pause() { advance(1500); }
};

TEST_F(Undo, BeginsWithNothingToTakeBack) {
  EXPECT_EQ(undoCaption(), "Undo");
  EXPECT_FALSE(desk.form.undo.look().enabled);
  EXPECT_FALSE(desk.form.redo.look().enabled);
  const std::string before = contents();
  undo();
  EXPECT_EQ(contents(), before);
}

TEST_F(Undo, APullOfASliderIsOneStepWithAName) {
  EffectDialog& dialog = edit(kFire);
  event([&] { dialog.myName.setText("Embers"); });
  click(dialog.OK);
  click(tool.panelA.edit);
  pause();
  const std::string before = contents();
  Slider& speed = slider(dialog, "slSpeed");
  for (int value = 40; value <= 70; ++value) event([&] { speed.setValue(value); });
  EXPECT_EQ(undoCaption(), "Undo: speed of 'Embers'");
  undo();
  EXPECT_EQ(contents(), before);
  EXPECT_TRUE(dialog.visible());
  EXPECT_EQ(speed.value(), 80) << "the open dialog shows the effect as it is";
  EXPECT_EQ(redoCaption(), "Redo: speed of 'Embers'");
  redo();
  EXPECT_EQ(v.A.effect().speed, 70);
  EXPECT_EQ(speed.value(), 70);
}

TEST_F(Undo, ALongPullWithTheButtonHeldIsOneStep) {
  int presses = 1;
  bool held = true;
  desk.history.presses = [&] { return presses; };
  desk.history.held = [&] { return held; };
  EffectDialog& dialog = edit(kFire);
  ++presses;
  const std::size_t steps = desk.history.steps();
  Slider& speed = slider(dialog, "slSpeed");
  for (int value = 51; value <= 55; ++value) {
    event([&] { speed.setValue(value); });
    pause();
  }
  EXPECT_EQ(desk.history.steps(), steps + 1);
  ++presses;
  event([&] { speed.setValue(70); });
  EXPECT_EQ(desk.history.steps(), steps + 2) << "another pull";
  held = false;
  undo();
  EXPECT_EQ(v.A.effect().speed, 55);
}

TEST_F(Undo, RowsComeBackWithWhatTheyHeld) {
  click(tool.panelA.add);
  pick(v.A.efxList, 1);
  EffectDialog& dialog = edit(kFluid);
  event([&] { dialog.myName.setText("Waves"); });
  click(dialog.OK);
  pause();
  const std::string before = contents();
  click(tool.panelA.remove);
  EXPECT_EQ(undoCaption(), "Undo: removed 'Waves'");
  undo();
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(v.efxACount, 2);
  EXPECT_EQ(v.efxADeleted, 0);
  redo();
  EXPECT_EQ(v.efxACount, 1);
  EXPECT_EQ(v.A.efxList.count(), 1);
}

TEST_F(Undo, AStepThatDoesNotTouchThePlayingEffectDoesNotRestartIt) {
  event([this] {
    changeColors();
    v.A.colorIndex = 0;
    v.A.beatOn = true;
  });
  click(desk.form.beat);
  ASSERT_EQ(rgb(v.frameA.at(0, 0)), rgb(0, 255, 0));
  desk.history.begin();
  click(tool.panelA.add);
  click(tool.panelB.add);
  event([this] { plugin.engine.master.fadeName.setText("slow"); });
  ASSERT_GE(desk.history.steps(), 3U);
  while (desk.history.steps() > 0) undo();
  EXPECT_EQ(rgb(v.frameA.at(0, 0)), rgb(0, 255, 0));
  EXPECT_TRUE(v.A.beatOn);
  EXPECT_EQ(v.A.colorIndex, 1) << "it goes on where it was";
}

TEST_F(Undo, WhatAColorChangeNotesAsItPlaysIsNoStepAndItIsNotStartedAnew) {
  event([this] { changeColorsAtASpeed(); });
  pick(v.A.efxList, 0);
  click(tool.panelB.add);
  pick(v.B.efxList, 1);
  click(tool.panelB.remove);
  const std::size_t steps = desk.history.steps();
  for (int i = 0; i < 4 && v.A.colorIndex != 1; ++i) advance(400);
  ASSERT_EQ(v.A.colorIndex, 1);
  ASSERT_EQ(v.A.effect().color2, rgb(255, 0, 0));
  event([] {});
  EXPECT_EQ(desk.history.steps(), steps);
  EXPECT_EQ(undoCaption(), "Undo: removed 'new effect'");
  undo();
  EXPECT_EQ(v.B.efxList.count(), 2);
  EXPECT_EQ(v.A.colorIndex, 1) << "it goes on where it was";
  EXPECT_EQ(rgb(v.frameA.at(0, 0)), rgb(0, 255, 0));
}

// A transition ends in the mode that was chosen or loaded last on its deck.
TEST_F(Undo, AModeThatAColorChangeGivesItselfAsItPlaysIsNoStep) {
  event([this] {
    changeColorsAtASpeed();
    v.A.effect().amount = 100;
    v.A.effect().fadeMode = 1;
  });
  pick(v.A.efxList, 0);
  click(tool.panelB.add);
  const std::size_t steps = desk.history.steps();
  for (int i = 0; i < 20 && v.A.effect().fadeMode != 0; ++i) advance(400);
  ASSERT_EQ(v.A.effect().fadeMode, 0);
  event([] {});
  EXPECT_EQ(desk.history.steps(), steps);
  undo();
  EXPECT_EQ(v.B.efxList.count(), 1);
}

TEST_F(Undo, AModeThatIsChosenDuringATransitionIsAStep) {
  event([this] {
    v.A.effect().type = kColorChange;
    v.A.effect().colors = {rgb(255, 0, 0), rgb(0, 255, 0)};
    v.A.effect().itemTimes = {1, 1};
    v.A.effect().colorCount = 2;
    v.A.effect().speed = 50;
    v.A.effect().fadeMode = v.A.savedFadeMode = 1;
    v.A.efxEdited.at(0) = true;
  });
  pick(v.A.efxList, 0);
  click(tool.panelA.edit);
  for (int i = 0; i < 40 && !v.A.transitionRunning; ++i) advance(100);
  ASSERT_TRUE(v.A.transitionRunning);
  auto& mode = dynamic_cast<ListBox&>(*plugin.dialogs.byType[kColorChange]->find("cbFadeMode"));
  event([&mode] { mode.choose(3); });
  EXPECT_EQ(undoCaption(), "Undo: change of colours");
  advance(20000);
  EXPECT_EQ(v.A.effect().fadeMode, 3);
  undo();
  EXPECT_EQ(v.A.effect().fadeMode, 1);
  EXPECT_EQ(v.A.savedFadeMode, 1);
}

TEST_F(Undo, TheGridComesBackWithItsChannels) {
  click(desk.form.configure);
  const std::string before = contents();
  event([this] { plugin.matrixConf.ncol.choose(19); });
  EXPECT_EQ(v.matrixCols, 20);
  EXPECT_EQ(undoCaption(), "Undo: size of the grid");
  undo();
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_EQ(plugin.matrixConf.ncol.index(), 11);
  EXPECT_EQ(contents(), before);
  EXPECT_EQ(v.frameM.cols(), 12);
  redo();
  EXPECT_EQ(v.matrixCols, 20);
  EXPECT_EQ(v.frameM.cols(), 20);
}

TEST_F(Undo, ALoadInTheToolIsOneStep) {
  const std::string before = contents();
  machine.answers = {examples[1].path};
  click(tool.load);
  EXPECT_EQ(undoCaption(), "Undo: load");
  undo();
  EXPECT_EQ(contents(), before);
}

TEST_F(Undo, AnotherShowBeginsAnew) {
  click(tool.panelA.add);
  EXPECT_TRUE(desk.form.undo.look().enabled);
  event([this] { desk.session.open(examples[0].path); });
  EXPECT_FALSE(desk.form.undo.look().enabled);
}

TEST_F(Undo, WhatIsTakenBackUpToTheSavedShowIsNoChange) {
  machine.answers = {folder + "tour.Korvane"};
  click(desk.form.save);
  click(tool.panelA.add);
  EXPECT_EQ(desk.form.caption(), "tour* - Korvane");
  undo();
  EXPECT_EQ(desk.form.caption(), "tour - Korvane");
}

TEST_F(Undo, AColourFromTheMixerIsAStep) {
  EffectDialog& dialog = edit(kColor);
  pause();
  const std::string before = contents();
  auto& box = dynamic_cast<ColorBox&>(*dialog.find("Color"));
  click(box);
  event([this] { plugin.dialogs.mixer.Sgreen.setValue(200); });
  click(plugin.dialogs.mixer.Bok);
  EXPECT_EQ(undoCaption(), "Undo: colour of 'new effect'");
  undo();
  EXPECT_EQ(contents(), before);
}

TEST_F(Undo, AStrokeIsAStep) {
  auto& dialog = dynamic_cast<MxPaintForm&>(edit(kPaint));
  pause();
  const std::string before = contents();
  event([&] { dialog.PColor.setBackColor(rgb(1, 2, 3)); });
  for (const auto mouse : {PictureBox::Mouse::Down, PictureBox::Mouse::Move, PictureBox::Mouse::Up,
                           PictureBox::Mouse::Click})
    event([&] { dialog.Bild.mouse(mouse, mouse == PictureBox::Mouse::Down ? 20 : 60, 20); });
  EXPECT_EQ(undoCaption(), "Undo: picture of 'new effect'");
  undo();
  EXPECT_EQ(contents(), before);
}

TEST_F(Undo, MemoryIsBounded) {
  machine.answers = {examples[4].path};
  for (int side = 0; side < 60; ++side) {
    event([&] { plugin.matrixConf.ncol.choose(30 + side % 20); });
    pause();
    ASSERT_LE(desk.history.bytes(), ShowHistory::kMostBytes);
    ASSERT_LE(desk.history.steps(), ShowHistory::kMostSteps);
  }
}

}  // namespace
}  // namespace korvane
