#include "aldlib/amounts/VersionText.h"

#include <gtest/gtest.h>

namespace ald {
namespace {

TEST(ConvertVersionToCard, GivesHundredthsButDropsTheFractionOfFiveAndSix) {
  const struct {
    const char* szVersion;
    std::int16_t nCard;
  } rows[] = {
      {"7.2", 720},  {"12.05", 1205}, {"7.205", 721}, {"5.1", 500},
      {"6.99", 600}, {"4.99", 499},   {"7", 700},     {"", 0},
      {"x", 0},      {"-1.5", -150},  {nullptr, 0},   {"7.2 beta", 720},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ConvertVersionToCard(row.szVersion), row.nCard)
        << (row.szVersion == nullptr ? "null" : row.szVersion);
  }
}

}  // namespace
}  // namespace ald
