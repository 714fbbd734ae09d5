#include "aldlib/platform/posix/PosixFiles.h"

#include <stdio.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <mutex>
#include <new>
#include <vector>

#include "aldlib/platform/internal/FileTable.h"
#include "aldlib/platform/internal/PathText.h"
#include "aldlib/platform/posix/ClassicError.h"
#include "aldlib/platform/posix/Descriptor.h"
#include "aldlib/platform/posix/FileLocks.h"
#include "aldlib/platform/posix/PathMapper.h"

namespace ald {

// Where bytes are read and written is kept here for a file that has positions, and by the system
// for a device or a pipe.
//
// A text is read 256 bytes at a time, and each call into the system costs as much as handling that
// many bytes. So what is read one piece behind the other comes out of a larger piece that was read
// ahead, as long as nobody else can write the file: then the bytes in hand are those in the file.
// That others could meanwhile have locked some of them does no harm for the same reason. Where
// writing is shared every read asks the system.
struct PosixFiles::OpenFile {
  Descriptor descriptor;
  FileAccess eAccess = FileAccess::Read;
  bool bPositions = false;
  bool bLocks = false;   // sharing and ranges hold here
  bool bOthers = false;  // and others may have the file open, so ranges of theirs are to be minded
  bool bAhead = false;   // nobody else can write it
  std::mutex mutex;      // over what follows
  std::int64_t nPosition = 0;
  std::vector<FileRange> ranges;

  std::unique_ptr<char[]> pAhead;
  std::int64_t nAheadStart = 0;
  std::int64_t nAheadEnd = 0;
  std::int64_t nLastEnd = 0;  // of the last read: one that begins there goes on with it

  std::uint32_t ReadAt(void* pBuffer, std::uint32_t nBytes, std::int64_t nStart,
                       std::uint32_t& nMoved);
  std::uint32_t ReadThrough(char* pBuffer, std::uint32_t nBytes, std::uint32_t& nMoved);
  bool ReadsAhead(std::uint32_t nBytes);
};

struct PosixFiles::State {
  explicit State(PathMapper& thePaths) : paths(thePaths) {}

  CString Native(const char* szPath) {
    return szPath != nullptr ? paths.Native(szPath) : CString();
  }

