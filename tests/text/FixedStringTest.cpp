#include "aldlib/text/FixedString.h"

#include <gtest/gtest.h>

#include <cstring>
#include <sstream>
#include <string>
#include <type_traits>
#include <unordered_set>

#include "aldlib/frame/MemStore.h"
#include "aldlib/text/Constants.h"
#include "aldlib/text/DynamicHeapFixedString.h"
#include "aldlib/text/ReportWords.h"
#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

template <typename From, typename To>
constexpr bool kConverts = std::is_convertible_v<From, To>;

static_assert(kConverts<CFixedString<9>&, CFixedStringParamRef>);
static_assert(kConverts<CPathNameString&, CFixedStringParamRef>);
static_assert(!kConverts<const CFixedString<9>&, CFixedStringParamRef>);  // it would be written to
static_assert(kConverts<const CFixedString<9>&, CConstFixedStringParamRef>);
static_assert(kConverts<CFixedStringParamRef, CConstFixedStringParamRef>);
static_assert(kConverts<CDynamicHeapFixedString&, CFixedStringParamRef>);
static_assert(kConverts<const char (&)[6], CConstFixedStringParamRef>);
static_assert(!kConverts<const char*, CConstFixedStringParamRef>);  // its size is not known
static_assert(!kConverts<CFixedString<13>, CPathNameString>);       // overloads tell them apart
static_assert(kConverts<const CPathNameString&, std::string_view>);

// All of it can happen before the program runs.
constexpr CFixedString<6> kCut("Alderfell");
static_assert(kCut.view() == "Alder" && kCut.GetSize() == 6 && kCut[1] == 'l' && kCut[99] == '\0');
static_assert(kCut == "Alder" && kCut > CFixedString<20>("Albert") && kCut.Find("der") == 2);

std::string BytesOf(const CFixedString<5>& sText) {
  return {static_cast<const char*>(sText), sizeof(sText)};
}
const std::string kFourZeros(4, '\0');

TEST(FixedString, CutsWhatDoesNotFitAndCleansWhatIsLeft) {
  CFixedString<5> sText("wxyz");
  EXPECT_EQ(sText, "wxyz");
  EXPECT_EQ(BytesOf(sText = "abcde"), std::string("abcd\0", 5));
  EXPECT_EQ(BytesOf(sText = "a"), "a" + kFourZeros);
  sText = "abcd";
  EXPECT_EQ(BytesOf(sText = nullptr), '\0' + kFourZeros);
  sText = "abcd";
  EXPECT_EQ(sText = static_cast<const char*>(sText), "abcd");  // its own address
  EXPECT_EQ(sText = sText + 1, "bcd");
  EXPECT_EQ(BytesOf(sText), std::string("bcd\0\0", 5));
  sText.Clear();
  EXPECT_TRUE(sText.IsEmpty());

  CFixedString<1> sNothing("text");
  EXPECT_EQ(sNothing, "");
  EXPECT_EQ(CFixedString<5>(CPathNameString("C:\\DATA")), "C:\\D");
}

TEST(FixedString, ReadsNoFurtherThanTheSizeOfItsSource) {
  const char achRaw[3] = {'a', 'b', 'c'};
  CFixedString<9> sText;
  EXPECT_EQ(sText = CConstFixedStringParamRef(achRaw), "abc");
  EXPECT_EQ((sText = CConstFixedStringParamRef(achRaw, 2)), "ab");
}

TEST(FixedString, GivesItsLastByteForAnIndexOutside) {
  CFixedString<4> sText("abc");
  const char* pStart = sText;
  EXPECT_EQ(sText + 2, pStart + 2);
  for (const int n : {-1, 4, 70000}) EXPECT_EQ(sText + n, pStart + 3) << n;
  const CFixedStringParamRef ref(sText);
  EXPECT_EQ(ref + 65537, pStart + 1);  // 16 bits of the index count
  EXPECT_EQ(ref + 40000, pStart + 3);  // which is negative in 16 bits
}

TEST(FixedStringParamRef, CopiesTheCharactersOfATextButFollowsAnotherReference) {
  CFixedString<4> sFirst("abc");
  CFixedString<8> sSecond("1234567");
  CFixedStringParamRef ref = sFirst;
  EXPECT_EQ(ref.size, 4);
  ref = sSecond;  // a text
  EXPECT_EQ(sFirst, "123");
  ref = CConstFixedStringParamRef("xyz");
  EXPECT_EQ(sFirst, "xyz");
  ref = CFixedStringParamRef(sSecond);  // a reference
  EXPECT_EQ(sFirst, "xyz");
  EXPECT_EQ(ref.size, 8);
  EXPECT_EQ(ref, "1234567");
}

