#pragma once

#include <array>

#include "generators/color/MxColorForm.h"
#include "generators/color/MxGradientForm.h"
#include "generators/colorchange/MxColorChange.h"
#include "generators/colorscroll/MxColorScroll.h"
#include "generators/fireandwater/MxFire.h"
#include "generators/fireandwater/MxWater.h"
#include "generators/image/MxImageForm.h"
#include "generators/image/MxImageList.h"
#include "generators/kit/EffectDialog.h"
#include "generators/kit/MxColorMixer.h"
#include "generators/paint/MxPaintForm.h"
#include "generators/ticker/MxTickerForm.h"
#include "state/Effect.h"

namespace korvane {

/// The dialogs of the effects and the colour mixer. They exist once, shared by both decks.
struct Dialogs {
  explicit Dialogs(Engine& engine);

  MxColorMixer mixer;
  MxColorForm color;
  MxGradientForm gradient;
  MxPaintForm paint;
  MxImageForm image;
  MxImageList imageList;
  MxColorChange colorChange;
  MxColorScroll colorScroll;
  MxFire fire;
  MxWater water;
  MxTickerForm ticker;

  /// By effect type; nullptr for a type without a dialog.
  std::array<EffectDialog*, kEffectTypes> byType;
};

}  // namespace korvane
