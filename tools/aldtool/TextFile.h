#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace aldtool {

// A text file as its lines, without their ends. Either all of it was read and is text, or there is
// a sentence that says why not.
struct TextFile {
  std::string sText;
  std::vector<std::string_view> lines;  // into sText
  std::string sTrouble;                 // empty: all is well

  TextFile() = default;
  TextFile(const TextFile&) = delete;
  TextFile& operator=(const TextFile&) = delete;
};

inline constexpr std::size_t kLongestLine = 1000;

// Fills `file` from the file at sPath. Refused are folders, files that cannot be read to their end,
// control characters other than tabs, lines of more than kLongestLine bytes, and files without any
// line.
void ReadTextFile(const std::string& sPath, TextFile& file);

// Appends all bytes of a file to the text. Returns a sentence that says why not, or an empty one.
std::string ReadFile(const std::string& sPath, std::string& sText);

// Without the blanks and tabs on both sides.
std::string_view Trimmed(std::string_view sText);

}  // namespace aldtool
