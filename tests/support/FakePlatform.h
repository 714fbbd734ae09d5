#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <map>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "aldlib/Load.h"
#include "aldlib/frame/Alderlib.h"
#include "aldlib/frame/MemStore.h"
#include "aldlib/frame/MessageDoor.h"
#include "aldlib/platform/IniText.h"
#include "aldlib/platform/MemoryDisk.h"
#include "aldlib/platform/MemoryFiles.h"
#include "aldlib/platform/MemoryRegistry.h"
#include "aldlib/platform/MemoryVolumes.h"
#include "aldlib/platform/TableResources.h"
#include "aldlib/platform/headless/HeadlessDesktop.h"

// Ports that a test can see into and turn, and a platform made of them.
namespace ald {

class FakeMachine : public Machine {
 public:
  MemoryHandle Allocate(std::uint32_t nSize) override {
    ++m_nAllocations;
    if (m_nAllocations == m_nFailAt) return MemoryHandle{};
    const MemoryHandle hBlock{++m_nLastHandle};
    m_blocks[hBlock].bytes.resize(nSize + 1);  // an address even for size 0
    return hBlock;
  }
  void* Lock(MemoryHandle hBlock) override {
    const auto it = m_blocks.find(hBlock);
    if (it == m_blocks.end()) return nullptr;
    ++it->second.nLocks;
    return it->second.bytes.data();
  }
  bool Unlock(MemoryHandle hBlock) override {
    const auto it = m_blocks.find(hBlock);
    return it != m_blocks.end() && it->second.nLocks > 0 && --it->second.nLocks > 0;
  }
  MemoryHandle Free(MemoryHandle hBlock) override {
    if (m_bRefuseFree) return hBlock;
    return hBlock == MemoryHandle{} || m_blocks.erase(hBlock) > 0 ? MemoryHandle{} : hBlock;
  }
  void RaiseDivisionFault() override { ++m_nDivisionFaults; }
  // Nothing goes on behind a fatal exit, so the test ends here. A test of the way there runs it in
  // a child process on the real machine.
  [[noreturn]] void FatalExit(const char* szText) override {
    std::fprintf(stderr, "fatal exit on the fake machine: %s\n", szText);
    std::abort();
  }

  // Lets the nCount-th Allocate from now on fail.
  void FailAllocate(int nCount) { m_nFailAt = m_nAllocations + nCount; }
  void RefuseFree(bool bRefuse) { m_bRefuseFree = bRefuse; }

  std::size_t LiveBlocks() const { return m_blocks.size(); }
  int DivisionFaults() const { return m_nDivisionFaults; }

 private:
  struct Block {
    std::vector<char> bytes;
    int nLocks = 0;
  };

  std::map<MemoryHandle, Block> m_blocks;
  std::uint32_t m_nLastHandle = 0;
  int m_nAllocations = 0;
  int m_nFailAt = 0;
  int m_nDivisionFaults = 0;
  bool m_bRefuseFree = false;
};

class FakeLocale : public Locale {
 public:
  NumberSettings ReadNumberSettings() override {
    ++m_nReads;
    return m_settings;
  }
  CString FormatNumber(std::string_view canonicalText, const NumberFormat& format) override {
    return FormatNumberText(canonicalText, format);
  }

  NumberSettings m_settings;
  int m_nReads = 0;
};

// String tables in memory, and a framework that takes note of what it is told.
class FakeResources : public TableResources {
 public:
  Atom AddAtom(const char* szName) override {
    m_calls.push_back(CString("add ") + szName);
    return TableResources::AddAtom(szName);
  }
  bool DeleteAtom(Atom nAtom) override {
    m_calls.push_back("delete atom");
    return TableResources::DeleteAtom(nAtom);
  }
  bool AttachExtension(ModuleHandle hModule) override {
    m_calls.push_back("attach");
    return !m_bRefuseAttach && TableResources::AttachExtension(hModule);
  }
  void LinkExtension(ModuleHandle hModule) override {
    m_calls.push_back("link");
    m_hLinked = hModule;
  }
  void ReleaseExtension(ModuleHandle) override { m_calls.push_back("release"); }

