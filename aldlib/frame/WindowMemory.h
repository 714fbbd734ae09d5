#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// A small table of memory blocks, each belonging to one window: at most 20 at a time. A window's
// block has an address only between LockMem and UnLockMem; locks count. Creating twice, deleting
// what is not there, and a twenty-first block are bugs of the program and end it; see MemStore.h.

// Gives the window a block of `nSize` zero bytes. Returns 1; or, with no memory, 0 after message
// 20301: the window then has its entry all the same, with no block behind it, and needs DeleteMem.
// A window that has an entry already is misuse (message 20401), and so is a full table (20301).
ALDLIB_EXPORT unsigned char CreateMem(WindowHandle hWindow, std::uint32_t nSize);

// Frees the window's block, locked or not, and removes its entry. If the block cannot be freed the
// entry stays. A window without an entry is misuse (message 20400).
ALDLIB_EXPORT void DeleteMem(WindowHandle hWindow);

// Adds a lock and returns the block's address; null if the window has no entry or no block.
ALDLIB_EXPORT void* LockMem(WindowHandle hWindow);

// Takes one lock off. Does nothing if the window has no entry.
ALDLIB_EXPORT void UnLockMem(WindowHandle hWindow);

// Returns the largest number of entries there have been since the library was loaded, for a program
// that wants to know how near it came to the limit.
ALDLIB_EXPORT std::uint16_t WindowMemoryHighWater();

// The hooks of load and unload: the first clears the table, the second frees the blocks in it.
void StartWindowMemory();
void EndWindowMemory();

}  // namespace ald
