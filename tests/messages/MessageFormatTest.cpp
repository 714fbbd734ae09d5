#include "aldlib/messages/MessageFormat.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstdio>
#include <string>
#include <vector>

#include "aldlib/text/FixedString.h"
#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

template <class... Values>
CString Formatted(const char* szFormat, const Values&... values) {
  CFixedString<1024> sOut("before");
  const std::vector<MessageValue> all = {MessageValue(values)...};
  EXPECT_TRUE(FormatMessageText(sOut, szFormat, all)) << szFormat;
  return CString(sOut.view());
}

// What the C library makes of the same, where the values are of the type that it expects.
template <class Value>
CString Printed(const CString& sFormat, Value value) {
  char szOut[2048];
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wformat-nonliteral"
#pragma GCC diagnostic ignored "-Wformat-security"
  std::snprintf(szOut, sizeof szOut, sFormat.c_str(), value);
#pragma GCC diagnostic pop
  return szOut;
}

const char* const kFlags[] = {"", "-", "+", " ", "0", "#", "-0", "+0", " -", "+-#0"};
const char* const kWidths[] = {"", "1", "5", "12"};
const char* const kPrecisions[] = {"", ".", ".0", ".3", ".15"};

TEST(MessageFormat, AgreesWithThePrintfOfTheSystem) {
  for (const CString sFlags : kFlags) {
    for (const char* szWidth : kWidths) {
      for (const char* szPrecision : kPrecisions) {
        const CString sHead = "<%" + sFlags + szWidth + szPrecision;
        for (const char cType : {'d', 'i', 'u', 'x', 'X', 'o'}) {
          const CString sFormat = sHead + cType + ">";
          for (const int nValue : {0, 1, -1, 42, 1234567, INT_MAX, INT_MIN}) {
            ASSERT_EQ(Formatted(sFormat.c_str(), nValue), Printed(sFormat, nValue)) << sFormat;
          }
        }
        const CString sWide = sHead + "lld>";
        for (const long long nValue : {LLONG_MIN, LLONG_MAX}) {
          ASSERT_EQ(Formatted(sWide.c_str(), nValue), Printed(sWide, nValue)) << sWide;
        }
        if (sFlags.find_first_of("0#+") == CString::npos) {  // these mean nothing for a text
          const CString sFormat = sHead + "s>";
          for (const char* szText : {"", "a", "eight ch", "longer than twelve"}) {
            ASSERT_EQ(Formatted(sFormat.c_str(), szText), Printed(sFormat, szText)) << sFormat;
          }
        }
        for (const char cType : {'e', 'f', 'g', 'E', 'F', 'G'}) {
          const CString sFormat = sHead + cType + ">";
          if (sFlags.find('#') != CString::npos) continue;
          for (const double value : {0.0, -0.0, 0.1, -2.5, 12345.678, 1e21, 1e-7, 1e308,
                                     static_cast<double>(INFINITY)}) {
            ASSERT_EQ(Formatted(sFormat.c_str(), value), Printed(sFormat, value)) << sFormat;
          }
        }
      }
    }
  }
}

TEST(MessageFormat, TakesWidthsAndPrecisionsFromValuesAndTextsOfEveryKind) {
  EXPECT_EQ(Formatted("%*d|%-*d|%.*s|%*.*f", 4, 7, 4, 7, 2, "abc", -6, 1, 2.25),
            "   7|7   |ab|2.2   ");
  EXPECT_EQ(Formatted("%*s|", -1, ""), " |");
  EXPECT_EQ(Formatted("%s %s %s %s", CString("heap"), CFixedString<6>("fixed"),
                      std::string_view("view"), static_cast<const char*>(nullptr)),
            "heap fixed view (null)");
  EXPECT_EQ(Formatted("%c%c%c", 'a', 98, '\0'), "ab");
  EXPECT_EQ(Formatted("%d %ld %hd %I64d", 4000000000U, 1LL << 40, -5L, true),
            "4000000000 1099511627776 -5 1");
  EXPECT_EQ(Formatted("100%%, %s", "and more", "left over"), "100%, and more");
}

TEST(MessageFormat, ShowsTheFormatItselfWhereAValueDoesNotFit) {
  const MessageValue aValues[] = {7, "text", 2.5};
  for (const char* szFormat :
       {"%d %s %f %d", "%s",   "%d %d", "%d %s %d", "%d%n", "%n",         "%p",  "%q",
        "100%",        "%",    "%-",    "%5",       "%ls",  "%lc",        "% %", "%d %*s",
        "%.*",         "%hhn", "%a",    "%#f",      "%1$d", "%d %s %f %s"}) {
    CFixedString<64> sOut("before");
    EXPECT_FALSE(FormatMessageText(sOut, szFormat, aValues)) << szFormat;
    EXPECT_EQ(sOut.view(), szFormat);
  }
}

TEST(MessageFormat, StaysInItsBufferWhateverTheWidth) {
  const MessageValue aValues[] = {INT_MIN, "0123456789", 1e308};
  for (int nSize = 0; nSize <= 12; ++nSize) {
    GuardedBuffer buffer(nSize, "");
    FormatMessageText(buffer.Ref(), "%2147483647d%99999999999.5s%.500f", aValues);
    EXPECT_LT(buffer.Text().size(), static_cast<std::size_t>(nSize) + (nSize == 0 ? 1 : 0));
  }
  CFixedString<8> sOut;
  EXPECT_TRUE(FormatMessageText(sOut, "%-9999d", std::span(aValues, 1)));
  EXPECT_EQ(sOut.view(), "-214748");
  EXPECT_FALSE(FormatMessageText({nullptr, 10}, "%d", aValues));
  EXPECT_TRUE(FormatMessageText(sOut, nullptr, {}));
  EXPECT_TRUE(sOut.IsEmpty());
}

}  // namespace
}  // namespace ald