  std::vector<CString> m_calls;
  ModuleHandle m_hLinked{};
  bool m_bRefuseAttach = false;
};

// INI files that are texts of the test; the system profile is the one named "".
class FakeProfile : public Profile {
 public:
  std::uint32_t ReadString(const char* szFile, const char* szSection, const char* szKey,
                           const char* szDefault, char* szBuffer, std::uint32_t nSize) override {
    const IniText text(m_files[szFile != nullptr ? szFile : ""]);
    const IniText* const aTexts[] = {&text};
    return ReadIniString(aTexts, szSection, szKey, szDefault, szBuffer, nSize);
  }
  std::uint32_t ReadInt(const char* szFile, const char* szSection, const char* szKey,
                        std::int32_t nDefault) override {
    const IniText text(m_files[szFile != nullptr ? szFile : ""]);
    const IniText* const aTexts[] = {&text};
    return ReadIniInt(aTexts, szSection, szKey, nDefault);
  }

  std::map<CString, CString> m_files;
};

class FakeProduct : public Product {
 public:
  CString IniFileName() override { return m_sIniFile; }
  CString ProductName() override { return m_sProduct; }
  bool SplitIniName(std::string_view sIniName, CString& sProduct, CString& sMajorVersion) override {
    return SplitUsualIniName(sIniName, sProduct, sMajorVersion);
  }
  bool FeatureEnabled(std::uint32_t) override { return true; }

  CString m_sIniFile = "PRODUCT.INI";
  CString m_sProduct = "PRODUCT";
};

// A clock whose date and time stand still at the moment the test has set. A sleep takes no time: it
// is noted, and the ticks go on by it.
class FakeClock : public Clock {
 public:
  LocalTime Now() override { return m_now; }
  std::uint32_t Ticks() override { return m_nTicks; }
  void Sleep(std::uint32_t nMilliseconds) override {
    m_sleeps.push_back(nMilliseconds);
    m_nTicks += nMilliseconds;
  }
  std::int64_t Seconds() override { return m_nSeconds; }

  LocalTime m_now{2003, 7, 4, 9, 5, 7, 89};
  std::uint32_t m_nTicks = 0;
  std::vector<std::uint32_t> m_sleeps;
  std::int64_t m_nSeconds = 1057309507;
};

// Processes of the test, each with its modules, the program first. A process without modules cannot
// be looked at. A list of processes is in the order of their ids.
class FakeProcesses : public Processes {
 public:
  std::uint32_t PlatformId() override { return m_nPlatformId; }
  bool EnumerateProcesses(std::span<std::uint32_t> ids, std::size_t& nCount) override {
    m_rooms.push_back(ids.size());
    nCount = 0;
    for (const auto& [nProcess, modules] : m_modules) {
      if (nCount < ids.size()) ids[nCount++] = nProcess;
    }
    return m_bWorks;
  }
  bool EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) override {
    paths = m_modules[nProcess];
    return !paths.empty();
  }
  std::vector<Task16> EnumerateTasks16(std::uint32_t nProcess) override {
    return m_tasks[nProcess];
  }

  bool HasToolHelp(const char* szFunction) override { return m_sMissingFunction != szFunction; }
  bool SnapshotProcesses(std::vector<tagPROCESSENTRY32>& processes) override {
    processes.clear();
    for (const auto& [nProcess, modules] : m_modules) {
      processes.emplace_back().th32ProcessID = nProcess;
      if (!modules.empty()) Copy(modules.front(), processes.back().szExeFile);
    }
    return m_bWorks;
  }
  bool SnapshotModules(std::uint32_t nProcess, std::vector<tagMODULEENTRY32>& modules) override {
    modules.clear();
    for (const CString& sPath : m_modules[nProcess]) {
      Copy(sPath, modules.emplace_back().szExePath);
    }
    return !modules.empty();
  }

