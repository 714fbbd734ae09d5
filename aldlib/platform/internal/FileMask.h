#pragma once

#include <string_view>

#include "aldlib/platform/Characters.h"

// Names of files against masks with wildcards.
namespace ald {

constexpr bool HasWildcards(std::string_view sName) {
  return sName.find_first_of("*?") != std::string_view::npos;
}

// True if the mask stands for every name.
constexpr bool MatchesAll(std::string_view sMask) {
  return sMask == "*" || sMask == "*.*";
}

// "*" stands for any characters, "?" for one, or for none before a full stop and at the end.
// Letters of either case are the same.
constexpr bool MatchesMask(std::string_view sMask, std::string_view sName) noexcept {
  if (MatchesAll(sMask)) return true;
  // A full stop at the end of a mask is met by a name without one.
  if (sMask.ends_with('.') && sName.find('.') == std::string_view::npos) sMask.remove_suffix(1);
  std::size_t iMask = 0;
  std::size_t iName = 0;
  std::size_t iStar = std::string_view::npos;  // behind the last star, and what it has eaten up to
  std::size_t iEaten = 0;
  while (true) {
    if (iMask < sMask.size() && sMask[iMask] == '*') {
      iStar = ++iMask;
      iEaten = iName;
    } else if (iMask < sMask.size() && sMask[iMask] == '?') {
      ++iMask;
      if (iName < sName.size() && sName[iName] != '.') ++iName;
    } else if (iName == sName.size() && iMask == sMask.size()) {
      return true;
    } else if (iName < sName.size() && iMask < sMask.size() &&
               CharUpper(sMask[iMask]) == CharUpper(sName[iName])) {
      ++iMask;
      ++iName;
    } else if (iStar != std::string_view::npos && iEaten < sName.size()) {
      iMask = iStar;
      iName = ++iEaten;
    } else {
      return false;
    }
  }
}

}  // namespace ald
