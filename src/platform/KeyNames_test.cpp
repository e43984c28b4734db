#include "platform/KeyNames.h"

#include <gtest/gtest.h>

#include "platform/Controls.h"
#include "platform/ListView.h"

namespace korvane {
namespace {

TEST(KeyNames, AKeyHasOneName) {
  const std::pair<const char*, const char*> kNames[] = {{"ctrl+shift+s", "Ctrl+Shift+S"},
                                                        {"Shift+Ctrl+S", "Ctrl+Shift+S"},
                                                        {"left", "Left"},
                                                        {"Alt+left", "Alt+Left"},
                                                        {"f4", "F4"},
                                                        {"Ctrl++", "Ctrl++"},
                                                        {"+", "+"},
                                                        {"Shift+space", "Shift+Space"},
                                                        {"1", "1"},
                                                        {"\u00e4", "\u00e4"}};
  for (const auto& [text, name] : kNames) EXPECT_EQ(keyNamed(text).value_or("none"), name) << text;
}

TEST(KeyNames, WhatNamesNoKeyHasNone) {
  for (const char* text : {"", "Ctrl+", "Hyper+A", "Leftish", "F99", " ", "AB", "Ctrl+Ctrl"})
    EXPECT_FALSE(keyNamed(text)) << text;
}

struct Wish {
  const char* key;
  bool text, list, box, slider, button;
};

TEST(KeyNames, AFocusedControlKeepsTheKeysThatItWants) {
  TextBox text("text");
  ListView list("list");
  ListBox box("box");
  Slider slider("slider");
  Button button("button");
  constexpr Wish kWishes[] = {
      {"Space", true, true, true, false, true},
      {"A", true, true, true, false, false},
      {"1", true, false, true, false, false},
      {"Left", true, false, true, true, false},
      {"Up", false, true, true, true, false},
      {"Backspace", true, false, false, false, false},
      {"Ctrl+1", false, false, false, false, false},
      {"Ctrl+Left", false, false, false, false, false},
      {"F2", false, false, false, false, false},
      {"F10", false, false, false, false, false},
  };
  for (const Wish& wish : kWishes) {
    SCOPED_TRACE(wish.key);
    EXPECT_EQ(wantsKey(text, wish.key, false), wish.text);
    EXPECT_EQ(wantsKey(list, wish.key, false), wish.list);
    EXPECT_EQ(wantsKey(box, wish.key, false), wish.box);
    EXPECT_EQ(wantsKey(slider, wish.key, false), wish.slider);
    EXPECT_EQ(wantsKey(button, wish.key, false), wish.button);
  }
}

TEST(KeyNames, AButtonOrListThatWasClickedLeavesSpaceToTheCommands) {
  EXPECT_FALSE(wantsKey(Button("button"), "Space", true));
  EXPECT_FALSE(wantsKey(ListView("list"), "Space", true));
  EXPECT_TRUE(wantsKey(TextBox("text"), "Space", true));
}

TEST(KeyNames, AListKeepsTheKeysOfItsActionsAndOfItsEditor) {
  ListView list("list");
  list.setColumns({{.title = "Name", .width = 1, .editable = true}});
  list.add("row");
  EXPECT_TRUE(wantsKey(list, "F2", true));
  EXPECT_FALSE(wantsKey(list, "Del", true));
  list.actions = {{"Delete", "Del", nullptr}};
  EXPECT_TRUE(wantsKey(list, "Del", true));
  list.beginEdit(0, 0);
  EXPECT_TRUE(wantsKey(list, "1", true));
  EXPECT_TRUE(wantsKey(list, "Left", true));
}

}  // namespace
}  // namespace korvane
