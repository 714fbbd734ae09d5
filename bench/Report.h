#pragma once

#include <iosfwd>
#include <string>

#include "bench/Harness.h"

// What a run leaves behind: two tables for the eye, the same as CSV, and a picture of the ratios.
namespace ald::bench {

void PrintTables(std::ostream& stream, const Figures& figures, const std::string& sOurs);

// Writes TITLE-times.csv, TITLE-ratios.csv and TITLE.svg; a file that cannot be written is told on
// std::cerr.
void WriteFigures(const std::string& sFolder, const Figures& figures, const std::string& sOurs);

// A bar for each ratio on a logarithmic scale, with marks for what is wanted.
std::string PictureOf(const Figures& figures, const std::string& sOurs);

// "1.23" below 10, "12.3" below 100, "123" from there on.
std::string ThreeDigits(double fValue);

}  // namespace ald::bench
