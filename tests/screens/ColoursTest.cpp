#include "aldlib/screens/Colours.h"

#include <gmock/gmock.h>

#include <cstring>
#include <vector>

#include "aldlib/screens/Fonts.h"
#include "tests/screens/Screen.h"

namespace ald {
namespace {

constexpr Color kBlack = 0x02000000;

class Colours : public Screen {
 protected:
  void SetUpScheme(std::int16_t nScheme) { ColorMapperInit(WindowHandle{}, nScheme); }
};

TEST_F(Colours, EveryRowAndRoleHasTheColoursOfItsSchemesColumn) {
  struct Row {
    std::int16_t nScheme;
    std::int16_t nRow;
    Color columns[4];
  };
  constexpr Row kRows[] = {
      {0, 0, {0x02C0C0C0, 0x02FFFFFF, 0x0200FFFF, 0x02FFFFB5}},
      {0, 1, {0x02EFCEC6, 0x02FFFFFF, 0x0200FFFF, 0x02FFFFB5}},
      {0, 6, {0x02C0C0C0, 0x02FFFFFF, 0x0200FFFF, 0x02FFFFB5}},
      {1, 0, {0x02E7EED2, 0x02DEEFF7, 0x02FFFFFF, 0x02C0C0C0}},
      {1, 5, {0x02E7EED2, 0x02DEEFF7, 0x02FFFFFF, 0x02C0C0C0}},
      {2, 3, {0x02B5CEE7, 0x02DEEFF7, 0x02000000, 0x02000000}},
      {3, 2, {0x02008080, 0x02FFFFFF, 0x02FFFFFF, 0x02000000}},
      {4, 6, {0x02808000, 0x02FFFFFF, 0x02FFFFFF, 0x02000000}},
  };
  // A digit for each role, "-" for none.
  constexpr const char* kColumns[] = {"11102301 1-31111", "332000332-32323", "01111101 1-11110",
                                      "12211302 2-32322", "01111101 1-11111"};
  for (const Row& row : kRows) {
    SetUpScheme(row.nScheme);
    CString sColumns = kColumns[row.nScheme];
    std::erase(sColumns, ' ');
    for (std::int16_t nRole = 0; nRole < kColorRoles; ++nRole) {
      SCOPED_TRACE(testing::Message() << row.nScheme << " " << row.nRow << " " << nRole);
      const char cColumn = sColumns[static_cast<std::size_t>(nRole)];
      const bool bNone = cColumn == '-';
      const Color nColor = bNone ? 0 : row.columns[cColumn - '0'];
      EXPECT_EQ(GetColorReturnBkColor(row.nRow, nRole), nColor);
      EXPECT_EQ(GetColorReturnBrushColor(row.nRow, nRole), nColor);
      EXPECT_EQ(GetColorReturnTextColor(row.nRow, nRole), bNone ? 0 : kBlack);
      const BrushHandle hBrush = GetColorReturnBrush(row.nRow, nRole);
      EXPECT_EQ(m_headless.BrushColor(hBrush).value_or(0), nColor);
    }
    ColorMapperDispose();
  }
}

TEST_F(Colours, AnUnknownSchemeIsTheThirdAndTheLastHasNoColours) {
  SetUpScheme(9);
  EXPECT_EQ(GetColorReturnBkColor(0, 0), 0x02B5CEE7U);
  EXPECT_EQ(GetColorReturnBkColor(7, 0), 0U);
  EXPECT_EQ(GetColorReturnBkColor(0, 15), 0U);
  EXPECT_EQ(GetColorReturnBkColor(-1, 0), 0U);
  EXPECT_EQ(GetColorReturnBrush(7, 0), BrushHandle{});
  EXPECT_EQ(m_headless.BrushColor(GetWhiteBrush()), 0xFFFFFFU);
  EXPECT_EQ(m_headless.BrushColor(GetJrnlGrayBrush()), 14079705U);
  ColorMapperDispose();
  EXPECT_EQ(m_headless.Live().nBrushes, 0U);
  EXPECT_EQ(GetWhiteBrush(), BrushHandle{});
  SetUpScheme(5);
  EXPECT_EQ(GetColorReturnBkColor(0, 0), 0U);
  EXPECT_EQ(ColorMapper(14), 14);
  EXPECT_EQ(ColorMapper(15), -1);
}

TEST_F(Colours, DefaultsRunIntoTheNextSchemeAndNeverPastTheLast) {
  std::vector<Color> colors(100, 7);
  EXPECT_EQ(GetColorDefaults(4, 100, colors.data()), 1);
  EXPECT_EQ(colors[0], 0x02808000U);
  EXPECT_EQ(colors[14], 0x02FFFFFFU);  // the first of scheme 5
  EXPECT_EQ(colors[28], 7U);
  EXPECT_EQ(GetColorDefaults(6, 2, colors.data()), 1);
  EXPECT_EQ(colors[1], 0xFFFFFFFFU);
  EXPECT_EQ(colors[2], 0x02FFFFFFU);
  EXPECT_EQ(GetColorDefaults(0, 1, nullptr), 0);
}

TEST_F(Colours, AControlIsPaintedByTheZoneThatItLiesIn) {
  SetUpScheme(0);
  const WindowHandle hField = Add("EDIT", 1, "", {20, 20, 60, 40});
  const WindowHandle hLabel = Add("STATIC", 2, "", {200, 200, 240, 220});
  const ContextHandle hContext = m_desktop.canvas.Context(hField);
  // The screen's inside begins at (100, 50). Roles 3, 0, 4 and 5 have columns 0, 1, 2 and 3.
  const ALWUnivColorTyp colors{0,
                               {100, 50, 500, 350},
                               {{100, 50, 200, 150}, {110, 60, 190, 140}, {0, 0, 1, 1}},
                               {3, 0, 4, 5}};
  const ALWCtrlInfo named[] = {{hField, 0}, {hField, 1}, {hLabel, 0}, {WindowHandle{}, 0}};
  const auto paint = [&](std::uint32_t nMessage, WindowHandle hWindow, const ALWCtrlInfo* pList) {
    return m_headless
        .BrushColor(HandleGlobalDlgMessages(nMessage, static_cast<std::uint32_t>(hContext),
                                            static_cast<std::intptr_t>(hWindow), &colors, pList))
        .value_or(0);
  };
  EXPECT_EQ(paint(kMessageColorDialog, m_hScreen, nullptr), 0x02C0C0C0U);
  EXPECT_EQ(paint(kMessageColorEdit, hField, named), 0x0200FFFFU);      // the later zone wins
  EXPECT_EQ(paint(kMessageColorEdit, hField, nullptr), 0U);             // an edit wants to be named
  EXPECT_EQ(paint(kMessageColorStatic, hLabel, nullptr), 0x02C0C0C0U);  // in no zone
  EXPECT_EQ(paint(kMessageColorStatic, hLabel, named), 0U);             // named as one to leave
  EXPECT_EQ(paint(kMessageColorScrollBar, hField, named), 0U);
  EXPECT_EQ(paint(kMessagePaint, hField, named), 0U);
  EXPECT_EQ(GetALWUniversalDlgColors(ContextHandle{}, hField, 104, &colors, named), BrushHandle{});
  m_desktop.canvas.Release(hContext);
}

TEST(Fonts, RecordsConvertBothWaysWithTheirSigns) {
  ALWFONT font{-13, 7, 0, 0, 700, 1, 0, 0, 0, 3, 2, 1, 34, "MS Sans Serif"};
  const tagLOGFONTA* const pLog = psCreateLOGFONT(&font);
  EXPECT_EQ(pLog->lfHeight, -13);
  EXPECT_EQ(pLog->lfPitchAndFamily, 34);
  EXPECT_STREQ(pLog->lfFaceName, "MS Sans Serif");
  const ALWFONT* const pBack = psCreateALWFONT(pLog);
  EXPECT_EQ(std::memcmp(pBack, &font, sizeof font), 0);
  std::memset(font.szFaceName, 'x', sizeof font.szFaceName);
  EXPECT_EQ(psCreateLOGFONT(&font), pLog);  // the same record each time
  EXPECT_EQ(CString(pLog->lfFaceName), CString(31, 'x'));
  EXPECT_EQ(psCreateALWFONT(nullptr), nullptr);
}

}  // namespace
}  // namespace ald
