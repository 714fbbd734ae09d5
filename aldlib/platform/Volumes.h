#pragma once

#include <cstdint>

#include "aldlib/platform/Types.h"

namespace ald {

// What a file or folder is, as one word: a sum of these.
enum FileAttribute : std::uint32_t {
  kReadOnlyAttribute = 0x01,
  kFolderAttribute = 0x10,
  kFileAttribute = 0x20,  // each file that is no folder
};

// One match of a folder search. Times are in seconds since 1970; a system that does not know when a
// file was made or read gives the time of its last change.
struct _finddata_t {
  std::uint32_t attrib;
  std::int64_t time_create;
  std::int64_t time_access;
  std::int64_t time_write;
  std::int64_t size;
  char name[260];  // without its folder
};

// The number of an open folder search; numbers are not used again.
enum class SearchHandle : std::int32_t {};
inline constexpr SearchHandle kNoSearch{-1};

// The name of one entry, in the spelling on the disk.
struct FolderEntry {
  CString sName;
  CString sAlternateName;  // the short one, empty if there is none
};

enum class DiskSpaceAnswer {
  Good,
  Failed,
  Missing,  // an older system, which has DiskClusters only
};

struct DiskClusters {
  std::uint32_t nSectorsPerCluster = 0;
  std::uint32_t nBytesPerSector = 0;
  std::uint32_t nFreeClusters = 0;
  std::uint32_t nTotalClusters = 0;
};

// What the library asks of the system about drives and folders. Drives are numbers, 0 for A. Paths
// have drives and backslashes and count from the current folder; a backend may take other spellings
// as well. Names are found whatever the case of their letters, and given back as they are spelled
// on the disk.
//
// Nothing here throws. A null or empty path, or one on a drive that there is none of, is a failure
// like any other.
class Volumes {
 public:
  virtual ~Volumes() = default;

  virtual std::uint16_t CurrentDrive() = 0;
  virtual bool ChangeDrive(std::uint16_t nDrive) = 0;
  // The current folder of a drive, "C:\DATA", the root of a drive "C:\"; empty if it cannot be
  // told.
  virtual CString CurrentFolder(std::uint16_t nDrive) = 0;
  // The folder's drive does become the current one.
  virtual bool ChangeFolder(const char* szPath) = 0;

  // One folder, not those on the way to it. Only an empty one can be removed.
  virtual bool MakeFolder(const char* szPath) = 0;
  virtual bool RemoveFolder(const char* szPath) = 0;

  // Starts a search for a folder's entries and gives the first. The last element of the mask may
  // have wildcards: "*" stands for any characters, "?" for one, or for none before a full stop and
  // at the end; "*" and "*.*" stand for every name, "*." for those without a full stop. Such a mask
  // finds "." and ".." as well, but not in the root of a drive.
  //
  // "." and ".." come first and the others in the order of their capitals, as they were when the
  // search began; one that has gone since is left out. Returns kNoSearch if there is no match.
  virtual SearchHandle StartSearch(const char* szMask, _finddata_t& record) = 0;
  // Gives the next match. Returns false, and leaves the record alone, if there is none, or no such
  // search.
  virtual bool ContinueSearch(SearchHandle hSearch, _finddata_t& record) = 0;
  // Does nothing if there is no such search.
  virtual void EndSearch(SearchHandle hSearch) = 0;

  // Looks one file or folder up, the first one if the path has wildcards. A path that ends in a
  // backslash is not there.
  virtual bool LookUp(const char* szPath, FolderEntry& entry) = 0;

  // The short form of a path, cut to the buffer with its terminating zero. Returns the length that
  // it has; 0, and nothing written, if the path is not there or the system keeps no short names.
  virtual std::uint32_t ShortPath(const char* szPath, char* szBuffer, std::uint32_t nSize) = 0;

  // The bytes on the volume of a folder, null for the current one: those free to the caller, and
  // all.
  virtual DiskSpaceAnswer DiskSpace(const char* szPath, std::uint64_t& nFree,
                                    std::uint64_t& nTotal) = 0;
  // The same as an older system tells it.
  virtual bool DiskSpaceInClusters(const char* szPath, DiskClusters& clusters) = 0;

  // The folder for temporary files, with a backslash at its end; empty if there is none.
  virtual CString TempFolder() = 0;
  // Makes an empty file of a new name in the folder: at most three characters of the prefix, a
  // number in hexadecimal digits and ".TMP". Returns the number, 1 to 65535, with the path; 0 if it
  // cannot be made.
  virtual std::uint32_t MakeTempFile(const char* szFolder, const char* szPrefix,
                                     CString& sPath) = 0;
};

}  // namespace ald
