#pragma once

#include <span>

#include "aldlib/screens/WindowTable.h"

namespace ald {

// The entries of a window table that are in use, however the host may have set its count.
std::span<WindowTableEntry> EntriesInUse(bool bDialogTable);

}  // namespace ald
