#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/StringTable.h"

namespace ald {

// The library's own numbered texts. The messages among them begin with the characters that choose
// icon and buttons of the message box.

// Returns the text of the number, or null. Allocates nothing.
const char* FindLibraryString(std::uint32_t nNumber);

// All of them as a table, for the library's module on a platform. What there is no memory for is
// missing.
ALDLIB_EXPORT StringTable LibraryStringTable();

}  // namespace ald
