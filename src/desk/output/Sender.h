#pragma once

#include <deque>
#include <optional>

#include "desk/network/LastError.h"
#include "desk/output/Carrier.h"

namespace korvane {

/// How an output fares, live.
struct OutputFigures {
  double packetsPerSecond = 0;           ///< Over the last second.
  std::int64_t packets = 0;              ///< Since it was switched on.
  std::int64_t late = 0;                 ///< Pictures that left more than 5 ms after they could.
  std::string error{};                   ///< Until it has been well for some seconds.
  std::string lastError{};               ///< Of all since it was switched on.
  std::string concern{};                 ///< What else a person should know, in words.
  std::vector<std::string> receivers{};  ///< Those that were found: name and address.

  /// What to tell: the error, or else the concern; empty while all is well.
  const std::string& problem() const { return error.empty() ? concern : error; }
};

/// What an output sends and when. It knows no clock and no thread: time is an argument.
///
/// A new picture goes out at once, or as soon as the rate allows; of several that came meanwhile
/// only the newest is sent. After it come its repeats, then keep-alives.
///
///     pictures  A         B C D
///     packets   A  a  a   B   D  d  d  d        d        d
class Sender {
 public:
  Sender(const OutputConfig& config, std::unique_ptr<Carrier> carrier, OutputPicture picture);

  /// A new picture, shown at this time: it replaces one that still waits. The picture that is shown
  /// already is no news.
  void show(OutputPicture picture, TimePoint now);
  /// Begins the end: black, the last picture or nothing, then the protocol's farewells.
  void end(AtEnd how);
  /// True when the last packet of the end has been sent.
  bool ended() const { return ending_ && lastPictures_ == 0 && farewells_ == 0; }

  /// When the next step is due; the first one is due since ever.
  TimePoint due() const { return std::min(pictureDue(), carrier_->errandDue()); }
  /// Sends what is due, and takes what has come. `left` tells the time behind the sending.
  void step(TimePoint now, TimePoint (*left)());

  OutputFigures figures(TimePoint now) const;

 private:
  TimePoint pictureDue() const;
  void sendPicture(TimePoint now, TimePoint (*left)());
  void note(const Sent& sent, TimePoint now);

  const OutputConfig config_;
  std::unique_ptr<Carrier> carrier_;
  OutputPicture picture_;
  TimePoint shownAt_ = TimePoint::min();
  bool fresh_ = true;  ///< The picture has not been sent yet.
  bool ending_ = false;
  int lastPictures_ = 0;           ///< Pictures still to send before the farewells.
  int farewells_ = 0;              ///< Farewells still to send.
  int repeats_ = 0;                ///< Repeats still to come before the keep-alives.
  std::optional<TimePoint> sent_;  ///< When the last picture left.

  std::deque<std::pair<TimePoint, int>> recent_;  ///< packets of the last second
  std::int64_t packets_ = 0;
  std::int64_t late_ = 0;
  LastError error_;
  std::string lastError_;
};

}  // namespace korvane
