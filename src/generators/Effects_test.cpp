#include "generators/Effects.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <type_traits>

#include "testing/SourceFolder.h"

namespace korvane {
namespace {

std::string quoted(const char* name) { return std::string("`") + name + "`"; }

// The fields of a type as docs/file-formats.md lists them.
std::string listed(std::int16_t type) {
  std::string line = "`name`";
  for (const EffectField& field : effectFields(type)) {
    line += ", " + quoted(field.name);
    const ItemList* list = std::get_if<ItemList>(&field.value);
    if (list == nullptr) continue;
    std::string columns;
    for (const ItemColumn& column : list->columns) {
      columns += (columns.empty() ? "" : ", ") + quoted(column.name);
    }
    line += " (" + columns + ")";
  }
  return line;
}

TEST(Effects, StandInTheDocsAsInTheTable) {
  std::ifstream stream(sourceFolder() + "/docs/file-formats.md");
  std::stringstream docs;
  docs << stream.rdbuf();
  for (std::int16_t type = 0; kindOf(type) != nullptr; ++type) {
    const std::string row = "| " + std::to_string(type) + " | " + std::string(kindOf(type)->name) +
                            " | " + listed(type) + " |\n";
    EXPECT_NE(docs.str().find(row), std::string::npos) << row;
  }
}

TEST(Effects, ATypeThatDoesNotExistHasNone) {
  EXPECT_TRUE(effectFields(-1).empty());
  EXPECT_TRUE(effectFields(static_cast<std::int16_t>(kinds().size())).empty());
}

TEST(Effects, CopyingTakesTheFieldsOfTheTypeAndLeavesTheOthers) {
  Effect from;
  from.type = kFire;
  from.color1 = 1;
  from.amount = 2;
  from.direction = 3;  // not of a Fire
  Effect to;
  to.direction = 9;
  to.name = "stays";
  copyEffectFields(from, to);
  EXPECT_EQ(to.color1, 1);
  EXPECT_EQ(to.amount, 2);
  EXPECT_EQ(to.direction, 9);
  EXPECT_EQ(to.name, "stays");
  EXPECT_EQ(to.type, 0);
}

TEST(Effects, HaveTheNumbersThatProjectFilesHold) {
  EXPECT_EQ(kindNames(),
            (std::vector<std::string>{"Color", "Gradient", "Paint", "Image", "Color Change",
                                      "Color Scroll", "Fire", "Fluid", "Ticker"}));
  EXPECT_STREQ(kindOf(kColor)->name, "Color");
  EXPECT_STREQ(kindOf(kColorChange)->name, "Color Change");
  EXPECT_STREQ(kindOf(kTicker)->name, "Ticker");
}

TEST(Effects, ATypeThatDoesNotExistHasNoKind) {
  EXPECT_EQ(kindOf(-1), nullptr);
  EXPECT_EQ(kindOf(static_cast<std::int16_t>(kinds().size())), nullptr);
}

// A kind that leaves a part out, or gives no function for it, does not compile.
static_assert(!std::is_default_constructible_v<Given<EffectKind::Step>>);
static_assert(!std::is_default_constructible_v<EffectKind>);
static_assert(!std::is_constructible_v<Given<EffectKind::Step>, std::nullptr_t>);

}  // namespace
}  // namespace korvane
