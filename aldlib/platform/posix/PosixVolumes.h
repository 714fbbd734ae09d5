#pragma once

#include <map>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Volumes.h"
#include "aldlib/platform/posix/Descriptor.h"
#include "aldlib/platform/posix/PathMapper.h"

namespace ald {

// Drives and folders of a POSIX system, through a path mapper. The current folder is the process's
// own. A native path is taken as well. Names that have a backslash in them are not found.
//
// A file that nobody may write to is read-only. The system keeps no short names: only a native path
// has a short form, its spelling with drive and backslashes, so that both lead to one text.
class ALDLIB_EXPORT PosixVolumes : public Volumes {
 public:
  explicit PosixVolumes(PathMapper& paths) : m_paths(paths) {}
  PosixVolumes(const PosixVolumes&) = delete;
  PosixVolumes& operator=(const PosixVolumes&) = delete;

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
  CString TempFolder() override;
  std::uint32_t MakeTempFile(const char* szFolder, const char* szPrefix, CString& sPath) override;

 private:
  // The matches of a search that are still to come.
  struct Search {
    bool List(std::string_view sMask, bool bRoot);
    bool Next(_finddata_t& record);

    Descriptor folder;
    CString sNames;  // one behind the other, each with its terminating zero
    std::vector<std::uint32_t> starts;
    std::size_t nNext = 0;
  };

  CString Native(const char* szPath);
  bool Begin(const char* szMask, Search& search, _finddata_t& record);
  bool IsDriveRoot(const CString& sNative);

  PathMapper& m_paths;
  std::map<SearchHandle, Search> m_searches;
  std::int32_t m_nLastSearch = 0;
  std::uint16_t m_nLastTemp = 0;
};

}  // namespace ald
