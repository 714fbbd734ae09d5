#include "aldlib/text/Strings.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "aldlib/frame/MemStore.h"
#include "aldlib/platform/Characters.h"
#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

constexpr int kRounds = 30000;

std::string Cut(std::string sText, int nSize) {
  return sText.substr(0, static_cast<std::size_t>(nSize) - 1);
}

// Runs an operation over random texts in small buffers against a plain description of it.
void Check(std::string_view sAlphabet,
           const std::function<void(RandomText&, GuardedBuffer&, std::string)>& check) {
  RandomText random;
  for (int nRound = 0; nRound < kRounds && !::testing::Test::HasFailure(); ++nRound) {
    const int nSize = random.Number(1, 10);
    const std::string sText = random.Text(nSize - 1, sAlphabet);
    GuardedBuffer buffer(nSize, sText);
    SCOPED_TRACE("\"" + sText + "\" in " + std::to_string(nSize));
    check(random, buffer, sText);
  }
}

TEST(Sstrcpy, WritesItsSizeAndNoMore) {
  RandomText random;
  for (int nRound = 0; nRound < kRounds; ++nRound) {
    const int nSize = random.Number(-1, 10);
    const std::string sSource = random.Text(12, "ab");
    GuardedBuffer buffer(10, "##########");
    EXPECT_EQ(sstrcpy(buffer.Ref(), sSource.c_str(), nSize), buffer.Ref().buffer);
    std::string sExpected(10, '#');
    if (nSize >= 1) {
      std::string sCopy = Cut(sSource, nSize);
      sCopy.resize(std::size_t(nSize));
      sExpected.replace(0, sCopy.size(), sCopy);
    }
    ASSERT_EQ(buffer.Bytes(), sExpected);
  }
}

TEST(Sstrcat, AppendsOnlyBehindATerminator) {
  CFixedString<6> sText("abc");
  EXPECT_EQ(sstrcat(sText, "defgh", 6), sText + 3);
  EXPECT_EQ(sText, "abcde");
  sText = "abcde";
  sstrcat(sText, "x", 4);  // no zero in these four
  EXPECT_EQ(sText, "abcde");
}

TEST(RunningStringCopy, MovesOnUntilTheRoomIsUsedUp) {
  char achLine[6] = "#####";
  char* pWrite = achLine;
  std::uint16_t nRoom = 5;
  EXPECT_EQ(RunningStringCopy("abc", &pWrite, &nRoom), 3);
  EXPECT_EQ(RunningStringCopy("", &pWrite, &nRoom), 0);
  EXPECT_STREQ(achLine, "abc##");
  EXPECT_EQ(RunningStringCopy("def", &pWrite, &nRoom), 2);
  EXPECT_EQ(nRoom, 0);
  EXPECT_EQ(pWrite, achLine + 5);
  EXPECT_STREQ(achLine, "abcde");
}

TEST(Insert, IsTheTextSplicedInAndCutAtTheEnd) {
  Check("abcde", [](RandomText& random, GuardedBuffer& buffer, std::string sText) {
    const std::string sNew = random.Text(12, "XY");
    const int nPosition = random.Number(-2, 12);
    buffer.Soil();
    Insert(sNew.c_str(), buffer.Ref(), nPosition);
    sText.insert(std::min(std::size_t(std::max(nPosition, 0)), sText.size()), sNew);
    EXPECT_EQ(buffer.CleanText(), Cut(sText, buffer.Ref().size)) << sNew << " at " << nPosition;
  });
}

TEST(Insert, TakesSixteenBitsOfThePosition) {
  CFixedString<9> sText("abc");
  Insert("X", sText, 65537);
  EXPECT_EQ(sText, "aXbc");
}

