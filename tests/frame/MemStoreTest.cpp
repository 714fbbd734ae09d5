#include "aldlib/frame/MemStore.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "aldlib/frame/WindowMemory.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

constexpr std::uint32_t kNoMemory = 20301;

std::uint32_t SizeWord(const void* pBlock) {
  std::uint32_t nWord = 0;
  std::memcpy(&nWord, static_cast<const char*>(pBlock) - sizeof nWord, sizeof nWord);
  return nWord;
}

TEST(StoreBlock, IsZeroedAndAlignedBehindItsSizeWord) {
  for (std::uint32_t nSize : {0U, 1U, 3U, 16U, 70000U}) {
    char* const pBlock = static_cast<char*>(_RealAllocate(nSize));
    ASSERT_NE(pBlock, nullptr);
    const std::uint32_t nUsable = std::max(nSize, 1U);
    EXPECT_EQ(SizeWord(pBlock), nUsable + 4);
    EXPECT_EQ(std::count(pBlock, pBlock + nUsable, '\0'), static_cast<std::ptrdiff_t>(nUsable));
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(pBlock) % alignof(std::max_align_t), 0U);
    std::memset(pBlock, 0x5A, nUsable);
    EXPECT_EQ(_RealDeAllocate(pBlock), nullptr);
  }
  EXPECT_EQ(_RealDeAllocate(nullptr), nullptr);
}

TEST(StoreBlock, KeepsWhatBothSizesHaveWhenItIsResized) {
  char* pBlock = static_cast<char*>(_RealReAllocate(nullptr, 4));
  std::memcpy(pBlock, "abcd", 4);
  pBlock = static_cast<char*>(_RealReAllocate(pBlock, 8));
  EXPECT_EQ(CString(pBlock, 8), CString("abcd\0\0\0\0", 8));
  EXPECT_EQ(SizeWord(pBlock), 12U);
  pBlock = static_cast<char*>(_RealReAllocate(pBlock, 2));
  EXPECT_EQ(CString(pBlock, 2), "ab");
  pBlock = static_cast<char*>(_RealReAllocate(pBlock, 0));
  EXPECT_EQ(CString(pBlock, 1), "a");
  EXPECT_EQ(SizeWord(pBlock), 5U);
  _RealDeAllocate(pBlock);
}

TEST(StoreBlock, OfASizeThatLeavesNoRoomForTheWordIsAFailure) {
  RecordingDoor door;
  EXPECT_EQ(_RealAllocate(0xFFFFFFFC), nullptr);
  EXPECT_EQ(_RealAllocate(0xFFFFFFFF), nullptr);
  EXPECT_EQ(door.m_shown, (std::vector{kNoMemory, kNoMemory}));
}

TEST(CppForms, StoreTheBlockAndSayWhetherThereIsOne) {
  RecordingDoor door;
  void* pBlock = nullptr;
  EXPECT_EQ(_CppAllocate(&pBlock, 3, "List.cpp", 17), 1);
  std::memcpy(pBlock, "abc", 3);
  void* const pFirst = pBlock;
  void* pOther = nullptr;
  EXPECT_EQ(_CppReAllocate(&pBlock, &pOther, 5, "List.cpp", 18), 1);
  EXPECT_EQ(pBlock, pFirst);  // the old pointer is the caller's to forget
  EXPECT_EQ(CString(static_cast<char*>(pOther), 5), CString("abc\0\0", 5));
  EXPECT_EQ(_CppReAllocate(&pOther, &pOther, 1, nullptr, 0), 1);
  EXPECT_EQ(SizeWord(pOther), 5U);

  FailAllocation(1);
  void* pNone = pOther;
  EXPECT_EQ(_CppReAllocate(&pOther, &pNone, 9, nullptr, 0), 0);
  EXPECT_EQ(pNone, nullptr);
  EXPECT_EQ(*static_cast<char*>(pOther), 'a');  // the old block stands
  FailAllocation(1);
  EXPECT_EQ(_CppAllocate(&pNone, 9, nullptr, 0), 0);
  _RealDeAllocate(pOther);

  EXPECT_EQ(door.m_shown, (std::vector{kNoMemory, kNoMemory}));
  EXPECT_EQ(_CppAllocate(nullptr, 1, nullptr, 0), 0);
  EXPECT_EQ(_CppReAllocate(nullptr, &pNone, 1, nullptr, 0), 0);
}

