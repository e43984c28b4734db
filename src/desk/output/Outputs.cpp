#include "desk/output/Outputs.h"

#include <unistd.h>

#include "desk/network/ComponentId.h"

namespace korvane {
namespace {

constexpr int kMostCopies = 100;

/// The name of the first copy of the program that does not run yet: "korvane", "korvane 2", ...
std::string claimCopy(std::string_view program, Claim& claim) {
  for (int copy = 1;; ++copy) {
    std::string name = std::string(program) + (copy == 1 ? "" : " " + std::to_string(copy));
    claim = Claim("sender/" + std::to_string(getuid()) + "/" + name);
    if (claim.held() || claim.holder().empty() || copy == kMostCopies) return name;
  }
}

}  // namespace

Outputs::Outputs(std::string_view program, Network& network) : network_(network) {
  identity_.component = componentId(claimCopy(program, program_));
  sequences_ = std::make_unique<SequenceStore>(identity_.component);
  identity_.sequences = sequences_.get();
}

Output& Outputs::add(const OutputConfig& config) {
  outputs_.push_back(std::make_unique<Output>(config, identity_, network_));
  outputs_.back()->show(shown_);
  return *outputs_.back();
}

void Outputs::remove(std::size_t index) {
  outputs_.erase(outputs_.begin() + static_cast<std::ptrdiff_t>(index));
}

void Outputs::switchAllOn() {
  for (const auto& output : outputs_) output->switchOn();
}

void Outputs::switchAllOff(std::optional<AtEnd> how) {
  for (const auto& output : outputs_) output->beginEnd(how);
  for (const auto& output : outputs_) output->switchOff();
}

void Outputs::show(const LevelledPicture& wall) {
  shown_ = wall;
  for (const auto& output : outputs_) output->show(wall);
}

std::string Outputs::status() const {
  std::string text;
  for (const auto& output : outputs_) text += (text.empty() ? "" : "; ") + output->status();
  return text.empty() ? "off" : text;
}

}  // namespace korvane
