#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace ald {

struct LibraryString {
  std::uint16_t nNumber;
  const char* szText;
};

// The texts of LibraryStrings.txt, in ascending order of their numbers. The build writes this
// function's source.
std::span<const LibraryString> LibraryStringRows();

// The search counts on it. A number that stands there twice is found by it too.
constexpr bool StandInOrder(std::span<const LibraryString> rows) {
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (rows[i - 1].nNumber >= rows[i].nNumber) return false;
  }
  return true;
}

}  // namespace ald
