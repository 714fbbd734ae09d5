#pragma once

#include <algorithm>
#include <string_view>
#include <vector>

#include "aldlib/platform/Characters.h"

// The parts of a path with drive and backslashes.
namespace ald {

constexpr bool IsSeparator(char c) {
  return c == '\\' || c == '/';
}

constexpr bool IsDriveLetter(char c) {
  return ToUpperAscii(c) >= 'A' && ToUpperAscii(c) <= 'Z';
}

constexpr bool HasDrive(std::string_view sPath) {
  return sPath.size() >= 2 && sPath[1] == ':' && IsDriveLetter(sPath[0]);
}

constexpr bool IsSharePath(std::string_view sPath) {
  return sPath.starts_with("\\\\");
}

// 0 for A.
constexpr unsigned DriveIndex(char chDrive) {
  return static_cast<unsigned>(ToUpperAscii(chDrive) - 'A');
}

// The elements of a path between its separators. ".." takes the element before it away, as the
// library's paths are read: by their text. Those that lead out of a relative path stay, those that
// lead above a root do not count.
inline std::vector<std::string_view> ElementsOf(std::string_view sPath, bool bFromRoot) {
  std::vector<std::string_view> elements;
  while (!sPath.empty()) {
    const std::size_t nEnd = std::min(sPath.find_first_of("\\/"), sPath.size());
    const std::string_view sElement = sPath.substr(0, nEnd);
    sPath.remove_prefix(std::min(nEnd + 1, sPath.size()));
    if (sElement.empty() || sElement == ".") continue;
    if (sElement != ".." || (!bFromRoot && (elements.empty() || elements.back() == ".."))) {
      elements.push_back(sElement);
    } else if (!elements.empty()) {
      elements.pop_back();
    }
  }
  return elements;
}

// The last element of a path, as it stands: "C:\DATA\*.DAT" -> "*.DAT"; the rest with its
// separator.
struct PathEnd {
  std::string_view sFolder;
  std::string_view sName;
};
constexpr PathEnd SplitPath(std::string_view sPath) {
  std::size_t nStart = HasDrive(sPath) ? 2 : 0;
  const std::size_t nLast = sPath.find_last_of("\\/");
  if (nLast != std::string_view::npos) nStart = nLast + 1;
  return {sPath.substr(0, nStart), sPath.substr(nStart)};
}

}  // namespace ald
