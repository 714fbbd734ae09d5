#include "aldlib/files/Directories.h"

#include "aldlib/files/internal/DirectoryState.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {

constinit DirectoryState g_directories;

namespace {

constexpr std::uint64_t kUnknownSpace = UINT32_MAX;
constexpr std::size_t kLongestPath = 259;

Volumes& SystemVolumes() {
  return CurrentPlatform().volumes;
}

// The first match from the one in the record on that the filtered search takes.
unsigned char TakeMatch(_finddata_t* pRecord, CPathNameString& sName, unsigned char nAttribute) {
  do {
    if ((nAttribute == 0 || pRecord->attrib == nAttribute) && pRecord->name[0] != '.') {
      sstrcpy(sName, pRecord->name, sName.GetSize());
      return 1;
    }
  } while (FindNext(pRecord) != 0);
  return 0;
}

std::uint32_t CutTo32Bits(std::uint64_t nBytes) {
  return nBytes >> 32 != 0 ? UINT32_MAX : static_cast<std::uint32_t>(nBytes);
}

}  // namespace

std::uint16_t GetDrive() {
  return SystemVolumes().CurrentDrive();
}

void SetDrive(std::uint16_t nDrive) {
  SystemVolumes().ChangeDrive(nDrive);
}

unsigned char GetDir(std::uint16_t nDrive, CPathNameString& sFolder) {
  const CString sFull = SystemVolumes().CurrentFolder(
      nDrive == 0 ? GetDrive() : static_cast<std::uint16_t>(nDrive - 1));
  if (sFull.size() < 2 || sFull.size() > kLongestPath) return 0;
  sFolder = sFull.c_str() + 2;
  return 1;
}

unsigned char GetFullDir(CPathNameString& sFolder) {
  sFolder = "A:";
  sFolder[0] = static_cast<char>('A' + GetDrive());
  CPathNameString sRest;
  if (GetDir(0, sRest) == 0) return 0;
  if (sRest[0] != '\\') sstrcat(sFolder, "\\", sFolder.GetSize());
  sstrcat(sFolder, sRest, sFolder.GetSize());
  return 1;
}

unsigned char SetFullDir(const CPathNameString& sFolder) {
  const char* szFolder = sFolder;
  if (szFolder[0] != '\0' && szFolder[1] == ':') {
    SetDrive(static_cast<std::uint16_t>(ToUpperAscii(szFolder[0]) - 'A'));
    szFolder += 2;
  }
  return SystemVolumes().ChangeFolder(szFolder) ? 1 : 0;
}

unsigned char MakeDir(const CPathNameString& sFolder) {
  return SystemVolumes().MakeFolder(sFolder) ? 1 : 0;
}

unsigned char RemoveDir(const CPathNameString& sFolder) {
  return SystemVolumes().RemoveFolder(sFolder) ? 1 : 0;
}

unsigned char FindFirst(const char* szMask, _finddata_t* pRecord) {
  CloseFinds();
  g_directories.hSearch = kNoSearch;
  if (szMask != nullptr && pRecord != nullptr) {
    g_directories.hSearch = SystemVolumes().StartSearch(szMask, *pRecord);
  }
  return g_directories.hSearch != kNoSearch ? 1 : 0;
}

unsigned char FindNext(_finddata_t* pRecord) {
  if (pRecord != nullptr && SystemVolumes().ContinueSearch(g_directories.hSearch, *pRecord))
    return 1;
  CloseFinds();
  g_directories.hSearch = kNoSearch;
  return 0;
}

void CloseFinds() {
  if (g_directories.hSearch != kNoSearch) SystemVolumes().EndSearch(g_directories.hSearch);
}

unsigned char ALWFindFirstFile(_finddata_t* pRecord, CPathNameString& sPath,
                               unsigned char nAttribute) {
  if (FindFirst(sPath, pRecord) == 0) return 0;
  return TakeMatch(pRecord, sPath, nAttribute);
}

unsigned char ALWFindNextFile(CPathNameString& sName, _finddata_t* pRecord,
                              unsigned char nAttribute) {
  if (FindNext(pRecord) == 0) return 0;
  return TakeMatch(pRecord, sName, nAttribute);
}

void GetDiskSpaceEx(const char* szPath, std::uint64_t* pFree, std::uint64_t* pTotal) {
  std::uint64_t nFree = kUnknownSpace;
  std::uint64_t nTotal = kUnknownSpace;
  std::uint64_t nAnsweredFree = 0;
  std::uint64_t nAnsweredTotal = 0;
  DiskClusters clusters;
  switch (SystemVolumes().DiskSpace(szPath, nAnsweredFree, nAnsweredTotal)) {
    case DiskSpaceAnswer::Good:
      nFree = nAnsweredFree;
      nTotal = nAnsweredTotal;
      break;
    case DiskSpaceAnswer::Missing:
      if (SystemVolumes().DiskSpaceInClusters(szPath, clusters)) {
        const std::uint64_t nCluster =
            std::uint64_t{clusters.nSectorsPerCluster} * clusters.nBytesPerSector;
        nFree = clusters.nFreeClusters * nCluster;
        nTotal = clusters.nTotalClusters * nCluster;
      }
      break;
    case DiskSpaceAnswer::Failed:
      break;
  }
  if (pFree != nullptr) *pFree = nFree;
  if (pTotal != nullptr) *pTotal = nTotal;
}

void GetDiskSpace(const char* szPath, std::uint32_t* pFree, std::uint32_t* pTotal) {
  std::uint64_t nFree = 0;
  std::uint64_t nTotal = 0;
  GetDiskSpaceEx(szPath, &nFree, &nTotal);
  if (pFree != nullptr) *pFree = CutTo32Bits(nFree);
  if (pTotal != nullptr) *pTotal = CutTo32Bits(nTotal);
}

std::uint32_t GetDiskSpace(std::uint16_t nDrive) {
  const char szRoot[] = {static_cast<char>(64 + nDrive), ':', '\\', '\0'};
  std::uint32_t nFree = 0;
  GetDiskSpace(nDrive == 0 ? nullptr : szRoot, &nFree, nullptr);
  return nFree;
}

void AddBackSlash(CFixedStringParamRef ref) noexcept {
  if (ref.IsEmpty()) return;
  const std::int32_t nLength = TextLength(ref.buffer, ref.size);
  if (ref.buffer[nLength - 1] != '\\') sstrcat(ref.buffer, "\\", ref.size);
}

}  // namespace ald
