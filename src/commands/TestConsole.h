#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/ConsoleHost.h"
#include "commands/Interpreter.h"
#include "platform/Controls.h"
#include "platform/ListView.h"
#include "platform/PictureBox.h"

namespace korvane {

/// Names of the handlers that ran, in order.
using Log = std::vector<std::string>;

/// A window with a control of every kind, each of which logs what happens to it.
struct DemoForm : Form {
  DemoForm(Engine& engine, Log& handlers);

  Button go{"go", {.caption = "Go", .toolTip = "goes"}};
  PictureButton arrow{"richtung(5)", Icon::Down, {.toolTip = "down"}};
  CheckBox box{"box", {.caption = "Box"}};
  ListBox list{"list"};
  ListBox empty{"empty"};
  ListView table{"table"};
  TextBox text{"text", {}, "start"};
  TextBox lines{"lines", {}, "", {.lines = 3}};
  TextBox fixed{"fixed", {}, "as it is", {.readOnly = true}};
  Slider slider{"slider", SliderRange{-5, 5}};
  PictureBox picture{"picture", {4, 3}, {}, rgb(0, 0, 255)};
  ColorBox color{"color", {}, rgb(1, 2, 255)};
  Label label{"label", {.caption = "Label : "}};
  Button unseen{"unseen", {.visible = false}};
  Button dead{"dead", {.enabled = false}};
  Group outer{"outer", {.caption = "Outer"}};
  Group inner{"inner"};
  Button deep{"deep"};
};

/// A window without controls that is one picture.
struct SurfaceForm : Form {
  SurfaceForm(Engine& engine, Log& handlers);

  PictureBox picture{"surface", {2, 1}};
};

/// A window to be opened modally.
struct AskForm : Form {
  AskForm(Engine& engine, Log& handlers);

  Button done{"done"};
};

/// A console over three windows: `Demo` and `Surface` are open, `Ask` is not.
class TestConsole : public testing::Test {
 protected:
  TestConsole();

  /// A command with its expected reply, and the handlers that it shall have run.
  struct Case {
    const char* line;
    const char* reply;
    Log handlers = {};
  };

  std::string reply(const std::string& line) { return interpreter.answer(line).value_or("none"); }
  Log takeLog() { return std::exchange(log, {}); }
  void expect(const std::vector<Case>& cases) {
    for (const Case& row : cases) {
      EXPECT_EQ(reply(row.line), row.reply) << row.line;
      EXPECT_EQ(takeLog(), row.handlers) << row.line;
    }
  }

  Log log;
  HeadlessPlatform platform;
  Engine engine{platform};
  ConsoleHost host{{"show", "/shows/show"}, 512};
  DemoForm demo{engine, log};
  SurfaceForm surface{engine, log};
  AskForm ask{engine, log};
  Interpreter interpreter;
};

inline constexpr const char* kOk = R"({"ok":true})";

}  // namespace korvane
