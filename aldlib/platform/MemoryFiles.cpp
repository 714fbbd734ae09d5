#include "aldlib/platform/MemoryFiles.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "aldlib/platform/internal/FileTable.h"

namespace ald {

struct MemoryFiles::OpenFile {
  MemoryNodePtr pNode;
  char chDrive = 'C';
  FileAccess eAccess = FileAccess::Read;
  FileSharing eSharing = FileSharing::None;
  std::int64_t nPosition = 0;
  std::vector<FileRange> ranges;
};

struct MemoryFiles::State {
  explicit State(MemoryDisk& theDisk) : disk(theDisk) {}

  // Counts the call, and says what it is to fail with.
  std::uint32_t Call() {
    if (nToFailure == 0 || --nToFailure > 0) return kNoSystemError;
    bFailed = true;
    return nFailure;
  }
  std::uint32_t Find(FileHandle hFile, std::shared_ptr<OpenFile>& pFile) {
    if (const std::uint32_t nError = Call()) return nError;
    pFile = table.Find(hFile);
    return pFile != nullptr ? kNoSystemError : kInvalidHandle;
  }
  std::uint32_t FindFile(const char* szPath, MemoryNodePtr& pNode) {
    if (const std::uint32_t nError = Call()) return nError;
    if (szPath == nullptr) return kPathNotFound;
    return disk.Find(szPath, pNode);
  }

  // The opens of a file; a duplicate is no open of its own.
  template <class TTest>
  bool AnyOpen(const MemoryNode* pNode, TTest test) const {
    bool bAny = false;
    table.Each(
        [&](const OpenFile& open) { bAny = bAny || (open.pNode.get() == pNode && test(open)); });
    return bAny;
  }
  bool IsOpen(const MemoryNode* pNode) const {
    return AnyOpen(pNode, [](const OpenFile&) { return true; });
  }
  bool Suits(const MemoryNode* pNode, FileAccess eAccess, FileSharing eSharing) const {
    const auto within = [](FileAccess eOne, FileSharing eOther) {
      return (!Reads(eOne) || SharesReading(eOther)) && (!Writes(eOne) || SharesWriting(eOther));
    };
    return !AnyOpen(pNode, [&](const OpenFile& open) {
      return !within(eAccess, open.eSharing) || !within(open.eAccess, eSharing);
    });
  }
  bool IsHeldByOther(const OpenFile& file, std::uint32_t nBytes) const {
    return AnyOpen(file.pNode.get(), [&](const OpenFile& open) {
      return &open != &file && Locks(open, {file.nPosition, nBytes});
    });
  }
  static bool Locks(const OpenFile& open, const FileRange& range) {
    return std::any_of(open.ranges.begin(), open.ranges.end(),
                       [&](const FileRange& own) { return own.Meets(range); });
  }