  ModuleHandle LoadResourceMeter(ResourceMeterFunction& pRead) override {
    pRead = m_pMeter;
    return m_hMeter;
  }
  void FreeResourceMeter(ModuleHandle) override { ++m_nMetersFreed; }

  std::map<std::uint32_t, std::vector<CString>> m_modules;
  std::map<std::uint32_t, std::vector<Task16>> m_tasks;
  std::uint32_t m_nPlatformId = kPlatformLists;
  bool m_bWorks = true;              // if not, there are no lists and no snapshots
  CString m_sMissingFunction;        // of those for snapshots
  std::vector<std::size_t> m_rooms;  // that lists were asked for with
  ModuleHandle m_hMeter{};
  ResourceMeterFunction m_pMeter = nullptr;
  int m_nMetersFreed = 0;

 private:
  template <std::size_t N>
  static void Copy(const CString& sPath, char (&szTarget)[N]) {
    szTarget[sPath.copy(szTarget, N - 1)] = '\0';
  }
};

// While it lives the library stands on its ports, loaded anew; afterwards on the system's own,
// loaded anew. So each test starts with a fresh library record and leaves nothing behind.
class FakePlatform {
 public:
  FakePlatform() { MoveToPlatform(&m_platform); }
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;
  ~FakePlatform() {
    FailAllocation(0);
    MoveToPlatform(nullptr);
  }

  // Adds a module with the given texts, and has it searched.
  ModuleHandle AddModule(std::initializer_list<std::pair<std::uint16_t, const char*>> texts,
                         std::int16_t nSearchOrder) {
    StringTable table;
    for (const auto& [nNumber, szText] : texts) table.Add(nNumber, szText);
    const ModuleHandle hModule = m_resources.AddModule(std::move(table));
    RegisterInstanceForStringSearch(hModule, nSearchOrder);
    return hModule;
  }

  FakeResources m_resources;
  FakeMachine m_machine;
  FakeLocale m_locale;
  FakeProfile m_profile;
  MemoryRegistry m_registry;
  FakeProduct m_product;
  FakeClock m_clock;
  MemoryDisk m_disk;
  MemoryFiles m_files{m_disk};
  MemoryVolumes m_volumes{m_disk};
  FakeProcesses m_processes;
  HeadlessDesktop m_desktop{m_clock};

 private:
  Platform m_platform{m_resources, m_machine, m_locale,  m_profile,   m_registry,       m_product,
                      m_clock,     m_files,   m_volumes, m_processes, m_desktop.Ports()};
};

// While it lives nothing but the plain door is there.
class NoDoor {
 public:
  NoDoor() : m_pBefore(ConnectMessageDoor(nullptr)) {}
  NoDoor(const NoDoor&) = delete;
  NoDoor& operator=(const NoDoor&) = delete;
  ~NoDoor() { ConnectMessageDoor(m_pBefore); }

 private:
  MessageDoor* m_pBefore;
};

// A door that keeps the numbers it was to show, in order, and gives the answer it was told to.
class RecordingDoor : public MessageDoor {
 public:
  RecordingDoor() : m_pBefore(ConnectMessageDoor(this)) {}
  RecordingDoor(const RecordingDoor&) = delete;
  RecordingDoor& operator=(const RecordingDoor&) = delete;
  ~RecordingDoor() override { ConnectMessageDoor(m_pBefore); }

  int Show(MessageArgument message) override {
    m_shown.push_back(IsMessageText(message) ? 0U : MessageNumber(message));
    m_texts.emplace_back(IsMessageText(message) ? MessageText(message) : "");
    return m_nAnswer;
  }
  int Ask(MessageArgument message) override { return Show(message); }

  std::vector<std::uint32_t> m_shown;  // 0 for a text
  std::vector<CString> m_texts;        // "" for a number
  int m_nAnswer = kAnswerOk;

 private:
  MessageDoor* m_pBefore;
};

}  // namespace ald
