#include "aldlib/text/FixedStringFormat.h"

#include <gtest/gtest.h>

namespace ald {
namespace {

TEST(FixedStringFormat, PrintsAFixedStringLikeAnyText) {
  EXPECT_EQ(fmt::format("{:>5}|{}", CFixedString<9>("abc"), CPathNameString("C:\\")), "  abc|C:\\");
}

}  // namespace
}  // namespace ald
