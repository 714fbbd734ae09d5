#include <algorithm>
#include <cmath>

#include "bench/Report.h"

namespace ald::bench {

namespace {

constexpr double kLeft = 260;  // where the bars begin
constexpr double kWidth = 560;
constexpr double kTop = 78;
constexpr double kLine = 16;
constexpr double kGap = 6;  // between rows
constexpr const char* kBelow = "#c8553d";
constexpr const char* kReached = "#7fa6c9";
constexpr const char* kAimReached = "#2f6690";

std::string Number(double fValue) {
  return std::to_string(std::lround(fValue));
}

std::string Text(double fX, double fY, const char* szAnchor, const std::string& sText) {
  return "<text x=\"" + Number(fX) + "\" y=\"" + Number(fY) + "\" text-anchor=\"" + szAnchor +
         "\">" + sText + "</text>\n";
}

std::string Bar(double fX, double fY, double fWidth, double fHeight, const char* szColour) {
  return "<rect x=\"" + Number(fX) + "\" y=\"" + Number(fY) + "\" width=\"" + Number(fWidth) +
         "\" height=\"" + Number(fHeight) + "\" fill=\"" + szColour + "\"/>\n";
}

const char* ColourOf(const Ratio& ratio) {
  if (ratio.fMeasured < ratio.fAtLeast) return kBelow;
  return ratio.fAim > 0 && ratio.fMeasured < ratio.fAim ? kReached : kAimReached;
}

}  // namespace

std::string PictureOf(const Figures& figures, const std::string& sOurs) {
  double fLeast = 1;
  double fMost = 10;
  for (const Ratio& ratio : figures.ratios) {
    if (ratio.fMeasured <= 0) continue;
    fLeast = std::min(fLeast, 0.8 * ratio.fMeasured);  // a short bar is still a bar
    fMost = std::max({fMost, ratio.fMeasured, ratio.fAtLeast, ratio.fAim});
  }
  const auto place = [&](double fRatio) {
    return kLeft + kWidth * std::log(fRatio / fLeast) / std::log(fMost / fLeast);
  };

  std::string sBars;
  double fY = kTop;
  std::string sLastRow;
  for (const Ratio& ratio : figures.ratios) {
    if (ratio.fMeasured <= 0) continue;
    const std::string sRow = ratio.sOperation + ' ' + ratio.sSet;
    if (sRow != sLastRow) {
      fY += kGap;
      sBars += Text(16, fY + 12, "start", sRow);
      sLastRow = sRow;
    }
    sBars += Text(kLeft - 8, fY + 12, "end", ratio.sPeer);
    sBars += Bar(kLeft, fY + 2, place(ratio.fMeasured) - kLeft, kLine - 4, ColourOf(ratio));
    sBars += Bar(place(ratio.fAtLeast) - 1, fY, 2, kLine, "#222");
    if (ratio.fAim > 0) sBars += Bar(place(ratio.fAim) - 1, fY, 2, kLine, "#999");
    sBars += Text(kLeft + kWidth + 50, fY + 12, "end", ThreeDigits(ratio.fMeasured));
    fY += kLine;
  }

  std::string sScale;
  for (double fTick = 1; fTick <= fMost; fTick *= 10) {
    for (const double fRatio : {fTick, 2 * fTick, 5 * fTick}) {
      if (fRatio > fMost) continue;
      sScale += Bar(place(fRatio), kTop, 1, fY - kTop, "#ddd");
      sScale += Text(place(fRatio), kTop - 6, "middle", Number(fRatio));
    }
  }
  const std::string sHeight = Number(fY + 40);
  const std::string sSize = Number(kLeft + kWidth + 70) + "\" height=\"" + sHeight;
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + sSize +
         "\" font-family=\"sans-serif\" font-size=\"12\" fill=\"#222\">\n"
         "<rect width=\"100%\" height=\"100%\" fill=\"#fff\"/>\n" +
         Text(16, 24, "start",
              figures.sTitle + ": the peer's time over that of " + sOurs +
                  " (logarithmic; longer is better)") +
         Text(16, 42, "start", figures.sMachine) + sScale + sBars +
         Bar(16, fY + 16, 12, 12, kBelow) + Text(34, fY + 26, "start", "below the least wanted") +
         Bar(200, fY + 16, 12, 12, kReached) + Text(218, fY + 26, "start", "reached") +
         Bar(310, fY + 16, 12, 12, kAimReached) + Text(328, fY + 26, "start", "aim reached") +
         Bar(440, fY + 14, 2, 16, "#222") + Text(448, fY + 26, "start", "at least") +
         Bar(520, fY + 14, 2, 16, "#999") + Text(528, fY + 26, "start", "aim") + "</svg>\n";
}

}  // namespace ald::bench
