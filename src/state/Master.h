#pragma once

#include "platform/Controls.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"
#include "platform/TimerQueue.h"

namespace korvane {

/// The controls and timers of the main window's master section that its logic works with.
struct Master {
  explicit Master(TimerQueue& timers);

  Timer timerM;   ///< one step of a fade
  Timer timerM2;  ///< one refresh of the mix during a fade

  PictureBox picture;  ///< the preview of the mix, `PB_M`
  Slider faderM;       ///< -100 deck A, 100 deck B
  Button AutoFadeA, AutoFadeB;
  ListView efxXList;
  TextBox fadeName, fadeTimeText;
  ListBox fadeType;
  Label FadeColorText;
  ColorBox MFadeColor;
  ListBox fps;
};

}  // namespace korvane
