#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/SystemErrors.h"
#include "aldlib/platform/Types.h"

namespace ald {

// A file or folder of a MemoryDisk. Whoever holds one may go on using it when it has left the disk.
struct MemoryNode {
  CString sName;  // in the spelling it was made with
  bool bFolder = false;
  bool bReadOnly = false;
  std::int64_t nWritten = 0;  // seconds since 1970; the disk has no clock of its own
  CString sData;              // of a file
  std::map<CString, std::shared_ptr<MemoryNode>> children;  // of a folder, by FoldedName
};
using MemoryNodePtr = std::shared_ptr<MemoryNode>;

// Drives with folders and files, in memory, for tests and for hosts without a disk. Names are found
// whatever the case of their letters and listed in the order of their capitals. At the start there
// is drive C, empty and current.
//
// A path has backslashes or slashes, and counts from the current folder of its drive or of the
// current one unless it begins with a separator. Each call returns 0 or a number of SystemError:
// kFileNotFound for the last name of a path, kPathNotFound for what comes before it.
class ALDLIB_EXPORT MemoryDisk {
 public:
  MemoryDisk();

  // Adds an empty drive, or empties the one that is there. 'A' to 'Z' in either case.
  void AddDrive(char chDrive, std::uint64_t nTotal = 1U << 30);

  std::uint32_t Find(std::string_view sPath, MemoryNodePtr& pNode) const;
  // Makes an empty folder or file in a folder that is there. kFileExists if the name is taken.
  std::uint32_t Make(std::string_view sPath, bool bFolder, MemoryNodePtr& pNode);
  // kAccessDenied for a drive itself, kFolderNotEmpty for a folder with something in it.
  std::uint32_t Remove(std::string_view sPath);
  // Moves a file or folder. kFileExists if the new name is taken by another one.
  std::uint32_t Rename(std::string_view sFrom, std::string_view sTo);

  // For the start of a test: writes a file and makes the folders on the way to it.
  MemoryNodePtr Write(std::string_view sPath, std::string_view sData);

  // A path from its drive on, without "." and "..", each name as it is spelled on the disk as far
  // as it is there: "data\chart.dat" -> "C:\DATA\Chart.dat". Empty if there is no such drive.
  CString FullPath(std::string_view sPath) const;

  // 'A' to 'Z'. A drive has to be there, and so has a folder, whose drive does not become current.
  char CurrentDrive() const { return m_chCurrent; }
  bool ChangeDrive(char chDrive);
  bool ChangeFolder(std::string_view sPath);
  // "C:\DATA"; empty if there is no such drive.
  CString CurrentFolder(char chDrive) const;

  // The bytes of all files on the drive count as taken. Return 0 for a drive that is not there.
  std::uint64_t TotalBytes(char chDrive) const;
  std::uint64_t FreeBytes(char chDrive) const;

 private:
  struct Drive {
    MemoryNodePtr pRoot;  // null: no such drive
    CString sCurrent;     // elements with backslashes between them; empty: the root
    std::uint64_t nTotal = 0;
  };
  struct Place {
    const Drive* pDrive = nullptr;
    char chDrive = '\0';
    std::vector<CString> elements;
  };

  Place PlaceOf(std::string_view sPath) const;
  static std::uint32_t FindParent(const Place& place, MemoryNodePtr& pParent);
  static std::uint32_t FindChild(const Place& place, MemoryNodePtr& pParent, MemoryNodePtr& pNode);

  std::array<Drive, 26> m_drives;
  char m_chCurrent = 'C';
};

}  // namespace ald
