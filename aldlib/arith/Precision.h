#pragma once

#include <cstdint>

#include "aldlib/arith/FixedDecimal.h"
#include "aldlib/platform/Export.h"

// How many decimals money has.
namespace ald {

// Decimals of a money amount, 2 until the regional settings say otherwise.
extern ALDLIB_EXPORT std::uint16_t CurrencyPrecision;

// Half of the last place of a money amount, 0.005 until the regional settings say otherwise. Read
// it through CFixedDecimal<23, 9>::ms_HalfCent.
extern ALDLIB_EXPORT CFixedDecimal<23, 9> g_decHalfCent;

}  // namespace ald
