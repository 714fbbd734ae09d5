#pragma once

#include <cstddef>
#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// The application's open screens, in two small tables: the dialog table, whose windows are offered
// the keyboard by Dispatch, and the data entry table, whose windows may handle help themselves.
// Broadcasts reach both. A screen is added when it is made and removed when it is destroyed;
// nothing here watches for a window that dies without that.
//
// A table flag means the dialog table when true and the data entry table when false.

constexpr std::uint16_t kWindowTableSize = 15;

struct WindowTableEntry {
  WindowHandle hWindow;
  std::uint16_t nMenuId;  // 0 for none; any other stands once in a table
  std::uint32_t nReserved;
  std::uint32_t bHandlesHelp;
};

struct AcceleratorStackNode;

// Entries in use stand together from index 0 on, in the order of adding; the others are all zero.
struct DataEntryManagerDataType {
  std::uint32_t bSystemFrozen;  // the host's own: not 0 lets no window into either table
  WindowTableEntry dialogTable[kWindowTableSize];
  std::uint16_t nDialogs;
  WindowTableEntry dataEntryTable[kWindowTableSize];
  std::uint16_t nDataEntries;
  AcceleratorHandle hAccelerator;          // the current one
  AcceleratorHandle hPreviousAccelerator;  // the one that the last SetAccelerator replaced
  AcceleratorStackNode* pAcceleratorStack;
};

// All zero at load.
ALDLIB_EXPORT extern DataEntryManagerDataType DataEntryManagerData;

// Adds a window. Returns 1; or 0, and nothing has changed, if the system is frozen, if the table is
// full, or if the menu id is not 0 and stands in that table already. The same window may be added
// again.
ALDLIB_EXPORT unsigned char AddWindowToTable(WindowHandle hWindow, std::uint16_t nMenuId,
                                             bool bDialogTable);

// Adds a window to the data entry table and marks it as one that handles help itself.
ALDLIB_EXPORT unsigned char AddWindowToTableForHelp(WindowHandle hWindow, std::uint16_t nMenuId);

// Removes the first entry of the window. Returns 0 if it is not in that table.
ALDLIB_EXPORT unsigned char RemoveWindowFromTable(WindowHandle hWindow, bool bDialogTable);

// Return the window of a menu id and the menu id of a window; 0 if there is none.
ALDLIB_EXPORT WindowHandle GetWindowFromMenu(std::uint16_t nMenuId, bool bDialogTable);
ALDLIB_EXPORT std::uint16_t GetMenuFromWindow(WindowHandle hWindow, bool bDialogTable);

// Whether the first data entry of the window is marked as handling help.
ALDLIB_EXPORT bool DataEntryTableHandleHelp(WindowHandle hWindow);

ALDLIB_EXPORT unsigned char IsSystemFrozen();

// Whether the window is of that class, in any case.
ALDLIB_EXPORT bool IsWindowClassName(WindowHandle hWindow, const char* szClass);

// The number of a window's dialog, by which help and layout know it; 0 if it has none. It stays
// until RemoveWindowFromALWInternals, whatever becomes of the window.
ALDLIB_EXPORT void SetDialogID(WindowHandle hWindow, int nDialogId);
ALDLIB_EXPORT int GetDialogID(WindowHandle hWindow);
ALDLIB_EXPORT void RemoveWindowFromALWInternals(WindowHandle hWindow);

// A pointer kept with a window. The caller owns what it points to. Set returns 1 if it was stored;
// Get returns null for a window without; Remove returns what was stored and forgets it.
ALDLIB_EXPORT int SetMyWindowData(WindowHandle hWindow, void* pData);
ALDLIB_EXPORT void* GetMyWindowData(WindowHandle hWindow);
ALDLIB_EXPORT void* RemoveMyWindowData(WindowHandle hWindow);

}  // namespace ald
