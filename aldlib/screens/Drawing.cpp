#include "aldlib/screens/Drawing.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "aldlib/frame/LargeClip.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kOneLetter = "X";
constexpr Color kWhite = 0xFFFFFF;
constexpr Color kGray = 8421504;
// Deeper than any screen is wide.
constexpr int kDeepestBevel = 32767;

Canvas& CurrentCanvas() {
  return CurrentPlatform().desktop.canvas;
}

std::string_view TextOf(const char* szText, int nLength) {
  if (szText == nullptr) return {};
  if (nLength < 0) return szText;
  return {szText, ::strnlen(szText, static_cast<std::size_t>(nLength))};
}

// The longest beginning of a line that fits the width: up to a blank, or as many characters as fit
// where the first word is too long already; at least one.
std::size_t FittingLength(ContextHandle hMeasure, std::string_view sLine, std::int64_t nWidth) {
  const auto fits = [&](std::size_t nLength) {
    return CurrentCanvas().TextExtent(hMeasure, sLine.substr(0, nLength)).cx <= nWidth;
  };
  if (fits(sLine.size())) return sLine.size();
  std::size_t nFits = 1;
  std::size_t nTooLong = sLine.size();
  while (nTooLong - nFits > 1) {
    const std::size_t nMiddle = nFits + (nTooLong - nFits) / 2;
    (fits(nMiddle) ? nFits : nTooLong) = nMiddle;
  }
  // The blank may be the first character that does not fit.
  const std::size_t nBlank = sLine.rfind(' ', nFits);
  return nBlank == std::string_view::npos || nBlank == 0 ? nFits : nBlank;
}

void Wrap(ContextHandle hMeasure, std::string_view sLine, std::int64_t nWidth,
          std::vector<std::string_view>& pieces) {
  do {
    const std::size_t nLength = FittingLength(hMeasure, sLine, nWidth);
    pieces.push_back(sLine.substr(0, nLength));
    sLine.remove_prefix(nLength);
    // The blanks at a break are not drawn.
    sLine.remove_prefix(std::min(sLine.find_first_not_of(' '), sLine.size()));
  } while (!sLine.empty());
}

std::vector<std::string_view> Pieces(ContextHandle hMeasure, std::string_view sText,
                                     std::int64_t nWidth, std::uint32_t nFlags) {
  std::vector<std::string_view> pieces;
  if ((nFlags & kTextSingleLine) != 0) return {sText};
  for (;;) {
    const std::size_t nEnd = sText.find(kLineEnd);
    const std::string_view sLine = sText.substr(0, nEnd);
    if ((nFlags & kTextWordBreak) != 0) {
      pieces.push_back(sLine);
    } else {
      Wrap(hMeasure, sLine, nWidth, pieces);
    }
    if (nEnd == std::string_view::npos) return pieces;
    sText.remove_prefix(nEnd + kLineEnd.size());
  }
}

std::int32_t HeightOf(ContextHandle hMeasure, std::string_view sPiece) {
  return CurrentCanvas().TextExtent(hMeasure, sPiece.empty() ? kOneLetter : sPiece).cy;
}

void DrawPiece(ContextHandle hContext, std::string_view sPiece, const Rect& line, const Rect& place,
               std::uint32_t nFlags) {
  Canvas& canvas = CurrentCanvas();
  const bool bClip = (nFlags & kTextNoClip) == 0;
  const int nSaved = bClip ? canvas.Save(hContext) : 0;
  if (bClip) {
    Rect clip = place;
    if (IsLargeClipAllowed()) {
      clip.right = ToMeasure(std::int64_t{clip.right} + 1);
      if (clip.left > 0) clip.left -= 1;
    }
    canvas.Clip(hContext, clip);
  }
  Rect room = line;
  canvas.DrawText(
      hContext, sPiece, room,
      (nFlags & (kTextCenter | kTextRight)) | kTextSingleLine | kTextNoClip | kTextNoPrefix);
  if (bClip) canvas.Restore(hContext, nSaved);
}

// The stops of DrawTabClippedText, which go on behind the last given one.
class TabStops {
 public:
  TabStops(const int* pnTabs, int nTabs, int nOrigin)
      : m_pnTabs(pnTabs), m_nTabs(nTabs), m_nOrigin(nOrigin) {}

  // Where the piece behind the nTab-th tab begins, counted from 1.
  std::int64_t operator()(std::int64_t nTab) const {
    const std::int64_t nLast = m_pnTabs[m_nTabs - 1];
    if (nTab <= m_nTabs) return std::int64_t{m_nOrigin} + m_pnTabs[nTab - 1];
    const std::int64_t nStep = nLast - (m_nTabs > 1 ? m_pnTabs[m_nTabs - 2] : 0);
    return m_nOrigin + nLast + std::max<std::int64_t>(nStep, 0) * (nTab - m_nTabs);
  }

 private:
  const int* m_pnTabs;
  std::int64_t m_nTabs;
  int m_nOrigin;
};

// A pen that is in use while it lives.
class UsedPen {
 public:
  UsedPen(ContextHandle hContext, Color nColor)
      : m_hContext(hContext),
        m_hPen(CurrentCanvas().CreatePen(nColor)),
        m_hBefore(CurrentCanvas().SelectPen(hContext, m_hPen)) {}
  UsedPen(const UsedPen&) = delete;
  UsedPen& operator=(const UsedPen&) = delete;
  ~UsedPen() {
    CurrentCanvas().SelectPen(m_hContext, m_hBefore);
    CurrentCanvas().DeletePen(m_hPen);
  }

