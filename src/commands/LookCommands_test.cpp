#include <filesystem>
#include <fstream>

#include "commands/TestConsole.h"

namespace korvane {
namespace {

TEST_F(TestConsole, FormsTellsOfEveryWindow) {
  expect({{"forms", R"({"ok":true,"forms":[)"
                    R"({"name":"Demo","caption":"Demonstration","visible":true,"modal":false},)"
                    R"({"name":"Surface","caption":"A picture","visible":true,"modal":false},)"
                    R"({"name":"Ask","caption":"Question","visible":false,"modal":false}]})"}});
}

TEST_F(TestConsole, GetTellsOfAWindow) {
  demo.setSize(8200, 7200);
  expect({{"get Demo",
           R"({"ok":true,"caption":"Demonstration","visible":true,"modal":false,"width":8200,)"
           R"~("height":7200,"controls":["go","richtung(5)","box","list","empty","table","text",)~"
           R"("lines","fixed","slider","picture","color","label","unseen","dead","outer","inner",)"
           R"("deep"]})"}});
}

TEST_F(TestConsole, AWindowThatIsOnePictureHasItsSize) {
  expect({{"get Surface",
           R"({"ok":true,"caption":"A picture","visible":true,"modal":false,"width":2,"height":1,)"
           R"("controls":[]})"}});
}

TEST_F(TestConsole, GetTellsOfEveryKindOfControl) {
  demo.list.setIndex(1);
  demo.arrow.setPressed(true);
  demo.table.select(1);
  log.clear();
  const auto common = [](const char* kind, const char* caption, const char* toolTip) {
    return std::string(R"({"ok":true,"kind":")") + kind +
           R"(","visible":true,"enabled":true,"caption":")" + caption + R"(","toolTip":")" +
           toolTip + R"(")";
  };
  EXPECT_EQ(reply("get Demo.go"), common("Button", "Go", "goes") + R"(,"pressed":false})");
  EXPECT_EQ(reply("get Demo.richtung(5)"),
            common("PictureButton", "", "down") + R"(,"pressed":true})");
  EXPECT_EQ(reply("get Demo.box"), common("CheckBox", "Box", "") + R"(,"value":0})");
  EXPECT_EQ(
      reply("get Demo.list"),
      common("ListBox", "", "") + R"(,"items":["one","two","three"],"index":1,"text":"two"})");
  EXPECT_EQ(reply("get Demo.empty"),
            common("ListBox", "", "") + R"(,"items":[],"index":-1,"text":""})");
  EXPECT_EQ(reply("get Demo.table"),
            common("ListView", "", "") +
                R"~(,"columns":["Name","Time(s)"],"rows":[)~"
                R"({"text":"first","sub":["1.0"],"color":"000000","selected":false},)"
                R"({"text":"second","sub":["2.0"],"color":"FF0000","selected":true}],)"
                R"("current":1})");
  EXPECT_EQ(reply("get Demo.text"), common("TextBox", "", "") + R"(,"text":"start"})");
  EXPECT_EQ(reply("get Demo.slider"), common("Slider", "", "") + R"(,"value":0,"min":-5,"max":5})");
  EXPECT_EQ(reply("get Demo.picture"),
            common("PictureBox", "", "") + R"(,"width":4,"height":3,"backColor":"0000FF"})");
  EXPECT_EQ(reply("get Demo.color"), common("ColorBox", "", "") + R"(,"backColor":"0102FF"})");
  EXPECT_EQ(reply("get Demo.label"), common("Label", "Label : ", "") + "}");
  EXPECT_EQ(reply("get Demo.outer"), common("Group", "Outer", "") + "}");
}

TEST_F(TestConsole, GetTellsOfHiddenAndDisabledControls) {
  expect({{"get Demo.unseen",
           R"({"ok":true,"kind":"Button","visible":false,"enabled":true,"caption":"",)"
           R"("toolTip":"","pressed":false})"},
          {"get Demo.dead",
           R"({"ok":true,"kind":"Button","visible":true,"enabled":false,"caption":"",)"
           R"("toolTip":"","pressed":false})"}});
}

TEST_F(TestConsole, TextWithQuotesAndUmlautsComesBackAsJson) {
  expect({{R"(set Demo.text "\"ä\"\\")", kOk, {"text \"ä\"\\"}}});
  EXPECT_EQ(Json::parse(reply("get Demo.text"))["text"], "\"ä\"\\");
}

TEST_F(TestConsole, FramesHaveSixNames) {
  const std::pair<const char*, Frame*> frames[] = {
      {"A", &engine.v.frameA},         {"B", &engine.v.frameB},
      {"M", &engine.v.frameM},         {"Sent", &engine.v.frameSent},
      {"WorkA", &engine.v.frameWorkA}, {"WorkB", &engine.v.frameWorkB}};
  std::uint8_t mark = 1;
  for (const auto& [name, frame] : frames) {
    frame->redim(2, 2);
    frame->at(1, 0) = {mark++, 0, 0};
  }
  mark = 1;
  for (const auto& [name, frame] : frames) {
    EXPECT_EQ(reply(std::string("frame ") + name),
              R"({"ok":true,"cols":2,"rows":2,"cells":[["000000","0)" + std::to_string(mark++) +
                  R"(0000"],["000000","000000"]]})");
  }
  expect({{"frame X",
           R"({"ok":false,"error":"The frame must be A, B, M, Sent, WorkA or WorkB, not 'X'."})"}});
}

