#pragma once

#include <cstdint>

#include "aldlib/frame/MessageArgument.h"
#include "aldlib/text/FixedString.h"

// What the library's own boxes share with the engine. Not for callers.
namespace ald {

constexpr std::int32_t kLibraryBufferSize = 2048;

// Takes the first signs off the text of the message and sets the flags that they stand for. Without
// signs *pFlags stays, unless it is 0.
void TakeSigns(std::uint32_t* pFlags, MessageArgument message, CFixedStringParamRef text);

}  // namespace ald
