#include "commands/TestConsole.h"

namespace korvane {
namespace {

TEST_F(TestConsole, ClickActsOnWhatCanBeClicked) {
  expect({{"click Demo.go", kOk, {"go"}},
          {"click Demo.richtung(5)", kOk, {"arrow"}},
          {"click Demo.box", kOk, {"box 1"}},
          {"click Demo.box", kOk, {"box 0"}},
          {"click Demo.color", kOk, {"color"}},
          {"click Demo.label", kOk, {"label"}},
          {"click Demo.deep", kOk}});
}

TEST_F(TestConsole, ClickOnAWindowIsForWindowsThatListen) {
  expect({{"click Surface", kOk, {"Surface activate", "Surface click"}},
          {"click Demo",
           R"({"ok":false,"error":"Demo is a window, which 'click' does not act on."})"}});
}

TEST_F(TestConsole, SetChoosesTheEntryThatIsShownAlready) {
  expect({{"set Demo.list 1", kOk, {"list two"}},
          {"set Demo.list 1", kOk, {"list two"}},
          {"set Demo.list 0", kOk, {"list one"}}});
}

TEST_F(TestConsole, SetChangesValuesAndRunsHandlersOnAChangeOnly) {
  expect({{"set Demo.text \"new text\"", kOk, {"text new text"}},
          {"set Demo.text \"new text\"", kOk},
          {"set Demo.text \"\"", kOk, {"text "}},
          {"set Demo.slider 0", kOk},
          {"set Demo.slider 5", kOk, {"slider 5"}},
          {"set Demo.slider 5", kOk},
          {"set Demo.box 1", kOk, {"box 1"}},
          {"set Demo.box 1", kOk},
          {"set Demo.box 0", kOk, {"box 0"}},
          {R"(set Demo.lines "two\nlines")", kOk}});
  EXPECT_EQ(demo.lines.text(), "two\nlines");
}

TEST_F(TestConsole, SetRefusesWhatAPersonCanNotEnter) {
  expect(
      {{"set Demo.list 3", R"({"ok":false,"error":"VALUE must be 0 to 2, not 3."})"},
       {"set Demo.list -1", R"({"ok":false,"error":"VALUE must be 0 to 2, not -1."})"},
       {"set Demo.list two", R"({"ok":false,"error":"VALUE must be a whole number, not 'two'."})"},
       {"set Demo.empty 0", R"({"ok":false,"error":"There is no VALUE to choose from."})"},
       {"set Demo.slider 6", R"({"ok":false,"error":"VALUE must be -5 to 5, not 6."})"},
       {"set Demo.slider 1.5",
        R"({"ok":false,"error":"VALUE must be a whole number, not '1.5'."})"},
       {"set Demo.box 2", R"({"ok":false,"error":"VALUE must be 0 to 1, not 2."})"},
       {"set Demo.fixed x", R"({"ok":false,"error":"Demo.fixed can only be read."})"},
       {R"(set Demo.text "a\nb")", R"({"ok":false,"error":"Demo.text takes one line of text."})"}});
}

TEST_F(TestConsole, PickAndUnpickMarkRows) {
  expect({{"pick Demo.table 1", kOk, {"table click 1 0"}},
          {"pick Demo.table 0 1", kOk, {"table click 0 1"}}});
  EXPECT_EQ(demo.table.selected(), 0);
  expect({{"unpick Demo.table", kOk}});
  EXPECT_EQ(demo.table.selected(), -1);
  EXPECT_EQ(demo.table.current(), 0);
}

TEST_F(TestConsole, DblclickIsAClickAndThenTheDoubleClick) {
  expect({{"dblclick Demo.table 1", kOk, {"table click 1 0", "table dblclick 1"}}});
}

TEST_F(TestConsole, EditTypesOverACell) {
  expect({{"edit Demo.table 1 1 7", kOk, {"table edited 1 1"}}});
  EXPECT_EQ(demo.table.cell(1, 1), "7");
  EXPECT_FALSE(demo.table.editing());
}

TEST_F(TestConsole, ListsRefuseCellsThatTheyLack) {
  demo.table.onClick = nullptr;
  expect({{"pick Demo.table 2", R"({"ok":false,"error":"ROW must be 0 to 1, not 2."})"},
          {"pick Demo.table -1", R"({"ok":false,"error":"ROW must be 0 to 1, not -1."})"},
          {"pick Demo.table 0 2", R"({"ok":false,"error":"COL must be 0 to 1, not 2."})"},
          {"dblclick Demo.table 2", R"({"ok":false,"error":"ROW must be 0 to 1, not 2."})"},
          {"edit Demo.table 0 0 x",
           R"({"ok":false,"error":"Column 0 of Demo.table can't be edited."})"},
          {"edit Demo.table 0 2 x", R"({"ok":false,"error":"COL must be 0 to 1, not 2."})"}});
  demo.table.clear();
  expect({{"pick Demo.table 0", R"({"ok":false,"error":"There is no ROW to choose from."})"}});
}

TEST_F(TestConsole, MouseSendsPointerEvents) {
  expect({{"mouse Demo.picture move 1 2", kOk, {"move 1 2"}},
          {"mouse Demo.picture down 1 2", kOk, {"down 1 2"}},
          {"mouse Demo.picture move 3 0", kOk, {"held move 3 0"}},
          {"mouse Demo.picture up 3 0", kOk, {"up 3 0"}},
          {"mouse Demo.picture click 0 1", kOk, {"down 0 1", "up 0 1", "click"}},
          {"mouse Demo.picture dblclick 0 1",
           kOk,
           {"down 0 1", "up 0 1", "click", "down 0 1", "dblclick", "up 0 1"}},
          {"drag Demo.picture 0 1 2 -3", kOk, {"down 0 1", "held move 2 -3", "up 2 -3", "click"}}});
}

TEST_F(TestConsole, MouseRefusesWhatAPointerCanNotDo) {
  expect({{"mouse Demo.picture hover 0 0",
           R"({"ok":false,"error":"The pointer can do down, move, up, click or dblclick, )"
           R"(not 'hover'."})"},
          {"mouse Demo.picture down 0 99999",
           R"({"ok":false,"error":"Y must be -32768 to 32767, not 99999."})"},
          {"drag Demo.picture 0 0 a 0",
           R"({"ok":false,"error":"X2 must be a whole number, not 'a'."})"}});
}

TEST_F(TestConsole, ADoubleClickThatOpensAWindowModallyIsReleasedAllTheSame) {
  demo.picture.onDblClick = [this] {
    engine.desktop.showModal(ask, [this] { log.emplace_back("closed"); });
  };
  expect({{"mouse Demo.picture dblclick 0 1",
           R"({"ok":true,"modal":"Ask"})",
           {"down 0 1", "up 0 1", "click", "down 0 1", "Ask activate", "up 0 1"}}});
}

TEST_F(TestConsole, AClickThatOpensAWindowModallyLosesThePointer) {
  demo.picture.onMouseDown = [this](int, int) { engine.desktop.showModal(ask, nullptr); };
  expect({{"mouse Demo.picture click 0 1", R"({"ok":true,"modal":"Ask"})", {"Ask activate"}}});
}

TEST_F(TestConsole, KeyGoesToAWindowOrATextBox) {
  expect({{"key Demo 27", kOk, {"Demo key 27"}},
          {"key Demo.text 13", kOk, {"text key 13"}},
          {"key Surface 32", kOk, {"Surface activate"}},
          {"key Demo -1", R"({"ok":false,"error":"CODE must be 0 to 65535, not -1."})"},
          {"key Demo Enter", R"({"ok":false,"error":"CODE must be a whole number, not 'Enter'."})"},
          {"key Demo.go 13",
           R"({"ok":false,"error":"Demo.go is a Button, which 'key' does not act on."})"}});
}

TEST_F(TestConsole, SizeGivesADrawingAreaItsPixels) {
  expect({{"size Demo.picture 30 20", kOk, {"resize"}},
          {"size Demo.picture 30 20", kOk},
          {"size Surface 16 9", kOk, {"Surface activate", "Surface resize"}},
          {"size Demo 100 50", kOk, {"Demo activate"}},
          {"size Demo.picture 0 0", kOk, {"resize"}}});
  EXPECT_EQ(surface.picture.width(), 16);
  EXPECT_EQ(surface.picture.height(), 9);
  EXPECT_EQ(demo.width(), 1500) << "twips";
}

TEST_F(TestConsole, SizeRefusesWhatNoScreenHas) {
  expect({{"size Demo.picture -1 5", R"({"ok":false,"error":"W must be 0 to 8192, not -1."})"},
          {"size Demo.picture 8192 8192",
           R"({"ok":false,"error":"A drawing area has at most 8388608 pixels."})"},
          {"size Demo.go 5 5",
           R"({"ok":false,"error":"Demo.go is a Button, which 'size' does not act on."})"}});
}

TEST_F(TestConsole, ClosePressesTheCloseButtonOfTheFrame) {
  expect({{"close Demo", kOk, {"Demo close", "Surface activate"}},
          {"close Demo", R"({"ok":false,"error":"The window Demo is hidden."})"},
          {"close Surface.go", R"({"ok":false,"error":"Surface has no control 'go'."})"}});
  EXPECT_FALSE(demo.visible());
}

TEST_F(TestConsole, AnswerQueuesForFileDialogs) {
  expect({{"answer \"/a b.Korvane\"", kOk},
          {"answer cancel", kOk},
          {"answer c", kOk},
          {"answer \"\"", R"({"ok":false,"error":"PATH is empty."})"}});
  EXPECT_EQ(platform.askFile({}), "/a b.Korvane");
  EXPECT_EQ(platform.askFile({}), std::nullopt);
  EXPECT_EQ(platform.askFile({}), "c");
  EXPECT_EQ(platform.askFile({}), std::nullopt) << "an empty queue cancels";
}

TEST_F(TestConsole, CommandsRefuseControlsOfAnotherKind) {
  const auto refused = [](const char* name, const char* kind, const char* command) {
    return std::string(R"({"ok":false,"error":")") + name + " is a " + kind + ", which '" +
           command + R"(' does not act on."})";
  };
  EXPECT_EQ(reply("click Demo.table"), refused("Demo.table", "ListView", "click"));
  EXPECT_EQ(reply("click Demo.picture"), refused("Demo.picture", "PictureBox", "click"));
  EXPECT_EQ(reply("click Demo.outer"), refused("Demo.outer", "Group", "click"));
  EXPECT_EQ(reply("set Demo.go 1"), refused("Demo.go", "Button", "set"));
  EXPECT_EQ(reply("set Demo 1"), refused("Demo", "window", "set"));
  EXPECT_EQ(reply("pick Demo.list 0"), refused("Demo.list", "ListBox", "pick"));
  EXPECT_EQ(reply("unpick Demo.go"), refused("Demo.go", "Button", "unpick"));
  EXPECT_EQ(reply("dblclick Demo.go 0"), refused("Demo.go", "Button", "dblclick"));
  EXPECT_EQ(reply("edit Demo.text 0 0 x"), refused("Demo.text", "TextBox", "edit"));
  EXPECT_EQ(reply("mouse Demo.go click 0 0"), refused("Demo.go", "Button", "mouse"));
  EXPECT_EQ(reply("drag Demo.slider 0 0 1 1"), refused("Demo.slider", "Slider", "drag"));
  EXPECT_EQ(reply("close Demo.go"), refused("Demo.go", "Button", "close"));
  EXPECT_TRUE(log.empty());
}

}  // namespace
}  // namespace korvane
