#include "desk/output/Sender.h"

#include <utility>

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::microseconds;

// Repeats are spaced so that a lost packet is mended soon, and yet an effect's steps seldom have to
// wait for a repeat (E1.31 6.6.2).
constexpr auto kRepeatGap = 100ms;
constexpr auto kLate = 5ms;
// A protocol without a farewell says the last picture so often that losing one does no harm.
constexpr int kLastPictures = 3;

/// At most so many pictures in any second: the part of a second is rounded up and one more, so that
/// one too many always takes more than a second. 44 are as many as a DMX line carries
/// (E1.31 6.6.1).
microseconds gapOf(int rate) { return microseconds((1'000'000 + rate - 1) / rate); }

}  // namespace

Sender::Sender(const OutputConfig& config, std::unique_ptr<Carrier> carrier, OutputPicture picture)
    : config_(config), carrier_(std::move(carrier)), picture_(std::move(picture)) {}

void Sender::show(OutputPicture picture, TimePoint now) {
  if (ending_ || picture == picture_) return;
  picture_ = std::move(picture);
  if (!fresh_) shownAt_ = now;
  fresh_ = true;
}

void Sender::end(AtEnd how) {
  if (ending_) return;
  ending_ = true;
  farewells_ = carrier_->farewells();
  if (how == AtEnd::Black) picture_ = blackLike(picture_);
  if (how != AtEnd::Release) lastPictures_ = farewells_ > 0 ? 1 : kLastPictures;
}

TimePoint Sender::pictureDue() const {
  if (!sent_) return TimePoint::min();
  if (fresh_ || ending_) return *sent_ + gapOf(config_.rate);
  return *sent_ + (repeats_ > 0 ? kRepeatGap : carrier_->keepAlive());
}

void Sender::step(TimePoint now, TimePoint (*left)()) {
  if (!ended() && now >= pictureDue()) sendPicture(now, left);
  if (!ending_ && now >= carrier_->errandDue()) note(carrier_->runErrand(now), now);
  carrier_->listen(now);
}

void Sender::sendPicture(TimePoint now, TimePoint (*left)()) {
  const TimePoint could = std::max(pictureDue(), fresh_ ? shownAt_ : TimePoint::min());
  if (sent_ && now - could > kLate) ++late_;
  const bool farewell = ending_ && lastPictures_ == 0;
  if (farewell) {
    --farewells_;
  } else if (ending_) {
    --lastPictures_;
  }
  repeats_ = std::exchange(fresh_, false) ? carrier_->repeats() : std::max(repeats_ - 1, 0);
  const Sent sent = carrier_->send(picture_, farewell);
  // The next picture counts its wait from when this one has left, so a delay on the way out never
  // brings two too close.
  sent_ = left();
  note(sent, *sent_);
}

void Sender::note(const Sent& sent, TimePoint now) {
  packets_ += sent.packets;
  recent_.emplace_back(now, sent.packets);
  while (now - recent_.front().first > 1s) recent_.pop_front();
  error_.note(now, sent.error);
  if (!sent.error.empty()) lastError_ = sent.error;
}

OutputFigures Sender::figures(TimePoint now) const {
  OutputFigures figures;
  for (const auto& [at, packets] : recent_)
    figures.packetsPerSecond += now - at <= 1s ? packets : 0;
  figures.packets = packets_;
  figures.late = late_;
  figures.error = error_.text();
  figures.lastError = lastError_;
  figures.concern = carrier_->concern();
  figures.receivers = carrier_->receivers();
  return figures;
}

}  // namespace korvane
