#pragma once

#include <string>

#include "testing/TestPlugin.h"

namespace korvane {

/// A plug-in whose grid is being defined: by files, and in the window for that.
class DefinitionTest : public TestPlugin {
 protected:
  std::string definition() { return host.baseFilename + ".korvaneconf"; }
  bool configure() {
    return event([this] { plugin.plugIn.ITharnPlugin_Configure(); });
  }
  /// Loads a definition with these bytes through the window's button.
  bool loadBytes(const std::string& bytes) {
    writeFile(folder + "/other.korvaneconf", bytes);
    platform.answers.emplace_back(folder + "/other.korvaneconf");
    return click(conf.load);
  }
  void doubleClick(int x, int y) {
    using Mouse = PictureBox::Mouse;
    for (const Mouse mouse : {Mouse::Down, Mouse::Up, Mouse::Click, Mouse::Down, Mouse::DblClick}) {
      event([&] { conf.mxbild.mouse(mouse, x, y); });
    }
  }
  std::string sent() {
    takeCalls();
    plugin.matrixForm.active.setValue(1);
    std::string all;
    for (const std::string& call : takeCalls()) all += call + ";";
    return all;
  }

  MatrixConf& conf = plugin.matrixConf;
};

}  // namespace korvane
