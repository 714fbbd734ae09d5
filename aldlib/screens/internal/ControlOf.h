#pragma once

#include "aldlib/platform/Platform.h"

namespace ald {

inline Windows& CurrentWindows() {
  return CurrentPlatform().desktop.windows;
}

// The control of a screen; 0 if it has none of that id.
inline WindowHandle ControlOf(WindowHandle hParent, int nId) {
  return CurrentWindows().Child(hParent, nId);
}

}  // namespace ald
