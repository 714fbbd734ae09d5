#include <iostream>

#include "aldlib/aldlib.h"
#include "tools/aldtool/Commands.h"

namespace aldtool {

int RunOneTimeList() {
  // Reading a preference would make a store where there is none.
  const bool bStored = AreTherePreferences();
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