 private:
  ContextHandle m_hContext;
  PenHandle m_hPen;
  PenHandle m_hBefore;
};

enum class Edge { kTop, kBottom, kLeft, kRight };

// Each line of an edge stands one step further in.
void DrawEdge(ContextHandle hContext, const Rect& r, int nDepth, Edge eEdge, Color nColor) {
  const UsedPen pen(hContext, nColor);
  nDepth = std::min(nDepth, kDeepestBevel);
  for (std::int32_t i = 0; i < nDepth; ++i) {
    const Point topLeft = Moved(Point{r.left, r.top}, i, i);
    const Point bottomRight = Moved(Point{r.right, r.bottom}, -i, -i);
    Point from{};
    Point to{};
    switch (eEdge) {
      case Edge::kTop:
        from = topLeft;
        to = {bottomRight.x, topLeft.y};
        break;
      case Edge::kBottom:
        from = Moved(Point{topLeft.x, bottomRight.y}, 1, -1);
        to = Moved(bottomRight, 0, -1);
        break;
      case Edge::kLeft:
        from = Moved(topLeft, 0, 1);
        to = {topLeft.x, bottomRight.y};
        break;
      case Edge::kRight:
        from = Moved(Point{bottomRight.x, topLeft.y}, -1, 1);
        to = Moved(bottomRight, -1, -1);
        break;
    }
    CurrentCanvas().Line(hContext, from, to);
  }
}

}  // namespace

int MyDrawText(ContextHandle hContext, ContextHandle hMeasure, const char* szText, int nLength,
               const Rect& place, std::uint32_t nFlags) try {
  const std::int64_t nWidth = std::int64_t{place.right} - place.left;
  const std::int64_t nHeight = std::int64_t{place.top} - place.bottom;
  if (nWidth <= 0 || nHeight <= 0) return place.top;
  if (hContext == ContextHandle{}) hContext = hMeasure;
  if (hMeasure == ContextHandle{}) hMeasure = hContext;
  if ((nFlags & kTextWordBreak) != 0) nFlags &= ~(kTextVCenter | kTextBottom);

  const std::string_view sText = TextOf(szText, nLength);
  if (sText.empty()) return ToMeasure(std::int64_t{place.top} - HeightOf(hMeasure, {}));
  const std::vector<std::string_view> pieces = Pieces(hMeasure, sText, nWidth, nFlags);
  std::int64_t nTotal = 0;
  for (const std::string_view sPiece : pieces) nTotal += HeightOf(hMeasure, sPiece);

  std::int64_t y = place.top;
  if ((nFlags & kTextVCenter) != 0) y = place.top - (nHeight - nTotal) / 2;
  if ((nFlags & kTextBottom) != 0) y = place.bottom + nTotal;
  for (const std::string_view sPiece : pieces) {
    const std::int64_t yBelow = y - HeightOf(hMeasure, sPiece);
    if (!sPiece.empty()) {
      DrawPiece(hContext, sPiece, {place.left, ToMeasure(y), place.right, ToMeasure(yBelow)}, place,
                nFlags);
    }
    y = yBelow;
  }
  return ToMeasure(y);
} catch (...) {
  return place.top;
}

int DrawTabClippedText(ContextHandle hContext, const Rect& place, const char* szText, int nLength,
                       const int* pnTabs, int nTabs, int nTabOrigin, std::uint32_t nFlags) try {
  Canvas& canvas = CurrentCanvas();
  std::string_view sText = TextOf(szText, nLength);
  if (pnTabs == nullptr || nTabs <= 0 || sText.find('\t') == std::string_view::npos) {
    Rect room = place;
    return canvas.DrawText(hContext, sText, room, nFlags);
  }
  const TabStops stops(pnTabs, nTabs, nTabOrigin);
  int nTallest = 0;
  std::int64_t nLeft = place.left;
  for (std::int64_t nTab = 1;; ++nTab) {
    const std::size_t nEnd = sText.find('\t');
    const bool bLast = nEnd == std::string_view::npos;
    const std::int64_t nRight =
        bLast ? place.right : std::min<std::int64_t>(stops(nTab), place.right);
    Rect cell{ToMeasure(std::min<std::int64_t>(nLeft, place.right)), place.top, ToMeasure(nRight),
              place.bottom};
    nTallest = std::max(
        nTallest, canvas.DrawText(hContext, sText.substr(0, nEnd), cell, nFlags & ~kTextRight));
    if (bLast) return nTallest;
    sText.remove_prefix(nEnd + 1);
    nLeft = stops(nTab);
  }
} catch (...) {
  return 0;
}

void DrawBevelRect(ContextHandle hContext, const Rect& place, int nDepth, std::uint32_t nFlags,
                   int bRaised) {
  const bool bUpsideDown = (nFlags & kBevelUpsideDown) != 0;
  const bool bOtherSide = (nFlags & kBevelOtherSide) != 0;
  if (bRaised != 0) {
    DrawEdge(hContext, place, nDepth, Edge::kTop, bUpsideDown ? kGray : kWhite);
    DrawEdge(hContext, place, nDepth, Edge::kBottom, bUpsideDown ? kWhite : kGray);
    DrawEdge(hContext, place, nDepth, Edge::kLeft, bOtherSide ? kGray : kWhite);
    DrawEdge(hContext, place, nDepth, Edge::kRight, bOtherSide ? kWhite : kGray);
  } else {
    DrawEdge(hContext, place, nDepth, bUpsideDown ? Edge::kBottom : Edge::kTop, kGray);
    DrawEdge(hContext, place, nDepth, bOtherSide ? Edge::kRight : Edge::kLeft, kGray);
  }
}

}  // namespace ald
