#pragma once

#include "aldlib/platform/Export.h"

namespace ald {

// The help level is the help topic of what is on the screen. A shown message pushes its own topic
// and pops it again, so a stack that the application leaves balanced stays so. It starts at 0 with
// nothing saved.

// Returns the level, and its negative while a message is on the screen (bInMessage), so that help
// knows whom it serves.
ALDLIB_EXPORT int GetHelpLevel();

// Puts another level in place and returns the old one. What is saved stays as it is.
ALDLIB_EXPORT int SetHelpLevel(int nLevel);

// Saves the level, makes another one current and returns the one saved.
ALDLIB_EXPORT int PushHelpLevel(int nLevel);

// Makes the level that was saved last current again and returns it. With nothing saved the level
// stays as it is and is returned.
ALDLIB_EXPORT int PopHelpLevel();

}  // namespace ald
