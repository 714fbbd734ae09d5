#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"

// How many decimals money and quantities have, and what counts as zero.
//
//   const std::int16_t nFormer = SetRealPrecision(4);     // a scoped change
//   ...
//   SetRealPrecision(nFormer);
//
// The settings are plain variables of the process. Those of the region change when the regional
// settings are read, at start and when the system announces a change.
namespace ald {

// Decimals of a money amount, 2 until the regional settings say otherwise.
extern ALDLIB_EXPORT std::uint16_t CurrencyPrecision;

// 10 to the power CurrencyPrecision.
extern ALDLIB_EXPORT CDecimal g_decCurrencyUnit;
// Half of the last place of a money amount, 0.005 with two decimals. Read it through
// CFixedDecimal<23, 9>::ms_HalfCent.
extern ALDLIB_EXPORT CDecimal g_decHalfCent;

// Below these a value counts as zero. The second one is for the application: nothing in the library
// reads it.
extern ALDLIB_EXPORT const CDecimal g_decCutoffIsZero5;  // 0.000005
extern ALDLIB_EXPORT const CDecimal g_decCutoffIsZero7;  // 0.00000005

[[nodiscard]] ALDLIB_EXPORT std::int16_t GetCurrencyPrecision();
// Makes g_decCurrencyUnit and the half-cent follow CurrencyPrecision. Whoever changes it calls this
// next:  2 -> 100, 0.005    3 -> 1000, 0.0005    0 -> 1, 0.5
ALDLIB_EXPORT void UpdateCentRounding();

// Decimals of a quantity or another general number, 2 at first.
[[nodiscard]] ALDLIB_EXPORT std::int16_t GetRealPrecision();
// Returns the former value, for putting it back. Any number is taken; a negative one rounds before
// the point.
ALDLIB_EXPORT std::int16_t SetRealPrecision(std::int16_t nDecimals);

// Whether a number typed without a decimal point has its decimals implied, 0 or 1; 0 at first.
[[nodiscard]] ALDLIB_EXPORT int GetAutoDecimal();
// Stores the flag for this process alone. SetAutoDecimal also keeps it as a preference.
ALDLIB_EXPORT void StoreAutoDecimal(bool bOn);

// True for a value that is less than 0.000005 away from zero.
[[nodiscard]] ALDLIB_EXPORT bool IsEffectivelyZero(const CDecimal& value);

// The error handler from the first reading of the regional settings on. Puts the limit for an
// overflow and zero for an underflow, and returns whether the failure is dealt with: true also for
// a bad or empty text and a division by zero, whose value stays. A null object, another status and
// a call while it is already at work give false and change nothing.
ALDLIB_EXPORT bool IntlErrorHandler(CDecimal* pValue, DEC_STATUS eStatus);

}  // namespace ald
