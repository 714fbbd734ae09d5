#pragma once

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

// Base64 for terminated texts, in the published alphabet (A-Z a-z 0-9 + /) with "=" padding.
// A null text counts as empty. An empty text comes back when memory runs out.
namespace ald {

// No line breaks.
//   "" -> ""     "A" -> "QQ=="     "AB" -> "QUI="     "ABC" -> "QUJD"
[[nodiscard]] ALDLIB_EXPORT CString EncodeBase64(const char* szText) noexcept;

// Never refuses: what is not of the alphabet is skipped, padding may be missing, and the first "="
// ends the reading. The result ends at its first zero byte, as every text does.
//   "QQ==" -> "A"     "Q Q = =" -> "A"     "QUI" -> "AB"     "Q*Q==" -> "A"
[[nodiscard]] ALDLIB_EXPORT CString DecodeBase64(const char* szText) noexcept;

}  // namespace ald
