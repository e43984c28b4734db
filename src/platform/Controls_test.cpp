#include "platform/Controls.h"

#include <gtest/gtest.h>

#include <array>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

// Counts what a control tells: its event, and the view.
template <class Counted>
struct Watched : Counted {
  using Counted::Counted;

  int events = 0;
  int shows = 0;

  void watch(std::function<void()>& event) {
    event = [this] { ++events; };
    this->onShown = [this] { ++shows; };
  }
};

TEST(CheckBox, TellsOnlyAChange) {
  Watched<CheckBox> box("active");
  box.watch(box.onClick);
  box.setValue(0);
  EXPECT_EQ(box.events, 0);
  EXPECT_EQ(box.shows, 0);
  box.setValue(1);
  EXPECT_TRUE(box.checked());
  box.setValue(1);
  EXPECT_EQ(box.events, 1);
  EXPECT_EQ(box.shows, 1);
  box.setValue(0);
  EXPECT_EQ(box.events, 2);
}

TEST(CheckBox, EveryOtherNumberMeansOne) {
  CheckBox box("active");
  for (const int value : {-1, 2, 255}) {
    box.setValue(0);
    box.setValue(value);
    EXPECT_EQ(box.value(), 1);
  }
}

TEST(CheckBox, TheHandlerSeesTheNewValue) {
  CheckBox box("active");
  int seen = -1;
  box.onClick = [&] { seen = box.value(); };
  box.setValue(1);
  EXPECT_EQ(seen, 1);
}

TEST(CheckBox, AClickTurnsItOver) {
  Watched<CheckBox> box("active");
  box.watch(box.onClick);
  box.click();
  EXPECT_EQ(box.value(), 1);
  box.click();
  EXPECT_EQ(box.value(), 0);
  EXPECT_EQ(box.events, 2);
}

TEST(Button, GreyMeansThePlainFace) {
  Button button("AutoFadeA");
  EXPECT_TRUE(button.plain());
  for (const Color grey : {rgb(220, 220, 220), rgb(0, 0, 0), rgb(255, 255, 255)}) {
    button.setBackColor(grey);
    EXPECT_TRUE(button.plain()) << grey;
  }
  for (const Color color : {rgb(255, 240, 150), rgb(254, 255, 255)}) {
    button.setBackColor(color);
    EXPECT_FALSE(button.plain()) << color;
  }
}

TEST(ListBox, TellsOnlyAChange) {
  Watched<ListBox> list("fps");
  list.watch(list.onClick);
  list.setItems({"5", "10", "15"});
  EXPECT_EQ(list.index(), -1);
  EXPECT_EQ(list.text(), "");
  EXPECT_EQ(list.events, 0);
  list.setIndex(2);
  EXPECT_EQ(list.text(), "15");
  list.setIndex(2);
  EXPECT_EQ(list.events, 1);
  list.setIndex(-1);
  EXPECT_EQ(list.text(), "");
  EXPECT_EQ(list.events, 2);
}

TEST(ListBox, APersonsChoiceOfTheEntryThatIsShownCounts) {
  Watched<ListBox> list("typeA");
  list.setItems({"Color", "Gradient"});
  list.setIndex(1);
  list.watch(list.onClick);
  list.choose(1);
  list.choose(1);
  EXPECT_EQ(list.events, 2);
  list.choose(0);
  EXPECT_EQ(list.text(), "Color");
  EXPECT_EQ(list.events, 3);
  for (const int index : {-1, 2})
    EXPECT_EQ(failureOf([&] { list.choose(index); }), kInvalidPropertyValue) << index;
  EXPECT_EQ(list.events, 3);
}

TEST(ListBox, RefusesAnEntryThatItLacks) {
  Watched<ListBox> list("nrow");
  list.watch(list.onClick);
  list.setItems({"1", "2"});
  list.setIndex(1);
  for (const int index : {-2, 2, 50}) {
    EXPECT_EQ(failureOf([&] { list.setIndex(index); }), kInvalidPropertyValue) << index;
  }
  EXPECT_EQ(list.index(), 1);
  EXPECT_EQ(list.events, 1);
}

