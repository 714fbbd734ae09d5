#include "aldlib/screens/Accelerators.h"

#include <gtest/gtest.h>

#include "aldlib/screens/WindowTable.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr AcceleratorHandle kNone{0};
constexpr AcceleratorHandle kFirst{101};
constexpr AcceleratorHandle kSecond{102};

TEST(Accelerators, AreRestoredInReverseOrder) {
  const FakePlatform platform;
  EXPECT_EQ(RestoreAccelerator(), kNone);
  EXPECT_EQ(SetAccelerator(kFirst), kNone);
  EXPECT_EQ(SetAccelerator(kSecond), kFirst);
  EXPECT_EQ(DataEntryManagerData.hPreviousAccelerator, kFirst);
  EXPECT_EQ(RestoreAccelerator(), kFirst);
  EXPECT_EQ(GetAccelerator(), kFirst);
}

TEST(Accelerators, ASavedNoneCannotBeRestored) {
  const FakePlatform platform;
  SetAccelerator(kFirst);
  EXPECT_EQ(RestoreAccelerator(), kFirst);  // what was saved is none, and it is gone now
  EXPECT_EQ(DataEntryManagerData.pAcceleratorStack, nullptr);
  EXPECT_EQ(RestoreAccelerator(), kFirst);
}

TEST(Accelerators, HoldEvenWithoutMemoryToSaveTheOldOne) {
  const FakePlatform platform;
  const RecordingDoor door;
  SetAccelerator(kFirst);
  FailAllocation(1);
  EXPECT_EQ(SetAccelerator(kSecond), kFirst);
  EXPECT_EQ(GetAccelerator(), kSecond);
  EXPECT_EQ(door.m_shown, std::vector<std::uint32_t>{20301});
}

}  // namespace
}  // namespace ald
