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
    // The words of amounts on cheques. 20620 heads the tens and is never shown; the last is ours.
    {20600, "Zero"},
    {20601, "One"},
    {20602, "Two"},
    {20603, "Three"},
    {20604, "Four"},
    {20605, "Five"},
    {20606, "Six"},
    {20607, "Seven"},
    {20608, "Eight"},
    {20609, "Nine"},
    {20610, "Ten"},
    {20611, "Eleven"},
    {20612, "Twelve"},
    {20613, "Thirteen"},
    {20614, "Fourteen"},
    {20615, "Fifteen"},
    {20616, "Sixteen"},
    {20617, "Seventeen"},
    {20618, "Eighteen"},
    {20619, "Nineteen"},
    {20620, "Tens"},
    {20621, "Ten"},
    {20622, "Twenty"},
    {20623, "Thirty"},
    {20624, "Forty"},
    {20625, "Fifty"},
    {20626, "Sixty"},
    {20627, "Seventy"},
    {20628, "Eighty"},
    {20629, "Ninety"},
    {20630, "and"},
    {20631, "Dollars"},
    {20632, "Cents"},
    {20633, "Hundred"},
    {20634, "Thousand"},
    {20635, "Million"},
    {20636, "Billion"},
    {20637, "/100"},
    {20638, "Void"},
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
