// The files of the real system: between processes, and when it refuses.
#include "aldlib/platform/posix/PosixFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <time.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <thread>

#include "aldlib/platform/posix/PathMapper.h"
#include "tests/support/SecondProcess.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

class PosixFilesTest : public testing::Test {
 protected:
  std::uint32_t Open(const std::string& sPath, FileAccess eAccess = FileAccess::ReadWrite,
                     FileSharing eSharing = FileSharing::None,
                     FileDisposition eDisposition = FileDisposition::OpenExisting) {
    return m_files.Open(sPath.c_str(), eAccess, eSharing, eDisposition, m_hFile);
  }
  static std::string OpenLine(unsigned nAccess, unsigned nShares, const std::string& sPath,
                              FileDisposition eDisposition = FileDisposition::OpenExisting,
                              long long nMoment = 0) {
    std::ostringstream line;
    line << "open " << nAccess << ' ' << nShares << ' ' << static_cast<int>(eDisposition) << ' '
         << nMoment << ' ' << sPath;
    return line.str();
  }
  static std::ptrdiff_t OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  }

  TempFolder m_folder;
  PathMapper m_paths;
  PosixFiles m_files{m_paths};
  FileHandle m_hFile{};
};

TEST_F(PosixFilesTest, ShareBetweenTwoProcessesAsWithinOne) {
  const std::string sPath = m_folder.Write("A.DAT", "x");
  SecondProcess second;
  for (unsigned nPair = 0; nPair < 12 * 12; ++nPair) {
    const unsigned aAccess[] = {nPair / 48 + 1, nPair / 4 % 3 + 1};
    const unsigned aShares[] = {nPair / 12 % 4, nPair % 4};
    const bool bSuits = (aAccess[0] & ~aShares[1]) == 0 && (aAccess[1] & ~aShares[0]) == 0;
    ASSERT_EQ(second.Ask(OpenLine(aAccess[0], aShares[0], sPath)), "0");
    EXPECT_EQ(
        Open(sPath, static_cast<FileAccess>(aAccess[1]), static_cast<FileSharing>(aShares[1])),
        bSuits ? kNoSystemError : kSharingViolation)
        << aAccess[0] << aShares[0] << " then " << aAccess[1] << aShares[1];
    m_files.Close(m_hFile);
    ASSERT_EQ(second.Ask("close"), "0");
  }
}

TEST_F(PosixFilesTest, FreeAtOnceWhatAKilledProcessHeld) {
  const std::string sPath = m_folder.Write("A.DAT", "0123456789");
  SecondProcess second;
  ASSERT_EQ(second.Ask(OpenLine(3, 0, sPath)), "0");
  ASSERT_EQ(Open(sPath), kSharingViolation);
  second.Kill();
  EXPECT_EQ(Open(sPath), kNoSystemError);
}

TEST_F(PosixFilesTest, LockRangesBetweenProcesses) {
  const std::string sPath = m_folder.Write("A.DAT", "0123456789");
  ASSERT_EQ(Open(sPath, FileAccess::ReadWrite, FileSharing::ReadWrite), kNoSystemError);
  SecondProcess second;
  ASSERT_EQ(second.Ask(OpenLine(1, 3, sPath)), "0");  // it can read alone
  ASSERT_EQ(second.Ask("lock 2 3"), "0");
  EXPECT_EQ(m_files.Lock(m_hFile, 4, 10), kLockViolation);
  EXPECT_EQ(m_files.Lock(m_hFile, 5, 10), kNoSystemError);
  EXPECT_EQ(second.Ask("read 5"), "0");
  EXPECT_EQ(second.Ask("read 5"), "33");
  second.Kill();
  EXPECT_EQ(m_files.Lock(m_hFile, 2, 3), kNoSystemError);
}

TEST_F(PosixFilesTest, NeverGrantOneFileToTwoThatRaceForIt) {
  const std::string sPath = m_folder.Write("A.DAT", "x");
  SecondProcess second;
  SecondProcess third;
  int nGranted = 0;
  constexpr int kRounds = 100;
  for (int i = 0; i < kRounds; ++i) {
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    const long long nSoon = now.tv_sec * 1'000'000'000LL + now.tv_nsec + 300'000;
    const std::string sLine = OpenLine(3, 0, sPath, FileDisposition::OpenExisting, nSoon);
    second.Send(sLine);
    third.Send(sLine);
    const std::string sSecond = second.Receive();
    const std::string sThird = third.Receive();
    EXPECT_FALSE(sSecond == "0" && sThird == "0") << "round " << i;
    nGranted += sSecond == "0" || sThird == "0";
    if (sSecond == "0") second.Ask("close");
    if (sThird == "0") third.Ask("close");
  }
  // That both step back is possible and rare.
  EXPECT_GT(nGranted, kRounds / 2);
}

// A lock file comes and goes under its users: the one who has it open must be the one whose file
// bears the name.
TEST_F(PosixFilesTest, LeaveOneAloneWithAFileThatIsMadeAndDeletedAllTheTime) {
  std::array<SecondProcess, 3> processes;
  for (SecondProcess& process : processes) process.Send("enter 400 " + m_folder.Path("A.LCK"));
  for (SecondProcess& process : processes) {
    int nAlone = 0;
    int nNotAlone = -1;
    std::istringstream(process.Receive()) >> nAlone >> nNotAlone;
    EXPECT_GT(nAlone, 0);
    EXPECT_EQ(nNotAlone, 0);
  }
}

