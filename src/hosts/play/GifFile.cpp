#include "hosts/play/GifFile.h"

#include <fcntl.h>
#include <gif_lib.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <map>
#include <stdexcept>
#include <utility>
#include <vector>

namespace korvane {
namespace {

constexpr int kLongestSide = 400;  // pixels, about
constexpr int kSmallestCell = 4;   // pixels
constexpr int kLargestCell = 24;
constexpr int kLeastWithGap = 5;         // a smaller cell touches its neighbours
constexpr std::size_t kColors = 256;     // of a picture, the gap's black among them
constexpr std::int64_t kHundredth = 10;  // ms: a picture's time is counted in these

struct Palette {
  std::vector<GifColorType> colors{{0, 0, 0}};
  std::map<std::uint32_t, GifByteType> index{{0, GifByteType{0}}};
};

std::uint32_t coarse(const Rgb& color, int bits) {
  const auto part = [bits](std::uint8_t level) -> std::uint32_t {
    const int dropped = 8 - bits;
    if (dropped == 0) return level;
    const int steps = (1 << bits) - 1;
    return static_cast<std::uint32_t>((level >> dropped) * 255 / steps);
  };
  return (part(color[0]) << 16) | (part(color[1]) << 8) | part(color[2]);
}

// All colours as they are if they have room, else with as many bits as give few enough.
Palette paletteOf(const Frame& picture, int cols, int rows, int& bits) {
  for (bits = 8;; --bits) {
    Palette palette;
    for (int row = 0; row < rows; ++row) {
      for (int col = 0; col < cols; ++col) {
        const std::uint32_t color = coarse(picture.at(col, row), bits);
        if (palette.colors.size() > kColors) continue;
        const auto next = static_cast<GifByteType>(palette.colors.size());
        if (!palette.index.emplace(color, next).second) continue;
        palette.colors.push_back({static_cast<GifByteType>(color >> 16),
                                  static_cast<GifByteType>(color >> 8),
                                  static_cast<GifByteType>(color)});
      }
    }
    if (palette.colors.size() <= kColors) return palette;
  }
}

}  // namespace

struct GifFile::Writer {
  Writer(const std::string& to, int width, int height)
      : path(to), part(to + ".part"), cols(width), rows(height) {
    cell = std::clamp(kLongestSide / std::max({cols, rows, 1}), kSmallestCell, kLargestCell);
    int error = 0;
    const int descriptor = open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (descriptor >= 0) file = EGifOpenFileHandle(descriptor, &error);
    if (file == nullptr) throw std::runtime_error(path + " can't be written");
    EGifSetGifVersion(file, true);
    need(EGifPutScreenDesc(file, cols * cell, rows * cell, 8, 0, nullptr));
    constexpr std::array<GifByteType, 3> kForEver = {1, 0, 0};
    need(EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE));
    need(EGifPutExtensionBlock(file, 11, "NETSCAPE2.0"));
    need(EGifPutExtensionBlock(file, kForEver.size(), kForEver.data()));
    need(EGifPutExtensionTrailer(file));
  }
  ~Writer() {
    if (file != nullptr) EGifCloseFile(file, nullptr);
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
  }
  Writer(const Writer&) = delete;
  Writer& operator=(const Writer&) = delete;

  void need(int result) const {
    if (result == GIF_ERROR) throw std::runtime_error(path + " can't be written");
  }
  void put(std::int64_t until);

  std::string path, part;
  int cols, rows, cell = 1;
  GifFileType* file = nullptr;
  Frame picture;
  bool any = false;
  std::int64_t since = 0;  // in hundredths, when the picture came
};

// The picture that stands, for the time that it has stood.
void GifFile::Writer::put(std::int64_t until) {
  GraphicsControlBlock control{};
  control.DisposalMode = DISPOSE_DO_NOT;
  control.DelayTime = static_cast<int>(std::clamp<std::int64_t>(until - since, 1, 65535));
  control.TransparentColor = NO_TRANSPARENT_COLOR;
  std::array<GifByteType, 4> block{};
  EGifGCBToExtension(&control, block.data());
  need(EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, block.size(), block.data()));
  int bits = 8;
  Palette palette = paletteOf(picture, cols, rows, bits);
  palette.colors.resize(std::size_t{1} << GifBitSize(static_cast<int>(palette.colors.size())));
  const auto free = [](ColorMapObject* map) { GifFreeMapObject(map); };
  const std::unique_ptr<ColorMapObject, decltype(free)> map(
      GifMakeMapObject(static_cast<int>(palette.colors.size()), palette.colors.data()), free);
  need(EGifPutImageDesc(file, 0, 0, cols * cell, rows * cell, false, map.get()));
  const int lit = cell < kLeastWithGap ? cell : cell - 1;
  std::vector<GifByteType> line(static_cast<std::size_t>(cols * cell));
  for (int y = 0; y < rows * cell; ++y) {
    std::fill(line.begin(), line.end(), GifByteType{0});
    for (int x = 0; y % cell < lit && x < cols * cell; ++x) {
      if (x % cell < lit)
        line[static_cast<std::size_t>(x)] =
            palette.index.at(coarse(picture.at(x / cell, y / cell), bits));
    }
    need(EGifPutLine(file, line.data(), cols * cell));
  }
}

GifFile::GifFile(const std::string& path, int cols, int rows)
    : writer_(std::make_unique<Writer>(path, cols, rows)) {}

GifFile::~GifFile() = default;

// Pictures that are the same become one that stays longer.
void GifFile::add(const Frame& picture, std::int64_t milliseconds) {
  const std::int64_t now = milliseconds / kHundredth;
  const std::size_t span = picture.span();
  if (writer_->any && std::equal(picture.data(), picture.data() + span, writer_->picture.data(),
                                 writer_->picture.data() + writer_->picture.span()))
    return;
  if (writer_->any) writer_->put(now);
  writer_->picture = picture;
  writer_->since = now;
  writer_->any = true;
}

void GifFile::finish(std::int64_t milliseconds) {
  if (writer_->any) writer_->put(milliseconds / kHundredth);
  GifFileType* file = std::exchange(writer_->file, nullptr);
  writer_->need(EGifCloseFile(file, nullptr));
  std::error_code error;
  std::filesystem::rename(writer_->part, writer_->path, error);
  if (error) throw std::runtime_error(writer_->path + " can't be written: " + error.message());
}

}  // namespace korvane
