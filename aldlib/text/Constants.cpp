#include "aldlib/text/Constants.h"

namespace ald {
namespace {

consteval CFixedString<161> Tildes() {
  CFixedString<161> sTildes;
  for (int i = 0; i < 160; ++i) sTildes[i] = '~';
  return sTildes;
}

}  // namespace

constinit const CFixedString<1> Blank;
constinit CFixedString<1> szBlank;
constinit const CFixedString<2> Space(" ");
constinit CFixedString<2> Comma(",");
constinit CFixedString<2> DecimalPoint(".");
constinit CFixedString<5> CurrencySign("$");
constinit const CFixedString<15> cs14QuestionMarks("??????????????");
constinit const CFixedString<16> CashBasisAccountID("<Cash Basis>");
constinit const CFixedString<161> SZ_TILDAS = Tildes();
constinit const CFixedString<33> WinAppName("Alderfell Accounting");
constinit const CFixedString<9> WinProgName("ALDERW");

constinit bool NothingPrinted = true;
constinit bool bPrintContMsg = false;
constinit bool InRows = false;
constinit bool IsRetainage = false;
constinit std::int32_t BlankLines = 0;
constinit std::int32_t PriorPassBlankLines = 0;
constinit std::int32_t PriorPassNbrBlankLines = 0;

}  // namespace ald
