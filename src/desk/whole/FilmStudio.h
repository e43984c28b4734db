#pragma once

#include <string>
#include <vector>

#include "desk/show/DeskHost.h"
#include "platform/HeadlessPlatform.h"
#include "platform/Raster.h"
#include "shell/Plugin.h"

namespace korvane {

/// The longer side of a small picture of an effect, in pixels.
inline constexpr int kSmallSide = 25;

/// A picture of lamps, a pixel each, or fewer if it is larger than kSmallSide.
Raster smallPicture(const Frame& frame, int cols, int rows);

/// Makes short films of effects, in a plug-in of its own that nobody sees and in a time of its own:
/// the show does not hear of it.
class FilmStudio {
 public:
  /// Time from picture to picture, in milliseconds, and the pictures of a film.
  static constexpr int kStep = 200;
  static constexpr int kLength = 15;

  /// `machine` reads the files that effects show.
  explicit FilmStudio(Platform& machine);

  /// What a deck of the show would play of this record: pictures of smallPicture's size; none for a
  /// record that can't be played.
  std::vector<Raster> film(const Variablen& show, Side side, const Effect& effect);

 private:
  /// Reads pictures, and keeps quiet.
  struct Unseen : HeadlessPlatform {
    explicit Unseen(Platform& machine) : machine_(machine) {}
    Raster loadPicture(const std::string& path) override { return machine_.loadPicture(path); }
    NumberFormat numberFormat() override { return machine_.numberFormat(); }
    Disk& disk() override { return machine_.disk(); }
    bool startsWithout(const BrokenGrid&) override { return true; }

   private:
    Platform& machine_;
  };

  void takeGrid(const Variablen& show);

  Unseen platform_;
  DeskHost host_{""};
  Plugin plugin_{platform_};
};

}  // namespace korvane