TEST(OldForms, HandOutALockedBlockAndTakeItBack) {
  FakePlatform platform;
  MemoryHandle hBlock{};
  char* const pBlock = static_cast<char*>(_OldAllocate(&hBlock, 10));
  ASSERT_NE(pBlock, nullptr);
  EXPECT_NE(hBlock, MemoryHandle{});
  EXPECT_EQ(std::count(pBlock, pBlock + 10, '\0'), 10);
  OldDeAllocate(&hBlock);
  EXPECT_EQ(hBlock, MemoryHandle{});
  EXPECT_EQ(platform.m_machine.LiveBlocks(), 0U);
  OldDeAllocate(&hBlock);  // nothing there
  OldDeAllocate(nullptr);
}

TEST(MemoryFailure, IsShownWhereverItHappensAndOnlyThen) {
  FakePlatform platform;
  RecordingDoor door;
  // Blocks and handles count together: allocation 1 to 4, then none.
  for (std::uint32_t nFail = 1; nFail <= 5; ++nFail) {
    door.m_shown.clear();
    FailAllocation(nFail);
    MemoryHandle hBlock{7};
    void* const apBlocks[] = {_RealAllocate(1), _OldAllocate(&hBlock, 1),
                              _RealReAllocate(nullptr, 1)};
    const bool bCreated = CreateMem(WindowHandle{1}, 1) == 1;
    EXPECT_EQ(apBlocks[0] == nullptr, nFail == 1);
    EXPECT_EQ(apBlocks[1] == nullptr, nFail == 2);
    EXPECT_EQ(hBlock == MemoryHandle{}, nFail == 2);
    EXPECT_EQ(apBlocks[2] == nullptr, nFail == 3);
    EXPECT_EQ(bCreated, nFail != 4);
    EXPECT_EQ(door.m_shown, std::vector<std::uint32_t>(nFail <= 4 ? 1 : 0, kNoMemory)) << nFail;
    DeleteMem(WindowHandle{1});
    OldDeAllocate(&hBlock);
    _RealDeAllocate(apBlocks[0]);
    _RealDeAllocate(apBlocks[2]);
    EXPECT_EQ(platform.m_machine.LiveBlocks(), 0U) << nFail;
    FailAllocation(0);
  }
  platform.m_machine.FailAllocate(1);  // the platform's own failure is the same to the user
  MemoryHandle hBlock{};
  EXPECT_EQ(_OldAllocate(&hBlock, 1), nullptr);
  EXPECT_EQ(door.m_shown, std::vector{kNoMemory});
}

TEST(MemoryFailure, WhileOneIsOnTheScreenIsSilent) {
  struct HungryDoor : MessageDoor {
    int Show(MessageArgument) override {
      ++m_nShown;
      FailAllocation(1);
      m_bFailed = _RealAllocate(1) == nullptr;
      return kAnswerOk;
    }
    int Ask(MessageArgument) override { return kAnswerCancel; }
    int m_nShown = 0;
    bool m_bFailed = false;
  } door;
  MessageDoor* const pBefore = ConnectMessageDoor(&door);
  for (int i = 1; i <= 2; ++i) {
    FailAllocation(1);
    EXPECT_EQ(_RealAllocate(1), nullptr);
    EXPECT_TRUE(door.m_bFailed);
    EXPECT_EQ(door.m_nShown, i);
  }
  ConnectMessageDoor(pBefore);
}

TEST(OldFormsDeathTest, EndTheProcessForABlockThatIsStillLocked) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        const NoDoor noDoor;
        MemoryHandle hBlock{};
        _OldAllocate(&hBlock, 1);
        CurrentPlatform().machine.Lock(hBlock);
        OldDeAllocate(&hBlock);
      },
      testing::ExitedWithCode(3),
      "^Program Bug.  Cannot unlock handle.\nCall Alderfell Technical Support.\n"
      "Problem detected in MemStore\n$");
}

}  // namespace
}  // namespace ald
