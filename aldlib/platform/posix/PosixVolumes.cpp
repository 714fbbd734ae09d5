#include "aldlib/platform/posix/PosixVolumes.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <time.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/internal/FileMask.h"
#include "aldlib/platform/internal/PathText.h"

namespace ald {
namespace {

// A name that does not fit the record is not found.
constexpr std::size_t kLongestName = sizeof(_finddata_t::name) - 1;

constexpr mode_t kFolderMode = 0777;  // less what the process's mask takes away
constexpr mode_t kTempMode = 0600;

char LetterOf(std::uint16_t nDrive) {
  return nDrive < 26 ? static_cast<char>('A' + nDrive) : '\0';
}

// The entry of a folder, or what a link leads to; the link itself if that is not there.
bool FillRecord(int nFolder, const char* szName, _finddata_t& record) {
  struct stat status {};
  if (::fstatat(nFolder, szName, &status, 0) != 0 &&
      ::fstatat(nFolder, szName, &status, AT_SYMLINK_NOFOLLOW) != 0) {
    return false;
  }
  record.attrib = S_ISDIR(status.st_mode) ? kFolderAttribute : kFileAttribute;
  if ((status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0) record.attrib |= kReadOnlyAttribute;
  record.time_create = record.time_write = status.st_mtim.tv_sec;
  record.time_access = status.st_atim.tv_sec;
  record.size = S_ISDIR(status.st_mode) ? 0 : status.st_size;
  return true;
}

void FillName(std::string_view sName, _finddata_t& record) {
  std::memset(record.name, 0, sizeof record.name);
  std::memcpy(record.name, sName.data(), std::min(sName.size(), kLongestName));
}

// The last element of a native path; empty for the root folder and for one that ends in a slash.
std::string_view NameOf(std::string_view sNative) {
  return sNative.substr(std::min(sNative.rfind('/') + 1, sNative.size()));
}

bool VolumeOf(const CString& sNative, struct statvfs& volume) {
  int nResult;
  do {
    nResult = ::statvfs(sNative.c_str(), &volume);
  } while (nResult != 0 && errno == EINTR);
  return nResult == 0;
}

}  // namespace

// Lists the matches in the folder of the descriptor.
bool PosixVolumes::Search::List(std::string_view sMask, bool bRoot) {
  const int nListed = ::openat(folder.get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  DIR* const pFolder = nListed >= 0 ? ::fdopendir(nListed) : nullptr;
  if (pFolder == nullptr) {
    if (nListed >= 0) ::close(nListed);
    return false;
  }
  const auto add = [this](std::string_view sName) {
    starts.push_back(static_cast<std::uint32_t>(sNames.size()));
    sNames.append(sName).push_back('\0');
  };
  try {
    if (!bRoot && MatchesAll(sMask)) add("."), add("..");
    while (const dirent* const pEntry = ::readdir(pFolder)) {
      const std::string_view sName(pEntry->d_name);
      if (sName == "." || sName == ".." || !MatchesMask(sMask, sName)) continue;
      if (sName.find('\\') != std::string_view::npos || sName.size() > kLongestName) continue;
      if (sNames.size() > UINT32_MAX / 2) break;
      add(sName);
    }
  } catch (...) {
    ::closedir(pFolder);
    throw;
  }
  ::closedir(pFolder);
  // Their capitals, so that the order of two names is that of two plain texts.
  CString sFolded = sNames;
  for (char& c : sFolded) c = CharUpper(c);
  const std::ptrdiff_t nDots = !bRoot && MatchesAll(sMask) ? 2 : 0;
  std::sort(starts.begin() + nDots, starts.end(), [&](std::uint32_t a, std::uint32_t b) {
    const int nOrder = std::strcmp(sFolded.data() + a, sFolded.data() + b);
    return nOrder != 0 ? nOrder < 0 : std::strcmp(sNames.data() + a, sNames.data() + b) < 0;
  });
  return true;
}

bool PosixVolumes::Search::Next(_finddata_t& record) {
  while (nNext < starts.size()) {
    const char* const szName = sNames.data() + starts[nNext++];
    if (!FillRecord(folder.get(), szName, record)) continue;
    FillName(szName, record);
    return true;
  }
  return false;
}

CString PosixVolumes::Native(const char* szPath) {
  return szPath != nullptr ? m_paths.Native(szPath) : CString();
}

bool PosixVolumes::IsDriveRoot(const CString& sNative) {
  if (sNative.starts_with('/')) return m_paths.Spelled(sNative).size() == 3;
  // Below the current folder lies no root, unless it is one itself.
  return sNative == "." && m_paths.CurrentFolder(m_paths.CurrentDrive()).size() == 3;
}

std::uint16_t PosixVolumes::CurrentDrive() try {
  return static_cast<std::uint16_t>(DriveIndex(m_paths.CurrentDrive()));
} catch (const std::bad_alloc&) {
  return static_cast<std::uint16_t>(DriveIndex('C'));
}

bool PosixVolumes::ChangeDrive(std::uint16_t nDrive) try {
  return m_paths.ChangeDrive(LetterOf(nDrive));
} catch (const std::bad_alloc&) {
  return false;
}

CString PosixVolumes::CurrentFolder(std::uint16_t nDrive) try {
  return m_paths.CurrentFolder(LetterOf(nDrive));
} catch (const std::bad_alloc&) {
  return {};
}

bool PosixVolumes::ChangeFolder(const char* szPath) try {
  return szPath != nullptr && m_paths.ChangeFolder(szPath);
} catch (const std::bad_alloc&) {
  return false;
}

bool PosixVolumes::MakeFolder(const char* szPath) try {
  const CString sNative = Native(szPath);
  return !sNative.empty() && ::mkdir(sNative.c_str(), kFolderMode) == 0;
} catch (const std::bad_alloc&) {
  return false;
}

bool PosixVolumes::RemoveFolder(const char* szPath) try {
  const CString sNative = Native(szPath);
  return !sNative.empty() && ::rmdir(sNative.c_str()) == 0;
} catch (const std::bad_alloc&) {
  return false;
}

// Fills the record with the first match, and the search with those behind it.
bool PosixVolumes::Begin(const char* szMask, Search& search, _finddata_t& record) {
  if (szMask == nullptr) return false;
  const PathEnd end = SplitPath(szMask);
  if (end.sName.empty()) return false;
  if (!HasWildcards(end.sName)) {
    // One name needs no listing.
    const CString sNative = m_paths.Native(szMask);
    const std::string_view sName = NameOf(sNative);
    if (sName.empty() || !FillRecord(AT_FDCWD, sNative.c_str(), record)) return false;
    FillName(sName, record);
    return true;
  }
  const CString sFolder = end.sFolder.empty() ? "." : m_paths.Native(end.sFolder);
  if (sFolder.empty()) return false;
  search.folder = Descriptor(::open(sFolder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  return search.folder.IsOpen() && search.List(end.sName, IsDriveRoot(sFolder)) &&
         search.Next(record);
}

SearchHandle PosixVolumes::StartSearch(const char* szMask, _finddata_t& record) try {
  Search search;
  if (!Begin(szMask, search, record)) return kNoSearch;
  const SearchHandle hSearch{m_nLastSearch + 1};
  m_searches.emplace(hSearch, std::move(search));
  ++m_nLastSearch;
  return hSearch;
} catch (const std::bad_alloc&) {
  return kNoSearch;
}

bool PosixVolumes::ContinueSearch(SearchHandle hSearch, _finddata_t& record) {
  const auto it = m_searches.find(hSearch);
  return it != m_searches.end() && it->second.Next(record);
}

void PosixVolumes::EndSearch(SearchHandle hSearch) {
  m_searches.erase(hSearch);
}

bool PosixVolumes::LookUp(const char* szPath, FolderEntry& entry) try {
  Search search;
  _finddata_t record;
  if (!Begin(szPath, search, record)) return false;
  entry = {record.name, {}};
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

std::uint32_t PosixVolumes::ShortPath(const char* szPath, char* szBuffer, std::uint32_t nSize) try {
  const std::string_view sPath(szPath != nullptr ? szPath : "");
  if (sPath.find('/') == std::string_view::npos || szBuffer == nullptr || nSize == 0) return 0;
  const CString sNative = m_paths.Native(sPath);
  if (::access(sNative.c_str(), F_OK) != 0) return 0;
  const CString sSpelled = m_paths.Spelled(sNative);
  const std::size_t nCopied = std::min<std::size_t>(sSpelled.size(), nSize - 1);
  std::memcpy(szBuffer, sSpelled.data(), nCopied);
  szBuffer[nCopied] = '\0';
  return static_cast<std::uint32_t>(sSpelled.size());
} catch (const std::bad_alloc&) {
  return 0;
}

DiskSpaceAnswer PosixVolumes::DiskSpace(const char* szPath, std::uint64_t& nFree,
                                        std::uint64_t& nTotal) try {
  struct statvfs volume {};
  if (!VolumeOf(szPath == nullptr ? "." : Native(szPath), volume)) return DiskSpaceAnswer::Failed;
  nFree = static_cast<std::uint64_t>(volume.f_bavail) * volume.f_frsize;
  nTotal = static_cast<std::uint64_t>(volume.f_blocks) * volume.f_frsize;
  return DiskSpaceAnswer::Good;
} catch (const std::bad_alloc&) {
  return DiskSpaceAnswer::Failed;
}

bool PosixVolumes::DiskSpaceInClusters(const char* szPath, DiskClusters& clusters) try {
  struct statvfs volume {};
  if (!VolumeOf(szPath == nullptr ? "." : Native(szPath), volume)) return false;
  const auto cut = [](std::uint64_t n) {
    return static_cast<std::uint32_t>(std::min<std::uint64_t>(n, UINT32_MAX));
  };
  clusters = {1, cut(volume.f_frsize), cut(volume.f_bavail), cut(volume.f_blocks)};
  return true;
} catch (const std::bad_alloc&) {
  return false;
}

CString PosixVolumes::TempFolder() try {
  const char* const szVariable = std::getenv("TMPDIR");
  CString sFolder =
      m_paths.Spelled(szVariable != nullptr && *szVariable == '/' ? szVariable : "/tmp");
  if (!sFolder.empty() && sFolder.back() != '\\') sFolder += '\\';
  return sFolder;
} catch (const std::bad_alloc&) {
  return {};
}

std::uint32_t PosixVolumes::MakeTempFile(const char* szFolder, const char* szPrefix,
                                         CString& sPath) try {
  if (szFolder == nullptr || *szFolder == '\0') return 0;
  CString sStart(szFolder);
  if (!IsSeparator(sStart.back())) sStart += '\\';
  sStart.append(std::string_view(szPrefix != nullptr ? szPrefix : "").substr(0, 3));
  if (m_nLastTemp == 0) m_nLastTemp = static_cast<std::uint16_t>(::time(nullptr) ^ ::getpid());
  for (std::uint32_t nTries = 0; nTries < UINT16_MAX; ++nTries) {
    if (++m_nLastTemp == 0) ++m_nLastTemp;
    char szEnd[16];
    std::snprintf(szEnd, sizeof szEnd, "%X.TMP", static_cast<unsigned>(m_nLastTemp));
    CString sTry = sStart + szEnd;
    const CString sNative = m_paths.Native(sTry);
    if (sNative.empty()) return 0;
    const int nFile = ::open(sNative.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kTempMode);
    if (nFile >= 0) {
      ::close(nFile);
      sPath.swap(sTry);
      return m_nLastTemp;
    }
    if (errno != EEXIST && errno != EINTR) return 0;
  }
  return 0;
} catch (const std::bad_alloc&) {
  return 0;
}

}  // namespace ald
