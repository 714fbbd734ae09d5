#include <filesystem>
#include <iomanip>
#include <iostream>
#include <string>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/SettingsFolders.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

// Prints one place, and what is to be found there.
void PrintPlace(const char* szWhat, const std::string& sPath, const char* szMissing) {
  std::error_code error;
  std::cout << std::left << std::setw(22) << szWhat << "  ";
  if (sPath.empty()) {
    std::cout << "nowhere: there is no home folder\n";
    return;
  }
  std::cout << sPath;
  if (!std::filesystem::exists(sPath, error)) std::cout << "  (" << szMissing << ")";
  std::cout << '\n';
}

}  // namespace

int RunWhere() {
  ald::Product& product = ald::CurrentPlatform().product;
  std::cout << std::left << std::setw(22) << "product"
            << "  " << product.ProductName() << '\n';
  PrintPlace("product INI file", product.IniFileName(), "not there: defaults hold");
  PrintPlace("system profile", ald::SystemProfileFile(), "not there: the locale answers");
#ifdef ALDLIB_SQLITE
  PrintPlace("user's preferences", ald::UserPreferencesFile(), "not there yet");
  PrintPlace("machine's preferences", ald::MachinePreferencesFile(), "not there");
#else
  std::cout << "preferences             in memory only: this build has no store\n";
#endif
  return kGood;
}

}  // namespace aldtool
