#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/text/FixedString.h"

// Settings in INI files: those of the installation in the product INI file, and the regional ones
// of the user in the system's profile. The library reads such files and never writes one.
//
//   GetALWProfileInt(AlderIniSections::Lib, "RETRIES", 3)      RETRIES = 5 in [Lib] -> 5
//
// The port aldlib/platform/Profile.h tells how a file is read and what each kind of value means. A
// file, section or key that is missing gives the default; no call reports a failure. An output
// buffer is never written past its size, and a null one or a size below 1 gives 0.
namespace ald {

// Names a section of the product INI file: "Lib", "Install", "Debug" and "AmyuniDriver". Any other
// number names no section, which reads as a null section does.
enum class AlderIniSections : std::int32_t { Lib = 0, Install = 1, Debug = 8, AmyuniDriver = 9 };

// Reads a text of the product INI file and returns its length. With no section the result is the
// list of the sections' names.
ALDLIB_EXPORT std::int16_t GetALWProfileString(AlderIniSections eSection, const char* szKey,
                                               const char* szDefault, char* szBuffer,
                                               std::int16_t nSize);

// Reads a number of the product INI file.
ALDLIB_EXPORT std::uint32_t GetALWProfileInt(AlderIniSections eSection, const char* szKey,
                                             std::int16_t nDefault);

// Reads a yes or no of the product INI file: 1 for a value that begins with "y" or "Y", 0 for any
// other, "1" and "True" among them. A missing key gives 1 or 0 for the default; an empty value
// gives the default itself.
ALDLIB_EXPORT std::int32_t GetALWProfileBOOL(AlderIniSections eSection, const char* szKey,
                                             std::int32_t nDefault);

// Reads a text of the INI file of that name. A null name means the system's profile.
ALDLIB_EXPORT std::int16_t GetSYSProfileString(const char* szSection, const char* szKey,
                                               const char* szDefault, char* szBuffer,
                                               std::int16_t nSize, const char* szFileName);

// Read a text and a number of the system's profile.
ALDLIB_EXPORT std::int16_t GetWINProfileString(const char* szSection, const char* szKey,
                                               const char* szDefault, char* szBuffer,
                                               std::int16_t nSize);
ALDLIB_EXPORT std::uint32_t GetWINProfileInt(const char* szSection, const char* szKey,
                                             std::int16_t nDefault);

// Reads the program folder, "PROGRAMPATH" of section "Install", at most 259 characters.
ALDLIB_EXPORT void GetALWProgramPath(const char* szDefault, CPathNameString* pOutput);

// Reads the data folder, "DATAPATH" of section "Lib", at most 259 characters; "C:\ALDERW" if it is
// not set. With bAddSeparator a backslash follows unless there is one, no text or no room.
//   DATAPATH=C:\BOOKS -> "C:\BOOKS", or "C:\BOOKS\"        no key -> "C:\ALDERW", or "C:\ALDERW\"
ALDLIB_EXPORT void GetDefaultDataPath(CPathNameString& sPath, bool bAddSeparator);

// The name of "Details.ini" in the current folder. This is not the product INI file, whose name
// the product port tells.
ALDLIB_EXPORT CPathNameString GetINIFileName();

}  // namespace ald
