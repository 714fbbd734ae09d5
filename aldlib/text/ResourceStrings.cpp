#include "aldlib/text/ResourceStrings.h"

#include <limits>

#include "aldlib/frame/LibraryState.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {

std::int32_t MyLoadString(std::uint32_t nString, CFixedStringParamRef output) {
  output.Clear();
  if (MyAlderLibDataPtr == nullptr) return 0;
  Resources& resources = CurrentPlatform().resources;

  const ModuleHandle hLast = MyAlderLibDataPtr->hLastStringModule;
  if (hLast != ModuleHandle{}) {
    const int nLength = resources.LoadString(hLast, nString, output.buffer, output.size);
    if (nLength > 0) return nLength;
  }
  for (const InstanceSearchEntry& entry : SearchedModules()) {
    if (entry.hModule == hLast) continue;
    const int nLength = resources.LoadString(entry.hModule, nString, output.buffer, output.size);
    if (nLength > 0) {
      MyAlderLibDataPtr->hLastStringModule = entry.hModule;
      return nLength;
    }
  }
  return 0;
}

std::uint16_t FindStrInResource(const char* szText, std::uint16_t nFirst) {
  constexpr std::uint32_t kLast = std::numeric_limits<std::uint16_t>::max();
  CFixedString<256> sCandidate;
  // Neither the number of a text nor the result goes past 16 bits.
  for (std::uint32_t nAt = 1; nAt <= kLast && nFirst + nAt - 1 <= kLast; ++nAt) {
    if (MyLoadString(nFirst + nAt - 1, sCandidate) == 0) return 0;
    if (CompareStrNoCase(sCandidate, szText) == 0) return static_cast<std::uint16_t>(nAt);
  }
  return 0;
}

}  // namespace ald
