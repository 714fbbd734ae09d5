#pragma once

#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"
#include "aldlib/platform/WindowTypes.h"
#include "aldlib/text/FixedString.h"

// What payroll reads of the tax information file, "TaxInfo.Dat" in the data folder of the shared
// record, and of "1099info.dat". Both are INI files that people write, and neither is ever written
// here.
//
//   ;VERSION~2003-07                    the first line
//   [General]
//   FilingStatuses=Single,Married       in their order: a status is the place of its name, from 0
//   StateList=QA,QB+QC
//   [Federal]
//   401kLimit=12000.00
//   [QA]                                a state; the fields of StateTaxInfo name its keys
//   SIT=Yes
//   Statefilingstatus=Married,Single
//
// Names of sections and keys are found whatever the case of their letters, filing statuses by their
// exact text. A yes is any value that begins with "y" or "Y".
//
// Each operation that needs the tax file shows message 21051 if it cannot be opened, each time.
// Filing statuses and the list of states are read once, all else anew whenever it is asked for.
// Unloading the library forgets what was read. All of it belongs to the user-interface thread.
//
// Results are 1 for success and 0 for failure where nothing else is said. Null where none is
// allowed is a failure.
namespace ald {

// The longest filing status is kFilingStatusSize - 1 characters; a longer one counts as several.
inline constexpr std::int32_t kFilingStatusSize = 32;
inline constexpr std::int32_t kStateListSize = 512;
// The filing statuses of a file that lists none.
inline constexpr const char* kBuiltInFilingStatuses =
    "Single,Married,Head/Household,Not Required,Married/Jointly,Married/Separately,"
    "Qualifying Widow(er),Married/2 Incomes,Special A,Special B,Special C,Special D,"
    "Special E,Special F,Special G,Special H";

struct FederalTaxInfo {
  CDecimal dec401kLimit;  // "401kLimit"
};

// A state's section, each field named after its key. Flags are 1 or 0. A text has at most one
// character less than its field, and zeros behind it.
struct StateTaxInfo {
  std::int32_t bHasLocalities;
  std::int16_t nSUILimit;  // the low 16 bits of what the file says
  char szLocalities[80];   // there whenever bHasLocalities is
  std::int32_t bSIT;       // state income tax
  std::int32_t bLITPercent;
  std::int32_t bLITAmount;
  std::int32_t bLITEr;  // local tax of the employer
  std::int32_t bSUIEe;  // of the employee
  std::int32_t bSDIEe;
  std::int32_t bSDIEr;
  std::int32_t bSpecial;
  char szSpecialFields[256];
  char szSIT_CAG[32];
  char szSUI_CAG[32];
  char szSDI_CAG[32];
  char szHC_CAG[32];
  char szWF_CAG[32];
  char szSETT_CAG[32];
  char szSUI_ER_CAG[32];
  char szSDI_ER_CAG[32];
  char szHC_ER_CAG[32];
  char szWF_ER_CAG[32];
  char szSETT_ER_CAG[32];
  char szStatefilingstatus[256];  // comma-separated; empty means every status
  char szLocalfilingstatus[256];
};

// The order and width of the fields are fixed.
static_assert(std::is_trivially_copyable_v<StateTaxInfo> &&
              std::is_standard_layout_v<StateTaxInfo>);
static_assert(offsetof(StateTaxInfo, bHasLocalities) == 0 &&
              offsetof(StateTaxInfo, nSUILimit) == 4 && offsetof(StateTaxInfo, szLocalities) == 6 &&
              offsetof(StateTaxInfo, bSIT) == 88 && offsetof(StateTaxInfo, bLITPercent) == 92 &&
              offsetof(StateTaxInfo, bLITAmount) == 96 && offsetof(StateTaxInfo, bLITEr) == 100 &&
              offsetof(StateTaxInfo, bSUIEe) == 104 && offsetof(StateTaxInfo, bSDIEe) == 108 &&
              offsetof(StateTaxInfo, bSDIEr) == 112 && offsetof(StateTaxInfo, bSpecial) == 116 &&
              offsetof(StateTaxInfo, szSpecialFields) == 120 &&
              offsetof(StateTaxInfo, szSIT_CAG) == 376 &&
              offsetof(StateTaxInfo, szSETT_ER_CAG) == 376 + 10 * 32 &&
              offsetof(StateTaxInfo, szStatefilingstatus) == 728 &&
              offsetof(StateTaxInfo, szLocalfilingstatus) == 984 && sizeof(StateTaxInfo) == 1240);
static_assert(sizeof(FederalTaxInfo) == 12);

// Takes the next of a text's parts between commas and moves the cursor behind it. Returns 0, and
// leaves the token alone, at the end of the text. A part that does not fit is not cut: the next
// call goes on inside it.
//   ",a" -> "" and "a"        "a," -> "a"        "abcde" into 4 bytes -> "abc" and "de"
ALDLIB_EXPORT int GetTokenFromLine(const char*& szCursor, CFixedStringParamRef token);

// The name of a filing status. Without a list in the tax file, or without the file, these are the
// built-in ones. A bad index gives 0 and an empty text.
ALDLIB_EXPORT int GetFilingStatus(int nIndex, CFixedStringParamRef status);
// The first filing status of that very name, or -1.
ALDLIB_EXPORT int GetFilingStatusFromText(const char* szStatus);

// The version in the first line of the tax file, at most 8 characters; a shorter one has the end of
// the line, "\n", behind it. "Unknown" with the result 0 if there is no such line.
//   ";VERSION~1234567890" -> "12345678"        ";VERSION~2003" -> "2003\n"
ALDLIB_EXPORT int GetTaxTableVersionInfo(char* szBuffer, std::uint16_t nSize);

// The federal record. The limit is 10000 where the file does not have it, and 0 without the file,
// which is the failure.
ALDLIB_EXPORT int NewGetFederalTaxInfo(FederalTaxInfo* pInfo);

// The captions of the 1099 list box, "Label1" to "Label14" of section "New1099" in "1099info.dat":
// each that is not empty, and a tab behind it. The count is always 0, and the result 1.
//
// The file's name is put right behind the data path of the product INI file, so it lies in that
// folder only if the path ends in a backslash there.
ALDLIB_EXPORT int Get1099ListboxSettings(CString& sCaptions, int& nCount);

// The list of states as it stands in the file. The first call waits up to two seconds for a list
// that is empty, and fails if it stays so or if there is no file. Every later call succeeds with
// what the first one read, which is an empty text after a failure.
ALDLIB_EXPORT int GetStates(CFixedStringParamRef states);

// The record of a state by its two-letter code. A code of another length leaves the record alone;
// otherwise it is cleared first. A section that is missing reads as one without keys. It fails
// without the file, and for a state that has localities but does not name them: the fields behind
// those are clear then.
ALDLIB_EXPORT int NewGetStateTaxInfo(const char* szState, StateTaxInfo* pInfo);

// 1 if the status is one of the state's. A state that lists none, or cannot be read, takes every
// status of the list above.
ALDLIB_EXPORT int StateFilingStatusIsValidForState(const char* szStatus, const char* szState);
ALDLIB_EXPORT int LocalFilingStatusIsValidForState(const char* szStatus, const char* szState);

// The number of the state's first status: -1 if the list above does not have it, 0 if the state
// lists none.
ALDLIB_EXPORT int GetDefaultStateFilingStatus(const char* szState);
ALDLIB_EXPORT int GetDefaultLocalFilingStatus(const char* szState);

// Fills a combo of a screen with the codes of the list of states, in its order, and behind them
// "AA", "AP" and "AE". Without a list the combo is left empty.
ALDLIB_EXPORT void vFillStateCombo(WindowHandle hParent, std::uint16_t nId);

}  // namespace ald
