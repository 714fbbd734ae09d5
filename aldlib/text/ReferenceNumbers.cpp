#include "aldlib/text/ReferenceNumbers.h"

#include <cstring>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/Strings.h"
#include "aldlib/text/internal/BufferText.h"

namespace ald {
namespace {

// Indexes of the first and last digit of the number; both -1 if there is none.
struct DigitRun {
  std::int32_t nFirst;
  std::int32_t nLast;
};

DigitRun FindNumber(const char* pText, std::int32_t nLength) {
  std::int32_t nLast = nLength - 1;
  while (nLast >= 0 && !IsDigitAscii(pText[nLast])) --nLast;
  std::int32_t nFirst = nLast;
  while (nFirst > 0 && IsDigitAscii(pText[nFirst - 1])) --nFirst;
  return {nFirst, nLast};
}

// From this many digits on, a leading zero is dropped.
constexpr std::int32_t kLongRun = 7;

}  // namespace

void TextIncrement(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref) || ref.IsEmpty()) return;
  const std::int32_t nLength = LengthIn(ref);
  const bool bFull = nLength == ref.size - 1;
  const auto [nFirst, nLast] = FindNumber(ref.buffer, nLength);
  if (nLast < 0) {
    if (nLength == 0) return;
    const std::int32_t nAt = bFull ? nLength - 1 : nLength;
    sstrcpy(ref.buffer + nAt, "1", ref.size - nAt);
    return;
  }
  for (std::int32_t i = nLast; i >= nFirst; --i) {
    if (ref.buffer[i] != '9') {
      ++ref.buffer[i];
      return;
    }
    ref.buffer[i] = '0';
  }
  if (!bFull) Insert("1", ref, nFirst);
}

void TextDecrement(CFixedStringParamRef ref) noexcept {
  if (!HasRoom(ref)) return;
  const auto [nFirst, nLast] = FindNumber(ref.buffer, LengthIn(ref));
  if (nLast < 0) {
    sstrcat(ref.buffer, "0", ref.size);
    return;
  }
  for (std::int32_t i = nLast;; --i) {
    if (--ref.buffer[i] >= '0' || i == nFirst) break;  // '/' stays in the first digit
    ref.buffer[i] = '9';
  }
  // The move takes one byte more than the digits that are left: the terminator, or the first
  // character of the text behind, which then comes twice: callers know the result in this form.
  const std::int32_t nDigits = nLast - nFirst + 1;
  if (nDigits >= kLongRun && ref.buffer[nFirst] == '0') {
    std::memmove(ref.buffer + nFirst, ref.buffer + nFirst + 1, Bytes(nDigits));
  }
}

}  // namespace ald
