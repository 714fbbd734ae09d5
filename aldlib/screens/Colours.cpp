#include "aldlib/screens/Colours.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "aldlib/platform/Platform.h"
#include "aldlib/screens/internal/ForgetScreens.h"

namespace ald {
namespace {

constexpr int kSchemes = 6;
constexpr int kRows = 7;
constexpr int kColumns = 4;
constexpr int kDefaultColors = 14;
constexpr std::int16_t kSchemeForUnknown = 2;

// On top of each colour: it is matched against the palette.
constexpr Color kPaletteRelative = 0x02000000;
constexpr Color kBlack = kPaletteRelative;
constexpr Color kWhite = 0xFFFFFF;
constexpr Color kJournalGray = 14079705;

// The low 24 bits.
constexpr Color kDefaults[kSchemes][kDefaultColors] = {
    {0xC0C0C0, 0xFFFFFF, 0x00FFFF, 0, 0, 0, 0, 0, 0, 0, 0, 0xFFFFFF, 0xFFFFFF, 0xC0C0C0},
    {0x800000, 0xFFFFFF, 0x00FFFF, 0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0xFFFFFF, 0xFFFFB6, 0xC0C0C0},
    {0x00FFFF, 0xFFFFFF, 0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0xFFFFB6, 0xC0C0C0, 0, 0},
    {0x008080, 0xFFFFFF, 0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0x808000, 0xFFFFFF, 0xFFFFFF, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {0xFFFFFF, 0x800000, 0, 0xFFFFFF, 0, 0x00FFFF, 0, 0xFFFFFF, 0, 0xFF00FF, 0, 0, 0, 0},
};

// The column of each role, -1 for a role that the scheme does not know.
constexpr std::int8_t kColumnsOfRoles[kSchemes][kColorRoles] = {
    {1, 1, 1, 0, 2, 3, 0, 1, 1, -1, 3, 1, 1, 1, 1},
    {3, 3, 2, 0, 0, 0, 3, 3, 2, -1, 3, 2, 3, 2, 3},
    {0, 1, 1, 1, 1, 1, 0, 1, 1, -1, 1, 1, 1, 1, 0},
    {1, 2, 2, 1, 1, 3, 0, 2, 2, -1, 3, 2, 3, 2, 2},
    {0, 1, 1, 1, 1, 1, 0, 1, 1, -1, 1, 1, 1, 1, 1},
    {-1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1, -1},
};

struct ColorRow {
  Color text[kColumns];
  Color background[kColumns];
  Color brush[kColumns];
};

// Black on four backgrounds, which are painted in their own colours.
constexpr ColorRow BlackOn(Color n0, Color n1, Color n2, Color n3) {
  const Color n[] = {n0 | kPaletteRelative, n1 | kPaletteRelative, n2 | kPaletteRelative,
                     n3 | kPaletteRelative};
  return {{kBlack, kBlack, kBlack, kBlack}, {n[0], n[1], n[2], n[3]}, {n[0], n[1], n[2], n[3]}};
}

// A scheme paints all of its rows alike but for row 1 of scheme 0. Schemes 3 and 4 take their
// default colours; scheme 5 has no colours here.
constexpr ColorRow RowOf(int nScheme, int nRow) {
  switch (nScheme) {
    case 0:
      return nRow == 1 ? BlackOn(0xEFCEC6, 0xFFFFFF, 0x00FFFF, 0xFFFFB5)
                       : BlackOn(0xC0C0C0, 0xFFFFFF, 0x00FFFF, 0xFFFFB5);
    case 1:
      return BlackOn(0xE7EED2, 0xDEEFF7, 0xFFFFFF, 0xC0C0C0);
    case 2:
      return BlackOn(0xB5CEE7, 0xDEEFF7, 0x000000, 0x000000);
    case 3:
    case 4: {
      const auto& colors = kDefaults[nScheme];
      return BlackOn(colors[0], colors[1], colors[2], colors[3]);
    }
    default:
      return {};
  }
}

constexpr auto kColors = [] {
  std::array<std::array<ColorRow, kRows>, kSchemes> table{};
  for (int nScheme = 0; nScheme < kSchemes; ++nScheme) {
    for (int nRow = 0; nRow < kRows; ++nRow) {
      table[static_cast<std::size_t>(nScheme)][static_cast<std::size_t>(nRow)] =
          RowOf(nScheme, nRow);
    }
  }
  return table;
}();

struct Mapper {
  std::size_t nScheme = 0;
  std::array<std::int8_t, kColorRoles> columns{};  // until the first init every role has column 0
  BrushHandle brushes[kRows][kColumns]{};
  BrushHandle hWhite{};
  BrushHandle hJournalGray{};
};

constinit Mapper g_mapper;

Canvas& CurrentCanvas() {
  return CurrentPlatform().desktop.canvas;
}

// The place of a row and a role in the scheme in force; none if there is no such place.
struct Place {
  bool bFound = false;
  std::size_t nRow = 0;
  std::size_t nColumn = 0;
};

Place PlaceOf(std::int16_t nRow, std::int16_t nRole) {
  if (nRow < 0 || nRow >= kRows || nRole < 0 || nRole >= kColorRoles) return {};
  const std::int8_t nColumn = g_mapper.columns[static_cast<std::size_t>(nRole)];
  if (nColumn < 0) return {};
  return {true, static_cast<std::size_t>(nRow), static_cast<std::size_t>(nColumn)};
}

Color ColorOf(std::int16_t nRow, std::int16_t nRole, Color (ColorRow::*pGroup)[kColumns]) {
  const Place place = PlaceOf(nRow, nRole);
  return place.bFound ? (kColors[g_mapper.nScheme][place.nRow].*pGroup)[place.nColumn] : 0;
}

bool Names(const ALWCtrlInfo* pControls, WindowHandle hWindow, WindowHandle hParent, bool bFlag) {
  if (pControls == nullptr) return false;
  for (; pControls->hWindow != WindowHandle{}; ++pControls) {
    const bool bMeant = pControls->hWindow == hWindow || pControls->hWindow == hParent;
    if (bMeant && (pControls->bFlag != 0) == bFlag) return true;
  }
  return false;
}

// A rectangle as it lies from that corner on.
Rect From(const Rect& rect, std::int32_t nLeft, std::int32_t nTop) {
  return Moved(rect, -std::int64_t{nLeft}, -std::int64_t{nTop});
}

bool Contains(const Rect& outer, const Rect& inner) {
  return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
         inner.bottom <= outer.bottom;
}

// The zone that a control lies in; a later zone wins over an earlier one.
std::size_t ZoneOf(WindowHandle hControl, WindowHandle hParent, const ALWUnivColorTyp& colors) {
  Windows& windows = CurrentPlatform().desktop.windows;
  const Rect parent = windows.WindowRect(hParent);
  const Rect control = From(windows.WindowRect(hControl), parent.left, parent.top);
  std::size_t nZone = 0;
  for (std::size_t i = 0; i < std::size(colors.zones); ++i) {
    if (Contains(From(colors.zones[i], colors.base.left, colors.base.top), control)) nZone = i + 1;
  }
  return nZone;
}

BrushHandle Paint(ContextHandle hContext, std::int16_t nRow, std::int16_t nRole) {
  Canvas& canvas = CurrentCanvas();
  canvas.SetTextColor(hContext, 0);
  canvas.SetBackgroundColor(hContext, GetColorReturnBkColor(nRow, nRole));
  canvas.SetOpaque(hContext, true);
  return GetColorReturnBrush(nRow, nRole);
}

// The codes of the kinds of control.
constexpr int kCodeStatic = 100;
constexpr int kCodeEdit = 101;
constexpr int kCodeButton = 102;
constexpr int kCodeListBox = 103;
constexpr int kCodeDialog = 104;

}  // namespace

void ColorMapperInit(WindowHandle, std::int16_t nScheme) {
  if (nScheme < 0 || nScheme >= kSchemes) nScheme = kSchemeForUnknown;
  Canvas& canvas = CurrentCanvas();
  g_mapper.nScheme = static_cast<std::size_t>(nScheme);
  std::copy_n(kColumnsOfRoles[nScheme], kColorRoles, g_mapper.columns.begin());
  for (std::size_t nRow = 0; nRow < kRows; ++nRow) {
    for (std::size_t nColumn = 0; nColumn < kColumns; ++nColumn) {
      g_mapper.brushes[nRow][nColumn] =
          canvas.CreateSolidBrush(kColors[g_mapper.nScheme][nRow].brush[nColumn]);
    }
  }
  g_mapper.hWhite = canvas.CreateSolidBrush(kWhite);
  g_mapper.hJournalGray = canvas.CreateSolidBrush(kJournalGray);
}

// The grid keeps its handles, which name nothing any more.
void ColorMapperDispose() {
  Canvas& canvas = CurrentCanvas();
  for (const auto& row : g_mapper.brushes) {
    for (const BrushHandle hBrush : row) {
      if (hBrush != BrushHandle{}) canvas.DeleteBrush(hBrush);
    }
  }
  canvas.DeleteBrush(g_mapper.hWhite);
  canvas.DeleteBrush(g_mapper.hJournalGray);
  g_mapper.hWhite = {};
  g_mapper.hJournalGray = {};
}

std::int16_t ColorMapper(std::int16_t nRole) {
  return nRole < kColorRoles ? nRole : std::int16_t{-1};
}

int GetColorDefaults(std::uint16_t nScheme, std::uint16_t nCount, Color* pColors) {
  if (pColors == nullptr) return 0;
  if (nScheme >= kSchemes) {
    std::memset(pColors, 255, nCount * sizeof(Color));
    return 1;
  }
  const int nLeft = (kSchemes - nScheme) * kDefaultColors;
  const Color* const pFirst = kDefaults[nScheme];
  std::transform(pFirst, pFirst + std::min<int>(nCount, nLeft), pColors,
                 [](Color nColor) { return nColor | kPaletteRelative; });
  return 1;
}

BrushHandle GetWhiteBrush() {
  return g_mapper.hWhite;
}

BrushHandle GetJrnlGrayBrush() {
  return g_mapper.hJournalGray;
}

BrushHandle GetColorReturnBrush(std::int16_t nRow, std::int16_t nRole) {
  const Place place = PlaceOf(nRow, nRole);
  return place.bFound ? g_mapper.brushes[place.nRow][place.nColumn] : BrushHandle{};
}

Color GetColorReturnBrushColor(std::int16_t nRow, std::int16_t nRole) {
  return ColorOf(nRow, nRole, &ColorRow::brush);
}

Color GetColorReturnBkColor(std::int16_t nRow, std::int16_t nRole) {
  return ColorOf(nRow, nRole, &ColorRow::background);
}

Color GetColorReturnTextColor(std::int16_t nRow, std::int16_t nRole) {
  return ColorOf(nRow, nRole, &ColorRow::text);
}

BrushHandle GetALWUniversalDlgColors(ContextHandle hContext, WindowHandle hWindow, int nCode,
                                     const ALWUnivColorTyp* pColors, const ALWCtrlInfo* pControls) {
  if (hContext == ContextHandle{} || pColors == nullptr) return {};
  if (nCode == kCodeDialog) return Paint(hContext, pColors->nRow, pColors->roles[0]);
  const WindowHandle hParent = CurrentPlatform().desktop.windows.Parent(hWindow);
  const bool bOnlyIfNamed = nCode == 0 || nCode == kCodeEdit || nCode == kCodeListBox;
  if (bOnlyIfNamed ? !Names(pControls, hWindow, hParent, true)
                   : Names(pControls, hWindow, hParent, false)) {
    return {};
  }
  return Paint(hContext, pColors->nRow, pColors->roles[ZoneOf(hWindow, hParent, *pColors)]);
}

BrushHandle HandleGlobalDlgMessages(std::uint32_t nMessage, std::uint32_t nWord,
                                    std::intptr_t nLong, const ALWUnivColorTyp* pColors,
                                    const ALWCtrlInfo* pControls) {
  int nCode = 0;
  switch (nMessage) {
    case kMessageColorEdit:
      nCode = kCodeEdit;
      break;
    case kMessageColorListBox:
      nCode = kCodeListBox;
      break;
    case kMessageColorButton:
      nCode = kCodeButton;
      break;
    case kMessageColorDialog:
      nCode = kCodeDialog;
      break;
    case kMessageColorStatic:
      nCode = kCodeStatic;
      break;
    default:
      return {};
  }
  const WindowHandle hWindow{static_cast<std::uint32_t>(nLong)};
  return GetALWUniversalDlgColors(ContextHandle{nWord}, hWindow, nCode, pColors, pControls);
}

void ForgetColours() {
  g_mapper = {};
}

}  // namespace ald
