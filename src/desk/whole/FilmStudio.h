#pragma once

#include <string>
#include <utility>
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
/// the show does not hear of it. A film is made in slices, so that nothing waits for the whole.
class FilmStudio {
 public:
  /// Time from picture to picture, in milliseconds, and the pictures of a film.
  static constexpr int kStep = 200;
  static constexpr int kLength = 15;

  /// `machine` reads the files that effects show.
  explicit FilmStudio(Platform& machine);

  /// Lamps whose steps are reckoned in one slice: some 2 ms of the slowest effect.
  static constexpr int kLampsASlice = 20'000;

  /// Begins the film of what a deck of the show would play of this record, from the first step of
  /// one that is dark until then.
  void begin(const Variablen& show, Side side, const Effect& effect);
  /// Makes the next slice; true when the film is complete.
  bool goOn();
  /// The film: pictures of smallPicture's size; none of a record that can't be played.
  std::vector<Raster> take() { return std::move(pictures_); }

 private:
  /// Reads pictures, and keeps quiet.
  struct Unseen : HeadlessPlatform {
    explicit Unseen(Platform& machine) : machine_(machine) {}
    Raster loadPicture(const std::string& path) override { return machine_.loadPicture(path); }
    NumberFormat numberFormat() override { return machine_.numberFormat(); }
    Disk& disk() override { return machine_.disk(); }
    std::int64_t timeOfDay() override { return timers == nullptr ? 0 : timers->now(); }
    bool startsWithout(const BrokenGrid&) override { return true; }

    const TimerQueue* timers = nullptr;  ///< the clock of the films; random numbers follow from it

   private:
    Platform& machine_;
  };

  void takeGrid(const Variablen& show);
  void end();

  Unseen platform_;
  DeskHost host_{""};
  Plugin plugin_{platform_};
  Deck* deck_ = &plugin_.engine.v.A;  // that plays for the film
  bool plays_ = false;
  std::int64_t nextPicture_ = 0;  // when it is due
  std::vector<Raster> pictures_;
};

}  // namespace korvane
