#include "aldlib/files/SingleUser.h"

#include <cstdio>
#include <memory>
#include <new>

#include "aldlib/files/Directories.h"
#include "aldlib/frame/MessageDoor.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

constexpr int kTriesBeforeTheMessage = 3;
constexpr std::uint32_t kPause = 1000;  // milliseconds

bool IsArea(Areas eArea) {
  const auto nArea = static_cast<std::int32_t>(eArea);
  return nArea >= 0 && nArea < kAreaCount;
}

CPathNameString Normalised(const char* szDirectory) {
  CPathNameString sGiven(szDirectory);
  if (sGiven.IsEmpty()) GetFullDir(sGiven);
  CPathNameString sDirectory;
  if (GoodGetShortPathName(sGiven, sDirectory) == 0) sDirectory = sGiven;
  UpperCase(sDirectory);
  AddBackSlash(sDirectory);
  return sDirectory;
}

CString LockFileName(Areas eArea, const CPathNameString& sDirectory) {
  char szName[16];
  std::snprintf(szName, sizeof szName, "SUA%05d.LCK", static_cast<int>(eArea));
  return CString(sDirectory.view()) + szName;
}

}  // namespace

constinit CALWSingleUserAccess::LockFileMap* CALWSingleUserAccess::m_lf = nullptr;

CLockFile::~CLockFile() {
  if (hFile != FileHandle{}) CurrentPlatform().files.Close(hFile);
}

