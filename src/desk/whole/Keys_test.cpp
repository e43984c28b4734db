// The commands of the desk with their keys, and the window that changes them.

#include <gmock/gmock.h>

#include <set>

#include "desk/keys/CommandTable.h"
#include "desk/whole/TestDesk.h"
#include "platform/KeyNames.h"

namespace korvane {
namespace {

using testing::HasSubstr;

class Keys : public TestDesk {
 protected:
  KeysForm& form = desk.keys.form;
  Slider& fader = plugin.engine.master.faderM;

  /// A person's key, as a view finds the command that has it.
  bool press(const std::string& key) {
    for (MenuItem* item : desk.form.items()) {
      if (item->key() != key || !item->look().enabled) continue;
      click(*item);
      return true;
    }
    return false;
  }
  int rowOf(const std::string& command) {
    for (int row = 0; row < form.list.count(); ++row)
      if (form.list.cell(row, 0) == command) return row;
    return -1;
  }
  /// Chooses a command in the window, presses Change, then a key.
  void give(const std::string& command, const std::string& key) {
    pick(form.list, rowOf(command));
    click(form.change);
    event([&] { form.anyKey(key); });
  }
  std::string file() { return folder + "config/keys.json"; }
};

TEST_F(Keys, EveryCommandHasANameWordsAndAKeyOfItsOwn) {
  std::set<std::string> names, keys;
  for (const CommandRow& row : commandTable()) {
    EXPECT_TRUE(names.insert(row.name).second) << row.name;
    EXPECT_FALSE(row.caption.empty() || row.words.empty()) << row.name;
    EXPECT_NE(desk.form.find(row.name), nullptr) << row.name;
    if (row.key.empty()) continue;
    EXPECT_EQ(keyNamed(row.key), row.key);
    EXPECT_TRUE(keys.insert(row.key).second) << row.key;
  }
  EXPECT_EQ(desk.keys.bindings.items().size(), commandTable().size()) << "each is in a menu";
}

TEST_F(Keys, ArrowsMoveTheFaderAndCutAndFade) {
  EXPECT_TRUE(press("Right"));
  EXPECT_EQ(fader.value(), 0) << "no show is open";
  click(*desk.form.examples.at(0));
  event([this] { fader.setValue(0); });
  press("Right");
  EXPECT_EQ(fader.value(), 2);
  press("Shift+Right");
  EXPECT_EQ(fader.value(), 22);
  press("Left");
  press("Shift+Left");
  EXPECT_EQ(fader.value(), 0);
  press("Ctrl+Right");
  EXPECT_EQ(fader.value(), 100);
  press("Ctrl+Left");
  EXPECT_EQ(fader.value(), -100);
  press("Alt+Right");
  EXPECT_TRUE(v.fadeRunning);
  advance(60000);
  EXPECT_EQ(fader.value(), 100);
}

TEST_F(Keys, EveryButtonThatDoesWhatACommandDoesTellsItsKeyAlsoAChangedOne) {
  CuesForm& cueWindow = desk.cues.form;
  const std::pair<Control*, const char*> told[] = {{&cueWindow.go, "cueGo"},
                                                   {&cueWindow.back, "cueBack"},
                                                   {&cueWindow.pause, "cuePause"},
                                                   {&cueWindow.stop, "cueStop"},
                                                   {&cueWindow.jump, "cueJump"},
                                                   {&cueWindow.next, "cueNext"},
                                                   {&cueWindow.record, "cueRecord"},
                                                   {&cueWindow.tap, "tap"},
                                                   {&cueWindow.autoPlay, "autoPlay"},
                                                   {&tool.fadeA, "cutLeft"},
                                                   {&tool.fadeB, "cutRight"},
                                                   {&plugin.engine.master.AutoFadeA, "fadeLeft"},
                                                   {&plugin.engine.master.AutoFadeB, "fadeRight"},
                                                   {&tool.active, "dmx"},
                                                   {&tool.help, "help"},
                                                   {&form.help, "help"}};
  click(desk.form.keys);
  std::map<const Control*, std::string> words;
  for (const auto& [control, command] : told) {
    const std::string& key = commandRow(command)->key;
    std::string tip = control->look().toolTip;
    const std::string end = key.empty() ? "" : " (" + key + ")";
    EXPECT_TRUE(tip.ends_with(end)) << tip;
    words[control] = tip.substr(0, tip.size() - end.size());
    EXPECT_EQ(words[control].find('('), std::string::npos) << words[control];
  }
  for (const auto& [control, command] : told) {
    give(commandRow(command)->caption, "Ctrl+Shift+F7");
    EXPECT_EQ(control->look().toolTip, words[control] + " (Ctrl+Shift+F7)");
    click(form.none);
    EXPECT_EQ(control->look().toolTip, words[control]) << "no key";
  }
}

TEST_F(Keys, NumbersPlayTheRowsOfTheDecksAndChooseFades) {
  EXPECT_FALSE(press("1")) << "there is no row";
  click(*desk.form.examples.at(0));
  ASSERT_GE(v.B.efxList.count(), 3);
  press("2");
  EXPECT_EQ(v.A.efxList.current(), 1);
  press("Ctrl+3");
  EXPECT_EQ(v.B.efxList.current(), 2);
  press("Alt+2");
  EXPECT_EQ(plugin.engine.master.efxXList.current(), 1);
  EXPECT_EQ(desk.form.leftEffects[1]->look().caption, "2  " + v.A.efxList.cell(1, 0));
  EXPECT_EQ(press("9"), v.A.efxList.count() >= 9);
}

TEST_F(Keys, ACommandIsReachedByItsName) {
  click(*desk.form.examples.at(0));
  const auto run = [this](const std::string& name, int argument = 0) {
    bool done = false;
    event([&] { done = desk.command(name, argument); });
    return done;
  };
  EXPECT_TRUE(run("effectLeft(2)"));
  EXPECT_EQ(v.A.efxList.current(), 1);
  EXPECT_TRUE(run("blackout"));
  EXPECT_TRUE(desk.levels().blackout);
  EXPECT_FALSE(run("cueGo")) << "there is no cue";
  EXPECT_TRUE(run("cueRecord"));
  EXPECT_TRUE(run("cueRecord"));
  EXPECT_TRUE(run("cueJump", 2));
  EXPECT_EQ(desk.cues.run.cues.on(), 1);
  EXPECT_FALSE(run("redo")) << "nothing was taken back";
  EXPECT_FALSE(run("no such command"));
}

TEST_F(Keys, F1ListsThemAndTheHelpIsStillThere) {
  press("F1");
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(form.list.cell(rowOf("Blackout"), 2), "F10");
  click(form.help);
  EXPECT_TRUE(desk.helpWindow.visible());
  EXPECT_THAT(desk.helpWindow.text.text(), HasSubstr("F10: Blackout, all lamps dark"));
  click(desk.form.keys);
  EXPECT_TRUE(press("Shift+F1"));
  EXPECT_TRUE(desk.helpWindow.visible());
}

TEST_F(Keys, ACommandTakesTheNextKeyThatIsPressed) {
  press("F1");
  give("Blackout", "b");
  EXPECT_EQ(desk.form.blackout.key(), "B");
  EXPECT_EQ(form.list.cell(rowOf("Blackout"), 2), "B");
  EXPECT_EQ(form.state.look().caption, "'Blackout' has the key B.");
  EXPECT_FALSE(press("F10"));
  EXPECT_TRUE(press("B"));
  EXPECT_THAT(bytesOf(file()), HasSubstr("\"blackout\": \"B\""));
  click(form.help);
  EXPECT_THAT(desk.helpWindow.text.text(), HasSubstr("B: Blackout"));
}

TEST_F(Keys, AKeyThatIsTakenIsToldWithItsHolderAndAnotherIsWaitedFor) {
  press("F1");
  give("Blackout", "F11");
  EXPECT_EQ(form.state.look().caption,
            "F11 is the key of 'Freeze'. Press another one for 'Blackout', or Escape.");
  EXPECT_EQ(desk.form.blackout.key(), "F10");
  ASSERT_TRUE(form.onAnyKey);
  event([this] { form.anyKey("Return"); });
  EXPECT_THAT(form.state.look().caption, HasSubstr("Return belongs to the windows."));
  event([this] { form.anyKey("Esc"); });
  EXPECT_FALSE(form.onAnyKey);
  EXPECT_EQ(desk.form.blackout.key(), "F10");
}

TEST_F(Keys, DefaultPutsOneKeyBackOrAll) {
  press("F1");
  give("Blackout", "B");
  give("Freeze", "F10");
  pick(form.list, rowOf("Blackout"));
  click(form.reset);
  EXPECT_EQ(form.state.look().caption, "F10 is the key of 'Freeze'.");
  pick(form.list, rowOf("Freeze"));
  click(form.reset);
  EXPECT_EQ(desk.form.freeze.key(), "F11");
  pick(form.list, rowOf("Go"));
  click(form.none);
  EXPECT_EQ(form.state.look().caption, "'Go' has no key.");
  click(form.resetAll);
  for (const MenuItem* item : desk.keys.bindings.items())
    EXPECT_EQ(item->key(), commandRow(item->name())->key);
}

TEST_F(Keys, AnotherRowOrAClosedWindowEndsTheWaiting) {
  press("F1");
  pick(form.list, 3);
  click(form.change);
  pick(form.list, 4);
  EXPECT_FALSE(form.onAnyKey);
  click(form.change);
  click(form.OK);
  EXPECT_FALSE(form.onAnyKey);
  EXPECT_FALSE(form.visible());
}

TEST_F(Keys, ButtonsOfTheToolTellTheirKeyAsItIs) {
  EXPECT_EQ(tool.fadeA.look().toolTip, "sets left effect active (Ctrl+Left)");
  press("F1");
  give("Cut left", "Home");
  EXPECT_EQ(tool.fadeA.look().toolTip, "sets left effect active (Home)");
  pick(form.list, rowOf("Cut left"));
  click(form.none);
  EXPECT_EQ(tool.fadeA.look().toolTip, "sets left effect active");
}

/// A desk that starts with a file of keys.
class KeptKeys : public Keys {
 protected:
  std::string start(const std::string& text) {
    std::filesystem::create_directories(folder + "config");
    if (!text.empty()) write("config/keys.json", text);
    again = std::make_unique<Desk>(machine, feed,
                                   DeskPlaces{.project = folder + "mine", .keys = file()});
    again->refresh();
    return again->form.wrong.look().caption;
  }
  std::unique_ptr<Desk> again;
};

TEST_F(KeptKeys, AreThereAtTheNextStart) {
  press("F1");
  give("Blackout", "B");
  give("Freeze", "F10");
  EXPECT_EQ(start(""), "");
  EXPECT_EQ(again->form.blackout.key(), "B");
  EXPECT_EQ(again->form.freeze.key(), "F10");
  EXPECT_EQ(again->form.dmx.key(), "F12");
}

TEST_F(KeptKeys, AWrongMemberIsNamedAndItsNeighboursAreKept) {
  EXPECT_EQ(start(R"({"version": 1, "keys": {"blackout": "B", "freeze": 7, "dmx": "Hyper+X",
                     "laser": "L", "beat": "B", "cueGo": ""}})"),
            file() +
                ": /keys/freeze: expected a text, found 7; /keys/dmx: expected a key, as in "
                "\"Ctrl+B\", found \"Hyper+X\"; /keys/laser: there is no such command; "
                "/keys/blackout: B is the key of 'Beat'.");
  EXPECT_EQ(again->form.beat.key(), "B");
  EXPECT_EQ(again->form.freeze.key(), "F11");
  EXPECT_EQ(again->form.blackout.key(), "F10");
  again->keys.bindings.assign(again->form.dmx, "D");
  EXPECT_THAT(bytesOf(file()), HasSubstr("\"laser\": \"L\""));
  EXPECT_THAT(bytesOf(file()), HasSubstr("\"freeze\": 7"));
  EXPECT_THAT(bytesOf(file()), HasSubstr("\"dmx\": \"D\""));
}

TEST_F(KeptKeys, AFileThatIsNoJsonIsToldAndStaysAsItsBackup) {
  EXPECT_THAT(start("keys?"), HasSubstr(file() + ": "));
  EXPECT_EQ(again->form.blackout.key(), "F10");
  again->keys.bindings.assign(again->form.blackout, "B");
  EXPECT_EQ(bytesOf(file() + ".bak"), "keys?");
}

}  // namespace
}  // namespace korvane
