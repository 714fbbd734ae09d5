#include "aldlib/screens/Fonts.h"

#include <cstring>

namespace ald {
namespace {

constinit tagLOGFONTA g_logFont{};
constinit ALWFONT g_alwFont{};

// Whatever stands behind the name is zero; a name without a terminator is cut.
void CopyName(char (&szTo)[32], const char (&szFrom)[32]) {
  const std::size_t nLength = ::strnlen(szFrom, sizeof(szFrom) - 1);
  std::memset(szTo, 0, sizeof(szTo));
  std::memcpy(szTo, szFrom, nLength);
}

std::int16_t Narrow(std::int32_t nValue) {
  return static_cast<std::int16_t>(nValue);
}

}  // namespace

tagLOGFONTA* psCreateLOGFONT(const ALWFONT* pFont) {
  if (pFont == nullptr) return nullptr;
  g_logFont = {pFont->nHeight,         pFont->nWidth,
               pFont->nEscapement,     pFont->nOrientation,
               pFont->nWeight,         pFont->bItalic,
               pFont->bUnderline,      pFont->bStrikeOut,
               pFont->nCharSet,        pFont->nOutPrecision,
               pFont->nClipPrecision,  pFont->nQuality,
               pFont->nPitchAndFamily, {}};
  CopyName(g_logFont.lfFaceName, pFont->szFaceName);
  return &g_logFont;
}

ALWFONT* psCreateALWFONT(const tagLOGFONTA* pFont) {
  if (pFont == nullptr) return nullptr;
  g_alwFont = {Narrow(pFont->lfHeight),
               Narrow(pFont->lfWidth),
               Narrow(pFont->lfEscapement),
               Narrow(pFont->lfOrientation),
               Narrow(pFont->lfWeight),
               pFont->lfItalic,
               pFont->lfUnderline,
               pFont->lfStrikeOut,
               pFont->lfCharSet,
               pFont->lfOutPrecision,
               pFont->lfClipPrecision,
               pFont->lfQuality,
               pFont->lfPitchAndFamily,
               {}};
  CopyName(g_alwFont.szFaceName, pFont->lfFaceName);
  return &g_alwFont;
}

}  // namespace ald
