#include "desk/network/ErrorNews.h"

#include <gtest/gtest.h>

namespace korvane {
namespace {

TEST(ErrorNews, AnErrorIsToldOnceAndSoIsItsEnd) {
  ErrorNews news("sACN universe 1");
  EXPECT_EQ(news.of(""), std::nullopt) << "nothing was wrong";
  EXPECT_EQ(news.of("Connection refused"), "sACN universe 1: Connection refused");
  EXPECT_EQ(news.of("Connection refused"), std::nullopt);
  EXPECT_EQ(news.of("No such device"), "sACN universe 1: No such device");
  EXPECT_EQ(news.of(""), "sACN universe 1: works again");
  EXPECT_EQ(news.of(""), std::nullopt);
}

}  // namespace
}  // namespace korvane
