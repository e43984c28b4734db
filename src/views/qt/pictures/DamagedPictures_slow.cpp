// Ten thousand damaged files of each kind: each is read or refused, and nothing else happens. Meant
// for a build with the sanitizers; the seed is fixed.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

#include "platform/Failure.h"
#include "views/shared/pictures/PictureFile.h"
#include "views/shared/pictures/TestPictures.h"

namespace korvane {
namespace {

constexpr int kFiles = 10'000;

class Damage {
 public:
  explicit Damage(std::uint32_t seed) : random_(seed) {}

  std::size_t upTo(std::size_t most) { return most == 0 ? 0 : random_() % most; }

  // One to six injuries, most of them near the beginning, where files say what they are.
  void injure(std::string& bytes) {
    for (std::size_t left = 1 + upTo(6); left > 0 && !bytes.empty(); --left) injureOnce(bytes);
  }

 private:
  std::size_t place(const std::string& bytes) {
    const bool early = upTo(3) > 0;
    return upTo(early ? std::min<std::size_t>(bytes.size(), 80) : bytes.size());
  }

  void injureOnce(std::string& bytes) {
    const std::size_t at = place(bytes);
    switch (upTo(6)) {
      case 0:
        bytes[at] = static_cast<char>(bytes[at] ^ (1 << upTo(8)));
        break;
      case 1:
        bytes[at] = static_cast<char>(upTo(256));
        break;
      case 2:  // what a length or a size must not be
        for (std::size_t i = at; i < std::min(at + 1 + upTo(4), bytes.size()); ++i)
          bytes[i] = upTo(2) == 0 ? '\xFF' : '\0';
        break;
      case 3:
        bytes.resize(at);
        break;
      case 4:
        bytes.insert(at, std::string(1 + upTo(20), static_cast<char>(upTo(256))));
        break;
      default:
        bytes += bytes.substr(at);
        break;
    }
  }

  std::mt19937 random_;
};

class DamagedPictures : public testing::TestWithParam<const char*> {
 protected:
  void TearDown() override { std::filesystem::remove(path_); }
  const std::string path_ = testing::TempDir() + "korvane-damaged-picture" + GetParam();
};

TEST_P(DamagedPictures, AreReadOrRefusedAndNothingElseHappens) {
  const std::vector<std::string> seeds = seedNames(GetParam());
  ASSERT_FALSE(seeds.empty());
  Damage damage(20);
  int read = 0;
  int refused = 0;
  for (int i = 0; i < kFiles; ++i) {
    std::string bytes = seedBytes(seeds[damage.upTo(seeds.size())]);
    damage.injure(bytes);
    std::ofstream(path_, std::ios::binary | std::ios::trunc) << bytes;
    try {
      const Raster raster = readPicture(path_);
      ++read;
      ASSERT_GT(raster.width(), 0);
      ASSERT_GT(raster.height(), 0);
      ASSERT_LE(raster.width(), 16384);
      ASSERT_LE(raster.height(), 16384);
    } catch (const Failure& failure) {
      ++refused;
      ASSERT_EQ(failure.number, kInvalidPicture) << failure.what();
    }
  }
  RecordProperty("read", read);
  RecordProperty("refused", refused);
  // Both must have been tried: else the damage is too mild or too hard to show anything.
  EXPECT_GT(read, kFiles / 50);
  EXPECT_GT(refused, kFiles / 50);
}

INSTANTIATE_TEST_SUITE_P(Kind, DamagedPictures, testing::Values(".bmp", ".jpg", ".gif", ".ico"));

}  // namespace
}  // namespace korvane
