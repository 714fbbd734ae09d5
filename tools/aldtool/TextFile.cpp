#include "tools/aldtool/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace aldtool {

namespace {

constexpr std::uintmax_t kLargestFile = 256U << 20;

bool IsControl(char c) {
  const auto nByte = static_cast<unsigned char>(c);
  return (nByte < 0x20 && c != '\t') || nByte == 0x7F;
}

}  // namespace

std::string ReadFile(const std::string& sPath, std::string& sText) {
  std::error_code error;
  if (std::filesystem::is_directory(sPath, error)) return "is a folder.";
  const std::uintmax_t nSize = std::filesystem::file_size(sPath, error);
  if (!error && nSize > kLargestFile) return "is larger than 256 MiB.";
  errno = 0;
  std::ifstream stream(sPath, std::ios::binary);
  if (!stream) return std::string("cannot be opened: ") + std::strerror(errno) + ".";
  char aBlock[65536];
  while (stream.read(aBlock, sizeof aBlock) || stream.gcount() > 0) {
    sText.append(aBlock, static_cast<std::size_t>(stream.gcount()));
  }
  if (stream.bad() || (!error && nSize != 0 && sText.size() < nSize)) {
    return "cannot be read to its end.";
  }
  return {};
}

std::string_view Trimmed(std::string_view sText) {
  const std::size_t nFirst = sText.find_first_not_of(" \t");
  if (nFirst == std::string_view::npos) return {};
  return sText.substr(nFirst, sText.find_last_not_of(" \t") - nFirst + 1);
}

void ReadTextFile(const std::string& sPath, TextFile& file) {
  file.sTrouble = ReadFile(sPath, file.sText);
  std::string_view sRest = file.sText;
  while (file.sTrouble.empty() && !sRest.empty()) {
    const std::size_t nEnd = std::min(sRest.find('\n'), sRest.size());
    std::string_view sLine = sRest.substr(0, nEnd);
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
    if (sLine.ends_with('\r')) sLine.remove_suffix(1);
    file.lines.push_back(sLine);
    const std::string sWhere = "line " + std::to_string(file.lines.size());
    if (std::any_of(sLine.begin(), sLine.end(), IsControl)) {
      file.sTrouble = "is not a text file: " + sWhere + " holds a control character.";
    } else if (sLine.size() > kLongestLine) {
      file.sTrouble = sWhere + " is longer than " + std::to_string(kLongestLine) + " characters.";
    }
  }
  if (file.sTrouble.empty() && file.lines.empty()) file.sTrouble = "is empty.";
}

}  // namespace aldtool
