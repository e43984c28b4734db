// Values to lamps over the network: the one header that a host needs.
#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>

#include "desk/network/LastError.h"
#include "desk/network/OutputStream.h"
#include "desk/network/OutputTarget.h"

namespace korvane {

/// One universe's values, sent by sACN or Art-Net. It is off until started. A thread of its own
/// sends the latest frame and the keep-alives, so the lamps keep their values while the window
/// thread is busy or hangs.
///
///     NetworkOutput output("korvane");
///     output.start(parseOutputTarget("sacn:1"));
///     output.setChannel(1, 255);
///     output.setChannel(2, 128);
///     output.endOfPass();  // one packet
///
/// All calls are for the window thread.
class NetworkOutput {
 public:
  /// `program` tells apart the programs of one user as senders. Two running copies of one
  /// program must not send to the same universe.
  explicit NetworkOutput(std::string_view program);
  ~NetworkOutput() { stop(); }
  NetworkOutput(const NetworkOutput&) = delete;
  NetworkOutput& operator=(const NetworkOutput&) = delete;

  /// Starts to send, first the values set so far. A stream that runs is stopped before.
  void start(const OutputTarget& target);
  /// Ends the stream cleanly: the last frame goes out, and an sACN stream is terminated. It takes
  /// up to 0.1 s, whether anyone can be reached or not. Nothing happens when off.
  void stop();

  /// Sets a channel, 1 - 512, also when off: the values are kept for start. Other channels name no
  /// lamp and are passed over; lamps without a channel send to 0.
  void setChannel(int channel, std::uint8_t value);
  /// Hands the values over to be sent, if one changed since the last pass.
  void endOfPass();

  /// For people: "off", or "sACN universe 1 to 239.255.0.1:5568", with ": " and the system's text
  /// of an error appended while there is one.
  std::string status() const;
  /// The last error alone; empty when off, and while all is well.
  std::string error() const;

 private:
  void run();

  const Uuid component_;
  Slots slots_{};         ///< The window thread's own.
  bool changed_ = false;  ///< A value changed in this pass.
  std::thread thread_;
  std::optional<OutputTarget> target_;  ///< None: off.

  mutable std::mutex mutex_;  ///< Guards what follows.
  std::condition_variable wake_;
  std::optional<OutputStream> stream_;
  LastError error_;
};

}  // namespace korvane
