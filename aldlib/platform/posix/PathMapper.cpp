#include "aldlib/platform/posix/PathMapper.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/internal/PathText.h"

namespace ald {
namespace {

constexpr std::size_t kMostFolders = 64;

bool IsThere(const CString& sPath) {
  struct stat status {};
  return ::lstat(sPath.c_str(), &status) == 0;
}

// True if a name on the way is missing, as against one that may not be looked at.
bool IsMissing(const CString& sPath) {
  return !IsThere(sPath) && (errno == ENOENT || errno == ENOTDIR);
}

CString ProcessFolder() {
  char szFolder[PATH_MAX];
  return ::getcwd(szFolder, sizeof szFolder) != nullptr && *szFolder == '/' ? szFolder : "";
}

// The folder, and what lies in it.
bool LiesIn(std::string_view sPath, std::string_view sFolder) {
  if (sFolder == "/") return sPath.starts_with('/');
  return sPath.starts_with(sFolder) &&
         (sPath.size() == sFolder.size() || sPath[sFolder.size()] == '/');
}

std::string_view WithoutSlashes(std::string_view sFolder) {
  while (sFolder.size() > 1 && sFolder.back() == '/') sFolder.remove_suffix(1);
  return sFolder;
}

// True if no element is empty, "." or "..", so that the path can be taken by its text.
bool IsPlain(std::string_view sElements) {
  bool bStart = false;  // a separator has come; one at the start is the root's
  for (std::size_t i = 0; i < sElements.size(); ++i) {
    const bool bSeparator = IsSeparator(sElements[i]);
    if (bStart && (bSeparator || sElements[i] == '.')) return false;
    bStart = bSeparator;
  }
  return !sElements.empty() && sElements[0] != '.' && !(bStart && sElements.size() == 1);
}

void AddElement(CString& sPath, std::string_view sElement) {
  if (!sPath.empty() && sPath.back() != '/') sPath += '/';
  sPath += sElement;
}

}  // namespace

CString PathMapper::Native(std::string_view sPath) {
  const std::lock_guard guard(m_mutex);
  if (sPath.empty()) return {};
  if (HasDrive(sPath)) {
    Drive* const pDrive = Find(sPath[0]);
    if (pDrive == nullptr) return {};
    const std::string_view sRest = sPath.substr(2);
    if (!sRest.empty() && IsSeparator(sRest[0])) {
      return LookedUp(pDrive->sFolder, sRest);
    }
    const CString sFolder = CurrentFolder(sPath[0]);
    if (sFolder.empty()) return {};
    return LookedUp(pDrive->sFolder, sFolder.substr(2) + '\\' + CString(sRest));
  }
  if (sPath.find('\\') == std::string_view::npos) {
    // A bare name is in both spellings what it is.
    if (sPath.find('/') != std::string_view::npos) return CString(sPath);
    return LookedUp({}, sPath);
  }
  if (IsSharePath(sPath)) return {};
  if (sPath[0] == '\\') {
    Drive* const pDrive = Find(CurrentDrive());
    return pDrive != nullptr ? LookedUp(pDrive->sFolder, sPath) : CString();
  }
  if (sPath[0] != '/') return LookedUp({}, sPath);
  // A backslash is a letter like any other in a native name, though hardly ever meant so.
  CString sNative(sPath);
  return IsThere(sNative) ? sNative : LookedUp("/", sPath);
}

// Elements below a native folder; below the current one if it is empty.
CString PathMapper::LookedUp(std::string_view sBase, std::string_view sElements) {
  // Mostly it is all there as it is spelled.
  CString sPath;
  if (IsPlain(sElements)) {
    sPath.reserve(sBase.size() + 1 + sElements.size());
    sPath = sBase;
    AddElement(sPath, sElements.substr(!sBase.empty() && IsSeparator(sElements[0]) ? 1 : 0));
    std::replace(sPath.begin() + static_cast<std::ptrdiff_t>(sBase.size()), sPath.end(), '\\', '/');
    if (!IsMissing(sPath)) return sPath;
  }
  return FoundByElements(CString(sBase), sElements);
}

CString PathMapper::FoundByElements(CString sBase, std::string_view sElements) {
  const std::vector<std::string_view> elements = ElementsOf(sElements, !sBase.empty());
  std::vector<std::size_t> ends{sBase.size()};  // of the path that has so many of the elements
  CString sFound = std::move(sBase);
  for (const std::string_view sElement : elements) {
    AddElement(sFound, sElement);
    ends.push_back(sFound.size());
  }
  if (elements.empty()) return sFound.empty() ? "." : sFound;

  // Looked at from the end, since all but the last element is mostly there as it is spelled.
  std::size_t nFound = elements.size();
  if (IsMissing(sFound)) {
    FolderIndex* pIndex = nullptr;
    do sFound.resize(ends[--nFound]);
    while ((pIndex = ListedFolder(sFound)) == nullptr && nFound > 0);
    while (pIndex != nullptr && AddOtherCase(sFound, elements[nFound], *pIndex)) {
      // Below a folder of another spelling the names may be as they are asked for again.
      while (++nFound < elements.size() && AddIfThere(sFound, elements[nFound])) {
      }
      if (nFound == elements.size()) break;
      pIndex = ListedFolder(sFound);
    }
  }
  for (; nFound < elements.size(); ++nFound) AddElement(sFound, elements[nFound]);
  if (IsSeparator(sElements.back()) && sFound.back() != '/') sFound += '/';
  return sFound;
}

// Adds the name as it is to the folder's path; adds nothing if it is missing there.
bool PathMapper::AddIfThere(CString& sFolder, std::string_view sName) {
  const std::size_t nFolder = sFolder.size();
  AddElement(sFolder, sName);
  if (!IsMissing(sFolder)) return true;
  sFolder.resize(nFolder);
  return false;
}

// The names of a native folder as they are now; null if it is none, or cannot be listed.
FolderIndex* PathMapper::ListedFolder(const CString& sFolder) {
  auto it = m_folders.find(sFolder);
  if (it == m_folders.end()) {
    if (m_folders.size() >= kMostFolders) m_folders.clear();
    it = m_folders.emplace(sFolder, FolderIndex()).first;
  }
  if (it->second.Refresh(sFolder.empty() ? "." : sFolder.c_str())) return &it->second;
  m_folders.erase(it);
  return nullptr;
}

// Adds the name to the folder's path in the spelling found there; adds nothing if it is not there.
bool PathMapper::AddOtherCase(CString& sFolder, std::string_view sName, FolderIndex& index) {
  // Again if a name has gone, which a file system whose change times are not to be trusted hides.
  for (int i = 0; i < 2; ++i) {
    const std::string_view sFound = index.Find(sName);
    if (sFound.empty() || AddIfThere(sFolder, sFound)) return !sFound.empty();
    index.Forget();
    if (!index.Refresh(sFolder.empty() ? "." : sFolder.c_str())) return false;
  }
  return false;
}

CString PathMapper::Spelled(std::string_view sNative, char chPreferred) {
  const std::lock_guard guard(m_mutex);
  if (sNative.find('\\') != std::string_view::npos) return {};
  CString sSpelled;
  if (sNative.starts_with('/')) {
    sNative = WithoutSlashes(sNative);
    Drive* pDrive = chPreferred != '\0' ? Find(chPreferred) : nullptr;
    ReadEnvironment();
    if (pDrive == nullptr || !LiesIn(sNative, pDrive->sFolder)) {
      pDrive = nullptr;
      for (Drive& drive : m_drives) {
        if (drive.sFolder.empty() || !LiesIn(sNative, drive.sFolder)) continue;
        if (pDrive == nullptr || drive.sFolder.size() > pDrive->sFolder.size()) pDrive = &drive;
      }
    }
    if (pDrive == nullptr) return {};
    sSpelled = {static_cast<char>('A' + (pDrive - m_drives)), ':'};
    sNative.remove_prefix(pDrive->sFolder == "/" ? 0 : pDrive->sFolder.size());
    if (!sNative.starts_with('/')) sSpelled += '\\';
  }
  sSpelled += sNative;
  std::replace(sSpelled.begin(), sSpelled.end(), '/', '\\');
  return sSpelled;
}

bool PathMapper::SetDrive(char chDrive, std::string_view sFolder) {
  const std::lock_guard guard(m_mutex);
  if (!IsDriveLetter(chDrive) || (!sFolder.empty() && sFolder[0] != '/')) return false;
  ReadEnvironment();
  Drive& drive = m_drives[DriveIndex(chDrive)];
  drive.sSet = WithoutSlashes(sFolder);
  drive.sCurrent.clear();
  SettleDrives();
  return true;
}

CString PathMapper::DriveFolder(char chDrive) {
  const std::lock_guard guard(m_mutex);
  const Drive* const pDrive = Find(chDrive);
  return pDrive != nullptr ? pDrive->sFolder : CString();
}

PathMapper::Drive* PathMapper::Find(char chDrive) {
  if (!IsDriveLetter(chDrive)) return nullptr;
  ReadEnvironment();
  Drive& drive = m_drives[DriveIndex(chDrive)];
  return drive.sFolder.empty() ? nullptr : &drive;
}

void PathMapper::ReadEnvironment() {
  const char* const szVariable = std::getenv(kDrivesVariable);
  std::string_view sRest(szVariable != nullptr ? szVariable : "");
  if (m_bRead && sRest == m_sVariable) return;
  m_bRead = false;  // until all of it is: memory may run out on the way
  m_sVariable = sRest;
  for (Drive& drive : m_drives) drive.sEnvironment.clear();
  while (!sRest.empty()) {
    const std::size_t nEnd = std::min(sRest.find(';'), sRest.size());
    const std::string_view sEntry = sRest.substr(0, nEnd);
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
    if (sEntry.size() > 2 && IsDriveLetter(sEntry[0]) && sEntry[1] == '=' && sEntry[2] == '/') {
      m_drives[DriveIndex(sEntry[0])].sEnvironment = WithoutSlashes(sEntry.substr(2));
    }
  }
  SettleDrives();
  m_bRead = true;
}

void PathMapper::SettleDrives() {
  bool bRoot = false;
  for (Drive& drive : m_drives) {
    drive.sFolder = drive.sSet.empty() ? drive.sEnvironment : drive.sSet;
    bRoot = bRoot || drive.sFolder == "/";
  }
  CString& sUsual = m_drives[DriveIndex('C')].sFolder;
  if (sUsual.empty()) {
    sUsual = "/";
  } else if (CString& sLast = m_drives[DriveIndex('Z')].sFolder; !bRoot && sLast.empty()) {
    sLast = "/";
  }
}

char PathMapper::CurrentDrive() {
  const std::lock_guard guard(m_mutex);
  const CString sFolder = Spelled(ProcessFolder(), m_chCurrent);
  if (!sFolder.empty()) return sFolder[0];
  return m_chCurrent != '\0' && Find(m_chCurrent) != nullptr ? m_chCurrent : 'C';
}

// Makes a native folder that lies on the drive the process's, and remembers the one that was.
bool PathMapper::Enter(char chDrive, const CString& sNative) {
  const char chBefore = CurrentDrive();
  CString sBefore = ProcessFolder();
  if (sNative.empty() || ::chdir(sNative.c_str()) != 0) return false;
  if (Drive* const pBefore = Find(chBefore)) pBefore->sCurrent.swap(sBefore);
  m_chCurrent = chDrive;
  return true;
}

bool PathMapper::ChangeDrive(char chDrive) {
  const std::lock_guard guard(m_mutex);
  const Drive* const pDrive = Find(chDrive);
  if (pDrive == nullptr) return false;
  const char chAfter = ToUpperAscii(chDrive);
  if (chAfter == CurrentDrive()) {
    m_chCurrent = chAfter;
    return true;
  }
  return Enter(chAfter, CString(pDrive->sCurrent.empty() ? pDrive->sFolder : pDrive->sCurrent));
}

CString PathMapper::CurrentFolder(char chDrive) {
  const std::lock_guard guard(m_mutex);
  const Drive* const pDrive = Find(chDrive);
  if (pDrive == nullptr) return {};
  const char chUpper = ToUpperAscii(chDrive);
  if (chUpper == CurrentDrive()) return Spelled(ProcessFolder(), chUpper);
  return Spelled(pDrive->sCurrent.empty() ? pDrive->sFolder : pDrive->sCurrent, chUpper);
}

bool PathMapper::ChangeFolder(std::string_view sPath) {
  const std::lock_guard guard(m_mutex);
  return Enter(HasDrive(sPath) ? ToUpperAscii(sPath[0]) : CurrentDrive(), Native(sPath));
}

}  // namespace ald
