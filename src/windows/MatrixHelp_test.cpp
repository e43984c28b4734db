#include "windows/MatrixHelp.h"

#include "testing/TestPlugin.h"

namespace korvane {
namespace {

class HelpWindows : public TestPlugin {
 protected:
  void SetUp() override { ASSERT_TRUE(open()); }
};

TEST_F(HelpWindows, TheMainWindowsHelpIsShownModelessAndHiddenByOK) {
  MatrixHelp& help = plugin.matrixHelp;
  click(plugin.matrixForm.help);
  EXPECT_TRUE(help.visible());
  EXPECT_FALSE(help.modal());
  EXPECT_EQ(help.caption(), "Korvane");
  EXPECT_EQ(help.Title.look().caption, "Matrix Help File");
  click(help.OK);
  EXPECT_FALSE(help.visible());
}

TEST_F(HelpWindows, TheLineOpensTheOnlinePage) {
  click(plugin.matrixForm.help);
  event([&] { plugin.matrixHelp.Page.click(); });
  EXPECT_EQ(platform.pages, std::vector<std::string>{"https://korvane.example/wiki/Korvane"});
}

TEST_F(HelpWindows, TheDefinitionsHelpIsShownModelessAndHiddenByOK) {
  MatrixConfigHelp& help = plugin.matrixConfigHelp;
  event([&] { plugin.plugIn.ITharnPlugin_Configure(); });
  click(plugin.matrixConf.help);
  EXPECT_TRUE(help.visible());
  EXPECT_FALSE(help.modal());
  EXPECT_EQ(help.caption(), "CCConfigHelp");
  click(help.OK);
  EXPECT_FALSE(help.visible());
}

TEST_F(HelpWindows, TheDefinitionsHelpHasItsSixteenLines) {
  const TextBox& box = plugin.matrixConfigHelp.Text1;
  EXPECT_TRUE(box.style().readOnly);
  const std::vector<std::string> lines = split(box.text(), '\n');
  ASSERT_EQ(lines.size(), 16U);
  EXPECT_EQ(lines[0], "RGB-Matrix");
  EXPECT_EQ(lines[1], "with this plugin you can edit the values of a matrix of ");
  EXPECT_EQ(lines[11], "of the matrix which is configured is white (all un-");
  EXPECT_EQ(lines[15], "are the name and location of the actual TharnDesk-Project.");
}

}  // namespace
}  // namespace korvane
