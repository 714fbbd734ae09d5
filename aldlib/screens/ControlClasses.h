#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// Returns 1 if the control's class is one of the family of edit controls, the host's own kinds
// among them; else 0. Class names are compared in any case.
ALDLIB_EXPORT int IsEdit(WindowHandle hControl);

}  // namespace ald
