#include "playback/EffectStart.h"

#include "generators/Effects.h"

namespace korvane {

void setTypeDefaults(Engine& engine, Deck& deck, std::int16_t type) {
  if (const EffectKind* kind = kindOf(type)) kind->defaults(engine, deck);
}

void startEffect(Engine& engine, Deck& deck, std::int16_t type, StartCause cause) {
  const EffectKind* kind = kindOf(type);
  if (kind == nullptr) return engine.platform.messageBox("Wert nicht erlaubt");
  kind->start(engine, deck, cause);
}

}  // namespace korvane
