#include "generators/ImageCode.h"

#include "platform/TextFile.h"

namespace korvane {

bool loadImage(Engine& engine, Deck& deck, int index) {
  const std::string& path = deck.effect().imageFiles.at(static_cast<std::size_t>(index));
  if (!fileExists(path)) return false;
  deck.image.setRaster(engine.platform.loadPicture(path));
  return true;
}

void placeImage(Engine&, Deck&) {}

void prepareImage(Engine&, Deck&) {}

void sampleMini(Engine&, Deck&) {}

void moveImage(Engine&, Deck&) {}

void nextImage(Engine&, Deck&) {}

}  // namespace korvane