TEST(ListBox, EntriesCountFromOne) {
  ListBox list("nrow");
  list.setItems({"1", "2"});
  list.setEntry(2);
  EXPECT_EQ(list.index(), 1);
  for (const int entry : {0, -1, 3}) {
    EXPECT_EQ(failureOf([&] { list.setEntry(entry); }), kInvalidPropertyValue) << entry;
  }
  EXPECT_EQ(list.text(), "2");
}

TEST(ListBox, NewEntriesChooseNoneWithoutAnEvent) {
  Watched<ListBox> list("fps");
  list.setItems({"5", "10"});
  list.setIndex(1);
  list.watch(list.onClick);
  list.setItems({"a"});
  EXPECT_EQ(list.items(), Texts{"a"});
  EXPECT_EQ(list.index(), -1);
  EXPECT_EQ(list.events, 0);
  EXPECT_EQ(list.shows, 1);
}

TEST(TextBox, TellsOnlyAChange) {
  Watched<TextBox> box("myName");
  box.watch(box.onChange);
  box.setText("");
  EXPECT_EQ(box.events, 0);
  box.setText("fire");
  box.setText("fire");
  EXPECT_EQ(box.events, 1);
  EXPECT_EQ(box.shows, 1);
  EXPECT_EQ(box.text(), "fire");
}

TEST(TextBox, AHandlerMayRewriteTheText) {
  TextBox box("fadeTimeText");
  int events = 0;
  box.onChange = [&] {
    ++events;
    box.setText("3.00");
  };
  box.setText("3");
  EXPECT_EQ(box.text(), "3.00");
  EXPECT_EQ(events, 2);  // once for the person, once for the rewriting
}

class TextKeys : public testing::Test {
 protected:
  std::vector<std::string> press(TextBox& box, int key, const std::string& text) {
    std::vector<std::string> told;
    box.onChange = [&] { told.push_back("text " + box.text()); };
    box.onKeyPress = [&](int code) { told.push_back("key " + std::to_string(code)); };
    box.key(key, text, [](const std::function<void()>& event) { event(); });
    return told;
  }
};

TEST_F(TextKeys, EnterHandsOverTheTextOfABoxThatWaitsForIt) {
  TextBox live("myName");
  TextBox late("fadeTimeText", {}, "3", {.commit = TextBoxStyle::Commit::OnLeave});
  EXPECT_EQ(press(live, 13, "x"), Texts{"key 13"});
  EXPECT_EQ(press(late, 13, "7"), (Texts{"text 7", "key 13"}));
  EXPECT_EQ(press(late, 27, "8"), Texts{"key 27"});
}

TEST_F(TextKeys, AreTheBoxesEnterAndEscapeAndAPageKeepsThem) {
  const TextBox line("myName");
  const TextBox page("tickerText", {}, "", {.lines = 3});
  EXPECT_TRUE(line.takesKey(13));
  EXPECT_TRUE(line.takesKey(27));
  EXPECT_FALSE(line.takesKey(32));
  EXPECT_FALSE(page.takesKey(13));
}

TEST_F(TextKeys, AFailingTextDoesNotKeepTheKeyBack) {
  TextBox late("fadeTimeText", {}, "3", {.commit = TextBoxStyle::Commit::OnLeave});
  late.onChange = [] { throw Failure(kOverflow); };
  int keys = 0;
  int failures = 0;
  late.onKeyPress = [&keys](int) { ++keys; };
  late.key(13, "7", [&failures](const std::function<void()>& event) {
    failures += failureOf(event) == kOverflow ? 1 : 0;
  });
  EXPECT_EQ(keys, 1);
  EXPECT_EQ(failures, 1);
}

