#include "hosts/play/Film.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "hosts/play/GifFile.h"

namespace korvane {
namespace {

constexpr int kBarWidth = 40;

/// A bar on the terminal, drawn anew when a whole per cent is done.
class ProgressBar {
 public:
  ~ProgressBar() {
    if (percent_ >= 0) write("\n");
  }
  void show(std::int64_t done, std::int64_t all) {
    const int percent = static_cast<int>(done * 100 / std::max<std::int64_t>(all, 1));
    if (percent == percent_ || isatty(STDERR_FILENO) == 0) return;
    percent_ = percent;
    const auto full = static_cast<std::size_t>(percent * kBarWidth / 100);
    write("\r[" + std::string(full, '#') + std::string(kBarWidth - full, ' ') + "] " +
          std::to_string(percent) + " %");
  }

 private:
  static void write(const std::string& text) {
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text.data(), text.size());
  }

  int percent_ = -1;
};

std::vector<std::uint8_t> bytesOf(const Frame& picture, int cols, int rows) {
  std::vector<std::uint8_t> bytes;
  for (int row = 0; row < rows; ++row) {
    for (int col = 0; col < cols; ++col) {
      const Rgb& lamp = picture.at(col, row);
      bytes.insert(bytes.end(), lamp.begin(), lamp.end());
    }
  }
  return bytes;
}

bool writeAll(const std::vector<std::uint8_t>& bytes) {
  std::size_t at = 0;
  while (at < bytes.size()) {
    const ssize_t written = write(STDOUT_FILENO, bytes.data() + at, bytes.size() - at);
    if (written < 0 && errno == EINTR) continue;
    if (written < 0 && errno == EPIPE) return false;
    if (written < 0)
      throw std::system_error(errno, std::generic_category(), "standard output can't be written");
    at += static_cast<std::size_t>(written);
  }
  return true;
}

}  // namespace

bool makeFilm(Engine& engine, const FilmOptions& options, std::int64_t milliseconds,
              const TimerQueue::Gate& gate) {
  const Variablen& v = engine.v;
  std::optional<GifFile> gif;
  if (!options.gif.empty()) gif.emplace(options.gif, v.matrixCols, v.matrixRows);
  ProgressBar bar;
  const std::int64_t start = engine.timers.now();
  for (std::int64_t at = 0; at < milliseconds; at += kFilmInterval) {
    engine.timers.advanceTo(start + at, gate);
    if (gif) gif->add(v.frameM, at);
    if (options.raw && !writeAll(bytesOf(v.frameM, v.matrixCols, v.matrixRows))) return false;
    bar.show(at, milliseconds);
  }
  if (gif) gif->finish(milliseconds);
  bar.show(milliseconds, milliseconds);
  return true;
}

}  // namespace korvane
