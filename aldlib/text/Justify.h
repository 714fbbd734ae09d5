#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Padding a text with spaces to a width, and taking spaces off it again. Only the character 32 is a
// space here; a tab is text.
namespace ald {

constexpr std::int16_t kJustifyLeft = 0;
constexpr std::int16_t kJustifyCenter = 1;
constexpr std::int16_t kJustifyRight = 2;

// Brings the text to nWidth characters, or to size - 1 if that is less: a shorter one is padded,
// a longer one cut. Any other form cuts but does not pad. A negative width counts as 0.
//   "ab" to 5:   left "ab   "   center " ab  "   right "   ab"
// Unlike the other routines this one leaves the bytes behind the new terminator as they were.
ALDLIB_EXPORT void Justify(CFixedStringParamRef ref, std::int32_t nWidth,
                           std::int16_t nForm) noexcept;
ALDLIB_EXPORT void JustifyLeft(CFixedStringParamRef ref, std::int32_t nWidth) noexcept;
ALDLIB_EXPORT void JustifyCenter(CFixedStringParamRef ref, std::int32_t nWidth) noexcept;
ALDLIB_EXPORT void JustifyRight(CFixedStringParamRef ref, std::int32_t nWidth) noexcept;

// Appends szText and justifies that part within all the room that is left.
ALDLIB_EXPORT void AppendWithJustify(CFixedStringParamRef ref, const char* szText,
                                     std::int16_t nForm) noexcept;

// Take the spaces off an end of the text and zero what is left over. The ones for a plain pointer
// measure the text first.
ALDLIB_EXPORT void TrimRight(CFixedStringParamRef ref) noexcept;
ALDLIB_EXPORT void TrimRightLPSTR(char* szText) noexcept;
ALDLIB_EXPORT void TrimLeft(CFixedStringParamRef ref) noexcept;
ALDLIB_EXPORT void TrimLeftLPSTR(char* szText) noexcept;
ALDLIB_EXPORT void Trim(CFixedStringParamRef ref) noexcept;
ALDLIB_EXPORT void TrimLPSTR(char* szText) noexcept;

}  // namespace ald
