#include <gtest/gtest.h>

#include <cstdint>

#include "aldlib/aldlib.h"
#include "tests/support/FakePlatform.h"

namespace {

TEST(SettingsPage, ShowsWhatItsExampleGives) {
  const ald::FakePlatform platform;
  bool bReachedItsEnd = false;
  [&bReachedItsEnd] {
#include <SettingsPage.inc>
    EXPECT_TRUE(bShowTips);
    EXPECT_EQ(sPrograms, "C:\\ALDERW");
    bReachedItsEnd = true;
  }();
  EXPECT_TRUE(bReachedItsEnd);
  EXPECT_EQ(ald::CALWMachineUserPreferences::GetIntValue(ald::PreferenceGroup::Options,
                                                         ald::Preference::lasttip, 0),
            12);
}

}  // namespace
