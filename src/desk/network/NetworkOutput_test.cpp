#include "desk/network/NetworkOutput.h"

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <net/if.h>
#include <netinet/in.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <functional>
#include <memory>

namespace korvane {
namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;
using testing::HasSubstr;
using Bytes = std::vector<std::uint8_t>;

/// A lamp of ours: a UDP receiver on this machine, on a free port or on the one given.
class Receiver {
 public:
  explicit Receiver(int port = 0) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    socklen_t size = sizeof address;
    auto* generic = reinterpret_cast<sockaddr*>(&address);
    const timeval patience{.tv_sec = 5, .tv_usec = 0};
    setsockopt(socket_, SOL_SOCKET, SO_RCVTIMEO, &patience, sizeof patience);
    EXPECT_EQ(bind(socket_, generic, size), 0);
    EXPECT_EQ(getsockname(socket_, generic, &size), 0);
    port_ = ntohs(address.sin_port);
  }
  ~Receiver() { close(socket_); }
  Receiver(const Receiver&) = delete;
  Receiver& operator=(const Receiver&) = delete;

  int port() const { return port_; }
  OutputTarget target(const std::string& stream) const {
    return parseOutputTarget(stream + "@127.0.0.1:" + std::to_string(port_));
  }
  bool join(const char* group) const {
    ip_mreq membership{};
    inet_pton(AF_INET, group, &membership.imr_multiaddr);
    membership.imr_interface.s_addr = htonl(INADDR_LOOPBACK);
    return setsockopt(socket_, IPPROTO_IP, IP_ADD_MEMBERSHIP, &membership, sizeof membership) == 0;
  }
  /// The next packet, waiting up to 5 s; empty when none comes.
  Bytes packet() const {
    Bytes bytes(2000);
    const auto size = recv(socket_, bytes.data(), bytes.size(), 0);
    bytes.resize(size > 0 ? static_cast<std::size_t>(size) : 0);
    return bytes;
  }
  /// The packets up to the first with this value on channel 1, or the first 20.
  std::vector<Bytes> packetsUntil(int value) const {
    std::vector<Bytes> packets;
    do {
      packets.push_back(packet());
    } while (packets.size() < 20 && packets.back().at(126) != value);
    return packets;
  }

 private:
  int socket_ = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  int port_ = 0;
};

/// Sends passes until the status says this, up to 5 s.
bool statusSays(NetworkOutput& output, const std::string& part) {
  const auto end = steady_clock::now() + 5s;
  for (int pass = 1; steady_clock::now() < end; ++pass) {
    if (output.status().find(part) != std::string::npos) return true;
    output.setChannel(1, static_cast<std::uint8_t>(pass % 256));
    output.endOfPass();
    std::this_thread::sleep_for(1ms);
  }
  return false;
}

/// Runs the body on a thread of its own in an empty network: no address, no route, `lo` down.
/// False when the system does not allow that.
bool withoutNetwork(const std::function<void()>& body) {
  bool allowed = false;
  std::thread([&] {
    allowed = unshare(CLONE_NEWNET) == 0;
    if (allowed) body();
  }).join();
  return allowed;
}

void bringLoopbackUp() {
  const int any = socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
  ifreq request{};
  std::memcpy(request.ifr_name, "lo", 3);
  request.ifr_flags = IFF_UP;
  EXPECT_EQ(ioctl(any, SIOCSIFFLAGS, &request), 0);
  close(any);
}

TEST(NetworkOutput, IsOffUntilStartedAndAfterStop) {
  const Receiver receiver;
  NetworkOutput output("test");
  EXPECT_EQ(output.status(), "off");
  output.setChannel(1, 5);
  output.endOfPass();
  output.stop();
  EXPECT_EQ(output.status(), "off");
  output.start(receiver.target("sacn:1"));
  EXPECT_THAT(output.status(), HasSubstr("sACN universe 1 to 127.0.0.1:"));
  output.stop();
  EXPECT_EQ(output.status(), "off");
}

TEST(NetworkOutput, StartSendsTheValuesThatWereSetWhileOff) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.setChannel(1, 5);
  output.setChannel(512, 6);
  output.start(receiver.target("artnet:0"));
  const auto packet = receiver.packet();
  ASSERT_EQ(packet.size(), 530U);
  EXPECT_EQ(packet[18], 5);
  EXPECT_EQ(packet[529], 6);
}

TEST(NetworkOutput, ChannelsThatNameNoLampArePassedOver) {
  const Receiver receiver;
  NetworkOutput output("test");
  for (const int channel : {0, -1, 513, 100000}) output.setChannel(channel, 255);
  output.start(receiver.target("artnet:0"));
  const auto packet = receiver.packet();
  ASSERT_EQ(packet.size(), 530U);
  EXPECT_TRUE(std::all_of(packet.begin() + 18, packet.end(), [](int v) { return v == 0; }));
}

