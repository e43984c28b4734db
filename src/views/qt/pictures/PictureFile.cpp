#include "views/shared/pictures/PictureFile.h"

#include <QFile>
#include <QImageReader>
#include <QtEndian>
#include <cstdlib>

#include "platform/Failure.h"
#include "platform/TextFile.h"

namespace korvane {
namespace {

constexpr int kMostMegabytes = 160;  // kMostPicturePixels of 8 bytes, and some to spare

void require(bool well, const std::string& path, const std::string& reason) {
  if (!well) throw Failure(kInvalidPicture, path + ": " + reason);
}

void requireKind(const QImageReader& reader, const std::string& path) {
  static const QList<QByteArray> kinds = {"bmp", "jpeg", "jpg", "gif", "ico", "png"};
  require(kinds.contains(reader.format()), path, "not a bmp, jpg, gif, ico or png picture");
}

void requireSize(const QSize& size, const std::string& path) {
  require(pictureFits(size.width(), size.height(), kMostPicturePixels), path, kPictureTooLarge);
}

// The decoder of a jpg leaves out what is not asked for.
void reduce(QImageReader& reader, const std::string& path) {
  const QSize size = reader.size();
  require(pictureFits(size.width(), size.height(), kMostJpegPixels), path, kJpegTooLarge);
  const int by = pictureReduction(size.width(), size.height());
  if (by > 1) reader.setScaledSize({size.width() / by, size.height() / by});
}

// The file's directory of pictures tells the sizes before any is decoded.
int goToLargest(QImageReader& reader) {
  int best = 0;
  qint64 most = 0;
  for (int i = 0; i < reader.imageCount(); ++i) {
    if (!reader.jumpToImage(i)) continue;
    const qint64 pixels = qint64{reader.size().width()} * reader.size().height();
    if (pixels > most) {
      most = pixels;
      best = i;
    }
  }
  reader.jumpToImage(best);
  return best;
}

// The size that a picture of an ico file tells itself. The directory has no more than a byte for a
// side, so what it holds may be far larger.
QSize sizeWithinIco(const QString& name, int index) {
  constexpr qint64 kDirectory = 6;
  constexpr qint64 kEntry = 16;
  constexpr qint64 kHead = 24;
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly) || !file.seek(kDirectory + kEntry * index)) return {};
  const QByteArray entry = file.read(kEntry);
  if (entry.size() < kEntry || !file.seek(qFromLittleEndian<quint32>(entry.constData() + 12)))
    return {};
  const QByteArray head = file.read(kHead);
  if (head.size() < kHead) return {};
  const char* at = head.constData();
  if (head.startsWith("\x89PNG"))
    return {qFromBigEndian<qint32>(at + 16), qFromBigEndian<qint32>(at + 20)};
  return {qFromLittleEndian<qint32>(at + 4), qFromLittleEndian<qint32>(at + 8) / 2};
}

// The screen on which the frames of a gif file are laid; the reader may tell no size before it has
// taken the memory for that.
QSize screenOfGif(const QString& name) {
  QFile file(name);
  const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(10) : QByteArray();
  if (head.size() < 10) return {};
  return {qFromLittleEndian<quint16>(head.constData() + 6),
          qFromLittleEndian<quint16>(head.constData() + 8)};
}

// The reader takes a bmp file whose pixels end too early for a whole one.
void requireWholeBmp(const QString& name, const std::string& path) {
  constexpr int kHead = 54;
  constexpr int kUncompressed = 0;
  QFile file(name);
  const QByteArray head = file.open(QIODevice::ReadOnly) ? file.read(kHead) : QByteArray();
  const auto number = [&head](int at) { return qFromLittleEndian<qint32>(head.constData() + at); };
  if (head.size() < kHead || number(14) < kHead - 14 || number(30) != kUncompressed) return;
  const qint64 bits = qFromLittleEndian<quint16>(head.constData() + 28);
  const qint64 line = (qint64{number(18)} * bits + 31) / 32 * 4;
  require(file.size() >= number(10) + line * std::abs(qint64{number(22)}), path,
          "the file ends before its pixels do");
}

Raster toRaster(const QImage& image) {
  const QImage plain = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
  Raster raster(plain.width(), plain.height());
  for (int y = 0; y < plain.height(); ++y) {
    const auto* line = reinterpret_cast<const QRgb*>(plain.constScanLine(y));
    for (int x = 0; x < plain.width(); ++x)
      raster.setPixel(x, y, rgb(qRed(line[x]), qGreen(line[x]), qBlue(line[x])));
  }
  return raster;
}

}  // namespace

Raster readPicture(const std::string& path) {
  if (!fileExists(path)) throw Failure(kFileNotFound, path);
  QImageReader::setAllocationLimit(kMostMegabytes);
  const QString name = QString::fromStdString(path);
  QImageReader reader(name);
  reader.setDecideFormatFromContent(true);
  requireKind(reader, path);
  if (reader.format() == "ico") requireSize(sizeWithinIco(name, goToLargest(reader)), path);
  if (reader.format() == "gif") requireSize(screenOfGif(name), path);
  if (reader.format() == "jpeg" || reader.format() == "jpg") {
    reduce(reader, path);
  } else {
    requireSize(reader.size(), path);
  }
  if (reader.format() == "bmp") requireWholeBmp(name, path);
  QImage image;
  require(reader.read(&image), path, reader.errorString().toStdString());
  requireSize(image.size(), path);
  return toRaster(image);
}

}  // namespace korvane
