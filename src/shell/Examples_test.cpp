#include <array>
#include <fstream>

#include "testing/SourceFolder.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

const std::string kFolder = sourceFolder() + "/examples/";

// A show, its grid, and digests of all it showed in its minute and of the file that it is saved as.
struct Example {
  const char* stem;
  int cols, rows;
  std::uint64_t shown, saved;
};

// FNV-1a, 64 bits.
struct Digest {
  void add(std::uint8_t byte) { value = (value ^ byte) * 0x100000001B3U; }
  std::uint64_t value = 0xCBF29CE484222325U;
};

constexpr std::array kExamples = {
    Example{"1-club-night", 12, 12, 0x30D10819CCB18B20, 0xC56BA64C88E6ADAC},
    Example{"2-ticker-wall", 48, 8, 0x5ED37D07C9951D1F, 0x1252818F2FEF089B},
    Example{"3-fire-wall", 24, 16, 0xADDF238DAEA8977D, 0x15FC218724A3F70A},
    Example{"4-slide-show", 20, 15, 0x8D1FDBF29DEEA3A6, 0x5E647B9B1CF66E1F},
    Example{"5-paint-animation", 16, 16, 0x3628EBD369CE648F, 0x27548B441636A252},
    Example{"6-beat-show", 12, 12, 0x9C21D8B2BB99A1B3, 0xDF5D3B01C9E09C01},
};

// The pictures of the shows are bmp files of 24 bits, at most 255 pixels a side.
Raster readBmp(const std::string& path) {
  std::ifstream stream(path, std::ios::binary);
  const std::string bytes((std::istreambuf_iterator<char>(stream)),
                          std::istreambuf_iterator<char>());
  const auto byte = [&](int at) {
    return static_cast<unsigned char>(bytes.at(static_cast<std::size_t>(at)));
  };
  const int width = byte(18);
  const int height = byte(22);
  const int line = (3 * width + 3) / 4 * 4;
  Raster picture(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const int at = byte(10) + (height - 1 - y) * line + 3 * x;
      picture.setPixel(x, y, rgb(byte(at + 2), byte(at + 1), byte(at)));
    }
  }
  return picture;
}

class Examples : public TestPlugin, public testing::WithParamInterface<Example> {
 protected:
  void SetUp() override {
    host.baseFilename = kFolder + std::string(GetParam().stem);
    host.name = GetParam().stem;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(kFolder)) {
      if (entry.path().extension() != ".bmp") continue;
      const auto path = std::filesystem::absolute(entry.path()).lexically_normal();
      platform.pictures[path.string()] = readBmp(path.string());
    }
    ASSERT_TRUE(open());
    loadProject();
    event([&] { plugin.matrixForm.active.setValue(1); });
  }

  void loadProject() {
    platform.answers = {host.baseFilename + ".Korvane"};
    ASSERT_TRUE(click(plugin.matrixForm.load)) << platform.failures.back().what();
    EXPECT_EQ(takeBoxes(), std::vector<std::string>{"Matrix Project loaded"});
  }
  std::string saved() {
    const std::string path = folder + "/" + GetParam().stem + ".Korvane";
    std::filesystem::remove(path);
    platform.answers = {path};
    click(plugin.matrixForm.save);
    takeBoxes();
    return readFile(path);
  }

  // What a person does in the minute: every four seconds the next row of the hidden deck, then a
  // fade towards it.
  void act(int second) {
    if (second % 4 != 0) return;
    const int turn = second / 4;
    Deck& next = turn % 2 == 0 ? v.B : v.A;
    pick(next.efxList, (turn + 1) / 2 % next.efxList.count());
    pick(master.efxXList, turn % master.efxXList.count());
    click(turn % 2 == 0 ? master.AutoFadeB : master.AutoFadeA);
  }

  // Beats come twice a second, frames are looked at ten times.
  std::uint64_t playAMinute() {
    for (int tenth = 0; tenth < 600; ++tenth) {
      if (tenth % 10 == 0) act(tenth / 10);
      if (tenth % 5 == 0) {
        event([&] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0); });
      }
      for (int step = 0; step < 10; ++step) {
        platform.time += 10;
        advance(10);
      }
      digestFrame();
    }
    return digest.value;
  }

  void digestFrame() {
    for (int col = 0; col < v.matrixCols; ++col) {
      for (int row = 0; row < v.matrixRows; ++row) {
        for (const std::uint8_t byte : v.frameM.at(col, row)) digest.add(byte);
      }
    }
  }

  Digest digest;
};

TEST_P(Examples, BringsItsGrid) {
  EXPECT_EQ(v.matrixCols, GetParam().cols);
  EXPECT_EQ(v.matrixRows, GetParam().rows);
  EXPECT_TRUE(v.cellConfigured.at(0, 0));
  EXPECT_EQ(v.channelMap.at(1, 0)[0], 4);
}

TEST_P(Examples, PlaysAMinuteAsItAlwaysDid) {
  EXPECT_EQ(playAMinute(), GetParam().shown);
  EXPECT_EQ(takeBoxes(), std::vector<std::string>{});
  EXPECT_TRUE(platform.failures.empty()) << platform.failures.front().what();
  EXPECT_GT(takeCalls().size(), 1000U);
}

TEST_P(Examples, ReadsTheSameWithADecimalComma) {
  const std::string withPoint = saved();
  platform.format = {',', '.'};
  loadProject();
  platform.format = {'.', ','};
  EXPECT_EQ(saved(), withPoint);
}

TEST_P(Examples, IsSavedAsTheBytesItAlwaysWas) {
  const std::string place = std::filesystem::absolute(kFolder).lexically_normal().string();
  std::string text = saved();
  // Pictures are saved with their whole paths, as the system writes them.
  for (auto at = text.find(place); at != std::string::npos; at = text.find(place))
    text.erase(at, place.size());
  std::replace(text.begin(), text.end(), '\\', '/');
  for (const char character : text) digest.add(static_cast<std::uint8_t>(character));
  EXPECT_EQ(digest.value, GetParam().saved);
}

INSTANTIATE_TEST_SUITE_P(Show, Examples, testing::ValuesIn(kExamples), [](const auto& show) {
  std::string name = show.param.stem;
  std::replace(name.begin(), name.end(), '-', '_');
  return name;
});

}  // namespace
}  // namespace korvane
