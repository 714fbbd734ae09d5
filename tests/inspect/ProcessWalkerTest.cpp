#include "aldlib/inspect/ProcessWalker.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "aldlib/platform/posix/PathMapper.h"
#include "aldlib/platform/posix/ProcProcesses.h"
#include "tests/support/FakePlatform.h"
#include "tests/support/TempFolder.h"

namespace ald {
namespace {

// Lets a test call what only derived walkers may, and counts what comes through AddToArray.
class OpenWalker : public CProcessWalker {
 public:
  void AddToArray(const CProcessInfo& info) override {
    ++m_nAdded;
    CProcessWalker::AddToArray(info);
  }
  using CProcessWalker::ProcessEnumeration;

  int m_nAdded = 0;
};

// What a visitor was shown, and how many times more it wants to go on.
struct Visits {
  std::vector<std::string> shown;
  int nLeft = 100;

  static bool See(std::uint32_t nProcess, std::uint16_t nTask, const char* szPath,
                  std::intptr_t nUser) {
    auto* const pThis = reinterpret_cast<Visits*>(nUser);
    pThis->shown.push_back(std::to_string(nProcess) + "/" + std::to_string(nTask) + " " + szPath);
    return --pThis->nLeft > 0;
  }
};

std::vector<std::string> Contents(const CProcessWalker& walker) {
  std::vector<std::string> contents;
  for (int i = 0; i < walker.Size(); ++i) {
    contents.push_back(std::to_string(walker.GetAt(i).GetProcessId()) + " " +
                       walker.GetAt(i).GetFullName());
  }
  return contents;
}

TEST(CProcessName, SplitsAPathAtItsLastBackslash) {
  const struct {
    const char* szPath;
    const char* szName;
    const char* szFolder;
  } rows[] = {
      {"C:\\usr\\bin\\led", "led", "C:\\usr\\bin"},
      {"\\led", "led", ""},
      {"C:\\usr\\", "", "C:\\usr"},
      {"NTVDM.EXE", "NTVDM.EX", ""},  // without a backslash the last character is lost
      {"x", "", ""},
      {"", "", ""},
  };
  for (const auto& row : rows) {
    const CProcessName name(row.szPath);
    EXPECT_EQ(name.GetProcessName(), row.szName) << row.szPath;
    EXPECT_EQ(name.GetProcessPath(), row.szFolder) << row.szPath;
  }
}

class ProcessWalkerTest : public testing::Test {
 protected:
  ProcessWalkerTest() {
    m_processes.m_modules = {{3, {"C:\\bin\\led", "C:\\lib\\c.so", "C:\\lib\\c.so"}},
                             {4, {}},  // cannot be looked at
                             {7, {"C:\\bin\\led", "C:\\lib\\c.so"}}};
  }

