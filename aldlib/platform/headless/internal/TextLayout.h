#pragma once

#include <string_view>
#include <vector>

#include "aldlib/platform/Types.h"

namespace ald {

// The lines that a text makes, as they are shown, in a font whose characters are all as wide as one
// another. `nRoom` counts the characters of a line for the bits that break at words; a word longer
// than it stands alone. A break at the end of the text begins no further line.
std::vector<CString> LinesOf(std::string_view sText, std::uint32_t nTextBits, std::size_t nRoom);

}  // namespace ald
