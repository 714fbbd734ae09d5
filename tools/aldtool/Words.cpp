#include "aldlib/amounts/Words.h"

#include <iostream>
#include <string>

#include "aldlib/platform/Characters.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TypedAmount.h"

namespace aldtool {

int RunWords(const std::string& sTyped) {
  ald::CDecimal amount;
  const std::string sText = ald::CodePage1252FromUtf8(sTyped);
  std::string sTrouble = ReadTypedAmount(sText, amount);
  if (sTrouble.empty()) sTrouble = DoubtAbout(sText);
  if (!sTrouble.empty()) {
    std::cerr << "aldtool: the amount '" << sTyped << "' " << sTrouble << ".\n";
    return kUnusable;
  }
  ald::CFixedString<256> sWords;
  const bool bWritten = ald::CheckAmountText(amount, sWords, false);
  ald::CFixedString<81> sLine;
  ald::CheckAmountText(amount, sLine, true);
  std::cout << ald::Utf8FromCodePage1252(sWords.view()) << '\n'
            << ald::Utf8FromCodePage1252(sLine.view()) << '\n';
  return bWritten ? kGood : kBadLines;
}

}  // namespace aldtool
