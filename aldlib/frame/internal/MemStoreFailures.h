#pragma once

#include <cstdint>

#include "aldlib/platform/Types.h"

namespace ald {

// What the two halves of the memory store share. Not for callers.

constexpr std::uint32_t kMessageCallSupport = 20300;
constexpr std::uint32_t kMessageNoMemory = 20301;
constexpr std::uint32_t kMessageDeleteWithoutCreate = 20400;
constexpr std::uint32_t kMessageDuplicateCreate = 20401;
constexpr std::uint32_t kMessageStillLocked = 20402;

// The platform's Allocate, as far as FailAllocation lets it.
MemoryHandle AllocateHandle(std::uint32_t nSize);

// Tells the user that memory has run out, unless that is what the user is looking at already.
void ShowNoMemory();

// Ends the process after the named message and the one that sends the user to support.
[[noreturn]] void EndOnMisuse(std::uint32_t nMessage);

}  // namespace ald
