#include "platform/Text.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

using Texts = std::vector<std::string>;

TEST(Text, SplittingGivesOneFieldMoreThanSeparators) {
  EXPECT_EQ(split("1,2,False", ','), (Texts{"1", "2", "False"}));
  EXPECT_EQ(split("", ','), Texts{""});
  EXPECT_EQ(split(",", ','), (Texts{"", ""}));
  EXPECT_EQ(split("a,,b", ','), (Texts{"a", "", "b"}));
}

TEST(Text, ListsOfNumbersStartAtOne) {
  EXPECT_EQ(numbersUpTo(3), (Texts{"1", "2", "3"}));
  EXPECT_EQ(numbersUpTo(0), Texts{});
  EXPECT_EQ(numbersUpTo(-4), Texts{});
}

TEST(Text, CharactersAreCountedNotBytes) {
  EXPECT_EQ(characterCount(""), 0U);
  EXPECT_EQ(characterCount("abc"), 3U);
  EXPECT_EQ(characterCount("\u00DCber \u20AC \U0001F600"), 8U);
  EXPECT_EQ(characters("a\u00DC\u20AC"), (Texts{"a", "\u00DC", "\u20AC"}));
}

// Texts with broken UTF-8, and what is written of them in the code page.
struct Broken {
  const char* name;
  std::string text;
  std::size_t count;
  std::string written;
};

class BrokenUtf8 : public testing::TestWithParam<Broken> {};

TEST_P(BrokenUtf8, EachByteThatIsNoPartOfACharacterCountsAsOne) {
  EXPECT_EQ(characterCount(GetParam().text), GetParam().count);
  EXPECT_EQ(characters(GetParam().text).size(), GetParam().count);
}

TEST_P(BrokenUtf8, IsWrittenAsQuestionMarks) {
  EXPECT_EQ(toCodePage1252(GetParam().text), GetParam().written);
}

INSTANTIATE_TEST_SUITE_P(
    Text, BrokenUtf8,
    testing::Values(Broken{"LoneContinuation", "a\x80z", 3, "a?z"},
                    Broken{"LeadAtTheEnd", "a\xC3", 2, "a?"},
                    Broken{"LeadBeforeAPlainCharacter", "\xC3z", 2, "?z"},
                    Broken{"CutThreeBytes", "\xE2\x82", 2, "??"},
                    Broken{"BytesThatNeverOccur", "\xFF\xFE\xC0\xC1\xF8", 5, "?????"},
                    Broken{"OverlongNul", "\xC0\x80", 2, "??"},
                    Broken{"OverlongInThreeBytes", "\xE0\x82\xA9", 3, "???"},
                    Broken{"OverlongInFourBytes", "\xF0\x82\x82\xAC", 4, "????"},
                    Broken{"Surrogate", "\xED\xA0\x80", 3, "???"},
                    Broken{"BeyondTheLastCharacter", "\xF4\x90\x80\x80", 4, "????"}),
    [](const testing::TestParamInfo<Broken>& broken) { return broken.param.name; });

TEST(CodePage1252, AllBytesComeBack) {
  for (int byte = 0; byte < 256; ++byte) {
    const std::string bytes(1, static_cast<char>(byte));
    const std::string text = fromCodePage1252(bytes);
    EXPECT_EQ(characterCount(text), 1U) << byte;
    EXPECT_EQ(toCodePage1252(text), bytes) << byte;
  }
}

TEST(CodePage1252, HasItsOwnCharactersBetween0x80And0x9F) {
  EXPECT_EQ(fromCodePage1252("\x80\x84\x93\x94\x99\x9F"), "\u20AC\u201E\u201C\u201D\u2122\u0178");
  EXPECT_EQ(toCodePage1252("\u00FCber \u20AC"),
            "\xFC"
            "ber \x80");
}

TEST(CodePage1252, TheFiveOpenBytesAreControlCharacters) {
  EXPECT_EQ(fromCodePage1252("\x81\x8D\x8F\x90\x9D"), "\u0081\u008D\u008F\u0090\u009D");
}

TEST(CodePage1252, CharactersThatThePageLacksBecomeQuestionMarks) {
  EXPECT_EQ(toCodePage1252("\u0100\u0080\u0429\u65E5\U0001F600\uFFFD"), "??????");
  EXPECT_EQ(toCodePage1252("a\u2192b"), "a?b");
}

TEST(Text, LosesTheCapitalsOfAsciiAlone) {
  EXPECT_EQ(lowerCase("Mix.PNG"), "mix.png");
  EXPECT_EQ(lowerCase("\xC3\x84 Z@[a"), "\xC3\x84 z@[a");
}

}  // namespace
}  // namespace korvane
