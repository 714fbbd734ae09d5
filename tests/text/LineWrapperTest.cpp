#include "aldlib/text/LineWrapper.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

constexpr const char* kWhite = " \t\n\v\f\r";

// The line that belongs at the front of a text that is not empty; takes it off.
std::string TakeLine(std::string* psText, std::size_t nWidth) {
  std::string sLine = psText->substr(0, std::min(psText->find('\n'), nWidth));
  const std::string sRest = psText->substr(sLine.size());
  const bool bInsideAWord = !sRest.empty() && sRest.find_first_of(kWhite) != 0;
  const std::size_t nLastWhite = sLine.find_last_of(kWhite);
  if (bInsideAWord && nLastWhite != std::string::npos) sLine.resize(nLastWhite);
  sLine.erase(sLine.find_last_not_of(kWhite) + 1);
  psText->erase(0, std::min(psText->find_first_not_of(kWhite, sLine.size()), psText->size()));
  return sLine;
}

TEST(LineWrapper, TakesLineAfterLineOffTheText) {
  RandomText random;
  for (int nRound = 0; nRound < 30000; ++nRound) {
    const int nRoom = random.Number(2, 7);
    std::string sText = random.Text(15, "abc  \n\t");
    GuardedBuffer source(random.Number(static_cast<int>(sText.size()), 16) + 1, sText);
    SCOPED_TRACE(sText);
    while (!sText.empty()) {
      GuardedBuffer line(nRoom, "######");
      const int nResult = LineWrapper(line.Ref(), source.Ref());
      const std::string sLine = TakeLine(&sText, std::size_t(nRoom) - 1);
      EXPECT_EQ(nResult, sLine.empty() ? 0 : 1);
      EXPECT_EQ(line.CleanText(), sLine);
      ASSERT_EQ(source.CleanText(), sText);
    }
  }
}

TEST(LineWrapper, BreaksAtWordsAndLineFeeds) {
  CFixedString<80> sMemo("Paid in full\n\n  with thanksgiving, twice over\n");
  const std::vector<std::string> asExpected = {"Paid in",    "full",      "with",
                                               "thanksgivi", "ng, twice", "over"};
  std::vector<std::string> asLines;
  for (CFixedString<11> sLine; !sMemo.IsEmpty();) {
    EXPECT_EQ(LineWrapper(sLine, sMemo), 1);
    asLines.emplace_back(sLine.view());
  }
  EXPECT_EQ(asLines, asExpected);
}

TEST(LineWrapper, GivesAnEmptyLineForNothingAndForALeadingLineFeed) {
  CFixedString<11> sLine("old");
  CFixedString<20> sMemo;
  EXPECT_EQ(LineWrapper(sLine, sMemo), 0);
  EXPECT_EQ(sLine, "");
  sMemo = "\nnext";
  EXPECT_EQ(LineWrapper(sLine, sMemo), 0);
  EXPECT_EQ(sMemo, "next");
}

}  // namespace
}  // namespace ald
