// A definition file named after the project that can't be read.

#include <fstream>

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

class BrokenGridFile : public testing::Test {
 protected:
  /// A program that stands alone, or the plug-in in somebody else's desk.
  struct Machine : HeadlessPlatform {
    bool startsWithout(const BrokenGrid& grid) override {
      told.push_back(grid.told());
      return alone;
    }
    bool alone = false;
    std::vector<std::string> told;
  };

  BrokenGridFile() {
    std::filesystem::create_directories(folder);
    std::ofstream(file, std::ios::binary) << kBroken;
    host.baseFilename = folder + "/show";
    plugin.plugIn.ITharnPlugin_Init("desk", "korvane", host);
  }
  ~BrokenGridFile() override { std::filesystem::remove_all(folder); }

  bool event(const std::function<void()>& what) { return runEvent(machine, what); }
  bool open() {
    return event([this] { plugin.engine.desktop.show(plugin.matrixForm); });
  }
  bool configure() {
    return event([this] { plugin.plugIn.ITharnPlugin_Configure(); });
  }
  std::string bytes() const {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  static constexpr const char* kBroken = "mine\r\n2,1,False\r\n1,2,3\r\n4,x,6\r\n";
  std::string folder = testing::TempDir() + "korvane-BrokenGrid-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
  std::string file = folder + "/show.korvaneconf";
  Machine machine;
  FakeHost host;
  Plugin plugin{machine};
  Variablen& v = plugin.engine.v;
};

TEST_F(BrokenGridFile, InsideADeskTheToolFailsEachTime) {
  for (int time = 0; time < 3; ++time) {
    EXPECT_FALSE(open());
    EXPECT_FALSE(configure());
    EXPECT_FALSE(plugin.matrixForm.visible());
  }
  EXPECT_EQ(machine.failures.size(), 6U);
  for (const Failure& failure : machine.failures) EXPECT_EQ(failure.number, kTypeMismatch);
  EXPECT_EQ(bytes(), kBroken);
}

TEST_F(BrokenGridFile, AProgramThatStandsAloneStartsOnTheDefaultGridAndLeavesTheFile) {
  machine.alone = true;
  EXPECT_TRUE(open());
  EXPECT_TRUE(plugin.matrixForm.visible());
  EXPECT_EQ(machine.told,
            std::vector<std::string>{
                "The grid file " + file + " can't be read: Type mismatch: " + file +
                ", line 4: 'x'. The show starts on the default grid; the file stays as it is."});
  EXPECT_EQ(v.matrixCols, 12);
  EXPECT_EQ(v.matrixRows, 12);
  EXPECT_EQ(v.channelMap.at(11, 11), (ChannelMap::Codes{430, 431, 432}));
  EXPECT_FALSE(v.cellConfigured.at(0, 0));
  EXPECT_TRUE(machine.failures.empty());
  EXPECT_EQ(bytes(), kBroken);
}

TEST_F(BrokenGridFile, TheGridCanBeMendedThere) {
  machine.alone = true;
  EXPECT_TRUE(configure());
  EXPECT_EQ(v.matrixCols, 12);
  event([&] { plugin.matrixConf.ncol.setIndex(2); });
  machine.answers = {file};
  event([&] { plugin.matrixConf.save.click(); });
  EXPECT_TRUE(bytes().starts_with("mine\r\n3,12,False\r\n"));
  std::ifstream backup(file + ".bak");
  EXPECT_TRUE(backup.good()) << "the broken one is kept";
}

}  // namespace
}  // namespace korvane