TEST(Delete, TakesOutWhatLiesInside) {
  Check("abcde", [](RandomText& random, GuardedBuffer& buffer, std::string sText) {
    const int nPosition = random.Number(-2, 11);
    const int nCount = random.Number(-1, 11) * (random.Number(0, 50) == 0 ? 100000000 : 1);
    if (nCount > 0 && nPosition >= 0 && nPosition <= static_cast<int>(sText.size())) {
      buffer.Soil();  // even a deletion at the very end cleans this
      sText.erase(std::size_t(nPosition), std::size_t(nCount));
    }
    Delete(buffer.Ref(), nPosition, nCount);
    EXPECT_EQ(buffer.CleanText(), sText) << nCount << " at " << nPosition;
  });
}

TEST(PosInString, FindsTheFirstMatch) {
  EXPECT_EQ(PosInString("aab", "aaab"), 1);
  EXPECT_EQ(PosInString("b", "aaa"), -1);
  EXPECT_EQ(PosInString("aaaa", "aaa"), -1);
  EXPECT_EQ(PosInString("", "abc"), 3);
  EXPECT_EQ(PosInString("", nullptr), 0);
  EXPECT_EQ(PosInString("A", "a"), -1);
}

// The rule in other words: the texts with their terminators, as signed numbers.
int Order(std::string sFirst, std::string sSecond, bool bFold) {
  const auto numbers = [bFold](std::string& sText) {
    std::vector<int> anText;
    for (char ch : sText + '\0') {
      if (bFold && ch >= 'a' && ch <= 'z') ch = static_cast<char>(ch - 'a' + 'A');
      anText.push_back(static_cast<signed char>(ch));
    }
    return anText;
  };
  const auto order = numbers(sFirst) <=> numbers(sSecond);
  return order < 0 ? -1 : order > 0 ? 1 : 0;
}

TEST(CompareStr, OrdersSignedBytesWithTheEndAsAZero) {
  RandomText random;
  for (int nRound = 0; nRound < kRounds; ++nRound) {
    const std::string sFirst = random.Text(4, "aAbB[\xE9\xC9");
    const std::string sSecond = random.Text(4, "aAbB[\xE9\xC9");
    const char* const sz1 = sFirst.c_str();
    const char* const sz2 = sSecond.c_str();
    ASSERT_EQ(CompareStr(sz1, sz2), Order(sFirst, sSecond, false)) << sFirst << " " << sSecond;
    ASSERT_EQ(CompareStrNoCase(sz1, sz2), Order(sFirst, sSecond, true)) << sFirst << " " << sSecond;
  }
  EXPECT_EQ(CompareStr("ab", "ab\xE9"), 1);
  EXPECT_EQ(CompareStr(nullptr, ""), 0);
}

TEST(Justify, PadsOrCutsToTheWidthAndTouchesNothingBehind) {
  Check("ab", [](RandomText& random, GuardedBuffer& buffer, std::string sText) {
    const int nWidth = random.Number(-1, 12);
    const auto nForm = static_cast<std::int16_t>(random.Number(-1, 3));
    const std::string sBytes = buffer.Bytes();
    Justify(buffer.Ref(), nWidth, nForm);
    const std::size_t w = std::size_t(std::clamp(nWidth, 0, buffer.Ref().size - 1));
    std::string sExpected = sText.substr(0, w);
    const bool bPads = nForm >= 0 && nForm <= 2;
    for (bool bRight = nForm != 2; bPads && sExpected.size() < w; bRight ^= nForm == 1) {
      sExpected.insert(bRight ? sExpected.size() : 0, 1, ' ');
    }
    EXPECT_EQ(buffer.Text(), sExpected) << nWidth << " form " << nForm;
    EXPECT_EQ(buffer.Bytes().substr(w + 1), sBytes.substr(w + 1));
  });
}

TEST(AppendWithJustify, FillsTheRoomThatIsLeft) {
  CFixedString<9> sText("ab");
  AppendWithJustify(sText, "12", kJustifyRight);
  EXPECT_EQ(sText, "ab    12");
  AppendWithJustify(sText, "3", kJustifyRight);
  EXPECT_EQ(sText, "ab    12");
}

