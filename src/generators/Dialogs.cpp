#include "generators/Dialogs.h"

namespace korvane {

Dialogs::Dialogs(Engine& engine)
    : mixer(engine),
      color(engine),
      gradient(engine),
      colorChange(engine),
      colorScroll(engine),
      byType{&color, &gradient, nullptr, nullptr, &colorChange, &colorScroll} {
  engine.dialogs = this;
  for (EffectDialog* dialog : byType) {
    if (dialog != nullptr) engine.desktop.add(*dialog);
  }
  engine.desktop.add(mixer);
}

}  // namespace korvane
