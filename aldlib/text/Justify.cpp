#include "aldlib/text/Justify.h"

#include <algorithm>
#include <cstring>

#include "aldlib/text/Strings.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {
namespace {

CFixedStringParamRef Measured(char* szText) {
  return {szText, szText == nullptr ? 0 : static_cast<std::int32_t>(std::strlen(szText)) + 1};
}

}  // namespace

void Justify(CFixedStringParamRef ref, std::int32_t nWidth, std::int16_t nForm) noexcept {
  if (!HasRoom(ref)) return;
  nWidth = std::clamp(nWidth, 0, ref.size - 1);
  const std::int32_t nLength = TextLength(ref.buffer, nWidth);
  const std::int32_t nSpaces = nWidth - nLength;
  if (nSpaces > 0 && nForm >= kJustifyLeft && nForm <= kJustifyRight) {
    const std::int32_t nLeft = nForm == kJustifyLeft     ? 0
                               : nForm == kJustifyCenter ? nSpaces / 2
                                                         : nSpaces;
    if (nLeft != 0) {
      std::memmove(ref.buffer + nLeft, ref.buffer, Bytes(nLength));
      std::memset(ref.buffer, ' ', Bytes(nLeft));
    }
    std::memset(ref.buffer + nLeft + nLength, ' ', Bytes(nSpaces - nLeft));
  }
  ref.buffer[nWidth] = '\0';
}

void JustifyLeft(CFixedStringParamRef ref, std::int32_t nWidth) noexcept {
  Justify(ref, nWidth, kJustifyLeft);
}

void JustifyCenter(CFixedStringParamRef ref, std::int32_t nWidth) noexcept {
  Justify(ref, nWidth, kJustifyCenter);
}

void JustifyRight(CFixedStringParamRef ref, std::int32_t nWidth) noexcept {
  Justify(ref, nWidth, kJustifyRight);
}

void AppendWithJustify(CFixedStringParamRef ref, const char* szText, std::int16_t nForm) noexcept {
  if (!HasRoom(ref)) return;
  const std::int32_t nLength = LengthIn(ref);
  const CFixedStringParamRef rest(ref.buffer + nLength, ref.size - nLength);
  sstrcpy(rest.buffer, szText, rest.size);
  Justify(rest, rest.size - 1, nForm);
}

void TrimRight(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  for (std::int32_t i = LengthIn(ref); i-- > 0 && ref.buffer[i] == ' ';) ref.buffer[i] = '\0';
}

void TrimRightLPSTR(char* szText) noexcept {
  TrimRight(Measured(szText));
}

void TrimLeft(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  ref.buffer[ref.size - 1] = '\0';
  std::int32_t nSpaces = 0;
  while (ref.buffer[nSpaces] == ' ') ++nSpaces;
  Delete(ref, 0, nSpaces);
}

void TrimLeftLPSTR(char* szText) noexcept {
  TrimLeft(Measured(szText));
}

void Trim(CFixedStringParamRef ref) noexcept {
  TrimLeft(ref);
  TrimRight(ref);
}

void TrimLPSTR(char* szText) noexcept {
  Trim(Measured(szText));
}

}  // namespace ald