TEST(NetworkOutput, APassIsSentAsAWholeAndNotBeforeItsEnd) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.start(receiver.target("sacn:1"));
  EXPECT_EQ(receiver.packet().size(), 638U);
  output.setChannel(1, 7);
  EXPECT_EQ(receiver.packet().at(126), 0) << "a repeat of the frame before";
  output.setChannel(2, 8);
  output.endOfPass();
  EXPECT_EQ(receiver.packetsUntil(7).back().at(127), 8);
}

TEST(NetworkOutput, OfManyPassesOnlyTheLatestIsSent) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.start(receiver.target("sacn:1"));
  receiver.packet();
  const auto start = steady_clock::now();
  for (int pass = 1; pass <= 200; ++pass) {
    output.setChannel(1, static_cast<std::uint8_t>(pass));
    output.endOfPass();
  }
  const auto packets = receiver.packetsUntil(200);
  const auto most = (steady_clock::now() - start) / 22ms + 2;
  EXPECT_EQ(packets.back().at(126), 200);
  EXPECT_LE(static_cast<long>(packets.size()), most);
}

TEST(NetworkOutput, APassThatChangesNothingSendsNothing) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.setChannel(1, 5);
  output.start(receiver.target("sacn:1"));
  receiver.packet();
  const auto first = steady_clock::now();
  output.setChannel(1, 5);
  output.endOfPass();
  receiver.packet();
  EXPECT_GT(steady_clock::now() - first, 60ms) << "only the repeat after 100 ms came";
}

TEST(NetworkOutput, KeepsTheLampsAliveWhileTheWindowThreadDoesNothing) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.setChannel(1, 9);
  output.start(receiver.target("sacn:1"));
  for (int i = 0; i < 5; ++i) EXPECT_EQ(receiver.packet().at(126), 9) << i;
}

TEST(NetworkOutput, StopTerminatesAnSacnStreamThreeTimes) {
  const Receiver receiver;
  NetworkOutput output("test");
  output.start(receiver.target("sacn:1"));
  receiver.packet();
  output.stop();
  int terminated = 0;
  for (int i = 0; i < 3; ++i) terminated += receiver.packet().at(112) == 0x40;
  EXPECT_EQ(terminated, 3);
}

TEST(NetworkOutput, StartOnAnotherTargetEndsTheFirstStream) {
  const Receiver first, second;
  NetworkOutput output("test");
  output.start(first.target("sacn:1"));
  output.start(second.target("sacn:2"));
  EXPECT_EQ(first.packet().at(112), 0);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(first.packet().at(112), 0x40);
  EXPECT_EQ(second.packet().at(114), 2);
}

TEST(NetworkOutput, ARefusingReceiverIsToldAndGetsItsValuesOnceItIsThere) {
  auto receiver = std::make_unique<Receiver>();
  const OutputTarget target = receiver->target("sacn:1");
  receiver.reset();
  NetworkOutput output("test");
  output.start(target);
  EXPECT_TRUE(statusSays(output, ": Connection refused")) << output.status();
  receiver = std::make_unique<Receiver>(target.port);
  EXPECT_EQ(receiver->packet().size(), 638U);
}

TEST(NetworkOutput, AnInterfaceThatIsNotThereIsToldAndStopDoesNotHang) {
  NetworkOutput output("test");
  output.start(parseOutputTarget("sacn:1@127.0.0.1%nosuchif"));
  EXPECT_TRUE(statusSays(output, " by nosuchif: No such device")) << output.status();
  const auto start = steady_clock::now();
  output.stop();
  EXPECT_LT(steady_clock::now() - start, 1s);
}

TEST(NetworkOutput, WithoutANetworkItSaysSoAndStopDoesNotHang) {
  const bool tried = withoutNetwork([] {
    for (const char* target : {"sacn:1", "artnet:0", "sacn:1@127.0.0.1"}) {
      NetworkOutput output("test");
      output.start(parseOutputTarget(target));
      EXPECT_TRUE(statusSays(output, ": Network is unreachable")) << output.status();
      const auto start = steady_clock::now();
      output.stop();
      EXPECT_LT(steady_clock::now() - start, 1s);
    }
  });
  if (!tried) GTEST_SKIP() << "needs the right to make a network name space";
}

TEST(NetworkOutput, SendsOnWhenTheNetworkComesUp) {
  const bool tried = withoutNetwork([] {
    NetworkOutput output("test");
    output.start(parseOutputTarget("sacn:1@127.0.0.1"));
    EXPECT_TRUE(statusSays(output, ": Network is unreachable")) << output.status();
    bringLoopbackUp();
    const Receiver receiver(5568);
    EXPECT_EQ(receiver.packet().size(), 638U);
  });
  if (!tried) GTEST_SKIP() << "needs the right to make a network name space";
}

TEST(NetworkOutput, AMulticastStreamReachesItsGroup) {
  const Receiver receiver;
  ASSERT_TRUE(receiver.join("239.255.0.1"));
  NetworkOutput output("test");
  output.setChannel(1, 42);
  output.start(parseOutputTarget("sacn:1@239.255.0.1:" + std::to_string(receiver.port()) + "%lo"));
  EXPECT_EQ(receiver.packet().at(126), 42);
}

}  // namespace
}  // namespace korvane
