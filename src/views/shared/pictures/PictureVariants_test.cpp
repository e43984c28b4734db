#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "testing/Drawing.h"
#include "testing/FailureOf.h"
#include "views/shared/pictures/PictureFile.h"
#include "views/shared/pictures/TestPictures.h"

namespace korvane {
namespace {

// What the files show; scripts/make-test-pictures makes them.
const Drawing kDrawing = {"RGBYCM",  //
                          "W.RG.W",  //
                          "BBYYCC",  //
                          "......",  //
                          "MWMWMW"};
const Drawing kTwoColors = {"RBBRRRBBRB",  //
                            "BRRRRBBBRR",  //
                            "RRRRRRRRRB"};

struct Exact {
  const char* file;
  Drawing shown = kDrawing;
};

std::string nameOf(const testing::TestParamInfo<Exact>& info) {
  std::string name = info.param.file;
  std::replace(name.begin(), name.end(), '.', '_');
  return name;
}

class ExactPictures : public testing::TestWithParam<Exact> {};

// Wine's decoders are not those of Windows; what they lack is told, not passed over.
void skipUnderWine([[maybe_unused]] const std::string& file) {
#ifdef _WIN32
  if (file.starts_with("rle")) GTEST_SKIP() << "Wine's decoder reads no run-length bitmaps";
  if (file == "halfcolor.jpg") GTEST_SKIP() << "Wine's decoder is coarse where colours are halved";
#endif
}

TEST_P(ExactPictures, LoadToTheirPixels) {
  skipUnderWine(GetParam().file);
  if (IsSkipped()) return;
  expectPicture(readPicture(seedPath(GetParam().file)), GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(Bmp, ExactPictures,
                         testing::Values(Exact{"1bit.bmp", kTwoColors}, Exact{"4bit.bmp"},
                                         Exact{"8bit.bmp"}, Exact{"24bit.bmp"}, Exact{"32bit.bmp"},
                                         Exact{"rle4.bmp"}, Exact{"rle8.bmp"}, Exact{"topdown.bmp"},
                                         Exact{"bitfields.bmp"}, Exact{"os2.bmp"}),
                         nameOf);

// Of 5 bits the brightest is 248 to one reader, which fills up with zeros, and 255 to the other.
TEST(BitmapOf16Bits, LoadsToItsPixels) {
  const Raster raster = readPicture(seedPath("16bit.bmp"));
  const int on = colorPart(raster.pixel(0, 0), kRedMask);
  EXPECT_TRUE(on == 248 || on == 255) << on;
  expectPicture(raster, kDrawing,
                {{'R', rgb(on, 0, 0)},
                 {'G', rgb(0, on, 0)},
                 {'B', rgb(0, 0, on)},
                 {'Y', rgb(on, on, 0)},
                 {'C', rgb(0, on, on)},
                 {'M', rgb(on, 0, on)},
                 {'W', rgb(on, on, on)}});
}

// Transparent pixels are lamps that are off.
INSTANTIATE_TEST_SUITE_P(Gif, ExactPictures,
                         testing::Values(Exact{"plain.gif"}, Exact{"interlaced.gif"},
                                         Exact{"animated.gif"},
                                         Exact{"transparent.gif",
                                               {".GBYCM",  //
                                                "W..G.W",  //
                                                "BBYYCC",  //
                                                "......",  //
                                                "MWMWMW"}}),
                         nameOf);

// Of several sizes the largest, wherever it stands.
INSTANTIATE_TEST_SUITE_P(Ico, ExactPictures,
                         testing::Values(Exact{"1bit.ico", kTwoColors}, Exact{"4bit.ico"},
                                         Exact{"8bit.ico"}, Exact{"24bit.ico"}, Exact{"32bit.ico"},
                                         Exact{"sizes.ico"}, Exact{"png.ico"},
                                         Exact{"masked.ico",
                                               {".GBYCM",  //
                                                "...G..",  //
                                                "BBYYCC",  //
                                                "......",  //
                                                "M.M.M."}}),
                         nameOf);

// A jpg is exact but for a few units. Blocks of 8 pixels keep their own colours in their middles.
class JpegPictures : public testing::TestWithParam<const char*> {};

TEST_P(JpegPictures, LoadToTheirPixels) {
  skipUnderWine(GetParam());
  if (IsSkipped()) return;
  const Raster raster = readPicture(seedPath(GetParam()));
  ASSERT_EQ(raster.width(), 16);
  ASSERT_EQ(raster.height(), 16);
  const bool grey = std::string(GetParam()) == "grey.jpg";
  const Rgb colors[4] = {{255, 0, 0}, {0, 255, 0}, {0, 0, 255}, {255, 255, 255}};
  for (int block = 0; block < 4; ++block) {
    const Rgb& color = colors[block];
    const Rgb found = colorParts(raster.pixel(3 + 8 * (block % 2), 3 + 8 * (block / 2)));
    const int luma = (2126 * color[0] + 7152 * color[1] + 722 * color[2]) / 10000;  // as made
    for (std::size_t part = 0; part < 3; ++part)
      EXPECT_NEAR(found[part], grey ? luma : color[part], 6) << "block " << block;
  }
}

INSTANTIATE_TEST_SUITE_P(Jpg, JpegPictures,
                         testing::Values("baseline.jpg", "progressive.jpg", "halfcolor.jpg",
                                         "grey.jpg", "cmyk.jpg"));

class BrokenPictures : public testing::Test {
 protected:
  void TearDown() override { std::filesystem::remove_all(path_); }
  int failureFor(const std::string& bytes) {
    std::ofstream(path_, std::ios::binary) << bytes;
    return failureOf([this] { readPicture(path_); });
  }
  const std::string path_ = testing::TempDir() + "korvane-broken-picture-" +
                            testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(BrokenPictures, AFolderIsNoPicture) {
  std::filesystem::create_directory(path_);
  EXPECT_EQ(failureOf([this] { readPicture(path_); }), kFileNotFound);
}

TEST_F(BrokenPictures, NoiseIsNoPicture) {
  EXPECT_EQ(failureFor(std::string(5000, '\xA7')), kInvalidPicture);
}

// Width and height in the header of a bitmap.
std::string bitmapOf(std::int32_t width, std::int32_t height) {
  std::string bytes = seedBytes("8bit.bmp");
  std::copy_n(reinterpret_cast<const char*>(&width), 4, bytes.begin() + 18);
  std::copy_n(reinterpret_cast<const char*>(&height), 4, bytes.begin() + 22);
  return bytes;
}

TEST_F(BrokenPictures, ALyingSizeIsRefused) {
  EXPECT_EQ(failureFor(bitmapOf(0x7FFFFFFF, 0x7FFFFFFF)), kInvalidPicture);
  EXPECT_EQ(failureFor(bitmapOf(-6, 5)), kInvalidPicture);
}

// A file that declares 20000 x 3000 pixels, of a kind, with the bytes of a small picture behind.
struct Huge {
  const char* file;
  std::size_t (*place)(const std::string& bytes);  // of the size within the file
  const char* sides;                               // its bytes
  std::size_t count;
};

std::size_t afterMarker(const std::string& bytes, const char* marker) {
  return bytes.find(marker) + 5;
}

TEST_F(BrokenPictures, AHugeSizeIsRefusedInEveryKindBeforeItIsDecoded) {
  const Huge files[] = {
      {"24bit.bmp", [](const std::string&) { return std::size_t{18}; }, "\x20\x4E\0\0\xB8\x0B\0\0",
       8},
      {"baseline.jpg", [](const std::string& b) { return afterMarker(b, "\xFF\xC0"); },
       "\x0B\xB8\x4E\x20", 4},
      {"progressive.jpg", [](const std::string& b) { return afterMarker(b, "\xFF\xC2"); },
       "\x0B\xB8\x4E\x20", 4},
      {"plain.gif", [](const std::string&) { return std::size_t{6}; }, "\x20\x4E\xB8\x0B", 4},
      {"png.ico", [](const std::string& b) { return b.find("IHDR") + 4; },
       "\0\0\x4E\x20\0\0\x0B\xB8", 8},
      {"24bit.ico", [](const std::string&) { return std::size_t{22 + 4}; },
       "\x20\x4E\0\0\x70\x17\0\0", 8}};
  for (const Huge& huge : files) {
    std::string bytes = seedBytes(huge.file);
    bytes.replace(huge.place(bytes), huge.count, std::string(huge.sides, huge.count));
    std::ofstream(path_, std::ios::binary) << bytes;
    try {
      readPicture(path_);
      ADD_FAILURE() << huge.file << " was read";
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.number, kInvalidPicture);
      EXPECT_NE(std::string(failure.what()).find("larger than 16384"), std::string::npos)
          << huge.file << ": " << failure.what();
    }
  }
}

// A cut file is read as far as it goes or refused, but never more than that.
TEST_F(BrokenPictures, EveryCutOfEveryFileDoesNoHarm) {
  for (const std::string& name : seedNames()) {
    const std::string bytes = seedBytes(name);
    for (std::size_t length = 0; length < bytes.size(); length += 7) {
      const int failure = failureFor(bytes.substr(0, length));
      EXPECT_TRUE(failure == 0 || failure == kInvalidPicture) << name << " cut to " << length;
    }
  }
}

}  // namespace
}  // namespace korvane
