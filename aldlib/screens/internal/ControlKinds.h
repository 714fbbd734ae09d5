#pragma once

#include "aldlib/platform/WindowTypes.h"

namespace ald {

// What the class of a control says about how it is treated.
bool CarriesMnemonic(WindowHandle hControl);  // a letter behind "&" reaches it
bool IsCombo(WindowHandle hControl);
bool KeepsBoldFont(WindowHandle hControl);
bool IsRichText(WindowHandle hControl);

}  // namespace ald
