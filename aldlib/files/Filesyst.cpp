// Opening and closing.
#include "aldlib/files/Filesyst.h"

#include "aldlib/files/internal/FileRecord.h"

namespace ald {
namespace {

FileStatus StatusOf(std::uint32_t nSystemError) {
  switch (nSystemError) {
    case kFileNotFound:
      return FileStatus::FileNotFound;
    case kPathNotFound:
      return FileStatus::PathNotFound;
    case kTooManyOpenFiles:
      return FileStatus::TooManyOpenFiles;
    case kAccessDenied:
      return FileStatus::AccessDenied;
    case kInvalidHandle:
      return FileStatus::NotOpen;
    case kSharingViolation:
      return FileStatus::SharingViolation;
    default:
      return FileStatus::SystemFailure;
  }
}

void TakeFailure(File& file, std::uint32_t nSystemError) {
  file.nSystemError = static_cast<std::uint16_t>(nSystemError);
  SetStatus(file, StatusOf(nSystemError));
}

void TakeHandle(File& file, FileHandle hFile, bool bNew) {
  file.aBuffer[0] = 0;
  file.nBufPos = 0;
  file.nBufFill = 0;
  file.nDirection = kUnused;
  file.bAgain = 0;
  file.hFile = static_cast<std::uint16_t>(hFile);
  file.nSignature = kFileSignature;
  file.bEof = bNew;
  file.bCreated = bNew;
  SetStatus(file, FileStatus::Good);
}

FileAccess AccessOf(std::uint16_t nFlags) {
  if ((nFlags & kOpenReadWrite) != 0) return FileAccess::ReadWrite;
  return (nFlags & kOpenWrite) != 0 ? FileAccess::Write : FileAccess::Read;
}

// Without a flag of denial others may do everything, as with kOpenDenyNone.
FileSharing SharingOf(std::uint16_t nFlags) {
  if ((nFlags & kOpenDenyNone) != 0) return FileSharing::ReadWrite;
  switch (nFlags & kOpenDenyRead) {
    case kOpenExclusive:
      return FileSharing::None;
    case kOpenDenyWrite:
      return FileSharing::Read;
    case kOpenDenyRead:
      return FileSharing::Write;
    default:
      return FileSharing::ReadWrite;
  }
}

}  // namespace

std::uint32_t ClassicOpen(const char* szPath, std::uint16_t nFlags, FileHandle& hFile) {
  return SystemFiles().Open(szPath, AccessOf(nFlags), SharingOf(nFlags),
                            FileDisposition::OpenExisting, hFile);
}

void Create(File* pFile, const CPathNameString& sPath) {
  if (pFile == nullptr) return;
  FileHandle hFile{};
  if (const std::uint32_t nError = SystemFiles().Open(
          sPath, FileAccess::ReadWrite, FileSharing::None, FileDisposition::CreateAlways, hFile)) {
    TakeFailure(*pFile, nError);
  } else {
    TakeHandle(*pFile, hFile, true);
  }
}

void Create32(File* pFile, const CPathNameString& sPath) {
  if (pFile == nullptr) return;
  // That this fails, as it does for a file that is there, is left for the open below to judge.
  FileHandle hFile{};
  if (SystemFiles().Open(sPath, FileAccess::ReadWrite, FileSharing::ReadWrite,
                         FileDisposition::CreateNew, hFile) == kNoSystemError) {
    SystemFiles().Close(hFile);
  }
  if (const std::uint32_t nError = ClassicOpen(sPath, kOpenReadWrite | kOpenExclusive, hFile)) {
    TakeFailure(*pFile, nError);
  } else {
    TakeHandle(*pFile, hFile, true);
  }
}

void MultiLookup(File* pFile, const CPathNameString& sPath, std::uint8_t bMulti,
                 std::uint8_t bReadOnly, std::uint8_t bCreate) {
  if (pFile == nullptr) return;
  FileHandle hFile{};
  std::uint32_t nError = ClassicOpen(sPath, kOpenRead | kOpenDenyNone, hFile);
  if (nError != kNoSystemError) {
    if (bCreate != 0) {
      Create32(pFile, sPath);
    } else {
      TakeFailure(*pFile, nError);
    }
    return;
  }
  SystemFiles().Close(hFile);
  const unsigned nUse = bReadOnly != 0 ? kOpenRead : kOpenReadWrite;
  const unsigned nDenial = bMulti != 0 ? kOpenDenyNone : kOpenDenyWrite;
  nError = ClassicOpen(sPath, static_cast<std::uint16_t>(nUse | nDenial), hFile);
  if (nError != kNoSystemError) {
    TakeFailure(*pFile, nError);
  } else {
    TakeHandle(*pFile, hFile, false);
  }
}

void Lookup(File* pFile, const CPathNameString& sPath, std::uint8_t bCreate) {
  MultiLookup(pFile, sPath, 0, 0, bCreate);
}

int ALWOpenFile(const CPathNameString& sPath, OpenRecord* pRecord, std::uint16_t nStyle) {
  OpenRecord unwanted;
  OpenRecord& record = pRecord != nullptr ? *pRecord : unwanted;
  record.nErrCode = kNoSystemError;
  FileHandle hFile{};
  if ((nStyle & kOpenCreate) != 0) {
    // Only for the moment of making it, so an exclusive style need not keep others out here.
    FileSharing eSharing = SharingOf(nStyle);
    if (eSharing == FileSharing::None) eSharing = FileSharing::ReadWrite;
    const std::uint32_t nError =
        SystemFiles().Open(sPath, AccessOf(nStyle), eSharing, FileDisposition::CreateNew, hFile);
    if (nError == kNoSystemError) {
      SystemFiles().Close(hFile);
    } else {
      record.nErrCode = static_cast<std::uint16_t>(nError);
    }
  }
  if (const std::uint32_t nError = ClassicOpen(sPath, nStyle, hFile)) {
    record.nErrCode = static_cast<std::uint16_t>(nError);
    return -1;
  }
  return static_cast<int>(hFile);
}

void Close(File* pFile) {
  if (!IsOpened(pFile) || !FlushBuffer(*pFile)) return;
  if (SystemFiles().Close(HandleOf(*pFile)) != kNoSystemError) {
    SetStatus(*pFile, FileStatus::SystemFailure);
    return;
  }
  SetStatus(*pFile, FileStatus::Good);
  pFile->hFile = 0;
}

}  // namespace ald