TEST(TextBox, HandsKeysOn) {
  TextBox box("myName");
  box.keyPress(13);  // without a handler
  int key = 0;
  box.onKeyPress = [&](int code) { key = code; };
  box.keyPress(27);
  EXPECT_EQ(key, 27);
}

TEST(Slider, StartsAtZeroOrTheEndThatIsNearest) {
  EXPECT_EQ(Slider("slSpeed").value(), 0);
  EXPECT_EQ(Slider("slSpeed").max(), 100);
  EXPECT_EQ(Slider("faderM", SliderRange{-100, 100}).value(), 0);
  EXPECT_EQ(Slider("faderM", SliderRange{-100, 100}).min(), -100);
  EXPECT_EQ(Slider("above", SliderRange{5, 10}).value(), 5);
  EXPECT_EQ(Slider("below", SliderRange{-10, -5}).value(), -5);
}

TEST(Slider, TellsOnlyAChange) {
  Watched<Slider> slider("slSpeed");
  slider.watch(slider.onChange);
  slider.setValue(0);
  EXPECT_EQ(slider.events, 0);
  slider.setValue(40);
  slider.setValue(40);
  EXPECT_EQ(slider.events, 1);
  EXPECT_EQ(slider.shows, 1);
}

TEST(Slider, StaysBetweenItsEnds) {
  Watched<Slider> slider("faderM", SliderRange{-100, 100});
  slider.watch(slider.onChange);
  slider.setValue(1000);
  EXPECT_EQ(slider.value(), 100);
  slider.setValue(101);
  EXPECT_EQ(slider.events, 1);
  slider.setValue(-1000);
  EXPECT_EQ(slider.value(), -100);
}

TEST(Buttons, TellEveryClick) {
  int clicks = 0;
  const auto count = [&] { ++clicks; };
  Button button("editA");
  PictureButton picture("addA", Icon::Add);
  ColorBox color("MFadeColor");
  Label label("FadeColorText");
  button.click();  // without handlers
  picture.click();
  color.click();
  label.click();
  button.onClick = picture.onClick = color.onClick = label.onClick = count;
  for (int i = 0; i < 2; ++i) {
    button.click();
    picture.click();
    color.click();
    label.click();
  }
  EXPECT_EQ(clicks, 8);
}

TEST(Buttons, LooksSetByProgramAreNoEvents) {
  Watched<PictureButton> picture("richtung(1)", Icon::Arrow1);
  picture.watch(picture.onClick);
  picture.setPressed(true);
  EXPECT_TRUE(picture.pressed());
  Watched<Button> button("AutoFadeA");
  button.watch(button.onClick);
  EXPECT_EQ(button.backColor(), -1);
  button.setBackColor(rgb(255, 240, 150));
  EXPECT_EQ(button.backColor(), rgb(255, 240, 150));
  Watched<ColorBox> color("Presult");
  color.watch(color.onClick);
  color.setBackColor(5);
  EXPECT_EQ(color.backColor(), 5);
  EXPECT_EQ(picture.events + button.events + color.events, 0);
  EXPECT_EQ(picture.shows + button.shows + color.shows, 3);
}

TEST(Control, TellsTheViewWhatItShows) {
  Watched<Label> label("Label1", Look{.caption = "Time : ", .toolTip = "seconds"});
  label.watch(label.onClick);
  EXPECT_EQ(label.name(), "Label1");
  EXPECT_EQ(label.look().caption, "Time : ");
  label.setCaption("a");
  label.setToolTip("b");
  label.setVisible(false);
  label.setEnabled(false);
  EXPECT_EQ(label.shows, 4);
  EXPECT_EQ(label.events, 0);
  EXPECT_EQ(label.look().caption + label.look().toolTip, "ab");
}

