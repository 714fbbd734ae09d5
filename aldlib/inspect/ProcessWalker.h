#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Framework.h"
#include "aldlib/platform/Processes.h"
#include "aldlib/platform/Types.h"

// What is loaded on the machine: each module of each process, with its full path and process id.
//
//   CProcessWalker walker;
//   if (walker.LoadMemoryInformation() && walker.Find("w3dbsmgr.exe") >= 0) ...  // it is running
//
// Paths have a drive letter and backslashes, "C:\usr\bin\bash". A walker belongs to one thread, and
// what it holds is as of its last snapshot. Processes may end while it is taken; they and those
// that may not be looked at are left out without a word.
namespace ald {

// The full path of a module.
class ALDLIB_EXPORT CProcessName {
 public:
  CProcessName() = default;
  explicit CProcessName(const CString& sFullPath) : m_sFullPath(sFullPath) {}
  CProcessName(const CProcessName& other) { AssignObject(other); }
  CProcessName& operator=(const CProcessName& other);
  virtual ~CProcessName();

  // Case counts.
  bool operator==(const CProcessName& other) const { return m_sFullPath == other.m_sFullPath; }

  const CString& GetFullPath() const { return m_sFullPath; }
  // The file name: what stands behind the last backslash. Of a path without one the last character
  // is lost; callers that pass bare names rely on the rest coming back as it always has.
  //   "C:\bin\led.exe" -> "led.exe"      "NTVDM.EXE" -> "NTVDM.EX"
  CString GetProcessName() const;
  // The folder, without the backslash at its end; empty if the path has none.
  CString GetProcessPath() const;

 protected:
  void AssignObject(const CProcessName& other) { m_sFullPath = other.m_sFullPath; }
  // Index of the last backslash, or -1.
  int FindPathNameBoundary() const;

 private:
  friend class CProcessWalker;
  std::string_view NameView() const;

  CString m_sFullPath;
};

// A module of a process.
class ALDLIB_EXPORT CProcessInfo : public CObject {
 public:
  CProcessInfo() = default;
  CProcessInfo(const CString& sFullPath, std::uint32_t nProcessId)
      : m_name(sFullPath), m_nProcessId(nProcessId) {}
  CProcessInfo(const CProcessInfo& other) : CObject(other) { AssignFromClass(other); }
  CProcessInfo& operator=(const CProcessInfo& other);
  ~CProcessInfo() override;
  CRuntimeClass* GetRuntimeClass() const override;

  // The same path, case included, in the same process.
  bool operator==(const CProcessInfo& other) const {
    return m_name == other.m_name && m_nProcessId == other.m_nProcessId;
  }

  const CString& GetFullName() const { return m_name.GetFullPath(); }
  CString GetName() const { return m_name.GetProcessName(); }
  CString GetPath() const { return m_name.GetProcessPath(); }
  std::uint32_t GetProcessId() const { return m_nProcessId; }

 private:
  friend class CProcessWalker;
  void AssignFromClass(const CProcessInfo& other);

  CProcessName m_name;
  std::uint32_t m_nProcessId = 0;
};

// Is shown each process in turn, and returns whether to go on. nTask is the number of a 16-bit
// task, 0 for a process itself. szPath is the module that was read last, so a process without any
// is shown with the path of one before it.
using ProcessVisitor = bool (*)(std::uint32_t nProcessId, std::uint16_t nTask, const char* szPath,
                                std::intptr_t nUser);

// Takes a snapshot of all modules. The time it takes is in proportion to their number.
class ALDLIB_EXPORT CProcessWalker {
 public:
  CProcessWalker() = default;
  CProcessWalker(const CProcessWalker&) = delete;
  CProcessWalker& operator=(const CProcessWalker&) = delete;

 protected:
  // Appends a copy. Every module of a snapshot comes through here, each pair of path and id once.
  virtual void AddToArray(const CProcessInfo& info);

 public:
  virtual ~CProcessWalker();

  // Replaces what the walker holds. False if the system does not let itself be looked at; the old
  // snapshot then stays.
  virtual bool LoadMemoryInformation();

  // The number of modules.
  int Size() const { return static_cast<int>(m_processes.size()); }
  // An index outside the array gives an empty path and process 0.
  CProcessInfo GetAt(int nIndex) const;

  // The first module whose file name is sName, in whatever case of the plain letters; -1 if there
  // is none. A library is found as well as a program.
  int Find(const CString& sName) const;

  bool IsProcessInArray(const CProcessInfo& info) const;
  bool IsProcessInArray(const char* szFullPath, std::uint32_t nProcessId) const;

 protected:
  // False if the system lacks one of the seven functions for snapshots.
  bool LoadToolHelpFuncPtrs();
  // The snapshot of a system of kPlatformSnapshots. False if there are no processes to be had; if
  // no snapshot could be taken at all, the old one stays.
  bool GetWin9xProcessList();
  // Adds the modules of one process; only its id counts. pEntry takes each module in turn. False if
  // no snapshot of it could be taken.
  bool GetWin9xProcessModule(std::uint32_t nProcessId, std::uint32_t nModuleId,
                             tagMODULEENTRY32* pEntry, std::uint32_t nSize);

  // The snapshot of a system of kPlatformLists, during which the visitor is shown each process. It
  // ends early when the visitor says so, and that is no failure.
  bool ProcessEnumeration(ProcessVisitor pVisitor, std::intptr_t nUser);
  // Shows a 16-bit task to the visitor and adds it. nUser is the walk that ProcessEnumeration is
  // on. Returns true if no more tasks of this process are wanted; the walk itself goes on.
  static bool ProcessEnumeration16Bit(std::uint32_t nThread, std::uint16_t nModule,
                                      std::uint16_t nTask, const char* szModule, const char* szFile,
                                      std::intptr_t nUser);
  // The visitor that sees all.
  static bool LoadMemInfoDefaultProc(std::uint32_t nProcessId, std::uint16_t nTask,
                                     const char* szPath, std::intptr_t nUser);

 private:
  struct Walk16;

  void Clear();
  void AddOnce(const char* szFullPath, std::uint32_t nProcessId);
  std::size_t SlotOf(std::string_view sFullPath, std::uint32_t nProcessId) const;
  void GrowIndex();

  ToolHelpFunctions m_toolHelp;
  std::vector<CProcessInfo> m_processes;
  // Open addressing: a slot holds an index into the array plus 1, or 0. A power of two long, and
  // never more than half full.
  std::vector<std::uint32_t> m_slots;
  std::size_t m_nSlotsUsed = 0;
};

// A walker with a list of names to watch for. The list is only kept: no snapshot is filtered by it.
class ALDLIB_EXPORT CALWProcessScanner : public CProcessWalker {
 protected:
  void AddToArray(const CProcessInfo& info) override;

 public:
  CALWProcessScanner() = default;
  ~CALWProcessScanner() override;

  bool LoadMemoryInformation() override;

  // Without memory the name is not added.
  void Add(const CString& sName);
  // Always false, also for what is running: Find has the answer.
  bool IsInMemory(const CString& sName) const;

 private:
  struct Watched {
    CString sName;
    bool bFlag;
  };
  std::vector<Watched> m_watched;
};

}  // namespace ald
