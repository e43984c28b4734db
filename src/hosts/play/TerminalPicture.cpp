#include "hosts/play/TerminalPicture.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace korvane {
namespace {

constexpr const char* kPoint = "▀";  // the upper half; the lower one is the background
constexpr int kMostPoints = 4;       // of a lamp's side; more would only cost the terminal time

struct Points {
  int width;
  int height;
};

/// The size of the picture in points: a multiple of the frame's, or what fits of it.
Points pointsOf(const Frame& frame, const TerminalSize& room) {
  const int width = room.columns, height = 2 * room.lines;
  if (frame.cols() <= 0 || frame.rows() <= 0 || width <= 0 || height <= 0) return {0, 0};
  const int larger = std::min({width / frame.cols(), height / frame.rows(), kMostPoints});
  if (larger > 0) return {larger * frame.cols(), larger * frame.rows()};
  const bool wide = frame.cols() * height > frame.rows() * width;
  if (wide) return {width, std::max(1, frame.rows() * width / frame.cols())};
  return {std::max(1, frame.cols() * height / frame.rows()), height};
}

/// One line of the picture, with a colour's sequence only where the colour changes.
class Line {
 public:
  void add(const Rgb& above, const std::optional<Rgb>& below) {
    if (above_ != above) add("\x1b[38;2;", above);
    if (below && (!started_ || below_ != below)) add("\x1b[48;2;", *below);
    if (!below && (!started_ || below_)) text_ += "\x1b[49m";
    text_ += kPoint;
    above_ = above;
    below_ = below;
    started_ = true;
  }
  /// The same point once more.
  void again() { text_ += kPoint; }
  std::string take() { return std::move(text_) + "\x1b[0m"; }

 private:
  void add(const char* begin, const Rgb& color) {
    text_ += begin;
    for (std::size_t i = 0; i < color.size(); ++i) {
      addNumber(color[i]);
      text_ += i + 1 < color.size() ? ';' : 'm';
    }
  }
  void addNumber(int value) {
    if (value >= 100) text_ += static_cast<char>('0' + value / 100);
    if (value >= 10) text_ += static_cast<char>('0' + value / 10 % 10);
    text_ += static_cast<char>('0' + value % 10);
  }

  std::string text_;
  bool started_ = false;
  std::optional<Rgb> above_;
  std::optional<Rgb> below_;
};

}  // namespace

std::vector<std::string> terminalLines(const Frame& frame, const TerminalSize& room) {
  const Points points = pointsOf(frame, room);
  const auto rowAt = [&](int y) { return y * frame.rows() / points.height; };
  std::vector<std::string> lines;
  for (int y = 0; y < points.height; y += 2) {
    Line line;
    const int above = rowAt(y), below = rowAt(y + 1);
    int before = -1;
    for (int x = 0; x < points.width; ++x) {
      const int col = x * frame.cols() / points.width;
      if (std::exchange(before, col) == col) {
        line.again();
      } else {
        line.add(frame.at(col, above),
                 y + 1 < points.height ? std::optional(frame.at(col, below)) : std::nullopt);
      }
    }
    lines.push_back(line.take());
  }
  return lines;
}

std::string linesThatDiffer(const std::vector<std::string>& lines,
                            const std::vector<std::string>& shown) {
  const auto at = [](const std::vector<std::string>& all, std::size_t line) {
    return line < all.size() ? all[line] : std::string();
  };
  std::string text;
  for (std::size_t line = 0; line < std::max(lines.size(), shown.size()); ++line) {
    if (at(lines, line) == at(shown, line)) continue;
    text += "\x1b[" + std::to_string(line + 1) + ";1H" + at(lines, line) + "\x1b[K";
  }
  return text;
}

}  // namespace korvane
