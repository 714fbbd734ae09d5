#include "aldlib/inspect/RunningPrograms.h"

#include <algorithm>
#include <iterator>
#include <new>
#include <string_view>
#include <utility>
#include <vector>

#include "aldlib/platform/Characters.h"
#include "aldlib/platform/Desktop.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/platform/Processes.h"

namespace ald {
namespace {

// The checks' own, as the walker has its own.
ToolHelpFunctions g_toolHelp;

Windows& DesktopWindows() {
  return CurrentPlatform().desktop.windows;
}

CString Capitals(std::string_view sText) {
  CString sCapitals(sText);
  for (char& ch : sCapitals) ch = ToUpperAscii(ch);
  return sCapitals;
}

bool IsInSnapshot(std::uint32_t nProcess, std::string_view sTag, CString& sProgram) {
  std::vector<tagPROCESSENTRY32> processes;
  if (!CurrentPlatform().processes.SnapshotProcesses(processes)) return false;
  const auto it = std::find_if(
      processes.begin(), processes.end(),
      [nProcess](const tagPROCESSENTRY32& entry) { return entry.th32ProcessID == nProcess; });
  if (it == processes.end()) return false;
  const std::string_view sFile(it->szExeFile,
                               std::find(it->szExeFile, std::end(it->szExeFile), '\0'));
  if (Capitals(sFile).find(sTag) == CString::npos) return false;
  sProgram = sFile;
  return true;
}

bool IsInModules(std::uint32_t nProcess, std::string_view sTag, CString& sProgram) {
  std::vector<CString> modules;
  if (!CurrentPlatform().processes.EnumerateModules(nProcess, modules)) return false;
  for (const CString& sModule : modules) {
    CString sCapitals = Capitals(sModule);
    // Any place but the very front, absence included: see the header.
    if (sCapitals.find(sTag) == 0) continue;
    sProgram = std::move(sCapitals);
    return true;
  }
  return false;
}

int Check(std::uint32_t nTask, std::string_view sTag, CString& sProgram) noexcept try {
  sProgram.clear();
  const std::vector<WindowHandle> windows = DesktopWindows().OfThread(nTask);
  if (windows.empty()) return 0;
  const std::uint32_t nProcess = DesktopWindows().ProcessOf(windows.front());
  switch (CurrentPlatform().processes.PlatformId()) {
    case kPlatformSnapshots:
      return g_toolHelp.Load() && IsInSnapshot(nProcess, sTag, sProgram) ? 1 : 0;
    case kPlatformLists:
      return IsInModules(nProcess, sTag, sProgram) ? 1 : 0;
    default:
      return 0;
  }
} catch (const std::bad_alloc&) {
  return 0;
}

}  // namespace

int CheckForPervasive(std::uint32_t nTask, CString& sProgram) noexcept {
  return Check(nTask, kPervasiveTag, sProgram);
}

int CheckForLedgEzy(std::uint32_t nTask, CString& sProgram) noexcept {
  return Check(nTask, kLedgEzyTag, sProgram);
}

int CheckForHourtally(std::uint32_t nTask) noexcept {
  CString sProgram;
  return Check(nTask, kHourtallyTag, sProgram);
}

WindowHandle CWindowFinder::ms_hFound{};

CWindowFinder::~CWindowFinder() = default;

CWnd* CWindowFinder::FindWindowUsingSubstring(const char* szText) noexcept try {
  ms_hFound = WindowHandle{};
  if (szText == nullptr) return nullptr;
  for (const WindowHandle hWindow : DesktopWindows().TopLevel()) {
    if (EnumWindowsCallback(hWindow, reinterpret_cast<std::intptr_t>(szText)) == 0) break;
  }
  return CWnd::FromHandle(ms_hFound);
} catch (const std::bad_alloc&) {
  return nullptr;
}

int CWindowFinder::EnumWindowsCallback(WindowHandle hWindow, std::intptr_t nText) {
  const CString sTitle = DesktopWindows().Text(hWindow);
  if (sTitle.find(reinterpret_cast<const char*>(nText)) == CString::npos) return 1;
  ms_hFound = hWindow;
  return 0;
}

}  // namespace ald
