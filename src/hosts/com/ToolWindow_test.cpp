#include "hosts/com/ComTest.h"

namespace korvane {
namespace {

class ToolWindow : public ComTest {
 protected:
  ComPtr<::ITharnPlugin> plugIn = create();
  ComPtr<IToolWindow> window = tool(*plugIn.Get());

  bool visible() {
    VARIANT_BOOL visible = VARIANT_FALSE;
    EXPECT_EQ(window->get_Visible(&visible), S_OK);
    return visible == VARIANT_TRUE;
  }
  long width() {
    long width = 0;
    EXPECT_EQ(window->get_Width(&width), S_OK);
    return width;
  }
};

TEST_F(ToolWindow, IsShownAndHidden) {
  EXPECT_FALSE(visible());
  EXPECT_EQ(window->Show(), S_OK);
  EXPECT_TRUE(visible());
  EXPECT_EQ(window->Hide(), S_OK);
  EXPECT_FALSE(visible());
  EXPECT_EQ(window->put_Visible(VARIANT_TRUE), S_OK);
  EXPECT_TRUE(visible());
  EXPECT_EQ(window->put_Visible(VARIANT_FALSE), S_OK);
  EXPECT_FALSE(visible());
}

TEST_F(ToolWindow, HasACaptionAndASizeInTwips) {
  BSTR text = SysAllocString(L"L\u00e4mpchen");
  EXPECT_EQ(window->put_Caption(text), S_OK);
  SysFreeString(text);
  EXPECT_EQ(window->get_Caption(&text), S_OK);
  EXPECT_EQ(taken(text), "L\u00e4mpchen");
  EXPECT_EQ(width(), 8200);
  EXPECT_EQ(window->put_Width(5000), S_OK);
  EXPECT_EQ(window->put_Height(4000), S_OK);
  EXPECT_EQ(width(), 5000);
  long height = 0;
  EXPECT_EQ(window->get_Height(&height), S_OK);
  EXPECT_EQ(height, 4000);
}

TEST_F(ToolWindow, ViewModeTwoIsTheFullWidth) {
  ComPtr<::ITharnTool> asTool;
  ASSERT_EQ(window.As(&asTool), S_OK);
  EXPECT_EQ(asTool->put_ITharnTool_ViewMode(1), S_OK);
  EXPECT_EQ(width(), 6550);
  EXPECT_EQ(asTool->put_ITharnTool_ViewMode(2), S_OK);
  EXPECT_EQ(width(), 8200);
}

TEST_F(ToolWindow, ViewChangesOfTheDeskHideTheFiveFrames) {
  ASSERT_EQ(window->Show(), S_OK);
  EXPECT_EQ(message(*plugIn.Get(), 31, 1), S_OK);
  EXPECT_EQ(width(), 6000);
  EXPECT_NE(run(*window.Get(), "get MatrixForm.FrameX").find("\"visible\":false"),
            std::string::npos);
  EXPECT_EQ(message(*plugIn.Get(), 31, 2), S_OK);
  EXPECT_EQ(width(), 8200);
  EXPECT_NE(run(*window.Get(), "get MatrixForm.FrameX").find("\"visible\":true"),
            std::string::npos);
}

TEST_F(ToolWindow, AnswersTheQuestionsAboutProjectData) {
  ComPtr<::ITharnTool> asTool;
  ASSERT_EQ(window.As(&asTool), S_OK);
  VARIANT_BOOL answer = VARIANT_FALSE;
  EXPECT_EQ(asTool->ITharnTool_AskToSaveProjectData(&answer), S_OK);
  EXPECT_EQ(answer, VARIANT_TRUE);
  EXPECT_EQ(asTool->ITharnTool_ClearProjectData(), S_OK);
}

TEST_F(ToolWindow, RunPressesControlsAndReplies) {
  ASSERT_EQ(window->Show(), S_OK);
  EXPECT_EQ(run(*window.Get(), "set MatrixForm.faderM 100"), R"({"ok":true})");
  EXPECT_EQ(run(*window.Get(), "value masterValue"), R"({"ok":true,"value":1.0})");
  EXPECT_EQ(run(*window.Get(), "# a remark"), "");
  EXPECT_EQ(run(*window.Get(), "nonsense"),
            R"({"ok":false,"error":"There is no command 'nonsense'."})");
}

TEST_F(ToolWindow, ARunningScriptAnswersMessageBoxesAndFileDialogs) {
  ASSERT_EQ(window->Show(), S_OK);
  EXPECT_EQ(run(*window.Get(), "message 14"), R"({"ok":true,"result":0})");
  EXPECT_EQ(run(*window.Get(), "boxes"), R"({"ok":true,"boxes":["Blackout"]})");
  const std::string file = testing::TempDir() + "\\r\u00f6hre \u00fc.korvaneconf";
  const std::filesystem::path path{std::u8string(file.begin(), file.end())};
  std::filesystem::remove(path);
  std::string quoted;
  for (const char character : file)
    quoted += character == '\\' ? "\\\\" : std::string(1, character);
  EXPECT_EQ(run(*window.Get(), "answer \"" + quoted + "\""), R"({"ok":true})");
  EXPECT_EQ(run(*window.Get(), "call ITharnTool_SaveProjectData"), R"({"ok":true,"result":null})");
  EXPECT_TRUE(std::filesystem::remove(path)) << "the file was saved under its name";
}

TEST_F(ToolWindow, RunLetsTimePass) {
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  desk.calls.clear();
  run(*window.Get(), "click MatrixForm.AutoFadeB");
  EXPECT_EQ(run(*window.Get(), "advance 4000").find(R"({"ok":true,"now":)"), 0U);
  EXPECT_EQ(run(*window.Get(), "value masterValue"), R"({"ok":true,"value":1.0})");
  EXPECT_FALSE(desk.calls.empty());
}

TEST_F(ToolWindow, KeepsTheNewestCallsOnly) {
  ASSERT_EQ(window->Show(), S_OK);
  run(*window.Get(), "click MatrixForm.active");
  for (int pass = 0; desk.calls.size() < 450'000; ++pass)
    run(*window.Get(), pass % 2 == 0 ? "set MatrixForm.faderM 0" : "set MatrixForm.faderM 100");
  const std::string reply = run(*window.Get(), "calls");
  const auto kept = std::count(reply.begin(), reply.end(), '[') - 1;
  EXPECT_GE(kept, 100'000);
  EXPECT_LE(kept, 200'000);
}

}  // namespace
}  // namespace korvane
