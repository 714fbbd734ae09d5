#include "aldlib/files/SingleUser.h"

#include <functional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "aldlib/files/Directories.h"
#include "tests/support/FakePlatform.h"

namespace ald {
namespace {

using Access = CALWSingleUserAccess;
constexpr auto kAlone = LockMode::Exclusive;
constexpr auto kShared = LockMode::Shared;
constexpr Areas kArea{3};
constexpr int kSomebodyIsIn = 20400;

static_assert(!std::is_polymorphic_v<CLockFile>);

class SingleUserTest : public testing::Test {
 protected:
  SingleUserTest() {
    m_platform.m_disk.Write("C:\\BOOKS\\Chart.dat", "");
    m_platform.m_disk.Write("C:\\OTHER\\Chart.dat", "");
  }
  ~SingleUserTest() override {
    for (std::int32_t nArea = 0; nArea < kAreaCount; ++nArea) {
      for (const char* szFolder : {"C:\\BOOKS", "C:\\OTHER", "C:\\GONE", ""}) {
        EXPECT_FALSE(Access::RemoveLockFile(Areas{nArea}, szFolder)) << nArea << ' ' << szFolder;
      }
    }
  }

  bool IsThere(const char* szPath) { return m_platform.m_files.Exists(szPath); }

  // Another program's hold, which the library's own table knows nothing of.
  void HoldElsewhere(LockMode eMode) {
    ASSERT_EQ(m_platform.m_files.Open("C:\\BOOKS\\SUA00003.LCK",
                                      eMode == kAlone ? FileAccess::ReadWrite : FileAccess::Read,
                                      eMode == kAlone ? FileSharing::None : FileSharing::ReadWrite,
                                      FileDisposition::OpenOrCreate, m_hElsewhere),
              0U);
  }
  void LeaveElsewhere() { m_platform.m_files.Close(m_hElsewhere); }