TEST(Control, IsReachableIfItAndEveryGroupAroundItAre) {
  Group outer("FrameM");
  Group inner("FrameX");
  Button button("addX");
  inner.group = &outer;
  button.group = &inner;
  EXPECT_TRUE(button.reachable());
  for (Control* control : std::initializer_list<Control*>{&outer, &inner, &button}) {
    control->setVisible(false);
    EXPECT_FALSE(button.reachable());
    control->setVisible(true);
    control->setEnabled(false);
    EXPECT_FALSE(button.reachable());
    control->setEnabled(true);
  }
  EXPECT_TRUE(button.reachable());
}

TEST(Control, EveryKindHasAName) {
  EXPECT_STREQ(kindName(Button("x").kind()), "Button");
  EXPECT_STREQ(kindName(PictureButton("x", Icon::Add).kind()), "PictureButton");
  EXPECT_STREQ(kindName(CheckBox("x").kind()), "CheckBox");
  EXPECT_STREQ(kindName(ListBox("x").kind()), "ListBox");
  EXPECT_STREQ(kindName(Kind::ListView), "ListView");
  EXPECT_STREQ(kindName(TextBox("x").kind()), "TextBox");
  EXPECT_STREQ(kindName(Slider("x").kind()), "Slider");
  EXPECT_STREQ(kindName(Kind::PictureBox), "PictureBox");
  EXPECT_STREQ(kindName(ColorBox("x").kind()), "ColorBox");
  EXPECT_STREQ(kindName(Label("x").kind()), "Label");
  EXPECT_STREQ(kindName(Group("x").kind()), "Group");
}

TEST(Icons, EveryPictureHasPartsWithinItsSquare) {
  for (int number = 0; number <= static_cast<int>(Icon::Replace); ++number) {
    const std::vector<IconPart>& parts = iconParts(static_cast<Icon>(number));
    EXPECT_FALSE(parts.empty()) << number;
    for (const IconPart& part : parts) {
      EXPECT_GE(part.points.size(), 2U) << number;
      for (const auto& [x, y] : part.points)
        EXPECT_TRUE(x >= -0.1 && x <= 1.1 && y >= -0.1 && y <= 1.1)
            << number << " " << x << " " << y;
    }
  }
}

TEST(Icons, DirectionsCountCounterClockwiseFromUp) {
  EXPECT_EQ(arrowIcon(0), Icon::None);
  EXPECT_EQ(arrowIcon(1), Icon::Arrow1);
  EXPECT_EQ(arrowIcon(12), Icon::Arrow12);
  const auto tip = [](int direction) { return iconParts(arrowIcon(direction)).at(0).points.at(0); };
  EXPECT_LT(tip(1).second, 0.2);  // up
  EXPECT_LT(tip(3).first, 0.2);   // left
  EXPECT_GT(tip(5).second, 0.8);  // down
  EXPECT_GT(tip(7).first, 0.8);   // right
}

TEST(Slider, PageKeysMoveItByATenthOfItsRange) {
  EXPECT_EQ(Slider("faderM", SliderRange{-100, 100}).pageStep(), 20);
  EXPECT_EQ(Slider("Sred", SliderRange{0, 255}).pageStep(), 25);
  EXPECT_EQ(Slider("few", SliderRange{0, 5}).pageStep(), 1);
}

TEST(Slider, APlaceOnItsWayIsAValue) {
  const Slider level("faderM", SliderRange{-100, 100});
  const Slider upright("Sred", SliderRange{0, 255, true});
  const std::vector<std::array<int, 3>> cases = {
      {-5, -100, 255}, {0, -100, 255}, {50, 0, 127}, {100, 100, 0}, {140, 100, 0}};
  for (const auto& [along, flat, tall] : cases) {
    EXPECT_EQ(level.valueAt(along, 100), flat) << along;
    EXPECT_EQ(upright.valueAt(along, 100), tall) << along;
  }
  EXPECT_EQ(level.valueAt(3, 0), 100) << "a slider without any way";
}

}  // namespace
}  // namespace korvane
