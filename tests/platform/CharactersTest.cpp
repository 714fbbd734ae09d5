#include "aldlib/platform/Characters.h"

#include <gtest/gtest.h>
#include <iconv.h>
#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace ald {
namespace {

// The C library's own converter, one whole text at a time; nothing if it refuses.
std::optional<std::string> Iconv(const char* szTo, const char* szFrom, std::string sText) {
  const iconv_t converter = iconv_open(szTo, szFrom);
  if (converter == iconv_t(-1)) ADD_FAILURE() << "no converter to " << szTo;
  std::string sResult(sText.size() * 4 + 4, '\0');
  char* pIn = sText.data();
  char* pOut = sResult.data();
  std::size_t nIn = sText.size();
  std::size_t nOut = sResult.size();
  const bool bDone = iconv(converter, &pIn, &nIn, &pOut, &nOut) != static_cast<std::size_t>(-1);
  iconv_close(converter);
  if (!bDone) return std::nullopt;
  sResult.resize(sResult.size() - nOut);
  return sResult;
}

std::string Byte(int n) {
  return std::string(1, static_cast<char>(n));
}

bool HasCharacter(int n) {
  return Iconv("UTF-8", "CP1252", Byte(n)).has_value();
}

// Unicode's own view of the characters of the page, through the C library.
class CharacterClasses : public ::testing::Test {
 protected:
  void SetUp() override { ASSERT_NE(m_locale, nullptr); }
  void TearDown() override { freelocale(m_locale); }

  static wint_t WideOf(int n) {
    const std::string sWide = Iconv("UCS-4LE", "CP1252", Byte(n)).value();
    wint_t ch = 0;
    for (int i = 3; i >= 0; --i) ch = ch * 256 + static_cast<unsigned char>(sWide[std::size_t(i)]);
    return ch;
  }
  // The byte of a wide character, or `nElse` if the page lacks it.
  static int ByteOf(wint_t ch, int nElse) {
    std::string sWide;
    for (int i = 0; i < 4; ++i) sWide += static_cast<char>(ch >> (8 * i));
    const auto sByte = Iconv("CP1252", "UCS-4LE", sWide);
    return sByte ? static_cast<unsigned char>(sByte->at(0)) : nElse;
  }

  locale_t m_locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
};

TEST_F(CharacterClasses, FollowUnicodeInsideTheCodePage) {
  int nUpperCased = 0;
  int nLowerCased = 0;
  for (int n = 0; n < 256; ++n) {
    const auto ch = static_cast<unsigned char>(n);
    if (!HasCharacter(n)) {
      EXPECT_EQ(CharUpper(ch), n);
      EXPECT_EQ(CharLower(ch), n);
      EXPECT_FALSE(IsCharAlphaNumeric(ch)) << n;
      continue;
    }
    const wint_t wide = WideOf(n);
    EXPECT_EQ(CharUpper(ch), ByteOf(towupper_l(wide, m_locale), n)) << n;
    EXPECT_EQ(CharLower(ch), ByteOf(towlower_l(wide, m_locale), n)) << n;
    EXPECT_EQ(IsCharAlpha(ch), iswalpha_l(wide, m_locale) != 0) << n;
    const bool bSuperscript = wide == 0xB2 || wide == 0xB3 || wide == 0xB9;
    EXPECT_EQ(IsCharAlphaNumeric(ch), iswalnum_l(wide, m_locale) != 0 || bSuperscript) << n;
    if (n >= 128) nUpperCased += CharUpper(ch) != ch;
    if (n >= 128) nLowerCased += CharLower(ch) != ch;
  }
  EXPECT_EQ(nUpperCased, 34);
  EXPECT_EQ(nLowerCased, 34);
}

TEST(AsciiClasses, AreThoseOfThePlainLocale) {
  const locale_t plain = newlocale(LC_CTYPE_MASK, "C", nullptr);
  for (int n = 0; n < 256; ++n) {
    const auto ch = static_cast<char>(n);
    EXPECT_EQ(static_cast<unsigned char>(ToUpperAscii(ch)), toupper_l(n, plain)) << n;
    EXPECT_EQ(static_cast<unsigned char>(ToLowerAscii(ch)), tolower_l(n, plain)) << n;
    EXPECT_EQ(IsSpaceAscii(ch), isspace_l(n, plain) != 0) << n;
    EXPECT_EQ(IsDigitAscii(ch), isdigit_l(n, plain) != 0) << n;
  }
  freelocale(plain);
}

TEST(CodePage1252, BecomesUtf8AndComesBackByteForByte) {
  std::string sAll;
  for (int n = 0; n < 256; ++n) {
    sAll += Byte(n);
    const auto sExpected = Iconv("UTF-8", "CP1252", Byte(n));
    const std::string sUtf8 = Utf8FromCodePage1252(Byte(n));
    EXPECT_EQ(sUtf8, sExpected ? *sExpected : Iconv("UTF-8", "ISO-8859-1", Byte(n)).value()) << n;
  }
  EXPECT_EQ(CodePage1252FromUtf8(Utf8FromCodePage1252(sAll)), sAll);
}

TEST(CodePage1252, PutsAQuestionMarkWhereUtf8HasACharacterThatThePageLacks) {
  // Every other character of Unicode, in one text: as many marks come back.
  std::string sWide;
  std::size_t nForeign = 0;
  for (char32_t ch = 0x100; ch <= 0x10FFFF; ++ch) {
    if (ch >= 0xD800 && ch <= 0xDFFF) continue;
    ++nForeign;
    for (int i = 0; i < 4; ++i) sWide += static_cast<char>(ch >> (8 * i));
  }
  const std::string sBytes =
      CodePage1252FromUtf8(Iconv("UTF-8", "UCS-4LE", std::move(sWide)).value());
  EXPECT_EQ(sBytes.size(), nForeign);
  EXPECT_EQ(std::ranges::count(sBytes, '?'), static_cast<std::ptrdiff_t>(nForeign) - 27);
  EXPECT_EQ(CodePage1252FromUtf8("\xC2\x80"), "?");  // a control character that the page lacks
}

TEST(CodePage1252, PutsAQuestionMarkForEachPieceThatIsNotUtf8) {
  const struct {
    std::string_view sText;
    const char* szExpected;
  } rows[] = {
      {"a\x80z", "a?z"},             // a byte that only continues
      {"a\xC3", "a?"},               // cut at the end
      {"a\xC3z", "a?z"},             // the next character stays
      {"\xE2\x82z", "?z"},           // two thirds of a euro sign
      {"\xC0\xAF", "??"},            // a long form of '/'
      {"\xE0\x80\xAF", "???"},       // a longer one
      {"\xED\xA0\x80", "???"},       // half of a surrogate pair
      {"\xF4\x90\x80\x80", "????"},  // beyond Unicode
      {"\xF0\x9F\x98\x80", "?"},     // well formed, and not in the page
      {"\xC3\xA9\xFF\xC3\xA9", "\xE9?\xE9"},
  };
  for (const auto& row : rows) EXPECT_EQ(CodePage1252FromUtf8(row.sText), row.szExpected);
}

}  // namespace
}  // namespace ald