  FakePlatform m_platform;
  FakeProcesses& m_processes = m_platform.m_processes;
  OpenWalker m_walker;
};

TEST_F(ProcessWalkerTest, HoldsEachModuleOfEachProcessOnceOnEitherFamilyOfSystems) {
  const std::vector<std::string> expected = {"3 C:\\bin\\led", "3 C:\\lib\\c.so", "7 C:\\bin\\led",
                                             "7 C:\\lib\\c.so"};
  for (const std::uint32_t nPlatform : {kPlatformLists, kPlatformSnapshots, kPlatformLists}) {
    m_processes.m_nPlatformId = nPlatform;
    m_walker.m_nAdded = 0;
    ASSERT_TRUE(m_walker.LoadMemoryInformation());
    EXPECT_EQ(Contents(m_walker), expected) << nPlatform;
    EXPECT_EQ(m_walker.m_nAdded, 4);
  }
  EXPECT_TRUE(m_walker.IsProcessInArray("C:\\lib\\c.so", 7));
  EXPECT_TRUE(m_walker.IsProcessInArray(CProcessInfo("C:\\bin\\led", 3)));
  EXPECT_FALSE(m_walker.IsProcessInArray("C:\\BIN\\led", 7));
  EXPECT_FALSE(m_walker.IsProcessInArray("C:\\bin\\led", 4));
  EXPECT_EQ(m_walker.GetAt(4), CProcessInfo());
  EXPECT_EQ(m_walker.GetAt(-1), CProcessInfo());
}

TEST_F(ProcessWalkerTest, KeepsTheOldSnapshotWhenThereIsNoNewOne) {
  ASSERT_TRUE(m_walker.LoadMemoryInformation());
  m_processes.m_bWorks = false;
  for (const std::uint32_t nPlatform : {0u, kPlatformSnapshots, kPlatformLists, 3u}) {
    m_processes.m_nPlatformId = nPlatform;
    EXPECT_FALSE(m_walker.LoadMemoryInformation()) << nPlatform;
    EXPECT_EQ(m_walker.Size(), 4) << nPlatform;
  }
  m_processes.m_bWorks = true;
  m_processes.m_nPlatformId = kPlatformSnapshots;
  m_processes.m_sMissingFunction = "Thread32Next";  // wanted, if never called
  EXPECT_FALSE(m_walker.LoadMemoryInformation());
  m_processes.m_sMissingFunction = "";
  m_processes.m_modules.clear();
  EXPECT_FALSE(m_walker.LoadMemoryInformation());  // a snapshot, of nothing
  EXPECT_EQ(m_walker.Size(), 0);
}

TEST_F(ProcessWalkerTest, FindsFileNamesInAnyCase) {
  ASSERT_TRUE(m_walker.LoadMemoryInformation());
  EXPECT_EQ(m_walker.Find("LED"), 0);
  EXPECT_EQ(m_walker.Find("C.So"), 1);
  EXPECT_EQ(m_walker.Find("C:\\bin\\led"), -1);
  EXPECT_EQ(m_walker.Find("le"), -1);
}

TEST_F(ProcessWalkerTest, AsksAgainWithTwiceTheRoomWhenTheListFillsIt) {
  for (std::uint32_t nProcess = 0; nProcess < 260; ++nProcess) {
    m_processes.m_modules[nProcess] = {"C:\\bin\\" + std::to_string(nProcess)};
  }
  ASSERT_TRUE(m_walker.LoadMemoryInformation());
  EXPECT_EQ(m_processes.m_rooms, (std::vector<std::size_t>{260, 520}));
  EXPECT_EQ(m_walker.Size(), 260);
  m_processes.m_modules.erase(0);
  m_processes.m_rooms.clear();
  ASSERT_TRUE(m_walker.LoadMemoryInformation());
  EXPECT_EQ(m_processes.m_rooms, (std::vector<std::size_t>{260}));
}

TEST_F(ProcessWalkerTest, ShowsTheVisitorEachProcessWithThePathReadLast) {
  Visits all;
  ASSERT_TRUE(m_walker.ProcessEnumeration(&Visits::See, reinterpret_cast<std::intptr_t>(&all)));
  EXPECT_EQ(all.shown, (std::vector<std::string>{"3/0 C:\\lib\\c.so", "4/0 C:\\lib\\c.so",
                                                 "7/0 C:\\lib\\c.so"}));
  Visits one{{}, 1};
  ASSERT_TRUE(m_walker.ProcessEnumeration(&Visits::See, reinterpret_cast<std::intptr_t>(&one)));
  EXPECT_EQ(one.shown.size(), 1u);
  EXPECT_EQ(m_walker.Size(), 2);
  EXPECT_FALSE(m_walker.ProcessEnumeration(nullptr, 0));
}

// A refusal inside a virtual DOS machine ends its own tasks and not the walk.
TEST_F(ProcessWalkerTest, ShowsTheTasksOfAVirtualDosMachineOfThatBareName) {
  m_processes.m_modules[4] = {"NTVDM.EXE"};
  m_processes.m_tasks[4] = {{1, 2, 21, "OLD", "C:\\OLD.EXE"}, {1, 2, 22, "OLDER", "C:\\OLDER.EXE"}};
  Visits visits{{}, 3};
  ASSERT_TRUE(m_walker.ProcessEnumeration(&Visits::See, reinterpret_cast<std::intptr_t>(&visits)));
  EXPECT_EQ(visits.shown, (std::vector<std::string>{"3/0 C:\\lib\\c.so", "4/0 NTVDM.EXE",
                                                    "4/21 C:\\OLD.EXE", "7/0 C:\\lib\\c.so"}));
  EXPECT_TRUE(m_walker.IsProcessInArray("C:\\OLD.EXE", 4));
  EXPECT_FALSE(m_walker.IsProcessInArray("C:\\OLDER.EXE", 4));
}

TEST_F(ProcessWalkerTest, WatchesNamesWithoutAnsweringForThem) {
  CALWProcessScanner scanner;
  scanner.Add("led");
  ASSERT_TRUE(scanner.LoadMemoryInformation());
  EXPECT_EQ(scanner.Size(), 4);
  EXPECT_FALSE(scanner.IsInMemory("led"));
  EXPECT_EQ(scanner.Find("led"), 0);
}

TEST_F(ProcessWalkerTest, TellsManyModulesOfManyProcessesApart) {
  m_processes.m_modules.clear();
  for (std::uint32_t nProcess = 1; nProcess <= 400; ++nProcess) {
    for (int i = 0; i < 75; ++i) {
      m_processes.m_modules[nProcess].push_back("C:\\lib\\" + std::to_string(i % 70));
    }
  }
  ASSERT_TRUE(m_walker.LoadMemoryInformation());
  const std::vector<std::string> contents = Contents(m_walker);
  EXPECT_EQ(contents.size(), 400u * 70);
  EXPECT_EQ(std::set<std::string>(contents.begin(), contents.end()).size(), contents.size());
}

// A copy of the program "sleep" under a name of our own.
class SleepingChild {
 public:
  explicit SleepingChild(const std::filesystem::path& program) {
    std::filesystem::copy_file("/bin/sleep", program);
    m_nProcess = ::fork();
    if (m_nProcess == 0) {
      ::execl(program.c_str(), "sleep", "60", static_cast<char*>(nullptr));
      ::_exit(127);
    }
  }
  SleepingChild(const SleepingChild&) = delete;
  SleepingChild& operator=(const SleepingChild&) = delete;
  ~SleepingChild() { End(); }

