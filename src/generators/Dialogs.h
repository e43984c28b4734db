#pragma once

#include <array>

#include "generators/EffectDialog.h"
#include "generators/MxColorChange.h"
#include "generators/MxColorForm.h"
#include "generators/MxColorMixer.h"
#include "generators/MxColorScroll.h"
#include "generators/MxFire.h"
#include "generators/MxGradientForm.h"
#include "generators/MxImageForm.h"
#include "generators/MxImageList.h"
#include "generators/MxPaintForm.h"
#include "generators/MxTickerForm.h"
#include "generators/MxWater.h"
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
