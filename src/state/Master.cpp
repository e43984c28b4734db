#include "state/Master.h"

namespace korvane {
Master::Master(TimerQueue& timers)
    : timerM(timers, "timerM"),
      timerM2(timers, "timerM2"),
      picture("PB_M", {360, 360}, {.toolTip = "the mix of both decks, as it goes out"}),
      faderM("faderM", SliderRange{-100, 100}, {.toolTip = "master fader: left deck - right deck"}),
      AutoFadeA("AutoFadeA", {.caption = "Fade left", .toolTip = "fade to the left"}),
      AutoFadeB("AutoFadeB", {.caption = "Fade right", .toolTip = "fade to the right"}),
      efxXList("efxXList", {.toolTip = "fades; a click selects the one that the fade buttons use"}),
      fadeName("fadeName", {.toolTip = "name of the selected fade", .label = "Name : "}),
      fadeTimeText("fadeTimeText", {.toolTip = "fade time in seconds"}, "",
                   {TextBoxStyle::Commit::OnLeave}),
      fadeType("fadeType", {.toolTip = "kind of the selected fade", .label = "Type : "}),
      FadeColorText("FadeColorText",
                    {.caption = "Color : ", .toolTip = "edits color for color fade"}),
      MFadeColor("MFadeColor", {.toolTip = "edits color for color fade"}),
      fps("fps", {.toolTip = "frames a second of a fade's picture"}) {}

}  // namespace korvane
