#include "generators/ticker/FontDefinition.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/Text.h"

namespace korvane {
namespace {

struct Block {
  const char* characters;
  std::vector<std::string> rows;
};

// The whole font in the order of its slots. A point is a cell within the width of the glyph.
const std::vector<Block> kWholeFont = {
    {"ABCDEFGHIJKLMN",
     {".##.  ###.  .##   ###.  ###   ###   .###  #..#  ###   ..##  #..#  #..   #...# #..#",
      "#..#  #..#  #..   #..#  #..   #..   #...  #..#  .#.   ...#  #.#.  #..   ##.## ##.#",
      "#..#  ###.  #..   #..#  ###   ###   #.##  ####  .#.   ...#  ##..  #..   #.#.# #.##",
      "####  #..#  #..   #..#  #..   #..   #..#  #..#  .#.   #..#  #.#.  #..   #...# #..#",
      "#..#  ###.  .##   ###.  ###   #..   .###  #..#  ###   .##.  #..#  ###   #...# #..#"}},
    {"OPQRSTUVWXYZ01",
     {".##.  ###.  .##.  ###.  .###  ###   #..#  #..#  #...# #..#  #..#  ###   .##.  ##",
      "#..#  #..#  #..#  #..#  #...  .#.   #..#  #..#  #.#.# #..#  #..#  ..#   #..#  .#",
      "#..#  #..#  #..#  #..#  .##.  .#.   #..#  #.#.  #.#.# .##.  .###  .#.   #..#  .#",
      "#..#  ###.  #.##  ###.  ...#  .#.   #..#  #.#.  #.#.# #..#  ...#  #..   #..#  .#",
      ".##.  #...  .#.#  #..#  ###.  .#.   .##.  .#..  .#.#. #..#  .##.  ###   .##.  .#"}},
    {"23456789ÄÖÜ ab",
     {"###.  ###.  ..#.  ####  ###.  ####  .##.  .##.  ..#.. ####  ####  ...   ....  #...",
      "...#  ...#  .##.  #...  #...  ...#  #..#  #..#  .#.#. #..#  #..#  ...   .###  ###.",
      ".##.  .##.  #.#.  ###.  ###.  ..#.  .##.  .###  #...# #..#  #..#  ...   #..#  #..#",
      "#...  ...#  ####  ...#  #..#  .#..  #..#  ...#  ##### #..#  #..#  ...   #..#  #..#",
      "####  ###.  ..#.  ###.  .##.  .#..  .##.  .##.  #...# .##.  .##.  ...   .###  ###."}},
    {"cdefghijklmnop",
     {"...   ...#  ....  ..#   .###  #...  #     ..#   #...  #     ..... ....  ....  ....",
      ".##   .###  .##.  .#.   #..#  ###.  .     .#.   #..#  #     ####. ###.  .##.  ###.",
      "#..   #..#  #.##  ###   ####  #..#  #     .#.   #.#.  #     #.#.# #..#  #..#  #..#",
      "#..   #..#  ##..  .#.   #..#  #..#  #     .#.   ###.  #     #.#.# #..#  #..#  ###.",
      ".##   .###  .##.  .#.   .##.  #..#  #     #..   #..#  #     #.#.# #..#  .##.  #..."}},
    {"qrstuvwxyz+-/*",
     {".###  ...   ....  .#.   ....  ....  ..... ...   ....  ....  ...   ...   ....# ...",
      "#..#  #.#   .###  ###   #..#  #..#  #.#.# #.#   #..#  ####  .#.   ...   ...#. ...",
      "#..#  ##.   ##..  .#.   #..#  #..#  #.#.# .#.   .###  ..#.  ###   ###   ..#.. #.#",
      ".###  #..   ..##  .#.   #..#  #.#.  .#.#. .#.   ...#  .#..  .#.   ...   .#... .#.",
      "...#  #..   ###.  ..#   .###  .#..  .#.#. #.#   .##.  ####  ...   ...   #.... #.#"}},
    {".,;:\"!()=@äöü%",
     {".     ..    .     .     #.#   #     .#    #.    ...   .###. #..#  #..#  .##.  #..#.",
      ".     ..    .     #     #.#   #     #.    .#    ###   #...# .###  .##.  #..#  ...#.",
      ".     ..    #     .     ...   #     #.    .#    ...   #.### #..#  #..#  #..#  ..#..",
      ".     .#    .     #     ...   .     #.    .#    ###   #.#.# #..#  #..#  #..#  .#...",
      "#     #.    #     #     ...   #     .#    #.    ...   .###. .###  .##.  .###  .#..#"}},
    {"'#?|{}[]<>&_$\\",
     {"#     .#.#  ###.  #     .##   ##.   ##    ##    ..#   #..   .##.. ....  ..#.  #....",
      "#     ##### ...#  #     .#.   .#.   #.    .#    .#.   .#.   #.... ....  .###  .#...",
      ".     .#.#  .##.  #     #..   ..#   #.    .#    #..   ..#   .##.# ....  ##..  ..#..",
      ".     ##### ....  #     .#.   .#.   #.    .#    .#.   .#.   #..#. ....  ..##  ...#.",
      ".     .#.#  .#..  #     .##   ##.   ##    ##    ..#   #..   .##.. ####  ..#.  ....#"}},
};

// One row of a glyph as the drawings show it, six letters wide.
std::string drawn(std::size_t slot, std::size_t row) {
  std::string text;
  for (unsigned i = 0; i < 6; ++i) {
    const bool set = (fontTable.at(slot).at(row) >> i & 1) != 0;
    text += set ? '#' : i < fontTable.at(slot).at(0) ? '.' : ' ';
  }
  return text;
}

std::string drawnRow(std::size_t firstSlot, std::size_t count, std::size_t row) {
  std::string text;
  for (std::size_t slot = firstSlot; slot < firstSlot + count; ++slot) text += drawn(slot, row);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

TEST(FontDefinition, EveryGlyphLooksAsDrawnAndIsFoundByItsCharacter) {
  std::size_t slot = 0;
  for (const Block& block : kWholeFont) {
    const std::vector<std::string> all = characters(block.characters);
    for (std::size_t row = 0; row < kGlyphRows; ++row)
      EXPECT_EQ(drawnRow(slot, all.size(), row + 1), block.rows.at(row)) << block.characters;
    for (const std::string& character : all)
      EXPECT_EQ(static_cast<std::size_t>(glyphIndex(character)), slot++) << character;
  }
  EXPECT_EQ(slot, kGlyphs);
}

TEST(FontDefinition, UnusedSlotsAndTheLastRowStayEmpty) {
  static_assert(std::tuple_size_v<FontTable> == 101);
  static_assert(std::tuple_size_v<FontTable::value_type> == 7);
  for (const std::size_t slot : {98U, 99U, 100U}) {
    for (std::size_t row = 0; row < 7; ++row) EXPECT_EQ(fontTable.at(slot).at(row), 0);
  }
  for (const auto& glyph : fontTable) EXPECT_EQ(glyph[6], 0);
}

TEST(FontDefinition, UnknownTextsAreAnA) {
  for (const char* text : {"A", "~", "", "AB", "BA", "\n", "é", "€", "\xFF"})
    EXPECT_EQ(glyphIndex(text), 0) << text;
}

TEST(FontDefinition, LettersDifferByCase) {
  EXPECT_EQ(glyphIndex("a"), 40);
  EXPECT_EQ(glyphIndex("Ä"), 36);
  EXPECT_EQ(glyphIndex("ä"), 80);
}

TEST(FontDefinition, TheDoubleQuoteIsFound) { EXPECT_EQ(glyphIndex("\""), 74); }

TEST(FontDefinition, TheLowestBitIsTheLeftmostCell) { EXPECT_EQ(drawn(9, 1), "..##  "); }

TEST(FontDefinition, SomeGlyphsAreAlike) {
  const auto glyph = [](const char* text) {
    return fontTable.at(static_cast<std::size_t>(glyphIndex(text)));
  };
  EXPECT_EQ(glyph("O"), glyph("0"));
  EXPECT_EQ(glyph("l"), glyph("|"));
  EXPECT_EQ(glyph("Ö"), glyph("Ü"));
}

TEST(FontDefinition, TheHashIsOneCellWiderThanItsWidth) {
  EXPECT_EQ(drawn(85, 2), "##### ");
  EXPECT_EQ(fontTable[85][0], 4);
}

TEST(FontDefinition, TheSpaceIsThreeEmptyColumns) { EXPECT_EQ(drawn(39, 3), "...   "); }

}  // namespace
}  // namespace korvane
