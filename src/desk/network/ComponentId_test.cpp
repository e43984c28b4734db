#include "desk/network/ComponentId.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

constexpr const char* kMachine = "0123456789abcdef0123456789abcdef";

TEST(ComponentId, IsAVersion5UuidOfMachineUserAndProgram) {
  // As computed by Python's uuid.uuid5 for the name
  // "0123456789abcdef0123456789abcdef/1000/korvane".
  const Uuid expected = {0x8e, 0x7b, 0xe0, 0x03, 0x38, 0xcf, 0x5c, 0x1f,
                         0x8c, 0xc7, 0x81, 0x61, 0x3a, 0x1b, 0xe4, 0xe3};
  EXPECT_EQ(componentId("korvane", kMachine, 1000), expected);
}

TEST(ComponentId, DiffersByMachineUserAndProgram) {
  const Uuid id = componentId("korvane", kMachine, 1000);
  EXPECT_NE(componentId("korvane-play", kMachine, 1000), id);
  EXPECT_NE(componentId("korvane", "another machine", 1000), id);
  EXPECT_NE(componentId("korvane", kMachine, 1001), id);
}

TEST(ComponentId, IsTheSameAtEachStart) {
  EXPECT_EQ(componentId("korvane"), componentId("korvane"));
}

}  // namespace
}  // namespace korvane
