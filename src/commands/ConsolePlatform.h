#pragma once

#include <functional>
#include <string>

#include "platform/HeadlessPlatform.h"

namespace korvane {

/// A machine without a person, whose time of day and pictures come from the program around it.
class ConsolePlatform : public HeadlessPlatform {
 public:
  std::int64_t timeOfDay() override { return clock ? clock() : HeadlessPlatform::timeOfDay(); }
  Raster loadPicture(const std::string& path) override {
    return pictures ? pictures(path) : HeadlessPlatform::loadPicture(path);
  }
  void saveFailed(const FailedSave& failed) override {
    HeadlessPlatform::saveFailed(failed);
    if (tell) tell(failed.told());
  }

  std::function<void(const std::string& text)> tell;        ///< of what no reply speaks
  std::function<std::int64_t()> clock;                      ///< milliseconds since midnight
  std::function<Raster(const std::string& path)> pictures;  ///< as Platform::loadPicture
};

}  // namespace korvane
