#include "aldlib/screens/WindowTable.h"

#include <algorithm>
#include <map>
#include <span>

#include "aldlib/frame/LibraryState.h"
#include "aldlib/platform/Platform.h"
#include "aldlib/platform/internal/NeverDestroyed.h"
#include "aldlib/screens/internal/EntriesInUse.h"
#include "aldlib/screens/internal/ForgetScreens.h"
#include "aldlib/text/Strings.h"

namespace ald {

constinit DataEntryManagerDataType DataEntryManagerData{};

namespace {

struct Table {
  WindowTableEntry* pEntries;
  std::uint16_t& nCount;
};

Table TableOf(bool bDialogTable) {
  DataEntryManagerDataType& data = DataEntryManagerData;
  return bDialogTable ? Table{data.dialogTable, data.nDialogs}
                      : Table{data.dataEntryTable, data.nDataEntries};
}

WindowTableEntry* FindWindow(WindowHandle hWindow, bool bDialogTable) {
  for (WindowTableEntry& entry : EntriesInUse(bDialogTable)) {
    if (entry.hWindow == hWindow) return &entry;
  }
  return nullptr;
}

std::map<WindowHandle, int>& DialogIds() {
  static const NeverDestroyed<std::map<WindowHandle, int>> s_ids;
  return *s_ids;
}

}  // namespace

// The host may have written the counts.
std::span<WindowTableEntry> EntriesInUse(bool bDialogTable) {
  const Table table = TableOf(bDialogTable);
  return {table.pEntries, std::min(table.nCount, kWindowTableSize)};
}

unsigned char AddWindowToTable(WindowHandle hWindow, std::uint16_t nMenuId, bool bDialogTable) {
  if (IsSystemFrozen() != 0) return 0;
  if (nMenuId != 0 && GetWindowFromMenu(nMenuId, bDialogTable) != WindowHandle{}) return 0;
  const Table table = TableOf(bDialogTable);
  if (table.nCount >= kWindowTableSize) return 0;
  WindowTableEntry& entry = table.pEntries[table.nCount];
  entry.hWindow = hWindow;
  entry.nMenuId = nMenuId;
  entry.nReserved = 0;
  ++table.nCount;
  return 1;
}

unsigned char AddWindowToTableForHelp(WindowHandle hWindow, std::uint16_t nMenuId) {
  if (AddWindowToTable(hWindow, nMenuId, false) == 0) return 0;
  // The first entry of the window, which is an older one if it was added twice.
  if (WindowTableEntry* pEntry = FindWindow(hWindow, false)) pEntry->bHandlesHelp = 1;
  return 1;
}

unsigned char RemoveWindowFromTable(WindowHandle hWindow, bool bDialogTable) {
  const std::span<WindowTableEntry> entries = EntriesInUse(bDialogTable);
  WindowTableEntry* const pEntry = FindWindow(hWindow, bDialogTable);
  if (pEntry == nullptr) return 0;
  std::move(pEntry + 1, entries.data() + entries.size(), pEntry);
  entries.back() = {};
  TableOf(bDialogTable).nCount = static_cast<std::uint16_t>(entries.size() - 1);
  return 1;
}

WindowHandle GetWindowFromMenu(std::uint16_t nMenuId, bool bDialogTable) {
  for (const WindowTableEntry& entry : EntriesInUse(bDialogTable)) {
    if (entry.nMenuId == nMenuId) return entry.hWindow;
  }
  return {};
}

std::uint16_t GetMenuFromWindow(WindowHandle hWindow, bool bDialogTable) {
  const WindowTableEntry* const pEntry = FindWindow(hWindow, bDialogTable);
  return pEntry != nullptr ? pEntry->nMenuId : std::uint16_t{0};
}

bool DataEntryTableHandleHelp(WindowHandle hWindow) {
  const WindowTableEntry* const pEntry = FindWindow(hWindow, false);
  return pEntry != nullptr && pEntry->bHandlesHelp != 0;
}

unsigned char IsSystemFrozen() {
  return DataEntryManagerData.bSystemFrozen != 0 ? 1 : 0;
}

bool IsWindowClassName(WindowHandle hWindow, const char* szClass) try {
  const CString sClass = CurrentPlatform().desktop.windows.ClassName(hWindow);
  return CompareStrNoCase(sClass.c_str(), szClass) == 0;
} catch (...) {
  return false;
}

void SetDialogID(WindowHandle hWindow, int nDialogId) try {
  DialogIds()[hWindow] = nDialogId;
} catch (...) {
}

int GetDialogID(WindowHandle hWindow) {
  const auto it = DialogIds().find(hWindow);
  return it != DialogIds().end() ? it->second : 0;
}

void RemoveWindowFromALWInternals(WindowHandle hWindow) {
  DialogIds().erase(hWindow);
}

int SetMyWindowData(WindowHandle hWindow, void* pData) {
  const auto nData = reinterpret_cast<std::intptr_t>(pData);
  return CurrentPlatform().desktop.windows.SetProperty(hWindow, WindowDataAtom(), nData) ? 1 : 0;
}

void* GetMyWindowData(WindowHandle hWindow) {
  if (hWindow == WindowHandle{}) return nullptr;
  return reinterpret_cast<void*>(
      CurrentPlatform().desktop.windows.Property(hWindow, WindowDataAtom()));
}

void* RemoveMyWindowData(WindowHandle hWindow) {
  return reinterpret_cast<void*>(
      CurrentPlatform().desktop.windows.RemoveProperty(hWindow, WindowDataAtom()));
}

void ForgetWindows() {
  DataEntryManagerData = {};
  DialogIds().clear();
}

}  // namespace ald
