#include "aldlib/amounts/Words.h"

#include <algorithm>
#include <cstring>
#include <string_view>

#include "aldlib/arith/DecimalLiteral.h"
#include "aldlib/text/Constants.h"
#include "aldlib/text/ResourceStrings.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {

using namespace literals;

namespace {

constexpr std::uint32_t kOnes = 20600;  // "Zero" to "Nineteen"
constexpr std::uint32_t kTens = 20620;  // a heading, then "Ten" to "Ninety"
constexpr std::uint32_t kAnd = 20630;
constexpr std::uint32_t kDollars = 20631;
constexpr std::uint32_t kHundred = 20633;
constexpr std::uint32_t kThousand = 20634;  // then "Million" and "Billion"
constexpr std::uint32_t kOverHundred = 20637;
constexpr std::uint32_t kVoid = 20638;

constexpr int kGroups = 4;
constexpr CDecimal kTooManyGroups = 1'000'000'000'000_dec;

// Appends to a fixed text, cuts at its end, and knows whether anything was lost.
class Phrase {
 public:
  explicit Phrase(CFixedStringParamRef out) : m_out(out) { m_out.Clear(); }

  void Append(std::string_view sText) {
    const std::size_t nRoom = HasRoom(m_out) ? Bytes(m_out.size - 1) - m_nLength : 0;
    const std::string_view sFitting = sText.substr(0, nRoom);
    if (!sFitting.empty()) std::memcpy(m_out.buffer + m_nLength, sFitting.data(), sFitting.size());
    m_nLength += sFitting.size();
    if (sText.find_first_not_of(' ', nRoom) != std::string_view::npos) m_bWhole = false;
  }
  void AppendWord(std::uint32_t nNumber) {
    CFixedString<11> sWord;
    if (MyLoadString(nNumber, sWord) == 0) m_bWhole = false;
    Append(sWord.view());
  }
  void AppendGroup(std::uint16_t nNumber) {
    CFixedString<40> sGroup;
    Phrase group(sGroup);
    group.AppendNumber(nNumber);
    m_bWhole = m_bWhole && group.m_bWhole;
    Append(sGroup.view());
  }
  void AppendNumber(std::uint16_t nNumber) {
    const std::uint32_t nHundreds = nNumber / 100U;
    const std::uint32_t nRest = nNumber % 100U;
    if (nHundreds > 0) {
      AppendWord(kOnes + nHundreds);
      Append(Space);
      AppendWord(kHundred);
    }
    if (nRest == 0) return;
    if (nHundreds > 0) Append(Space);
    if (nRest <= 19) {
      AppendWord(kOnes + nRest);
      return;
    }
    AppendWord(kTens + nRest / 10);
    if (nRest % 10 > 0) {
      Append("-");
      AppendWord(kOnes + nRest % 10);
    }
  }
  void FillWithAsterisks() {
    while (HasRoom(m_out) && m_nLength < Bytes(m_out.size - 1)) m_out.buffer[m_nLength++] = '*';
  }
  // All that was appended is there, but for blanks at the end, and no word was missing.
  bool IsWhole() const { return m_bWhole; }

 private:
  CFixedStringParamRef m_out;
  std::size_t m_nLength = 0;
  bool m_bWhole = true;
};

// Group 0 holds the units, 3 the billions.
std::uint16_t GroupOf(const CDecimal& amount, int nGroup) {
  const int nUnits = CDecimal::kDecimals + 3 * nGroup;
  return static_cast<std::uint16_t>(100 * amount.GetDigit(nUnits + 2) +
                                    10 * amount.GetDigit(nUnits + 1) + amount.GetDigit(nUnits));
}

bool IsBelowOne(const CDecimal& amount) {
  int nDigit = CDecimal::kDecimals;
  while (nDigit < CDecimal::kDigits && amount.GetDigit(nDigit) == 0) ++nDigit;
  return nDigit == CDecimal::kDigits;
}

bool WriteAmount(const CDecimal& amount, const CFixedStringParamRef& out, bool bFill) {
  Phrase phrase(out);
  if (IsBelowOne(amount)) {
    phrase.AppendWord(kOnes);
    phrase.Append(Space);
  } else if (!amount.IsNegative()) {
    for (int nGroup = kGroups - 1; nGroup >= 0; --nGroup) {
      const std::uint16_t nNumber = GroupOf(amount, nGroup);
      if (nNumber == 0) continue;
      phrase.AppendGroup(nNumber);
      phrase.Append(Space);
      if (nGroup == 0) continue;
      phrase.AppendWord(kThousand + static_cast<std::uint32_t>(nGroup) - 1);
      phrase.Append(Space);
    }
  }
  phrase.AppendWord(kAnd);
  phrase.Append(Space);
  // Two characters wide with the sign in, as "%02i" has it: "05", "-5", "-56".
  const int nTenths = amount.GetDigit(CDecimal::kDecimals - 1);
  const int nHundredths = amount.GetDigit(CDecimal::kDecimals - 2);
  const bool bSign = amount.IsNegative() && nTenths + nHundredths > 0;
  if (bSign) phrase.Append("-");
  const char aDigits[] = {static_cast<char>('0' + nTenths), static_cast<char>('0' + nHundredths)};
  phrase.Append(std::string_view(aDigits, 2).substr(bSign && nTenths == 0 ? 1 : 0));
  phrase.AppendWord(kOverHundred);
  phrase.Append(Space);
  if (bFill) {
    phrase.Append(Space);
    phrase.FillWithAsterisks();
  } else {
    phrase.AppendWord(kDollars);
  }
  return phrase.IsWhole();
}

void WriteVoid(const CFixedStringParamRef& out, bool bFill) {
  Phrase phrase(out);
  phrase.AppendWord(kVoid);
  if (!phrase.IsWhole()) {
    if (HasRoom(out)) std::memset(out.buffer, '?', Bytes(out.size - 1));
    return;
  }
  if (!bFill) return;
  phrase.Append(Space);
  phrase.Append(Space);
  phrase.FillWithAsterisks();
}

}  // namespace

void ThreeDigitsToWords(std::uint16_t nNumber, CFixedStringParamRef out) {
  Phrase phrase(out);
  if (nNumber <= 999) phrase.AppendNumber(nNumber);
}

void AmountToWords(const CDecimal& amount, CFixedStringParamRef out, bool bFill) {
  WriteAmount(amount, out, bFill);
}

bool CheckAmountText(const CDecimal& amount, CFixedStringParamRef out, bool bFill) {
  CDecimal magnitude(amount);
  magnitude.SetPositive();
  // Compared before it is rounded: no rounding past the limit, of which a handler would hear.
  bool bWritable = magnitude < kTooManyGroups;
  if (bWritable) bWritable = magnitude.Round(2) < kTooManyGroups;
  if (bWritable && WriteAmount(magnitude, out, bFill)) return true;
  WriteVoid(out, bFill);
  return false;
}

}  // namespace ald
