#pragma once

#include <cstdint>
#include <functional>
#include <string_view>
#include <vector>

#include "aldlib/platform/Types.h"

namespace ald {

using TextMeasure = std::function<std::int32_t(std::string_view)>;

// The lines that a text makes, as they are shown. `nRoom` is the width of a line, in the terms of
// the measure, for the bits that break at words; a word wider than it stands alone. A break at the
// end of the text begins no further line.
std::vector<CString> LinesOf(std::string_view sText, std::uint32_t nTextBits, std::int32_t nRoom,
                             const TextMeasure& widthOf);

}  // namespace ald
