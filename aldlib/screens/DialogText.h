#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// Puts a module's text resource into a control. A format, if one is given, is a text with one "%s"
// where the resource goes and "%%" for a per cent sign. Returns 1, or 0 if there is no such control
// or resource.
ALDLIB_EXPORT int LoadLongWindedTextEx(ModuleHandle hModule, WindowHandle hParent, int nId,
                                       std::uint32_t nResource, const char* szType,
                                       const char* szFormat);

}  // namespace ald
