#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Record files and text files, driven by plain functions over a record that the caller owns.
//
//   File file;
//   Lookup(&file, "C:\\DATA\\NOTES.TXT", 0);
//   CFixedString<81> sLine;
//   while (file.nError == 0 && !file.bEof) {
//     ReadLn(&file, sLine);
//     ...
//   }
//   Close(&file);
//
// Nothing is thrown, and most functions return nothing: what went wrong stands in nError until the
// next operation puts its own result there. An operation does not stop because an earlier one
// failed. FileErrors.h closes a file at the end of a block, and turns nError into std::error_code.
//
// Blocks go straight between the caller and the file. Characters, words and lines go through the
// record's buffer of 256 bytes, and a record is used for reading or for writing them, not both,
// until FileReset. A caller who mixes blocks with characters has to know that blocks move past
// whatever the buffer holds.
//
// In a text the code 30 is the end of a line. Reading makes it of a carriage return, a line feed or
// the two together; writing makes a carriage return and a line feed of it. Ctrl-Z (26) ends a text.
//
// Names may have drives and backslashes, or be the system's own. Each operation on a name also
// takes a short data file name, CFixedString<13>, and any other text, cut at 259 characters.
//
// A File belongs to one thread at a time. A null File or buffer makes an operation do nothing but
// return its failure.
namespace ald {

// nError, for callers who want a name. The numbers are what callers test.
enum class FileStatus : std::uint32_t {
  Good = 0,
  SystemFailure = 1,  // of a read, a write or a close, and every open failure without a number here
  WrongUse = 3,       // writing on a record that reads, the other way round, or past the end
  PathNotFound = 4,
  FileNotFound = 5,
  NotOpen = 6,
  TooManyOpenFiles = 7,
  DiskFull = 8,
  AccessDenied = 11,
  SharingViolation = 17,
};

inline constexpr std::uint32_t kFileSignature = 0x2B91FC69;
inline constexpr std::size_t kFileBufferSize = 256;
inline constexpr char kEndOfLine = 30;
inline constexpr char kEndOfText = 26;

// What nDirection says.
inline constexpr std::uint32_t kUnused = 0;
inline constexpr std::uint32_t kReading = 1;
inline constexpr std::uint32_t kWriting = 2;

// The classic flags of an open: one of how to use the file, one of what others may not do.
inline constexpr std::uint16_t kOpenRead = 0x00;
inline constexpr std::uint16_t kOpenWrite = 0x01;
inline constexpr std::uint16_t kOpenReadWrite = 0x02;
inline constexpr std::uint16_t kOpenExclusive = 0x10;
inline constexpr std::uint16_t kOpenDenyWrite = 0x20;
inline constexpr std::uint16_t kOpenDenyRead = 0x30;
inline constexpr std::uint16_t kOpenDenyNone = 0x40;
inline constexpr std::uint16_t kOpenCreate = 0x1000;

#pragma pack(push, 1)

// The record of a file in use. Order and width of the fields are fixed. The attribute has the
// compiler make a copy where a reference to a field is wanted, as the pragma alone does not.
struct [[gnu::packed]] File {
  std::uint32_t nError = 0;        // of the last operation; 0 is success
  std::uint8_t bEof = 0;           // the end was met; also after a short write, and of a new file
  std::uint8_t bCreated = 0;       // this open made the file
  std::uint32_t nTransferred = 0;  // bytes moved by the last block read or written
  std::uint16_t hFile = 0;         // 0 after a good Close
  std::uint32_t nDirection = kUnused;
  std::uint8_t bAgain = 0;  // nLast is to be read once more
  std::uint16_t nLast = 0;  // the last character or word read
  std::uint8_t aBuffer[kFileBufferSize] = {};
  std::uint16_t nBufPos = 0;       // the next place in the buffer
  std::uint16_t nBufFill = 0;      // bytes in the buffer, when reading
  std::uint32_t nSignature = 0;    // kFileSignature once a file has been opened
  std::uint16_t nSystemError = 0;  // the system's number, when an open failed
};

// A range of bytes.
struct [[gnu::packed]] LockRec {
  std::int32_t nStart;
  std::int32_t nLength;
};

#pragma pack(pop)

static_assert(offsetof(File, nError) == 0 && offsetof(File, bEof) == 4 &&
              offsetof(File, bCreated) == 5 && offsetof(File, nTransferred) == 6 &&
              offsetof(File, hFile) == 10 && offsetof(File, nDirection) == 12 &&
              offsetof(File, bAgain) == 16 && offsetof(File, nLast) == 17 &&
              offsetof(File, aBuffer) == 19 && offsetof(File, nBufPos) == 275 &&
              offsetof(File, nBufFill) == 277 && offsetof(File, nSignature) == 279 &&
              offsetof(File, nSystemError) == 283 && sizeof(File) == 285);
static_assert(offsetof(LockRec, nStart) == 0 && offsetof(LockRec, nLength) == 4 &&
              sizeof(LockRec) == 8);
static_assert(std::is_trivially_copyable_v<File> && std::is_standard_layout_v<File>);

// What the classic open tells of its failure.
struct OpenRecord {
  std::uint16_t nErrCode = 0;  // the system's number: 2 no such file, 3 no such folder, 4 too many
                               // open, 5 access denied, 32 sharing violation, 80 it exists ...
};

// --- Opening. nError tells, and nSystemError why an open failed. There are no retries: a file that
// another one keeps shut is 17 at once.

// Makes the file, or empties it if it is there, for this open alone. bEof and bCreated are true.
ALDLIB_EXPORT void Create(File* pFile, const CPathNameString& sPath);

// Makes the file if it is not there, and opens it for this open alone. bEof and bCreated are true
// also if it was there, with all that is in it.
ALDLIB_EXPORT void Create32(File* pFile, const CPathNameString& sPath);

// Opens a file that is there.
//
//   bMulti  bReadOnly   reads and writes     others may
//   0       0           both                 read
//   0       1           reads                read
//   1       0           both                 read and write
//   1       1           reads                read and write
//
// If it cannot be opened for reading, whatever the reason, bCreate makes it go on as Create32.
ALDLIB_EXPORT void MultiLookup(File* pFile, const CPathNameString& sPath, std::uint8_t bMulti,
                               std::uint8_t bReadOnly, std::uint8_t bCreate);

// MultiLookup with bMulti and bReadOnly both 0.
ALDLIB_EXPORT void Lookup(File* pFile, const CPathNameString& sPath, std::uint8_t bCreate);

// The classic open: the sum of one of the flags of use, one of denial, and kOpenCreate. Returns a
// handle, or -1 with the system's number in the open record, which may be null. With kOpenCreate
// the file is made first if it is not there; it is never emptied, and if it was there the number 80
// stays in the record of an open that succeeds.
ALDLIB_EXPORT int ALWOpenFile(const CPathNameString& sPath, OpenRecord* pRecord,
                              std::uint16_t nStyle);

// --- Blocks and positions.

// Reads once, at most nSize bytes. nTransferred is what came; bEof is set if that is less. Returns
// true if nError is 0, as it is at the end of the file. The record's signature is not looked at.
ALDLIB_EXPORT bool ReadBlock(File* pFile, std::uint16_t nSize, void* pBuffer);

// Returns true if all was written. nTransferred is what went; less is a full device: nError 8 and
// bEof. The record's signature is not looked at.
ALDLIB_EXPORT bool WriteBlock(File* pFile, std::uint16_t nSize, const void* pBuffer);

// The same for any size, with all or nothing as the answer: reading less is nError 1 with bEof,
// writing less is nError 8. nTransferred is the sum of what was moved.
ALDLIB_EXPORT bool ReadLongBlock(File* pFile, std::uint32_t nSize, void* pBuffer);
ALDLIB_EXPORT bool WriteLongBlock(File* pFile, std::uint32_t nSize, const void* pBuffer);

// Writes out what characters are waiting, and moves to a position counted from the start. If the
// characters cannot be written the position stays, and nError tells; otherwise nError, bEof, bAgain
// and nDirection stay as they are. A position below 0 changes nothing.
ALDLIB_EXPORT void SetPos(File* pFile, std::int32_t nPosition);

// The position of the next character, wherever the buffer has got to; -1 if the file is not open,
// or if it lies past 2147483647.
ALDLIB_EXPORT void GetPos(File* pFile, std::int32_t* pPosition);

// The bytes in the file, without those that wait in the buffer. Past 32 bits, or if the file is not
// open, 4294967295.
ALDLIB_EXPORT void FileLength(File* pFile, std::uint32_t* pLength);

// Back to the start, ready to be read or written: SetPos to 0, with nDirection, bAgain, nError and
// bEof cleared.
ALDLIB_EXPORT void FileReset(File* pFile);

// The handle, with nError 0; 0 with nError 6 for a record that was never opened.
ALDLIB_EXPORT std::uint16_t GetHandle(File* pFile);

// Has the system bring what it was given to the disk. Characters in the buffer were not given to it
// yet. nError becomes 1 if that fails, and stays as it is otherwise.
ALDLIB_EXPORT void Flush(File* pFile);

// Writes out what waits in the buffer, and closes. If it cannot be written the file stays open with
// the buffer as it is and nError says why, so that the caller can make room and close again. The
// signature stays: what is done with the record afterwards fails with nError 1.
ALDLIB_EXPORT void Close(File* pFile);

// --- Characters, words and lines.

// The next character. 0 with nError 0 and bEof set at the end, or at Ctrl-Z; 0 with nError 3 from
// then on.
//   a CR LF b Ctrl-Z c   ->  a 30 b, then 0 with bEof
ALDLIB_EXPORT void ReadChar(File* pFile, char* pCharacter);

// Two bytes as they are, the low one first; one that is missing at the end counts as 0 and sets
// bEof. After Again it gives 0, and the character is still there for ReadChar.
ALDLIB_EXPORT void ReadWord(File* pFile, std::uint16_t* pWord);

// Lets the next ReadChar give the last character once more.
ALDLIB_EXPORT void Again(File* pFile);

ALDLIB_EXPORT void WriteChar(File* pFile, char chCharacter);
// The low byte, then the high one, as they are.
ALDLIB_EXPORT void WriteWord(File* pFile, std::uint16_t nWord);

// The characters up to the end of the line, which is taken but not kept, and their count. What does
// not fit stays for the next ReadLn. A capacity of 1 reads nothing. At most 65535 characters.
ALDLIB_EXPORT std::uint16_t ReadLn(File* pFile, CFixedStringParamRef line);

// The characters of the text and the end of a line. Returns how many characters were written, and
// two more for the end of the line; up to the first error. At most 65535.
ALDLIB_EXPORT std::uint16_t WriteLn(File* pFile, const char* szText);

// --- Locks against other opens of the file. nError stays as it is, and so does the position.

// Returns 1 if the range was locked. While another one has it there are ten tries, a second apart.
ALDLIB_EXPORT std::uint8_t Lock(File* pFile, const LockRec* pRange);
// Frees a range that was locked by the very same numbers.
ALDLIB_EXPORT void UnLock(File* pFile, const LockRec* pRange);
// 0 if files cannot be locked where this one lies.
ALDLIB_EXPORT std::uint8_t ShareIsLoaded(File* pFile);

// --- Names.

// Returns 0, or the runtime's error number: 2 not found, 13 in use or no permission, 17 the new
// name is taken, 18 another device. Nothing is ever replaced.
ALDLIB_EXPORT std::uint16_t Rename(const CPathNameString& sOld, const CPathNameString& sNew);

// Returns 0, or 1 if the file is not there, read-only, open anywhere, or cannot be deleted.
ALDLIB_EXPORT std::uint16_t FileDelete(const CPathNameString& sPath);

// 1 if there is a file or folder of that name.
ALDLIB_EXPORT int FileExist(const CPathNameString& sPath);

// Deletes the files that match a mask such as "*.TMP" or "OLD\\*.TMP". The read-only ones go only
// if bReadOnlyToo is true, but for "~PVSW~.LOC", the lock file that the database leaves behind.
ALDLIB_EXPORT void DeleteFiles(const CFixedString<13>& sMask, bool bReadOnlyToo);

// Deletes a file, and those beside it whose extension is LCK or AFL in place of its own.
ALDLIB_EXPORT void FileDeleteWithLCK(const CPathNameString& sPath);

// Copies a file over another one. Returns 1 if that was done, or if the two are the same file. With
// the flag 0 nothing is copied: the destination is emptied, or made, and the result is 0. If the
// source cannot be read to its end, what was read is the copy, and the result is 1.
ALDLIB_EXPORT std::uint8_t CopyFile2(const CPathNameString& sTo, const CPathNameString& sFrom,
                                     std::uint8_t bCopy);

// --- The same with short data file names, CFixedString<13>, and other texts.

template <class T>
concept FileNameText =
    std::convertible_to<const T&, const char*> && !std::derived_from<T, CPathNameString>;

// Two names, of which one or both are no CPathNameString: a data file and its full path, say.
template <class T, class U>
concept FileNameTexts = std::convertible_to<const T&, const char*> &&
    std::convertible_to<const U&, const char*> &&(FileNameText<T> || FileNameText<U>);

namespace internal {

// Out of line, where no compiler takes the bound of 259 for a reading of that many characters.
ALDLIB_EXPORT CPathNameString PathOfText(const char* szName) noexcept;

template <class T>
CPathNameString PathOf(const T& name) noexcept {
  if constexpr (FixedText<T>) {
    return CPathNameString(name);
  } else {
    return PathOfText(name);
  }
}

}  // namespace internal

template <FileNameText T>
void Create(File* pFile, const T& name) {
  Create(pFile, internal::PathOf(name));
}
template <FileNameText T>
void Create32(File* pFile, const T& name) {
  Create32(pFile, internal::PathOf(name));
}
template <FileNameText T>
void MultiLookup(File* pFile, const T& name, std::uint8_t bMulti, std::uint8_t bReadOnly,
                 std::uint8_t bCreate) {
  MultiLookup(pFile, internal::PathOf(name), bMulti, bReadOnly, bCreate);
}
template <FileNameText T>
void Lookup(File* pFile, const T& name, std::uint8_t bCreate) {
  Lookup(pFile, internal::PathOf(name), bCreate);
}
template <FileNameText T>
int ALWOpenFile(const T& name, OpenRecord* pRecord, std::uint16_t nStyle) {
  return ALWOpenFile(internal::PathOf(name), pRecord, nStyle);
}
template <class T, class U>
requires FileNameTexts<T, U> std::uint16_t Rename(const T& oldName, const U& newName) {
  return Rename(internal::PathOf(oldName), internal::PathOf(newName));
}
template <FileNameText T>
std::uint16_t FileDelete(const T& name) {
  return FileDelete(internal::PathOf(name));
}
template <FileNameText T>
int FileExist(const T& name) {
  return FileExist(internal::PathOf(name));
}
template <FileNameText T>
void FileDeleteWithLCK(const T& name) {
  FileDeleteWithLCK(internal::PathOf(name));
}
template <class T, class U>
requires FileNameTexts<T, U> std::uint8_t CopyFile2(const T& toName, const U& fromName,
                                                    std::uint8_t bCopy) {
  return CopyFile2(internal::PathOf(toName), internal::PathOf(fromName), bCopy);
}

}  // namespace ald
