#include "aldlib/inspect/ProcessWalker.h"

#include <algorithm>
#include <functional>
#include <new>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

// Room for the ids of the first try: 1040 bytes.
constexpr std::size_t kFirstProcesses = 260;
constexpr std::size_t kFirstSlots = 1024;

std::string_view View(const char* szText) {
  return szText != nullptr ? std::string_view(szText) : std::string_view();
}

std::size_t HashOf(std::string_view sFullPath, std::uint32_t nProcessId) {
  // The paths of many processes are the same, so their ids must reach every bit.
  return std::hash<std::string_view>()(sFullPath) ^ (nProcessId * std::size_t{0x9E3779B97F4A7C15});
}

bool IsSameName(std::string_view sLeft, std::string_view sRight) {
  return std::equal(sLeft.begin(), sLeft.end(), sRight.begin(), sRight.end(),
                    [](char a, char b) { return ToLowerAscii(a) == ToLowerAscii(b); });
}

}  // namespace

CProcessName& CProcessName::operator=(const CProcessName& other) {
  AssignObject(other);
  return *this;
}

CProcessName::~CProcessName() = default;

int CProcessName::FindPathNameBoundary() const {
  const std::size_t nIndex = m_sFullPath.rfind('\\');
  return nIndex != CString::npos ? static_cast<int>(nIndex) : -1;
}

std::string_view CProcessName::NameView() const {
  if (m_sFullPath.empty()) return {};
  const auto nStart = static_cast<std::size_t>(FindPathNameBoundary() + 1);
  return std::string_view(m_sFullPath).substr(nStart, m_sFullPath.size() - 1);
}

CString CProcessName::GetProcessName() const {
  return CString(NameView());
}

CString CProcessName::GetProcessPath() const {
  return m_sFullPath.substr(0, static_cast<std::size_t>(std::max(FindPathNameBoundary(), 0)));
}

CProcessInfo& CProcessInfo::operator=(const CProcessInfo& other) {
  AssignFromClass(other);
  return *this;
}

CProcessInfo::~CProcessInfo() = default;

CRuntimeClass* CProcessInfo::GetRuntimeClass() const {
  static CRuntimeClass s_class{"CProcessInfo"};
  return &s_class;
}

void CProcessInfo::AssignFromClass(const CProcessInfo& other) {
  m_name = other.m_name;
  m_nProcessId = other.m_nProcessId;
}

// What the walk through the tasks of one process has to know.
struct CProcessWalker::Walk16 {
  std::uint32_t nProcessId;
  ProcessVisitor pVisitor;
  std::intptr_t nUser;
  bool bStop;
  CProcessWalker* pWalker;
};

CProcessWalker::~CProcessWalker() = default;

// The slot that holds the pair, or the free one that it belongs in.
std::size_t CProcessWalker::SlotOf(std::string_view sFullPath, std::uint32_t nProcessId) const {
  const std::size_t nMask = m_slots.size() - 1;
  std::size_t nSlot = HashOf(sFullPath, nProcessId) & nMask;
  while (m_slots[nSlot] != 0) {
    const CProcessInfo& info = m_processes[m_slots[nSlot] - 1];
    if (info.m_nProcessId == nProcessId && info.GetFullName() == sFullPath) break;
    nSlot = (nSlot + 1) & nMask;
  }
  return nSlot;
}

void CProcessWalker::GrowIndex() {
  m_slots.assign(std::max(kFirstSlots, m_slots.size() * 2), 0);
  m_nSlotsUsed = 0;
  for (std::size_t i = 0; i < m_processes.size(); ++i) {
    const CProcessInfo& info = m_processes[i];
    std::uint32_t& nSlot = m_slots[SlotOf(info.GetFullName(), info.m_nProcessId)];
    if (nSlot != 0) continue;
    nSlot = static_cast<std::uint32_t>(i + 1);
    ++m_nSlotsUsed;
  }
}

void CProcessWalker::AddToArray(const CProcessInfo& info) {
  if (m_nSlotsUsed * 2 >= m_slots.size()) GrowIndex();
  m_processes.push_back(info);
  std::uint32_t& nSlot = m_slots[SlotOf(info.GetFullName(), info.m_nProcessId)];
  if (nSlot != 0) return;
  nSlot = static_cast<std::uint32_t>(m_processes.size());
  ++m_nSlotsUsed;
}

void CProcessWalker::Clear() {
  m_processes.clear();
  std::fill(m_slots.begin(), m_slots.end(), 0);
  m_nSlotsUsed = 0;
}

void CProcessWalker::AddOnce(const char* szFullPath, std::uint32_t nProcessId) {
  if (IsProcessInArray(szFullPath, nProcessId)) return;
  AddToArray(CProcessInfo(CString(View(szFullPath)), nProcessId));
}

bool CProcessWalker::LoadMemoryInformation() try {
  switch (CurrentPlatform().processes.PlatformId()) {
    case kPlatformSnapshots:
      return LoadToolHelpFuncPtrs() && GetWin9xProcessList();
    case kPlatformLists:
      return ProcessEnumeration(&LoadMemInfoDefaultProc, 0);
    default:
      return false;
  }
} catch (const std::bad_alloc&) {
  return false;
}

