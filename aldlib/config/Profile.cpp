#include "aldlib/config/Profile.h"

#include <new>

#include "aldlib/files/Directories.h"
#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

const char* SectionName(AlderIniSections eSection) {
  switch (eSection) {
    case AlderIniSections::Lib:
      return "Lib";
    case AlderIniSections::Install:
      return "Install";
    case AlderIniSections::Debug:
      return "Debug";
    case AlderIniSections::AmyuniDriver:
      return "AmyuniDriver";
  }
  return nullptr;
}

std::int16_t ReadString(const char* szFile, const char* szSection, const char* szKey,
                        const char* szDefault, char* szBuffer, std::int16_t nSize) {
  if (szBuffer == nullptr || nSize < 1) return 0;
  return static_cast<std::int16_t>(CurrentPlatform().profile.ReadString(
      szFile, szSection, szKey, szDefault, szBuffer, static_cast<std::uint32_t>(nSize)));
}

}  // namespace

std::int16_t GetALWProfileString(AlderIniSections eSection, const char* szKey,
                                 const char* szDefault, char* szBuffer, std::int16_t nSize) try {
  const CString sFile = CurrentPlatform().product.IniFileName();
  return ReadString(sFile.c_str(), SectionName(eSection), szKey, szDefault, szBuffer, nSize);
} catch (const std::bad_alloc&) {
  // The default may stand in the buffer, and then stays.
  sstrcpy(szBuffer, szDefault, nSize);
  return static_cast<std::int16_t>(TextLength(szBuffer, nSize));
}

std::uint32_t GetALWProfileInt(AlderIniSections eSection, const char* szKey,
                               std::int16_t nDefault) try {
  const CString sFile = CurrentPlatform().product.IniFileName();
  return CurrentPlatform().profile.ReadInt(sFile.c_str(), SectionName(eSection), szKey, nDefault);
} catch (const std::bad_alloc&) {
  return static_cast<std::uint32_t>(nDefault);
}

std::int32_t GetALWProfileBOOL(AlderIniSections eSection, const char* szKey,
                               std::int32_t nDefault) {
  CFixedString<10> sValue;
  if (GetALWProfileString(eSection, szKey, nDefault != 0 ? "Yes" : "No", sValue, 10) == 0) {
    return nDefault;
  }
  return ToUpperAscii(sValue[0]) == 'Y' ? 1 : 0;
}

std::int16_t GetSYSProfileString(const char* szSection, const char* szKey, const char* szDefault,
                                 char* szBuffer, std::int16_t nSize, const char* szFileName) {
  return ReadString(szFileName, szSection, szKey, szDefault, szBuffer, nSize);
}

std::int16_t GetWINProfileString(const char* szSection, const char* szKey, const char* szDefault,
                                 char* szBuffer, std::int16_t nSize) {
  return ReadString(nullptr, szSection, szKey, szDefault, szBuffer, nSize);
}

std::uint32_t GetWINProfileInt(const char* szSection, const char* szKey, std::int16_t nDefault) {
  return CurrentPlatform().profile.ReadInt(nullptr, szSection, szKey, nDefault);
}

void GetALWProgramPath(const char* szDefault, CPathNameString* pOutput) {
  CPathNameString sPath;
  GetALWProfileString(AlderIniSections::Install, "PROGRAMPATH", szDefault, sPath, 260);
  if (pOutput != nullptr) *pOutput = sPath;
}

void GetDefaultDataPath(CPathNameString& sPath, bool bAddSeparator) {
  GetALWProfileString(AlderIniSections::Lib, "DATAPATH", "C:\\ALDERW", sPath, 260);
  if (bAddSeparator) AddBackSlash(sPath);
}

CPathNameString GetINIFileName() {
  CPathNameString sName;
  GetFullDir(sName);
  AddBackSlash(sName);
  sstrcat(sName, "Details.ini", sName.GetSize());
  return sName;
}

}  // namespace ald
