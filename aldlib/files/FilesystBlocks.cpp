// Blocks, positions and locked ranges.
#include <algorithm>
#include <limits>

#include "aldlib/files/internal/FileRecord.h"

namespace ald {
namespace {

// The classic calls moved no more than fits 16 bits, in whole pages.
constexpr std::uint32_t kPiece = 61440;

constexpr int kLockTries = 10;
constexpr std::uint32_t kLockPause = 1000;  // milliseconds

// The position of the system, -1 if there is none.
std::int64_t SystemPosition(const File& file) {
  std::int64_t nPosition = 0;
  return SystemFiles().Seek(HandleOf(file), 0, SeekFrom::Current, nPosition) == kNoSystemError
             ? nPosition
             : -1;
}

bool MoveTo(const File& file, std::int64_t nPosition) {
  return SystemFiles().Seek(HandleOf(file), nPosition, SeekFrom::Start, nPosition) ==
         kNoSystemError;
}

std::uint32_t NarrowedLength(std::int64_t nLength) {
  return static_cast<std::uint32_t>(std::min<std::int64_t>(nLength, 0xFFFF'FFFF));
}

}  // namespace

bool ReadBlock(File* pFile, std::uint16_t nSize, void* pBuffer) {
  if (pFile == nullptr) return false;
  std::uint32_t nMoved = 0;
  if (SystemFiles().Read(HandleOf(*pFile), pBuffer, nSize, nMoved) != kNoSystemError) {
    pFile->nTransferred = 0;
    SetStatus(*pFile, FileStatus::SystemFailure);
    return false;
  }
  pFile->nTransferred = nMoved;
  if (nMoved < nSize) pFile->bEof = 1;
  SetStatus(*pFile, FileStatus::Good);
  return true;
}

bool WriteBlock(File* pFile, std::uint16_t nSize, const void* pBuffer) {
  if (pFile == nullptr) return false;
  std::uint32_t nMoved = 0;
  if (SystemFiles().Write(HandleOf(*pFile), pBuffer, nSize, nMoved) != kNoSystemError) {
    pFile->nTransferred = 0;
    SetStatus(*pFile, FileStatus::SystemFailure);
    return false;
  }
  pFile->nTransferred = nMoved;
  if (nMoved < nSize) {
    pFile->bEof = 1;
    SetStatus(*pFile, FileStatus::DiskFull);
    return false;
  }
  SetStatus(*pFile, FileStatus::Good);
  return true;
}

bool ReadLongBlock(File* pFile, std::uint32_t nSize, void* pBuffer) {
  if (!IsOpened(pFile)) return false;
  auto* pNext = static_cast<std::uint8_t*>(pBuffer);
  std::uint32_t nTotal = 0;
  bool bWhole = true;
  while (bWhole && nTotal < nSize) {
    const std::uint32_t nPiece = std::min(nSize - nTotal, kPiece);
    bWhole = ReadBlock(pFile, static_cast<std::uint16_t>(nPiece), pNext) &&
             pFile->nTransferred == nPiece;
    nTotal += pFile->nTransferred;
    if (bWhole) pNext += nPiece;
  }
  pFile->nTransferred = nTotal;
  SetStatus(*pFile, bWhole ? FileStatus::Good : FileStatus::SystemFailure);
  if (!bWhole) pFile->bEof = 1;
  return bWhole;
}

bool WriteLongBlock(File* pFile, std::uint32_t nSize, const void* pBuffer) {
  if (!IsOpened(pFile)) return false;
  const auto* pNext = static_cast<const std::uint8_t*>(pBuffer);
  std::uint32_t nTotal = 0;
  bool bWhole = true;
  while (bWhole && nTotal < nSize) {
    const std::uint32_t nPiece = std::min(nSize - nTotal, kPiece);
    bWhole = WriteBlock(pFile, static_cast<std::uint16_t>(nPiece), pNext);
    nTotal += pFile->nTransferred;
    if (bWhole) pNext += nPiece;
  }
  pFile->nTransferred = nTotal;
  SetStatus(*pFile, bWhole ? FileStatus::Good : FileStatus::DiskFull);
  return bWhole;
}

bool FlushBuffer(File& file) {
  const std::uint16_t nWaiting = BufferPosition(file);
  if (file.nDirection != kWriting || nWaiting == 0) return true;
  if (!WriteBlock(&file, nWaiting, file.aBuffer)) {
    // Back over what did go, so that the next attempt writes the buffer once and in its place.
    std::int64_t nPosition = 0;
    if (file.nTransferred != 0) {
      SystemFiles().Seek(HandleOf(file), -std::int64_t{file.nTransferred}, SeekFrom::Current,
                         nPosition);
    }
    return false;
  }
  file.nBufPos = 0;
  return true;
}

void SetPos(File* pFile, std::int32_t nPosition) {
  if (!IsOpened(pFile) || nPosition < 0) return;
  const std::uint32_t nError = pFile->nError;
  if (!FlushBuffer(*pFile)) return;
  pFile->nError = nError;
  MoveTo(*pFile, nPosition);
  pFile->nBufPos = 0;
  pFile->nBufFill = 0;
}

void GetPos(File* pFile, std::int32_t* pPosition) {
  if (pPosition == nullptr) return;
  *pPosition = -1;
  if (!IsOpened(pFile)) return;
  std::int64_t nPosition = SystemPosition(*pFile);
  if (nPosition < 0) return;
  const std::uint16_t nInBuffer = BufferPosition(*pFile);
  if (pFile->nDirection == kWriting) nPosition += nInBuffer;
  if (pFile->nDirection == kReading) nPosition -= std::max(BufferFill(*pFile) - nInBuffer, 0);
  if (nPosition <= std::numeric_limits<std::int32_t>::max()) {
    *pPosition = static_cast<std::int32_t>(nPosition);
  }
}

void FileLength(File* pFile, std::uint32_t* pLength) {
  if (pLength == nullptr) return;
  *pLength = NarrowedLength(0xFFFF'FFFF);
  if (!IsOpened(pFile)) return;
  const std::int64_t nPosition = SystemPosition(*pFile);
  std::int64_t nLength = 0;
  if (nPosition < 0 ||
      SystemFiles().Seek(HandleOf(*pFile), 0, SeekFrom::End, nLength) != kNoSystemError) {
    return;
  }
  MoveTo(*pFile, nPosition);
  *pLength = NarrowedLength(nLength);
}

void FileReset(File* pFile) {
  if (!IsOpened(pFile)) return;
  SetPos(pFile, 0);
  pFile->nDirection = kUnused;
  pFile->bAgain = 0;
  pFile->bEof = 0;
  SetStatus(*pFile, FileStatus::Good);
}

std::uint16_t GetHandle(File* pFile) {
  if (!IsOpened(pFile)) return 0;
  SetStatus(*pFile, FileStatus::Good);
  return pFile->hFile;
}

void Flush(File* pFile) {
  if (pFile == nullptr) return;
  Files& files = SystemFiles();
  if (files.Commit(HandleOf(*pFile)) != kNoSystemError) {
    SetStatus(*pFile, FileStatus::SystemFailure);
  }
  // On systems that wrote a file's folder entry at its close alone, this made the new length last.
  FileHandle hCopy{};
  if (files.Duplicate(HandleOf(*pFile), hCopy) == kNoSystemError) files.Close(hCopy);
}

std::uint8_t Lock(File* pFile, const LockRec* pRange) {
  if (!IsOpened(pFile) || pRange == nullptr) return 0;
  for (int nTry = 1;; ++nTry) {
    const std::uint32_t nResult =
        SystemFiles().Lock(HandleOf(*pFile), pRange->nStart, pRange->nLength);
    if (nResult != kLockViolation || nTry == kLockTries) return nResult == kNoSystemError;
    CurrentPlatform().clock.Sleep(kLockPause);
  }
}

void UnLock(File* pFile, const LockRec* pRange) {
  if (!IsOpened(pFile) || pRange == nullptr) return;
  SystemFiles().Unlock(HandleOf(*pFile), pRange->nStart, pRange->nLength);
}

std::uint8_t ShareIsLoaded(File* pFile) {
  if (!IsOpened(pFile)) return 0;
  const std::uint32_t nResult = SystemFiles().Lock(HandleOf(*pFile), 0, 1);
  if (nResult == kNoSystemError) SystemFiles().Unlock(HandleOf(*pFile), 0, 1);
  return nResult != kInvalidFunction;
}

}  // namespace ald
