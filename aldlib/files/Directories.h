#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Volumes.h"
#include "aldlib/text/FixedString.h"

// Drives, folders, the one folder search, free space, and the forms of a path.
//
//   _finddata_t record;
//   for (unsigned char bFound = FindFirst("C:\\BOOKS\\*.DAT", &record); bFound != 0;
//        bFound = FindNext(&record)) {
//     ...                                        // record.name: "CHART.DAT"
//   }
//
// A path has drives and backslashes, and counts from the current folder unless it begins with a
// drive and a backslash; the platform in use may take others as well. Nothing here shows a message:
// a failure is a zero result, 0 for false, or an empty text. Where a pointer is null that must not
// be, the call fails.
namespace ald {

// ---- Drives and folders

// The current drive, 0 for A.
[[nodiscard]] ALDLIB_EXPORT std::uint16_t GetDrive();
// Makes a drive the current one, 0 for A. Does nothing if there is no such drive.
ALDLIB_EXPORT void SetDrive(std::uint16_t nDrive);

// The current folder of a drive without the drive itself; 0 means the current drive and 1 means A.
// The root is a single backslash. Returns 0, and leaves the text alone, if there is no such drive
// or its folder has more than 259 characters.
ALDLIB_EXPORT unsigned char GetDir(std::uint16_t nDrive, CPathNameString& sFolder);
// The current folder with its drive. Where it fails, the text is the drive alone: "C:".
ALDLIB_EXPORT unsigned char GetFullDir(CPathNameString& sFolder);
// Makes the path's drive, if it has one, and then its folder current. A drive that cannot be made
// current does not count: the folder is then one of the drive that is. A drive alone, "D:", is
// changed to, and the call fails all the same, since no folder is named.
ALDLIB_EXPORT unsigned char SetFullDir(const CPathNameString& sFolder);

// Make and remove one folder.
ALDLIB_EXPORT unsigned char MakeDir(const CPathNameString& sFolder);
ALDLIB_EXPORT unsigned char RemoveDir(const CPathNameString& sFolder);

// ---- The folder search
//
// There is one for the whole process: starting a search ends the one before, whoever runs it. The
// port aldlib/platform/Volumes.h tells what a mask finds and in which order.

// Starts the search and gives its first match.
ALDLIB_EXPORT unsigned char FindFirst(const char* szMask, _finddata_t* pRecord);
// Gives the next match. Returns 0 at the end, which ends the search, and when none is open.
ALDLIB_EXPORT unsigned char FindNext(_finddata_t* pRecord);
// Ends the search. Unloading the library does so too.
ALDLIB_EXPORT void CloseFinds();

// The same search for the entries of one kind: those whose attribute word is nAttribute exactly, or
// all if it is 0, and whose name does not begin with a full stop. The mask goes in by sPath and the
// first name comes out by it; a call that finds nothing leaves it alone.
//   0x10 finds folders, but not those that are read-only: their word is 0x11
ALDLIB_EXPORT unsigned char ALWFindFirstFile(_finddata_t* pRecord, CPathNameString& sPath,
                                             unsigned char nAttribute);
ALDLIB_EXPORT unsigned char ALWFindNextFile(CPathNameString& sName, _finddata_t* pRecord,
                                            unsigned char nAttribute);

// ---- Free space

// The bytes free to the caller and all bytes of the volume that a folder lies on; null means the
// current folder. Each is 4,294,967,295 if it cannot be told. Either pointer may be null.
ALDLIB_EXPORT void GetDiskSpaceEx(const char* szPath, std::uint64_t* pFree, std::uint64_t* pTotal);
// The same in 32 bits: what does not fit is 4,294,967,295.
ALDLIB_EXPORT void GetDiskSpace(const char* szPath, std::uint32_t* pFree, std::uint32_t* pTotal);
// The free bytes of a drive in 32 bits; 0 means the current drive and 1 means A.
[[nodiscard]] ALDLIB_EXPORT std::uint32_t GetDiskSpace(std::uint16_t nDrive);

// ---- The forms of a path

// Adds a backslash unless the text ends in one, is empty, or has no room for it.
ALDLIB_EXPORT void AddBackSlash(CFixedStringParamRef ref) noexcept;

// The short form of a path that is there, each element by its short name if it has one and else as
// it is spelled on the disk, and its length. Returns 0 with an empty text for a path that is not
// there. The last element of a path that ends in a backslash is looked up like the others; of a
// drive and a root nothing is.
//   "c:\books\chart.dat" -> "c:\BOOKS\CHART.DAT", 18
ALDLIB_EXPORT std::uint32_t GoodGetShortPathName(const char* szPath, CPathNameString& sShort);

// The long form of a path that is there, each element as it is spelled on the disk. Empty for one
// that is not, and for one that does not begin with a drive and a backslash.
//   "C:\" -> "C:\"        "CHART.DAT" -> ""        "\\SERVER\BOOKS" -> ""
[[nodiscard]] ALDLIB_EXPORT CPathNameString ALWGetLongPathName(CPathNameString sPath);

// ---- Names of files

// Puts an underscore in the place of each ? * \ / : | > < . and ". A full stop is no exception, so
// a name loses its extension: callers add one afterwards.
ALDLIB_EXPORT void ALW_EnsureSafeFileName(CPathNameString& sName) noexcept;

// The name, today's month and day and the last two digits of the year, made safe. A null name
// counts as empty.
//   "Alder & Co." on July 4, 2003 -> "Alder & Co_-070403"
[[nodiscard]] ALDLIB_EXPORT CPathNameString GenerateBaseDefaultBackupName(const char* szName);

// Makes an empty file for temporary use and gives its path: the first three characters of the
// prefix, a number in hexadecimal digits and ".TMP", in the system's folder for such files. Returns
// the number, or 0 with the text as it was.
ALDLIB_EXPORT std::uint32_t ALW_GetTempFileName(const char* szPrefix, CPathNameString& sPath);

// The same with an extension of the caller's, the whole prefix, and numbers that count up from the
// time of the first call. Returns 0 if the file cannot be made, or its path has no room.
//
// Where a file of that name is there already, the call makes none and, as a rule, returns the next
// number with the path of the file that is there. Callers know that from a result that is not the
// number in the path.
ALDLIB_EXPORT std::uint32_t ALW_GetTempFileNameExt(const char* szPrefix, const char* szExtension,
                                                   CPathNameString& sPath);

}  // namespace ald
