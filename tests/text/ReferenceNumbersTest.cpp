#include "aldlib/text/ReferenceNumbers.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/text/GuardedBuffer.h"

namespace ald {
namespace {

// A reference taken apart at its last run of digits, the run read as a number.
struct Reference {
  explicit Reference(const std::string& sText) {
    const std::size_t nEnd = sText.find_last_of("0123456789") + 1;
    const std::size_t nStart = sText.substr(0, nEnd).find_last_not_of("0123456789") + 1;
    sBefore = sText.substr(0, nStart);
    sDigits = sText.substr(nStart, nEnd - nStart);
    sBehind = sText.substr(nEnd);
  }
  std::string WithWidth(unsigned long long n) const {
    std::string sNumber = std::to_string(n);
    return std::string(sDigits.size() - std::min(sDigits.size(), sNumber.size()), '0') + sNumber;
  }
  std::string sBefore, sDigits, sBehind;
};

std::string Next(const std::string& sText, std::size_t nRoom) {
  if (sText.empty()) return "";
  Reference reference(sText);
  if (reference.sDigits.empty()) return sText.substr(0, std::min(sText.size(), nRoom - 1)) + "1";
  std::string sNumber = reference.WithWidth(std::stoull(reference.sDigits) + 1);
  if (sNumber.size() > reference.sDigits.size() && sText.size() == nRoom) sNumber.erase(0, 1);
  return reference.sBefore + sNumber + reference.sBehind;
}

std::string Previous(const std::string& sText, std::size_t nRoom) {
  Reference reference(sText);
  if (reference.sDigits.empty()) return (sText + "0").substr(0, nRoom);
  const std::size_t nWidth = reference.sDigits.size();
  const unsigned long long n = std::stoull(reference.sDigits);
  std::string sNumber = n == 0 ? "/" + std::string(nWidth - 1, '9') : reference.WithWidth(n - 1);
  if (nWidth >= 7 && sNumber[0] == '0') {
    sNumber = sNumber.substr(1) + reference.sBehind.substr(0, 1);
  }
  return reference.sBefore + sNumber + reference.sBehind;
}

TEST(ReferenceNumbers, StepAsTheNumberInThemDoes) {
  RandomText random;
  for (int nRound = 0; nRound < 50000; ++nRound) {
    const int nSize = random.Number(1, 14);
    const char* szAlphabet = nRound % 2 == 0 ? "0009999A" : "01589-AB";
    const std::string sText = random.Text(nSize - 1, szAlphabet);
    GuardedBuffer up(nSize, sText);
    GuardedBuffer down(nSize, sText);
    TextIncrement(up.Ref());
    TextDecrement(down.Ref());
    ASSERT_EQ(up.CleanText(), Next(sText, std::size_t(nSize) - 1)) << sText << " in " << nSize;
    ASSERT_EQ(down.CleanText(), Previous(sText, std::size_t(nSize) - 1))
        << sText << " in " << nSize;
  }
}

TEST(TextIncrement, CarriesIntoANewDigitWhenThereIsRoom) {
  const struct {
    const char* szBefore;
    const char* szAfter;
  } rows[] = {{"A99", "A100"},  {"99-B", "100-B"}, {"9", "10"},        {"ABC", "ABC1"},   {"", ""},
              {"12AB", "13AB"}, {"A1B2", "A1B3"},  {"99999", "00000"}, {"ABCDE", "ABCD1"}};
  for (const auto& row : rows) {
    CFixedString<6> sText(row.szBefore);
    TextIncrement(sText);
    EXPECT_EQ(sText, row.szAfter);
  }
}

TEST(TextDecrement, KeepsItsOwnRulesBelowZeroAndForLongNumbers) {
  const struct {
    const char* szBefore;
    const char* szAfter;
  } rows[] = {{"A10", "A09"},
              {"0", "/"},
              {"000", "/99"},
              {"A000", "A/99"},
              {"100", "099"},
              {"1000000", "999999"},
              {"1000000-B", "999999--B"},
              {"0000005", "000004"},
              {"ABC", "ABC0"},
              {"", "0"},
              {"ABCDEFGHIJ", "ABCDEFGHIJ"}};
  for (const auto& row : rows) {
    CFixedString<11> sText(row.szBefore);
    TextDecrement(sText);
    EXPECT_EQ(sText, row.szAfter);
  }
}

}  // namespace
}  // namespace ald
