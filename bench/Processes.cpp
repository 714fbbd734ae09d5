#include <dirent.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

#include "aldlib/inspect/ProcessWalker.h"
#include "aldlib/platform/Platform.h"
#include "bench/Harness.h"

// Taking snapshots of what is loaded: on this machine, against reading the same files and doing
// nothing with them; and of made-up machines, against a plain set of the pairs.
namespace ald::bench {

namespace {

constexpr int kChildren = 200;
constexpr int kModulesOfOne = 75;

// Processes like this one, asleep. They end with it in any case.
class Children {
 public:
  Children() {
    for (int i = 0; i < kChildren; ++i) {
      const pid_t nProcess = ::fork();
      if (nProcess == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        for (;;) ::pause();
      }
      if (nProcess > 0) m_processes.push_back(nProcess);
    }
  }
  Children(const Children&) = delete;
  Children& operator=(const Children&) = delete;
  ~Children() {
    for (const pid_t nProcess : m_processes) {
      ::kill(nProcess, SIGKILL);
      ::waitpid(nProcess, nullptr, 0);
    }
  }

 private:
  std::vector<pid_t> m_processes;
};

// Reads what a snapshot has to read. Returns the number of bytes.
std::size_t ReadPlainly() {
  static char s_aBuffer[1 << 16];
  std::size_t nBytes = 0;
  DIR* const pFolder = ::opendir("/proc");
  while (const dirent* const pEntry = ::readdir(pFolder)) {
    if (pEntry->d_name[0] < '0' || pEntry->d_name[0] > '9') continue;
    const std::string sProcess = std::string("/proc/") + pEntry->d_name;
    if (::readlink((sProcess + "/exe").c_str(), s_aBuffer, sizeof s_aBuffer) <= 0) continue;
    const int nFile = ::open((sProcess + "/maps").c_str(), O_RDONLY);
    if (nFile < 0) continue;
    for (ssize_t n = 0; (n = ::read(nFile, s_aBuffer, sizeof s_aBuffer)) > 0;) {
      nBytes += static_cast<std::size_t>(n);
    }
    ::close(nFile);
  }
  ::closedir(pFolder);
  return nBytes;
}

// A machine of so many modules, nearly the same in each process.
class MadeUpProcesses : public Processes {
 public:
  explicit MadeUpProcesses(std::uint32_t nModules) : m_nProcesses(nModules / kModulesOfOne) {
    for (int i = 0; i < kModulesOfOne; ++i) {
      m_modules.push_back("C:\\usr\\lib\\x86_64-linux-gnu\\libmodule" + std::to_string(i) + ".so");
    }
  }

  std::uint32_t PlatformId() override { return kPlatformLists; }
  bool EnumerateProcesses(std::span<std::uint32_t> ids, std::size_t& nCount) override {
    nCount = std::min<std::size_t>(ids.size(), m_nProcesses);
    for (std::size_t i = 0; i < nCount; ++i) ids[i] = static_cast<std::uint32_t>(i + 1);
    return true;
  }
  bool EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) override {
    paths = m_modules;
    paths.front() = "C:\\usr\\bin\\program" + std::to_string(nProcess);
    return true;
  }

  std::size_t Size() const { return std::size_t{m_nProcesses} * kModulesOfOne; }

 private:
  std::uint32_t m_nProcesses;
  std::vector<CString> m_modules;
};

struct Pair {
  CString sPath;
  std::uint32_t nProcess;
  bool operator==(const Pair&) const = default;
};
struct HashOfPair {
  std::size_t operator()(const Pair& pair) const {
    return std::hash<CString>()(pair.sPath) ^ pair.nProcess * std::size_t{0x9E3779B97F4A7C15};
  }
};

// The pairs by the standard library: the order of an array, and a set to see what is there.
std::size_t CollectInSet(Processes& processes, std::size_t nModules) {
  std::vector<std::uint32_t> ids(nModules);
  std::size_t nCount = 0;
  processes.EnumerateProcesses(ids, nCount);
  std::vector<Pair> pairs;
  std::unordered_set<Pair, HashOfPair> seen;
  std::vector<CString> paths;
  for (std::size_t i = 0; i < nCount; ++i) {
    processes.EnumerateModules(ids[i], paths);
    for (const CString& sPath : paths) {
      Pair pair{sPath, ids[i]};
      if (seen.insert(pair).second) pairs.push_back(std::move(pair));
    }
  }
  return pairs.size();
}

void AddMachine(CHarness& harness) {
  const auto pWalker = std::make_shared<CProcessWalker>();
  harness.Add({"snapshot", "here", "aldlib", 1,
               [pWalker] {
                 InstallPlatform(nullptr);
                 Keep(pWalker->LoadMemoryInformation());
               },
               [pWalker] {
                 int nFound = 0;
                 if (pWalker->LoadMemoryInformation()) {
                   for (int i = 0; i < pWalker->Size(); ++i) {
                     if (pWalker->GetAt(i).GetName() == "bench_processes") ++nFound;
                   }
                 }
                 return nFound == kChildren + 1 ? std::string() : "the children are not all there";
               }});
  harness.Add({"snapshot", "here", "plain reading", 1, [] { Keep(ReadPlainly()); },
               [] { return ReadPlainly() > 0 ? std::string() : "nothing was read"; }});
  harness.Want("snapshot", "here", "plain reading", 0.5, 0.8);
}

void AddMadeUp(CHarness& harness, const char* szSet, std::uint32_t nModules) {
  const Platform& own = CurrentPlatform();
  const auto pProcesses = std::make_shared<MadeUpProcesses>(nModules);
  const std::shared_ptr<Platform> pPlatform(
      new Platform{own.resources, own.machine, own.locale, own.profile, own.registry, own.product,
                   own.clock, own.files, own.volumes, *pProcesses, own.desktop});
  const auto pWalker = std::make_shared<CProcessWalker>();
  const std::size_t nSize = pProcesses->Size();
  const auto pass = [pProcesses, pPlatform, pWalker] {
    InstallPlatform(pPlatform.get());
    Keep(pWalker->LoadMemoryInformation());
    InstallPlatform(nullptr);
  };
  harness.Add({"a module", szSet, "aldlib", nSize, pass, [pass, pWalker, nSize] {
                 pass();
                 return static_cast<std::size_t>(pWalker->Size()) == nSize
                            ? std::string()
                            : "another number of modules";
               }});
  harness.Add({"a module", szSet, "unordered_set", nSize,
               [pProcesses, nSize] { Keep(CollectInSet(*pProcesses, nSize)); },
               [pProcesses, nSize] {
                 return CollectInSet(*pProcesses, nSize) == nSize ? std::string()
                                                                  : "another number of modules";
               }});
  harness.Want("a module", szSet, "unordered_set", 1, 2);
}

}  // namespace

}  // namespace ald::bench

int main(int argc, char** argv) {
  using namespace ald::bench;
  const Children children;
  CHarness harness("processes", "aldlib");
  AddMachine(harness);
  AddMadeUp(harness, "3 thousand", 3'000);
  AddMadeUp(harness, "30 thousand", 30'000);
  AddMadeUp(harness, "300 thousand", 300'000);
  return harness.Main(argc, argv);
}
