#include "bench/Report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fstream>
#include <iomanip>
#include <iostream>

namespace ald::bench {

namespace {

using Names = std::vector<std::string>;

// In the order in which they first come.
template <class TName>
Names NamesOf(const Figures& figures, TName nameOf) {
  Names names;
  for (const Measurement& time : figures.times) {
    const std::string sName = nameOf(time);
    if (std::find(names.begin(), names.end(), sName) == names.end()) names.push_back(sName);
  }
  return names;
}

std::string RowOf(const Measurement& time) {
  return time.sOperation + ' ' + time.sSet;
}

void PrintTimes(std::ostream& stream, const Figures& figures, const std::string& sOurs) {
  const Names rows = NamesOf(figures, RowOf);
  Names columns = NamesOf(figures, [](const Measurement& time) { return time.sPeer; });
  const auto ours = std::find(columns.begin(), columns.end(), sOurs);
  if (ours != columns.end()) std::rotate(columns.begin(), ours, ours + 1);

  stream << "\nNanoseconds of one operation\n" << std::left << std::setw(18) << "";
  for (const std::string& sColumn : columns) stream << std::right << std::setw(16) << sColumn;
  for (const std::string& sRow : rows) {
    stream << '\n' << std::left << std::setw(18) << sRow << std::right;
    for (const std::string& sColumn : columns) {
      const auto time = std::find_if(
          figures.times.begin(), figures.times.end(),
          [&](const Measurement& one) { return RowOf(one) == sRow && one.sPeer == sColumn; });
      stream << std::setw(16)
             << (time == figures.times.end() ? "-" : ThreeDigits(time->fNanoseconds));
    }
  }
  stream << '\n';
}

std::string WordFor(const Ratio& ratio) {
  if (ratio.fMeasured < ratio.fAtLeast) return "below";
  return ratio.fAim > 0 && ratio.fMeasured < ratio.fAim ? "reached" : "aim reached";
}

void PrintRatios(std::ostream& stream, const Figures& figures, const std::string& sOurs) {
  stream << "\nThe peer's time over that of " << sOurs << '\n'
         << std::left << std::setw(18) << "" << std::setw(16) << "peer" << std::right
         << std::setw(8) << "ratio" << std::setw(10) << "at least" << std::setw(8) << "aim" << '\n';
  for (const Ratio& ratio : figures.ratios) {
    if (ratio.fMeasured <= 0) continue;
    stream << std::left << std::setw(18) << ratio.sOperation + ' ' + ratio.sSet << std::setw(16)
           << ratio.sPeer << std::right << std::setw(8) << ThreeDigits(ratio.fMeasured)
           << std::setw(10) << ThreeDigits(ratio.fAtLeast) << std::setw(8)
           << (ratio.fAim > 0 ? ThreeDigits(ratio.fAim) : "-") << "  " << WordFor(ratio) << '\n';
  }
}

void WriteFile(const std::string& sPath, const std::string& sText) {
  std::ofstream file(sPath, std::ios::binary);
  file << sText;
  file.close();
  if (!file) std::cerr << "Could not write " << sPath << '\n';
}

}  // namespace

std::string ThreeDigits(double fValue) {
  std::array<char, 32> szText{};
  std::snprintf(szText.data(), szText.size(), "%.*f",
                fValue < 9.995   ? 2
                : fValue < 99.95 ? 1
                                 : 0,
                fValue);
  return szText.data();
}

void PrintTables(std::ostream& stream, const Figures& figures, const std::string& sOurs) {
  stream << figures.sMachine << '\n';
  PrintTimes(stream, figures, sOurs);
  PrintRatios(stream, figures, sOurs);
}

void WriteFigures(const std::string& sFolder, const Figures& figures, const std::string& sOurs) {
  const std::string sMachine = "# " + figures.sMachine + '\n';
  std::string sTimes = sMachine + "operation,set,peer,nanoseconds\n";
  for (const Measurement& time : figures.times) {
    sTimes += time.sOperation + ',' + time.sSet + ',' + time.sPeer + ',' +
              ThreeDigits(time.fNanoseconds) + '\n';
  }
  std::string sRatios = sMachine + "operation,set,peer,ratio,at least,aim\n";
  for (const Ratio& ratio : figures.ratios) {
    if (ratio.fMeasured <= 0) continue;
    sRatios += ratio.sOperation + ',' + ratio.sSet + ',' + ratio.sPeer + ',' +
               ThreeDigits(ratio.fMeasured) + ',' + ThreeDigits(ratio.fAtLeast) + ',' +
               (ratio.fAim > 0 ? ThreeDigits(ratio.fAim) : "") + '\n';
  }
  const std::string sPath = sFolder + '/' + figures.sTitle;
  WriteFile(sPath + "-times.csv", sTimes);
  WriteFile(sPath + "-ratios.csv", sRatios);
  WriteFile(sPath + ".svg", PictureOf(figures, sOurs));
}

}  // namespace ald::bench
