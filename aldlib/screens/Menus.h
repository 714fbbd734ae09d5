#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/WindowTypes.h"

namespace ald {

// Menus that add-on modules merge into the application's own and take out again, and which module
// each of the merged commands belongs to.
//
// Items are compared by the normal form of their texts: what stands before a tab (or a backslash
// and t), without mnemonic marks, periods, and backslashes with the character behind them. Of a
// text 79 characters are read.

// Returns the module that merged the command into that menu; 0 if none did.
ALDLIB_EXPORT ModuleHandle MenuIDToModule(MenuHandle hMenu, std::uint16_t nCommand);

// Return the position of the first item with that id or text in the menu itself; -1 if there is
// none. An id of 0 finds the first separator.
ALDLIB_EXPORT std::int16_t FindMenuItemWithID(MenuHandle hMenu, std::uint16_t nId);
ALDLIB_EXPORT std::int16_t FindMenuItemWithText(MenuHandle hMenu, const char* szText);

// Merges a menu into another one: a submenu into the submenu of its text, which is made if need be;
// a command over the command of its id, or else at the end; a separator always at the end, so that
// merging twice doubles them. The source stays as it is; one that holds the target is not merged.
// Returns 1.
ALDLIB_EXPORT int AddMenuToMenu(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource);

// Takes a merged menu out again: its commands, as many separators from the end, and the submenus
// that are empty then. Returns 0 as soon as an item of the menu itself is not there; what was
// removed by then stays removed. An item missing in a submenu only ends the work on that submenu.
ALDLIB_EXPORT int DelMenuFromMenu(ModuleHandle hModule, MenuHandle hTarget, MenuHandle hSource);

// Forgets which module owns what.
ALDLIB_EXPORT void DelMenuIDOwnerTable();

// Enables or grays a command of the main window's menu. Returns its state before, all ones if it is
// not there.
ALDLIB_EXPORT std::uint32_t EnableMainMenuItemByCommand(std::uint32_t nCommand, int bEnable);

// Deletes a command from a top menu of the main window: the last one whose text is exactly the
// name, or the first of all if none is.
ALDLIB_EXPORT void DeleteMenuItem(const CString& sTopMenu, std::uint32_t nCommand);

// Inserts a command into a top menu of the main window (the first one of that exact name, or the
// first of all) behind its nSeparator-th separator, nOffset places earlier; without such a
// separator counted from the top. Nothing happens if an item of that text comes first. Only as many
// items are looked at as the bar has top menus.
ALDLIB_EXPORT void InsertMenuItemA(const CString& sTopMenu, std::uint32_t nCommand,
                                   const char* szText, int nSeparator, int nOffset);

}  // namespace ald
