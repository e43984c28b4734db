#include "persistence/quickConf.h"

#include "output/MatrixCode.h"
#include "testing/TestPlugin.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class QuickConf : public TestPlugin {
 protected:
  void SetUp() override {
    ASSERT_TRUE(open());
    event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
    click(plugin.matrixConf.fastConfig);
    ASSERT_TRUE(window.visible());
  }
  // Chooses both entries by what they say and presses OK.
  bool take(int universe, int address) {
    choose(window.Universe, universe - 1);
    choose(window.BaseAddress, address - 1);
    return click(window.OKButton);
  }
  std::string definition(int cols, int rows) {
    resize(cols, rows);
    const std::string path = folder + "/device.xml";
    platform.answers = {path};
    EXPECT_TRUE(click(window.CreateDDF));
    return readFile(path);
  }

  quickConf& window = plugin.quickConfiguration;
};

TEST_F(QuickConf, OffersAllAddressesAndUniversesAndChoosesNone) {
  EXPECT_EQ(window.caption(), "Quick Configuration");
  EXPECT_EQ(window.BaseAddress.items().size(), 512U);
  EXPECT_EQ(window.BaseAddress.items().back(), "512");
  EXPECT_EQ(window.Universe.items().size(), 16U);
  EXPECT_EQ(window.BaseAddress.index(), -1);
  EXPECT_EQ(window.Universe.index(), -1);
}

TEST_F(QuickConf, NumbersTheLampsRowByRow) {
  resize(3, 2);
  EXPECT_TRUE(take(1, 10));
  EXPECT_EQ(v.channelMap.at(0, 0), (ChannelMap::Codes{10, 11, 12}));
  EXPECT_EQ(v.channelMap.at(1, 0), (ChannelMap::Codes{13, 14, 15}));
  EXPECT_EQ(v.channelMap.at(0, 1), (ChannelMap::Codes{19, 20, 21}));
  EXPECT_EQ(v.channelMap.at(2, 1), (ChannelMap::Codes{25, 26, 27}));
  EXPECT_TRUE(v.cellConfigured.at(2, 1));
  EXPECT_TRUE(v.configChanged);
  EXPECT_TRUE(v.quickConfigured);
  EXPECT_FALSE(window.visible());
}

TEST_F(QuickConf, ShowsTheConfiguredLampsAtOnce) {
  EXPECT_EQ(plugin.matrixConf.mxbild.raster().pixel(5, 5), rgb(180, 180, 180));
  EXPECT_TRUE(take(1, 1));
  EXPECT_EQ(plugin.matrixConf.mxbild.raster().pixel(5, 5), rgb(255, 255, 255));
}

TEST_F(QuickConf, AGridOf50By50FitsBehindTheFirstAddressAndNotBehindTheSecondUniversesLast) {
  resize(50, 50);
  EXPECT_TRUE(take(1, 1));
  EXPECT_EQ(v.channelMap.at(49, 49), (ChannelMap::Codes{7498, 7499, 7500}));
  takeBoxes();
  EXPECT_TRUE(take(2, 512));
  EXPECT_EQ(takeBoxes(), Texts{"Base Address not valid ! Value is too large for this Matrix !"});
  EXPECT_EQ(v.channelMap.at(0, 0)[0], 1);
}

TEST_F(QuickConf, TheSumOfBaseAndChannelsMayReach8192Exactly) {
  EXPECT_TRUE(take(16, 1));
  EXPECT_EQ(v.channelMap.at(0, 0)[0], 7681);
  EXPECT_TRUE(take(16, 80));
  EXPECT_EQ(takeBoxes(), Texts{});
  EXPECT_EQ(v.channelMap.at(11, 11)[2], 8191);
  click(plugin.matrixConf.fastConfig);
  EXPECT_TRUE(take(16, 81));
  EXPECT_EQ(takeBoxes().size(), 1U);
  EXPECT_TRUE(window.visible());
  EXPECT_EQ(v.channelMap.at(0, 0)[0], 7760);
}

TEST_F(QuickConf, AMapBeyondTheFirstUniverseIsTakenAndStaysDark) {
  EXPECT_TRUE(take(2, 1));
  v.frameA.fill({9, 9, 9});
  v.frameB.fill({9, 9, 9});
  event([&] { plugin.matrixForm.active.setValue(1); });
  takeCalls();
  event([&] { mixFrame(engine, 0); });
  EXPECT_EQ(takeCalls(), Texts{"UserInteraction"});
}

