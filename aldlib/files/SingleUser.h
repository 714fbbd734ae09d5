#pragma once

#include <cstdint>
#include <map>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Files.h"
#include "aldlib/platform/Types.h"
#include "aldlib/text/FixedString.h"

// Work that must be alone on a company's data, or must keep such work out.
//
//   CALWSingleUserAccess access(kReorganise);
//   if (!access.Start(kSomebodyIsWorking, LockMode::Exclusive, szCompanyFolder)) return;
//   ...                             // nobody else has the area of this folder, and nobody gets it
//   access.End(szCompanyFolder);
//
// A hold is a small empty file, "SUA00003.LCK" for area 3, kept open in the folder: without sharing
// for a hold alone, with sharing for one beside others. Who has the file open counts, not whether
// it is there, so what a crash leaves behind keeps nobody out. The last one to leave deletes it.
//
// Two holders are never at odds, whenever the file is made and deleted: it is deleted only by who
// has it alone at that moment, and a good open is one of the file that then bears the name.
//
// A process asks the disk once for an area of a folder. After that it gets the area again whatever
// the mode, so a shared hold followed by an exclusive one in the same process leaves others in.
//
// A folder is a path with a drive and backslashes, or one of the system's own; null or empty means
// the current folder. Its spelling does not matter: it is made short where the system has short
// names, put in capitals, and ended by a backslash. Folders whose names differ in case alone are
// one.
//
// All of it belongs to the user-interface thread. Nothing throws; where memory runs out a lock is
// not had. An area outside 0 to 8 is never locked.
namespace ald {

// The numbered areas: 0 to 8. What each one stands for is the application's business.
enum class Areas : std::int32_t {};
inline constexpr std::int32_t kAreaCount = 9;

// Any value but 0 shares.
enum class LockMode : std::int32_t { Exclusive = 0, Shared = 1 };

// One lock file that this process holds, or is about to.
class ALDLIB_EXPORT CLockFile {
 public:
  CLockFile() = default;
  CLockFile(const CLockFile&) = delete;
  CLockFile& operator=(const CLockFile&) = delete;
  // Lets the file go, if it is held, but does not delete it.
  ~CLockFile();

  // Adds a hold. The first one opens the file, and fails as long as others are in the way; after it
  // every other one succeeds, whatever the mode.
  bool Open(const char* szFullName, bool bShare);

  char szSignature[17] = "CLOCKFILE OBJECT";  // in memory, of an object that is one
  FileHandle hFile{};                         // 0 while the file is not held
  CString strFileName;                        // the full name
  char szDirectory[260] = {};                 // as FindLockFile compares it
  std::uint32_t nRefCount = 0;                // holds of this process
  std::uint32_t nShareMode = 0;               // 1 if others may share
};

#pragma pack(push, 1)

// The guard of one area. A good Start has to be answered by an End with the same folder: the end of
// the block alone lets go only what was held in the folder that is current by then.
class ALDLIB_EXPORT CALWSingleUserAccess {
 public:
  using LockFileMap = std::map<CPathNameString, CLockFile*>;

  explicit CALWSingleUserAccess(Areas eTheArea) : eArea(eTheArea) {}
  CALWSingleUserAccess(const CALWSingleUserAccess&) = delete;
  CALWSingleUserAccess& operator=(const CALWSingleUserAccess&) = delete;
  // Unlocks the area of the current folder if the last Start was good. A hold on another folder
  // stays: it is not found.
  ~CALWSingleUserAccess();

  // Lock, with the result kept for End. A second Start forgets what the first one got, which then
  // stays held.
  bool Start(std::int32_t nMessage, LockMode eMode, const char* szDirectory);
  // Unlock, if the last Start was good.
  void End(const char* szDirectory);

  // Adds a hold of the area. Returns false if others are in the way, or if the file cannot be made
  // or opened.
  //
  // With message number 0 that is one try. With another one there are two more, a second apart, and
  // then the message is shown, which offers Retry and Cancel; Retry is worth three more tries, a
  // second apart. Other work goes on while the message is shown, and may lock and unlock areas.
  static bool Lock(Areas eArea, std::int32_t nMessage, LockMode eMode, const char* szDirectory);
  // Takes one hold away; the last one closes the file and deletes it. Does nothing without one.
  static void Unlock(Areas eArea, const char* szDirectory);

  // The table behind the two, for callers who look after their holds themselves. FindLockFile and
  // RemoveLockFile know only what was entered for the folder.
  static CLockFile* FindLockFile(Areas eArea, const char* szDirectory);
  // Enters an object that holds nothing, in the place of the one that was there, which is freed.
  // Null without memory.
  static CLockFile* GetNewLockFile(Areas eArea, const char* szDirectory);
  // Finds, or else enters. bNew tells that it had to be entered, also if there was no memory.
  static CLockFile* GetLockFile(Areas eArea, const char* szDirectory, bool& bNew);
  // Takes the object out and frees it. Returns false if there was none.
  static bool RemoveLockFile(Areas eArea, const char* szDirectory);

  bool bLocked = false;  // the last Start was good, and no End has come
  Areas eArea;

 private:
  // The same by a folder in the form that the table has it.
  static CLockFile* Find(Areas eArea, const CPathNameString& sDirectory);
  static CLockFile* Enter(Areas eArea, const CPathNameString& sDirectory);
  static CLockFile* FindOrEnter(Areas eArea, const CPathNameString& sDirectory, bool& bNew);
  static bool Remove(Areas eArea, const CPathNameString& sDirectory);

  // The map of an area; null if there is no such area, or no memory.
  static LockFileMap* MapOf(Areas eArea);

  static LockFileMap* m_lf;  // one of each area, made on first use and never destroyed
};

#pragma pack(pop)

static_assert(sizeof(CALWSingleUserAccess) == sizeof(bool) + 4);

}  // namespace ald
