#include "commands/TestConsole.h"
#include "platform/Failure.h"

namespace korvane {
namespace {

TEST_F(TestConsole, UnknownNamesAreErrors) {
  expect(
      {{"click Nobody", R"({"ok":false,"error":"There is no window 'Nobody'."})"},
       {"click Nobody.go", R"({"ok":false,"error":"There is no window 'Nobody'."})"},
       {"click demo.go", R"({"ok":false,"error":"There is no window 'demo'."})"},
       {"click Demo.nothing", R"({"ok":false,"error":"Demo has no control 'nothing'."})"},
       {"click Demo.richtung(6)", R"({"ok":false,"error":"Demo has no control 'richtung(6)'."})"},
       {"click Demo.", R"({"ok":false,"error":"Demo has no control ''."})"},
       {"get \"\"", R"({"ok":false,"error":"There is no window ''."})"}});
}

TEST_F(TestConsole, HiddenAndDisabledControlsCanNotBeReached) {
  expect({{"click Demo.unseen", R"({"ok":false,"error":"Demo.unseen is hidden."})"},
          {"click Demo.dead", R"({"ok":false,"error":"Demo.dead is disabled."})"}});
}

TEST_F(TestConsole, TheGroupsAroundAControlCount) {
  demo.outer.setEnabled(false);
  expect({{"click Demo.deep",
           R"({"ok":false,"error":"Demo.deep can't be reached: the group outer around it is )"
           R"(disabled."})"}});
  demo.outer.setEnabled(true);
  demo.inner.setVisible(false);
  expect({{"click Demo.deep",
           R"({"ok":false,"error":"Demo.deep can't be reached: the group inner around it is )"
           R"(hidden."})"}});
  demo.inner.setVisible(true);
  expect({{"click Demo.deep", kOk}});
}

TEST_F(TestConsole, ControlsOfAHiddenWindowCanNotBeReached) {
  expect({{"click Ask.done", R"({"ok":false,"error":"The window Ask is hidden."})"},
          {"key Ask 13", R"({"ok":false,"error":"The window Ask is hidden."})"}});
}

TEST_F(TestConsole, AnotherWindowIsActivatedFirst) {
  expect({{"key Surface 0", kOk, {"Surface activate"}},
          {"key Surface 0", kOk},
          {"click Demo.go", kOk, {"Demo activate", "go"}}});
}

TEST_F(TestConsole, LookingActivatesNothing) {
  expect({{"key Surface 0", kOk, {"Surface activate"}},
          {"value masterValue", R"({"ok":true,"value":0.5})"}});
  EXPECT_NE(reply("get Demo"), kOk);
  EXPECT_NE(reply("pixels Demo.picture"), kOk);
  EXPECT_TRUE(log.empty());
  EXPECT_EQ(engine.desktop.active(), &surface);
}

TEST_F(TestConsole, ARefusedCommandActivatesNothing) {
  engine.desktop.activate(surface);
  log.clear();
  expect({{"click Demo.dead", R"({"ok":false,"error":"Demo.dead is disabled."})"},
          {"set Demo.list 9", R"({"ok":false,"error":"VALUE must be 0 to 2, not 9."})"}});
  EXPECT_EQ(engine.desktop.active(), &surface);
}

TEST_F(TestConsole, HidingTheActiveWindowActivatesTheOneBelow) {
  demo.go.onClick = [this] { engine.desktop.hide(demo); };
  expect({{"click Demo.go", kOk, {"Surface activate"}}});
}

class ModalConsole : public TestConsole {
 protected:
  ModalConsole() {
    demo.go.onClick = [this] {
      engine.desktop.showModal(ask, [this] { log.emplace_back("closed"); });
      log.emplace_back("opened");
    };
  }
};

TEST_F(ModalConsole, OpeningIsToldAndTheWindowAloneIsReached) {
  expect({{"click Demo.go", R"({"ok":true,"modal":"Ask"})", {"Ask activate", "opened"}},
          {"click Demo.go",
           R"({"ok":false,"error":"Demo.go can't be reached: the window Ask is open modally."})"},
          {"key Surface 27",
           R"({"ok":false,"error":"Surface can't be reached: the window Ask is open modally."})"},
          {"key Ask 27", kOk},
          {"value masterValue", R"({"ok":true,"value":0.5})"}});
}

TEST_F(ModalConsole, ClosingIsAnsweredWhenTheOpenerHasEnded) {
  reply("click Demo.go");
  log.clear();
  expect(
      {{"click Ask.done", kOk, {"Demo activate", "closed"}}, {"key Demo 0", kOk, {"Demo key 0"}}});
}

TEST_F(ModalConsole, AFailureAfterClosingIsTheRepliesFailure) {
  demo.go.onClick = [this] {
    engine.desktop.showModal(ask, [] { throw Failure(kDivisionByZero, "after"); });
  };
  reply("click Demo.go");
  log.clear();
  expect({{"close Ask",
           R"({"ok":false,"failure":{"number":11,"text":"Division by zero: after"}})",
           {"Demo activate"}}});
  EXPECT_FALSE(ask.visible());
}

TEST_F(ModalConsole, AFailureThatLeavesAWindowOpenTellsOfBoth) {
  demo.go.onClick = [this] {
    engine.desktop.showModal(ask, nullptr);
    throw Failure(kSubscript);
  };
  expect({{"click Demo.go",
           R"({"ok":false,"failure":{"number":9,"text":"Subscript out of range"},"modal":"Ask"})",
           {"Ask activate"}}});
}

TEST_F(ModalConsole, AModalWindowThatOpensAnotherTellsOfEachOnce) {
  AskForm second(engine, log);
  ask.done.onClick = [&] { engine.desktop.showModal(demo, nullptr); };
  demo.go.onClick = [this] { engine.desktop.showModal(ask, nullptr); };
  expect({{"click Demo.go", R"({"ok":true,"modal":"Ask"})", {"Ask activate"}},
          {"click Ask.done", R"({"ok":true,"modal":"Demo"})", {"Demo activate"}},
          {"close Demo", kOk, {"Demo close", "Ask activate"}},
          {"close Ask", kOk, {"Surface activate"}}});
}

TEST_F(TestConsole, AFailureEndsTheCommandAndTheProcessGoesOn) {
  demo.go.onClick = [] { throw Failure(kOverflow); };
  expect({{"click Demo.go", R"({"ok":false,"failure":{"number":6,"text":"Overflow"}})"},
          {"click Demo.label", kOk, {"label"}}});
  EXPECT_FALSE(interpreter.allOk());
}

TEST_F(TestConsole, AFailedActivationEndsTheCommand) {
  engine.desktop.activate(surface);
  demo.onActivate = [] { throw Failure(kTypeMismatch); };
  log.clear();
  expect({{"click Demo.go", R"({"ok":false,"failure":{"number":13,"text":"Type mismatch"}})"},
          {"click Demo.go", kOk, {"go"}}});
}

TEST_F(TestConsole, AnActionThatTheActivationDisablesDoesNotHappen) {
  engine.desktop.activate(surface);
  demo.onActivate = [this] { demo.go.setEnabled(false); };
  log.clear();
  expect({{"click Demo.go", R"({"ok":false,"error":"Demo.go is disabled."})"}});
}

TEST_F(TestConsole, AFailureInTheMidstOfAGestureEndsIt) {
  demo.picture.onMouseUp = [](int, int) { throw Failure(kOverflow); };
  expect({{"mouse Demo.picture click 0 0",
           R"({"ok":false,"failure":{"number":6,"text":"Overflow"}})",
           {"down 0 0"}}});
}

class EditingConsole : public TestConsole {
 protected:
  EditingConsole() {
    demo.table.onClick = [this](int row, int col) { demo.table.beginEdit(row, col); };
    demo.table.onAfterEdit = [this](int, const std::string& old, const std::string& typed) {
      log.push_back(old + " to " + typed);
      return typed;
    };
  }
};

TEST_F(EditingConsole, AnOpenEditorClosesBeforeTheNextAction) {
  expect({{"pick Demo.table 0 1", kOk},
          {"value editDeck", R"({"ok":true,"value":0})"},
          {"click Demo.go", kOk, {"1.0 to 1.0", "table edited 0 1", "go"}},
          {"click Demo.go", kOk, {"go"}}});
}

TEST_F(EditingConsole, EditTypesIntoTheOpenEditor) {
  expect({{"pick Demo.table 0 1", kOk},
          {"edit Demo.table 0 1 5", kOk, {"1.0 to 5", "table edited 0 1"}}});
}

TEST_F(EditingConsole, EditOfAnotherCellClosesTheOpenEditor) {
  expect({{"pick Demo.table 0 1", kOk},
          {"edit Demo.table 1 1 5",
           kOk,
           {"1.0 to 1.0", "table edited 0 1", "2.0 to 5", "table edited 1 1"}}});
}

TEST_F(EditingConsole, ARefusedActionLeavesTheEditorOpen) {
  expect({{"pick Demo.table 0 1", kOk},
          {"click Demo.dead", R"({"ok":false,"error":"Demo.dead is disabled."})"}});
  EXPECT_TRUE(demo.table.editing());
}

TEST_F(EditingConsole, AnActionThatTheClosingEditorDisablesDoesNotHappen) {
  demo.table.onEdited = [this](int, int) { demo.go.setEnabled(false); };
  expect({{"pick Demo.table 0 1", kOk},
          {"click Demo.go", R"({"ok":false,"error":"Demo.go is disabled."})", {"1.0 to 1.0"}}});
}

}  // namespace
}  // namespace korvane
