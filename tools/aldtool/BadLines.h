#pragma once

#include <cstddef>
#include <string>

namespace aldtool {

// Makes a folder the one that the log of messages lies in. Without a call it is the data folder of
// the product's INI file.
void UseLogFolder(const std::string& sFolder);

// Enters what is wrong with a line of input into the log, as the tool's message 30001. Where there
// is no such folder nothing is written.
void LogBadLine(std::size_t nLine, const std::string& sTrouble);

}  // namespace aldtool
