#include "desk/output/Carrier.h"

#include "desk/output/ArtnetCarrier.h"
#include "desk/output/DdpCarrier.h"
#include "desk/output/OlaCarrier.h"
#include "desk/output/SacnCarrier.h"

namespace korvane {

OutputPicture pictureFor(const OutputConfig& config, const WallPicture& wall) {
  OutputPicture picture;
  for (const Route& route : config.routes) picture.universes.push_back(wall.universe(route.wall));
  if (config.kind == OutputKind::Ddp) picture.lamps = wall.lamps;
  return picture;
}

OutputPicture blackLike(const OutputPicture& picture) {
  return {std::vector<Slots>(picture.universes.size()), std::vector<Rgb>(picture.lamps.size())};
}

std::unique_ptr<Carrier> makeCarrier(const OutputConfig& config, const SenderIdentity& identity,
                                     Network& network) {
  switch (config.kind) {
    case OutputKind::Sacn:
      return std::make_unique<SacnCarrier>(config, identity, network);
    case OutputKind::Artnet:
      return std::make_unique<ArtnetCarrier>(config, identity, network);
    case OutputKind::Ddp:
      return std::make_unique<DdpCarrier>(config, network);
    case OutputKind::Ola:
      break;
  }
  return makeOlaCarrier(config);
}

}  // namespace korvane
