#pragma once

#include <memory>
#include <vector>

#include "generators/kit/EffectDialog.h"
#include "generators/kit/MxColorMixer.h"

namespace korvane {

/// The dialogs of the effects and the colour mixer. They exist once, shared by both decks.
struct Dialogs {
  explicit Dialogs(Engine& engine);

  MxColorMixer mixer;
  std::vector<std::unique_ptr<EffectDialog>> byType;
};

}  // namespace korvane