TEST_F(PosixFilesTest, LeaveNothingOpenWhenTheSystemRefuses) {
  const std::string sReadOnly = m_folder.Write("R.DAT", "x");
  ::chmod(sReadOnly.c_str(), 0444);
  const std::string sHeld = m_folder.Write("H.DAT", "x");
  SecondProcess second;
  ASSERT_EQ(second.Ask(OpenLine(3, 0, sHeld)), "0");
  const std::ptrdiff_t nBefore = OpenDescriptors();

  EXPECT_EQ(Open(m_folder.Path("NONE.DAT")), kFileNotFound);
  EXPECT_EQ(Open(m_folder.Path("NONE/A.DAT")), kPathNotFound);
  EXPECT_EQ(Open(m_folder.Path()), kAccessDenied);
  EXPECT_EQ(Open(sReadOnly), kAccessDenied);
  EXPECT_EQ(Open(sHeld), kSharingViolation);
  EXPECT_EQ(m_files.Delete(sHeld.c_str()), kSharingViolation);

  const std::string sGone = m_folder.Path("GONE");
  std::filesystem::create_directory(sGone);
  std::filesystem::remove(sGone);
  EXPECT_EQ(Open(sGone + "/A.DAT", FileAccess::ReadWrite, FileSharing::None,
                 FileDisposition::CreateAlways),
            kPathNotFound);

  rlimit old{};
  ::getrlimit(RLIMIT_NOFILE, &old);
  const rlimit none{0, old.rlim_max};
  ::setrlimit(RLIMIT_NOFILE, &none);
  const std::uint32_t nTooMany = Open(sReadOnly, FileAccess::Read);
  ::setrlimit(RLIMIT_NOFILE, &old);
  EXPECT_EQ(nTooMany, kTooManyOpenFiles);

  EXPECT_EQ(OpenDescriptors(), nBefore);
  EXPECT_EQ(m_files.OpenHandles(), 0U);
}

TEST_F(PosixFilesTest, DenyAccessToAFolderWithoutPermission) {
  const std::string sPath = m_folder.Write("A.DAT", "x");
  ::chmod(m_folder.Path().c_str(), 0);
  SecondProcess second;
  if (::getuid() == 0) {
    ASSERT_EQ(second.Ask("nobody"), "1");
  }
  EXPECT_EQ(second.Ask(OpenLine(1, 3, sPath)), "5");
  EXPECT_EQ(second.Ask(OpenLine(3, 3, sPath, FileDisposition::CreateNew)), "5");
  EXPECT_EQ(second.Ask("delete " + sPath), "5");
  ::chmod(m_folder.Path().c_str(), 0700);
}

TEST_F(PosixFilesTest, WriteWhatFitsOnAFullDevice) {
  std::uint32_t nMoved = 77;
  const std::string sText(1000, 'x');
  ASSERT_EQ(Open("/dev/full"), kNoSystemError);
  EXPECT_EQ(m_files.Write(m_hFile, sText.data(), 1000, nMoved), kNoSystemError);
  EXPECT_EQ(nMoved, 0U);
  m_files.Close(m_hFile);

  // A limit on the size of files stands for a device that fills up in the middle of a write.
  ASSERT_EQ(Open(m_folder.Write("A.DAT", "")), kNoSystemError);
  ::signal(SIGXFSZ, SIG_IGN);
  rlimit old{};
  ::getrlimit(RLIMIT_FSIZE, &old);
  const rlimit small{600, old.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &small);
  const std::uint32_t nFirst = m_files.Write(m_hFile, sText.data(), 1000, nMoved);
  const std::uint32_t nFirstMoved = nMoved;
  const std::uint32_t nSecond = m_files.Write(m_hFile, sText.data(), 1000, nMoved);
  ::setrlimit(RLIMIT_FSIZE, &old);
  EXPECT_EQ(nFirst, kNoSystemError);
  EXPECT_EQ(nFirstMoved, 600U);
  EXPECT_EQ(nSecond, kNoSystemError);
  EXPECT_EQ(nMoved, 0U);
}

// A pipe is where a read waits, and so can be interrupted.
TEST_F(PosixFilesTest, TakeUpAReadThatASignalInterrupts) {
  const std::string sPath = m_folder.Path("pipe");
  ASSERT_EQ(::mkfifo(sPath.c_str(), 0600), 0);
  ASSERT_EQ(Open(sPath), kNoSystemError);
  struct sigaction action {};
  action.sa_handler = [](int) {};  // without SA_RESTART
  ::sigaction(SIGALRM, &action, nullptr);
  const itimerval often{{0, 2000}, {0, 2000}};
  const itimerval never{};
  std::thread writer([this] {
    sigset_t alarms;
    ::sigemptyset(&alarms);
    ::sigaddset(&alarms, SIGALRM);
    ::pthread_sigmask(SIG_BLOCK, &alarms, nullptr);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
    std::uint32_t nMoved = 0;
    m_files.Write(m_hFile, "late", 4, nMoved);
  });
  ::setitimer(ITIMER_REAL, &often, nullptr);
  char aBytes[8];
  std::uint32_t nMoved = 0;
  const std::uint32_t nError = m_files.Read(m_hFile, aBytes, 8, nMoved);
  ::setitimer(ITIMER_REAL, &never, nullptr);
  writer.join();
  EXPECT_EQ(nError, kNoSystemError);
  EXPECT_EQ(std::string(aBytes, nMoved), "late");
}

TEST_F(PosixFilesTest, SeeThroughANameThatHasGoneToAnotherFile) {
  const std::string sPath = m_folder.Write("A.DAT", "old");
  ASSERT_EQ(Open(sPath), kNoSystemError);
  std::filesystem::rename(m_folder.Write("B.DAT", "new"), sPath);
  EXPECT_FALSE(m_files.IsNamed(m_hFile, sPath.c_str()));
}

}  // namespace
}  // namespace ald
