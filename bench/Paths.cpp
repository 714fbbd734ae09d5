#include <dirent.h>
#include <fcntl.h>
#include <fnmatch.h>
#include <strings.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "aldlib/files/Directories.h"
#include "aldlib/platform/posix/PathMapper.h"
#include "bench/Harness.h"

// Searches and look-ups in a folder of 50,000 names in mixed case, against the calls of the system
// that a program would make itself. Those know neither drives nor other spellings, and list a
// folder in no order: they do less. An open by its exact name makes one look at the file beside, so
// half the speed of a plain open is all there is to reach; by another one it makes three.
namespace ald::bench {

namespace {

constexpr std::size_t kNames = 50'000;
constexpr std::size_t kAsked = 500;

// The folder, and a sample of its names.
struct Folder {
  std::string sPath;
  std::vector<std::string> exact;    // native paths
  std::vector<std::string> spelled;  // with drive and backslashes, each name as it is
  std::vector<std::string> other;    // the same in capitals
  std::vector<std::string> missing;

  Folder() {
    char szPath[] = "/tmp/aldlib-bench-XXXXXX";
    if (::mkdtemp(szPath) == nullptr) std::abort();
    sPath = szPath;
    PathMapper paths;
    const std::string sDrive = paths.Spelled(sPath) + "\\";
    std::mt19937_64 random(50'000);
    for (std::size_t i = 0; i < kNames; ++i) {
      char szName[40];
      std::snprintf(szName, sizeof szName, "%s%06zu.%s", i % 3 == 0 ? "Ledger" : "journal", i,
                    i % 1000 == 7 ? "Tmp" : "Dat");
      std::ofstream(sPath + "/" + szName).put('x');
      if (random() % (kNames / kAsked) != 0) continue;
      exact.push_back(sPath + "/" + szName);
      spelled.push_back(sDrive + szName);
      std::string sOther = szName;
      for (char& c : sOther) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
      other.push_back(sDrive + sOther);
      missing.push_back(sDrive + "NO" + sOther);
    }
  }
  ~Folder() {
    std::error_code ignored;
    std::filesystem::remove_all(sPath, ignored);
  }
};

std::size_t OurSearch(const std::string& sMask) {
  std::size_t nFound = 0;
  _finddata_t record;
  for (unsigned char bFound = FindFirst(sMask.c_str(), &record); bFound != 0;
       bFound = FindNext(&record)) {
    nFound += record.size == 1 ? 1 : 0;
  }
  return nFound;
}

// Sizes of the files that a pattern of the shell stands for; null for all.
std::size_t PlainSearch(const std::string& sFolder, const char* szPattern) {
  std::size_t nFound = 0;
  DIR* const pFolder = ::opendir(sFolder.c_str());
  if (pFolder == nullptr) return 0;
  while (const dirent* const pEntry = ::readdir(pFolder)) {
    if (szPattern != nullptr && ::fnmatch(szPattern, pEntry->d_name, FNM_CASEFOLD) != 0) continue;
    struct stat status {};
    if (::fstatat(::dirfd(pFolder), pEntry->d_name, &status, 0) != 0) continue;
    nFound += S_ISREG(status.st_mode) && status.st_size == 1 ? 1 : 0;
  }
  ::closedir(pFolder);
  return nFound;
}

bool Opens(const char* szPath) {
  const int nFile = ::open(szPath, O_RDONLY | O_CLOEXEC);
  if (nFile >= 0) ::close(nFile);
  return nFile >= 0;
}

std::size_t OpenMapped(PathMapper& paths, const std::vector<std::string>& names) {
  return static_cast<std::size_t>(std::ranges::count_if(
      names, [&](const std::string& sName) { return Opens(paths.Native(sName).c_str()); }));
}

std::size_t OpenPlain(const std::vector<std::string>& names) {
  return static_cast<std::size_t>(
      std::ranges::count_if(names, [](const std::string& sName) { return Opens(sName.c_str()); }));
}

// Reads the folder up to the name for each open.
std::size_t OpenByScan(const std::string& sFolder, const std::vector<std::string>& names,
                       std::size_t nCount) {
  std::size_t nOpened = 0;
  for (std::size_t i = 0; i < nCount; ++i) {
    const std::string sName = names[i].substr(names[i].rfind('\\') + 1);
    DIR* const pFolder = ::opendir(sFolder.c_str());
    if (pFolder == nullptr) return 0;
    while (const dirent* const pEntry = ::readdir(pFolder)) {
      if (::strcasecmp(pEntry->d_name, sName.c_str()) != 0) continue;
      nOpened += Opens((sFolder + "/" + pEntry->d_name).c_str()) ? 1 : 0;
      break;
    }
    ::closedir(pFolder);
  }
  return nOpened;
}

}  // namespace

void AddCases(CHarness& harness, const Folder& folder, PathMapper& paths) {
  const auto add = [&harness](const char* szOperation, const char* szSet, const char* szPeer,
                              std::size_t nOperations, std::size_t nWanted, auto work) {
    harness.Add({szOperation, szSet, szPeer, nOperations, [work] { Keep(work()); },
                 [work, nWanted]() -> std::string {
                   const std::size_t nFound = work();
                   if (nFound == nWanted) return {};
                   return std::to_string(nFound) + " of " + std::to_string(nWanted) + " found";
                 }});
  };
  const std::string sMask = paths.Spelled(folder.sPath) + "\\";
  constexpr std::size_t kTemps = kNames / 1000;

  add("search", "all names", "aldlib", kNames, kNames, [=] { return OurSearch(sMask + "*.*"); });
  add("search", "all names", "readdir and stat", kNames, kNames,
      [&] { return PlainSearch(folder.sPath, nullptr); });
  harness.Want("search", "all names", "readdir and stat", 0.7, 1);

  add("search", "*.TMP", "aldlib", kNames, kTemps, [=] { return OurSearch(sMask + "*.TMP"); });
  add("search", "*.TMP", "readdir and stat", kNames, kTemps,
      [&] { return PlainSearch(folder.sPath, "*.TMP"); });
  harness.Want("search", "*.TMP", "readdir and stat", 1, 1.5);

  const std::size_t nAsked = folder.exact.size();
  add("open", "exact name", "aldlib", nAsked, nAsked,
      [&] { return OpenMapped(paths, folder.spelled); });
  add("open", "exact name", "open", nAsked, nAsked, [&] { return OpenPlain(folder.exact); });
  harness.Want("open", "exact name", "open", 0.5, 0.7);

  add("open", "other case", "aldlib", nAsked, nAsked,
      [&] { return OpenMapped(paths, folder.other); });
  add("open", "other case", "open", nAsked, nAsked, [&] { return OpenPlain(folder.exact); });
  constexpr std::size_t kScans = 4;
  add("open", "other case", "readdir and open", kScans, kScans,
      [&] { return OpenByScan(folder.sPath, folder.other, kScans); });
  harness.Want("open", "other case", "open", 0.25, 0.5);
  harness.Want("open", "other case", "readdir and open", 100, 500);

  add("open", "missing name", "aldlib", nAsked, 0,
      [&] { return OpenMapped(paths, folder.missing); });
  add("open", "missing name", "open", nAsked, 0, [&] { return OpenPlain(folder.missing); });
  harness.Want("open", "missing name", "open", 0.1, 0.3);
}

}  // namespace ald::bench

int main(int argc, char** argv) {
  const ald::bench::Folder folder;
  ald::PathMapper paths;
  ald::bench::CHarness harness("paths", "aldlib");
  ald::bench::AddCases(harness, folder, paths);
  // What was made just now does not count as settled.
  ::usleep(100'000);
  return harness.Main(argc, argv);
}
