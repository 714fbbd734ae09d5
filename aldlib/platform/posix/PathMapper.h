#pragma once

#include <map>
#include <mutex>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"
#include "aldlib/platform/posix/FolderIndex.h"

namespace ald {

// "C=/srv/books;D=/mnt/old": the folder that each drive letter stands for.
inline constexpr const char* kDrivesVariable = "ALDLIB_DRIVES";

// Turns the library's paths, with drives and backslashes, into those of a POSIX system and back.
//
//   C:\DATA\CHART.DAT       /DATA/CHART.DAT, or /data/Chart.dat if that is what is there
//   \DATA\CHART.DAT         the same on the current drive
//   C:CHART.DAT             in the current folder of drive C
//   CHART.DAT, A\B.DAT      in the current folder
//   /home/ann/chart.dat     as it is: it has no backslash
//   /home/ann\CHART.DAT     a native folder with a name joined to it: looked up like the first
//   \\SERVER\SHARE\A.DAT    nothing: a share has no place here
//
// Each element is looked up exactly first, then without regard to the case of its letters in code
// page 1252. Of several that differ in case alone the one that comes first by its bytes is taken.
// What is not there keeps the spelling it was given, so that a new file is made under that name.
// Names are bytes and none of them is changed.
//
// Drive C is the root folder and the only drive, but for what the environment variable
// ALDLIB_DRIVES or SetDrive says. If they give C another folder and no letter the root folder, Z is
// the root folder, so that each native path has a spelling.
//
// A name in its exact spelling costs one look at the file. One in another spelling reads its folder
// once; what was read is kept until the folder changes.
//
// Threads may share a mapper, as those that open files and the one that searches folders do. The
// current folder is the process's, and so the same for all of them.
class ALDLIB_EXPORT PathMapper {
 public:
  // The native path. Empty for an empty path, a drive that there is none of, or a share.
  CString Native(std::string_view sPath);

  // The spelling with drive and backslashes of an absolute native path; with the letter chPreferred
  // if the path can be spelled so, else on the drive whose folder is the closest above it. A
  // relative path gets its backslashes only. Empty for a name that has a backslash in it.
  //   "/srv/books/A.DAT" -> "C:\srv\books\A.DAT"
  CString Spelled(std::string_view sNative, char chPreferred = '\0');

  // Sets what a letter stands for, above the environment; an empty folder leaves it to that again.
  // Returns false, and changes nothing, for no letter or no absolute path.
  bool SetDrive(char chDrive, std::string_view sFolder);
  // The native folder that a letter of either case stands for, without a slash at its end except
  // for the root folder; empty if there is no such drive.
  CString DriveFolder(char chDrive);

  // The current drive, 'A' to 'Z': the one that ChangeDrive has chosen while the process's current
  // folder lies on it, else the one that folder is spelled with.
  char CurrentDrive();
  // Makes it the current drive, with its current folder as that of the process. Returns false if
  // there is no such drive or its folder is gone.
  bool ChangeDrive(char chDrive);
  // The current folder of a drive in the library's spelling, "C:\DATA"; that of a drive not yet
  // used is its root, "D:\". Empty if there is no such drive, or its folder is gone.
  CString CurrentFolder(char chDrive);
  // Makes a folder the process's current one, and its drive the current drive; that of a path
  // without one stays as it is if it can. Returns false if the folder cannot be entered.
  bool ChangeFolder(std::string_view sPath);

 private:
  struct Drive {
    CString sSet;          // by SetDrive
    CString sEnvironment;  // by the variable
    CString sFolder;       // of the two, or the usual one
    CString sCurrent;      // native; empty: the root of the drive
  };

  Drive* Find(char chDrive);
  void ReadEnvironment();
  void SettleDrives();
  CString LookedUp(std::string_view sBase, std::string_view sElements);
  CString FoundByElements(CString sBase, std::string_view sElements);
  FolderIndex* ListedFolder(const CString& sFolder);
  static bool AddIfThere(CString& sFolder, std::string_view sName);
  static bool AddOtherCase(CString& sFolder, std::string_view sName, FolderIndex& index);
  bool Enter(char chDrive, const CString& sNative);

  std::recursive_mutex m_mutex;  // over what follows; the calls above use each other
  Drive m_drives[26];
  char m_chCurrent = '\0';
  bool m_bRead = false;
  CString m_sVariable;
  std::map<CString, FolderIndex> m_folders;
};

// The paths of the system's own platform.
ALDLIB_EXPORT PathMapper& SystemPaths();

}  // namespace ald
