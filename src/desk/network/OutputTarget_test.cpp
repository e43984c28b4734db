#include "desk/network/OutputTarget.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvane {
namespace {

std::string errorOf(const char* text) {
  try {
    parseOutputTarget(text);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "no error";
}

TEST(OutputTarget, TextsThatAreUnderstood) {
  const struct {
    const char* text;
    const char* described;
  } cases[] = {
      {"sacn:1", "sACN universe 1 to 239.255.0.1:5568"},
      {"sacn:258", "sACN universe 258 to 239.255.1.2:5568"},
      {"sacn:63999", "sACN universe 63999 to 239.255.249.255:5568"},
      {"sacn:1@127.0.0.1", "sACN universe 1 to 127.0.0.1:5568"},
      {"sacn:1@127.0.0.1:7000", "sACN universe 1 to 127.0.0.1:7000"},
      {"sacn:1%eth0", "sACN universe 1 to 239.255.0.1:5568 by eth0"},
      {"artnet:0", "Art-Net universe 0 to 255.255.255.255:6454"},
      {"artnet:32767@10.0.0.5", "Art-Net universe 32767 to 10.0.0.5:6454"},
      {"artnet:3@10.0.0.255:65535%wlp3s0.100",
       "Art-Net universe 3 to 10.0.0.255:65535 by wlp3s0.100"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(describe(parseOutputTarget(c.text)), c.described);
  }
}

TEST(OutputTarget, ErrorsSayWhatIsWrong) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"", "unknown protocol '', expected sacn or artnet"},
      {"dmx:1", "unknown protocol 'dmx', expected sacn or artnet"},
      {"sACN:1", "unknown protocol 'sACN', expected sacn or artnet"},
      {"sacn", "the universe is missing, expected PROTOCOL:UNIVERSE[@ADDRESS[:PORT]][%INTERFACE]"},
      {"sacn@127.0.0.1",
       "the universe is missing, expected PROTOCOL:UNIVERSE[@ADDRESS[:PORT]][%INTERFACE]"},
      {"sacn:", "sACN universe '' is not a whole number"},
      {"sacn:one", "sACN universe 'one' is not a whole number"},
      {"sacn:1.5", "sACN universe '1.5' is not a whole number"},
      {"sacn: 1", "sACN universe ' 1' is not a whole number"},
      {"sacn:0", "sACN universe 0 is out of range, expected 1 to 63999"},
      {"sacn:64000", "sACN universe 64000 is out of range, expected 1 to 63999"},
      {"sacn:99999999999", "sACN universe 99999999999 is out of range, expected 1 to 63999"},
      {"artnet:-1", "Art-Net universe -1 is out of range, expected 0 to 32767"},
      {"artnet:32768", "Art-Net universe 32768 is out of range, expected 0 to 32767"},
      {"sacn:1@", "address '' is not an IPv4 address such as 192.168.1.20"},
      {"sacn:1@lamps", "address 'lamps' is not an IPv4 address such as 192.168.1.20"},
      {"sacn:1@1.2.3", "address '1.2.3' is not an IPv4 address such as 192.168.1.20"},
      {"sacn:1@1.2.3.256", "address '1.2.3.256' is not an IPv4 address such as 192.168.1.20"},
      {"sacn:1@1.2.3.4:", "port '' is not a whole number"},
      {"sacn:1@1.2.3.4:0", "port 0 is out of range, expected 1 to 65535"},
      {"sacn:1@1.2.3.4:65536", "port 65536 is out of range, expected 1 to 65535"},
      {"sacn:1%", "interface '' is not 1 to 15 characters long"},
      {"sacn:1%sixteen-letters!", "interface 'sixteen-letters!' is not 1 to 15 characters long"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(errorOf(c.text), "output '" + std::string(c.text) + "': " + c.error);
  }
}

}  // namespace
}  // namespace korvane
