#include "aldlib/frame/LibraryStrings.h"

#include <algorithm>
#include <iterator>

namespace ald {
namespace {

struct LibraryString {
  std::uint16_t nNumber;
  const char* szText;
};

// In ascending order of the numbers.
constexpr LibraryString kStrings[] = {
    // The memory store.
    {20300, "@Call Alderfell Technical Support."},
    {20301, "@Not enough Memory to run."},
    {20400, "@Program Bug.  Attempt to delete memory block without a create."},
    {20401, "@Program Bug.  Attempt to create duplicate memory block."},
    {20402, "@Program Bug.  Cannot unlock handle."},
};

static_assert(std::adjacent_find(std::begin(kStrings), std::end(kStrings),
                                 [](const LibraryString& left, const LibraryString& right) {
                                   return left.nNumber >= right.nNumber;
                                 }) == std::end(kStrings));

}  // namespace

const char* FindLibraryString(std::uint32_t nNumber) {
  const auto* const pFound = std::lower_bound(
      std::begin(kStrings), std::end(kStrings), nNumber,
      [](const LibraryString& string, std::uint32_t nSought) { return string.nNumber < nSought; });
  return pFound != std::end(kStrings) && pFound->nNumber == nNumber ? pFound->szText : nullptr;
}

StringTable LibraryStringTable() {
  StringTable table;
  for (const LibraryString& string : kStrings) table.Add(string.nNumber, string.szText);
  return table;
}

}  // namespace ald
