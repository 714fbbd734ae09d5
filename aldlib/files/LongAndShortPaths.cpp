#include "aldlib/files/Directories.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {

std::uint32_t GoodGetShortPathName(const char* szPath, CPathNameString& sShort) {
  if (szPath == nullptr || *szPath == '\0') {
    sShort.Clear();
    return 0;
  }
  CPathNameString sPath(szPath);  // the result may lie where the path does
  Volumes& volumes = CurrentPlatform().volumes;
  const auto length = [&sShort] { return static_cast<std::uint32_t>(sShort.view().size()); };
  const std::uint32_t nWhole =
      volumes.ShortPath(szPath, sShort, static_cast<std::uint32_t>(sShort.GetSize()));
  if (nWhole != 0 && nWhole <= length()) return nWhole;

  // Adds the name of what the prefix leads to.
  const auto addName = [&](const char* szPrefix) {
    FolderEntry entry;
    if (!volumes.LookUp(szPrefix, entry)) {
      sShort.Clear();
      return false;
    }
    const CString& sName = entry.sAlternateName.empty() ? entry.sName : entry.sAlternateName;
    sstrcat(sShort, sName.c_str(), sShort.GetSize());
    return true;
  };

  sShort.Clear();
  char* const szWork = sPath;
  std::int32_t nScan = 0;
  if (szWork[0] != '\0' && szWork[1] == ':') nScan = szWork[2] == '\\' ? 3 : 2;
  sstrcpy(sShort, szWork, nScan + 1);
  std::int32_t nPiece = nScan;
  for (; szWork[nScan] != '\0'; ++nScan) {
    if (szWork[nScan] != '\\') continue;
    szWork[nScan] = '\0';
    if (!addName(szWork)) return 0;
    sstrcat(sShort, "\\", sShort.GetSize());
    szWork[nScan] = '\\';
    nPiece = nScan + 1;
  }
  if (szWork[nPiece] == '\0') return length();
  CPathNameString sLast(sShort);
  sstrcat(sLast, szWork + nPiece, sLast.GetSize());
  return addName(sLast) ? length() : 0;
}

CPathNameString ALWGetLongPathName(CPathNameString sPath) {
  constexpr std::int32_t kSize = 260;
  const std::string_view sWhole = sPath.view();
  if (sWhole.find('\\') != 2) return {};
  CPathNameString sLong;
  sstrcpy(sLong, sPath, 3);
  std::string_view sRest = sWhole.substr(3);
  while (true) {
    const std::size_t nEnd = sRest.find('\\');
    sstrcat(sLong, "\\", kSize);
    if (sRest.empty()) return sLong;
    CPathNameString sElement;
    sRest.copy(sElement, nEnd);
    CPathNameString sProbe(sLong);
    sstrcat(sProbe, sElement, kSize);
    FolderEntry entry;
    if (!CurrentPlatform().volumes.LookUp(sProbe, entry)) return {};
    sstrcat(sLong, entry.sName.c_str(), kSize);
    if (nEnd == std::string_view::npos) return sLong;
    sRest.remove_prefix(nEnd + 1);
  }
}

}  // namespace ald
