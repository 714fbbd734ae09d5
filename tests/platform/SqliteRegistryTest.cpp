// The registry on disk under several processes, sudden ends, and files that are none of its own.

#include "aldlib/platform/posix/SqliteRegistry.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>

#include "tests/support/TempFolder.h"

namespace ald {
namespace {

RegistryValue NumberValue(std::uint32_t nNumber) {
  CString sData;
  for (int i = 0; i < 4; ++i) sData += static_cast<char>(nNumber >> 8 * i & 0xFF);
  return {RegistryType::Number, sData};
}

std::uint32_t NumberOf(const RegistryValue& value) {
  std::uint32_t nNumber = 0;
  for (std::size_t i = value.sData.size(); i-- > 0;) {
    nNumber = nNumber << 8 | static_cast<unsigned char>(value.sData[i]);
  }
  return nNumber;
}

// Opens the store anew, as another process would, and reads a number; 0 if it is not there.
std::uint32_t StoredNumber(const CString& sFile, const char* szName) {
  SqliteRegistry registry(sFile, "");
  RegistryValue value;
  const RegistryKey hKey = registry.Open(kCurrentUser, "A", kReadAccess);
  return registry.QueryValue(hKey, szName, value) ? NumberOf(value) : 0;
}

bool StoreNumber(const CString& sFile, const char* szName, std::uint32_t nNumber) {
  SqliteRegistry registry(sFile, "");
  const RegistryKey hKey = registry.Create(kCurrentUser, "A", nullptr, kAllAccess);
  return registry.SetValue(hKey, szName, NumberValue(nNumber));
}

CString Contents(const CString& sFile) {
  std::ifstream stream(sFile, std::ios::binary);
  return CString(std::istreambuf_iterator<char>(stream), {});
}

// Runs the work in a process of its own, which ends with what it returns.
pid_t Start(const std::function<int()>& work) {
  const pid_t nChild = ::fork();
  if (nChild == 0) ::_exit(work());
  return nChild;
}

int StatusOf(pid_t nChild) {
  int nStatus = 0;
  ::waitpid(nChild, &nStatus, 0);
  return WIFEXITED(nStatus) ? WEXITSTATUS(nStatus) : -1;
}

TEST(StoreOnDisk, LosesNothingWhenProcessesWriteAtOnce) {
  const TempFolder folder;
  const CString sFile = folder.Path("user.sqlite");  // made by whoever comes first
  constexpr int kProcesses = 4;
  constexpr std::uint32_t kValues = 25;
  pid_t anChildren[kProcesses];
  for (int nProcess = 0; nProcess < kProcesses; ++nProcess) {
    anChildren[nProcess] = Start([&] {
      for (std::uint32_t i = 1; i <= kValues; ++i) {
        const CString sName = std::to_string(nProcess) + "/" + std::to_string(i);
        if (!StoreNumber(sFile, sName.c_str(), i)) return 1;
      }
      return 0;
    });
  }
  for (const pid_t nChild : anChildren) EXPECT_EQ(StatusOf(nChild), 0);
  for (int nProcess = 0; nProcess < kProcesses; ++nProcess) {
    for (std::uint32_t i = 1; i <= kValues; ++i) {
      const CString sName = std::to_string(nProcess) + "/" + std::to_string(i);
      EXPECT_EQ(StoredNumber(sFile, sName.c_str()), i) << sName;
    }
  }
}

// The child says through a pipe which writes have returned, so that what it had finished is known
// however it ended.
TEST(StoreOnDisk, OpensWithTheLastFinishedWriteAfterAProcessIsKilled) {
  const TempFolder folder;
  const CString sFile = folder.Path("user.sqlite");
  std::uint32_t nNumber = 1;
  ASSERT_TRUE(StoreNumber(sFile, "counter", nNumber));
  int nLeft = 0;
  for (int nRound = 0; nRound < 40; ++nRound) {
    int anPipe[2];
    ASSERT_EQ(::pipe(anPipe), 0);
    const pid_t nChild = Start([&] {
      SqliteRegistry registry(sFile, "");
      const RegistryKey hKey = registry.Open(kCurrentUser, "A", kAllAccess);
      for (std::uint32_t i = nNumber + 1;; ++i) {
        if (!registry.SetValue(hKey, "counter", NumberValue(i))) return 1;
        if (::write(anPipe[1], &i, sizeof i) != sizeof i) return 2;
      }
      return 0;
    });
    ::close(anPipe[1]);
    std::uint32_t nFinished = 0;
    // A first write, then some microseconds that differ from round to round.
    EXPECT_EQ(::read(anPipe[0], &nFinished, sizeof nFinished), ssize_t{sizeof nFinished});
    ::usleep(static_cast<useconds_t>(nRound * 137 % 4000));
    ::kill(nChild, SIGKILL);
    EXPECT_EQ(StatusOf(nChild), -1);
    while (::read(anPipe[0], &nFinished, sizeof nFinished) > 0) continue;
    ::close(anPipe[0]);
    nLeft += std::filesystem::exists(sFile + "-journal") ? 1 : 0;

    const std::uint32_t nStored = StoredNumber(sFile, "counter");
    EXPECT_TRUE(nStored == nFinished || nStored == nFinished + 1)
        << "finished " << nFinished << ", stored " << nStored;
    nNumber = nStored;
  }
  EXPECT_GT(nLeft, 0) << "no process was killed in the middle of a write";
}

TEST(StoreOnDisk, LeavesForeignFilesAsTheyAre) {
  const TempFolder folder;
  // A database of another program, and one of a later form of ours.
  const CString sForeign = folder.Path("foreign.sqlite");
  const CString sLater = folder.Path("later.sqlite");
  ASSERT_TRUE(StoreNumber(sLater, "v", 1));
  CString sBytes = Contents(sLater);
  sBytes[60 + 3] = 2;  // the version in the header of the file
  folder.Write("later.sqlite", sBytes);
  sBytes[68] = 'X';  // the program in it
  folder.Write("foreign.sqlite", sBytes);
  const CString sText = folder.Write("text.sqlite", "hello");
  const CString sLongText = folder.Write("long.sqlite", CString(5000, 'x'));
  const CString sCut = folder.Write("cut.sqlite", sBytes.substr(0, 50));
  for (const CString& sFile : {sForeign, sLater, sText, sLongText, sCut}) {
    const CString sBefore = Contents(sFile);
    SCOPED_TRACE(sFile);
    EXPECT_FALSE(StoreNumber(sFile, "v", 2));
    EXPECT_EQ(StoredNumber(sFile, "v"), 0U);
    EXPECT_EQ(Contents(sFile), sBefore);
  }
  std::filesystem::create_directory(folder.Path("folder.sqlite"));
  EXPECT_FALSE(StoreNumber(folder.Path("folder.sqlite"), "v", 2));
  EXPECT_FALSE(StoreNumber(sText + "/below.sqlite", "v", 2));
  EXPECT_FALSE(StoreNumber("", "v", 2));
  // An empty file is one that nothing has been written to yet.
  EXPECT_TRUE(StoreNumber(folder.Write("empty.sqlite", ""), "v", 2));
}

TEST(StoreOnDisk, FailsQuietlyWithoutPermission) {
  const TempFolder folder;
  std::filesystem::permissions(
      folder.Path(), std::filesystem::perms::others_exec | std::filesystem::perms::owner_all);
  const CString sFile = folder.Path("user.sqlite");
  ASSERT_TRUE(StoreNumber(sFile, "v", 1));
  const auto asNobody = [&](mode_t mode, const std::function<int()>& work) {
    EXPECT_EQ(::chmod(sFile.c_str(), mode), 0);
    return StatusOf(Start([&] {
      if (::geteuid() == 0 &&
          (::setgroups(0, nullptr) != 0 || ::setgid(65534) != 0 || ::setuid(65534) != 0)) {
        return 9;
      }
      return work();
    }));
  };
  const bool bRoot = ::geteuid() == 0;
  EXPECT_EQ(asNobody(bRoot ? 0604 : 0400,
                     [&] {
                       if (StoredNumber(sFile, "v") != 1) return 1;
                       return StoreNumber(sFile, "v", 2) ? 2 : 0;
                     }),
            0);
  EXPECT_EQ(asNobody(bRoot ? 0600 : 0000,
                     [&] {
                       if (StoredNumber(sFile, "v") != 0) return 1;
                       if (StoreNumber(sFile, "v", 2)) return 2;
                       return StoreNumber("/proc/none/user.sqlite", "v", 2) ? 3 : 0;
                     }),
            0);
  EXPECT_EQ(::chmod(sFile.c_str(), 0600), 0);
  EXPECT_EQ(StoredNumber(sFile, "v"), 1U);
}

TEST(StoreOnDisk, KeepsWhatItHasWhenTheDiskIsFull) {
  const TempFolder folder;
  const CString sFile = folder.Path("user.sqlite");
  ASSERT_TRUE(StoreNumber(sFile, "v", 1));
  const auto nSize = std::filesystem::file_size(sFile);
  const pid_t nChild = Start([&] {
    // No file may grow beyond what the store has, so the disk is full as far as it can tell.
    ::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{nSize, nSize};
    if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) return 9;
    SqliteRegistry registry(sFile, "");
    const RegistryKey hKey = registry.Open(kCurrentUser, "A", kAllAccess);
    if (registry.SetValue(hKey, "big", {RegistryType::Binary, CString(200000, 'x')})) return 1;
    RegistryValue value;
    if (registry.QueryValue(hKey, "big", value)) return 2;
    if (!registry.QueryValue(hKey, "v", value) || NumberOf(value) != 1) return 3;
    // What has room is still kept.
    return registry.SetValue(hKey, "v", NumberValue(2)) ? 0 : 4;
  });
  EXPECT_EQ(StatusOf(nChild), 0);
  EXPECT_EQ(StoredNumber(sFile, "v"), 2U);
}

TEST(StoreOnDisk, FollowsAFileThatIsReplacedOrTakenAway) {
  const TempFolder folder;
  const CString sFile = folder.Path("user.sqlite");
  ASSERT_TRUE(StoreNumber(folder.Path("backup.sqlite"), "v", 7));
  SqliteRegistry registry(sFile, "");
  const RegistryKey hOld = registry.Create(kCurrentUser, "A", nullptr, kAllAccess);
  ASSERT_TRUE(registry.SetValue(hOld, "v", NumberValue(1)));
  std::filesystem::rename(folder.Path("backup.sqlite"), sFile);
  EXPECT_FALSE(registry.SetValue(hOld, "v", NumberValue(2)));  // a key of the file that is gone
  RegistryValue value;
  EXPECT_TRUE(registry.QueryValue(registry.Open(kCurrentUser, "A", kReadAccess), "v", value));
  EXPECT_EQ(NumberOf(value), 7U);
  std::filesystem::remove(sFile);
  EXPECT_EQ(registry.Open(kCurrentUser, "A", kReadAccess), RegistryKey{});
  EXPECT_FALSE(std::filesystem::exists(sFile));  // reading makes none
}

TEST(StoreOnDisk, ServesAChildProcessThatInheritedIt) {
  const TempFolder folder;
  const CString sFile = folder.Path("user.sqlite");
  SqliteRegistry registry(sFile, "");
  const RegistryKey hKey = registry.Create(kCurrentUser, "A", nullptr, kAllAccess);
  ASSERT_TRUE(registry.SetValue(hKey, "v", NumberValue(1)));
  EXPECT_EQ(StatusOf(Start([&] {
              const RegistryKey hOwn = registry.Open(kCurrentUser, "A", kAllAccess);
              return registry.SetValue(hOwn, "v", NumberValue(2)) ? 0 : 1;
            })),
            0);
  EXPECT_TRUE(registry.SetValue(hKey, "w", NumberValue(3)));
  EXPECT_EQ(StoredNumber(sFile, "v"), 2U);
}

TEST(StoreOnDisk, IsForItsOwnersEyes) {
  const TempFolder folder;
  const CString sFile = folder.Path("new/user.sqlite");
  ASSERT_TRUE(StoreNumber(sFile, "v", 1));
  struct stat status {};
  ASSERT_EQ(::stat(sFile.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
  ASSERT_EQ(::stat(folder.Path("new").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

}  // namespace
}  // namespace ald
