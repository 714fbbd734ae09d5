#include "aldlib/frame/WindowMemory.h"

#include <algorithm>

#include "aldlib/frame/internal/MemStoreFailures.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

struct Entry {
  WindowHandle hWindow;
  MemoryHandle hBlock;
};

constexpr std::uint16_t kMaxEntries = 20;

// The entries in use stand without a hole from the first place on.
struct Table {
  Entry aEntries[kMaxEntries];
  std::uint16_t nEntries;
  std::uint16_t nHighWater;
};

constinit Table g_table{};

Entry* EntriesEnd() {
  return g_table.aEntries + g_table.nEntries;
}

// Returns the window's entry, or null.
Entry* Find(WindowHandle hWindow) {
  Entry* const pFound = std::find_if(g_table.aEntries, EntriesEnd(),
                                     [&](const Entry& entry) { return entry.hWindow == hWindow; });
  return pFound != EntriesEnd() ? pFound : nullptr;
}

}  // namespace

unsigned char CreateMem(WindowHandle hWindow, std::uint32_t nSize) {
  if (Find(hWindow) != nullptr) EndOnMisuse(kMessageDuplicateCreate);
  if (g_table.nEntries >= kMaxEntries) EndOnMisuse(kMessageNoMemory);
  if (g_table.nEntries >= g_table.nHighWater) ++g_table.nHighWater;
  // The entry is there even when its block is not: DeleteMem of this window must find it.
  Entry& entry = g_table.aEntries[g_table.nEntries++];
  entry = {hWindow, AllocateHandle(nSize)};
  if (entry.hBlock != MemoryHandle{}) return 1;
  ShowNoMemory();
  return 0;
}

void DeleteMem(WindowHandle hWindow) {
  Entry* const pEntry = Find(hWindow);
  if (pEntry == nullptr) EndOnMisuse(kMessageDeleteWithoutCreate);
  pEntry->hBlock = CurrentPlatform().machine.Free(pEntry->hBlock);
  if (pEntry->hBlock != MemoryHandle{}) return;
  std::move(pEntry + 1, EntriesEnd(), pEntry);
  g_table.aEntries[--g_table.nEntries] = {};
}

void* LockMem(WindowHandle hWindow) {
  const Entry* const pEntry = Find(hWindow);
  return pEntry != nullptr ? CurrentPlatform().machine.Lock(pEntry->hBlock) : nullptr;
}

void UnLockMem(WindowHandle hWindow) {
  const Entry* const pEntry = Find(hWindow);
  if (pEntry != nullptr) CurrentPlatform().machine.Unlock(pEntry->hBlock);
}

std::uint16_t WindowMemoryHighWater() {
  return g_table.nHighWater;
}

void StartWindowMemory() {
  g_table = {};
}

void EndWindowMemory() {
  Machine& machine = CurrentPlatform().machine;
  for (Entry* pEntry = g_table.aEntries; pEntry != EntriesEnd(); ++pEntry) {
    machine.Free(pEntry->hBlock);
  }
  g_table = {};
}

}  // namespace ald
