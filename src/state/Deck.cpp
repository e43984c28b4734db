#include "state/Deck.h"

#include "platform/Failure.h"

namespace korvane {
namespace {

std::string lettered(const char* before, Side side, const char* after = "") {
  return std::string(before) + (side == Side::B ? "B" : "A") + after;
}

Look look(Side side, const char* leftTip, const char* rightTip) {
  Look result;
  result.toolTip = side == Side::B ? rightTip : leftTip;
  return result;
}

Look hidden() {
  Look result;
  result.visible = false;
  return result;
}

}  // namespace

Deck::Deck(Side which, TimerQueue& timers)
    : side(which),
      timer1(timers, lettered("timer", which, "1")),
      timer2(timers, lettered("timer", which, "2")),
      efxList(lettered("efx", which, "List"),
              look(which, "effects of the left deck; a click plays one, a double click edits it",
                   "effects of the right deck; a click plays one, a double click edits it")),
      type(lettered("type", which),
           look(which, "kind of the selected left effect", "kind of the selected right effect"),
           ListBox::Style::DropDown),
      picture(lettered("PB_", which), {240, 240},
              look(which, "what the left deck shows", "what the right deck shows")),
      mini(lettered("mini", which), {12, 12, PictureBox::Sizing::Fixed}, hidden()),
      image(lettered("image", which), {12, 12, PictureBox::Sizing::Fixed}, hidden()) {}

Effect& Deck::effect() {
  if (sel < 0 || static_cast<std::size_t>(sel) >= efx.size()) {
    throw Failure(kSubscript, named("efx") + " has no slot " + std::to_string(sel));
  }
  return efx[static_cast<std::size_t>(sel)];
}

}  // namespace korvane
