// Areas among real processes on a real disk.
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <new>
#include <random>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "aldlib/files/SingleUser.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

using Access = CALWSingleUserAccess;
using std::chrono::milliseconds;

constexpr int kProcesses = 8;
constexpr Areas kArea{5};

// What the processes tell each other of what they do, in memory that all of them share. It knows
// nothing of files and locks.
struct Board {
  enum State : int { Out, InShared, InAlone };

  struct Place {
    std::atomic<int> nState{Out};
    std::atomic<bool> bDoomed{false};  // about to be killed: its state is not to be trusted
  };

  Place places[kProcesses];
  std::atomic<bool> bStop{false};
  std::atomic<int> nOverlaps{0};
  std::atomic<int> nAlone{0};
  std::atomic<int> nShared{0};
  std::atomic<int> nRefusedShared{0};

  // Of two that are in at the same time at least the later one sees the other.
  void GoIn(int nPlace, State eState) {
    places[nPlace].nState = eState;
    for (int i = 0; i < kProcesses; ++i) {
      const int nOther = places[i].nState;
      const bool bInTheWay = nOther == InAlone || (nOther == InShared && eState == InAlone);
      if (i != nPlace && bInTheWay && !places[i].bDoomed) ++nOverlaps;
    }
    ++(eState == InAlone ? nAlone : nShared);
  }
  void GoOut(int nPlace) { places[nPlace].nState = Out; }
};

class SharedBoard {
 public:
  SharedBoard()
      : m_pBoard(new (::mmap(nullptr, sizeof(Board), PROT_READ | PROT_WRITE,
                             MAP_SHARED | MAP_ANONYMOUS, -1, 0)) Board) {}
  SharedBoard(const SharedBoard&) = delete;
  SharedBoard& operator=(const SharedBoard&) = delete;
  ~SharedBoard() { ::munmap(m_pBoard, sizeof(Board)); }
  Board* operator->() const { return m_pBoard; }
  Board& operator*() const { return *m_pBoard; }

 private:
  Board* m_pBoard;
};

// Goes in and out until the board says stop, alone for nAlonePercent of the times.
void Storm(Board& board, int nPlace, unsigned nSeed, int nAlonePercent, const char* szFolder) {
  std::minstd_rand random(nSeed);
  const auto rest = [&random](unsigned nLimit) {
    std::this_thread::sleep_for(std::chrono::microseconds(random() % nLimit));
  };
  while (!board.bStop) {
    const bool bAlone = static_cast<int>(random() % 100) < nAlonePercent;
    if (Access::Lock(kArea, 0, bAlone ? LockMode::Exclusive : LockMode::Shared, szFolder)) {
      board.GoIn(nPlace, bAlone ? Board::InAlone : Board::InShared);
      if (random() % 4 == 0) rest(500);
      board.GoOut(nPlace);
      Access::Unlock(kArea, szFolder);
    } else if (!bAlone) {
      ++board.nRefusedShared;
    }
    if (random() % 2 == 0) rest(300);
  }
}

pid_t Start(const std::function<void()>& work) {
  const pid_t nProcess = ::fork();
  if (nProcess == 0) {
    work();
    ::_exit(0);
  }
  return nProcess;
}

class SingleUserStormTest : public testing::Test {
 protected:
  void StartAll(int nAlonePercent) {
    for (int i = 0; i < kProcesses; ++i) StartOne(i, nAlonePercent);
  }
  void StartOne(int nPlace, int nAlonePercent) {
    const unsigned nSeed = ++m_nStarted;
    m_aProcesses[nPlace] = Start(
        [=, this] { Storm(*m_board, nPlace, nSeed, nAlonePercent, m_folder.Path().c_str()); });
  }
  void KillOne(int nPlace) {
    Board::Place& place = m_board->places[nPlace];
    place.bDoomed = true;
    ::kill(m_aProcesses[nPlace], SIGKILL);
    ::waitpid(m_aProcesses[nPlace], nullptr, 0);
    place.nState = Board::Out;
    place.bDoomed = false;
  }
  void StopAll() {
    m_board->bStop = true;
    for (const pid_t nProcess : m_aProcesses) {
      int nStatus = -1;
      ::waitpid(nProcess, &nStatus, 0);
      EXPECT_EQ(nStatus, 0);
    }
  }
  bool IsFolderEmpty() const { return std::filesystem::is_empty(m_folder.Path()); }

  TempFolder m_folder;
  SharedBoard m_board;
  pid_t m_aProcesses[kProcesses] = {};
  unsigned m_nStarted = 0;
};

TEST_F(SingleUserStormTest, NeverHasTwoHoldersAtOddsThoughHoldersAreKilled) {
  StartAll(30);
  std::minstd_rand random(17);
  int nKilled = 0;
  const auto end = std::chrono::steady_clock::now() + milliseconds(2500);
  while (std::chrono::steady_clock::now() < end) {
    std::this_thread::sleep_for(milliseconds(10 + random() % 40));
    const int nPlace = static_cast<int>(random() % kProcesses);
    KillOne(nPlace);
    StartOne(nPlace, 30);
    ++nKilled;
  }
  StopAll();
  EXPECT_EQ(m_board->nOverlaps, 0);
  EXPECT_GT(m_board->nAlone, 100);
  EXPECT_GT(m_board->nShared, 100);
  RecordProperty("killed", nKilled);
  RecordProperty("alone", m_board->nAlone);
  RecordProperty("shared", m_board->nShared);
  // A crash may have left the file, but who comes next gets it and takes it away.
  EXPECT_TRUE(Access::Lock(kArea, 0, LockMode::Exclusive, m_folder.Path().c_str()));
  Access::Unlock(kArea, m_folder.Path().c_str());
  EXPECT_TRUE(IsFolderEmpty());
}

TEST_F(SingleUserStormTest, NeverRefusesAShareWhileNobodyIsAlone) {
  StartAll(0);
  std::this_thread::sleep_for(milliseconds(1500));
  StopAll();
  EXPECT_EQ(m_board->nRefusedShared, 0) << "of " << m_board->nShared;
  EXPECT_GT(m_board->nShared, 100);
}

// The folder of a company by drive and backslashes and by the system's own name, and a second
// program that comes by each of them.
TEST_F(SingleUserStormTest, MeetsOtherProgramsByEitherSpellingOfTheFolder) {
  const std::string sCompany = m_folder.Path("Company");
  std::filesystem::create_directory(sCompany);
  std::string sSpelled = "c:" + sCompany;
  for (char& c : sSpelled) c = c == '/' ? '\\' : c;
  const std::string spellings[] = {sCompany, sCompany + '/', sSpelled, sSpelled + '\\'};
  for (const std::string& sOurs : spellings) {
    ASSERT_TRUE(Access::Lock(kArea, 0, LockMode::Exclusive, sOurs.c_str()));
    EXPECT_TRUE(std::filesystem::exists(sCompany + "/SUA00005.LCK"));
    for (const std::string& sTheirs : spellings) {
      const pid_t nOther = Start([&] {
        Access::RemoveLockFile(kArea, sOurs.c_str());  // the copy of our table
        ::_exit(Access::Lock(kArea, 0, LockMode::Shared, sTheirs.c_str()) ? 1 : 0);
      });
      int nStatus = -1;
      ::waitpid(nOther, &nStatus, 0);
      EXPECT_EQ(nStatus, 0) << sOurs << ' ' << sTheirs;
    }
    Access::Unlock(kArea, sSpelled.c_str());
    EXPECT_FALSE(std::filesystem::exists(sCompany + "/SUA00005.LCK")) << sOurs;
  }
}

}  // namespace
}  // namespace ald
