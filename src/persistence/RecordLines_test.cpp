#include "persistence/RecordLines.h"

#include "testing/TestProject.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

class RecordLines : public TestProject {};

// The fixture's grid is 2 x 1. Each type: its record, and the lines of its block below the flag.
struct TypeCase {
  const char* name;
  std::function<void(Effect&)> fill;
  Texts lines;
};

const std::vector<TypeCase>& typeCases() {
  static const std::vector<TypeCase> cases = {
      {"Color", [](Effect& e) { e.color1 = 255; }, {"0", "Color", "255"}},
      {"Gradient",
       [](Effect& e) {
         e.color1 = 255;
         e.color2 = -2147483630;  // a system colour
         e.direction = 7;
       },
       {"1", "Gradient", "255", "-2147483630", "7"}},
      {"Paint",
       [](Effect& e) {
         e.paintPixels.redim(2, 1);
         e.paintPixels.at(0, 0) = 16711680;
         e.paintPixels.at(1, 0) = 65280;
       },
       {"2", "Paint", "2,1", "16711680", "65280"}},
      {"Image",
       [](Effect& e) {
         e.imageStretch = 1;
         e.imageTile = -1;
         e.direction = 3;
         e.speed = 40;
         e.imageCount = 2;
         e.imageNames = {"a.bmp", "b.gif"};
         e.itemTimes = {0.5, 30};
         e.imageFiles = {"/pictures/a.bmp", "C:\\b.gif"};
         e.amount = 9;
       },
       {"3", "Image", "1", "-1", "3", "40", "2", "a.bmp", "0.5", "/pictures/a.bmp", "b.gif", "30",
        "C:\\b.gif", "9"}},
      {"Color Change",
       [](Effect& e) {
         e.colorCount = 2;
         e.colors = {255, 65280, 0};
         e.itemTimes = {1.25, 3, 0};
         e.fadeMode = 8;
         e.beatControl = 1;
         e.speed = 50;
         e.amount = 90;
         e.direction = 2;
       },
       {"4", "Color Change", "2", "255", "1.25", "65280", "3", "8", "1", "50", "90", "2"}},
      {"Color Scroll",
       [](Effect& e) {
         e.colorCount = 2;
         e.colors = {255, 65280, 0};
         e.itemWidths = {2, 3, 0};
         e.beatControl = 1;
         e.scrollFadeMode = 1;
         e.speed = 60;
         e.direction = 12;
       },
       {"5", "Color Scroll", "2", "255", "2", "65280", "3", "1", "1", "60", "12"}},
      {"Fire",
       [](Effect& e) {
         e.color1 = 65535;
         e.color2 = 255;
         e.speed = 80;
         e.amount = 30;
       },
       {"6", "Fire", "65535", "255", "80", "30"}},
      {"Fluid",
       [](Effect& e) {
         e.color1 = 16711680;
         e.color2 = 16777215;
         e.speed = 80;
         e.amount = 40;
         e.direction = 5;
       },
       {"7", "Fluid", "16711680", "16777215", "80", "40", "5"}},
      {"Ticker",
       [](Effect& e) {
         e.color1 = 16777215;
         e.speed = 75;
         e.amount = 99;
         e.tickerText = "Hello, world";
         e.tickerFont = 5;
         e.direction = 3;
         e.tickerBackward = 1;
         e.tickerMirror = 1;
         e.beatControl = 1;
         e.tickerLetter = 1;
       },
       {"8", "Ticker", "16777215", "0", "75", "99", "Hello, world", "5", "3", "1", "1", "1", "1"}},
  };
  return cases;
}

TEST_F(RecordLines, WritesEachTypeInItsFieldsOrderOnBothDecks) {
  for (Deck* deck : {&v.A, &v.B}) {
    for (const TypeCase& type : typeCases()) {
      setEffect(*deck, static_cast<std::int16_t>(&type - typeCases().data()), type.name, type.fill);
      Texts expected = {"True"};
      expected.insert(expected.end(), type.lines.begin(), type.lines.end());
      EXPECT_EQ(between(saveLines(), deck->named("") + "0", deck->isB() ? "X0" : "B0"), expected)
          << type.name;
    }
  }
}

TEST_F(RecordLines, WritesATypeThatDoesNotExistAsItsNumberAlone) {
  setEffect(v.A, 99, "none", [](Effect&) {});
  EXPECT_EQ(between(saveLines(), "A0", "B0"), (Texts{"True", "99"}));
}

TEST_F(RecordLines, ReadsEachTypeBackOnBothDecks) {
  for (Deck* deck : {&v.A, &v.B}) {
    for (const TypeCase& type : typeCases()) {
      const auto number = static_cast<std::int16_t>(&type - typeCases().data());
      setEffect(*deck, number, type.name, type.fill);
      pickRows();
      const std::string bytes = save();
      EXPECT_EQ(load(bytes), 0) << type.name;
      EXPECT_EQ(save(), bytes) << type.name;
      EXPECT_EQ(deck->efx[0].type, number);
      EXPECT_EQ(deck->efx[0].name, type.name);
    }
  }
}

}  // namespace
}  // namespace korvane
