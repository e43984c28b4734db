#include "views/shared/pictures/PictureFile.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QFile>
#include <QImage>
#include <QImageWriter>
#include <QTemporaryDir>
#include <cstring>

#include "platform/Failure.h"

namespace korvane {
namespace {

class PictureFile : public testing::Test {
 protected:
  std::string path(const char* name) { return folder.filePath(name).toStdString(); }
  void write(const char* name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  QByteArray read(const char* name) {
    QFile file(folder.filePath(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  // A 3 by 2 picture: red, green, blue above; white, black, grey below.
  QImage sample() {
    QImage image(3, 2, QImage::Format_RGB32);
    const QRgb colors[] = {qRgb(255, 0, 0),     qRgb(0, 255, 0), qRgb(0, 0, 255),
                           qRgb(255, 255, 255), qRgb(0, 0, 0),   qRgb(128, 128, 128)};
    for (int i = 0; i < 6; ++i) image.setPixel(i % 3, i / 3, colors[i]);
    return image;
  }
  int failureOf(const std::string& file, std::string* what = nullptr) {
    try {
      readPicture(file);
    } catch (const Failure& failure) {
      if (what != nullptr) *what = failure.what();
      return failure.number;
    }
    return 0;
  }
  QTemporaryDir folder;
};

QByteArray little(int value, int bytes) {
  QByteArray all;
  for (int i = 0; i < bytes; ++i, value /= 256) all.append(static_cast<char>(value % 256));
  return all;
}

// The head of a bmp file of 24 bits a pixel, without its pixels.
QByteArray bmpHead(int width, int height) {
  return "BM" + little(54, 4) + little(0, 4) + little(54, 4) + little(40, 4) + little(width, 4) +
         little(height, 4) + little(1, 2) + little(24, 2) + QByteArray(24, '\0');
}

TEST_F(PictureFile, ReadsABmpPixelByPixel) {
  ASSERT_TRUE(sample().save(folder.filePath("a.bmp")));
  const Raster raster = readPicture(path("a.bmp"));
  ASSERT_EQ(raster.width(), 3);
  ASSERT_EQ(raster.height(), 2);
  EXPECT_EQ(raster.pixel(0, 0), rgb(255, 0, 0));
  EXPECT_EQ(raster.pixel(2, 0), rgb(0, 0, 255));
  EXPECT_EQ(raster.pixel(2, 1), rgb(128, 128, 128));
}

TEST_F(PictureFile, ReadsAJpg) {
  QImage image(16, 16, QImage::Format_RGB32);
  image.fill(qRgb(200, 40, 10));
  ASSERT_TRUE(image.save(folder.filePath("a.jpg"), nullptr, 100));
  const Raster raster = readPicture(path("a.jpg"));
  ASSERT_EQ(raster.width(), 16);
  EXPECT_NEAR(colorPart(raster.pixel(8, 8), kRedMask), 200, 4);
}

// Two frames of one pixel each: the first red, the second green.
TEST_F(PictureFile, ReadsTheFirstFrameOfAGif) {
  const QByteArray frame = QByteArray::fromHex("2c00000000010001000002024401003b");
  QByteArray gif = "GIF89a" + QByteArray::fromHex("010001008000 00ff000000ff00");
  gif += QByteArray::fromHex("21f904000a000000") +
         QByteArray::fromHex("2c000000000100010000020244 0100");
  gif +=
      QByteArray::fromHex("21f904000a000000") + QByteArray::fromHex("2c000000000100010000024c0100");
  gif += frame.right(1);
  write("a.gif", gif);
  const Raster raster = readPicture(path("a.gif"));
  ASSERT_EQ(raster.width(), 1);
  EXPECT_EQ(raster.pixel(0, 0), rgb(255, 0, 0));
}

// An icon file of two pictures, 16 and 32 pixels wide, put together from two files of one.
TEST_F(PictureFile, ReadsTheLargestPictureOfAnIco) {
  QByteArray images[2];
  for (int i = 0; i < 2; ++i) {
    QImage image(16 << i, 16 << i, QImage::Format_ARGB32);
    image.fill(i == 0 ? qRgb(9, 9, 9) : qRgb(0, 200, 0));
    ASSERT_TRUE(image.save(folder.filePath("one.ico")));
    images[i] = read("one.ico").mid(6 + 16);
  }
  QByteArray ico = little(0, 2) + little(1, 2) + little(2, 2);
  int offset = 6 + 2 * 16;
  for (int i = 0; i < 2; ++i) {
    ico += little(16 << i, 1) + little(16 << i, 1) + little(0, 2) + little(1, 2) + little(32, 2) +
           little(static_cast<int>(images[i].size()), 4) + little(offset, 4);
    offset += static_cast<int>(images[i].size());
  }
  write("a.ico", ico + images[0] + images[1]);
  const Raster raster = readPicture(path("a.ico"));
  ASSERT_EQ(raster.width(), 32);
  EXPECT_EQ(raster.pixel(5, 5), rgb(0, 200, 0));
}

TEST_F(PictureFile, LaysTransparentPixelsOverBlack) {
  QImage image(16, 16, QImage::Format_ARGB32);
  image.fill(qRgba(255, 255, 255, 0));
  image.setPixel(1, 1, qRgba(255, 255, 255, 255));
  ASSERT_TRUE(image.save(folder.filePath("a.ico")));
  const Raster raster = readPicture(path("a.ico"));
  EXPECT_EQ(raster.pixel(0, 0), rgb(0, 0, 0));
  EXPECT_EQ(raster.pixel(1, 1), rgb(255, 255, 255));
}

TEST_F(PictureFile, TellsAKindByTheContentNotByTheEnding) {
  ASSERT_TRUE(sample().save(folder.filePath("a.jpg"), "BMP"));
  EXPECT_EQ(readPicture(path("a.jpg")).pixel(0, 0), rgb(255, 0, 0));
}

TEST_F(PictureFile, ReadsPngAsWell) {
  ASSERT_TRUE(sample().save(folder.filePath("a.png")));
  EXPECT_EQ(readPicture(path("a.png")).pixel(0, 0), rgb(255, 0, 0));
}

TEST_F(PictureFile, RefusesOtherKinds) {
  ASSERT_TRUE(sample().save(folder.filePath("a.bmp"), "PPM"));
  write("b.bmp", "these are words, not pixels");
  write("c.gif", {});
  for (const char* name : {"a.bmp", "b.bmp", "c.gif"})
    EXPECT_EQ(failureOf(path(name)), kInvalidPicture) << name;
}

TEST_F(PictureFile, RefusesWhatIsTooLargeBeforeMemoryIsTaken) {
  write("wide.bmp", bmpHead(16385, 1));
  write("high.bmp", bmpHead(1, 16385));
  write("much.bmp", bmpHead(4097, 4096));
  for (const char* name : {"wide.bmp", "high.bmp", "much.bmp"}) {
    std::string what;
    EXPECT_EQ(failureOf(path(name), &what), kInvalidPicture) << name;
    EXPECT_NE(what.find("larger than 16384 on a side or 4096 by 4096 pixels"), std::string::npos)
        << what;
  }
}

// 64 million pixels, as the largest cameras take them: neither their memory nor their time is
// spent.
TEST_F(PictureFile, DecodesALargeJpgToThePartThatAMatrixCanUse) {
  QImage image(8000, 8000, QImage::Format_Grayscale8);
  image.fill(70);
  for (int y = 0; y < 4000; ++y) std::memset(image.scanLine(y), 200, 4000);
  ASSERT_TRUE(image.save(folder.filePath("photo.jpg"), nullptr, 90));
  image = {};
  const Raster raster = readPicture(path("photo.jpg"));
  ASSERT_EQ(raster.width(), 4000);
  ASSERT_EQ(raster.height(), 4000);
  EXPECT_NEAR(colorPart(raster.pixel(1990, 1990), kRedMask), 200, 3);
  EXPECT_NEAR(colorPart(raster.pixel(2010, 1990), kRedMask), 70, 3);
  EXPECT_NEAR(colorPart(raster.pixel(1990, 2010), kRedMask), 70, 3);
}

TEST_F(PictureFile, KeepsAJpgOfTheLimitWhole) {
  EXPECT_EQ(pictureReduction(4096, 4096), 1);
  EXPECT_EQ(pictureReduction(4097, 4096), 2);
  EXPECT_EQ(pictureReduction(16384, 3906), 2);
  EXPECT_EQ(pictureReduction(8000, 8000), 2);
}

TEST_F(PictureFile, SaysOfAJpgWhatIsTooMuch) {
  QImage image(8, 8, QImage::Format_RGB32);
  image.fill(Qt::red);
  ASSERT_TRUE(image.save(folder.filePath("a.jpg")));
  QByteArray bytes = read("a.jpg");
  bytes.replace(bytes.indexOf("\xFF\xC0") + 5, 4, QByteArray::fromHex("1F411F40"));  // 8001, 8000
  write("a.jpg", bytes);
  std::string what;
  EXPECT_EQ(failureOf(path("a.jpg"), &what), kInvalidPicture);
  EXPECT_NE(what.find("larger than 16384 on a side or 64 million pixels"), std::string::npos)
      << what;
}

TEST_F(PictureFile, RefusesBrokenFilesAndNamesThem) {
  QImage image(64, 64, QImage::Format_RGB32);
  image.fill(Qt::red);
  for (const char* kind : {"bmp", "jpg", "ico"}) {
    const std::string name = std::string("broken.") + kind;
    ASSERT_TRUE(image.save(folder.filePath(name.c_str())));
    const QByteArray whole = read(name.c_str());
    for (const qsizetype left : {qsizetype{20}, qsizetype{60}}) {
      write(name.c_str(), whole.left(left));
      std::string what;
      EXPECT_EQ(failureOf(path(name.c_str()), &what), kInvalidPicture) << name << " of " << left;
      EXPECT_NE(what.find(name), std::string::npos) << what;
    }
  }
}

TEST_F(PictureFile, TellsOfAMissingFile) { EXPECT_EQ(failureOf(path("none.bmp")), kFileNotFound); }

}  // namespace
}  // namespace korvane

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  QCoreApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
