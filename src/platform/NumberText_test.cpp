#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "platform/Random.h"
#include "platform/Text.h"
#include "testing/FailureOf.h"

namespace korvane {
namespace {

constexpr NumberFormat kEnglish{'.', ','};
constexpr NumberFormat kGerman{',', '.'};

TEST(NumberText, ReadsWhatAPersonWrites) {
  struct Case {
    const char* text;
    double english, german;
  };
  for (const Case& c :
       {Case{"0", 0, 0}, Case{"12", 12, 12}, Case{" 7 ", 7, 7}, Case{"\t7", 7, 7},
        Case{"-3", -3, -3}, Case{"+3", 3, 3}, Case{"1.5", 1.5, 15}, Case{"1,5", 15, 1.5},
        Case{"1,234.5", 1234.5, NAN}, Case{"1.234,5", NAN, 1234.5}, Case{"1,234,567", 1234567, NAN},
        Case{"2e3", 2000, 2000}, Case{"2E-3", 0.002, 0.002}, Case{"1e+2", 100, 100},
        Case{"007", 7, 7}}) {
    for (const auto& [format, expected] : {std::pair(kEnglish, c.english), {kGerman, c.german}}) {
      const std::optional<double> value = parseNumber(c.text, format);
      EXPECT_EQ(value.has_value(), !std::isnan(expected)) << c.text << " with " << format.decimal;
      if (value && !std::isnan(expected)) {
        EXPECT_EQ(*value, expected) << c.text << " with " << format.decimal;
      }
    }
  }
}

TEST(NumberText, ReadsNumbersWithoutAWholePartOrDecimals) {
  EXPECT_EQ(parseNumber(".5", kEnglish), 0.5);
  EXPECT_EQ(parseNumber("-.5", kEnglish), -0.5);
  EXPECT_EQ(parseNumber("5.", kEnglish), 5.0);
  EXPECT_EQ(parseNumber(",5", kGerman), 0.5);
  EXPECT_EQ(parseNumber("5,", kGerman), 5.0);
}

TEST(NumberText, RefusesWhatIsNotNumeric) {
  for (const char* text :
       {"",    " ",  "-",   "+",  ".",     ",",       "-.",   "abc", "1a",  "a1",    "1 2",
        "--1", "1e", "1e+", "e5", "1.2.3", "1.5,000", "0x10", "inf", "nan", "1e5.5", "1\n"})
    EXPECT_EQ(parseNumber(text, kEnglish), std::nullopt) << text;
  EXPECT_EQ(parseNumber(std::string_view("1\0002", 3), kEnglish), std::nullopt);
  EXPECT_EQ(parseEitherDecimal(std::string_view("1\0002", 3)), std::nullopt);
  EXPECT_EQ(parseEitherDecimal(std::string_view("1.5\0", 4)), std::nullopt);
}

TEST(NumberText, ANumberBeyondARealsRangeIsNotNumeric) {
  EXPECT_EQ(parseNumber("1e999", kEnglish), std::nullopt);
  EXPECT_EQ(parseNumber("1e308", kEnglish), 1e308);
}

TEST(NumberText, TimesOfListCellsTakeEitherDecimalSeparator) {
  EXPECT_EQ(parseEitherDecimal("3,00"), 3.0);
  EXPECT_EQ(parseEitherDecimal("3.25"), 3.25);
  EXPECT_EQ(parseEitherDecimal("-0,5"), -0.5);
  EXPECT_EQ(parseEitherDecimal("1.000,5"), std::nullopt);
  EXPECT_EQ(parseEitherDecimal(""), std::nullopt);
}

TEST(NumberText, IntegersAreRoundedTiesToEven) {
  EXPECT_EQ(toInteger16("2.5"), 2);
  EXPECT_EQ(toInteger16("3.5"), 4);
  EXPECT_EQ(toInteger16("-1"), -1);
  EXPECT_EQ(toInteger32("16777215"), 16777215);
  EXPECT_EQ(toInteger32("-2147483630"), -2147483630);
  EXPECT_EQ(toInteger16("2,5", kGerman), 2);
}

TEST(NumberText, ConversionsReportWhatIsWrong) {
  EXPECT_EQ(failureOf([] { toInteger16("32768"); }), kOverflow);
  EXPECT_EQ(failureOf([] { toInteger32("2147483648"); }), kOverflow);
  EXPECT_EQ(failureOf([] { toInteger16(""); }), kTypeMismatch);
  EXPECT_EQ(failureOf([] { toInteger32("True"); }), kTypeMismatch);
  try {
    toReal("fast", kEnglish);
    ADD_FAILURE() << "a word is no number";
  } catch (const Failure& failure) {
    EXPECT_STREQ(failure.what(), "Type mismatch: 'fast' is not a number");
  }
}

TEST(NumberText, ALongTextIsShortenedInTheReport) {
  try {
    toReal(std::string(5000, 'x'), kEnglish);
    ADD_FAILURE() << "a word is no number";
  } catch (const Failure& failure) {
    EXPECT_LT(std::string(failure.what()).size(), 120U);
  }
}

TEST(NumberText, StandardHasTwoDecimalsAndThousands) {
  struct Case {
    double value;
    const char* english;
    const char* german;
  };
  for (const Case& c :
       {Case{0, "0.00", "0,00"}, Case{3, "3.00", "3,00"}, Case{0.5, "0.50", "0,50"},
        Case{99.999, "100.00", "100,00"}, Case{800, "800.00", "800,00"},
        Case{999.994, "999.99", "999,99"}, Case{999.995, "1,000.00", "1.000,00"},
        Case{1234.5, "1,234.50", "1.234,50"}, Case{1234567.891, "1,234,567.89", "1.234.567,89"},
        Case{-3, "-3.00", "-3,00"}, Case{-1234.5, "-1,234.50", "-1.234,50"},
        Case{-0.001, "0.00", "0,00"}, Case{-0.0, "0.00", "0,00"}}) {
    EXPECT_EQ(formatStandard(c.value, kEnglish), c.english);
    EXPECT_EQ(formatStandard(c.value, kGerman), c.german);
  }
}

TEST(NumberText, StandardRoundsTheDecimalsThatAPersonSees) {
  // None of these is a half in binary; all are for who typed them.
  EXPECT_EQ(formatStandard(1.005, kEnglish), "1.01");
  EXPECT_EQ(formatStandard(0.145, kEnglish), "0.15");
  EXPECT_EQ(formatStandard(8.575, kEnglish), "8.58");
  EXPECT_EQ(formatStandard(0.125, kEnglish), "0.13");
  EXPECT_EQ(formatStandard(-1.005, kEnglish), "-1.01");
  EXPECT_EQ(formatStandard(1.0049, kEnglish), "1.00");
}

TEST(NumberText, StandardShowsHugeNumbersWhole) {
  EXPECT_EQ(formatStandard(1e15, kEnglish), "1,000,000,000,000,000.00");
  EXPECT_EQ(formatStandard(0x1p1000, kEnglish).size(), 302U + 100U + 3U);
}

TEST(NumberText, WhatStandardWritesIsReadAgain) {
  for (const double value : {0.0, 0.25, 3.0, 799.99, 1234567.89, -12.5}) {
    EXPECT_EQ(parseNumber(formatStandard(value, kEnglish), kEnglish), value);
    EXPECT_EQ(parseNumber(formatStandard(value, kGerman), kGerman), value);
  }
}

TEST(NumberText, TheGeneralFormHasUpToFifteenDigits) {
  struct Case {
    double value;
    const char* english;
    const char* german;
  };
  for (const Case& c :
       {Case{0.5, "0.5", "0,5"}, Case{3, "3", "3"}, Case{-2.25, "-2.25", "-2,25"},
        Case{0.1, "0.1", "0,1"}, Case{1.0 / 3, "0.333333333333333", "0,333333333333333"},
        Case{0.1 + 0.2, "0.3", "0,3"}, Case{1234567.5, "1234567.5", "1234567,5"},
        Case{1e20, "1E+20", "1E+20"}, Case{1.5e-7, "1.5E-07", "1,5E-07"}}) {
    EXPECT_EQ(formatGeneral(c.value, kEnglish), c.english);
    EXPECT_EQ(formatGeneral(c.value, kGerman), c.german);
  }
}

TEST(NumberText, TheGeneralFormIsReadAgainToFifteenDigits) {
  Random random;
  random.seed(11);
  for (int i = 0; i < 2000; ++i) {
    const double value = (static_cast<double>(random.next()) - 0.5) * std::pow(10, i % 40 - 20);
    for (const NumberFormat& format : {kEnglish, kGerman}) {
      const std::optional<double> back = parseNumber(formatGeneral(value, format), format);
      ASSERT_TRUE(back);
      EXPECT_LE(std::fabs(*back - value), std::fabs(value) * 1e-14);
      EXPECT_EQ(formatGeneral(*back, format), formatGeneral(value, format));
    }
  }
}

}  // namespace
}  // namespace korvane
