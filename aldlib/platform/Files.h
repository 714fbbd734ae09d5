#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/SystemErrors.h"
#include "aldlib/platform/Types.h"

namespace ald {

// An open file: 1 to 65534. 0 and 65535 never stand for one.
enum class FileHandle : std::uint16_t {};

// What an open is for, and what it leaves to the other opens of the same file.
enum class FileAccess : std::uint8_t { Read = 1, Write = 2, ReadWrite = 3 };
enum class FileSharing : std::uint8_t { None = 0, Read = 1, Write = 2, ReadWrite = 3 };

enum class FileDisposition : std::uint8_t {
  OpenExisting,  // kFileNotFound if it is not there
  CreateNew,     // kFileExists if it is there
  OpenOrCreate,  // whichever holds
  CreateAlways,  // empties the file if it is there
};

enum class SeekFrom : std::uint8_t { Start, Current, End };

// What the library asks of the system for files: opens with sharing, blocks of bytes, ranges held
// against others, and a few things done to names.
//
// Each call returns 0 or a number of SystemError. A call that fails leaves nothing open and nothing
// held, and its results are zero. A null path is kPathNotFound, a null buffer kInvalidParameter, a
// number that names no open file kInvalidHandle. An interrupted call is taken up again.
//
// Sharing. An open succeeds only if it suits every other open of the file, in this process and in
// all others that use this library: each one's access is within what the other one shares.
//
//   first open             second open            result
//   Read, shares Read      Read, shares Read      both are open
//   Read, shares Read      Write, shares all      kSharingViolation: the first shares no writing
//   Write, shares all      Read, shares Read      kSharingViolation: the second shares no writing
//   any, shares none       any                    kSharingViolation
//
// A refusal comes at once, and nothing here waits but for a Delete or Rename that is just at work
// on the file. What a process held is free as soon as it has ended, however it ended.
class ALDLIB_EXPORT Files {
 public:
  virtual ~Files() = default;

  // kFileNotFound for the file, kPathNotFound for a folder on the way, kAccessDenied for a folder,
  // for a read-only file that is to be written and for want of permission, kTooManyOpenFiles,
  // kSharingViolation. A file is emptied after the sharing has been granted, never before.
  virtual std::uint32_t Open(const char* szPath, FileAccess eAccess, FileSharing eSharing,
                             FileDisposition eDisposition, FileHandle& hFile) = 0;

  // Gives the handle back, whatever it returns, with the ranges that it has locked.
  virtual std::uint32_t Close(FileHandle hFile) = 0;

  // Another handle of the same open: position, sharing and locked ranges are one. The open ends
  // with the last of its handles.
  virtual std::uint32_t Duplicate(FileHandle hFile, FileHandle& hCopy) = 0;

  // Move bytes at the position, and the position behind them. At the end of the file a read gives
  // fewer bytes than were asked for, or none; on a full device so does a write, which is no
  // failure. kAccessDenied if the open is not for that, kLockViolation if another open has locked
  // one of the bytes.
  virtual std::uint32_t Read(FileHandle hFile, void* pBuffer, std::uint32_t nBytes,
                             std::uint32_t& nMoved) = 0;
  virtual std::uint32_t Write(FileHandle hFile, const void* pBuffer, std::uint32_t nBytes,
                              std::uint32_t& nMoved) = 0;

  // Moves the position and tells where it then is, from the start of the file. It may lie past the
  // end. kBadPosition if it would come before the start; the position stays then.
  virtual std::uint32_t Seek(FileHandle hFile, std::int64_t nOffset, SeekFrom eFrom,
                             std::int64_t& nPosition) = 0;

  // Returns when all that was written would survive a loss of power.
  virtual std::uint32_t Commit(FileHandle hFile) = 0;

  // Locks a range of bytes against every other open, whether there is data in it or not, and frees
  // it again. One try. kLockViolation if any byte of it is locked, by this open too; kNotLocked if
  // not this very range was locked; kInvalidFunction where files cannot be locked. A range of no
  // bytes is free for all.
  virtual std::uint32_t Lock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) = 0;
  virtual std::uint32_t Unlock(FileHandle hFile, std::int64_t nStart, std::int64_t nLength) = 0;

  // True if the name leads to the very file that is open, and not to another one that has taken its
  // name since, or to none. Every good Open ends with this being so.
  virtual bool IsNamed(FileHandle hFile, const char* szPath) = 0;

  // Deletes a file, if it is not read-only and not open anywhere through the library. The file is
  // held alone while its name is removed, so nobody can be left with an open file without a name.
  virtual std::uint32_t Delete(const char* szPath) = 0;

  // Gives a file or folder another name, in another folder of the same device too. A file must not
  // be open. kFileExists if the new name is taken, but for the file's own name in other case.
  virtual std::uint32_t Rename(const char* szFrom, const char* szTo) = 0;

  // True if there is a file or folder of that name.
  virtual bool Exists(const char* szPath) = 0;

  // Takes the mark away that makes a file read-only: that nobody may write it.
  virtual std::uint32_t MakeWritable(const char* szPath) = 0;
};

// What an open does itself, and what it leaves to others.
constexpr bool Reads(FileAccess eAccess) {
  return (static_cast<unsigned>(eAccess) & 1U) != 0;
}
constexpr bool Writes(FileAccess eAccess) {
  return (static_cast<unsigned>(eAccess) & 2U) != 0;
}
constexpr bool SharesReading(FileSharing eSharing) {
  return (static_cast<unsigned>(eSharing) & 1U) != 0;
}
constexpr bool SharesWriting(FileSharing eSharing) {
  return (static_cast<unsigned>(eSharing) & 2U) != 0;
}

}  // namespace ald
