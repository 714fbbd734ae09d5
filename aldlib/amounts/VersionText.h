#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"

namespace ald {

// A version text as a whole number of hundredths: "7.2" gives 720 and "12.05" gives 1205. Versions
// 5 and 6 drop their fraction, so "5.1" gives 500: company files of those versions do not differ by
// it. What is no number gives 0; a number that does not fit wraps.
ALDLIB_EXPORT std::int16_t ConvertVersionToCard(const char* szVersion);

}  // namespace ald
