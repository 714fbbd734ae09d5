#include "aldlib/platform/headless/internal/TextLayout.h"

#include <utility>

#include "aldlib/platform/Canvas.h"

namespace ald {
namespace {

constexpr std::size_t kTabWidth = 8;

// Takes the mnemonic signs out of a line, of two the first, and widens tabs if the bits say so.
CString Shown(std::string_view sLine, std::uint32_t nTextBits) {
  CString sShown;
  for (std::size_t i = 0; i < sLine.size(); ++i) {
    if (sLine[i] == '&' && (nTextBits & kTextNoPrefix) == 0) {
      if (++i == sLine.size()) break;
    } else if (sLine[i] == '\t' && (nTextBits & kTextExpandTabs) != 0) {
      sShown.append(kTabWidth - sShown.size() % kTabWidth, ' ');
      continue;
    }
    sShown += sLine[i];
  }
  return sShown;
}

// Breaks a line at blanks; those at a break are not shown.
void AddBroken(CString sLine, std::int32_t nRoom, const TextMeasure& widthOf,
               std::vector<CString>& lines) {
  while (widthOf(sLine) > nRoom) {
    std::size_t nBlank = sLine.find(' ', 1);
    if (nBlank == CString::npos) break;
    for (std::size_t nNext = nBlank; nNext != CString::npos; nNext = sLine.find(' ', nNext + 1)) {
      if (widthOf(std::string_view(sLine).substr(0, nNext)) > nRoom) break;
      nBlank = nNext;
    }
    lines.push_back(sLine.substr(0, nBlank));
    sLine.erase(0, nBlank + 1);
  }
  lines.push_back(std::move(sLine));
}

}  // namespace

std::vector<CString> LinesOf(std::string_view sText, std::uint32_t nTextBits, std::int32_t nRoom,
                             const TextMeasure& widthOf) {
  std::vector<CString> lines;
  if ((nTextBits & kTextSingleLine) != 0) {
    lines.push_back(Shown(sText, nTextBits));
    return lines;
  }
  while (!sText.empty()) {
    const std::size_t nEnd = sText.find_first_of("\r\n");
    CString sLine = Shown(sText.substr(0, nEnd), nTextBits);
    if ((nTextBits & kTextWordBreak) != 0) {
      AddBroken(std::move(sLine), nRoom, widthOf, lines);
    } else {
      lines.push_back(std::move(sLine));
    }
    if (nEnd == std::string_view::npos) break;
    sText.remove_prefix(sText.substr(nEnd, 2) == "\r\n" ? nEnd + 2 : nEnd + 1);
  }
  return lines;
}

}  // namespace ald
