#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "output/Preview.h"
#include "persistence/MatrixDefinition.h"
#include "platform/Events.h"
#include "platform/HeadlessPlatform.h"
#include "shell/Plugin.h"

namespace korvane::testing {

inline constexpr Color kRed = rgb(255, 0, 0);
inline constexpr Color kGreen = rgb(0, 255, 0);
inline constexpr Color kBlue = rgb(0, 0, 255);
inline constexpr Color kWhite = rgb(255, 255, 255);

/// A desk that counts the calls.
struct CountingHost : Host {
  std::int32_t ChannelMAXCHANNELS() override { return 512; }
  std::string ProjectName() override { return "no-such-project"; }
  std::string ProjectBaseFilename() override { return "/nonexistent/no-such-project"; }
  void UserInteraction() override { ++interactions; }
  void SetChannel(std::int32_t, std::int32_t, bool) override { ++channels; }

  int interactions = 0;
  int channels = 0;
};

/// A whole plug-in with its window open, time standing still, and one effect per deck.
class ColorShow {
 public:
  explicit ColorShow(int cols = 4, int rows = 4) {
    plugin.plugIn.ITharnPlugin_Init("", "", host);
    engine.desktop.show(plugin.matrixForm);
    resize(cols, rows);
  }

  void resize(int cols, int rows) {
    engine.v.matrixCols = static_cast<std::int16_t>(cols);
    engine.v.matrixRows = static_cast<std::int16_t>(rows);
    dimensionMatrix(engine);
    for (PictureBox* box : {&engine.v.A.picture, &engine.v.B.picture, &engine.master.picture})
      set_matrix_values(engine, *box);
  }

  /// Runs something as an event: its failure is kept in platform.failures.
  template <class Action>
  bool act(Action action) {
    return runEvent(platform, action);
  }
  /// Clicks a button that a person can reach.
  template <class Button>
  bool press(Button& button) {
    EXPECT_TRUE(button.reachable()) << button.name();
    return act([&button] { button.click(); });
  }
  bool press(CheckBox& box) {
    EXPECT_TRUE(box.reachable()) << box.name();
    return act([&box] { box.setValue(1 - box.value()); });
  }
  void advance(std::int64_t milliseconds) {
    engine.timers.advanceTo(engine.timers.now() + milliseconds,
                            [this](const auto& tick) { runEvent(platform, tick); });
  }
  void beat() {
    act([this] { plugin.plugIn.ITharnPlugin_MessageHandle(kMessageBeat, 0, 0); });
  }

  Deck& deck(Side side) { return side == Side::B ? engine.v.B : engine.v.A; }
  DeckPanel& panel(Side side) {
    return side == Side::B ? plugin.matrixForm.panelB : plugin.matrixForm.panelA;
  }
  /// The record of the deck, made a configured effect of this type without an event.
  Effect& effect(Side side) { return deck(side).effect(); }
  /// Selects the deck's first row, which starts its effect.
  void start(Side side) {
    act([&] { deck(side).efxList.click(0, 0); });
  }

  HeadlessPlatform platform;
  CountingHost host;
  Plugin plugin{platform};
  Engine& engine = plugin.engine;
};

/// A frame as rows of letters: R G B W for the pure colours, "." for black, "?" for any other.
inline std::vector<std::string> drawing(const Frame& frame) {
  static const std::map<Color, char> letters = {
      {kRed, 'R'}, {kGreen, 'G'}, {kBlue, 'B'}, {kWhite, 'W'}, {0, '.'}};
  std::vector<std::string> rows;
  for (int row = 0; row < frame.rows(); ++row) {
    rows.emplace_back();
    for (int col = 0; col < frame.cols(); ++col) {
      const auto letter = letters.find(rgb(frame.at(col, row)));
      rows.back() += letter == letters.end() ? '?' : letter->second;
    }
  }
  return rows;
}

inline void expectPicture(const Frame& frame, const std::vector<std::string>& expected) {
  EXPECT_EQ(drawing(frame), expected);
}

/// Paints a frame from rows of the same letters.
inline void paint(Frame& frame, const std::vector<std::string>& rows) {
  static const std::map<char, Color> colors = {
      {'R', kRed}, {'G', kGreen}, {'B', kBlue}, {'W', kWhite}, {'.', 0}};
  for (int row = 0; row < frame.rows(); ++row) {
    for (int col = 0; col < frame.cols(); ++col) {
      const char letter = rows.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(col));
      frame.at(col, row) = colorParts(colors.at(letter));
    }
  }
}

/// Tests that run over both decks from one body.
class BothDecks : public ::testing::TestWithParam<Side> {
 protected:
  bool isB() const { return GetParam() == Side::B; }

  ColorShow show;
  Deck& deck = show.deck(GetParam());
  Effect& effect = deck.effect();
  Engine& engine = show.engine;
};

inline std::string deckName(const ::testing::TestParamInfo<Side>& side) {
  return side.param == Side::B ? "B" : "A";
}

}  // namespace korvane::testing

#define KORVANE_BOTH_DECKS(suite)                                                              \
  INSTANTIATE_TEST_SUITE_P(Deck, suite, ::testing::Values(korvane::Side::A, korvane::Side::B), \
                           korvane::testing::deckName)
