#include "state/EffectFields.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

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

TEST(EffectFields, StandInTheDocsAsInTheTable) {
  std::ifstream stream(KORVANE_SOURCE_DIR "/docs/file-formats.md");
  std::stringstream docs;
  docs << stream.rdbuf();
  for (std::int16_t type = 0; type < kEffectTypes; ++type) {
    const std::string row = "| " + std::to_string(type) + " | " +
                            kEffectTypeNames[static_cast<std::size_t>(type)] + " | " +
                            listed(type) + " |\n";
    EXPECT_NE(docs.str().find(row), std::string::npos) << row;
  }
}

TEST(EffectFields, ATypeThatDoesNotExistHasNone) {
  EXPECT_TRUE(effectFields(-1).empty());
  EXPECT_TRUE(effectFields(kEffectTypes).empty());
}

TEST(EffectFields, CopyingTakesTheFieldsOfTheTypeAndLeavesTheOthers) {
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

}  // namespace
}  // namespace korvane
