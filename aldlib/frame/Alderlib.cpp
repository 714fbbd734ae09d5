#include "aldlib/frame/Alderlib.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "aldlib/frame/LibraryState.h"
#include "aldlib/frame/MemStore.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

struct Registry {
  ModuleHandle ahModules[kModuleIdCount];
  void* apData[kModuleIdCount];
};

constinit AlderLibDataType g_record{};
constinit Registry g_registry{};
constinit ModuleHandle g_hLibrary{};

// The search list that was made here, and its entries: what a host has put in its place is trusted.
constinit const InstanceSearchEntry* g_pOwnTable = nullptr;
constinit std::uint16_t g_nOwnEntries = 0;

constinit Atom g_nWindowDataAtom{};
constinit Atom g_nNoPrefixSaveAtom{};

bool IsModuleId(ModuleId eModule) {
  const auto nModule = static_cast<std::int32_t>(eModule);
  return nModule >= 0 && nModule < kModuleIdCount;
}

}  // namespace

constinit AlderLibDataType* MyAlderLibDataPtr = &g_record;

void InitAlderLibDLL() {
  CurrentPlatform().resources.LinkExtension(g_hLibrary);
}

ModuleHandle AlderLibHandle() {
  return g_hLibrary;
}

std::int32_t RequirePerInstanceData(ModuleHandle hModule, ModuleId eModule, void* pData) {
  if (IsModuleId(eModule)) {
    g_registry.ahModules[static_cast<std::size_t>(eModule)] = hModule;
    g_registry.apData[static_cast<std::size_t>(eModule)] = pData;
  }
  return 1;
}

void* GetPerInstanceData(ModuleId eModule) {
  return IsModuleId(eModule) ? g_registry.apData[static_cast<std::size_t>(eModule)] : nullptr;
}

ModuleHandle GetLibraryHandle(ModuleId eModule) {
  return IsModuleId(eModule) ? g_registry.ahModules[static_cast<std::size_t>(eModule)]
                             : ModuleHandle{};
}

void RegisterInstanceForStringSearch(ModuleHandle hModule, std::int16_t nSearchOrder) {
  AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  if (pRecord == nullptr || pRecord->nInstances == std::numeric_limits<std::uint16_t>::max()) {
    return;
  }
  // Counted before there is a place for it: the application sees how many modules asked to be
  // searched, also when memory has run out.
  const std::size_t nInstances = ++pRecord->nInstances;
  void* const pOld = pRecord->pInstanceTable;
  const auto nSize = static_cast<std::uint32_t>(nInstances * sizeof(InstanceSearchEntry));
  void* const pNew = _RealReAllocate(pOld, nSize);
  pRecord->pInstanceTable = static_cast<InstanceSearchEntry*>(pNew);
  if (pNew == nullptr) {
    _RealDeAllocate(pOld);
    return;
  }
  InstanceSearchEntry* const pTable = pRecord->pInstanceTable;
  g_pOwnTable = pTable;
  g_nOwnEntries = pRecord->nInstances;
  pTable[nInstances - 1] = {hModule, nSearchOrder};
  std::sort(pTable, pTable + nInstances,
            [](const InstanceSearchEntry& left, const InstanceSearchEntry& right) {
              return left.nSearchOrder < right.nSearchOrder;
            });
}

void WeBecomeActive() {
  if (MyAlderLibDataPtr != nullptr) MyAlderLibDataPtr->bWeAreActive = 1;
}

void WeBecomeInactive() {
  if (MyAlderLibDataPtr != nullptr) MyAlderLibDataPtr->bWeAreActive = 0;
}

AlderLibDataType& LibraryRecord() {
  return g_record;
}

void KeepLibraryHandle(ModuleHandle hModule) {
  g_hLibrary = hModule;
}

std::span<const InstanceSearchEntry> SearchedModules() {
  const AlderLibDataType* const pRecord = MyAlderLibDataPtr;
  if (pRecord == nullptr || pRecord->pInstanceTable == nullptr) return {};
  std::uint16_t nEntries = pRecord->nInstances;
  if (pRecord->pInstanceTable == g_pOwnTable) nEntries = std::min(nEntries, g_nOwnEntries);
  return {pRecord->pInstanceTable, nEntries};
}

void ReleaseInstanceTable() {
  _RealDeAllocate(g_record.pInstanceTable);
  g_record.pInstanceTable = nullptr;
}

void AddWindowAtoms() {
  Resources& resources = CurrentPlatform().resources;
  g_nWindowDataAtom = resources.AddAtom("WINDOW_DATA_PTR");
  g_nNoPrefixSaveAtom = resources.AddAtom("SS_NOPREFIX SAVE AREA");
}

void DeleteWindowAtoms() {
  Resources& resources = CurrentPlatform().resources;
  resources.DeleteAtom(std::exchange(g_nWindowDataAtom, Atom{}));
  resources.DeleteAtom(std::exchange(g_nNoPrefixSaveAtom, Atom{}));
}

Atom WindowDataAtom() {
  return g_nWindowDataAtom;
}

Atom NoPrefixSaveAtom() {
  return g_nNoPrefixSaveAtom;
}

}  // namespace ald
