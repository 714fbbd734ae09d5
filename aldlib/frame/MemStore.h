#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// The store that the library and its callers take memory from: plain blocks here, blocks keyed by a
// window in WindowMemory.h. Allocate here and free here.
//
// Running out of memory is told to the user by the store (message 20301), so a caller only tests
// for null. While that message is on the screen a further failure just returns null. Misuse is a
// bug of the program: the user sees what went wrong and message 20300, and the process ends with
// the text "Problem detected in MemStore".
//
// Sizes are in bytes. The block layer is as safe between threads as malloc; the rest belongs to the
// main thread.

// Returns a block of `nSize` zero bytes, aligned for any type; null if there is no memory, or if
// the size plus 4 does not fit 32 bits. Size 0 counts as 1. The 32-bit word directly ahead of the
// block holds its size plus 4.
ALDLIB_EXPORT void* _RealAllocate(std::uint32_t nSize);

// Frees a block of _RealAllocate or _RealReAllocate. Null is allowed. Always returns null.
ALDLIB_EXPORT void* _RealDeAllocate(void* pBlock);

// Returns a new block with the old bytes, as many as both sizes have, and zeros behind them; the
// old block is freed. A null block just allocates. On failure returns null and the old block is as
// it was.
ALDLIB_EXPORT void* _RealReAllocate(void* pBlock, std::uint32_t nNewSize);

// _RealAllocate into *ppBlock. Returns 1, or 0 with a null there. The place in the source is not
// used.
ALDLIB_EXPORT int _CppAllocate(void** ppBlock, std::uint32_t nSize, const char* szSourceFile,
                               int nSourceLine);

// _RealReAllocate of *ppOld into *ppBlock. Returns 1, or 0 with a null there. *ppOld keeps the
// freed address unless both are the same pointer, so pass it twice; but then a failure loses the
// old block.
ALDLIB_EXPORT int _CppReAllocate(void** ppOld, void** ppBlock, std::uint32_t nNewSize,
                                 const char* szSourceFile, int nSourceLine);

// Makes a moveable block of zero bytes, stores its handle in *phBlock and returns its locked
// address; null on failure, with the handle 0.
ALDLIB_EXPORT void* _OldAllocate(MemoryHandle* phBlock, std::uint32_t nSize);

// Takes one lock off the block, frees it and makes the handle 0. A block that is still locked after
// that is misuse (message 20402).
ALDLIB_EXPORT void OldDeAllocate(MemoryHandle* phBlock);

// For tests: lets the `nCount`-th allocation from now on fail, of blocks and of handles alike, and
// only that one. 0 lets all of them through again, and so it is from the start.
ALDLIB_EXPORT void FailAllocation(std::uint32_t nCount);

}  // namespace ald