bool CLockFile::Open(const char* szFullName, bool bShare) try {
  if (nRefCount != 0) {
    ++nRefCount;
    return true;
  }
  if (szFullName == nullptr) return false;
  CString strName(szFullName);
  // The port compares the file with its name once the sharing is granted, and opens anew if they
  // differ: otherwise this could be a hold of a file that its last holder was just deleting.
  if (CurrentPlatform().files.Open(szFullName, bShare ? FileAccess::Read : FileAccess::ReadWrite,
                                   bShare ? FileSharing::ReadWrite : FileSharing::None,
                                   FileDisposition::OpenOrCreate, hFile) != kNoSystemError) {
    return false;
  }
  strFileName.swap(strName);
  nShareMode = bShare ? 1 : 0;
  nRefCount = 1;
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

CALWSingleUserAccess::~CALWSingleUserAccess() {
  // Not the folder of Start, which is not kept: callers who leave without End count on the area of
  // another folder staying locked.
  End(nullptr);
}

bool CALWSingleUserAccess::Start(std::int32_t nMessage, LockMode eMode, const char* szDirectory) {
  bLocked = Lock(eArea, nMessage, eMode, szDirectory);
  return bLocked;
}

void CALWSingleUserAccess::End(const char* szDirectory) {
  if (!bLocked) return;
  Unlock(eArea, szDirectory);
  bLocked = false;
}

bool CALWSingleUserAccess::Lock(Areas eArea, std::int32_t nMessage, LockMode eMode,
                                const char* szDirectory) try {
  if (!IsArea(eArea)) return false;
  const CPathNameString sDirectory = Normalised(szDirectory);
  const CString sFullName = LockFileName(eArea, sDirectory);
  // Looked up for each try: while the message is shown, other work can lock the area and unlock it
  // again, and then the object is another one.
  const auto tryToOpen = [&] {
    bool bNew = false;
    CLockFile* const pLockFile = FindOrEnter(eArea, sDirectory, bNew);
    return pLockFile != nullptr && pLockFile->Open(sFullName.c_str(), eMode != LockMode::Exclusive);
  };
  bool bOpen = tryToOpen();
  for (int nTries = 0; !bOpen && nMessage != 0;) {
    if (++nTries == kTriesBeforeTheMessage) {
      const auto nNumber = static_cast<std::uint16_t>(nMessage);
      if (CurrentMessageDoor().Ask(MessageByNumber(nNumber)) != kAnswerRetry) break;
      nTries = 0;
    }
    CurrentPlatform().clock.Sleep(kPause);
    bOpen = tryToOpen();
  }
  if (!bOpen) {
    const CLockFile* const pLockFile = Find(eArea, sDirectory);
    if (pLockFile != nullptr && pLockFile->nRefCount == 0) Remove(eArea, sDirectory);
  }
  return bOpen;
} catch (const std::bad_alloc&) {
  return false;
}

void CALWSingleUserAccess::Unlock(Areas eArea, const char* szDirectory) {
  const CPathNameString sDirectory = Normalised(szDirectory);
  CLockFile* const pLockFile = Find(eArea, sDirectory);
  // Without a hold it is one that waits, and this is no business of its own.
  if (pLockFile == nullptr || pLockFile->nRefCount == 0) return;
  if (--pLockFile->nRefCount != 0) return;
  Files& files = CurrentPlatform().files;
  files.Close(pLockFile->hFile);
  pLockFile->hFile = FileHandle{};
  // Holds the file alone while its name goes, and fails if anybody else has it, which is as good:
  // that one deletes it.
  files.Delete(pLockFile->strFileName.c_str());
  pLockFile->szDirectory[0] = '\0';
  Remove(eArea, sDirectory);
}

CLockFile* CALWSingleUserAccess::FindLockFile(Areas eArea, const char* szDirectory) {
  return Find(eArea, Normalised(szDirectory));
}

CLockFile* CALWSingleUserAccess::GetNewLockFile(Areas eArea, const char* szDirectory) {
  return Enter(eArea, Normalised(szDirectory));
}

CLockFile* CALWSingleUserAccess::GetLockFile(Areas eArea, const char* szDirectory, bool& bNew) {
  return FindOrEnter(eArea, Normalised(szDirectory), bNew);
}

bool CALWSingleUserAccess::RemoveLockFile(Areas eArea, const char* szDirectory) {
  return Remove(eArea, Normalised(szDirectory));
}

CALWSingleUserAccess::LockFileMap* CALWSingleUserAccess::MapOf(Areas eArea) {
  if (!IsArea(eArea)) return nullptr;
  if (m_lf == nullptr) m_lf = new (std::nothrow) LockFileMap[kAreaCount];
  return m_lf != nullptr ? &m_lf[static_cast<std::int32_t>(eArea)] : nullptr;
}

CLockFile* CALWSingleUserAccess::Find(Areas eArea, const CPathNameString& sDirectory) {
  const LockFileMap* const pMap = MapOf(eArea);
  if (pMap == nullptr) return nullptr;
  const auto it = pMap->find(sDirectory);
  return it != pMap->end() ? it->second : nullptr;
}

CLockFile* CALWSingleUserAccess::Enter(Areas eArea, const CPathNameString& sDirectory) try {
  LockFileMap* const pMap = MapOf(eArea);
  if (pMap == nullptr) return nullptr;
  auto pLockFile = std::make_unique<CLockFile>();
  CLockFile*& pEntry = (*pMap)[sDirectory];
  delete pEntry;
  return pEntry = pLockFile.release();
} catch (const std::bad_alloc&) {
  return nullptr;
}

CLockFile* CALWSingleUserAccess::FindOrEnter(Areas eArea, const CPathNameString& sDirectory,
                                             bool& bNew) {
  CLockFile* pLockFile = Find(eArea, sDirectory);
  bNew = pLockFile == nullptr;
  if (!bNew) return pLockFile;
  pLockFile = Enter(eArea, sDirectory);
  if (pLockFile != nullptr) {
    sstrcpy(pLockFile->szDirectory, sDirectory, sizeof pLockFile->szDirectory);
  }
  return pLockFile;
}

bool CALWSingleUserAccess::Remove(Areas eArea, const CPathNameString& sDirectory) {
  LockFileMap* const pMap = MapOf(eArea);
  if (pMap == nullptr) return false;
  const auto it = pMap->find(sDirectory);
  if (it == pMap->end()) return false;
  delete it->second;
  pMap->erase(it);
  return true;
}

}  // namespace ald
