#pragma once

#include "aldlib/platform/Export.h"

namespace ald {

// Whether text may be drawn one unit beyond its rectangle, which the preference `allowlargeclip`
// asks for where a display cuts the edge of characters. Off until ReReadAlderIni has read it.
ALDLIB_EXPORT bool IsLargeClipAllowed();
ALDLIB_EXPORT void AllowLargeClip(bool bAllow);

}  // namespace ald
