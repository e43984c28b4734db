#include "hosts/play/TerminalPicture.h"

namespace korvane {
namespace {

std::string sgr(int plane, const Rgb& color) {
  return "\x1b[" + std::to_string(plane) + ";2;" + std::to_string(color[0]) + ";" +
         std::to_string(color[1]) + ";" + std::to_string(color[2]) + "m";
}

int lines(const Frame& frame) { return (frame.rows() + 1) / 2; }

}  // namespace

std::string terminalPicture(const Frame& frame) {
  std::string picture;
  for (int line = 0; line < lines(frame); ++line) {
    for (int col = 0; col < frame.cols(); ++col) {
      const bool below = 2 * line + 1 < frame.rows();
      picture += sgr(38, frame.at(col, 2 * line));
      picture += below ? sgr(48, frame.at(col, 2 * line + 1)) : "\x1b[49m";
      picture += "▀▀";
    }
    picture += "\x1b[0m\n";
  }
  return picture;
}

std::string backToTop(const Frame& frame) { return "\x1b[" + std::to_string(lines(frame)) + "A"; }

}  // namespace korvane
