// The verbs on whole words against the plain verbs on single digits. These headers are the
// library's own: the tests compile them with the same choice of instructions as the library.
#include "aldlib/arith/internal/PackedWords.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

#include "aldlib/arith/internal/PackedText.h"

namespace ald::packed {
namespace {

using testing::PrintToString;

constexpr std::uint64_t kTenTo4 = 10'000;
constexpr std::uint64_t kTenTo8 = 100'000'000;
constexpr std::uint64_t kTenTo16 = kTenTo8 * kTenTo8;

Bytes WithSign(Bytes bytes, std::uint8_t nSign) {
  SetSign(bytes, nSign);
  return bytes;
}

Bytes BytesOf(Words words) {
  Bytes bytes{};
  Store(words, bytes);
  return bytes;
}

// Runs of nines and zeros of every length, every power of ten, values at a half, and random ones;
// all positive.
std::vector<Bytes> Values() {
  std::vector<Bytes> values;
  std::mt19937_64 random(23);
  for (int nEnd = 0; nEnd <= kDigits; ++nEnd) {
    Bytes power = kZero, below = kZero, above = kZero, half = kZero, other = kZero;
    if (nEnd < kDigits) SetDigit(power, nEnd, 1);
    for (int i = 0; i < kDigits; ++i) {
      SetDigit(i < nEnd ? below : above, i, 9);
      SetDigit(half, i, i < nEnd ? 4 + i % 2 : 5 - i % 2);
      if (i <= nEnd) SetDigit(other, i, static_cast<int>(random() % 10));
    }
    values.insert(values.end(), {power, below, above, half, other});
  }
  return values;
}

// Of up to sixteen digits: both neighbours of every power of ten, and random ones.
std::vector<std::uint64_t> Numbers() {
  std::vector<std::uint64_t> numbers{kTenTo16 - 1};
  for (std::uint64_t nPower = 1; nPower < kTenTo16; nPower *= 10) {
    numbers.insert(numbers.end(), {nPower - 1, nPower, nPower + 1});
  }
  std::mt19937_64 random(16);
  for (int i = 0; i < 2000; ++i) numbers.push_back(random() % kTenTo16);
  return numbers;
}

// The sixteen digits of a number as a word.
std::uint64_t WordOf(std::uint64_t nNumber) {
  Bytes bytes{};
  StoreWhole(bytes, nNumber, 7);
  return Load(bytes).nHigh;
}

Words StoredDigits(std::uint64_t nTop, std::uint64_t nMiddle, std::uint64_t nLow,
                   std::uint64_t nSign) {
  Bytes bytes{};
  StoreDigits(FoursOf(nTop), nMiddle, nLow, nSign, bytes);
  return Load(bytes);
}

struct PlainSum {
  Bytes bytes;
  bool bCarry;
};

PlainSum AddPlainly(const Bytes& a, const Bytes& b) {
  PlainSum sum{a, false};
  if (IsNegative(a) == IsNegative(b)) {
    sum.bCarry = AddDigits(sum.bytes, b);
  } else if (WithSign(a, 0) < WithSign(b, 0)) {
    sum.bytes = b;
    SubtractDigits(sum.bytes, a);
  } else {
    SubtractDigits(sum.bytes, b);
  }
  if (AreZero(sum.bytes, 0, kDigits)) SetSign(sum.bytes, kPositive);
  return sum;
}

TEST(PackedWords, HoldEachDigitAtItsPlace) {
  for (int i = 0; i < kDigits; ++i) {
    Bytes bytes = kZero;
    SetDigit(bytes, i, 7);
    const Words words = Load(bytes);
    EXPECT_EQ(words.nHigh, i < 7 ? 0 : std::uint64_t{7} << 4 * (i - 7)) << i;
    EXPECT_EQ(words.nLow, (i < 7 ? std::uint64_t{7} << 4 * (i + 1) : 0) | kPositive) << i;
    EXPECT_EQ(BytesOf(words), bytes) << i;
  }
}

TEST(PackedWords, JudgeEverySignNibble) {
  const auto isPlain = [](std::uint64_t nSign) { return nSign == kPositive || nSign == kNegative; };
  for (std::uint64_t nLeft = 0; nLeft < 16; ++nLeft) {
    const Words a{0, 0x12345670 | nLeft};
    EXPECT_EQ(HasPlainSign(a), isPlain(nLeft)) << nLeft;
    EXPECT_EQ(MinusMask(a), nLeft == kNegative ? -1 : 0) << nLeft;
    EXPECT_EQ(IsNegativeZero({0, nLeft}), nLeft == kNegative) << nLeft;
    EXPECT_FALSE(IsNegativeZero(a)) << nLeft;
    for (std::uint64_t nRight = 0; nRight < 16; ++nRight) {
      const Words b{0, 0x89ABCDE0 | nRight};
      EXPECT_EQ(HavePlainSigns(a, b), isPlain(nLeft) && isPlain(nRight)) << nLeft << ' ' << nRight;
      if (!HavePlainSigns(a, b)) continue;
      EXPECT_EQ(HaveLikeSigns(a, b), nLeft == nRight);
      EXPECT_EQ(SignOfProduct(a, b), nLeft == nRight ? kPositive : kNegative);
      EXPECT_EQ(SignOfProduct(BytesOf(a), BytesOf(b)), SignOfProduct(a, b));
    }
  }
}

void ExpectSums(const std::vector<Bytes>& values, bool (*pfnAdd)(Words&, Words)) {
  for (const Bytes& left : values) {
    for (const Bytes& right : values) {
      for (int nSigns = 0; nSigns < 4; ++nSigns) {
        const Bytes a = WithSign(left, nSigns & 1 ? kNegative : kPositive);
        const Bytes b = WithSign(right, nSigns & 2 ? kNegative : kPositive);
        const PlainSum wanted = AddPlainly(a, b);
        Words sum = Load(a);
        ASSERT_EQ(pfnAdd(sum, Load(b)), wanted.bCarry) << PrintToString(a) << PrintToString(b);
        if (wanted.bCarry) continue;
        ASSERT_EQ(BytesOf(sum), wanted.bytes) << PrintToString(a) << PrintToString(b);
      }
    }
  }
}

TEST(PackedWords, AddUnderAllSignsAsDigitsDo) {
  ExpectSums(Values(), [](Words& a, Words b) { return AddWords(a, b); });
}

TEST(PackedWords, AddCentsUnderAllSignsAsDigitsDo) {
  std::vector<Bytes> values = Values();
  for (Bytes& value : values) ClearDigits(value, 0, 7);
  ExpectSums(values, [](Words& a, Words b) { return AddHighWords(a, b); });
  // The short road of like signs.
  ExpectSums(values, [](Words& a, Words b) {
    if (!HaveLikeSigns(a, b) || HasZeroDigits(a)) return AddHighWords(a, b);
    const DigitSum sum(false, a.nHigh, b.nHigh + 6 * kUnits);
    a.nHigh = sum.DigitsWithoutCarry();
    return sum.bCarry;
  });
}

TEST(PackedWords, RoundAtEachPlaceAsDigitsDo) {
  const std::vector<Bytes> values = Values();
  for (int nGoing = 1; nGoing < kDigits; ++nGoing) {
    const RoundingMasks& masks = kRounding[static_cast<std::size_t>(nGoing)];
    for (const Bytes& value : values) {
      Bytes half = kZero;
      SetDigit(half, nGoing - 1, 5);
      Bytes wanted = value;
      const bool bCarry = AddDigits(wanted, half);
      ClearDigits(wanted, 0, nGoing);
      Words words = Load(value);
      ASSERT_EQ(IsRounded(words, masks), AreZero(value, 0, nGoing)) << nGoing;
      ASSERT_EQ(RoundWords(words, masks), bCarry) << nGoing << ' ' << PrintToString(value);
      if (!bCarry) {
        ASSERT_EQ(BytesOf(words), wanted) << nGoing << ' ' << PrintToString(value);
      }
    }
  }
}

// Each division by a constant gives quotients that never fall as the dividend grows, so that one
// that is right on both sides of every step is right everywhere.
TEST(PackedWords, SpellEveryFourDigitsAndEveryStepOfTheDivisionByTenThousand) {
  for (std::uint64_t nFour = 0; nFour < kTenTo4; ++nFour) {
    const std::uint64_t nStep = nFour * kTenTo4;
    const std::uint64_t nBeforeNext = nStep + kTenTo4 - 1;
    const Words upper = StoredDigits(nStep, nBeforeNext, 0, kPositive);
    ASSERT_EQ(upper.nHigh, WordOf(nStep * kTenTo8 + nBeforeNext)) << nFour;
    ASSERT_EQ(upper.nLow, kPositive) << nFour;
    const Words lower = StoredDigits(nBeforeNext, nStep + nFour, nStep + nFour, kNegative);
    ASSERT_EQ(lower.nHigh, WordOf(nBeforeNext * kTenTo8 + nStep + nFour)) << nFour;
    ASSERT_EQ(lower.nLow, (WordOf(nStep + nFour) & kLowDigits) | kNegative) << nFour;
    const Pair numbers = BinaryOf(upper.nHigh, lower.nHigh);
    ASSERT_EQ(numbers.nFirst, nStep * kTenTo8 + nBeforeNext) << nFour;
    ASSERT_EQ(numbers.nSecond, nBeforeNext * kTenTo8 + nStep + nFour) << nFour;
  }
}

TEST(PackedWords, BecomeNumbersAndDigitsAgain) {
  std::uint64_t nOther = kTenTo16 - 1;
  for (const std::uint64_t nNumber : Numbers()) {
    const Pair numbers = BinaryOf(WordOf(nNumber), WordOf(nOther));
    EXPECT_EQ(numbers.nFirst, nNumber);
    EXPECT_EQ(numbers.nSecond, nOther);
    const std::uint64_t nLow = nNumber % (kTenTo8 / 10) * 10;
    const std::uint64_t nOtherLow = nOther % (kTenTo8 / 10) * 10;
    const Words digits = StoredDigits(nNumber / kTenTo8, nNumber % kTenTo8, nOtherLow, kPositive);
    EXPECT_EQ(digits.nHigh, WordOf(nNumber));
    EXPECT_EQ(digits.nLow, WordOf(nOtherLow) | kPositive);
    // The sign takes no part in what the low words spell.
    const Bytes bytes = BytesOf({WordOf(nNumber), WordOf(nLow) | kNegative});
    const Bytes other = BytesOf({WordOf(nOther), WordOf(nOtherLow) | kPositive});
    const Pair highs = BinaryOfHighs(bytes, other);
    EXPECT_EQ(highs.nFirst, nNumber);
    EXPECT_EQ(highs.nSecond, nOther);
    const Pair lows = BinaryOfLows(bytes, other);
    EXPECT_EQ(lows.nFirst, nLow);
    EXPECT_EQ(lows.nSecond, nOtherLow);
    nOther = nNumber;
  }
}

TEST(PackedWords, DivideTwoWordsByOneUpToTheLargestQuotient) {
  std::mt19937_64 random(64);
  for (int i = 0; i < 20'000; ++i) {
    const std::uint64_t nDivisor = i < 4 ? ~std::uint64_t{0} : (random() >> random() % 63) | 1;
    const std::uint64_t nQuotient = i % 4 == 0 ? ~std::uint64_t{0} : random() >> random() % 64;
    const std::uint64_t nRest = i % 2 == 0 ? nDivisor - 1 : random() % nDivisor;
    ASSERT_EQ(Divide128By64(UInt128{nDivisor} * nQuotient + nRest, nDivisor).nQuotient, nQuotient)
        << nDivisor << ' ' << nRest;
  }
}

// The digits of a text as far as they go, the plain way.
void ExpectDigits(const char* szText) {
  int nCount = 0;
  while (nCount < 16 && szText[nCount] >= '0' && szText[nCount] <= '9') ++nCount;
  const LeadingDigits digits = ReadDigits(szText);
  ASSERT_EQ(digits.nCount, nCount) << szText;
  for (int i = 0; i < nCount; ++i) {
    ASSERT_EQ(digits.nDigits >> (60 - 4 * i) & 0xF, static_cast<std::uint64_t>(szText[i] - '0'))
        << szText << " at " << i;
  }
}

TEST(PackedText, StopsAtWhatIsNoDigitWhereverItStands) {
  for (int nPlace = 0; nPlace < 20; ++nPlace) {
    for (int nCharacter = 0; nCharacter < 256; ++nCharacter) {
      std::string sText = "90817263544536271809";
      sText[static_cast<std::size_t>(nPlace)] = static_cast<char>(nCharacter);
      ExpectDigits(sText.c_str());
    }
  }
}

TEST(PackedText, ReadsUpToTheLastByteThatThereIs) {
  const auto nPage = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
  void* const pPages =
      mmap(nullptr, 3 * nPage, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(pPages, MAP_FAILED);
  char* const pEnd = static_cast<char*>(pPages) + 2 * nPage;
  ASSERT_EQ(mprotect(pEnd, nPage, PROT_NONE), 0);
  // Up to the forbidden page, and across the border of the two others.
  for (std::size_t nLength = 0; nLength < 40; ++nLength) {
    for (char* const szText : {pEnd - 1 - nLength, pEnd - nPage - nLength / 2}) {
      for (std::size_t i = 0; i < nLength; ++i)
        szText[i] = static_cast<char>('0' + (i * 7 + 3) % 10);
      szText[nLength] = '\0';
      ExpectDigits(szText);
    }
  }
  munmap(pPages, 3 * nPage);
}

TEST(PackedText, WritesSixteenDigitsAndNothingElse) {
  for (const std::uint64_t nNumber : Numbers()) {
    char aText[18];
    std::fill(std::begin(aText), std::end(aText), '#');
    WriteDigits(aText + 1, WordOf(nNumber));
    const std::string sNumber = std::to_string(nNumber);
    EXPECT_EQ(std::string(aText, 18), "#" + std::string(16 - sNumber.size(), '0') + sNumber + "#");
  }
}

}  // namespace
}  // namespace ald::packed
