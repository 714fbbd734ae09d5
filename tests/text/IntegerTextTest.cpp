#include "aldlib/text/IntegerText.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

std::string Printed(int n, int nWidth) {
  char achText[64];
  std::snprintf(achText, sizeof(achText), "%*d", nWidth, n);
  return achText;
}

TEST(IntegerText, WritesEveryNumberAndReadsItBack) {
  for (int n = 0; n <= 65535; ++n) {
    CFixedString<12> sText;
    std::uint16_t nPosition = 0;
    unsigned char bOk = 0;
    const int nWidth = n % 11;
    CardToString(static_cast<std::uint16_t>(n), static_cast<std::uint16_t>(nWidth), sText,
                 &nPosition, &bOk);
    ASSERT_EQ(sText, Printed(n, nWidth));
    ASSERT_TRUE(bOk && nPosition == sText.view().size());
    std::uint16_t nRead = 0;
    MyStringToCard(sText, &nRead);
    ASSERT_EQ(nRead, n);

    const auto nSigned = static_cast<std::int16_t>(n);
    nPosition = 0;
    IntToString(nSigned, static_cast<std::int16_t>(nWidth), sText, &nPosition, &bOk);
    ASSERT_EQ(sText, Printed(nSigned, nWidth));
    nPosition = static_cast<std::uint16_t>(sText.view().rfind(' ') + 1);
    std::int16_t nSignedRead = 0;
    StringToInt(sText, &nPosition, &nSignedRead, &bOk);
    ASSERT_EQ(nSignedRead, nSigned);
    ASSERT_TRUE(bOk && nPosition == sText.view().size());
  }
}

TEST(IntegerText, DropsWhatPassesTheBufferAndSaysSo) {
  RandomText random;
  for (int nRound = 0; nRound < 30000; ++nRound) {
    const int nSize = random.Number(1, 9);
    const int nStart = random.Number(0, 10);
    const int n = random.Number(-32768, 32767) / random.Number(1, 3000);
    const int nWidth = random.Number(-1, 8);
    GuardedBuffer buffer(nSize, std::string(std::size_t(nSize) - 1, '#'));
    auto nPosition = static_cast<std::uint16_t>(nStart);
    unsigned char bOk = 2;
    IntToString(static_cast<std::int16_t>(n), static_cast<std::int16_t>(nWidth), buffer.Ref(),
                &nPosition, &bOk);
    const std::string sNumber = Printed(n, std::max(nWidth, 0));
    const int nKept = std::clamp(nSize - 1 - nStart, 0, static_cast<int>(sNumber.size()));
    std::string sExpected(std::size_t(nSize) - 1, '#');
    if (nStart < nSize) {
      sExpected.resize(std::size_t(nStart));
      sExpected += sNumber.substr(0, std::size_t(nKept));
    }
    EXPECT_EQ(buffer.Text(), sExpected);
    EXPECT_EQ(nPosition, nStart + nKept);
    ASSERT_EQ(bOk, nKept == static_cast<int>(sNumber.size()));
  }
}

// What a reader made of a text from its start on.
struct Reading {
  long long nValue;
  int nPosition;
  bool bOk;
  bool operator==(const Reading&) const = default;
};
void PrintTo(const Reading& reading, std::ostream* pOut) {
  *pOut << reading.nValue << " to " << reading.nPosition << (reading.bOk ? "" : " failed");
}

template <auto Reader, typename T>
Reading Read(const char* szText) {
  T nValue = 77;
  std::uint16_t nPosition = 0;
  unsigned char bOk = 2;
  Reader(CConstFixedStringParamRef(szText, static_cast<std::int32_t>(std::strlen(szText)) + 1),
         &nPosition, &nValue, &bOk);
  return {nValue, nPosition, bOk == 1};
}

TEST(IntegerText, StopsAtEachLimit) {
  const auto card = Read<StringToCard, std::uint16_t>;
  const auto byte = Read<StringToUnsignedChar, std::uint8_t>;
  const auto unsignedLong = Read<StringToUnsignedLong, std::uint32_t>;
  const auto integer = Read<StringToInt, std::int16_t>;
  const auto longNumber = Read<StringToLong, std::int32_t>;
  const struct {
    Reading (*read)(const char*);
    const char* szText;
    Reading expected;
  } rows[] = {
      {card, "65535", {65535, 5, true}},
      {card, "65536", {6553, 4, false}},
      {card, "99999", {9999, 4, false}},
      {card, "12x", {12, 2, true}},
      {card, "x", {0, 0, false}},
      {card, "", {0, 0, false}},
      {card, "000000065535", {65535, 12, true}},
      {byte, "254", {254, 3, true}},
      {byte, "255", {25, 2, false}},
      {byte, "260", {26, 2, false}},
      {unsignedLong, "4294967294", {4294967294, 10, true}},
      {unsignedLong, "4294967295", {429496729, 9, false}},
      {unsignedLong, "4294967300", {429496730, 9, false}},
      {integer, "32767", {32767, 5, true}},
      {integer, "+5", {5, 2, true}},
      {integer, "-32768", {-32768, 6, true}},
      {integer, "32768", {77, 5, false}},  // a failure keeps what was there
      {integer, "-32769", {77, 6, false}},
      {integer, "-65536", {77, 5, false}},
      {integer, "-", {77, 1, false}},
      {integer, "--5", {77, 1, false}},
      {longNumber, "2147483641", {2147483641, 10, true}},
      {longNumber, "2147483642", {77, 10, false}},
      {longNumber, "-2147483642", {-2147483642, 11, true}},
      {longNumber, "-2147483643", {77, 11, false}},
  };
  for (const auto& row : rows) EXPECT_EQ(row.read(row.szText), row.expected) << row.szText;
}

TEST(IntegerText, ReadsFieldAfterFieldAndNothingBehindTheSize) {
  const char achLine[6] = {'1', '2', ',', '3', '4', '5'};  // no terminator
  std::uint16_t nPosition = 0;
  std::uint16_t nValue = 0;
  unsigned char bOk = 0;
  StringToCard(achLine, &nPosition, &nValue, &bOk);
  EXPECT_EQ(nValue, 12);
  ++nPosition;
  StringToCard(achLine, &nPosition, &nValue, &bOk);
  EXPECT_EQ(nValue, 345);
  EXPECT_EQ(nPosition, 6);
  StringToCard(achLine, &nPosition, &nValue, &bOk);
  EXPECT_EQ(bOk, 0);
  EXPECT_EQ(nValue, 0);
}

}  // namespace
}  // namespace ald