  std::uint32_t Id() const { return static_cast<std::uint32_t>(m_nProcess); }
  void End() {
    if (m_nProcess <= 0) return;
    ::kill(m_nProcess, SIGKILL);
    ::waitpid(m_nProcess, nullptr, 0);
    m_nProcess = 0;
  }

  // Until the child runs the program with its libraries, walks show what it was forked from.
  bool WaitUntilLoaded(ProcProcesses& processes, const std::string& sName) const {
    std::vector<CString> paths;
    for (int i = 0; i < 500; ++i) {
      if (processes.EnumerateModules(Id(), paths) && paths.size() > 1 &&
          paths.front().ends_with("\\" + sName)) {
        for (const CString& sPath : paths) {
          if (sPath.find("\\libc") != CString::npos) return true;
        }
      }
      ::usleep(10'000);
    }
    return false;
  }

 private:
  pid_t m_nProcess;
};

class ProcProcessesTest : public testing::Test {
 protected:
  TempFolder m_folder;
  PathMapper m_paths;
  ProcProcesses m_processes{m_paths};
};

TEST_F(ProcProcessesTest, FindsAProcessOfOursWithItsLibrariesInAnyCase) {
  const std::filesystem::path program = std::filesystem::path(m_folder.Path()) / "Aldersleep.bin";
  const SleepingChild child(program);
  ASSERT_TRUE(child.WaitUntilLoaded(m_processes, "Aldersleep.bin"));
  std::filesystem::remove(program);  // replaced while it runs: the path stays what it was

  CProcessWalker walker;
  ASSERT_TRUE(walker.LoadMemoryInformation());
  const int nIndex = walker.Find("ALDERSLEEP.BIN");
  ASSERT_GE(nIndex, 0);
  const CProcessInfo info = walker.GetAt(nIndex);
  EXPECT_EQ(info.GetProcessId(), child.Id());
  EXPECT_EQ(info.GetName(), "Aldersleep.bin");
  std::string sPath = program.string();
  std::replace(sPath.begin(), sPath.end(), '/', '\\');
  EXPECT_EQ(info.GetFullName(), "C:" + sPath);
  int nLibraries = 0;
  for (int i = 0; i < walker.Size(); ++i) {
    const CProcessInfo module = walker.GetAt(i);
    if (module.GetProcessId() == child.Id() && module.GetName().starts_with("libc")) ++nLibraries;
  }
  EXPECT_EQ(nLibraries, 1);
  EXPECT_GE(walker.Find("libaldlib.so.1.0.0"), 0);  // our own process
}

// Ends a child when the walk, which has its id from the list, comes to it.
class EndingProcesses : public ProcProcesses {
 public:
  EndingProcesses(PathMapper& paths, SleepingChild& child)
      : ProcProcesses(paths), m_child(child), m_nChild(child.Id()) {}
  bool EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) override {
    if (nProcess == m_nChild) {
      m_child.End();
      ++m_nEnded;
    }
    return ProcProcesses::EnumerateModules(nProcess, paths);
  }

