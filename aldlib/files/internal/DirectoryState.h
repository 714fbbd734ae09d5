#pragma once

#include <cstdint>

#include "aldlib/platform/Volumes.h"

namespace ald {

// What the folder operations remember from call to call, for the whole process.
struct DirectoryState {
  // The one search. CloseFinds leaves the number here, so the next start closes it once more; the
  // port does not use a number again.
  SearchHandle hSearch = kNoSearch;
  // What the next file of ALW_GetTempFileNameExt gets for its number, in its low 16 bits; 0 until
  // the first call.
  std::uint32_t nNextTemp = 0;
};
extern DirectoryState g_directories;

}  // namespace ald
