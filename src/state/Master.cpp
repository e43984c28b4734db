#include "state/Master.h"

namespace korvane {
namespace {

Look look(const char* caption, const char* toolTip, const char* label = "") {
  Look result;
  result.caption = caption;
  result.toolTip = toolTip;
  result.label = label;
  return result;
}

}  // namespace

Master::Master(TimerQueue& timers)
    : timerM(timers, "timerM"),
      timerM2(timers, "timerM2"),
      picture("PB_M", {360, 360}, look("", "the mix of both decks, as it goes out")),
      faderM("faderM", SliderRange{-100, 100}, look("", "master fader: left deck - right deck")),
      AutoFadeA("AutoFadeA", look("Fade left", "fade to the left")),
      AutoFadeB("AutoFadeB", look("Fade right", "fade to the right")),
      efxXList("efxXList", look("", "fades; a click selects the one that the fade buttons use")),
      fadeName("fadeName", look("", "name of the selected fade", "Name : ")),
      fadeTimeText("fadeTimeText", look("", "fade time in seconds"), "",
                   {TextBoxStyle::Commit::OnLeave}),
      fadeType("fadeType", look("", "kind of the selected fade", "Type : ")),
      FadeColorText("FadeColorText", look("Color : ", "edits color for color fade")),
      MFadeColor("MFadeColor", look("", "edits color for color fade")),
      fps("fps", look("", "frames a second of a fade's picture")) {}

}  // namespace korvane
