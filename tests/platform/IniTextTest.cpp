#include "aldlib/platform/IniText.h"

#include <gtest/gtest.h>

#include <random>

namespace ald {
namespace {

CString ReadString(const CString& sText, const char* szSection, const char* szKey,
                   const char* szDefault = "DEFAULT") {
  const IniText text(sText);
  const IniText* const aTexts[] = {&text};
  char szBuffer[64];
  const std::uint32_t nLength =
      ReadIniString(aTexts, szSection, szKey, szDefault, szBuffer, sizeof szBuffer);
  EXPECT_EQ(szBuffer[nLength], '\0');
  return CString(szBuffer, nLength);
}

std::uint32_t ReadInt(const CString& sText, std::int32_t nDefault) {
  const IniText text(sText);
  const IniText* const aTexts[] = {&text};
  return ReadIniInt(aTexts, "s", "k", nDefault);
}

TEST(IniText, AnswersByTheClassicRules) {
  const struct {
    const char* szText;
    const char* szValue;
  } rows[] = {
      {"[s]\nk=value", "value"},
      {"[S]\r\nK=value\r\n", "value"},
      {"\xEF\xBB\xBF[s]\nk=value", "value"},
      {"\t [ s ] \n \t k \t=\t value \n", "value"},
      {"[s] ; of no account\nk=value", "value"},
      {"[a]b]\nk=no\n[s]\nk=value", "value"},
      {"[s]\nk=a=b;c [d]", "a=b;c [d]"},
      // Quotes: one pair, and only first and last.
      {"[s]\nk=\" value \"", " value "},
      {"[s]\nk=' value '", " value "},
      {"[s]\nk=\"\"value\"\"", "\"value\""},
      {"[s]\nk=\"value'", "\"value'"},
      {"[s]\nk=a \"value\"", "a \"value\""},
      {"[s]\nk=\"", "\""},
      {"[s]\nk=\"\"", ""},
      // The first of two wins, sections as well as keys.
      {"[s]\nk=value\nK=later", "value"},
      {"[s]\nother=1\n[t]\n[S]\nk=later", "DEFAULT"},
      // What is no value.
      {"[s]\nk=", ""},
      {"[s]\nk", "DEFAULT"},
      {"[s]\n;k=value", "DEFAULT"},
      {"[s]\n  ;k=value", "DEFAULT"},
      {"[s]\nkk=value", "DEFAULT"},
      {"k=value", "DEFAULT"},
      {"[t]\nk=value", "DEFAULT"},
      {"[s\nk=value", "DEFAULT"},
      {"", "DEFAULT"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ReadString(row.szText, "s", "k"), row.szValue) << row.szText;
  EXPECT_EQ(ReadString("[\xC4]\n\xDC=value", "\xE4", "\xFC"), "value");
  EXPECT_EQ(ReadString(CString("[s]\0k=value", 11), "s", "k"), "value");
}

TEST(IniText, TrimsTheEndOfADefaultAlone) {
  EXPECT_EQ(ReadString("", "s", "k", "  two  "), "  two");
  EXPECT_EQ(ReadString("", "s", "k", "   "), "");
  EXPECT_EQ(ReadString("", "s", "k", nullptr), "");
}

TEST(IniText, CutsAtTheBufferAndEndsListsTwice) {
  const IniText text("[one]\nab=1\ncd\nef=2\nAB=3\n=4\n[two]\n[one]\ngh=5\n[]\n");
  const IniText* const aTexts[] = {&text};
  const struct {
    const char* szSection;
    const char* szKey;
    std::uint32_t nSize;
    CString sBuffer;  // all that is written
    std::uint32_t nResult;
  } rows[] = {
      {"one", "zz", 8, CString("default\0", 8), 7},
      {"one", "zz", 5, CString("defa\0", 5), 4},
      {"one", "zz", 1, CString("\0", 1), 0},
      {"one", "zz", 0, "", 0},
      {"one", nullptr, 16, CString("ab\0ef\0AB\0\0", 10), 9},
      {"one", nullptr, 10, CString("ab\0ef\0AB\0\0", 10), 9},
      {"one", nullptr, 9, CString("ab\0ef\0A\0\0", 9), 7},
      {"one", nullptr, 3, CString("a\0\0", 3), 1},
      {"one", nullptr, 2, CString("\0\0", 2), 0},
      {"one", nullptr, 1, CString("\0", 1), 0},
      {"two", nullptr, 8, CString("\0\0", 2), 0},
      {"none", nullptr, 16, CString("default\0\0", 9), 8},
      {nullptr, "ab", 16, CString("one\0two\0one\0\0", 13), 12},
      {nullptr, nullptr, 6, CString("one\0\0\0", 6), 4},
  };
  for (const auto& row : rows) {
    CString sBuffer(16, '#');
    SCOPED_TRACE(testing::Message() << "row " << &row - rows);
    EXPECT_EQ(ReadIniString(aTexts, row.szSection, row.szKey, "default", sBuffer.data(), row.nSize),
              row.nResult);
    EXPECT_EQ(sBuffer, row.sBuffer + CString(16 - row.sBuffer.size(), '#'));
  }
  EXPECT_EQ(ReadIniString(aTexts, "one", "ab", "default", nullptr, 16), 0U);
}

TEST(IniText, ReadsTheNumberAtTheStartOfAValue) {
  const struct {
    const char* szValue;
    std::uint32_t nNumber;
  } rows[] = {
      {"12", 12},
      {"12 months", 12},
      {"+7", 7},
      {"-1", 4294967295U},
      {"0x1F", 31},
      {"0XfFg", 255},
      {"-0x10", 4294967280U},
      {"\" 5\"", 5},
      {"4294967297", 1},
      {"007", 7},
      {"on", 0},
      {"-", 0},
      {"0x", 0},
      {"1,5", 1},
      {"", 99},
      {"\"\"", 99},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(ReadInt(CString("[s]\nk=") + row.szValue, 99), row.nNumber) << row.szValue;
  }
  EXPECT_EQ(ReadInt("[s]\nk", 99), 99U);
  EXPECT_EQ(ReadInt("", -2), 4294967294U);
}

TEST(IniText, AsksOneTextAfterTheOther) {
  const IniText first("[s]\na=1\n[t]\nx=1");
  const IniText second("[S]\nA=2\nb=2\n[u]\n");
  const IniText* const aTexts[] = {nullptr, &first, &second};
  char szBuffer[16];
  const auto read = [&](const char* szSection, const char* szKey) {
    return CString(szBuffer, ReadIniString(aTexts, szSection, szKey, "", szBuffer, 16));
  };
  EXPECT_EQ(read("s", "a"), "1");
  EXPECT_EQ(read("s", "b"), "2");
  EXPECT_EQ(read("s", nullptr), CString("a\0b\0", 4));
  EXPECT_EQ(read(nullptr, nullptr), CString("s\0t\0u\0", 6));
}

TEST(IniText, TakesAnyTextWithoutHarm) {
  std::mt19937 random(20030415);
  const CString sAlphabet("[]=;\"' \n\r\0ska\xFF", 14);
  for (int nRound = 0; nRound < 20000; ++nRound) {
    CString sText;
    for (auto nLength = random() % 40; nLength > 0; --nLength) {
      sText += sAlphabet[random() % sAlphabet.size()];
    }
    const IniText text(sText);
    const IniText* const aTexts[] = {&text};
    const auto nSize = static_cast<std::uint32_t>(random() % 12);
    CString sBuffer(nSize, '#');
    for (const char* szSection : {"s", "", static_cast<const char*>(nullptr)}) {
      for (const char* szKey : {"k", "", static_cast<const char*>(nullptr)}) {
        const auto nLength = ReadIniString(aTexts, szSection, szKey, "d", sBuffer.data(), nSize);
        ASSERT_LE(nLength + (nSize > 0 ? 1 : 0), nSize) << "round " << nRound;
        ReadIniInt(aTexts, szSection, szKey, 1);
      }
    }
    // Every key that is listed can be read.
    for (const std::string_view sSection : text.Sections()) {
      ASSERT_NE(text.Keys(sSection), nullptr);
      for (const std::string_view sKey : *text.Keys(sSection)) {
        ASSERT_TRUE(text.Find(sSection, sKey).has_value()) << "round " << nRound;
      }
    }
  }
}

}  // namespace
}  // namespace ald
