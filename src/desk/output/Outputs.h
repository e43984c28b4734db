#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "desk/output/Output.h"

namespace korvane {

/// The outputs of a program, any number at once, as a list in the order in which they were added.
class Outputs {
 public:
  /// `program` tells apart the programs of one user as senders; of two running copies of one, each
  /// has an identity of its own, the same at each start.
  explicit Outputs(std::string_view program, Network& network = machineNetwork());
  ~Outputs() { switchAllOff(); }

  /// Adds an output that is off, with the picture that the others show.
  Output& add(const OutputConfig& config);
  void remove(std::size_t index);
  std::size_t size() const { return outputs_.size(); }
  bool empty() const { return outputs_.empty(); }
  Output& at(std::size_t index) { return *outputs_.at(index); }
  const Output& at(std::size_t index) const { return *outputs_.at(index); }

  void switchAllOn();
  /// Ends all streams at the same time, each as it is set unless told otherwise.
  void switchAllOff(std::optional<AtEnd> how = {});

  /// The newest picture of the wall, for all.
  void show(const LevelledPicture& wall);
  void show(const WallPicture& wall) { show(LevelledPicture{wall}); }

  /// What each output is and how it fares, joined by "; ". "off" without any.
  std::string status() const;
  const Uuid& component() const { return identity_.component; }

 private:
  Network& network_;
  Claim program_;  ///< which of the copies of the program this is
  std::unique_ptr<SequenceStore> sequences_;
  SenderIdentity identity_;
  LevelledPicture shown_;
  std::vector<std::unique_ptr<Output>> outputs_;
};

}  // namespace korvane
