#include "testing/SimulatedDisk.h"

#include <gtest/gtest.h>

#include <ostream>
#include <system_error>

namespace korvane {
namespace {

TEST(SimulatedDisk, ThatIsFullTakesNoNewFile) {
  SimulatedDisk disk;
  disk.makeFolders("/shows");
  disk.create("/shows/a", "1234");
  disk.capacity = 6;
  EXPECT_THROW(disk.create("/shows/b", "567"), std::system_error);
  EXPECT_EQ(disk.kind("/shows/b"), Disk::Kind::Nothing);
  EXPECT_THROW(disk.overwrite("/shows/a", "abcdefgh"), std::system_error);
  EXPECT_LE(disk.used(), 6U);
  EXPECT_FALSE(*disk.write("/shows/c") << "567" << std::flush);
}

TEST(SimulatedDisk, ThatLosesItsPowerTearsTheWriteThatWasUnderWay) {
  for (std::uint64_t seed = 1; seed < 20; ++seed) {
    SimulatedDisk disk(seed);
    disk.makeFolders("/shows");
    disk.losePowerAfter(2);
    disk.create("/shows/a", "whole");
    EXPECT_THROW(disk.create("/shows/b", "0123456789"), std::system_error);
    EXPECT_TRUE(disk.powerLost());
    EXPECT_EQ(disk.kind("/shows/a"), Disk::Kind::Unknown);
    EXPECT_THROW(disk.rename("/shows/a", "/shows/c"), std::system_error);
    disk.restorePower();
    EXPECT_EQ(disk.bytesOf("/shows/a"), "whole");
    EXPECT_TRUE(std::string_view("0123456789").starts_with(disk.bytesOf("/shows/b")));
    EXPECT_LT(disk.size("/shows/b"), 10U);
  }
}

}  // namespace
}  // namespace korvane
