#include "aldlib/platform/posix/SettingsFolders.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

namespace ald {
namespace {

constexpr const char* kFolderName = "aldlib";
constexpr const char* kStoreName = "preferences.sqlite";

// The absolute path that the variable holds; empty if it holds none.
CString PathVariable(const char* szVariable) {
  const char* const szValue = std::getenv(szVariable);
  return szValue != nullptr && *szValue == '/' ? szValue : CString();
}

CString Joined(const CString& sFolder, std::string_view sName) {
  if (sFolder.empty()) return {};
  CString sPath = sFolder;
  if (sPath.back() != '/') sPath += '/';
  return sPath.append(sName);
}

CString HomeFolder() {
  CString sHome = PathVariable("HOME");
  if (!sHome.empty()) return sHome;
  const passwd* const pEntry = ::getpwuid(::getuid());
  return pEntry != nullptr && pEntry->pw_dir != nullptr && *pEntry->pw_dir == '/' ? pEntry->pw_dir
                                                                                  : CString();
}

}  // namespace

CString UserSettingsFolder() {
  CString sFolder = PathVariable(kUserFolderVariable);
  if (!sFolder.empty()) return sFolder;
  sFolder = PathVariable("XDG_CONFIG_HOME");
  if (sFolder.empty()) sFolder = Joined(HomeFolder(), ".config");
  return Joined(sFolder, kFolderName);
}

CString MachineSettingsFolder() {
  CString sFolder = PathVariable(kMachineFolderVariable);
  if (!sFolder.empty()) return sFolder;
  const char* const szFolders = std::getenv("XDG_CONFIG_DIRS");
  std::string_view sRest(szFolders != nullptr ? szFolders : "");
  while (!sRest.empty()) {
    const std::size_t nEnd = std::min(sRest.find(':'), sRest.size());
    if (sRest.front() == '/') return Joined(CString(sRest.substr(0, nEnd)), kFolderName);
    sRest.remove_prefix(std::min(nEnd + 1, sRest.size()));
  }
  return Joined("/etc/xdg", kFolderName);
}

CString SystemProfileFile() {
  return Joined(UserSettingsFolder(), "system.ini");
}

CString UserPreferencesFile() {
  return Joined(UserSettingsFolder(), kStoreName);
}

CString MachinePreferencesFile() {
  return Joined(MachineSettingsFolder(), kStoreName);
}

CString ProductIniFile(std::string_view sFileName) {
  CString sFile = PathVariable(kIniFileVariable);
  if (!sFile.empty()) return sFile;
  sFile = Joined(UserSettingsFolder(), sFileName);
  struct stat status {};
  if (!sFile.empty() && ::stat(sFile.c_str(), &status) == 0) return sFile;
  return Joined(MachineSettingsFolder(), sFileName);
}

}  // namespace ald
