#pragma once

#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

// Where settings lie on a POSIX system, by the XDG rules for base folders. Each call reads the
// environment anew; nothing is created here. A folder that cannot be told is empty, and so is every
// file in it. docs/settings.md has the table.
namespace ald {

inline constexpr const char* kUserFolderVariable = "ALDLIB_USER_DIR";
inline constexpr const char* kMachineFolderVariable = "ALDLIB_MACHINE_DIR";
inline constexpr const char* kIniFileVariable = "ALDLIB_INI";
inline constexpr const char* kProductVariable = "ALDLIB_PRODUCT";

// The user's configuration folder: ALDLIB_USER_DIR, or else "aldlib" in XDG_CONFIG_HOME, or else in
// ".config" of the home folder. A variable that is empty, or names no absolute path, does not
// count.
ALDLIB_EXPORT CString UserSettingsFolder();

// The machine's: ALDLIB_MACHINE_DIR, or else "aldlib" in the first absolute folder of
// XDG_CONFIG_DIRS, or else in /etc/xdg.
ALDLIB_EXPORT CString MachineSettingsFolder();

// The system profile: "system.ini" in the user's folder.
ALDLIB_EXPORT CString SystemProfileFile();

// The stores of the preferences: "preferences.sqlite" in each of the two folders.
ALDLIB_EXPORT CString UserPreferencesFile();
ALDLIB_EXPORT CString MachinePreferencesFile();

// The product INI file: ALDLIB_INI, or else the file of that name in the user's folder if it is
// there, or else the one in the machine's folder.
ALDLIB_EXPORT CString ProductIniFile(std::string_view sFileName);

}  // namespace ald
