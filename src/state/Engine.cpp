#include "state/Engine.h"

#include <bit>

#include "platform/Failure.h"

namespace korvane {

Engine::Engine(Platform& services)
    : platform(services), sim("surface", {640, 480, PictureBox::Sizing::Grow}) {
  randomize();
}

Host& Engine::host() {
  if (v.host == nullptr) throw Failure(kObjectNotSet, "the desk has not called ITharnPlugin_Init");
  return *v.host;
}

void Engine::randomize() {
  const float seconds = static_cast<float>(static_cast<double>(platform.timeOfDay()) / 1000.0);
  random.seed(std::bit_cast<std::uint32_t>(seconds));
}

}  // namespace korvane
