#include "aldlib/frame/WindowMemory.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr std::uint32_t kRoom = 20;

TEST(WindowMemory, IsTheWindowsOwnUntilDeleted) {
  FakePlatform platform;
  for (std::uint32_t i = 1; i <= 3; ++i) {
    EXPECT_EQ(CreateMem(WindowHandle{i}, 50), 1);
    char* const pBlock = static_cast<char*>(LockMem(WindowHandle{i}));
    EXPECT_EQ(std::count(pBlock, pBlock + 50, '\0'), 50);
    *pBlock = static_cast<char>('0' + i);
    UnLockMem(WindowHandle{i});
  }
  DeleteMem(WindowHandle{1});
  EXPECT_EQ(LockMem(WindowHandle{1}), nullptr);
  EXPECT_EQ(*static_cast<char*>(LockMem(WindowHandle{2})), '2');
  EXPECT_EQ(*static_cast<char*>(LockMem(WindowHandle{3})), '3');
  DeleteMem(WindowHandle{3});  // a lock does not hold it
  EXPECT_EQ(CreateMem(WindowHandle{3}, 1), 1);
  EXPECT_EQ(*static_cast<char*>(LockMem(WindowHandle{3})), '\0');
  EXPECT_EQ(platform.m_machine.LiveBlocks(), 2U);
}

TEST(WindowMemory, OfAWindowWithoutAnEntryIsSilentlyNothing) {
  FakePlatform platform;
  RecordingDoor door;
  EXPECT_EQ(LockMem(WindowHandle{9}), nullptr);
  UnLockMem(WindowHandle{9});
  EXPECT_TRUE(door.m_shown.empty());
}

TEST(WindowMemory, KeepsAnEntryWithoutABlockWhenMemoryIsShort) {
  FakePlatform platform;
  RecordingDoor door;
  platform.m_machine.FailAllocate(1);
  EXPECT_EQ(CreateMem(WindowHandle{5}, 10), 0);
  EXPECT_EQ(door.m_shown, std::vector<std::uint32_t>{20301});
  EXPECT_EQ(LockMem(WindowHandle{5}), nullptr);
  DeleteMem(WindowHandle{5});  // not misuse: the entry is there
  EXPECT_EQ(CreateMem(WindowHandle{5}, 10), 1);
}

TEST(WindowMemory, KeepsAnEntryThatCannotBeFreed) {
  FakePlatform platform;
  CreateMem(WindowHandle{5}, 10);
  platform.m_machine.RefuseFree(true);
  DeleteMem(WindowHandle{5});
  platform.m_machine.RefuseFree(false);
  EXPECT_NE(LockMem(WindowHandle{5}), nullptr);
}

TEST(WindowMemory, RemembersTheLargestNumberOfEntries) {
  FakePlatform platform;
  EXPECT_EQ(WindowMemoryHighWater(), 0);
  for (std::uint32_t i = 1; i <= kRoom; ++i) CreateMem(WindowHandle{i}, 1);
  for (std::uint32_t i = 1; i <= kRoom; ++i) DeleteMem(WindowHandle{i});
  CreateMem(WindowHandle{1}, 1);
  EXPECT_EQ(WindowMemoryHighWater(), kRoom);
}

TEST(WindowMemory, IsFreedAtUnloadAndGoneAfterwards) {
  FakePlatform platform;
  CreateMem(WindowHandle{1}, 1);
  CreateMem(WindowHandle{2}, 1);
  LockMem(WindowHandle{2});
  const ModuleHandle hLibrary = AlderLibHandle();
  AlderLibEntry(hLibrary, kProcessDetach, nullptr);
  EXPECT_EQ(platform.m_machine.LiveBlocks(), 0U);
  AlderLibEntry(hLibrary, kProcessAttach, nullptr);
  EXPECT_EQ(LockMem(WindowHandle{1}), nullptr);
  EXPECT_EQ(WindowMemoryHighWater(), 0);
}

TEST(WindowMemoryDeathTest, EndsTheProcessOnMisuse) {
  const NoDoor noDoor;
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const struct {
    void (*pfnMisuse)();
    const char* szMessage;
  } rows[] = {
      {[] { DeleteMem(WindowHandle{1}); },
       "Program Bug.  Attempt to delete memory block without a create."},
      {[] {
         CreateMem(WindowHandle{1}, 1);
         CreateMem(WindowHandle{1}, 1);
       },
       "Program Bug.  Attempt to create duplicate memory block."},
      {[] {
         for (std::uint32_t i = 0; i <= kRoom; ++i) CreateMem(WindowHandle{i}, 1);
       },
       "Not enough Memory to run."},
  };
  for (const auto& row : rows) {
    EXPECT_EXIT(row.pfnMisuse(), testing::ExitedWithCode(3),
                CString("^") + row.szMessage +
                    "\nCall Alderfell Technical Support.\nProblem detected in MemStore\n$");
  }
}

}  // namespace
}  // namespace ald
