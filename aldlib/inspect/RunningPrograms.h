#pragma once

#include <cstdint>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Framework.h"
#include "aldlib/platform/Types.h"

// Whether a task belongs to a known program, and a window by a part of its title. All of it looks
// at the top-level windows of the desktop, as far as that sees those of other programs.
namespace ald {

// The names in capitals that the programs' files are known by.
inline constexpr char kPervasiveTag[] = "W3DBSMGR";  // the database engine
inline constexpr char kLedgEzyTag[] = "LED";
inline constexpr char kHourtallyTag[] = "HOURTALL";

// Each returns 1 if the task is of the program, and 0 if not or if nothing can be learned. A task
// is the id of a thread; its first top-level window leads to its process. A task without windows
// gives 0. sProgram becomes the file that decided, in capitals where modules were looked at, or
// empty.
//
// What is compared depends on the system's family. With snapshots it is the name of the process's
// program, which must have the tag somewhere in it. With lists of modules it is their full paths,
// and a module counts whose path does *not begin* with the tag: as full paths begin with a drive,
// every process whose modules can be read matches at its first one. Callers rely on that answer;
// one that wants to know whether a program runs asks CProcessWalker::Find.
ALDLIB_EXPORT int CheckForPervasive(std::uint32_t nTask, CString& sProgram) noexcept;
ALDLIB_EXPORT int CheckForLedgEzy(std::uint32_t nTask, CString& sProgram) noexcept;
ALDLIB_EXPORT int CheckForHourtally(std::uint32_t nTask) noexcept;

// Finds a top-level window by a part of its title.
//
//   CWnd* pReport = CWindowFinder().FindWindowUsingSubstring("Trial Balance");
class ALDLIB_EXPORT CWindowFinder {
 public:
  CWindowFinder() = default;
  CWindowFinder(const CWindowFinder&) = default;
  CWindowFinder& operator=(const CWindowFinder&) = default;
  virtual ~CWindowFinder();

  // Returns the framework's object for the frontmost window whose title holds the text, in the same
  // case, or null. The empty text finds the frontmost window, a null text none. What was found is
  // kept for the process, so no second search may begin within this one.
  CWnd* FindWindowUsingSubstring(const char* szText) noexcept;

 private:
  // Shown each window; nText is the text's address. Returns 0 to stop.
  static int EnumWindowsCallback(WindowHandle hWindow, std::intptr_t nText);

  static WindowHandle ms_hFound;
};

}  // namespace ald
