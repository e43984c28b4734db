#include "commands/Values.h"

#include <gtest/gtest.h>

#include "commands/CommandError.h"

namespace korvane {
namespace {

class Values : public testing::Test {
 protected:
  std::string valueOf(const std::string& name) { return sharedValue(v, name).dump(); }

  TimerQueue timers;
  Variablen v{timers};
};

TEST_F(Values, StartAsTheSharedStateDoes) {
  EXPECT_EQ(valueOf("masterValue"), "0.5");
  EXPECT_EQ(valueOf("fadeTime"), "3.0");
  EXPECT_EQ(valueOf("fadeSteps"), "30");
  EXPECT_EQ(valueOf("fadeDirection"), "1");
  EXPECT_EQ(valueOf("colorIndexA"), "-1");
  EXPECT_EQ(valueOf("outputActive"), "false");
  EXPECT_EQ(valueOf("matrixName"), "\"\"");
}

/// A name with the number that the variable behind it is set to.
template <class Number>
struct Row {
  const char* name;
  Number* variable;
};

TEST_F(Values, SmallNumbersByTheirNames) {
  const Row<std::int16_t> rows[] = {
      {"matrixCols", &v.matrixCols},
      {"matrixRows", &v.matrixRows},
      {"efxACount", &v.efxACount},
      {"efxBCount", &v.efxBCount},
      {"efxXCount", &v.efxXCount},
      {"efxADeleted", &v.efxADeleted},
      {"efxBDeleted", &v.efxBDeleted},
      {"efxXDeleted", &v.efxXDeleted},
      {"selA", &v.selA},
      {"selB", &v.selB},
      {"selX", &v.selX},
      {"editDeck", &v.editDeck},
      {"fadeTypeNow", &v.fadeTypeNow},
      {"fadeSteps", &v.fadeSteps},
      {"fadeDirection", &v.fadeDirection},
      {"colorIndexA", &v.A.colorIndex},
      {"colorIndexB", &v.B.colorIndex},
      {"savedFadeModeA", &v.A.savedFadeMode},
      {"savedFadeModeB", &v.B.savedFadeMode},
      {"imageIndexA", &v.A.imageIndex},
      {"imageIndexB", &v.B.imageIndex},
      {"imagePosXA", &v.A.imagePosX},
      {"imagePosXB", &v.B.imagePosX},
      {"imagePosYA", &v.A.imagePosY},
      {"imagePosYB", &v.B.imagePosY},
      {"scrollLengthA", &v.A.scrollLength},
      {"scrollLengthB", &v.B.scrollLength},
      {"stepsA", &v.A.steps},
      {"stepsB", &v.B.steps},
      {"stepA", &v.A.step},
      {"stepB", &v.B.step},
      {"simCellW", &v.simCellW},
      {"simCellH", &v.simCellH},
      {"simLeft", &v.simLeft},
      {"simTop", &v.simTop},
      {"previewCellA", &v.previewA.cell},
      {"previewCellB", &v.previewB.cell},
      {"previewCellM", &v.previewM.cell},
      {"previewBoxA", &v.previewA.box},
      {"previewBoxB", &v.previewB.box},
      {"previewBoxM", &v.previewM.box},
      {"previewLeftA", &v.previewA.left},
      {"previewLeftB", &v.previewB.left},
      {"previewLeftM", &v.previewM.left},
      {"previewTopA", &v.previewA.top},
      {"previewTopB", &v.previewB.top},
      {"previewTopM", &v.previewM.top},
  };
  std::int16_t number = 100;
  for (const auto& row : rows) *row.variable = ++number;
  number = 100;
  for (const auto& row : rows) EXPECT_EQ(valueOf(row.name), std::to_string(++number)) << row.name;
}

TEST_F(Values, LargeNumbersByTheirNames) {
  const Row<std::int32_t> rows[] = {
      {"cellCol", &v.cellCol},
      {"cellRow", &v.cellRow},
      {"fadeStep", &v.fadeStep},
      {"tickerMaxWidthA", &v.A.tickerMaxWidth},
      {"tickerMaxWidthB", &v.B.tickerMaxWidth},
      {"maxChannels", &v.maxChannels},
      {"viewMode", &v.viewMode},
  };
  std::int32_t number = 100000;
  for (const auto& row : rows) *row.variable = ++number;
  number = 100000;
  for (const auto& row : rows) EXPECT_EQ(valueOf(row.name), std::to_string(++number)) << row.name;
}

TEST_F(Values, RealNumbersByTheirNames) {
  const Row<double> rows[] = {{"masterValue", &v.masterValue},
                              {"fadeTime", &v.fadeTime},
                              {"fadeFactorA", &v.A.fadeFactor},
                              {"fadeFactorB", &v.B.fadeFactor}};
  for (const auto& row : rows) {
    *row.variable = 0.125;
    EXPECT_EQ(valueOf(row.name), "0.125") << row.name;
    *row.variable = 0;
    EXPECT_EQ(valueOf(row.name), "0.0") << row.name;
  }
}

TEST_F(Values, BooleansAreTrueOrFalse) {
  const Row<Boolean> rows[] = {{"matrixConfigured", &v.matrixConfigured},
                               {"quickConfigured", &v.quickConfigured},
                               {"configChanged", &v.configChanged},
                               {"fadeRunning", &v.fadeRunning},
                               {"transitionRunningA", &v.A.transitionRunning},
                               {"transitionRunningB", &v.B.transitionRunning},
                               {"beatOnA", &v.beatOnA},
                               {"beatOnB", &v.beatOnB},
                               {"beatControlSeen", &v.beatControlSeen},
                               {"outputActive", &v.outputActive},
                               {"simActive", &v.simActive},
                               {"simOpen", &v.simOpen}};
  for (const auto& row : rows) {
    EXPECT_EQ(valueOf(row.name), "false") << row.name;
    *row.variable = true;
    EXPECT_EQ(valueOf(row.name), "true") << row.name;
  }
}

TEST_F(Values, ColorsAreHex) {
  const Row<Color> rows[] = {{"colorBlack", &v.colorBlack},
                             {"colorWhite", &v.colorWhite},
                             {"colorGray", &v.colorGray},
                             {"colorBlue", &v.colorBlue},
                             {"colorRed", &v.colorRed},
                             {"colorGreen", &v.colorGreen},
                             {"colorYellow", &v.colorYellow},
                             {"colorFadeActive", &v.colorFadeActive},
                             {"colorFadeIdle", &v.colorFadeIdle},
                             {"pickedColor", &v.pickedColor},
                             {"pickedColorBefore", &v.pickedColorBefore}};
  for (const auto& row : rows) {
    EXPECT_EQ(valueOf(row.name), "\"000000\"") << row.name;
    *row.variable = rgb(255, 240, 9);
    EXPECT_EQ(valueOf(row.name), "\"FFF009\"") << row.name;
  }
}

TEST_F(Values, TextsByTheirNames) {
  const Row<std::string> rows[] = {{"matrixName", &v.matrixName},
                                   {"projectName", &v.projectName},
                                   {"projectBaseFilename", &v.projectBaseFilename},
                                   {"projectDirectory", &v.projectDirectory}};
  for (const auto& row : rows) {
    *row.variable = row.name;
    EXPECT_EQ(valueOf(row.name), "\"" + std::string(row.name) + "\"");
  }
}

TEST_F(Values, OtherNamesAreErrors) {
  for (const char* name : {"", "stepX", "efxA", "host", "MasterValue", "frameA"})
    EXPECT_THROW(sharedValue(v, name), CommandError) << name;
}

}  // namespace
}  // namespace korvane
