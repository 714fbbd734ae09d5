#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/dates/DatesType.h"
#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"
#include "aldlib/text/FixedString.h"

// Typed values in the controls of a screen. Each comes in two forms: one takes the control's
// window, the other the parent window and the control's id. A control that is not there reads as
// empty, and setting it does nothing.
namespace ald {

// Copy the control's text, cut to fit, and return its length there; of the text 4002 characters
// are read at most, and a rich text control gives it without carriage returns. The bytes behind the
// text are zero.
ALDLIB_EXPORT int GetWindowTextA(WindowHandle hControl, CFixedStringParamRef out);
ALDLIB_EXPORT int GetDlgItemTextA(WindowHandle hParent, int nId, CFixedStringParamRef out);
ALDLIB_EXPORT int GetWindowTextWithNulls(WindowHandle hControl, CFixedStringParamRef out);
ALDLIB_EXPORT int GetDlgItemTextWithNulls(WindowHandle hParent, int nId, CFixedStringParamRef out);
// The same without the blanks at both ends.
ALDLIB_EXPORT int GetWindowTextTrimmed(WindowHandle hControl, CFixedStringParamRef out);
ALDLIB_EXPORT int GetDlgItemTextTrimmed(WindowHandle hParent, int nId, CFixedStringParamRef out);

// Set the text without the blanks at both ends. Null counts as empty.
ALDLIB_EXPORT void SetWindowTextWithTrim(WindowHandle hControl, const char* szText);
ALDLIB_EXPORT void SetDlgItemTextWithTrim(WindowHandle hParent, int nId, const char* szText);

// Read a typed amount or quantity as MyStringToReal and MyStringToQty do; what is no number is 0.
ALDLIB_EXPORT CDecimal GetWindowDollars(WindowHandle hControl);
ALDLIB_EXPORT CDecimal GetDlgItemDollars(WindowHandle hParent, int nId);
ALDLIB_EXPORT CDecimal GetWindowQty(WindowHandle hControl);
ALDLIB_EXPORT CDecimal GetDlgItemQty(WindowHandle hParent, int nId);

// Read a typed number, without auto decimal. The forms with a pointer store it there, 0 for what is
// no number, and return whether it was one.
ALDLIB_EXPORT CDecimal GetWindowReal(WindowHandle hControl);
ALDLIB_EXPORT CDecimal GetDlgItemReal(WindowHandle hParent, int nId);
ALDLIB_EXPORT int GetWindowReal(WindowHandle hControl, CDecimal* pValue);
ALDLIB_EXPORT int GetDlgItemReal(WindowHandle hParent, int nId, CDecimal* pValue);

// Show money with a leading "-", or a number with that many decimals in at most 20 characters.
ALDLIB_EXPORT void SetWindowDollars(WindowHandle hControl, const CDecimal& value);
ALDLIB_EXPORT void SetDlgItemDollars(WindowHandle hParent, int nId, const CDecimal& value);
ALDLIB_EXPORT void SetWindowReal(WindowHandle hControl, const CDecimal& value,
                                 std::uint16_t nDecimals);
ALDLIB_EXPORT void SetDlgItemReal(WindowHandle hParent, int nId, const CDecimal& value,
                                  std::uint16_t nDecimals);

// Ask a date control for its date (kMessageReadDate). Return 1 if it is a legal one; the date is
// stored in any case. A null date is allowed.
ALDLIB_EXPORT unsigned char GetWindowDate(WindowHandle hControl, DatesType* pDate);
ALDLIB_EXPORT unsigned char GetDlgItemDate(WindowHandle hParent, int nId, DatesType* pDate);

// Hand a date control its date (kMessageWriteDate). A control that does not take it shows a legal
// date in its medium form and any other as nothing, selected if it has the focus.
ALDLIB_EXPORT void SetWindowDate(WindowHandle hControl, DatesType date);
ALDLIB_EXPORT void SetDlgItemDate(WindowHandle hParent, int nId, DatesType date);

// Reads a whole number of at most 21 characters; nothing but a blank may follow it. Without bSigned
// 2,147,483,647 is the largest. *pbOk (null is allowed) tells 1 or 0, and a bad one reads as 0.
ALDLIB_EXPORT int GetWindowInt(WindowHandle hControl, int* pbOk, int bSigned);

// Reads a number between two limits. Returns 0 if it is good. Otherwise returns the control's id:
// the user has been told (message 20500) and the focus is on the control. A control that is not
// there gives the id as well, with no message.
ALDLIB_EXPORT int MyGetDlgItemCard(WindowHandle hParent, int nId, std::uint16_t nLow,
                                   std::uint16_t nHigh, std::uint16_t* pnValue);

// Whether the first five characters of the control are digits and periods and their value is not
// above the maximum. If not, the user is shown one of the two messages. An empty control is 0.
ALDLIB_EXPORT bool IsDlgItemValidPercent(WindowHandle hParent, int nId, std::uint16_t nBadCharacter,
                                         std::uint16_t nBadRange, const CDecimal& maximum);

// Shows an amount without its sign in the debit column if it is above half a cent, in the credit
// column if it is below minus half a cent, and empties the other one. Nothing happens unless both
// controls are there.
ALDLIB_EXPORT void SetDlgDrCr(WindowHandle hParent, const CDecimal& value, int nDebitId,
                              int nCreditId);

}  // namespace ald
