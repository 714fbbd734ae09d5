#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// The short texts that every module of the application shares, and the page state of its reports.
// All are ready before any code runs.
namespace ald {

extern ALDLIB_EXPORT const CFixedString<1> Blank;  // ""
extern ALDLIB_EXPORT CFixedString<1> szBlank;      // "", for callers that want a writable text
extern ALDLIB_EXPORT const CFixedString<2> Space;  // " "

// The separators of numbers: "," and "." until ReReadWinIni reads the regional settings. An empty
// one means that numbers carry no such separator.
extern ALDLIB_EXPORT CFixedString<2> Comma;
extern ALDLIB_EXPORT CFixedString<2> DecimalPoint;

extern ALDLIB_EXPORT CFixedString<5> CurrencySign;               // "$"
extern ALDLIB_EXPORT const CFixedString<15> cs14QuestionMarks;   // a number too long for its field
extern ALDLIB_EXPORT const CFixedString<16> CashBasisAccountID;  // "<Cash Basis>"
extern ALDLIB_EXPORT const CFixedString<161> SZ_TILDAS;          // 160 tildes
extern ALDLIB_EXPORT const CFixedString<33> WinAppName;          // "Alderfell Accounting"
extern ALDLIB_EXPORT const CFixedString<9> WinProgName;          // "ALDERW"

// Storage that the library offers to the application's report code, and neither reads nor writes.
extern ALDLIB_EXPORT bool NothingPrinted;  // true at the start
extern ALDLIB_EXPORT bool bPrintContMsg;   // the others false or 0
extern ALDLIB_EXPORT bool InRows;
extern ALDLIB_EXPORT bool IsRetainage;
extern ALDLIB_EXPORT std::int32_t BlankLines;
extern ALDLIB_EXPORT std::int32_t PriorPassBlankLines;
extern ALDLIB_EXPORT std::int32_t PriorPassNbrBlankLines;

}  // namespace ald
