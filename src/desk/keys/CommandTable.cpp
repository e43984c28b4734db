#include "desk/keys/CommandTable.h"

#include <algorithm>

#include "desk/cues/ShowRun.h"

namespace korvane {
namespace {

constexpr bool kRepeats = true;

const CommandRow kDesk[] = {
    {"newShow", "New", "begin a show on the present grid", "Ctrl+N"},
    {"open", "Open ...", "open a show of your own", "Ctrl+O"},
    {"save", "Save", "save the show with its grid", "Ctrl+S"},
    {"saveAs", "Save as ...", "save the show with its grid in another file", "Ctrl+Shift+S"},
    {"openLast", "Open the last show at the start", "begin with the show that was open last", ""},
    {"quit", "Quit", "close the desk", "Ctrl+Q"},
    {"undo", "Undo", "take back what was changed last in the show or the grid", "Ctrl+Z", kRepeats},
    {"redo", "Redo", "change again what was taken back", "Ctrl+Shift+Z", kRepeats},
    {"dmx", "Output on", "the lamps follow the show", "F12"},
    {"blackout", "Blackout", "all lamps dark, until pressed again", "F10"},
    {"freeze", "Freeze", "the lamps hold what they show, until pressed again", "F11"},
    {"masterUp", "Grand master up", "five per cent more of every level", "Shift+F12", kRepeats},
    {"masterDown", "Grand master down", "five per cent less of every level", "Shift+F11", kRepeats},
    {"beat", "Beat", "one beat of the music", "F9"},
    {"faderLeft", "Fader left", "the fader a small step to the left deck", "Left", kRepeats},
    {"faderRight", "Fader right", "the fader a small step to the right deck", "Right", kRepeats},
    {"faderFarLeft", "Fader far left", "the fader a tenth of its way to the left deck",
     "Shift+Left", kRepeats},
    {"faderFarRight", "Fader far right", "the fader a tenth of its way to the right deck",
     "Shift+Right", kRepeats},
    {"cutLeft", "Cut left", "the left deck alone, at once", "Ctrl+Left"},
    {"cutRight", "Cut right", "the right deck alone, at once", "Ctrl+Right"},
    {"fadeLeft", "Fade left", "start the selected fade to the left deck", "Alt+Left"},
    {"fadeRight", "Fade right", "start the selected fade to the right deck", "Alt+Right"},
    {"cues", "Cues", "let the show run by itself", "Shift+F2"},
    {"wiring", "Wiring", "say how the lamps are wired, and test them", "Shift+F3"},
    {"configure", "Configure lamps", "define the lamp grid and its channels", "F3"},
    {"output", "Outputs ...", "say where the levels are sent, and see how", "F5"},
    {"channels", "Channels", "watch the levels that leave the desk", "F8"},
    {"steeper", "Curve steeper", "gamma 0.1 more on the output that is lit in Outputs", "Shift+F10",
     kRepeats},
    {"flatter", "Curve flatter", "gamma 0.1 less on the output that is lit in Outputs", "Shift+F9",
     kRepeats},
    {"lessRed", "Less red", "5 % less of red on the output that is lit in Outputs", "Ctrl+F9",
     kRepeats},
    {"lessGreen", "Less green", "5 % less of green on the output that is lit in Outputs",
     "Ctrl+F10", kRepeats},
    {"lessBlue", "Less blue", "5 % less of blue on the output that is lit in Outputs", "Ctrl+F11",
     kRepeats},
    {"whiteBack", "White balance off", "all of red, green and blue on the output that is lit",
     "Ctrl+F12"},
    {"tool", "Matrix", "show the decks and their effects", "F2"},
    {"front", "Desk", "bring the desk to the front", "F4"},
    {"narrow", "Narrow view", "show the master alone", "F6"},
    {"full", "Full view", "show the decks as well", "F7"},
    {"pictures", "Pictures in the lists", "small pictures of the effects in their rows", ""},
    {"lookSystem", "Light or dark as the system", "the windows follow the choice for all programs",
     ""},
    {"lookLight", "Light", "light windows", ""},
    {"lookDark", "Dark", "dark windows", ""},
    {"keys", "Keys", "all commands with their keys, and other keys for them", "F1"},
    {"help", "Help", "how to work with the desk", "Shift+F1"},
};

/// The commands of a list's first rows; each has the row's number, after what is held, as its key.
struct RowCommands {
  const char* name;
  const char* caption;
  const char* words;
  const char* held;
};

constexpr RowCommands kRows[] = {
    {"effectLeft", "Left effect ", "play this row of the left deck: ", ""},
    {"effectRight", "Right effect ", "play this row of the right deck: ", "Ctrl+"},
    {"fade", "Fade ", "select this row of the fade list: ", "Alt+"},
};

std::vector<CommandRow> allCommands() {
  std::vector<CommandRow> all(std::begin(kDesk), std::end(kDesk));
  for (const RowCommands& one : kRows) {
    for (int row = 1; row <= kNumberedRows; ++row) {
      const std::string number = std::to_string(row);
      all.push_back({one.name + ("(" + number + ")"), one.caption + number, one.words + number,
                     one.held + number});
    }
  }
  for (const ShowCommand& one : showCommands())
    all.push_back({one.name, one.caption, one.toolTip, one.key});
  return all;
}

}  // namespace

const std::vector<CommandRow>& commandTable() {
  static const std::vector<CommandRow> table = allCommands();
  return table;
}

const CommandRow* commandRow(const std::string& name) {
  const auto found = std::ranges::find(commandTable(), name, &CommandRow::name);
  return found == commandTable().end() ? nullptr : &*found;
}

CommandItem::CommandItem(const std::string& name)
    : MenuItem(name, {.caption = commandRow(name)->caption, .toolTip = commandRow(name)->words},
               commandRow(name)->key) {
  repeats = commandRow(name)->repeats;
}

}  // namespace korvane
