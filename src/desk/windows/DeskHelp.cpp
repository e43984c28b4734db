#include "desk/windows/DeskHelp.h"

#include "desk/keys/CommandTable.h"

namespace korvane {
namespace {

constexpr int kLines = 30;

constexpr const char* kHowTo = R"(A SHOW FROM NOTHING
1. Wiring (Shift+F3): choose how many columns and rows you have and how the wire runs; the picture
   shows it, and Apply takes it. The lamp test lights one lamp after the other, to see that it is so.
   Configure lamps (F3) gives a single lamp channels of its own, by a double click on it.
2. New (Ctrl+N) begins an empty show on that grid.
3. Each deck has a list of effects. + adds a row. Click the new row, then choose its kind in the box
   above the list, then press Edit. What you change shows on the deck at once; OK takes the name.
4. The fader mixes the decks. Select a row of the fade list, then Fade left or Fade right.
5. Save (Ctrl+S) writes the show and, beside it, its grid.

LAMPS
Outputs (F5) says how and where the levels are sent: Add, choose the kind, the universes and who
receives them, check On. "Output on" (F12), or DMX in the main functions, lets the lamps follow the
show; when it goes off they do what Outputs says.
Blackout and Freeze act on what leaves the desk: the decks play on behind them. So does the grand
master, percent of every level.

EFFECTS
Color, Gradient: one colour, or two that run into each other
Paint: a picture, drawn lamp by lamp
Image: pictures from files, one after the other, standing still or moving
Color Change: a list of colours, each for its time, with a change between them
Color Scroll: stripes of colours that move
Fire, Fluid: flames and waves
Ticker: a text that runs

FILES
A show is NAME.Korvane; its grid is NAME.korvaneconf beside it, and what belongs to it on this desk is
NAME.korvanedesk. Any of the three opens the project. The version before the last save
stays as NAME.Korvane.bak.
)";

std::string keysOf(const std::vector<MenuItem*>& items) {
  std::string text = "\nKEYS\n";
  for (const MenuItem* item : items) {
    const CommandRow* row = commandRow(item->name());
    if (row != nullptr && !item->key().empty())
      text += item->key() + ": " + row->caption + ", " + row->words + "\n";
  }
  return text + "Enter, Escape: press OK, or close a window without it\n";
}

}  // namespace

DeskHelp::DeskHelp(Desktop& desktop, const std::vector<MenuItem*>& items)
    : Form("DeskHelp", "Korvane: help"),
      text("text", {}, kHowTo + keysOf(items), {.readOnly = true, .lines = kLines}),
      OK("OK", {.caption = "OK", .toolTip = "close the help"}) {
  add({&text, &OK});
  setLayout(column({Layout(text, 1), row({space(), OK})}));
  OK.onClick = [this, &desktop] { desktop.hide(*this); };
  onEnter = onEscape = OK.onClick;
  onActivate = [this, items] { text.setText(kHowTo + keysOf(items)); };
  desktop.add(*this);
}

}  // namespace korvane