TEST_F(QuickConf, AMapThatLeavesTheFirstUniverseIsSentUpToIt) {
  resize(2, 1);
  EXPECT_TRUE(take(1, 511));
  v.frameA.fill({7, 8, 9});
  event([&] { plugin.matrixForm.fadeA.click(); });
  event([&] { plugin.matrixForm.active.setValue(1); });
  EXPECT_EQ(takeCalls(), (Texts{"UserInteraction", "SetChannel 511 7", "SetChannel 512 8"}));
}

TEST_F(QuickConf, WithoutAChosenEntryTheConversionFails) {
  EXPECT_FALSE(click(window.OKButton));
  EXPECT_EQ(takeFailure(), kTypeMismatch);
  EXPECT_TRUE(window.visible());
}

TEST_F(QuickConf, CancelClearsTheFlagEvenAfterAChangeByHand) {
  v.configChanged = true;
  EXPECT_TRUE(click(window.CancelButton));
  EXPECT_FALSE(v.configChanged);
  EXPECT_FALSE(window.visible());
}

TEST_F(QuickConf, WritesTheDeviceDefinitionLineByLine) {
  EXPECT_EQ(definition(2, 1),
            "<?xml version='1.0' encoding='ISO-8859-1'?>\r\n"
            "<device image='light.gif'>\r\n"
            "<information>\r\n"
            "<name>RGB-Matrix</name>\r\n"
            "<author>automatic generated</author>\r\n"
            "</information>\r\n"
            "<channels>\r\n"
            "<function channel='0' maxvalue='255' name='R-0-0' fade='yes' type='color'/>\r\n"
            "<function channel='1' maxvalue='255' name='G-0-0' fade='yes' type='color'/>\r\n"
            "<function channel='2' maxvalue='255' name='B-0-0' fade='yes' type='color'/>\r\n"
            "<function channel='3' maxvalue='255' name='R-1-0' fade='yes' type='color'/>\r\n"
            "<function channel='4' maxvalue='255' name='G-1-0' fade='yes' type='color'/>\r\n"
            "<function channel='5' maxvalue='255' name='B-1-0' fade='yes' type='color'/>\r\n"
            "</channels>\r\n"
            "<form width='300' height='150'>\r\n"
            "<deviceimage top='0' left='0'/>\r\n"
            "<devicename top='0' left='40'/>\r\n"
            "<deviceadress top='16' left='40'/>\r\n"
            "</form>\r\n"
            "</device>\r\n");
}

std::size_t functions(const std::string& definition) {
  std::size_t count = 0;
  for (auto at = definition.find("<function"); at != std::string::npos;
       at = definition.find("<function", at + 1)) {
    ++count;
  }
  return count;
}

TEST_F(QuickConf, TheDeviceDefinitionOfOneLampHasThreeChannels) {
  EXPECT_EQ(functions(definition(1, 1)), 3U);
}

TEST_F(QuickConf, TheDeviceDefinitionOfTheLargestGridHas7500Channels) {
  const std::string text = definition(50, 50);
  EXPECT_EQ(functions(text), 7500U);
  EXPECT_NE(text.find("channel='7499' maxvalue='255' name='B-49-49'"), std::string::npos);
}

TEST_F(QuickConf, AsksForAnXmlFile) {
  definition(1, 1);
  const FileQuestion& asked = platform.questions.back();
  EXPECT_EQ(asked.title, "create DDF-File for Matrix");
  EXPECT_EQ(asked.filter, "XML-Files (*.xml)|*.xml");
  EXPECT_EQ(asked.defaultExtension, "xml");
}

TEST_F(QuickConf, ADeviceDefinitionThatCanNotBeWrittenEndsWithoutAWord) {
  EXPECT_TRUE(click(window.CreateDDF));  // cancelled
  platform.answers = {folder + "/none/device.xml"};
  EXPECT_TRUE(click(window.CreateDDF));
  EXPECT_EQ(takeBoxes(), Texts{});
}

}  // namespace
}  // namespace korvane
