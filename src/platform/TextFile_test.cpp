#include "platform/TextFile.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

#include "testing/FailureOf.h"

namespace korvane {
namespace {

using Lines = std::vector<std::string>;

class TextFileTest : public testing::Test {
 protected:
  TextFileTest() { std::filesystem::create_directories(folder); }
  ~TextFileTest() override { std::filesystem::remove_all(folder); }

  std::string in(const std::string& name) const { return folder + "/" + name; }
  std::string fileWith(const std::string& bytes) const {
    std::ofstream(in("file"), std::ios::binary) << bytes;
    return in("file");
  }
  static std::string bytesOf(const std::string& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
  }
  Lines linesOf(const std::string& bytes) const {
    TextReader reader(fileWith(bytes));
    Lines lines;
    while (!reader.atEnd()) lines.push_back(reader.readLine());
    return lines;
  }

  const std::string folder = testing::TempDir() + "korvane-TextFile-" +
                             testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(TextFileTest, ReadsEitherLineEnd) {
  EXPECT_EQ(linesOf("one\r\ntwo\nthree\r\n"), (Lines{"one", "two", "three"}));
}

TEST_F(TextFileTest, TheLastLineNeedsNoEnd) {
  EXPECT_EQ(linesOf("one\ntwo"), (Lines{"one", "two"}));
  EXPECT_EQ(linesOf("one\r\ntwo\r"), (Lines{"one", "two"}));
}

TEST_F(TextFileTest, EmptyLinesAreLines) {
  EXPECT_EQ(linesOf("\r\n\r\nx\n\n"), (Lines{"", "", "x", ""}));
}

TEST_F(TextFileTest, ACarriageReturnWithinALineStays) {
  EXPECT_EQ(linesOf("a\rb\r\n"), Lines{"a\rb"});
}

TEST_F(TextFileTest, AnEmptyFileHasNoLine) {
  EXPECT_EQ(linesOf(""), Lines{});
  TextReader reader(in("file"));
  EXPECT_EQ(failureOf([&] { reader.readLine(); }), kPastEndOfFile);
}

TEST_F(TextFileTest, ReadingPastTheEndNamesTheFileAndTheLine) {
  TextReader reader(fileWith("one\n"));
  EXPECT_EQ(reader.readLine(), "one");
  EXPECT_EQ(reader.lineNumber(), 1);
  try {
    reader.readLine();
    ADD_FAILURE() << "there is no second line";
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number, kPastEndOfFile);
    EXPECT_EQ(failure.what(), "Input past end of file: " + in("file") + ", line 2");
  }
}

TEST_F(TextFileTest, TheBytesAreCodePage1252) {
  EXPECT_EQ(linesOf("\xFC\x80\r\n"), Lines{"\u00FC\u20AC"});
  EXPECT_EQ(linesOf(std::string("a\0b\n", 4)), Lines{std::string("a\0b", 3)});
}

TEST_F(TextFileTest, AMissingFileIsNotFound) {
  EXPECT_FALSE(fileExists(in("none")));
  EXPECT_EQ(failureOf([&] { TextReader reader(in("none")); }), kFileNotFound);
  EXPECT_FALSE(fileExists(""));
  EXPECT_EQ(failureOf([&] { TextReader reader(in("none/deeper")); }), kFileNotFound);
}

TEST_F(TextFileTest, AFolderIsNoFile) {
  EXPECT_FALSE(fileExists(folder));
  EXPECT_EQ(failureOf([&] { TextReader reader(folder); }), kFileNotFound);
  EXPECT_EQ(failureOf([&] { TextWriter writer(folder); }), kPathAccess);
}

TEST_F(TextFileTest, ADeviceIsNoFile) {
  EXPECT_FALSE(fileExists("/dev/zero"));
  EXPECT_EQ(failureOf([&] { TextReader reader("/dev/zero"); }), kFileNotFound);
}

TEST_F(TextFileTest, TheTitleIsTheLastComponent) {
  EXPECT_EQ(fileTitle(in("show.Korvane")), "show.Korvane");
  EXPECT_EQ(fileTitle("show"), "show");
  EXPECT_EQ(fileTitle("a/Gr\u00FCn.bmp"), "Gr\u00FCn.bmp");
}

TEST_F(TextFileTest, AFileThatMayNotBeMadeIsAnAccessError) {
  EXPECT_EQ(failureOf([&] { TextWriter writer(in("none/file")); }), kPathAccess);
}

TEST_F(TextFileTest, PathsAreUtf8) {
  TextWriter(in("Gr\u00FCn \u65E5")).writeLine("x");
  EXPECT_TRUE(fileExists(in("Gr\u00FCn \u65E5")));
  EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(folder) / u8"Gr\u00FCn \u65E5"));
}

TEST_F(TextFileTest, WritesCarriageReturnsAndTheCodePage) {
  TextWriter writer(in("new"));
  writer.writeLine("V1.0");
  writer.writeLine("");
  writer.writeLine("\u00FC \u2192");
  writer.close();
  EXPECT_EQ(bytesOf(in("new")), "V1.0\r\n\r\n\xFC ?\r\n");
}

TEST_F(TextFileTest, WritingReplacesTheFile) {
  const std::string path = fileWith("a long text that goes");
  TextWriter(path).writeLine("x");
  EXPECT_EQ(bytesOf(path), "x\r\n");
}

TEST_F(TextFileTest, WhatWasWrittenStaysWhenTheWriterGoes) {
  try {
    TextWriter writer(in("new"));
    writer.writeLine("kept");
    throw Failure(kOverflow);
  } catch (const Failure&) {
  }
  EXPECT_EQ(bytesOf(in("new")), "kept\r\n");
}

TEST_F(TextFileTest, WhatIsWrittenIsReadAgain) {
  TextWriter writer(in("new"));
  const Lines lines = {"", "plain", " blanks ", "\u00E4\u00F6\u00FC\u20AC", "a,b"};
  for (const std::string& line : lines) writer.writeLine(line);
  writer.close();
  TextReader reader(in("new"));
  for (const std::string& line : lines) EXPECT_EQ(reader.readLine(), line);
  EXPECT_TRUE(reader.atEnd());
}

}  // namespace
}  // namespace korvane