TEST(Trim, TakesOffSpacesAndNoOtherWhiteSpace) {
  Check("a \t", [](RandomText& random, GuardedBuffer& buffer, std::string sText) {
    const int nSides = random.Number(1, 3);
    const bool bPlain = random.Number(0, 1) != 0;
    const auto ref = buffer.Ref();
    if (nSides == 1) bPlain ? TrimLeftLPSTR(ref) : TrimLeft(ref);
    if (nSides == 2) bPlain ? TrimRightLPSTR(ref) : TrimRight(ref);
    if (nSides == 3) bPlain ? TrimLPSTR(ref) : Trim(ref);
    if ((nSides & 1) != 0) sText.erase(0, std::min(sText.find_first_not_of(' '), sText.size()));
    if ((nSides & 2) != 0) sText.erase(sText.find_last_not_of(' ') + 1);
    EXPECT_EQ(buffer.CleanText(), sText) << nSides;
  });
}

TEST(FixPrefix, IsAnInsertionAtEachMark) {
  Check("a&", [](RandomText&, GuardedBuffer& buffer, std::string sText) {
    for (std::size_t i = 0; i < sText.size(); ++i) {
      if (sText[i] == '&') sText = Cut(sText.insert(i++, "&"), buffer.Ref().size);
    }
    if (sText.find('&') != std::string::npos) buffer.Soil();
    FixPrefix(buffer.Ref());
    EXPECT_EQ(buffer.CleanText(), sText);
  });
}

TEST(ExcludeCharsFromString, KeepsOrDropsASet) {
  Check("abc\xE9", [](RandomText& random, GuardedBuffer& buffer, std::string sText) {
    const std::string sSet = random.Text(3, "ac\xE9");
    const bool bExclude = random.Number(0, 1) != 0;
    ExcludeCharsFromString(buffer.Ref(), sSet.c_str(), bExclude);
    std::string sExpected;
    for (const char ch : sText) {
      if ((sSet.find(ch) == std::string::npos) == bExclude) sExpected += ch;
    }
    EXPECT_EQ(buffer.CleanText(), sExpected) << sSet;
  });
}

// What one line says of an operation: text before, what is done, text after, in 12 bytes.
TEST(Strings, ChangeTheTextInItsBuffer) {
  using Ref = CFixedStringParamRef;
  const struct {
    const char* szBefore;
    std::function<void(Ref)> change;
    const char* szAfter;
  } rows[] = {
      {"", [](Ref ref) { Concat("abcdef", "ghijkl", ref); }, "abcdefghijk"},
      {"old", [](Ref ref) { Concat(nullptr, nullptr, ref); }, ""},
      {"abc", [](Ref ref) { Reverse(ref); }, "cba"},
      {"z\xE9\xFF", [](Ref ref) { UpperCase(ref); }, "Z\xC9\x9F"},
      {"Z\xC9\x9F", [](Ref ref) { LowerCase(ref); }, "z\xE9\xFF"},
      {"Qty     each", [](Ref ref) { Replace(ref, 4, "12", 4); }, "Qty   12eac"},
      {"abcdef", [](Ref ref) { Replace(ref, 1, "xyz", 2); }, "axydef"},
      {"abcdef", [](Ref ref) { Replace(ref, 9, "x", 1); }, "abcdefx"},
      {"abcdef", [](Ref ref) { Replace(ref, -1, "x", 1); }, "abcdef"},
      {"abab", [](Ref ref) { FindAndReplace(ref, "ab", "x"); }, "xab"},
      {"abab", [](Ref ref) { FindAndReplace(ref, "z", "x"); }, "abab"},
      {"ab", [](Ref ref) { FindAndReplace(ref, "", "x"); }, "abx"},
      {"No ### ###", [](Ref ref) { InsertCard(ref, 65535); }, "No 65535 ##"},
      {"No ###", [](Ref ref) { InsertCard(ref, 0); }, "No 0"},
      {"To $$$!", [](Ref ref) { InsertString(ref, "$$$$$$"); }, "To $$$$$$!"},
      {"", [](Ref ref) { CopyPart("abcdef", ref, 2, 3); }, "cde"},
      {"", [](Ref ref) { CopyPart("abcdefghijklmn", ref, 8, 9); }, "ijk"},
      {"", [](Ref ref) { CopyPart("abc", ref, 0, -1); }, ""},
      {"a-b-c", [](Ref ref) { EXPECT_EQ(DeleteFirst("-", ref), 1); }, "ab-c"},
      {"abc", [](Ref ref) { EXPECT_EQ(DeleteFirst("-", ref), -1); }, "abc"},
  };
  for (const auto& row : rows) {
    GuardedBuffer buffer(12, std::string_view(row.szBefore).substr(0, 11));
    row.change(buffer.Ref());
    EXPECT_EQ(buffer.CleanText(), row.szAfter) << row.szBefore;
  }
}

