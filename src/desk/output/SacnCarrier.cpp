#include "desk/output/SacnCarrier.h"

#include <algorithm>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr auto kDiscoveryInterval = 10s;   // E1.31 E131_UNIVERSE_DISCOVERY_INTERVAL
constexpr auto kSourceLost = 2500ms;       // E1.31 6.7.1: E131_NETWORK_DATA_LOSS_TIMEOUT
constexpr std::size_t kMostForeign = 200;  // so that a flood takes no memory

/// ANSI E1.31-2018, 9.3.1: 239.255, then the universe's high and low byte.
std::uint32_t groupOf(int universe) { return 0xefff0000U | static_cast<std::uint32_t>(universe); }

}  // namespace

Endpoint SacnCarrier::placeOf(int universe) const { return place(groupOf(universe)); }

void SacnCarrier::write(const OutputPicture& picture, bool farewell, std::vector<Datagram>& out) {
  const int synchronisation = farewell ? 0 : config_.synchronisation;
  for (std::size_t i = 0; i < config_.routes.size(); ++i) {
    const int universe = config_.routes[i].universe;
    const PacketHead head{identity_.component,
                          universe,
                          identity_.sequences->next(universe),
                          farewell,
                          config_.source,
                          config_.priority,
                          synchronisation};
    out.push_back({placeOf(universe), sacnPacket(head, picture.universes[i])});
  }
  if (synchronisation == 0) return;
  // A number of its own: data of that universe may be sent as well, and counts apart.
  out.push_back({placeOf(synchronisation),
                 sacnSynchronisation(identity_.component, synchronisation, ++synchronised_)});
}

/// Tells which universes are sent. By unicast nobody can take part in that.
TimePoint SacnCarrier::writeErrand(TimePoint now, std::vector<Datagram>& out) {
  std::vector<int> universes;
  for (const Route& route : config_.routes) universes.push_back(route.universe);
  std::sort(universes.begin(), universes.end());
  if (config_.address.empty() || isMulticast(placeOf(0).address))
    out.push_back({{groupOf(kSacnDiscoveryUniverse), config_.port},
                   sacnDiscovery(identity_.component, config_.source, universes)});
  return now + kDiscoveryInterval;
}

std::vector<SocketSettings> SacnCarrier::ears() const {
  std::vector<SocketSettings> all;
  for (const Route& route : config_.routes)
    all.push_back({config_.interface, kSacnPort, groupOf(route.universe)});
  return all;
}

void SacnCarrier::hear(const Endpoint& from, std::span<const std::uint8_t> bytes, TimePoint now) {
  const std::optional<SacnSource> source = sacnSource(bytes);
  if (!source || source->component == identity_.component) return;
  if (std::ranges::find(config_.routes, source->universe, &Route::universe) == config_.routes.end())
    return;
  const std::pair key(source->universe, source->component);
  if (source->terminated) {
    foreign_.erase(key);
  } else if (foreign_.size() < kMostForeign || foreign_.contains(key)) {
    foreign_[key] = {*source, from, now};
  }
}

void SacnCarrier::forget(TimePoint now) {
  std::erase_if(foreign_,
                [now](const auto& one) { return now - one.second.heardAt > kSourceLost; });
}

/// The strongest other source that is not weaker than this one, in words.
std::string SacnCarrier::heard() const {
  const Foreign* worst = nullptr;
  for (const auto& [key, one] : foreign_) {
    if (one.source.priority < config_.priority) continue;
    if (worst == nullptr || one.source.priority > worst->source.priority) worst = &one;
  }
  if (worst == nullptr) return {};
  const SacnSource& source = worst->source;
  const bool wins = source.priority > config_.priority;
  return "'" + source.name + "' at " + addressText(worst->from.address) + " sends universe " +
         std::to_string(source.universe) + " too, with " +
         (wins ? "the higher priority " : "the same priority ") + std::to_string(source.priority) +
         (wins ? ": its values win" : ": the lamps may flicker");
}

}  // namespace korvane
