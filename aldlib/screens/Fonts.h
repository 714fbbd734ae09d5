#pragma once

#include <cstddef>
#include <cstdint>

#include "aldlib/platform/Canvas.h"
#include "aldlib/platform/Export.h"

namespace ald {

// A font as screens store it: the platform's record with 16-bit numbers.
struct ALWFONT {
  std::int16_t nHeight;
  std::int16_t nWidth;
  std::int16_t nEscapement;
  std::int16_t nOrientation;
  std::int16_t nWeight;
  std::uint8_t bItalic;
  std::uint8_t bUnderline;
  std::uint8_t bStrikeOut;
  std::uint8_t nCharSet;
  std::uint8_t nOutPrecision;
  std::uint8_t nClipPrecision;
  std::uint8_t nQuality;
  std::uint8_t nPitchAndFamily;
  char szFaceName[32];
};
static_assert(sizeof(ALWFONT) == 50 && offsetof(ALWFONT, szFaceName) == 18);

// Convert a font record. Names keep at most 31 characters; numbers that do not fit 16 bits lose
// their upper half. Each returns one record of its own, the same one every time: copy it before the
// next call. Null gives null.
ALDLIB_EXPORT tagLOGFONTA* psCreateLOGFONT(const ALWFONT* pFont);
ALDLIB_EXPORT ALWFONT* psCreateALWFONT(const tagLOGFONTA* pFont);

}  // namespace ald
