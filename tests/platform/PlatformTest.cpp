#include "aldlib/platform/Platform.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

// The platform must answer while the statics of a program are still being built ...
const ModuleHandle g_hEarlyModule = [] {
  StringTable table;
  table.Add(1, "early");
  return RegisterStringModule(table);
}();

TEST(PlatformInUse, AnswersBeforeMainHasBegun) {
  char szBuffer[8];
  EXPECT_EQ(CurrentPlatform().resources.LoadString(g_hEarlyModule, 1, szBuffer, 8), 5);
}

// ... and when they are being destroyed.
TEST(PlatformInUseDeathTest, AnswersAfterExitHasBegun) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        static struct Late {
          ~Late() {
            Machine& machine = CurrentPlatform().machine;
            if (machine.Lock(machine.Allocate(1)) != nullptr) machine.FatalExit("still here");
          }
        } s_late;
        std::exit(0);
      },
      testing::ExitedWithCode(3), "still here");
}

TEST(PlatformInUse, IsTheInstalledOneUntilTheSystemsOwnComesBack) {
  Machine& own = CurrentPlatform().machine;
  FakeMachine machine;
  const Platform& system = CurrentPlatform();
  const Platform fake{system.resources, machine,          system.locale, system.profile,
                      system.registry,  system.product,   system.clock,  system.files,
                      system.volumes,   system.processes, system.desktop};
  InstallPlatform(&fake);
  CurrentPlatform().machine.RaiseDivisionFault();
  InstallPlatform(nullptr);
  EXPECT_EQ(machine.DivisionFaults(), 1);
  EXPECT_EQ(&CurrentPlatform().machine, &own);
}

}  // namespace
}  // namespace ald
