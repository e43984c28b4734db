#include "generators/Dialogs.h"

namespace korvane {

Dialogs::Dialogs(Engine& engine)
    : mixer(engine),
      color(engine),
      gradient(engine),
      colorChange(engine),
      colorScroll(engine),
      fire(engine),
      water(engine),
      ticker(engine),
      byType{&color,       &gradient, nullptr, nullptr, &colorChange,
             &colorScroll, &fire,     &water,  &ticker} {
  engine.dialogs = this;
  for (EffectDialog* dialog : byType) {
    if (dialog != nullptr) engine.desktop.add(*dialog);
  }
  engine.desktop.add(mixer);
}

}  // namespace korvane
