#include <algorithm>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Words.h"
#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/text/Constants.h"
#include "aldlib/text/FixedString.h"
#include "aldlib/text/IntegerText.h"
#include "tools/aldtool/BadLines.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TextFile.h"
#include "tools/aldtool/TypedAmount.h"
#include "tools/aldtool/TypedDate.h"

namespace aldtool {

namespace {

using ald::CDecimal;

struct Cheque {
  ald::DatesType date{};
  std::string_view sPayee;
  CDecimal amount;
  std::uint16_t nParts = 0;
};

// The exact value with two decimals at least: 1250.00, 61.374, 0.000000001.
std::string Money(const CDecimal& value) {
  std::string sText(value.toExactString().view());
  if (sText.find('.') == std::string::npos) sText += '.';
  while (sText.size() - sText.find('.') < 3) sText += '0';
  return sText;
}

// The amount in words, up to the width of a cheque, and the field that is printed beside them.
void PrintCheque(const CDecimal& amount) {
  ald::CFixedString<81> sWords;
  ald::CheckAmountText(amount, sWords, true);
  ald::CFixedString<21> sField(ald::CurrencySign);
  ald::AppendRtoString(sField, amount, 15, ald::kMoneyParentheses);
  std::cout << "       " << ald::Utf8FromCodePage1252(sWords.view()) << "  "
            << ald::Utf8FromCodePage1252(sField.view()) << '\n';
}

std::string ReadAmount(std::string_view sText, CDecimal& amount) {
  if (sText.empty()) return "the amount is missing";
  const std::string sAmount = ald::CodePage1252FromUtf8(sText);
  std::string sTrouble = ReadTypedAmount(sAmount, amount);
  if (sTrouble.empty()) sTrouble = DoubtAbout(sAmount);
  if (sTrouble.empty()) return {};
  return "the amount '" + std::string(sText) + "' " + sTrouble;
}

std::string ReadParts(std::string_view sText, std::uint16_t& nParts) {
  const std::string sParts(sText);
  std::uint16_t nPosition = 0;
  unsigned char bOk = 0;
  const ald::CConstFixedStringParamRef text(sParts.c_str(),
                                            static_cast<std::int32_t>(sParts.size()) + 1);
  ald::StringToCard(text, &nPosition, &nParts, &bOk);
  if (bOk == 0 || nPosition != sParts.size() || nParts == 0) {
    return "the split count '" + sParts + "' is no whole number from 1 to 65535";
  }
  return {};
}

// Where dates are taken from and where they may lie.
struct Days {
  ald::DatesType last{};  // the date of the line before; empty if there was none
  FiscalYears years;      // empty until the first date has been read
};

std::string ReadDate(std::string_view sText, Days& days, ald::DatesType& date) {
  const std::string sTrouble = ReadTypedDate(ald::CodePage1252FromUtf8(sText), days.last, date);
  const std::string sSubject =
      sText.empty() ? "the date " : "the date '" + std::string(sText) + "' ";
  if (!sTrouble.empty()) return sSubject + sTrouble;
  if (days.years.IsEmpty()) days.years = FiscalYears({1, 1, date.year});
  if (days.years.Find(date) == 0) {
    const ald::FromTo range = days.years.Range();
    return sSubject + "lies outside of the fiscal years from " + Iso(range.From) + " to " +
           Iso(range.To);
  }
  days.last = date;
  return {};
}

// Reads "date; payee; amount; split count". Returns what is wrong, or an empty text.
std::string ReadCheque(std::string_view sLine, Days& days, Cheque& cheque) {
  constexpr int kFields = 4;
  std::string_view aFields[kFields];
  int nFields = 0;
  for (std::size_t nStart = 0; nStart <= sLine.size();) {
    const std::size_t nEnd = std::min(sLine.find(';', nStart), sLine.size());
    if (nFields < kFields) aFields[nFields] = Trimmed(sLine.substr(nStart, nEnd - nStart));
    ++nFields;
    nStart = nEnd + 1;
  }
  if (nFields != kFields) {
    return "has " + std::to_string(nFields) + (nFields == 1 ? " field" : " fields") +
           " where date; payee; amount; split count are wanted";
  }
  std::string sTrouble = ReadDate(aFields[0], days, cheque.date);
  cheque.sPayee = aFields[1];
  if (sTrouble.empty() && cheque.sPayee.empty()) sTrouble = "the payee is missing";
  if (sTrouble.empty()) sTrouble = ReadAmount(aFields[2], cheque.amount);
  if (sTrouble.empty()) sTrouble = ReadParts(aFields[3], cheque.nParts);
  return sTrouble;
}

}  // namespace

int RunChecks(const std::string& sPath, const std::string& sStart) {
  TextFile file;
  ReadTextFile(sPath, file);
  if (!file.sTrouble.empty()) {
    std::cerr << "aldtool: " << sPath << ": " << file.sTrouble << '\n';
    return kUnusable;
  }

  Days days;
  if (!sStart.empty()) {
    ald::DatesType start{};
    if (!ReadDateArgument("the start", sStart, {}, start)) return kUnusable;
    days = {start, FiscalYears(start)};
  }

  const auto row = [](auto line, std::string_view sDate, auto period, std::string_view sPayee,
                      std::string_view sAmount, auto parts, std::string_view sShare,
                      std::string_view sTotal) {
    std::cout << std::setw(5) << line << "  " << std::left << std::setw(12) << sDate << std::right
              << std::setw(8) << period << "  " << std::left << std::setw(32) << sPayee
              << std::right << std::setw(24) << sAmount << std::setw(7) << parts << std::setw(26)
              << sShare << std::setw(27) << sTotal;
  };
  CDecimal total;
  int nGood = 0;
  int nBad = 0;
  int nPastTheLimit = 0;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    const std::string_view sLine = Trimmed(file.lines[i]);
    if (sLine.empty() || sLine.front() == '#') continue;
    if (nGood + nBad == 0) {
      row("line", "date", "period", "payee", "amount", "parts", "share", "running total");
      std::cout << '\n';
    }
    Cheque cheque;
    const std::string sTrouble = ReadCheque(sLine, days, cheque);
    if (!sTrouble.empty()) {
      ++nBad;
      std::cout << std::setw(5) << i + 1 << "  ! " << sTrouble << '\n';
      LogBadLine(i + 1, sTrouble);
      continue;
    }
    ++nGood;
    total += cheque.amount;
    const bool bPastTheLimit = ald::IsOverflow(CDecimal::GetLastStatus());
    const CDecimal share = cheque.amount / CDecimal(cheque.nParts);
    row(i + 1, Medium(cheque.date), days.years.Find(cheque.date), cheque.sPayee,
        Money(cheque.amount), cheque.nParts, Money(share), Money(total));
    std::cout << (bPastTheLimit ? " *\n" : "\n");
    PrintCheque(cheque.amount);
    nPastTheLimit += bPastTheLimit ? 1 : 0;
  }

  if (nGood + nBad == 0) {
    std::cerr << "aldtool: " << sPath << ": holds no cheque, only comments and empty lines.\n";
    return kUnusable;
  }
  std::cout << '\n';
  if (nPastTheLimit != 0) {
    std::cout << "* past the limit of " << Money(CDecimal::ms_nMaxValue)
              << " that a stored amount has; the exact value is kept.\n";
  }
  std::cout << "Total of " << nGood << (nGood == 1 ? " cheque: " : " cheques: ") << Money(total)
            << '\n';
  if (nBad != 0) {
    std::cout << nBad << (nBad == 1 ? " line was" : " lines were")
              << " not good and not counted.\n";
  }
  return nBad == 0 ? kGood : kBadLines;
}

}  // namespace aldtool
