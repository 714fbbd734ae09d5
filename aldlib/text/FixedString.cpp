#include "aldlib/text/FixedString.h"

#include <algorithm>

namespace ald {

std::int32_t CFixedStringParamRef::ReplaceAll(const char* szOld, const char* szNew) const noexcept {
  const std::string_view sOld = internal::ViewOrEmpty(szOld);
  const std::string_view sNew = internal::ViewOrEmpty(szNew);
  if (buffer == nullptr || size < 1 || sOld.empty()) return 0;

  // Each hit is what deleting and then inserting there would leave, with one move of the text
  // behind it and with the tail cleaned once, at the end.
  const auto nRoom = static_cast<std::size_t>(size) - 1;
  std::size_t nLength = view().size();
  if (nLength > nRoom) nLength = nRoom;
  std::size_t nPosition = 0;
  std::int32_t nReplaced = 0;
  for (;;) {
    const std::size_t nHit = std::string_view(buffer, nLength).find(sOld, nPosition);
    if (nHit == std::string_view::npos) break;
    ++nReplaced;
    const std::size_t nBehind = nHit + sOld.size();
    const std::size_t nFresh = std::min(sNew.size(), nRoom - nHit);
    const std::size_t nKept = std::min(nLength - nBehind, nRoom - nHit - nFresh);
    if (sNew.size() != sOld.size() && nKept != 0) {
      std::memmove(buffer + nHit + nFresh, buffer + nBehind, nKept);
    }
    if (nFresh != 0) std::memmove(buffer + nHit, sNew.data(), nFresh);
    nPosition = nHit + nFresh;
    nLength = nPosition + nKept;
  }
  if (nReplaced != 0) std::memset(buffer + nLength, 0, nRoom + 1 - nLength);
  return nReplaced;
}

}  // namespace ald
