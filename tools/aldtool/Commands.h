#pragma once

#include <string>

// The commands of aldtool, one file each. They write to standard output, complain on standard
// error, and return the exit status of the program.
namespace aldtool {

inline constexpr int kGood = 0;      // everything was read
inline constexpr int kBadLines = 1;  // the work was done, but not all of the input was good
inline constexpr int kUnusable = 2;  // nothing could be done; nothing was printed as if it could

int RunAmount(const std::string& sTyped);
int RunCalc(const std::string& sExpression);
int RunChecks(const std::string& sPath);
int RunWords(const std::string& sTyped);

}  // namespace aldtool
