#include "tools/aldtool/TypedDate.h"

#include <algorithm>
#include <cstddef>
#include <iostream>
#include <iterator>

#include "aldlib/dates/DateText.h"
#include "aldlib/platform/Characters.h"

namespace aldtool {

namespace {

using ald::DatesType;

constexpr std::size_t kMostCharacters = 59;

// "12/3": a zero is put before it, so that the month is 1, the day 2, and the 3 counts for nothing.
bool LosesItsLastDigit(const std::string& sText) {
  return sText.size() == 4 && ald::IsDigitAscii(sText[0]) && ald::IsDigitAscii(sText[1]) &&
         !ald::IsDigitAscii(sText[2]) && ald::IsDigitAscii(sText[3]);
}

}  // namespace

std::string ReadTypedDate(const std::string& sText, DatesType fill, DatesType& date) {
  date = {};
  if (sText.find_first_not_of(' ') == std::string::npos) return "is missing";
  if (sText.size() > kMostCharacters) {
    return "is longer than " + std::to_string(kMostCharacters) + " characters";
  }
  if (sText.find('-') == 4 && ald::IsoStrToDate(sText, date)) return {};
  if (LosesItsLastDigit(sText)) {
    return "would be read as '0" + sText.substr(0, 1) + sText.substr(2, 1) + "0" +
           sText.substr(1, 1) + "': give the second number two digits";
  }
  if (std::any_of(sText.begin(), sText.end(), [](char ch) { return ald::IsCharAlpha(ch); })) {
    ald::MedStrToDate(sText.c_str(), date);
  } else {
    ald::ShortStrToDate(sText.c_str(), date, fill);
  }
  if (ald::IsLegalDate(date) != 0) return {};
  if (ald::IsLegalDate(fill) == 0) {
    DatesType filled{};
    ald::ShortStrToDate(sText.c_str(), filled, {1, 1, 2000});
    if (ald::IsLegalDate(filled) != 0)
      return "is not complete, and there is no date to take the rest from";
  }
  return "is no day of the calendar from 1901 to 2099";
}

bool ReadDateArgument(const char* szWhat, const std::string& sTyped, DatesType fill,
                      DatesType& date) {
  const std::string sTrouble = ReadTypedDate(ald::CodePage1252FromUtf8(sTyped), fill, date);
  if (sTrouble.empty()) return true;
  std::cerr << "aldtool: " << szWhat << " '" << sTyped << "' " << sTrouble << ".\n";
  return false;
}

void UseDateOrder(const std::string& sOrder) {
  if (sOrder == "mdy") ald::SetDateOrder(ald::DateOrderMDY);
  if (sOrder == "dmy") ald::SetDateOrder(ald::DateOrderDMY);
  if (sOrder == "ymd") ald::SetDateOrder(ald::DateOrderYMD);
}

std::string Iso(DatesType date) {
  ald::CFixedString<11> sText;
  ald::DateToIsoStr(date, sText);
  return std::string(sText.view());
}

std::string Medium(DatesType date) {
  ald::CFixedString<16> sText;
  ald::DateToMedStr(date, sText);
  return ald::Utf8FromCodePage1252(sText.view());
}

FiscalYears::FiscalYears(const DatesType& start) {
  ald::CalculateCustomAccountingPeriods(m_aPeriods, kPeriods, start);
}

int FiscalYears::Find(DatesType date) const {
  const auto* const pFound = std::find_if(
      std::begin(m_aPeriods), std::end(m_aPeriods),
      [date](const ald::FromTo& period) { return ald::DateInRange(period, date) == 0; });
  return pFound == std::end(m_aPeriods) ? 0 : static_cast<int>(pFound - m_aPeriods) + 1;
}

}  // namespace aldtool
