#include "desk/output/ArtnetCarrier.h"

#include <algorithm>
#include <set>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr auto kPollInterval = 2800ms;  // Art-Net 4: every 2.5 to 3 s
constexpr auto kNodeLost = 9s;          // three polls without an answer
constexpr std::size_t kMostNodes = 1000;

}  // namespace

std::vector<Endpoint> ArtnetCarrier::placesOf(int universe) const {
  if (!config_.toNodes) return {broadcast()};
  std::set<Endpoint> places;
  for (const auto& [key, node] : nodes_) {
    if (std::ranges::find(node.reply.universes, universe) != node.reply.universes.end())
      places.insert({key.first, config_.port});
  }
  return {places.begin(), places.end()};
}

void ArtnetCarrier::write(const OutputPicture& picture, bool, std::vector<Datagram>& out) {
  PacketHead head;
  for (std::size_t i = 0; i < config_.routes.size(); ++i) {
    head.universe = config_.routes[i].universe;
    const std::vector<Endpoint> places = placesOf(head.universe);
    if (places.empty()) continue;
    head.sequence = sequences_.nextArtnet(head.universe);
    const std::vector<std::uint8_t> packet = artnetPacket(head, picture.universes[i]);
    for (const Endpoint& place : places) out.push_back({place, packet});
  }
  if (config_.artSync && !out.empty()) out.push_back({broadcast(), artnetSync()});
}

TimePoint ArtnetCarrier::writeErrand(TimePoint now, std::vector<Datagram>& out) {
  if (!config_.toNodes) return TimePoint::max();
  out.push_back({broadcast(), artnetPoll()});
  polled_ = true;
  return now + kPollInterval;
}

std::vector<SocketSettings> ArtnetCarrier::ears() const {
  // Not shared: of two programs on one port, only one gets an answer that comes to this machine.
  if (config_.toNodes) return {{config_.interface, kArtnetPort}};
  return {};
}

void ArtnetCarrier::hear(const Endpoint& from, std::span<const std::uint8_t> bytes, TimePoint now) {
  const std::optional<ArtnetReply> reply = artnetReply(bytes);
  if (!reply) return;
  const NodeKey key(from.address, reply->bind);
  if (nodes_.size() < kMostNodes || nodes_.contains(key)) nodes_[key] = {*reply, now};
}

void ArtnetCarrier::forget(TimePoint now) {
  std::erase_if(nodes_, [now](const auto& one) { return now - one.second.heardAt > kNodeLost; });
}

std::string ArtnetCarrier::concern() const {
  std::string others = UdpCarrier::concern();
  if (!others.empty() || !config_.toNodes || !polled_) return others;
  std::string missing;
  for (const Route& route : config_.routes) {
    if (placesOf(route.universe).empty())
      missing += (missing.empty() ? "" : ", ") + std::to_string(route.universe);
  }
  return missing.empty() ? "" : "no node has answered for universe " + missing;
}

std::vector<std::string> ArtnetCarrier::receivers() const {
  std::vector<std::string> lines;
  for (const auto& [key, node] : nodes_) {
    std::string line = node.reply.name + " at " + addressText(key.first) + ", universes";
    for (const int universe : node.reply.universes) line += " " + describePortAddress(universe);
    lines.push_back(line);
  }
  return lines;
}

}  // namespace korvane