TEST(FixedString, FindsATextFromAStartInsideIt) {
  const CFixedString<9> sText("abcabc");
  const struct {
    const char* szSought;
    std::int32_t nStart;
    std::int32_t nFound;
  } rows[] = {
      {"bc", 0, 1}, {"bc", 2, 4}, {"bc", 5, -1},   {"x", 0, -1},  {"", 0, 6},
      {"", 6, 6},   {"", 7, -1},  {nullptr, 0, 6}, {"a", -1, -1}, {"abcabcabcabc", 0, -1},
  };
  for (const auto& row : rows) EXPECT_EQ(sText.Find(row.szSought, row.nStart), row.nFound);
}

TEST(FixedString, ReplacesAllAsRepeatedDeletingAndInsertingWould) {
  RandomText random;
  for (int nRound = 0; nRound < 30000; ++nRound) {
    const int nSize = random.Number(1, 12);
    const std::string sBefore = random.Text(nSize - 1, "ab");
    const std::string sOld = random.Text(3, "ab");
    const std::string sNew = random.Text(5, "abc");
    std::string sExpected = sBefore;
    int nExpected = 0;
    for (std::size_t n = 0; !sOld.empty();) {
      n = sExpected.find(sOld, n);
      if (n == std::string::npos) break;
      sExpected.replace(n, sOld.size(), sNew);
      if (sExpected.size() >= std::size_t(nSize)) sExpected.resize(std::size_t(nSize) - 1);
      n += sNew.size();
      ++nExpected;
    }
    GuardedBuffer buffer(nSize, sBefore);
    if (nExpected != 0) buffer.Soil();
    EXPECT_EQ(buffer.Ref().ReplaceAll(sOld.c_str(), sNew.c_str()), nExpected);
    ASSERT_EQ(buffer.CleanText(), sExpected) << sBefore << ": " << sOld << " -> " << sNew;
  }
}

TEST(FixedString, IsComparedHashedAndPrintedByItsText) {
  const CFixedString<9> sShort("abc");
  const CPathNameString sPath("abc");
  EXPECT_EQ(sShort, sPath);
  EXPECT_EQ(std::string("abc"), sShort);
  EXPECT_LT(sShort, std::string_view("abd"));
  EXPECT_LT(sShort, "abc\xE9");  // bytes as unsigned numbers
  EXPECT_EQ(std::hash<CPathNameString>()(sPath), std::hash<std::string_view>()("abc"));
  EXPECT_TRUE(std::unordered_set<CFixedString<9>>{sShort}.contains(CFixedString<9>("abc")));
  std::ostringstream out;
  out.width(5);
  out << sShort << sPath;
  EXPECT_EQ(out.str(), "  abcabc");
}

TEST(DynamicHeapFixedString, KeepsItsTextBehindAWordWithItsSize) {
  CDynamicHeapFixedString sText(2048);
  sText = CFixedString<9>("a memo");
  EXPECT_EQ(sText, "a memo");
  EXPECT_EQ(CFixedStringParamRef(sText).size, 2048);
  std::uint32_t nCount = 0;
  std::memcpy(&nCount, sText.buffer - 4, 4);
  EXPECT_EQ(nCount, 2048U);
}

TEST(DynamicHeapFixedString, StaysEmptyWithoutABuffer) {
  for (const std::int32_t nSize : {-1, 0, 100}) {
    FailAllocation(1);
    CDynamicHeapFixedString sText(nSize);
    FailAllocation(0);
    sText = "a memo";
    EXPECT_EQ(sText, "");
    EXPECT_EQ(sText.buffer, nullptr);
  }
}

TEST(Constants, HoldTheSharedTexts) {
  EXPECT_EQ(SZ_TILDAS, std::string(160, '~'));
  EXPECT_EQ(cs14QuestionMarks, std::string(14, '?'));
  EXPECT_EQ(WinAppName, "Alderfell Accounting");
  EXPECT_EQ(CashBasisAccountID, "<Cash Basis>");
  EXPECT_TRUE(Blank.IsEmpty() && szBlank.IsEmpty() && csNotACheck.IsEmpty());
  EXPECT_TRUE(NothingPrinted);
}

}  // namespace
}  // namespace ald