TEST(IsInteger, AsksForDigitsAndIsPseudoNumberForAnything) {
  const struct {
    const char* szText;
    bool bInteger;
    bool bPseudo;
  } rows[] = {{"0123456789", true, true}, {"-5", false, true}, {"1 ", false, true},
              {"abc", false, true},       {"", false, false},  {nullptr, false, false}};
  for (const auto& row : rows) {
    EXPECT_EQ(IsInteger(row.szText), row.bInteger);
    EXPECT_EQ(IsPseudoNumber(row.szText), row.bPseudo);
  }
}

TEST(AlwStrdup, CopiesIntoTheMemoryStore) {
  for (const char* szText : {"memo", "", static_cast<const char*>(nullptr)}) {
    char* szCopy = ALW_strdup(szText);
    EXPECT_STREQ(szCopy, szText == nullptr ? "" : szText);
    _RealDeAllocate(szCopy);
  }
  FailAllocation(1);
  EXPECT_EQ(ALW_strdup("memo"), nullptr);
}

TEST(Strings, StayInsideABufferThatHasLostItsTerminatorAndLeaveItTerminated) {
  const std::function<void(CFixedStringParamRef, const char*, int)> changes[] = {
      [](auto ref, auto szText, int n) { Insert(szText, ref, n); },
      [](auto ref, auto, int n) { Delete(ref, 0, n + 1); },
      [](auto ref, auto, int n) { JustifyCenter(ref, n); },
      [](auto ref, auto szText, int) { AppendWithJustify(ref, szText, kJustifyCenter); },
      [](auto ref, auto, int) { TrimLeft(ref); },
      [](auto ref, auto, int) { UpperCase(ref); },
      [](auto ref, auto, int) { LowerCase(ref); },
      [](auto ref, auto, int) { Reverse(ref); },
      [](auto ref, auto szText, int n) { Replace(ref, n, szText, n); },
      [](auto ref, auto szText, int n) { Concat(szText, szText, ref), Delete(ref, n, n); },
      [](auto ref, auto szText, int n) { CopyPart(szText, ref, n, n); },
      [](auto ref, auto, int) {
        CFixedString<4> sLine;
        while (LineWrapper(sLine, ref)) {
        }
      },
      [](auto ref, auto, int) {
        CFixedString<9> sMemo("a memo of");
        LineWrapper(ref, sMemo);
      },
  };
  RandomText random;
  for (int nRound = 0; nRound < kRounds; ++nRound) {
    const int nSize = random.Number(1, 10);
    const std::size_t nChange = static_cast<std::size_t>(nRound) % std::size(changes);
    const std::string sText = random.Text(12, "a &9");
    const char* szText = random.Number(0, 9) == 0 ? nullptr : sText.c_str();
    GuardedBuffer buffer(nSize, std::string(std::size_t(nSize), "a9& "[random.Number(0, 3)]));
    const int n = random.Number(0, 12);
    changes[nChange](buffer.Ref(), szText, n);
    changes[nChange](CFixedStringParamRef(nullptr, 5), szText, n);
    changes[nChange](CFixedStringParamRef(buffer.Ref().buffer, 0), szText, n);
    EXPECT_LT(buffer.Text().size(), std::size_t(nSize)) << "change " << nChange;
  }
}

}  // namespace
}  // namespace ald
