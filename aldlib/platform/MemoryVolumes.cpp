#include "aldlib/platform/MemoryVolumes.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "aldlib/platform/internal/FileMask.h"
#include "aldlib/platform/internal/PathText.h"

namespace ald {
namespace {

constexpr std::uint32_t kClusterBytes = 4096;

char LetterOf(std::uint16_t nDrive) {
  return nDrive < 26 ? static_cast<char>('A' + nDrive) : '\0';
}

std::string_view ViewOf(const char* szText) {
  return szText != nullptr ? szText : "";
}

void FillRecord(const CString& sName, const MemoryNode& node, _finddata_t& record) {
  record.attrib = node.bFolder ? kFolderAttribute : kFileAttribute;
  if (node.bReadOnly) record.attrib |= kReadOnlyAttribute;
  record.time_create = record.time_access = record.time_write = node.nWritten;
  record.size = static_cast<std::int64_t>(node.sData.size());
  std::memset(record.name, 0, sizeof record.name);
  std::memcpy(record.name, sName.data(), std::min(sName.size(), sizeof record.name - 1));
}

}  // namespace

std::uint16_t MemoryVolumes::CurrentDrive() {
  return static_cast<std::uint16_t>(DriveIndex(m_disk.CurrentDrive()));
}

bool MemoryVolumes::ChangeDrive(std::uint16_t nDrive) {
  return m_disk.ChangeDrive(LetterOf(nDrive));
}

CString MemoryVolumes::CurrentFolder(std::uint16_t nDrive) {
  return m_disk.CurrentFolder(LetterOf(nDrive));
}

bool MemoryVolumes::ChangeFolder(const char* szPath) {
  if (!m_disk.ChangeFolder(ViewOf(szPath))) return false;
  return !HasDrive(szPath) || m_disk.ChangeDrive(*szPath);
}

bool MemoryVolumes::MakeFolder(const char* szPath) {
  MemoryNodePtr pNode;
  return m_disk.Make(ViewOf(szPath), true, pNode) == kNoSystemError;
}

bool MemoryVolumes::RemoveFolder(const char* szPath) {
  MemoryNodePtr pNode;
  return m_disk.Find(ViewOf(szPath), pNode) == kNoSystemError && pNode->bFolder &&
         m_disk.Remove(szPath) == kNoSystemError;
}

SearchHandle MemoryVolumes::StartSearch(const char* szMask, _finddata_t& record) {
  const PathEnd end = SplitPath(ViewOf(szMask));
  const CString sFolder = m_disk.FullPath(end.sFolder.empty() ? "." : end.sFolder);
  MemoryNodePtr pFolder;
  if (end.sName.empty() || m_disk.Find(sFolder, pFolder) != kNoSystemError || !pFolder->bFolder) {
    return kNoSearch;
  }
  const CString sStart = sFolder.ends_with('\\') ? sFolder : sFolder + '\\';
  Search search;
  const bool bRoot = sFolder.size() == 3;
  for (const char* szDots : {".", ".."}) {
    MemoryNodePtr pNode;
    if (!bRoot && (MatchesAll(end.sName) || end.sName == szDots) &&
        m_disk.Find(sStart + szDots, pNode) == kNoSystemError) {
      search.push_back({szDots, pNode, sStart + szDots});
    }
  }
  for (const auto& [sFolded, pNode] : pFolder->children) {
    if (!MatchesMask(end.sName, pNode->sName)) continue;
    search.push_back({pNode->sName, pNode, sStart + pNode->sName});
  }
  std::reverse(search.begin(), search.end());
  if (!Next(search, record)) return kNoSearch;
  const SearchHandle hSearch{++m_nLastSearch};
  m_searches[hSearch] = std::move(search);
  return hSearch;
}

bool MemoryVolumes::Next(Search& search, _finddata_t& record) {
  while (!search.empty()) {
    const Match match = std::move(search.back());
    search.pop_back();
    MemoryNodePtr pNode;
    if (m_disk.Find(match.sPath, pNode) != kNoSystemError || pNode != match.pNode) continue;
    FillRecord(match.sName, *pNode, record);
    return true;
  }
  return false;
}

bool MemoryVolumes::ContinueSearch(SearchHandle hSearch, _finddata_t& record) {
  const auto it = m_searches.find(hSearch);
  return it != m_searches.end() && Next(it->second, record);
}

void MemoryVolumes::EndSearch(SearchHandle hSearch) {
  m_searches.erase(hSearch);
}

bool MemoryVolumes::LookUp(const char* szPath, FolderEntry& entry) {
  _finddata_t record;
  const SearchHandle hSearch = StartSearch(szPath, record);
  if (hSearch == kNoSearch) return false;
  EndSearch(hSearch);
  const auto it = m_shortNames.find(record.name);
  entry = {record.name, it != m_shortNames.end() ? it->second : CString()};
  return true;
}

std::uint32_t MemoryVolumes::ShortPath(const char* szPath, char* szBuffer, std::uint32_t nSize) {
  MemoryNodePtr pNode;
  if (m_shortNames.empty() || szBuffer == nullptr || nSize == 0) return 0;
  if (m_disk.Find(ViewOf(szPath), pNode) != kNoSystemError) return 0;
  const CString sFull = m_disk.FullPath(szPath);
  CString sShort = sFull.substr(0, 2);
  for (const std::string_view sElement : ElementsOf(std::string_view(sFull).substr(2), true)) {
    const auto it = m_shortNames.find(CString(sElement));
    sShort.append("\\").append(it != m_shortNames.end() ? it->second : sElement);
  }
  if (sShort.size() == 2) sShort += '\\';
  const std::size_t nCopied = std::min<std::size_t>(sShort.size(), nSize - 1);
  std::memcpy(szBuffer, sShort.data(), nCopied);
  szBuffer[nCopied] = '\0';
  return static_cast<std::uint32_t>(sShort.size());
}

DiskSpaceAnswer MemoryVolumes::DiskSpace(const char* szPath, std::uint64_t& nFree,
                                         std::uint64_t& nTotal) {
  if (m_bOldDiskSpace) return DiskSpaceAnswer::Missing;
  MemoryNodePtr pNode;
  if (szPath == nullptr) szPath = ".";
  if (m_disk.Find(szPath, pNode) != kNoSystemError) return DiskSpaceAnswer::Failed;
  const char chDrive = m_disk.FullPath(szPath)[0];
  nFree = m_disk.FreeBytes(chDrive);
  nTotal = m_disk.TotalBytes(chDrive);
  return DiskSpaceAnswer::Good;
}

bool MemoryVolumes::DiskSpaceInClusters(const char* szPath, DiskClusters& clusters) {
  MemoryNodePtr pNode;
  if (szPath == nullptr) szPath = ".";
  if (m_disk.Find(szPath, pNode) != kNoSystemError) return false;
  const char chDrive = m_disk.FullPath(szPath)[0];
  clusters = {8, kClusterBytes / 8,
              static_cast<std::uint32_t>(m_disk.FreeBytes(chDrive) / kClusterBytes),
              static_cast<std::uint32_t>(m_disk.TotalBytes(chDrive) / kClusterBytes)};
  return true;
}

std::uint32_t MemoryVolumes::MakeTempFile(const char* szFolder, const char* szPrefix,
                                          CString& sPath) {
  CString sStart(ViewOf(szFolder));
  if (sStart.empty()) return 0;
  if (!IsSeparator(sStart.back())) sStart += '\\';
  sStart.append(ViewOf(szPrefix).substr(0, 3));
  for (std::uint32_t nTries = 0; nTries < UINT16_MAX; ++nTries) {
    if (++m_nLastTemp == 0) ++m_nLastTemp;
    char szEnd[16];
    std::snprintf(szEnd, sizeof szEnd, "%X.TMP", static_cast<unsigned>(m_nLastTemp));
    MemoryNodePtr pNode;
    const std::uint32_t nError = m_disk.Make(sStart + szEnd, false, pNode);
    if (nError == kNoSystemError) {
      sPath = sStart + szEnd;
      return m_nLastTemp;
    }
    if (nError != kFileExists) return 0;
  }
  return 0;
}

}  // namespace ald
