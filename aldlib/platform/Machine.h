#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// What the library asks of the machine itself: moveable memory behind handles, the fault of a
// division by zero, and an end of the process with a text.
//
// A memory block is known by a handle and has an address only while it is locked. Locks count: a
// block stays where it is until each Lock has met its Unlock. A handle that names no live block (0,
// or one freed earlier) is harmless everywhere: it has no address and cannot be unlocked.
class ALDLIB_EXPORT Machine {
 public:
  virtual ~Machine() = default;

  // Makes a block of `nSize` bytes, all zero, with no lock on it. A block of size 0 is legal and
  // has an address of its own. Returns 0 if there is no memory.
  virtual MemoryHandle Allocate(std::uint32_t nSize) = 0;

  // Adds a lock and returns the address of the block, aligned for any type. Null for a handle that
  // names no block.
  virtual void* Lock(MemoryHandle hBlock) = 0;

  // Takes one lock off. Returns true while the block is still locked after that; false when it is
  // unlocked now, was unlocked already, or the handle names no block.
  virtual bool Unlock(MemoryHandle hBlock) = 0;

  // Frees the block whether it is locked or not: a caller who cares looks at Unlock first. Returns
  // 0 on success, and also for handle 0, which needs no freeing. A handle that names no block comes
  // back as it is, and that is the failure.
  virtual MemoryHandle Free(MemoryHandle hBlock) = 0;

  // Makes the fault that dividing the integer 1 by 0 makes on this machine. A process that takes no
  // care of that fault ends here.
  virtual void RaiseDivisionFault() = 0;

  // Shows `szText` on standard error and ends the process at once with exit status 3: nothing is
  // unwound, no exit handler runs. A null text shows nothing.
  [[noreturn]] virtual void FatalExit(const char* szText) = 0;
};

}  // namespace ald