  MemoryDisk& disk;
  FileTable<OpenFile> table;
  int nToFailure = 0;
  std::uint32_t nFailure = kGeneralFailure;
  bool bFailed = false;
};

MemoryFiles::MemoryFiles(MemoryDisk& disk) : m_pState(std::make_unique<State>(disk)) {}

MemoryFiles::~MemoryFiles() = default;

void MemoryFiles::FailCall(int nCount, std::uint32_t nError) {
  m_pState->nToFailure = std::max(nCount, 0);
  m_pState->nFailure = nError;
  m_pState->bFailed = false;
}

bool MemoryFiles::HasFailed() const {
  return m_pState->bFailed;
}

std::size_t MemoryFiles::OpenHandles() const {
  return m_pState->table.Size();
}

std::uint32_t MemoryFiles::Open(const char* szPath, FileAccess eAccess, FileSharing eSharing,
                                FileDisposition eDisposition, FileHandle& hFile) {
  hFile = FileHandle{};
  const auto pFile = std::make_shared<OpenFile>();
  MemoryNodePtr& pNode = pFile->pNode;
  std::uint32_t nError = m_pState->Call();
  if (nError != kNoSystemError) return nError;
  if (szPath == nullptr) return kPathNotFound;
  nError = m_pState->disk.Find(szPath, pNode);
  if (nError == kNoSystemError) {
    if (eDisposition == FileDisposition::CreateNew) return kFileExists;
    if (pNode->bFolder || (Writes(eAccess) && pNode->bReadOnly)) return kAccessDenied;
    if (!m_pState->Suits(pNode.get(), eAccess, eSharing)) return kSharingViolation;
    if (eDisposition == FileDisposition::CreateAlways) pNode->sData.clear();
  } else if (nError == kFileNotFound && eDisposition != FileDisposition::OpenExisting) {
    nError = m_pState->disk.Make(szPath, false, pNode);
  }
  if (nError != kNoSystemError) return nError;
  pFile->chDrive = m_pState->disk.FullPath(szPath)[0];
  pFile->eAccess = eAccess;
  pFile->eSharing = eSharing;
  hFile = m_pState->table.Add(pFile);
  return hFile != FileHandle{} ? kNoSystemError : kTooManyOpenFiles;
}

std::uint32_t MemoryFiles::Close(FileHandle hFile) {
  const std::uint32_t nError = m_pState->Call();
  if (m_pState->table.Remove(hFile) == nullptr) return kInvalidHandle;
  return nError;
}

std::uint32_t MemoryFiles::Duplicate(FileHandle hFile, FileHandle& hCopy) {
  hCopy = FileHandle{};
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  hCopy = m_pState->table.Add(std::move(pFile));
  return hCopy != FileHandle{} ? kNoSystemError : kTooManyOpenFiles;
}

std::uint32_t MemoryFiles::Read(FileHandle hFile, void* pBuffer, std::uint32_t nBytes,
                                std::uint32_t& nMoved) {
  nMoved = 0;
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  if (pBuffer == nullptr) return kInvalidParameter;
  if (!Reads(pFile->eAccess)) return kAccessDenied;
  if (m_pState->IsHeldByOther(*pFile, nBytes)) return kLockViolation;
  const CString& sData = pFile->pNode->sData;
  const auto nSize = static_cast<std::int64_t>(sData.size());
  if (pFile->nPosition >= nSize) return kNoSystemError;
  nMoved = static_cast<std::uint32_t>(std::min<std::int64_t>(nBytes, nSize - pFile->nPosition));
  std::memcpy(pBuffer, sData.data() + pFile->nPosition, nMoved);
  pFile->nPosition += nMoved;
  return kNoSystemError;
}

std::uint32_t MemoryFiles::Write(FileHandle hFile, const void* pBuffer, std::uint32_t nBytes,
                                 std::uint32_t& nMoved) {
  nMoved = 0;
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  if (pBuffer == nullptr) return kInvalidParameter;
  if (!Writes(pFile->eAccess)) return kAccessDenied;
  if (m_pState->IsHeldByOther(*pFile, nBytes)) return kLockViolation;
  CString& sData = pFile->pNode->sData;
  const auto nPosition = static_cast<std::uint64_t>(pFile->nPosition);
  const std::uint64_t nMost = sData.size() + m_pState->disk.FreeBytes(pFile->chDrive);
  if (nPosition >= nMost) return kNoSystemError;
  nMoved = static_cast<std::uint32_t>(std::min<std::uint64_t>(nBytes, nMost - nPosition));
  if (sData.size() < nPosition + nMoved) sData.resize(nPosition + nMoved);
  std::memcpy(sData.data() + nPosition, pBuffer, nMoved);
  pFile->nPosition += nMoved;
  return kNoSystemError;
}

std::uint32_t MemoryFiles::Seek(FileHandle hFile, std::int64_t nOffset, SeekFrom eFrom,
                                std::int64_t& nPosition) {
  nPosition = 0;
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  std::int64_t nBase = 0;
  if (eFrom == SeekFrom::Current) nBase = pFile->nPosition;
  if (eFrom == SeekFrom::End) nBase = static_cast<std::int64_t>(pFile->pNode->sData.size());
  if (nOffset < -nBase || nOffset > kRangeLimit - nBase) return kBadPosition;
  nPosition = pFile->nPosition = nBase + nOffset;
  return kNoSystemError;
}

std::uint32_t MemoryFiles::Commit(FileHandle hFile) {
  std::shared_ptr<OpenFile> pFile;
  return m_pState->Find(hFile, pFile);
}

std::uint32_t MemoryFiles::Lock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) {
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  if (!IsGoodRange(nStart, nLength)) return kInvalidParameter;
  const FileRange range{nStart, nLength};
  if (m_pState->AnyOpen(pFile->pNode.get(),
                        [&](const OpenFile& open) { return State::Locks(open, range); })) {
    return kLockViolation;
  }
  pFile->ranges.push_back(range);
  return kNoSystemError;
}

std::uint32_t MemoryFiles::Unlock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) {
  std::shared_ptr<OpenFile> pFile;
  if (const std::uint32_t nError = m_pState->Find(hFile, pFile)) return nError;
  const auto it = std::find(pFile->ranges.begin(), pFile->ranges.end(), FileRange{nStart, nLength});
  if (it == pFile->ranges.end()) return kNotLocked;
  pFile->ranges.erase(it);
  return kNoSystemError;
}

bool MemoryFiles::IsNamed(FileHandle hFile, const char* szPath) {
  MemoryNodePtr pNode;
  if (m_pState->FindFile(szPath, pNode) != kNoSystemError) return false;
  const auto pFile = m_pState->table.Find(hFile);
  return pFile != nullptr && pFile->pNode == pNode;
}

std::uint32_t MemoryFiles::Delete(const char* szPath) {
  MemoryNodePtr pNode;
  if (const std::uint32_t nError = m_pState->FindFile(szPath, pNode)) return nError;
  if (pNode->bFolder || pNode->bReadOnly) return kAccessDenied;
  if (m_pState->IsOpen(pNode.get())) return kSharingViolation;
  return m_pState->disk.Remove(szPath);
}

std::uint32_t MemoryFiles::Rename(const char* szFrom, const char* szTo) {
  MemoryNodePtr pNode;
  if (const std::uint32_t nError = m_pState->FindFile(szFrom, pNode)) return nError;
  if (szTo == nullptr) return kPathNotFound;
  if (m_pState->IsOpen(pNode.get())) return kSharingViolation;
  return m_pState->disk.Rename(szFrom, szTo);
}

bool MemoryFiles::Exists(const char* szPath) {
  MemoryNodePtr pNode;
  return m_pState->FindFile(szPath, pNode) == kNoSystemError;
}

std::uint32_t MemoryFiles::MakeWritable(const char* szPath) {
  MemoryNodePtr pNode;
  if (const std::uint32_t nError = m_pState->FindFile(szPath, pNode)) return nError;
  pNode->bReadOnly = false;
  return kNoSystemError;
}

}  // namespace ald