  int m_nEnded = 0;

 private:
  SleepingChild& m_child;
  std::uint32_t m_nChild;
};

TEST_F(ProcProcessesTest, LeavesOutAProcessThatEndsDuringTheWalk) {
  const std::filesystem::path program = std::filesystem::path(m_folder.Path()) / "aldershort.bin";
  SleepingChild child(program);
  ASSERT_TRUE(child.WaitUntilLoaded(m_processes, "aldershort.bin"));
  EndingProcesses processes(m_paths, child);
  const Platform& own = CurrentPlatform();
  const Platform platform{own.resources, own.machine, own.locale, own.profile,
                          own.registry,  own.product, own.clock,  own.files,
                          own.volumes,   processes,   own.desktop};
  InstallPlatform(&platform);
  CProcessWalker walker;
  const bool bLoaded = walker.LoadMemoryInformation();
  InstallPlatform(nullptr);
  EXPECT_TRUE(bLoaded);
  EXPECT_EQ(processes.m_nEnded, 1);
  EXPECT_GT(walker.Size(), 0);
  EXPECT_EQ(walker.Find("aldershort.bin"), -1);
}

// A folder laid out like /proc, with what is seldom met there.
TEST_F(ProcProcessesTest, ReadsEveryKindOfMappingAndSkipsProcessesWithoutAProgram) {
  const std::filesystem::path proc = m_folder.Path();
  for (const char* szName : {"10", "20", "30", "self", "1x"}) {
    std::filesystem::create_directory(proc / szName);
  }
  std::ofstream(proc / "10" / "maps");  // a kernel thread: no program and nothing mapped
  std::filesystem::create_symlink("/opt/a b/led (deleted)", proc / "20" / "exe");
  std::ofstream(proc / "20" / "maps")
      << "7f00-7f01 r-xp 00000000 08:01 12      /lib/first.so\n"
         "5500-5501 r--p 00000000 08:01 11      /opt/a b/led (deleted)\n"
         "5501-5502 r-xp 00001000 08:01 11      /opt/a b/led (deleted)\n"
         "7f01-7f02 rw-p 00000000 08:01 13      /usr/share/data\n"
         "7f02-7f03 rwxp 00000000 00:00 0 \n"
         "7f03-7f04 r-xp 00000000 00:05 9       /memfd:code (deleted)\n"
         "7f04-7f05 r-xp 00000000 08:01 14      /lib/old.so.1 (deleted)\n"
         "7fff-8000 r-xp 00000000 00:00 0       [vdso]\n"
         "a-line-cut-short r-xp 0000";
  std::filesystem::create_symlink("/bin/gone", proc / "30" / "exe");  // its maps may not be read

  ProcProcesses processes(m_paths, proc.string());
  std::uint32_t aIds[8];
  std::size_t nCount = 0;
  ASSERT_TRUE(processes.EnumerateProcesses(aIds, nCount));
  EXPECT_THAT(std::vector<std::uint32_t>(aIds, aIds + nCount),
              testing::UnorderedElementsAre(10, 20, 30));
  ASSERT_TRUE(processes.EnumerateProcesses(std::span(aIds, 2), nCount));
  EXPECT_EQ(nCount, 2u);

  std::vector<CString> paths;
  EXPECT_FALSE(processes.EnumerateModules(10, paths));
  ASSERT_TRUE(processes.EnumerateModules(20, paths));
  EXPECT_EQ(paths,
            (std::vector<CString>{"C:\\opt\\a b\\led", "C:\\lib\\first.so", "C:\\lib\\old.so.1"}));
  EXPECT_FALSE(processes.EnumerateModules(30, paths));

  ASSERT_TRUE(m_paths.SetDrive('L', "/lib"));
  ASSERT_TRUE(processes.EnumerateModules(20, paths));
  EXPECT_EQ(paths, (std::vector<CString>{"C:\\opt\\a b\\led", "L:\\first.so", "L:\\old.so.1"}));
  EXPECT_FALSE(ProcProcesses(m_paths, (proc / "no").string()).EnumerateProcesses(aIds, nCount));
}

}  // namespace
}  // namespace ald
