#include <cstdio>

#include "aldlib/dates/Calendar.h"
#include "aldlib/files/Directories.h"
#include "aldlib/files/internal/DirectoryState.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/text/Strings.h"

namespace ald {
namespace {

// With room for three characters of a prefix, four digits and ".TMP" behind it: a file is not made
// under a path that its maker could not be told.
constexpr std::size_t kLongestTempFolder = 259 - 3 - 4 - 4;

// The folder for temporary files; empty if there is none that leaves room for a name.
CPathNameString TempFolder() {
  const CString sFolder = CurrentPlatform().volumes.TempFolder();
  CPathNameString sCut(sFolder.c_str());
  return sCut.view() == sFolder ? sCut : CPathNameString();
}

}  // namespace

void ALW_EnsureSafeFileName(CPathNameString& sName) noexcept {
  char* const szName = sName;
  const std::size_t nLength = sName.view().size();  // within the 260 bytes, whatever they hold
  for (char* p = szName; p != szName + nLength; ++p) {
    if (std::string_view("?*\\/:|><.\"").find(*p) != std::string_view::npos) *p = '_';
  }
}

CPathNameString GenerateBaseDefaultBackupName(const char* szName) {
  DatesType today{};
  GetCurrentDate(today);
  char szDate[32];
  std::snprintf(szDate, sizeof szDate, "-%02d%02d%02d", today.month, today.day, today.year % 100);
  CPathNameString sName(szName);
  sstrcat(sName, szDate, sName.GetSize());
  ALW_EnsureSafeFileName(sName);
  return sName;
}

std::uint32_t ALW_GetTempFileName(const char* szPrefix, CPathNameString& sPath) {
  const CPathNameString sFolder = TempFolder();
  CString sMade;
  if (sFolder.IsEmpty() || sFolder.view().size() > kLongestTempFolder) return 0;
  const std::uint32_t nNumber = CurrentPlatform().volumes.MakeTempFile(sFolder, szPrefix, sMade);
  if (nNumber != 0) sPath = sMade.c_str();
  return nNumber;
}

std::uint32_t ALW_GetTempFileNameExt(const char* szPrefix, const char* szExtension,
                                     CPathNameString& sPath) {
  const CPathNameString sFolder = TempFolder();
  if (sFolder.IsEmpty()) return 0;
  std::uint32_t& nNext = g_directories.nNextTemp;
  if (nNext == 0) {
    nNext = static_cast<std::uint16_t>(CurrentPlatform().clock.Seconds());
  }
  // Wider than the 16 bits it starts with: past 65535 it goes on to five digits.
  std::uint32_t nNumber = static_cast<std::uint16_t>(nNext);
  ++nNext;
  Files& files = CurrentPlatform().files;
  do {
    CPathNameString sTry;  // the prefix may lie where the path goes
    const int nLength =
        std::snprintf(sTry, static_cast<std::size_t>(sTry.GetSize()), "%s%s%04x.%s",
                      static_cast<const char*>(sFolder), szPrefix != nullptr ? szPrefix : "",
                      nNumber, szExtension != nullptr ? szExtension : "");
    if (nLength < 0 || nLength >= sTry.GetSize()) return 0;  // cut, it could be another file's name
    sPath = sTry;
    FileHandle hFile{};
    const std::uint32_t nError =
        files.Open(sPath, FileAccess::Write, FileSharing::None, FileDisposition::CreateNew, hFile);
    if (nError == kNoSystemError) {
      files.Close(hFile);
      return nNumber;
    }
    if (nError != kFileExists) return 0;
    ++nNumber;
    // The counter is one ahead of the number already, so this ends after the first name that is
    // taken, unless the number has left 16 bits: callers tell by the number that does not fit the
    // path.
  } while (nNumber != static_cast<std::uint16_t>(nNext));
  return nNumber;
}

}  // namespace ald
