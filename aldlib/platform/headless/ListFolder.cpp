#include <string_view>
#include <vector>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/headless/internal/HeadlessParts.h"
#include "aldlib/platform/internal/FileMask.h"
#include "aldlib/platform/internal/PathText.h"

namespace ald {
namespace {

// Attributes of a directory search.
constexpr std::uint32_t kSearchFolders = 0x0010;
constexpr std::uint32_t kSearchOnlyThese = 0x8000;  // no plain files

// A folder in full, without a separator at its end except for a root: "C:\DATA", or "/data" for one
// in the system's own spelling. Empty if it is on no drive.
CString FullFolder(Volumes& volumes, std::string_view sPath) {
  if (IsSharePath(sPath)) return {};
  const bool bNative = sPath.starts_with('/');
  CString sFull;
  CString sRest(sPath);
  if (!bNative) {
    const bool bDrive = HasDrive(sPath);
    const unsigned nDrive = bDrive ? DriveIndex(sPath[0]) : volumes.CurrentDrive();
    const CString sCurrent = volumes.CurrentFolder(static_cast<std::uint16_t>(nDrive));
    if (!HasDrive(sCurrent)) return {};
    sFull = sCurrent.substr(0, 2);
    if (bDrive) sRest.erase(0, 2);
    if (sRest.empty() || !IsSeparator(sRest[0])) sRest = sCurrent.substr(2) + '\\' + sRest;
  }
  const char chSeparator = bNative ? '/' : '\\';
  const std::vector<std::string_view> elements = ElementsOf(sRest, true);
  for (const std::string_view sElement : elements) sFull.append(1, chSeparator).append(sElement);
  if (elements.empty()) sFull += chSeparator;
  return sFull;
}

// False if there is no match.
template <class Take>
bool ForEachMatch(Volumes& volumes, const CString& sMask, Take take) {
  _finddata_t record{};
  const SearchHandle hSearch = volumes.StartSearch(sMask.c_str(), record);
  if (hSearch == kNoSearch) return false;
  do take(record);
  while (volumes.ContinueSearch(hSearch, record));
  volumes.EndSearch(hSearch);
  return true;
}

}  // namespace

// Folders stand in brackets behind the files.
bool HeadlessControls::ListFolder(WindowHandle hParent, const CString& sPath, std::int32_t nList,
                                  std::int32_t nLabel, std::uint32_t nAttributes) {
  Volumes& volumes = CurrentPlatform().volumes;
  std::string_view sFolderPart = sPath;
  CString sPattern = "*.*";
  if (const PathEnd end = SplitPath(sPath); HasWildcards(end.sName)) {
    sFolderPart = end.sFolder;
    sPattern = end.sName;
  }
  const CString sFolder = FullFolder(volumes, sFolderPart);
  if (sFolder.empty()) return false;
  const bool bRoot = IsSeparator(sFolder.back());
  const CString sStart = bRoot ? sFolder : sFolder + (sFolder[0] == '/' ? '/' : '\\');

  std::vector<CString> items;
  std::vector<CString> folders;
  const bool bThere = ForEachMatch(volumes, sStart + "*.*", [&](const _finddata_t& entry) {
    const CString sName = entry.name;
    if ((entry.attrib & kFolderAttribute) != 0 && sName != ".")
      folders.push_back('[' + sName + ']');
  });
  if (!bThere && !bRoot) return false;  // only a root may hold nothing at all
  if ((nAttributes & kSearchFolders) == 0) folders.clear();
  if ((nAttributes & kSearchOnlyThese) == 0) {
    ForEachMatch(volumes, sStart + sPattern, [&](const _finddata_t& entry) {
      if ((entry.attrib & kFolderAttribute) == 0) items.push_back(entry.name);
    });
  }
  items.insert(items.end(), folders.begin(), folders.end());

  const WindowHandle hList = m_parts.windows.Child(hParent, nList);
  RemoveAllItems(hList);
  for (const CString& sName : items) AddItem(hList, sName);
  m_parts.windows.SetText(m_parts.windows.Child(hParent, nLabel), sFolder);
  return true;
}

}  // namespace ald
