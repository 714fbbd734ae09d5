#include "aldlib/platform/Machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdint>
#include <set>
#include <vector>

#include "aldlib/platform/Platform.h"
#include "aldlib/platform/posix/PosixMachine.h"

namespace ald {
namespace {

TEST(MachineMemory, IsZeroedAndAlignedAndHasAnAddressEvenWithoutASize) {
  PosixMachine machine;
  for (std::uint32_t nSize : {0U, 1U, 17U, 100000U}) {
    const MemoryHandle hBlock = machine.Allocate(nSize);
    const char* const pBlock = static_cast<const char*>(machine.Lock(hBlock));
    ASSERT_NE(pBlock, nullptr) << nSize;
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pBlock) % alignof(std::max_align_t), 0U) << nSize;
    EXPECT_EQ(std::count(pBlock, pBlock + nSize, '\0'), static_cast<std::ptrdiff_t>(nSize));
  }
}

TEST(MachineMemory, CountsItsLocks) {
  PosixMachine machine;
  const MemoryHandle hBlock = machine.Allocate(8);
  EXPECT_EQ(machine.Lock(hBlock), machine.Lock(hBlock));
  EXPECT_TRUE(machine.Unlock(hBlock));
  EXPECT_FALSE(machine.Unlock(hBlock));
  EXPECT_FALSE(machine.Unlock(hBlock));  // below no lock there is nothing
  machine.Lock(hBlock);
  EXPECT_FALSE(machine.Unlock(hBlock));
}

TEST(MachineMemory, HandlesOfFreedBlocksReachNothing) {
  PosixMachine machine;
  const MemoryHandle hOld = machine.Allocate(8);
  EXPECT_EQ(machine.Free(hOld), MemoryHandle{});
  const MemoryHandle hNew = machine.Allocate(8);  // takes the place that became free
  EXPECT_NE(hNew, hOld);
  for (MemoryHandle hNone : {hOld, MemoryHandle{0}, MemoryHandle{0xFFFFF}, MemoryHandle{~0U}}) {
    EXPECT_EQ(machine.Lock(hNone), nullptr);
    EXPECT_FALSE(machine.Unlock(hNone));
    EXPECT_EQ(machine.Free(hNone), hNone);
  }
  EXPECT_NE(machine.Lock(hNew), nullptr);
}

TEST(MachineMemory, KeepsManyBlocksApart) {
  PosixMachine machine;
  std::vector<MemoryHandle> handles;
  for (std::uint32_t i = 0; i < 1000; ++i) {
    handles.push_back(machine.Allocate(sizeof i));
    *static_cast<std::uint32_t*>(machine.Lock(handles.back())) = i;
    if (i % 3 == 0) machine.Free(handles.back());
  }
  EXPECT_EQ(std::set(handles.begin(), handles.end()).size(), handles.size());
  for (std::uint32_t i = 0; i < 1000; ++i) {
    const void* const pBlock = machine.Lock(handles[i]);
    ASSERT_EQ(pBlock == nullptr, i % 3 == 0) << i;
    if (i % 3 != 0) {
      EXPECT_EQ(*static_cast<const std::uint32_t*>(pBlock), i);
    }
  }
}

TEST(MachineDeathTest, FatalExitShowsItsTextAndEndsWithStatusThree) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(CurrentPlatform().machine.FatalExit("Lost the ledger"), testing::ExitedWithCode(3),
              "^Lost the ledger\n$");
}

TEST(MachineDeathTest, DivisionByZeroEndsAnUnpreparedProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        std::signal(SIGFPE, SIG_DFL);  // a sanitizer may have put its own report there
        CurrentPlatform().machine.RaiseDivisionFault();
      },
      testing::KilledBySignal(SIGFPE), "");
}

}  // namespace
}  // namespace ald
