#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/Controls.h"
#include "platform/Grid.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"
#include "platform/TimerQueue.h"
#include "state/Boolean.h"
#include "state/Effect.h"

namespace korvane {

enum class Side { A, B };

/// Where the cells of a preview stand in its picture box, in pixels.
struct PreviewGeometry {
  std::int16_t cell = 0;  ///< pitch
  std::int16_t box = 0;   ///< pitch less 1; kept, and no drawing reads it
  std::int16_t left = 0;
  std::int16_t top = 0;
};

/// Everything that exists once per deck: its list of effects, its pictures, the state of the
/// running effect, its two timers, and the controls of the main window that its logic works
/// with. The names with the suffix A or B are in Variablen.
struct Deck {
  Deck(Side which, TimerQueue& timers);

  /// The record that the deck plays; kSubscript if there is none in the slot `sel`.
  Effect& effect();
  bool isB() const { return side == Side::B; }
  /// A name with the deck's letter, as in "addA".
  std::string named(const std::string& stem) const { return stem + (isB() ? "B" : "A"); }

  const Side side;

  Frame frame;      ///< the present picture
  Frame frameWork;  ///< what Fire, Fluid and Ticker last published

  std::vector<Effect> efx;         ///< one per slot; slots of removed rows stay unused
  std::vector<Boolean> efxEdited;  ///< per slot: the effect has content to save
  std::int16_t efxCount = 0;       ///< rows of the list
  std::int16_t efxDeleted = 0;     ///< slots left behind by removals
  std::int16_t sel = 0;            ///< slot of the selected row
  Effect efxBackup;                ///< what a dialog's Cancel restores from

  PreviewGeometry preview;

  std::int16_t colorIndex = -1;
  std::int16_t savedFadeMode = 0;
  std::int16_t imageIndex = 0;
  std::int16_t imagePosX = 0;
  std::int16_t imagePosY = 0;
  std::int16_t scrollLength = 0;
  std::vector<Rgb> scrollStrip;
  Grid<Color> tickerStrip;
  std::int32_t tickerMaxWidth = 0;
  Boolean transitionRunning;
  std::int16_t steps = 0;
  std::int16_t step = 0;
  double fadeFactor = 0;
  std::vector<std::int32_t> cellOrder;
  Grid<Boolean> cellPending;
  Boolean beatOn;

  Timer timer1;  ///< the step timer
  Timer timer2;  ///< the sequence timer

  ListView efxList;
  ListBox type;
  PictureBox picture;  ///< the preview, `PB_A`
  PictureBox mini;     ///< hidden: the image cut to the size of the matrix
  PictureBox image;    ///< hidden: the loaded image
};

}  // namespace korvane
