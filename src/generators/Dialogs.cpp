#include "generators/Dialogs.h"

namespace korvane {

Dialogs::Dialogs(Engine& engine)
    : mixer(engine),
      color(engine),
      gradient(engine),
      paint(engine),
      image(engine),
      imageList(engine),
      colorChange(engine),
      colorScroll(engine),
      fire(engine),
      water(engine),
      ticker(engine),
      byType{&color,       &gradient, &paint, &image, &colorChange,
             &colorScroll, &fire,     &water, &ticker} {
  engine.dialogs = this;
  for (EffectDialog* dialog : byType) {
    if (dialog != nullptr) engine.desktop.add(*dialog);
  }
  engine.desktop.add(imageList);
  engine.desktop.add(mixer);
}

}  // namespace korvane
