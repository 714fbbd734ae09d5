#pragma once

#include <cstddef>
#include <memory>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Files.h"
#include "aldlib/platform/MemoryDisk.h"

namespace ald {

// The files of a MemoryDisk, for tests and for hosts without a disk. Sharing and locked ranges hold
// among all opens made here. A full drive takes what fits.
//
// Every call can be made to fail, one at a time, so that a test tries what becomes of an operation
// whichever of its steps goes wrong:
//
//   for (int nCall = 1; ; ++nCall) {
//     files.FailCall(nCall);
//     CopyFile2("B.DAT", "A.DAT", 1);
//     EXPECT_EQ(files.OpenHandles(), 0u);
//     if (!files.HasFailed()) break;   // there are fewer calls than that
//   }
class ALDLIB_EXPORT MemoryFiles : public Files {
 public:
  // The disk must outlive the files.
  explicit MemoryFiles(MemoryDisk& disk);
  ~MemoryFiles() override;

  // Lets the nCount-th call from now on fail with this number, and only that one; 0 lets all
  // through. A close that fails gives its handle back like any other.
  void FailCall(int nCount, std::uint32_t nError = kGeneralFailure);
  // True if a call has failed since FailCall was asked to.
  bool HasFailed() const;

  std::size_t OpenHandles() const;

  std::uint32_t Open(const char* szPath, FileAccess eAccess, FileSharing eSharing,
                     FileDisposition eDisposition, FileHandle& hFile) override;
  std::uint32_t Close(FileHandle hFile) override;
  std::uint32_t Duplicate(FileHandle hFile, FileHandle& hCopy) override;
  std::uint32_t Read(FileHandle hFile, void* pBuffer, std::uint32_t nBytes,
                     std::uint32_t& nMoved) override;
  std::uint32_t Write(FileHandle hFile, const void* pBuffer, std::uint32_t nBytes,
                      std::uint32_t& nMoved) override;
  std::uint32_t Seek(FileHandle hFile, std::int64_t nOffset, SeekFrom eFrom,
                     std::int64_t& nPosition) override;
  std::uint32_t Commit(FileHandle hFile) override;
  std::uint32_t Lock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) override;
  std::uint32_t Unlock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) override;
  bool IsNamed(FileHandle hFile, const char* szPath) override;
  std::uint32_t Delete(const char* szPath) override;
  std::uint32_t Rename(const char* szFrom, const char* szTo) override;
  bool Exists(const char* szPath) override;
  std::uint32_t MakeWritable(const char* szPath) override;

 private:
  struct OpenFile;
  struct State;

  std::unique_ptr<State> m_pState;
};

}  // namespace ald