TEST_F(TestConsole, FramesWithoutASizeAreEmpty) {
  expect({{"frame A", R"({"ok":true,"cols":0,"rows":0,"cells":[]})"},
          {"fademap", R"({"ok":true,"cells":[]})"},
          {"map", R"({"ok":true,"cells":[],"configured":[]})"}});
}

TEST_F(TestConsole, MapsAreRowsFromTheTop) {
  Variablen& v = engine.v;
  v.fadeMap.redim(2, 2);
  v.fadeMap.at(0, 1) = 1;
  v.channelMap.redim(2, 1);
  v.cellConfigured.redim(2, 1);
  v.channelMap.set(1, 0, 0, 10);
  v.channelMap.set(1, 0, 1, 11);
  v.channelMap.set(1, 0, 2, 8192);
  v.cellConfigured.at(1, 0) = true;
  expect({{"fademap", R"({"ok":true,"cells":[[0.0,0.0],[1.0,0.0]]})"},
          {"map", R"({"ok":true,"cells":[[[0,0,0],[10,11,8192]]],"configured":[[false,true]]})"}});
}

TEST_F(TestConsole, EfxTellsEveryFieldOfARecord) {
  for (Deck* deck : {&engine.v.A, &engine.v.B}) {
    deck->efx.resize(2);
    deck->efxEdited.assign(2, false);
    deck->efxEdited[1] = true;
    Effect& effect = deck->efx[1];
    effect.type = 8;
    effect.name = "two";
    effect.color1 = -2147483630;  // a system colour
    effect.color2 = 65535;
    effect.direction = 3;
    effect.paintPixels.redim(2, 1);
    effect.paintPixels.at(1, 0) = 255;
    effect.speed = 75;
    effect.imageCount = 1;
    effect.imageNames = {"a.png"};
    effect.itemTimes = {0.5, 3};
    effect.imageFiles = {"/p/a.png"};
    effect.colorCount = 2;
    effect.colors = {1, 2};
    effect.itemWidths = {4, 5};
    effect.tickerText = "hi";
    effect.tickerFont = 5;
    effect.tickerLetter = 1;
    EXPECT_EQ(reply("efx " + std::string(1, deck->isB() ? 'B' : 'A') + " 1"),
              R"({"ok":true,"record":{"type":8,"name":"two","color1":-2147483630,"color2":65535,)"
              R"("direction":3,"paintPixels":[[0,255]],"imageStretch":0,"imageTile":0,"speed":75,)"
              R"("imageCount":1,"imageNames":["a.png"],"itemTimes":[0.5,3.0],)"
              R"("imageFiles":["/p/a.png"],"amount":0,"colorCount":2,"colors":[1,2],)"
              R"("fadeMode":0,"beatControl":0,"scrollFadeMode":0,"itemWidths":[4,5],)"
              R"("tickerText":"hi","tickerFont":5,"tickerBackward":0,"tickerMirror":0,)"
              R"("tickerLetter":1},"edited":true})");
  }
  EXPECT_EQ(Json::parse(reply("efx A 0"))["edited"], false);
  expect({{"efx A 2", R"({"ok":false,"error":"SLOT must be 0 to 1, not 2."})"},
          {"efx C 0", R"({"ok":false,"error":"The deck must be A or B, not 'C'."})"}});
}

TEST_F(TestConsole, FadeTellsEveryFieldOfARecord) {
  engine.v.efxX = {{2, "soft", 2.5, 255}};
  expect({{"fade 0", R"({"ok":true,"record":{"type":2,"name":"soft","time":2.5,"color":255}})"},
          {"fade 1", R"({"ok":false,"error":"SLOT must be 0 to 0, not 1."})"}});
  engine.v.efxX.clear();
  expect({{"fade 0", R"({"ok":false,"error":"There is no SLOT to choose from."})"}});
}

TEST_F(TestConsole, StripIsWhatTheRunningEffectBuilt) {
  for (const char* deckName : {"A", "B"}) {
    Deck& deck = deckOf(engine, deckName);
    const std::string command = std::string("strip ") + deckName;
    EXPECT_EQ(reply(command), R"({"ok":false,"failure":{"number":9,"text":)"
                              R"("Subscript out of range: efx)" +
                                  std::string(deckName) + R"( has no slot 0"}})");
    deck.efx.resize(1);
    deck.scrollStrip = {{255, 0, 0}, {0, 0, 16}, {0, 0, 0}};
    deck.tickerStrip.redim(1, 1);
    deck.tickerStrip.at(0, 1) = 255;
    EXPECT_EQ(reply(command), R"({"ok":true,"cells":[]})") << "Color has none";
    deck.effect().type = kColorScroll;
    EXPECT_EQ(reply(command), R"({"ok":true,"cells":[]})") << "not built yet";
    deck.scrollLength = 2;
    EXPECT_EQ(reply(command), R"({"ok":true,"cells":[["FF0000","000010"]]})");
    deck.effect().type = kTicker;
    EXPECT_EQ(reply(command), R"({"ok":true,"cells":[["000000","000000"],["FF0000","000000"]]})");
  }
}

