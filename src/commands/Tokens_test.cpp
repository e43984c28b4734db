#include "commands/Tokens.h"

#include <gmock/gmock.h>

#include "commands/CommandError.h"

namespace korvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::string errorOf(std::string_view line) {
  try {
    tokens(line);
  } catch (const CommandError& error) {
    return error.what();
  }
  return "no error";
}

TEST(Tokens, AreSeparatedByBlanks) {
  EXPECT_THAT(tokens("click Main.go"), ElementsAre("click", "Main.go"));
  EXPECT_THAT(tokens("  a \t b\r"), ElementsAre("a", "b"));
}

TEST(Tokens, EmptyLinesAndCommentsHaveNone) {
  for (const char* line : {"", "   ", "\t", "\r", "# a comment", "#"})
    EXPECT_THAT(tokens(line), IsEmpty()) << line;
}

TEST(Tokens, ANumberSignElsewhereIsText) {
  EXPECT_THAT(tokens("answer #1"), ElementsAre("answer", "#1"));
}

TEST(Tokens, QuotedOnesAreJsonStrings) {
  EXPECT_THAT(tokens(R"(set "a b" "" "\"" c"d)"), ElementsAre("set", "a b", "", "\"", "c\"d"));
  EXPECT_THAT(tokens(R"("\\" "\t\n" "\u00e4\ud83d\ude00" "ä")"),
              ElementsAre("\\", "\t\n", "ä😀", "ä"));
}

TEST(Tokens, ABackslashOutsideQuotesIsItself) {
  EXPECT_THAT(tokens(R"(answer C:\temp)"), ElementsAre("answer", R"(C:\temp)"));
}

TEST(Tokens, BadQuotingIsAnError) {
  EXPECT_EQ(errorOf(R"(set x "abc)"), R"(The text '"abc' has no closing quote.)");
  EXPECT_EQ(errorOf(R"(set x "abc\")"), R"(The text '"abc\"' has no closing quote.)");
  EXPECT_EQ(errorOf(R"(set x "a\x")"), R"('"a\x"' is not a valid JSON string.)");
  EXPECT_EQ(errorOf(R"(set x "\ud83d")"), R"('"\ud83d"' is not a valid JSON string.)");
  EXPECT_EQ(errorOf(R"(set x "a"b)"), R"('"a"b' is not a valid JSON string.)");
  EXPECT_EQ(errorOf("set x \"a\tb\""), "'\"a\tb\"' is not a valid JSON string.");
}

TEST(Tokens, WhatIsNoTextIsAnError) {
  EXPECT_EQ(errorOf("\xff\xfe"), "The command is not valid UTF-8.");
  EXPECT_EQ(errorOf("set x \"\xc3\""), "'\"\xc3\"' is not a valid JSON string.");
  EXPECT_EQ(errorOf(std::string_view("a\0b", 3)), "The command holds a zero character.");
  EXPECT_EQ(errorOf(R"(set x "\u0000")"), "The command holds a zero character.");
}

TEST(Tokens, LongTextIsCutInAnErrorBetweenCharacters) {
  std::string line = "\"";
  for (int i = 0; i < 100; ++i) line += "ä";
  EXPECT_EQ(errorOf(line), "The text '" + line.substr(0, 59) + "...' has no closing quote.");
}

}  // namespace
}  // namespace korvane
