#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace aldtool {

// Something in a tax information file that payroll would read otherwise than it is meant, or not at
// all.
struct TaxFileFault {
  std::size_t nLine = 0;  // from 1; 0 for something that is not there
  std::string sSection;   // of the line; empty before the first one
  std::string sKey;       // empty if the line as a whole is meant
  std::string sText;      // a sentence without its full stop
};

// Looks at every line, and returns the faults in the order of their lines, what is missing last.
std::vector<TaxFileFault> CheckTaxFile(const std::vector<std::string_view>& lines);

}  // namespace aldtool
