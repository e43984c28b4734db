#pragma once

#include <chrono>
#include <memory>
#include <string>
#include <vector>

#include "desk/network/Packet.h"
#include "desk/network/SequenceStore.h"
#include "desk/output/OutputConfig.h"
#include "desk/wall/WallPicture.h"
#include "platform/Network.h"

namespace korvane {

using TimePoint = std::chrono::steady_clock::time_point;

/// A picture as one output sends it.
struct OutputPicture {
  std::vector<Slots> universes;  ///< In the order of the output's routes.
  std::vector<Rgb> lamps;        ///< Along the wire, for DDP.

  bool operator==(const OutputPicture&) const = default;
};

/// The part of the wall's picture that the output sends.
OutputPicture pictureFor(const OutputConfig& config, const WallPicture& wall);
/// The same size, all dark.
OutputPicture blackLike(const OutputPicture& picture);

/// Who sends: the same for all outputs of a program.
struct SenderIdentity {
  Uuid component{};
  SequenceStore* sequences = nullptr;  ///< The numbers of packets.
};

/// How an attempt to send went.
struct Sent {
  int packets = 0;
  std::string error{};  ///< The system's text, or words; empty: all is well.
};

/// Carries an output's pictures out: one protocol, without a clock. An output's thread has one for
/// itself.
class Carrier {
 public:
  virtual ~Carrier() = default;

  /// Sends a picture, all of it at once. `farewell`: it ends the stream.
  virtual Sent send(const OutputPicture& picture, bool farewell) = 0;
  /// How often a stream's end is told.
  virtual int farewells() const { return 0; }

  /// Packets that repeat a new picture soon, before it is only kept alive.
  virtual int repeats() const { return 3; }
  /// How long a still picture is not sent.
  virtual std::chrono::milliseconds keepAlive() const { return std::chrono::milliseconds(800); }

  /// When the next errand besides pictures is due: to be found, to find others.
  virtual TimePoint errandDue() const { return TimePoint::max(); }
  virtual Sent runErrand(TimePoint) { return {}; }
  /// Takes what has come in.
  virtual void listen(TimePoint) {}

  /// What a person should know though sending goes well, in words; empty for nothing.
  virtual std::string concern() const { return {}; }
  /// The receivers that were found, a line each: name and address.
  virtual std::vector<std::string> receivers() const { return {}; }
};

std::unique_ptr<Carrier> makeCarrier(const OutputConfig& config, const SenderIdentity& identity,
                                     Network& network);

}  // namespace korvane
