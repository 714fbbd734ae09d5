#include <cstddef>
#include <cstdint>
#include <iomanip>
#include <iostream>
#include <string>

#include "aldlib/platform/Characters.h"
#include "aldlib/text/WildcardSearch.h"
#include "tools/aldtool/Commands.h"
#include "tools/aldtool/TextFile.h"

namespace aldtool {

namespace {

// The matches in one text, as columns from 1 on: "5-9, 14-18"; empty if there are none.
std::string Columns(ald::WildcardSearch& finder) {
  std::string sColumns;
  std::uint32_t nLastEnd = UINT32_MAX;
  ald::SearchResultInfo found;
  while (finder.search(found)) {
    // Backward a wildcard can lead to the same match again, for ever.
    if (!finder.getSearchBehavior().forward && found.endPosition >= nLastEnd) break;
    nLastEnd = found.endPosition;
    sColumns += (sColumns.empty() ? "" : ", ") + std::to_string(found.startPosition + 1) + "-" +
                std::to_string(found.endPosition + 1);
  }
  return sColumns;
}

}  // namespace

int RunFind(const std::string& sPattern, const std::string& sPath,
            const ald::SearchBehavior& behavior) {
  TextFile file;
  ReadTextFile(sPath, file);
  if (!file.sTrouble.empty() || sPattern.empty()) {
    std::cerr << "aldtool: "
              << (sPattern.empty() ? "there is nothing to find" : sPath + ": " + file.sTrouble)
              << '\n';
    return kUnusable;
  }
  ald::WildcardSearch finder;
  finder.setSearchBehavior(behavior);
  finder.setQueryText(ald::CodePage1252FromUtf8(sPattern));
  std::size_t nFound = 0;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    const std::size_t nLine = behavior.forward ? i : file.lines.size() - 1 - i;
    finder.setText(ald::CodePage1252FromUtf8(file.lines[nLine]));
    const std::string sColumns = Columns(finder);
    if (sColumns.empty()) continue;
    std::cout << std::setw(5) << nLine + 1 << "  " << file.lines[nLine] << "\n       at "
              << sColumns << '\n';
    ++nFound;
  }
  if (nFound == 0) std::cout << "Not found.\n";
  return nFound > 0 ? kGood : kBadLines;
}

}  // namespace aldtool
