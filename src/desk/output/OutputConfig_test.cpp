#include "desk/output/OutputConfig.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace korvane {
namespace {

std::string errorOf(const std::string& text) {
  try {
    parseOutput(text);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return "no error";
}

TEST(OutputConfig, TextsThatAreUnderstoodAndWrittenAsTheyWere) {
  const struct {
    const char* text;
    const char* described;
  } cases[] = {
      {"sacn:1", "sACN universe 1 to 239.255.0.1:5568"},
      {"sacn:63999", "sACN universe 63999 to 239.255.249.255:5568"},
      {"sacn:1-15", "sACN universes 1-15 to their groups"},
      {"sacn:1-4+10", "sACN universes 1-4, 10 to their groups"},
      {"sacn:3=101+5-6=7-8", "sACN universes 101, 7-8 to their groups"},
      {"sacn:1@127.0.0.1:7000", "sACN universe 1 to 127.0.0.1:7000"},
      {"sacn:1%eth0", "sACN universe 1 to 239.255.0.1:5568 by eth0"},
      {"sacn:1,rate=30,priority=0,source=Left wall,sync=63999,end=hold,name=Left",
       "sACN universe 1 to 239.255.0.1:5568"},
      {"artnet:0", "Art-Net universe 0 (net 0, sub-net 0, universe 0) to 255.255.255.255:6454"},
      {"artnet:32767@10.0.0.5",
       "Art-Net universe 32767 (net 127, sub-net 15, universe 15) to 10.0.0.5:6454"},
      {"artnet:0-14@nodes", "Art-Net universes 0-14 to the nodes that answer"},
      {"artnet:0-14,sync=on,end=release", "Art-Net universes 0-14 to 255.255.255.255:6454"},
      {"ddp@10.0.0.1,gamma=2.2,smooth=on,balance=100/90/80", "DDP to 10.0.0.1:4048"},
      {"ddp@192.168.1.50", "DDP to 192.168.1.50:4048"},
      {"ddp@192.168.1.50:4049,rate=20", "DDP to 192.168.1.50:4049"},
      {"ola:1-15", "OLA universes 1-15 to this machine's olad"},
      {"ola:0@10.0.0.9:9011", "OLA universe 0 to 10.0.0.9:9011"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    const OutputConfig config = parseOutput(c.text);
    EXPECT_EQ(describe(config), c.described);
    EXPECT_EQ(outputText(config), c.text);
  }
}

TEST(OutputConfig, AnEntryOfAListIsALineWhateverItsNameHolds) {
  OutputEntry entry{parseOutput("sacn:1-2,source=Left%2C 50 %"), false};
  EXPECT_EQ(entry.config.source, "Left, 50 %") << "a % alone stands for itself";
  entry.config.name = "T\u00fcr, 100 %2C\nright";
  const std::string line = entryText(entry);
  EXPECT_EQ(line, "off sacn:1-2,source=Left%2C 50 %25,name=T%C3%BCr%2C 100 %252C%0Aright");
  EXPECT_EQ(parseEntry(line), entry);
  EXPECT_THROW(parseEntry("sacn:1"), std::invalid_argument);
  EXPECT_THROW(parseEntry("maybe sacn:1"), std::invalid_argument);
}

TEST(OutputConfig, UniversesFollowTheWallsUnlessTheyAreNamed) {
  EXPECT_EQ(parseOutput("sacn:7-8+20").routes, (std::vector<Route>{{1, 7}, {2, 8}, {3, 20}}));
  EXPECT_EQ(parseOutput("artnet:4-5=0-1+9").routes, (std::vector<Route>{{4, 0}, {5, 1}, {6, 9}}));
}

TEST(OutputConfig, WhatIsNotSaidIsUsual) {
  const OutputConfig config = parseOutput("sacn:1");
  EXPECT_EQ(config.rate, 44);
  EXPECT_EQ(config.priority, 100);
  EXPECT_EQ(config.source, "Korvane");
  EXPECT_EQ(config.synchronisation, 0);
  EXPECT_EQ(config.atEnd, AtEnd::Black);
}

TEST(OutputConfig, ErrorsSayWhatIsWrong) {
  const struct {
    const char* text;
    const char* error;
  } cases[] = {
      {"", "unknown protocol '', expected sacn, artnet, ddp or ola"},
      {"sACN:1", "unknown protocol 'sACN', expected sacn, artnet, ddp or ola"},
      {"sacn",
       "the universe is missing, expected KIND[:UNIVERSES][@ADDRESS[:PORT]][%INTERFACE]"
       "[,SETTING=VALUE...], as in sacn:1-15"},
      {"sacn:", "sACN universe '' is not a whole number"},
      {"sacn:0", "sACN universe 0 is out of range, expected 1 to 63999"},
      {"sacn:64000", "sACN universe 64000 is out of range, expected 1 to 63999"},
      {"artnet:-1", "Art-Net universe -1 is out of range, expected 0 to 32767"},
      {"sacn:1-", "sACN universe '' is not a whole number"},
      {"sacn:5-3", "sACN universes 5-3 run backwards"},
      {"sacn:1-17", "the wall has 16 universes, not more"},
      {"sacn:16=1+2", "the wall has 16 universes, not more"},
      {"sacn:17=1", "universe of the wall 17 is out of range, expected 1 to 16"},
      {"sacn:1-2=1-3", "as many universes must stand behind the '=' as before it, not '1-2=1-3'"},
      {"sacn:1-3+2", "sACN universe 2 stands there twice"},
      {"sacn:1@lamps", "address 'lamps' is not an IPv4 address such as 192.168.1.20"},
      {"sacn:1@1.2.3.4:0", "port 0 is out of range, expected 1 to 65535"},
      {"sacn:1%", "interface '' is not 1 to 15 characters long"},
      {"ddp", "DDP needs an address, as in ddp@192.168.1.50"},
      {"ddp:1@192.168.1.50", "DDP has no universes; it takes the whole wall"},
      {"sacn:1,rate", "the setting 'rate' needs a value, as in rate=30"},
      {"sacn:1,rate=0", "rate 0 is out of range, expected 1 to 1000"},
      {"sacn:1,priority=201", "priority 201 is out of range, expected 0 to 200"},
      {"sacn:1,end=dark", "end must be black, hold or release, not 'dark'"},
      {"sacn:1,gamma=5", "gamma must be a number, 1 to 4, not '5'"},
      {"sacn:1,balance=100/90",
       "balance must be three shares in percent, as in 100/90/80, not '100/90'"},
      {"sacn:1,balance=100/90/101", "share of a colour 101 is out of range, expected 0 to 100"},
      {"artnet:1,sync=maybe", "sync must be on or off, not 'maybe'"},
      {"ddp@10.0.0.1,priority=1",
       "DDP has no setting 'priority', expected rate, end, gamma, smooth, balance or name"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.text);
    EXPECT_EQ(errorOf(c.text), "output '" + std::string(c.text) + "': " + c.error);
  }
}

}  // namespace
}  // namespace korvane
