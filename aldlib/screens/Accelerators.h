#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// The keyboard accelerators in use, with a stack of those that they replaced. The current one is
// looked up by Dispatch and kept with the application's main window as well, whose own class reads
// it there.

ALDLIB_EXPORT AcceleratorHandle GetAccelerator();

// Pushes the current accelerator, makes the given one current and returns the one it replaced.
ALDLIB_EXPORT AcceleratorHandle SetAccelerator(AcceleratorHandle hAccelerator);

// Takes the newest accelerator off the stack, makes it current and returns it. An empty stack
// leaves the current one in place; so does a 0 on the stack, which is gone from there all the same.
ALDLIB_EXPORT AcceleratorHandle RestoreAccelerator();

}  // namespace ald
