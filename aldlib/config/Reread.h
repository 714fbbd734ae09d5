#pragma once

#include "aldlib/platform/Export.h"

// Copies settings into the exported variables that the rest of the library reads. All of it belongs
// to the user-interface thread.
namespace ald {

// Reads the regional settings of the system's profile, section "intl", each with its current value
// as the default:
//
//   "sDate" into the separator of dates, its first character, and "iDate" into their order; sets
//   the bounds that steps of a date stop at; "sDecimal" into DecimalPoint and "sThousand" into
//   Comma, the first character of each; "iCurrDigits" into CurrencyPrecision, and what follows from
//   it; and puts IntlErrorHandler in the place of the error handler that was there
//
// The library runs it when it loads. An application runs it again when the system announces that
// the settings have changed.
ALDLIB_EXPORT void ReReadWinIni();

// Reads the data folder of the product INI file into the shared record, with a backslash at its end
// if there is room for one; a missing setting leaves the former folder. Then the preferences
// `autodecimal` and `allowlargeclip` of group Options, both off if they are not set.
//
//   DATAPATH=C:\BOOKS -> C:\BOOKS\        DATAPATH=C:\BOOKS\ -> C:\BOOKS\        no key -> as
//   before
ALDLIB_EXPORT void ReReadAlderIni();

// Stores whether a number typed without a decimal point has its decimals implied (0: no), and keeps
// it as the preference `autodecimal` of group Options. A store that does not open is no failure:
// the setting then lasts as long as the process. GetAutoDecimal reads it.
ALDLIB_EXPORT void SetAutoDecimal(int nAutoDecimal);

}  // namespace ald
