#pragma once

#include "desk/output/Carrier.h"

namespace korvane {

/// What the protocols over UDP share: a socket to send by, which is opened anew after an error, and
/// others to listen by.
class UdpCarrier : public Carrier {
 public:
  UdpCarrier(const OutputConfig& config, Network& network) : config_(config), network_(network) {}

  Sent send(const OutputPicture& picture, bool farewell) override;
  TimePoint errandDue() const override { return errandDue_; }
  Sent runErrand(TimePoint now) override;
  void listen(TimePoint now) override;
  std::string concern() const override { return deaf_.empty() ? heard() : deaf_; }

 protected:
  /// Adds the datagrams of a picture.
  virtual void write(const OutputPicture& picture, bool farewell, std::vector<Datagram>& out) = 0;
  /// Adds the datagrams of the errand that is due now, and returns when the next one is.
  virtual TimePoint writeErrand(TimePoint, std::vector<Datagram>&) { return TimePoint::max(); }
  /// What to listen by.
  virtual std::vector<SocketSettings> ears() const { return {}; }
  /// Whether errands are questions, whose answers come to where they came from.
  virtual bool asks() const { return false; }
  /// Takes a datagram that came; longer ones are cut to some hundred bytes.
  virtual void hear(const Endpoint&, std::span<const std::uint8_t>, TimePoint) {}
  /// Lets go what was heard too long ago.
  virtual void forget(TimePoint) {}
  /// What was heard and a person should know.
  virtual std::string heard() const { return {}; }

  Endpoint place(std::uint32_t usual) const;

  const OutputConfig config_;

 private:
  std::string speak();
  void openEars();

  Network& network_;
  std::unique_ptr<UdpSocket> mouth_;
  std::vector<std::unique_ptr<UdpSocket>> ears_;
  std::string deaf_;  ///< why nothing can be heard
  TimePoint errandDue_ = TimePoint::min();
  std::vector<Datagram> datagrams_;
};

}  // namespace korvane