  PathMapper& paths;
  FileTable<OpenFile> table;
};

namespace {

// How often an open begins again because its file lost its name in the meantime.
constexpr int kOpenTries = 50;

constexpr std::uint32_t kAhead = 32768;

bool IsReadOnly(const struct stat& status) {
  return S_ISREG(status.st_mode) && (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool IsFolder(const CString& sNative) {
  struct stat status {};
  return ::stat(sNative.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

// The error of a call on a path, which alone can tell a missing folder from a missing file.
std::uint32_t PathError(const CString& sNative, int nErrno) {
  const CString sFolder(SplitPath(sNative).sFolder);
  if (nErrno == ENOENT && !sFolder.empty() && !IsFolder(sFolder)) return kPathNotFound;
  return ClassicError(nErrno);
}

struct Opened {
  Descriptor descriptor;
  struct stat status {};
  bool bCreated = false;
  bool bLocks = false;
};

bool IsSameFile(int nDescriptor, const CString& sNative) {
  struct stat open {};
  struct stat named {};
  return ::fstat(nDescriptor, &open) == 0 && ::stat(sNative.c_str(), &named) == 0 &&
         open.st_dev == named.st_dev && open.st_ino == named.st_ino;
}

// Never truncates: nobody has been asked yet. What is to be written is opened for reading as well,
// since the marks of sharing need that. Not to wait for the other end of a pipe, O_NONBLOCK.
std::uint32_t OpenDescriptor(const CString& sNative, FileAccess eAccess,
                             FileDisposition eDisposition, Opened& opened) {
  const int nFlags = O_CLOEXEC | O_NOCTTY | O_NONBLOCK | (Writes(eAccess) ? O_RDWR : O_RDONLY);
  const auto open = [&](int nMore) {
    opened.bCreated = (nMore & O_CREAT) != 0;
    opened.descriptor =
        Descriptor(Uninterrupted([&] { return ::open(sNative.c_str(), nFlags | nMore, 0666); }));
    return opened.descriptor.IsOpen();
  };
  bool bOpen = eDisposition != FileDisposition::CreateNew && open(0);
  if (!bOpen && (eDisposition == FileDisposition::CreateNew ||
                 (eDisposition != FileDisposition::OpenExisting && errno == ENOENT))) {
    bOpen = open(O_CREAT | O_EXCL);
  }
  if (!bOpen) return PathError(sNative, errno);
  if (::fstat(opened.descriptor.get(), &opened.status) != 0) return ClassicError(errno);
  if (S_ISDIR(opened.status.st_mode)) return kAccessDenied;
  if (Writes(eAccess) && !opened.bCreated && IsReadOnly(opened.status)) return kAccessDenied;
  return kNoSystemError;
}

// Opens the file that bears the name when all is done. Between the opening and the granting of
// sharing its name can be removed or given to another file: whoever deletes holds the file alone
// until the name is gone, so a look at the name after the grant is enough, and the open begins
// again if it leads elsewhere.
std::uint32_t OpenNamed(const CString& sNative, FileAccess eAccess, FileSharing eSharing,
                        FileDisposition eDisposition, Opened& opened, bool bRemoves = false) {
  std::uint32_t nError = kSharingViolation;
  for (int nTry = 0; nTry < kOpenTries; ++nTry) {
    opened = Opened{};
    nError = OpenDescriptor(sNative, eAccess, eDisposition, opened);
    // It was not there, and then it was: somebody else makes it too.
    if (nError == kFileExists && eDisposition != FileDisposition::CreateNew) continue;
    if (nError != kNoSystemError) break;
    if (!S_ISREG(opened.status.st_mode)) {
      ::fcntl(opened.descriptor.get(), F_SETFL, 0);
      return kNoSystemError;
    }
    nError = HoldSharing(opened.descriptor.get(), eAccess, eSharing, bRemoves);
    opened.bLocks = nError == kNoSystemError;
    if (nError == kInvalidFunction) nError = kNoSystemError;
    if (nError == kSharingViolation && !IsSameFile(opened.descriptor.get(), sNative)) continue;
    if (nError != kNoSystemError) break;
    if (IsSameFile(opened.descriptor.get(), sNative)) return kNoSystemError;
    nError = kSharingViolation;
  }
  opened = Opened{};
  return nError;
}

// Holds a file alone to take its name away.
std::uint32_t HoldToRemove(const CString& sNative, Opened& opened) {
  return OpenNamed(sNative, FileAccess::Read, FileSharing::None, FileDisposition::OpenExisting,
                   opened, true);
}

}  // namespace

PosixFiles::PosixFiles(PathMapper& paths) : m_pState(std::make_unique<State>(paths)) {}

PosixFiles::~PosixFiles() = default;

std::uint32_t PosixFiles::Open(const char* szPath, FileAccess eAccess, FileSharing eSharing,
                               FileDisposition eDisposition, FileHandle& hFile) try {
  hFile = FileHandle{};
  const CString sNative = m_pState->Native(szPath);
  if (sNative.empty()) return kPathNotFound;
  const auto pFile = std::make_shared<OpenFile>();
  Opened opened;
  if (const std::uint32_t nError = OpenNamed(sNative, eAccess, eSharing, eDisposition, opened))
    return nError;
  // Whatever its size was when it was opened: others may have written until the sharing held.
  if (eDisposition == FileDisposition::CreateAlways && S_ISREG(opened.status.st_mode) &&
      Uninterrupted([&] { return ::ftruncate(opened.descriptor.get(), 0); }) != 0) {
    return ClassicError(errno);
  }
  pFile->descriptor = std::move(opened.descriptor);
  pFile->eAccess = eAccess;
  pFile->bPositions = S_ISREG(opened.status.st_mode);
  pFile->bLocks = opened.bLocks;
  pFile->bAhead = opened.bLocks && !SharesWriting(eSharing);
  pFile->bOthers = opened.bLocks && eSharing != FileSharing::None;
  hFile = m_pState->table.Add(pFile);
  return hFile != FileHandle{} ? kNoSystemError : kTooManyOpenFiles;
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

std::uint32_t PosixFiles::Close(FileHandle hFile) {
  auto pFile = m_pState->table.Remove(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  return pFile.use_count() == 1 ? ClassicError(pFile->descriptor.Close()) : kNoSystemError;
}

std::uint32_t PosixFiles::Duplicate(FileHandle hFile, FileHandle& hCopy) try {
  hCopy = FileHandle{};
  auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  hCopy = m_pState->table.Add(std::move(pFile));
  return hCopy != FileHandle{} ? kNoSystemError : kTooManyOpenFiles;
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

std::uint32_t PosixFiles::OpenFile::ReadAt(void* pBuffer, std::uint32_t nBytes, std::int64_t nStart,
                                           std::uint32_t& nMoved) {
  nMoved = 0;
  if (bOthers && IsHeldByOther(descriptor.get(), nStart, nBytes)) return kLockViolation;
  const ssize_t nRead = Uninterrupted([&] {
    return bPositions ? ::pread(descriptor.get(), pBuffer, nBytes, nStart)
                      : ::read(descriptor.get(), pBuffer, nBytes);
  });
  if (nRead < 0) return ClassicError(errno);
  nMoved = static_cast<std::uint32_t>(nRead);
  return kNoSystemError;
}

bool PosixFiles::OpenFile::ReadsAhead(std::uint32_t nBytes) {
  if (!bAhead || nBytes >= kAhead) return false;
  if (nPosition >= nAheadStart && nPosition < nAheadEnd) return true;
  if (nPosition != nLastEnd) return false;
  if (pAhead == nullptr) pAhead.reset(new (std::nothrow) char[kAhead]);
  return pAhead != nullptr;
}

std::uint32_t PosixFiles::OpenFile::ReadThrough(char* pBuffer, std::uint32_t nBytes,
                                                std::uint32_t& nMoved) {
  nMoved = 0;
  while (nMoved < nBytes) {
    const std::int64_t nStart = nPosition + nMoved;
    if (nStart < nAheadStart || nStart >= nAheadEnd) {
      std::uint32_t nAhead = 0;
      nAheadStart = nAheadEnd = nStart;
      if (ReadAt(pAhead.get(), kAhead, nStart, nAhead) != kNoSystemError) {
        // Somebody may have locked bytes that come later and that nobody has asked for.
        const std::uint32_t nError = ReadAt(pBuffer + nMoved, nBytes - nMoved, nStart, nAhead);
        nMoved = nError == kNoSystemError ? nMoved + nAhead : 0;
        return nError;
      }
      if (nAhead == 0) break;
      nAheadEnd = nStart + nAhead;
    }
    const auto nRun =
        static_cast<std::uint32_t>(std::min<std::int64_t>(nBytes - nMoved, nAheadEnd - nStart));
    std::memcpy(pBuffer + nMoved, pAhead.get() + (nStart - nAheadStart), nRun);
    nMoved += nRun;
  }
  return kNoSystemError;
}

std::uint32_t PosixFiles::Read(FileHandle hFile, void* pBuffer, std::uint32_t nBytes,
                               std::uint32_t& nMoved) {
  nMoved = 0;
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  if (pBuffer == nullptr) return kInvalidParameter;
  if (!Reads(pFile->eAccess)) return kAccessDenied;
  if (!pFile->bPositions) return pFile->ReadAt(pBuffer, nBytes, 0, nMoved);
  const std::lock_guard guard(pFile->mutex);
  const std::uint32_t nError = pFile->ReadsAhead(nBytes)
                                   ? pFile->ReadThrough(static_cast<char*>(pBuffer), nBytes, nMoved)
                                   : pFile->ReadAt(pBuffer, nBytes, pFile->nPosition, nMoved);
  pFile->nPosition += nMoved;
  pFile->nLastEnd = pFile->nPosition;
  return nError;
}

std::uint32_t PosixFiles::Write(FileHandle hFile, const void* pBuffer, std::uint32_t nBytes,
                                std::uint32_t& nMoved) {
  nMoved = 0;
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  if (pBuffer == nullptr) return kInvalidParameter;
  if (!Writes(pFile->eAccess)) return kAccessDenied;
  const int nDescriptor = pFile->descriptor.get();
  std::unique_lock guard(pFile->mutex, std::defer_lock);
  if (pFile->bPositions) {  // a device may keep its writer waiting for its reader
    guard.lock();
    pFile->nAheadEnd = pFile->nAheadStart;
  }
  if (pFile->bOthers && IsHeldByOther(nDescriptor, pFile->nPosition, nBytes)) return kLockViolation;
  const ssize_t nWritten = Uninterrupted([&] {
    return pFile->bPositions ? ::pwrite(nDescriptor, pBuffer, nBytes, pFile->nPosition)
                             : ::write(nDescriptor, pBuffer, nBytes);
  });
  if (nWritten < 0) {
    const std::uint32_t nError = ClassicError(errno);
    return nError == kDiskFull ? kNoSystemError : nError;
  }
  nMoved = static_cast<std::uint32_t>(nWritten);
  if (pFile->bPositions) pFile->nPosition += nMoved;
  return kNoSystemError;
}

std::uint32_t PosixFiles::Seek(FileHandle hFile, std::int64_t nOffset, SeekFrom eFrom,
                               std::int64_t& nPosition) {
  nPosition = 0;
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  if (!pFile->bPositions) {
    constexpr int kWhence[] = {SEEK_SET, SEEK_CUR, SEEK_END};
    const off_t nNow =
        ::lseek(pFile->descriptor.get(), nOffset, kWhence[static_cast<unsigned>(eFrom)]);
    if (nNow < 0) return errno == EINVAL ? std::uint32_t{kBadPosition} : ClassicError(errno);
    nPosition = nNow;
    return kNoSystemError;
  }
  const std::lock_guard guard(pFile->mutex);
  std::int64_t nBase = 0;
  if (eFrom == SeekFrom::Current) nBase = pFile->nPosition;
  if (eFrom == SeekFrom::End) {
    struct stat status {};
    if (::fstat(pFile->descriptor.get(), &status) != 0) return ClassicError(errno);
    nBase = status.st_size;
  }
  if (nOffset < -nBase || nOffset > kRangeLimit - nBase) return kBadPosition;
  nPosition = pFile->nPosition = nBase + nOffset;
  return kNoSystemError;
}

std::uint32_t PosixFiles::Commit(FileHandle hFile) {
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  if (Uninterrupted([&] { return ::fsync(pFile->descriptor.get()); }) == 0) return kNoSystemError;
  // Devices and pipes keep nothing back.
  return errno == EINVAL || errno == EROFS ? std::uint32_t{kNoSystemError} : ClassicError(errno);
}

std::uint32_t PosixFiles::Lock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) try {
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  if (!IsGoodRange(nStart, nLength)) return kInvalidParameter;
  if (!pFile->bLocks) return kInvalidFunction;
  const FileRange range{nStart, nLength};
  const std::lock_guard guard(pFile->mutex);
  // The kernel would let an open lock its own bytes again, and one unlocking free both.
  for (const FileRange& own : pFile->ranges) {
    if (range.Meets(own)) return kLockViolation;
  }
  pFile->ranges.reserve(pFile->ranges.size() + 1);
  const std::uint32_t nError =
      HoldRange(pFile->descriptor.get(), Writes(pFile->eAccess), nStart, nLength);
  if (nError == kNoSystemError) pFile->ranges.push_back(range);
  return nError;
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

std::uint32_t PosixFiles::Unlock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) {
  const auto pFile = m_pState->table.Find(hFile);
  if (pFile == nullptr) return kInvalidHandle;
  const std::lock_guard guard(pFile->mutex);
  const auto it = std::find(pFile->ranges.begin(), pFile->ranges.end(), FileRange{nStart, nLength});
  if (it == pFile->ranges.end()) return kNotLocked;
  ReleaseRange(pFile->descriptor.get(), nStart, nLength);
  pFile->ranges.erase(it);
  return kNoSystemError;
}

bool PosixFiles::IsNamed(FileHandle hFile, const char* szPath) try {
  const auto pFile = m_pState->table.Find(hFile);
  return pFile != nullptr && IsSameFile(pFile->descriptor.get(), m_pState->Native(szPath));
} catch (const std::bad_alloc&) {
  return false;
}

std::uint32_t PosixFiles::Delete(const char* szPath) try {
  const CString sNative = m_pState->Native(szPath);
  if (sNative.empty()) return kPathNotFound;
  struct stat status {};
  if (::lstat(sNative.c_str(), &status) != 0) return PathError(sNative, errno);
  if (S_ISDIR(status.st_mode) || IsReadOnly(status)) return kAccessDenied;
  // A link is a name like any other, but for one that leads nowhere: there is nothing to hold.
  Opened opened;
  if (S_ISREG(status.st_mode) ||
      (S_ISLNK(status.st_mode) && ::stat(sNative.c_str(), &status) == 0)) {
    if (const std::uint32_t nError = HoldToRemove(sNative, opened)) return nError;
  }
  return ::unlink(sNative.c_str()) == 0 ? std::uint32_t{kNoSystemError} : PathError(sNative, errno);
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

std::uint32_t PosixFiles::Rename(const char* szFrom, const char* szTo) try {
  const CString sFrom = m_pState->Native(szFrom);
  CString sTo = m_pState->Native(szTo);
  if (sFrom.empty() || sTo.empty()) return kPathNotFound;
  struct stat status {};
  if (::lstat(sFrom.c_str(), &status) != 0) return PathError(sFrom, errno);
  Opened opened;
  if (S_ISREG(status.st_mode)) {
    if (const std::uint32_t nError = HoldToRemove(sFrom, opened)) return nError;
  }
  // Both names lead to the one file that is there: only the case of its name is to change.
  if (sFrom == sTo) sTo = CString(SplitPath(sTo).sFolder).append(SplitPath(szTo).sName);
  if (sFrom == sTo) return kNoSystemError;
  if (::renameat2(AT_FDCWD, sFrom.c_str(), AT_FDCWD, sTo.c_str(), RENAME_NOREPLACE) == 0)
    return kNoSystemError;
  if (errno != EINVAL && errno != ENOSYS) return PathError(sTo, errno);
  // A file system that cannot refuse to replace. Another's file of the same moment could be lost.
  if (::lstat(sTo.c_str(), &status) == 0) return kFileExists;
  return ::rename(sFrom.c_str(), sTo.c_str()) == 0 ? std::uint32_t{kNoSystemError}
                                                   : PathError(sTo, errno);
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

bool PosixFiles::Exists(const char* szPath) try {
  const CString sNative = m_pState->Native(szPath);
  struct stat status {};
  return !sNative.empty() && ::stat(sNative.c_str(), &status) == 0;
} catch (const std::bad_alloc&) {
  return false;
}

std::uint32_t PosixFiles::MakeWritable(const char* szPath) try {
  const CString sNative = m_pState->Native(szPath);
  if (sNative.empty()) return kPathNotFound;
  struct stat status {};
  if (::stat(sNative.c_str(), &status) != 0) return PathError(sNative, errno);
  if ((status.st_mode & S_IWUSR) != 0) return kNoSystemError;
  return ::chmod(sNative.c_str(), (status.st_mode & 07777) | S_IWUSR) == 0
             ? std::uint32_t{kNoSystemError}
             : ClassicError(errno);
} catch (const std::bad_alloc&) {
  return kNotEnoughMemory;
}

std::size_t PosixFiles::OpenHandles() const {
  return m_pState->table.Size();
}

}  // namespace ald
