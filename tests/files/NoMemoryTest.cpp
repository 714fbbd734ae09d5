// Locks when memory runs out.
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <string>

#include "aldlib/files/SingleUser.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WatchedMemory.h"

namespace ald {
namespace {

using Access = CALWSingleUserAccess;
constexpr Areas kArea{1};

// In capitals, so that the folders on the way are listed as well.
std::string SpelledInCapitals(std::string sFolder) {
  for (char& c : sFolder) c = c == '/' ? '\\' : static_cast<char>(std::toupper(c));
  return "C:" + sFolder;
}

TEST(NoMemory, LeavesAnAreaLockedOrAsItWas) {
  const TempFolder folder;
  std::filesystem::create_directory(folder.Path("Books"));
  const std::string sFolder = SpelledInCapitals(folder.Path("Books"));
  bool bLocked = false;
  const int nRefused =
      RefuseEach([&] { bLocked = Access::Lock(kArea, 0, LockMode::Exclusive, sFolder.c_str()); },
                 [&](bool bRefused) {
                   EXPECT_TRUE(bLocked || bRefused);
                   EXPECT_EQ(Access::FindLockFile(kArea, sFolder.c_str()) != nullptr, bLocked);
                   if (bLocked) Access::Unlock(kArea, sFolder.c_str());
                 });
  EXPECT_GT(nRefused, 10);
  EXPECT_TRUE(std::filesystem::is_empty(folder.Path("Books")));
}

}  // namespace
}  // namespace ald
