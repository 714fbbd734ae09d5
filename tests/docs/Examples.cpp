#include "tests/docs/Examples.h"

#include <cstdio>
#include <iostream>

namespace docs_test {

namespace {

int g_nHeld = 0;
int g_nWrong = 0;

}  // namespace

std::string ShowBytes(const std::uint8_t* pBytes, std::size_t nBytes) {
  std::string sText;
  for (std::size_t i = 0; i < nBytes; ++i) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    if (i != 0) sText += ' ';
    sText += kDigits[pBytes[i] >> 4];
    sText += kDigits[pBytes[i] & 0xF];
  }
  return sText;
}

std::string ShowText(std::string_view sText, char cQuote) {
  std::string sShown(1, cQuote);
  for (const char c : sText) {
    const auto nByte = static_cast<std::uint8_t>(c);
    if (c == '\n') {
      sShown += "\\n";
    } else if (c == '\r') {
      sShown += "\\r";
    } else if (c == '\t') {
      sShown += "\\t";
    } else if (nByte < ' ' || nByte > '~') {
      sShown += "\\x" + ShowBytes(&nByte, 1);
    } else {
      if (c == cQuote || c == '\\') sShown += '\\';
      sShown += c;
    }
  }
  return sShown + cQuote;
}

void Check(const char* szPage, int nLine, const char* szStatement, const std::string& sGiven,
           const std::string& sStated) {
  if (sGiven == sStated) {
    ++g_nHeld;
    return;
  }
  ++g_nWrong;
  std::printf("%s:%d: %s\n  gives %s, not %s\n", szPage, nLine, szStatement, sGiven.c_str(),
              sStated.c_str());
}

void CheckProgram(const char* szPage, int nLine, void (*pfnProgram)(), const std::string& sStated) {
  std::ostringstream printed;
  std::streambuf* const pBefore = std::cout.rdbuf(printed.rdbuf());
  pfnProgram();
  std::cout.rdbuf(pBefore);
  Check(szPage, nLine, "the program", ShowText(printed.str()), ShowText(sStated));
}

}  // namespace docs_test

int main() {
  docs_test::RunExamples();
  std::printf("%d results hold, %d are wrong.\n", docs_test::g_nHeld, docs_test::g_nWrong);
  return docs_test::g_nWrong == 0 ? 0 : 1;
}
