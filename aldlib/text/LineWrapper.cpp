#include "aldlib/text/LineWrapper.h"

#include <algorithm>
#include <cstring>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {

int LineWrapper(CFixedStringParamRef destination, CFixedStringParamRef source) noexcept {
  const bool bWrite = HasRoom(destination);
  if (!HasRoom(source) || source.IsEmpty()) {
    if (bWrite) ZeroFrom(destination, 0);
    return 0;
  }
  const std::int32_t nLength = LengthIn(source);
  const std::int32_t nRoom = bWrite ? std::min(destination.size - 1, nLength) : 0;
  const char* const pText = source.buffer;
  const auto isSpaceAt = [pText](std::int32_t i) { return IsSpaceAscii(pText[i]); };

  std::int32_t nEnd = static_cast<std::int32_t>(std::find(pText, pText + nRoom, '\n') - pText);
  if (nEnd < nLength && !isSpaceAt(nEnd)) {
    std::int32_t nWordStart = nEnd;
    while (nWordStart > 0 && !isSpaceAt(nWordStart - 1)) --nWordStart;
    if (nWordStart > 0) nEnd = nWordStart;  // else one word fills the line
  }
  std::int32_t nLine = nEnd;
  while (nLine > 0 && isSpaceAt(nLine - 1)) --nLine;

  std::int32_t nNext = nLine;
  while (nNext < nLength && isSpaceAt(nNext)) ++nNext;

  if (bWrite) {
    std::memmove(destination.buffer, pText, Bytes(nLine));
    ZeroFrom(destination, nLine);
  }
  if (nNext != 0) {
    std::memmove(source.buffer, source.buffer + nNext, Bytes(nLength - nNext));
  }
  ZeroFrom(source, nLength - nNext);
  return nLine >= 1 ? 1 : 0;
}

}  // namespace ald
