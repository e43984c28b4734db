#include "generators/Dialogs.h"

#include "generators/Effects.h"

namespace korvane {

Dialogs::Dialogs(Engine& engine) : mixer(engine) {
  for (const EffectKind* kind : kinds()) {
    byType.push_back(KindOfDialog(kind->dialog).make(engine));
    engine.desktop.add(*byType.back());
  }
  for (const auto& dialog : byType) {
    for (const DialogWindow& window : dialog->windows()) engine.desktop.add(window.form);
  }
  engine.desktop.add(mixer);
}

}  // namespace korvane
