// What is done to names: renaming, deleting, copying.
#include <string_view>

#include "aldlib/files/Directories.h"
#include "aldlib/files/internal/FileRecord.h"
#include "aldlib/frame/MemStore.h"
#include "aldlib/platform/internal/PathText.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

// The runtime's number for a system's one.
std::uint16_t RuntimeError(std::uint32_t nSystemError) {
  switch (nSystemError) {
    case kNoSystemError:
      return 0;
    case kFileNotFound:
    case kPathNotFound:
      return 2;
    case kInvalidHandle:
      return 9;
    case kNotEnoughMemory:
      return 12;
    case kAccessDenied:
    case kSharingViolation:
    case kLockViolation:
      return 13;
    case kFileExists:
      return 17;
    case kNotSameDevice:
      return 18;
    case kTooManyOpenFiles:
      return 24;
    case kDiskFull:
      return 28;
    default:
      return 22;
  }
}

// The name with another extension in place of its own, or of none. Empty if there is no name, or if
// it would not fit: a name that was cut could be another file's.
CPathNameString WithExtension(const CPathNameString& sPath, std::string_view sExtension) {
  const std::string_view sName = sPath.view();
  const std::size_t nSlash = sName.find_last_of("\\/");
  const std::size_t nElement = nSlash == std::string_view::npos ? 0 : nSlash + 1;
  // The dot that such a name as ".profile" begins with starts no extension.
  const std::size_t nDot = sName.substr(nElement).find_last_of('.');
  const bool bExtension = nDot != std::string_view::npos && nDot != 0;
  const std::size_t nCut = bExtension ? nElement + nDot : sName.size();
  CPathNameString sOther;
  if (nCut == 0 || nCut + 1 + sExtension.size() >= static_cast<std::size_t>(sOther.GetSize())) {
    return sOther;
  }
  sName.copy(sOther, nCut);
  sOther[nCut] = '.';
  sExtension.copy(sOther + (nCut + 1), sExtension.size());
  return sOther;
}

// A handle closed when it goes.
class OpenHandle {
 public:
  OpenHandle() = default;
  OpenHandle(const OpenHandle&) = delete;
  OpenHandle& operator=(const OpenHandle&) = delete;
  ~OpenHandle() {
    if (hFile != FileHandle{}) SystemFiles().Close(hFile);
  }

  FileHandle hFile{};
};

// A block of the memory store.
class Block {
 public:
  explicit Block(std::uint32_t nSize) : m_pBytes(_RealAllocate(nSize)) {}
  Block(const Block&) = delete;
  Block& operator=(const Block&) = delete;
  ~Block() { _RealDeAllocate(m_pBytes); }

  void* get() const { return m_pBytes; }

 private:
  void* m_pBytes;
};

}  // namespace

CPathNameString internal::PathOfText(const char* szName) noexcept {
  return CPathNameString(szName);
}

std::uint16_t Rename(const CPathNameString& sOld, const CPathNameString& sNew) {
  return RuntimeError(SystemFiles().Rename(sOld, sNew));
}

std::uint16_t FileDelete(const CPathNameString& sPath) {
  return SystemFiles().Delete(sPath) == kNoSystemError ? 0 : 1;
}

int FileExist(const CPathNameString& sPath) {
  return SystemFiles().Exists(sPath) ? 1 : 0;
}

void DeleteFiles(const CFixedString<13>& sMask, bool bReadOnlyToo) {
  // A match comes without its folder: alone its name would be that of another file.
  const std::string_view sFolder = SplitPath(sMask.view()).sFolder;
  _finddata_t found{};
  for (unsigned char bFound = FindFirst(sMask, &found); bFound != 0; bFound = FindNext(&found)) {
    if ((found.attrib & kFolderAttribute) != 0) continue;
    CFixedString<sizeof sMask + sizeof found.name> sPath;
    sFolder.copy(sPath, sFolder.size());
    sstrcat(sPath, found.name, sPath.GetSize());
    if (bReadOnlyToo || CompareStrNoCase(found.name, "~PVSW~.LOC") == 0) {
      SystemFiles().MakeWritable(sPath);
    }
    SystemFiles().Delete(sPath);
  }
}

void FileDeleteWithLCK(const CPathNameString& sPath) {
  FileDelete(sPath);
  for (const char* szExtension : {"LCK", "AFL"}) {
    const CPathNameString sCompanion = WithExtension(sPath, szExtension);
    if (!sCompanion.IsEmpty()) FileDelete(sCompanion);
  }
}

std::uint8_t CopyFile2(const CPathNameString& sTo, const CPathNameString& sFrom,
                       std::uint8_t bCopy) {
  constexpr std::uint32_t kBlock = 8192;

  if (CompareStrNoCase(sTo, sFrom) == 0) return 1;
  Files& files = SystemFiles();
  OpenHandle from;
  if (ClassicOpen(sFrom, kOpenRead, from.hFile) != kNoSystemError) return 0;
  // The same file by another spelling or through a link: making it anew would empty the source.
  if (files.IsNamed(from.hFile, sTo)) return 1;
  OpenHandle to;
  if (files.Open(sTo, FileAccess::ReadWrite, FileSharing::ReadWrite, FileDisposition::CreateAlways,
                 to.hFile) != kNoSystemError) {
    return 0;
  }
  // Callers use the flag 0 to have the destination there and empty.
  if (bCopy == 0) return 0;
  const Block block(kBlock);
  if (block.get() == nullptr) return 0;
  // A read that fails counts as the end of the file.
  std::uint32_t nRead = 0;
  while (files.Read(from.hFile, block.get(), kBlock, nRead) == kNoSystemError && nRead != 0) {
    std::uint32_t nWritten = 0;
    if (files.Write(to.hFile, block.get(), nRead, nWritten) != kNoSystemError ||
        nWritten != nRead) {
      return 0;
    }
  }
  return 1;
}

}  // namespace ald
