#include "desk/output/UdpCarrier.h"

#include <array>

namespace korvane {

Endpoint UdpCarrier::place(std::uint32_t usual) const {
  return {config_.address.empty() ? usual : parseAddress(config_.address).value_or(usual),
          config_.port};
}

/// Sends what was written. After an error the socket is opened anew with the next datagrams, so
/// sending recovers when a cable, a route or an interface comes back.
std::string UdpCarrier::speak() {
  std::string error;
  if (!mouth_) mouth_ = network_.open({config_.interface}, error);
  if (!mouth_) return error;
  error = mouth_->send(datagrams_);
  if (!error.empty()) mouth_.reset();
  return error;
}

void UdpCarrier::openEars() {
  deaf_.clear();
  for (const SocketSettings& settings : ears()) {
    std::string error;
    auto ear = network_.open(settings, error);
    if (ear) {
      ears_.push_back(std::move(ear));
    } else if (asks() || error == portTakenText()) {
      deaf_ = "UDP port " + std::to_string(settings.port) +
              " can't be listened on, so others can't be seen: " + error;
    }
  }
}

Sent UdpCarrier::send(const OutputPicture& picture, bool farewell) {
  datagrams_.clear();
  write(picture, farewell, datagrams_);
  if (datagrams_.empty()) return {};
  const std::string error = speak();
  return {static_cast<int>(datagrams_.size()), error};
}

Sent UdpCarrier::runErrand(TimePoint now) {
  datagrams_.clear();
  errandDue_ = writeErrand(now, datagrams_);
  if (ears_.empty()) openEars();
  if (datagrams_.empty()) return {};
  const std::string error = asks() && !ears_.empty() ? ears_.front()->send(datagrams_) : speak();
  return {static_cast<int>(datagrams_.size()), error};
}

void UdpCarrier::listen(TimePoint now) {
  forget(now);
  std::array<std::uint8_t, 300> bytes{};
  for (const auto& ear : ears_) {
    while (const auto received = ear->receive(bytes))
      hear(received->from, std::span(bytes).first(received->size), now);
  }
}

}  // namespace korvane
