#pragma once

#include <memory>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Files.h"

namespace ald {

class PathMapper;

// The files of a POSIX system, under names in the library's spelling or the system's own.
//
// Sharing and locked ranges hold among all that use the library, on one machine and where the file
// system passes locks on. A file system that has no locks (Lock is kInvalidFunction there) opens
// all that the system itself allows. Programs that do not use the library are not kept out.
//
// An open that lets nobody else write reads ahead of its caller: of a range locked after that it
// may still give the bytes, which nobody can have changed.
//
// A file that nobody may write counts as read-only, for the administrator too. Devices and pipes
// can be opened; nothing is shared or locked there.
class ALDLIB_EXPORT PosixFiles : public Files {
 public:
  explicit PosixFiles(PathMapper& paths);
  ~PosixFiles() override;

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

  // How many handles are open.
  std::size_t OpenHandles() const;

 private:
  struct OpenFile;
  struct State;

  std::unique_ptr<State> m_pState;
};

}  // namespace ald