CProcessInfo CProcessWalker::GetAt(int nIndex) const {
  if (nIndex < 0 || nIndex >= Size()) return {};
  return m_processes[static_cast<std::size_t>(nIndex)];
}

int CProcessWalker::Find(const CString& sName) const {
  const auto it = std::find_if(
      m_processes.begin(), m_processes.end(),
      [&sName](const CProcessInfo& info) { return IsSameName(info.m_name.NameView(), sName); });
  return it != m_processes.end() ? static_cast<int>(it - m_processes.begin()) : -1;
}

bool CProcessWalker::IsProcessInArray(const CProcessInfo& info) const {
  return !m_slots.empty() && m_slots[SlotOf(info.GetFullName(), info.m_nProcessId)] != 0;
}

bool CProcessWalker::IsProcessInArray(const char* szFullPath, std::uint32_t nProcessId) const {
  return !m_slots.empty() && m_slots[SlotOf(View(szFullPath), nProcessId)] != 0;
}

bool CProcessWalker::LoadToolHelpFuncPtrs() {
  return m_toolHelp.Load();
}

bool CProcessWalker::GetWin9xProcessList() {
  std::vector<tagPROCESSENTRY32> processes;
  if (!CurrentPlatform().processes.SnapshotProcesses(processes)) return false;
  Clear();
  tagMODULEENTRY32 module;
  for (const tagPROCESSENTRY32& process : processes) {
    GetWin9xProcessModule(process.th32ProcessID, process.th32ModuleID, &module, sizeof module);
  }
  return !processes.empty();
}

bool CProcessWalker::GetWin9xProcessModule(std::uint32_t nProcessId, std::uint32_t,
                                           tagMODULEENTRY32* pEntry, std::uint32_t) {
  std::vector<tagMODULEENTRY32> modules;
  if (pEntry == nullptr || !CurrentPlatform().processes.SnapshotModules(nProcessId, modules)) {
    return false;
  }
  for (const tagMODULEENTRY32& module : modules) {
    *pEntry = module;
    pEntry->szExePath[sizeof pEntry->szExePath - 1] = '\0';
    AddOnce(pEntry->szExePath, nProcessId);
  }
  return true;
}

bool CProcessWalker::ProcessEnumeration(ProcessVisitor pVisitor, std::intptr_t nUser) {
  if (pVisitor == nullptr) return false;
  Processes& system = CurrentPlatform().processes;
  std::vector<std::uint32_t> ids(kFirstProcesses);
  std::size_t nCount = 0;
  // A list that fills its room may have been cut.
  for (;; ids.resize(ids.size() * 2)) {
    if (!system.EnumerateProcesses(ids, nCount)) return false;
    if (nCount < ids.size()) break;
  }
  ids.resize(nCount);

  Clear();
  std::vector<CString> modules;
  CString sPath;  // stays from one process to the next, as visitors are told
  for (const std::uint32_t nProcessId : ids) {
    if (system.EnumerateModules(nProcessId, modules)) {
      for (CString& sModule : modules) {
        sPath = std::move(sModule);
        AddOnce(sPath.c_str(), nProcessId);
      }
    }
    if (!pVisitor(nProcessId, 0, sPath.c_str(), nUser)) break;
    // A full path never is the bare name: only some systems give that for a virtual DOS machine.
    if (sPath != "NTVDM.EXE") continue;
    Walk16 walk{nProcessId, pVisitor, nUser, false, this};
    for (const Task16& task : system.EnumerateTasks16(nProcessId)) {
      if (ProcessEnumeration16Bit(task.nThread, task.nModule, task.nTask, task.sModule.c_str(),
                                  task.sFile.c_str(), reinterpret_cast<std::intptr_t>(&walk))) {
        break;
      }
    }
    if (walk.bStop) break;
  }
  return true;
}

bool CProcessWalker::ProcessEnumeration16Bit(std::uint32_t, std::uint16_t, std::uint16_t nTask,
                                             const char*, const char* szFile, std::intptr_t nUser) {
  Walk16* const pWalk = reinterpret_cast<Walk16*>(nUser);
  if (pWalk == nullptr) return true;
  const bool bGoOn = pWalk->pVisitor(pWalk->nProcessId, nTask, szFile, pWalk->nUser);
  // A refusal ends the tasks of this process only: visitors rely on seeing the processes behind it.
  if (!bGoOn) pWalk->bStop = false;
  pWalk->pWalker->AddOnce(szFile, pWalk->nProcessId);
  return !bGoOn;
}

bool CProcessWalker::LoadMemInfoDefaultProc(std::uint32_t, std::uint16_t, const char*,
                                            std::intptr_t) {
  return true;
}

CALWProcessScanner::~CALWProcessScanner() = default;

void CALWProcessScanner::AddToArray(const CProcessInfo& info) {
  CProcessWalker::AddToArray(info);
}

bool CALWProcessScanner::LoadMemoryInformation() {
  return CProcessWalker::LoadMemoryInformation();
}

void CALWProcessScanner::Add(const CString& sName) try {
  m_watched.push_back({sName, false});
} catch (const std::bad_alloc&) {
}

bool CALWProcessScanner::IsInMemory(const CString&) const {
  return false;
}

}  // namespace ald
