#include <iostream>

#include "aldlib/aldlib.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

namespace {

// Whether there are preferences at all. Reading one would make a store where there is none.
bool IsAnythingStored() {
  const auto isStored = [](ald::RegistryKey hRoot) {
    return ald::CRegKey(
               ald::CurrentPlatform().registry.Open(hRoot, "SOFTWARE\\Alderfell", ald::kReadAccess))
        .IsOpen();
  };
  return isStored(ald::kCurrentUser) || isStored(ald::kLocalMachine);
}

}  // namespace

int RunOneTimeList() {
  const bool bStored = IsAnythingStored();
  for (std::size_t i = 0; ald::OneTimeMessageKey(i) != nullptr; ++i) {
    const char* const szKey = ald::OneTimeMessageKey(i);
    std::cout << (bStored && ald::IsOneTimeMessageOff(szKey) ? "off    " : "shown  ") << szKey
              << "\n";
  }
  return kGood;
}

int RunOneTimeReset(const std::string& sKey) {
  if (sKey.empty()) {
    ald::ResetAllOneTimeMessages();
    return kGood;
  }
  if (!ald::IsOneTimeMessageOff(sKey.c_str())) {
    std::cerr << "aldtool: no message is switched off under " << sKey << "\n";
    return kUnusable;
  }
  ald::ResetOneTimeMessage(sKey.c_str());
  return kGood;
}

}  // namespace aldtool
