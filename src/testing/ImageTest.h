#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "generators/image/ImageCode.h"
#include "testing/Drawing.h"
#include "testing/TestPlugin.h"

namespace korvane {

/// Image effects on a whole plug-in, on either deck: the effect of the first row, and picture files
/// whose contents are drawings.
class ImageTest : public TestDecks {
 protected:
  /// Opens the tool window with a grid of this size and makes the first row an Image.
  void openWithGrid(int cols, int rows) {
    ASSERT_TRUE(open());
    resize(cols, rows);
    event([this] { deck.type.setIndex(kImage); });  // by no person
    takeBoxes();
  }

  /// A file that holds the picture; its path.
  std::string picture(const std::string& name, const Drawing& drawing) {
    return picture(name, rasterOf(drawing));
  }
  std::string picture(const std::string& name, const Raster& raster) {
    std::string path = folder + "/" + name;
    writeFile(path, "a picture");
    platform.pictures[path] = raster;
    return path;
  }
  static Raster rasterOf(const Drawing& drawing) {
    const Frame frame = frameOf(drawing);
    Raster raster(frame.cols(), frame.rows());
    for (int x = 0; x < raster.width(); ++x) {
      for (int y = 0; y < raster.height(); ++y) raster.setPixel(x, y, rgb(frame.at(x, y)));
    }
    return raster;
  }

  /// Fills the record's list; each picture stays for a second unless `times` says otherwise.
  void list(const std::vector<std::string>& files, std::vector<double> times = {}) {
    times.resize(files.size(), 1);
    Effect& effect = deck.effect();
    effect.imageCount = static_cast<std::int16_t>(files.size());
    effect.imageFiles = files;
    effect.itemTimes = times;
    effect.imageNames.clear();
    for (const std::string& file : files)
      effect.imageNames.push_back(std::filesystem::path(file).filename().string());
  }

  /// Starts the effect as a click on its row does.
  bool start() { return pick(deck.efxList, 0); }
};

}  // namespace korvane
