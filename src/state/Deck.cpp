#include "state/Deck.h"

#include "platform/Failure.h"

namespace korvane {
namespace {

std::string lettered(const char* before, Side side, const char* after = "") {
  return std::string(before) + (side == Side::B ? "B" : "A") + after;
}

// The same tool tip for both decks, with the side's name.
Look tip(const std::string& text, Side side) {
  return {.toolTip = text + (side == Side::B ? " right deck" : " left deck")};
}

}  // namespace

Deck::Deck(Side which, TimerQueue& timers)
    : side(which),
      timer1(timers, lettered("timer", which, "1")),
      timer2(timers, lettered("timer", which, "2")),
      efxList(lettered("efx", which, "List"),
              tip("a click plays an effect, a double click edits it:", which)),
      type(lettered("type", which), tip("kind of the selected effect of the", which)),
      picture(lettered("PB_", which), {240, 240}, tip("what plays on the", which)),
      mini(lettered("mini", which), {12, 12, PictureBox::Sizing::Fixed}, {.visible = false}),
      image(lettered("image", which), {12, 12, PictureBox::Sizing::Fixed}, {.visible = false}) {}

Effect& Deck::effect() {
  if (sel < 0 || static_cast<std::size_t>(sel) >= efx.size()) {
    throw Failure(kSubscript, named("efx") + " has no slot " + std::to_string(sel));
  }
  return efx[static_cast<std::size_t>(sel)];
}

}  // namespace korvane
