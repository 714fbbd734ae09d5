#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"

namespace ald {

// Families of systems, by what they offer for looking at processes.
constexpr std::uint32_t kPlatformSnapshots = 1;  // snapshots of processes and modules
constexpr std::uint32_t kPlatformLists = 2;  // lists of process ids, and of modules of one process

// A process in a snapshot, in the form that systems with snapshots hand it out. Texts are
// terminated.
struct tagPROCESSENTRY32 {
  std::uint32_t dwSize = 296;
  std::uint32_t cntUsage = 0;
  std::uint32_t th32ProcessID = 0;
  std::uint32_t th32DefaultHeapID = 0;
  std::uint32_t th32ModuleID = 0;
  std::uint32_t cntThreads = 0;
  std::uint32_t th32ParentProcessID = 0;
  std::int32_t pcPriClassBase = 0;
  std::uint32_t dwFlags = 0;
  char szExeFile[260] = {};  // the program's file
};
static_assert(sizeof(tagPROCESSENTRY32) == 296);

// A module of a process in a snapshot.
struct tagMODULEENTRY32 {
  std::uint32_t dwSize = 548;
  std::uint32_t th32ModuleID = 0;
  std::uint32_t th32ProcessID = 0;
  std::uint32_t GlblcntUsage = 0;
  std::uint32_t ProccntUsage = 0;
  std::uint32_t modBaseAddr = 0;
  std::uint32_t modBaseSize = 0;
  std::uint32_t hModule = 0;
  char szModule[256] = {};
  char szExePath[260] = {};  // its full path
};
static_assert(sizeof(tagMODULEENTRY32) == 548);

// A 16-bit task inside a process that is a virtual DOS machine.
struct Task16 {
  std::uint32_t nThread = 0;
  std::uint16_t nModule = 0;
  std::uint16_t nTask = 0;
  CString sModule;
  CString sFile;
};

// Returns the free part of a resource in percent; the selector is 0 for the system, 1 for drawing
// objects, 2 for windows and menus.
using ResourceMeterFunction = int (*)(int nSelector);

// What the library asks of the system about other processes. Every path has a drive letter and
// backslashes. The list of processes changes while it is read: who asks for the modules of a
// process may learn that it is gone.
class ALDLIB_EXPORT Processes {
 public:
  virtual ~Processes() = default;

  // One of the families above; 0 if it cannot be told. Families yet unknown have other numbers.
  virtual std::uint32_t PlatformId() = 0;

  // Writes the ids of the processes to the front of `ids` and their number, which is at most the
  // room there is, to nCount. False if there is no list to be had.
  virtual bool EnumerateProcesses(std::span<std::uint32_t> ids, std::size_t& nCount) = 0;

  // Fills `paths` with the modules of a process: the program, and then the libraries and whatever
  // else of files holds code of it. A module may come twice. False, with `paths` empty, if the
  // process has ended, has no program or may not be looked at.
  virtual bool EnumerateModules(std::uint32_t nProcess, std::vector<CString>& paths) = 0;

  // The rest is what only some systems have. Where it is not overridden there is none of it.

  // The 16-bit tasks of a process.
  virtual std::vector<Task16> EnumerateTasks16(std::uint32_t nProcess);

  // Whether the system offers a function of that name for its snapshots.
  virtual bool HasToolHelp(const char* szFunction);
  // False if no snapshot can be taken.
  virtual bool SnapshotProcesses(std::vector<tagPROCESSENTRY32>& processes);
  virtual bool SnapshotModules(std::uint32_t nProcess, std::vector<tagMODULEENTRY32>& modules);

  // Loads the library that measures resources and returns its handle, 0 if there is none. pRead
  // becomes null if the library lacks the function.
  virtual ModuleHandle LoadResourceMeter(ResourceMeterFunction& pRead);
  virtual void FreeResourceMeter(ModuleHandle hLibrary);
};

// Which of the functions for snapshots the system has.
struct ToolHelpFunctions {
  bool CreateToolhelp32Snapshot = false;
  bool Module32First = false;
  bool Module32Next = false;
  bool Process32First = false;
  bool Process32Next = false;
  bool Thread32First = false;  // wanted, though nothing calls the two
  bool Thread32Next = false;

  // Asks the platform in use for all seven; returns whether each of them is there.
  ALDLIB_EXPORT bool Load();
};

}  // namespace ald
