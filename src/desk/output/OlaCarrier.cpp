#include "desk/output/OlaCarrier.h"

#ifdef KORVANE_OLA

#include <arpa/inet.h>
#include <ola/Callback.h>
#include <ola/DmxBuffer.h>
#include <ola/Logging.h>
#include <ola/client/OlaClient.h>
#include <ola/io/SelectServer.h>
#include <ola/network/TCPSocket.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace korvane {
namespace {

using namespace std::chrono_literals;

constexpr auto kRetry = 1s;
constexpr int kPatience = 500;  // ms

/// A connection to olad; -1 if there is none within a moment, so that ending never waits long.
int connectTo(const std::string& address, int port) {
  const int connection = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
  sockaddr_in to{};
  to.sin_family = AF_INET;
  to.sin_port = htons(static_cast<std::uint16_t>(port));
  inet_pton(AF_INET, address.empty() ? "127.0.0.1" : address.c_str(), &to.sin_addr);
  pollfd wait{connection, POLLOUT, 0};
  int error = 0;
  socklen_t size = sizeof error;
  const bool connected =
      (connect(connection, reinterpret_cast<const sockaddr*>(&to), sizeof to) == 0 ||
       (errno == EINPROGRESS && poll(&wait, 1, kPatience) > 0)) &&
      getsockopt(connection, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
  if (connected) return connection;
  if (connection >= 0) close(connection);
  return -1;
}

class OlaCarrier : public Carrier {
 public:
  explicit OlaCarrier(const OutputConfig& config) : config_(config) {
    ola::InitLogging(ola::OLA_LOG_NONE, ola::OLA_LOG_NULL);
  }
  ~OlaCarrier() override { disconnect(); }

  Sent send(const OutputPicture& picture, bool farewell) override;
  int repeats() const override { return 0; }  // nothing is lost on the way to olad
  std::chrono::milliseconds keepAlive() const override { return 1s; }

 private:
  void connect();
  void disconnect();
  void closed() {
    lost_ = true;
    onClose_ = nullptr;  // it is gone once it has run
  }

  const OutputConfig config_;
  ola::io::SelectServer server_;
  std::unique_ptr<ola::network::TCPSocket> socket_;
  std::unique_ptr<ola::client::OlaClient> client_;
  ola::SingleUseCallback0<void>* onClose_ = nullptr;  // which the client does not free
  bool lost_ = false;
  TimePoint triedAt_{};
};

void OlaCarrier::connect() {
  const auto now = std::chrono::steady_clock::now();
  if (now - triedAt_ < kRetry) return;
  triedAt_ = now;
  const int connection = connectTo(config_.address, config_.port);
  if (connection < 0) return;
  socket_ = std::make_unique<ola::network::TCPSocket>(connection);
  socket_->SetNoDelay();
  client_ = std::make_unique<ola::client::OlaClient>(socket_.get());
  lost_ = false;
  if (!client_->Setup() || !server_.AddReadDescriptor(socket_.get())) return disconnect();
  onClose_ = ola::NewSingleCallback(this, &OlaCarrier::closed);
  client_->SetCloseHandler(onClose_);
}

void OlaCarrier::disconnect() {
  if (socket_) server_.RemoveReadDescriptor(socket_.get());
  if (client_) client_->Stop();
  client_.reset();
  socket_.reset();
  delete std::exchange(onClose_, nullptr);
}

Sent OlaCarrier::send(const OutputPicture& picture, bool) {
  if (client_) server_.RunOnce(ola::TimeInterval(0, 0));  // hears of a daemon that has ended
  if (lost_) disconnect();
  if (!client_) connect();
  lost_ = lost_ && client_;
  if (!client_)
    return {0, "olad can't be reached at " +
                   (config_.address.empty() ? "this machine" : config_.address) + ", port " +
                   std::to_string(config_.port) + "; is it running?"};
  for (std::size_t i = 0; i < config_.routes.size(); ++i) {
    const Slots& slots = picture.universes[i];
    client_->SendDMX(static_cast<unsigned>(config_.routes[i].universe),
                     ola::DmxBuffer(slots.data(), static_cast<unsigned>(slots.size())),
                     ola::client::SendDMXArgs());
  }
  return {static_cast<int>(config_.routes.size()), ""};
}

}  // namespace

std::unique_ptr<Carrier> makeOlaCarrier(const OutputConfig& config) {
  return std::make_unique<OlaCarrier>(config);
}

}  // namespace korvane

#else

namespace korvane {
namespace {

class NoOla : public Carrier {
 public:
  Sent send(const OutputPicture&, bool) override {
    return {0, "this Korvane was built without the client library of OLA"};
  }
};

}  // namespace

std::unique_ptr<Carrier> makeOlaCarrier(const OutputConfig&) { return std::make_unique<NoOla>(); }

}  // namespace korvane

#endif
