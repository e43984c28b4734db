#include "generators/Dialogs.h"

namespace korvane {

Dialogs::Dialogs(Engine& engine)
    : mixer(engine),
      color(engine),
      gradient(engine),
      paint(engine),
      image(engine),
      imageList(engine),
      byType{&color, &gradient, &paint, &image} {
  engine.dialogs = this;
  for (EffectDialog* dialog : byType) {
    if (dialog != nullptr) engine.desktop.add(*dialog);
  }
  engine.desktop.add(imageList);
  engine.desktop.add(mixer);
}

}  // namespace korvane
