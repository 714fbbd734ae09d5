#pragma once

#include <map>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/MemoryDisk.h"
#include "aldlib/platform/Volumes.h"

namespace ald {

// Drives and folders of a disk in memory, for tests and for hosts without one. The same calls give
// the same results each time. What it can be told stands below; the rest is the disk's.
class ALDLIB_EXPORT MemoryVolumes : public Volumes {
 public:
  // The caller keeps the disk alive.
  explicit MemoryVolumes(MemoryDisk& disk) : m_disk(disk) {}

  std::uint16_t CurrentDrive() override;
  bool ChangeDrive(std::uint16_t nDrive) override;
  CString CurrentFolder(std::uint16_t nDrive) override;
  bool ChangeFolder(const char* szPath) override;
  bool MakeFolder(const char* szPath) override;
  bool RemoveFolder(const char* szPath) override;
  SearchHandle StartSearch(const char* szMask, _finddata_t& record) override;
  bool ContinueSearch(SearchHandle hSearch, _finddata_t& record) override;
  void EndSearch(SearchHandle hSearch) override;
  bool LookUp(const char* szPath, FolderEntry& entry) override;
  std::uint32_t ShortPath(const char* szPath, char* szBuffer, std::uint32_t nSize) override;
  DiskSpaceAnswer DiskSpace(const char* szPath, std::uint64_t& nFree,
                            std::uint64_t& nTotal) override;
  bool DiskSpaceInClusters(const char* szPath, DiskClusters& clusters) override;
  CString TempFolder() override { return m_sTempFolder; }
  std::uint32_t MakeTempFile(const char* szFolder, const char* szPrefix, CString& sPath) override;

  std::size_t OpenSearches() const { return m_searches.size(); }

  CString m_sTempFolder = "C:\\TEMP\\";  // made by nobody
  bool m_bOldDiskSpace = false;          // only DiskSpaceInClusters is there
  // The short name of an entry by its name as spelled on the disk; without any, there are no short
  // paths.
  std::map<CString, CString> m_shortNames;

 private:
  // The matches that are still to come, the first one last.
  struct Match {
    CString sName;  // "." and ".." have a name of their own
    MemoryNodePtr pNode;
    CString sPath;
  };
  using Search = std::vector<Match>;

  bool Next(Search& search, _finddata_t& record);

  MemoryDisk& m_disk;
  std::map<SearchHandle, Search> m_searches;
  std::int32_t m_nLastSearch = 0;
  std::uint16_t m_nLastTemp = 0;
};

}  // namespace ald
