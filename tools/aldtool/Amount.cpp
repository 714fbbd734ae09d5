#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>

#include "aldlib/amounts/Format.h"
#include "aldlib/amounts/Parse.h"
#include "aldlib/amounts/Words.h"
#include "aldlib/arith/Precision.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/text/Constants.h"
#include "aldlib/text/Justify.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TypedAmount.h"

namespace aldtool {

namespace {

using ald::CDecimal;

// The library's texts are of one byte a character; a terminal wants UTF-8.
void Line(const char* szWhat, std::string_view sText, const char* szNote = "") {
  std::cout << "  " << std::left << std::setw(34) << szWhat << ald::Utf8FromCodePage1252(sText)
            << szNote << '\n';
}

void ShowSettings() {
  const auto quoted = [](const ald::CFixedString<2>& sSeparator) {
    return sSeparator.IsEmpty() ? std::string("none")
                                : '\'' + ald::Utf8FromCodePage1252(sSeparator.view()) + '\'';
  };
  std::cout << "Settings: decimal separator " << quoted(ald::DecimalPoint)
            << ", thousands separator " << quoted(ald::Comma) << ", " << ald::GetCurrencyPrecision()
            << " decimals for money, " << ald::GetRealPrecision()
            << " for quantities, auto decimal " << (ald::GetAutoDecimal() != 0 ? "on" : "off")
            << '\n';
}

void ShowReadings(const std::string& sText) {
  const struct {
    const char* szName;
    unsigned char (*pfnRead)(const char*, CDecimal*);
  } readings[] = {
      {"money (MyStringToReal)", &ald::MyStringToReal},
      {"quantity (MyStringToQty)", &ald::MyStringToQty},
      {"plain number (...WithNoExtras)", &ald::MyStringToRealWithNoExtras},
  };
  std::cout << "Read as\n";
  for (const auto& reading : readings) {
    CDecimal value;
    const bool bOk = reading.pfnRead(sText.c_str(), &value) != 0;
    Line(reading.szName, bOk ? value.toExactString().view() : "refused");
  }
}

void ShowTexts(const CDecimal& amount) {
  const auto field = [](auto write) {
    ald::CFixedString<46> sField;
    write(sField);
    return sField;
  };
  std::cout << "Written as\n";
  Line("money, '-' (DollarsToString)", amount.FormatDollars('-').view());
  Line("money, '('", amount.FormatDollars('(').view());
  Line("money, ' '", amount.FormatDollars(' ').view());
  Line("field of 20 (MyRealToString)",
       '[' + std::string(field([&](auto& sField) {
                           ald::MyRealToString(amount, sField, ald::CurrencyPrecision, 20);
                         }).view()) +
           ']');
  Line("field of 10", '[' + std::string(field([&](ald::CFixedString<46>& sField) {
                                          const ald::CFixedStringParamRef ref(sField, 11);
                                          ald::AppendRtoString(ref, amount, 10, '-');
                                        }).view()) +
                          ']');
  Line("no separators", field([&](auto& sField) {
                          ald::MyDoubleToStringNoCommas(&amount, sField,
                                                        ald::GetCurrencyPrecision());
                        }).view());
  ald::CFixedString<46> sQuantity = amount.FormatQty(-1);
  ald::TrimLeft(sQuantity);
  Line("quantity (FormatQty)", sQuantity.view());
  Line("exactly", amount.toExactString().view());
  ald::CFixedString<256> sWords;
  ald::CheckAmountText(amount, sWords, false);
  Line("words (CheckAmountText)", sWords.view());
}

}  // namespace

int RunAmount(const std::string& sTyped) {
  const std::string sText = ald::CodePage1252FromUtf8(sTyped);
  CDecimal amount;
  const std::string sTrouble = ReadTypedAmount(sText, amount);
  if (!sTrouble.empty()) {
    std::cerr << "aldtool: the amount '" << sTyped << "' " << sTrouble << ".\n";
    return kUnusable;
  }
  ShowSettings();
  ShowReadings(sText);
  ShowTexts(amount);
  const std::string sDoubt = DoubtAbout(sText);
  if (!sDoubt.empty()) std::cout << "Beware: the text " << sDoubt << ".\n";
  return kGood;
}

}  // namespace aldtool
