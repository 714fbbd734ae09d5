#pragma once

#include <algorithm>
#include <cstdint>

#include "aldlib/files/Filesyst.h"
#include "aldlib/platform/Platform.h"

// What the sources of the file layer share.
namespace ald {

inline Files& SystemFiles() {
  return CurrentPlatform().files;
}

inline FileHandle HandleOf(const File& file) {
  return FileHandle{file.hFile};
}

// Sets nError for a record that was never opened.
inline bool IsOpened(File* pFile) {
  if (pFile == nullptr) return false;
  if (pFile->nSignature == kFileSignature) return true;
  pFile->nError = static_cast<std::uint32_t>(FileStatus::NotOpen);
  return false;
}

inline void SetStatus(File& file, FileStatus eStatus) {
  file.nError = static_cast<std::uint32_t>(eStatus);
}

// The buffer's bounds, whatever a caller has made of the fields.
inline std::uint16_t BufferPosition(const File& file) {
  return std::min(file.nBufPos, static_cast<std::uint16_t>(kFileBufferSize));
}
inline std::uint16_t BufferFill(const File& file) {
  return std::min(file.nBufFill, static_cast<std::uint16_t>(kFileBufferSize));
}

// Writes out the characters that wait in the buffer. Returns false if they could not all be
// written: they are in the buffer still, the position is where it was, and nError and bEof tell.
bool FlushBuffer(File& file);

// Opens by the classic flags of use and denial. The number of the failure comes back.
std::uint32_t ClassicOpen(const char* szPath, std::uint16_t nFlags, FileHandle& hFile);

}  // namespace ald