TEST_F(TestConsole, PixelsAreRowsOfColors) {
  demo.picture.resize(2, 2);
  demo.picture.setPixel(1, 0, rgb(255, 128, 0));
  log.clear();
  expect({{"pixels Demo.picture",
           R"({"ok":true,"width":2,"height":2,"cells":[["0000FF","FF8000"],["0000FF","0000FF"]]})"},
          {"pixels Surface", R"({"ok":true,"width":2,"height":1,"cells":[["000000","000000"]]})"},
          {"pixels Demo",
           R"({"ok":false,"error":"Demo is a window, which 'pixels' does not act on."})"},
          {"pixels Demo.go",
           R"({"ok":false,"error":"Demo.go is a Button, which 'pixels' does not act on."})"}});
}

TEST_F(TestConsole, CallsAreToldOnceInOrder) {
  host.UserInteraction();
  host.SetChannel(1, 255, true);
  host.SetChannel(512, 0, true);
  expect(
      {{"calls",
        R"({"ok":true,"calls":[["UserInteraction"],["SetChannel",1,255],["SetChannel",512,0]]})"},
       {"calls", R"({"ok":true,"calls":[]})"}});
}

TEST_F(TestConsole, NegativeChannelsAreToldAsTheyWereSet) {
  host.SetChannel(-1, 7, true);
  host.SetChannel(-32768, 8, true);
  expect({{"calls", R"({"ok":true,"calls":[["SetChannel",-1,7],["SetChannel",-32768,8]]})"}});
}

TEST_F(TestConsole, OfVeryManyCallsTheNewestAreKept) {
  const auto most = static_cast<std::int32_t>(ConsoleHost::kMostCalls);
  for (std::int32_t i = 0; i <= most; ++i) host.SetChannel(i, 0, true);
  EXPECT_EQ(host.calls.all().size(), ConsoleHost::kMostCalls / 2 + 1);
  EXPECT_EQ(host.calls.all().front().channel, most / 2);
  EXPECT_EQ(host.calls.all().back().channel, most);
}

class Snapshot : public TestConsole {
 protected:
  Snapshot() {
    demo.picture.resize(2, 1);
    demo.picture.setPixel(1, 0, rgb(255, 128, 7));
    log.clear();
  }
  ~Snapshot() override { std::filesystem::remove_all(folder); }

  std::string bytesOf(const std::string& file) {
    EXPECT_EQ(reply("snapshot Demo.picture " + folder + "/" + file), kOk) << file;
    std::ifstream stream(folder + "/" + file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }

  std::string folder = [] {
    std::string name = testing::TempDir() + "korvane-snapshot-" +
                       testing::UnitTest::GetInstance()->current_test_info()->name();
    std::filesystem::create_directories(name);
    return name;
  }();
};

TEST_F(Snapshot, PpmHoldsThePixels) {
  EXPECT_EQ(bytesOf("a.ppm"), std::string("P6\n2 1\n255\n\0\0\xff\xff\x80\x07", 17));
}

TEST_F(Snapshot, BmpHoldsThePixelsBlueFirst) {
  const std::string bytes = bytesOf("a.BMP");
  EXPECT_EQ(bytes.substr(0, 2), "BM");
  EXPECT_EQ(bytes.substr(bytes.size() - 8), std::string("\xff\0\0\x07\x80\xff\0\0", 8));
}

TEST_F(Snapshot, PngIsOne) {
  const std::string bytes = bytesOf("\xc3\xa4.png");
  EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1a\n");
  EXPECT_EQ(bytes.substr(16, 8), std::string("\0\0\0\2\0\0\0\1", 8)) << "width and height";
}

TEST_F(Snapshot, RefusesWhatItCanNotWrite) {
  expect({{"snapshot Demo.picture a.gif",
           R"({"ok":false,"error":"The name 'a.gif' must end in .bmp, .png or .ppm."})"},
          {"snapshot Demo.picture /no/such/folder/a.png",
           R"({"ok":false,"error":"The file '/no/such/folder/a.png' can't be written."})"},
          {"snapshot Demo.go a.png",
           R"({"ok":false,"error":"Demo.go is a Button, which 'snapshot' does not act on."})"}});
  demo.picture.resize(0, 5);
  log.clear();
  expect({{"snapshot Demo.picture a.png", R"({"ok":false,"error":"The picture is empty."})"}});
}

}  // namespace
}  // namespace korvane
