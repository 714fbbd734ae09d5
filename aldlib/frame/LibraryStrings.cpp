#include "aldlib/frame/LibraryStrings.h"

#include <algorithm>

#include "aldlib/frame/internal/LibraryStringRows.h"

namespace ald {

const char* FindLibraryString(std::uint32_t nNumber) {
  const auto rows = LibraryStringRows();
  const auto found = std::lower_bound(
      rows.begin(), rows.end(), nNumber,
      [](const LibraryString& string, std::uint32_t nSought) { return string.nNumber < nSought; });
  return found != rows.end() && found->nNumber == nNumber ? found->szText : nullptr;
}

StringTable LibraryStringTable() {
  StringTable table;
  for (const LibraryString& string : LibraryStringRows()) table.Add(string.nNumber, string.szText);
  return table;
}

}  // namespace ald