  FakePlatform m_platform;
  FileHandle m_hElsewhere{};
};

// Answers the message by doing what the test says.
class ActingDoor : public RecordingDoor {
 public:
  int Ask(MessageArgument message) override {
    if (m_act) std::exchange(m_act, m_next)();
    return RecordingDoor::Ask(message);
  }
  std::function<void()> m_act;   // for the first message
  std::function<void()> m_next;  // for those that follow
};

TEST_F(SingleUserTest, HoldsAnEmptyFileOfTheAreasNumberUntilTheLastEnd) {
  Access first(Areas{0});
  Access second(Areas{0});
  EXPECT_TRUE(first.Start(0, kAlone, "C:\\BOOKS"));
  EXPECT_TRUE(second.Start(0, kShared, "C:\\BOOKS"));  // whatever the mode: it is this process's
  MemoryNodePtr pFile;
  ASSERT_EQ(m_platform.m_disk.Find("C:\\BOOKS\\SUA00000.LCK", pFile), 0U);
  EXPECT_EQ(pFile->sData, "");
  first.End("C:\\BOOKS");
  EXPECT_TRUE(IsThere("C:\\BOOKS\\SUA00000.LCK"));
  second.End("C:\\BOOKS");
  EXPECT_FALSE(IsThere("C:\\BOOKS\\SUA00000.LCK"));
  EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U);
}

TEST_F(SingleUserTest, LetsInOnlyWhoSuitsTheOtherProgram) {
  const struct {
    LockMode eTheirs, eOurs;
    bool bGood;
  } rows[] = {{kAlone, kAlone, false},
              {kAlone, kShared, false},
              {kShared, kAlone, false},
              {kShared, kShared, true},
              {LockMode{-7}, LockMode{300}, true}};  // all but 0 share
  for (const auto& row : rows) {
    HoldElsewhere(row.eTheirs);
    EXPECT_EQ(Access::Lock(kArea, 0, row.eOurs, "C:\\BOOKS"), row.bGood);
    EXPECT_EQ(Access::FindLockFile(kArea, "C:\\BOOKS") != nullptr, row.bGood);
    Access::Unlock(kArea, "C:\\BOOKS");
    EXPECT_TRUE(IsThere("C:\\BOOKS\\SUA00003.LCK"));  // it is still the other's
    LeaveElsewhere();
    // What it left behind is stale, and keeps nobody out.
    EXPECT_TRUE(Access::Lock(kArea, 0, kAlone, "C:\\BOOKS"));
    Access::Unlock(kArea, "C:\\BOOKS");
  }
}

TEST_F(SingleUserTest, TakesEachSpellingOfAFolderForTheSame) {
  // The disk in memory does not find a folder by its short name, so this is one of its own.
  m_platform.m_volumes.m_shortNames = {{"BOOKS", "BOOKS~1"}};
  m_platform.m_disk.Write("C:\\BOOKS~1\\Chart.dat", "");
  SetFullDir("C:\\BOOKS");
  ASSERT_TRUE(Access::Lock(kArea, 0, kAlone, "c:\\books"));
  CLockFile* const pLockFile = Access::FindLockFile(kArea, "C:\\BOOKS\\");
  ASSERT_NE(pLockFile, nullptr);
  EXPECT_STREQ(pLockFile->szSignature, "CLOCKFILE OBJECT");
  EXPECT_EQ(pLockFile->strFileName, "C:\\BOOKS~1\\SUA00003.LCK");
  EXPECT_STREQ(pLockFile->szDirectory, "C:\\BOOKS~1\\");
  EXPECT_EQ(pLockFile->nShareMode, 0U);
  for (const char* szSpelling :
       {"C:\\Books", "c:\\books~1\\", "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(Access::FindLockFile(kArea, szSpelling), pLockFile);
  }
  EXPECT_EQ(Access::FindLockFile(Areas{4}, "C:\\BOOKS"), nullptr);
  EXPECT_EQ(Access::FindLockFile(kArea, "C:\\OTHER"), nullptr);
  Access::Unlock(kArea, nullptr);
}

TEST_F(SingleUserTest, LetsGoOnlyTheCurrentFolderWhenAGuardEnds) {
  SetFullDir("C:\\OTHER");
  {
    Access access(kArea);
    EXPECT_TRUE(access.Start(0, kAlone, "C:\\OTHER"));
  }
  EXPECT_EQ(Access::FindLockFile(kArea, "C:\\OTHER"), nullptr);
  {
    Access access(kArea);
    EXPECT_TRUE(access.Start(0, kAlone, "C:\\BOOKS"));
  }
  ASSERT_NE(Access::FindLockFile(kArea, "C:\\BOOKS"), nullptr);  // not found, so still held
  {
    Access access(kArea);
    access.End("C:\\BOOKS");  // without a good Start
    EXPECT_FALSE(access.Start(0, kAlone, "C:\\GONE"));
    access.End("C:\\BOOKS");
  }
  EXPECT_NE(Access::FindLockFile(kArea, "C:\\BOOKS"), nullptr);
  Access::Unlock(kArea, "C:\\BOOKS");
}

TEST_F(SingleUserTest, AsksAfterThreeTriesAndAgainAfterThreeMoreForEachRetry) {
  HoldElsewhere(kAlone);
  ActingDoor door;
  std::vector<std::size_t> sleepsAtMessages;
  door.m_nAnswer = kAnswerRetry;
  door.m_act = door.m_next = [&] {
    sleepsAtMessages.push_back(m_platform.m_clock.m_sleeps.size());
    if (sleepsAtMessages.size() == 3) door.m_nAnswer = kAnswerCancel;
  };
  EXPECT_FALSE(Access::Lock(kArea, kSomebodyIsIn, kShared, "C:\\BOOKS"));
  EXPECT_EQ(door.m_shown, std::vector<std::uint32_t>(3, kSomebodyIsIn));
  EXPECT_EQ(sleepsAtMessages, (std::vector<std::size_t>{2, 5, 8}));
  EXPECT_EQ(m_platform.m_clock.m_sleeps, std::vector<std::uint32_t>(8, 1000));
  EXPECT_EQ(Access::FindLockFile(kArea, "C:\\BOOKS"), nullptr);
  LeaveElsewhere();
}

TEST_F(SingleUserTest, GoesInOnTheFirstTryThatIsGood) {
  HoldElsewhere(kAlone);
  ActingDoor door;
  door.m_nAnswer = kAnswerRetry;
  door.m_act = [&] { LeaveElsewhere(); };
  EXPECT_TRUE(Access::Lock(kArea, kSomebodyIsIn, kAlone, "C:\\BOOKS"));
  EXPECT_EQ(door.m_shown.size(), 1U);
  EXPECT_EQ(m_platform.m_clock.m_sleeps.size(), 3U);
  Access::Unlock(kArea, "C:\\BOOKS");
}

TEST_F(SingleUserTest, TakesOneTryAndSaysNothingWithoutAMessage) {
  HoldElsewhere(kAlone);
  RecordingDoor door;
  EXPECT_FALSE(Access::Lock(kArea, 0, kAlone, "C:\\BOOKS"));
  EXPECT_TRUE(door.m_shown.empty());
  EXPECT_TRUE(m_platform.m_clock.m_sleeps.empty());
  LeaveElsewhere();
}

TEST_F(SingleUserTest, StandsAnythingThatOtherWorkDoesWhileTheMessageIsShown) {
  const auto lock = [] { return Access::Lock(kArea, 0, kAlone, "C:\\BOOKS"); };
  const auto unlock = [] { Access::Unlock(kArea, "C:\\BOOKS"); };
  const struct {
    const char* szWhat;
    std::function<void()> act;
    std::uint32_t nHolds;  // afterwards; 0 if the wait was in vain
  } rows[] = {
      {"tries too, in vain", [&] { EXPECT_FALSE(lock()); }, 0},
      {"lets go what it does not have", unlock, 0},
      {"gets it",
       [&] {
         LeaveElsewhere();
         EXPECT_TRUE(lock());
       },
       2},
      {"gets it and lets go",
       [&] {
         LeaveElsewhere();
         EXPECT_TRUE(lock());
         unlock();
       },
       1},
      {"drops the entry", [] { Access::RemoveLockFile(kArea, "C:\\BOOKS"); }, 0},
  };
  for (const auto& row : rows) {
    HoldElsewhere(kAlone);
    ActingDoor door;
    door.m_nAnswer = kAnswerRetry;
    door.m_act = row.act;
    door.m_next = [&] { door.m_nAnswer = kAnswerCancel; };
    EXPECT_EQ(Access::Lock(kArea, kSomebodyIsIn, kAlone, "C:\\BOOKS"), row.nHolds > 0)
        << row.szWhat;
    const CLockFile* const pLockFile = Access::FindLockFile(kArea, "C:\\BOOKS");
    ASSERT_EQ(pLockFile != nullptr ? pLockFile->nRefCount : 0, row.nHolds) << row.szWhat;
    for (std::uint32_t i = 0; i < row.nHolds; ++i) unlock();
    LeaveElsewhere();
    EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U) << row.szWhat;
  }
}

TEST_F(SingleUserTest, LeavesNothingOpenOrEnteredWhicheverCallFails) {
  for (int nCall = 1;; ++nCall) {
    m_platform.m_files.FailCall(nCall);
    const bool bLocked = Access::Lock(kArea, 0, kAlone, "C:\\BOOKS");
    if (bLocked) Access::Unlock(kArea, "C:\\BOOKS");
    const bool bFailed = m_platform.m_files.HasFailed();
    EXPECT_EQ(m_platform.m_files.OpenHandles(), 0U) << nCall;
    EXPECT_EQ(Access::FindLockFile(kArea, "C:\\BOOKS"), nullptr) << nCall;
    EXPECT_TRUE(bLocked || nCall == 1);
    if (!bFailed) break;
  }
  m_platform.m_files.FailCall(0);
}

TEST_F(SingleUserTest, RefusesAreasThatThereAreNotAndUnwritableFolders) {
  for (const std::int32_t nArea : {-1, kAreaCount, 0x7FFFFFFF}) {
    bool bNew = false;
    EXPECT_FALSE(Access::Lock(Areas{nArea}, 0, kAlone, "C:\\BOOKS"));
    EXPECT_EQ(Access::GetLockFile(Areas{nArea}, "C:\\BOOKS", bNew), nullptr);
    EXPECT_TRUE(bNew);
    Access::Unlock(Areas{nArea}, "C:\\BOOKS");
  }
  EXPECT_FALSE(Access::Lock(kArea, 0, kAlone, "Q:\\BOOKS"));
}

TEST_F(SingleUserTest, TellsWhetherTheTableHadToBeAddedTo) {
  bool bNew = false;
  CLockFile* const pLockFile = Access::GetLockFile(kArea, "C:\\BOOKS", bNew);
  EXPECT_TRUE(bNew);
  EXPECT_EQ(Access::GetLockFile(kArea, "c:\\books\\", bNew), pLockFile);
  EXPECT_FALSE(bNew);
  EXPECT_STREQ(pLockFile->szDirectory, "C:\\BOOKS\\");
  EXPECT_EQ(pLockFile->nRefCount, 0U);
  EXPECT_TRUE(Access::RemoveLockFile(kArea, "C:\\BOOKS"));
  EXPECT_FALSE(Access::RemoveLockFile(kArea, "C:\\BOOKS"));
}

}  // namespace
}  // namespace ald
