#pragma once

#include <cstdint>

#include "aldlib/platform/Files.h"

// Sharing and locked ranges over the record locks of the kernel. The story is told in the source.
namespace ald {

// Makes an open known to all others that use the library, if it suits them and they suit it. Good
// until the open file description is closed. Returns 0, kSharingViolation, or kInvalidFunction
// where files cannot be locked. The descriptor must be able to read. bRemoves tells the others that
// the file or its name is about to go, so that they wait a moment rather than be refused.
std::uint32_t HoldSharing(int nDescriptor, FileAccess eAccess, FileSharing eSharing, bool bRemoves);

// Locks a range, or frees it. The descriptor must be able to read. Returns 0, kLockViolation, or
// kInvalidFunction where files cannot be locked.
std::uint32_t HoldRange(int nDescriptor, bool bCanWrite, std::int64_t nStart, std::int64_t nLength);
void ReleaseRange(int nDescriptor, std::int64_t nStart, std::int64_t nLength);

// True if another open has locked one of the bytes.
bool IsHeldByOther(int nDescriptor, std::int64_t nStart, std::uint32_t nBytes);

}  // namespace ald
