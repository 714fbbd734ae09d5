#include "aldlib/frame/MemStore.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "aldlib/frame/MessageDoor.h"
#include "aldlib/frame/internal/MemStoreFailures.h"
#include "aldlib/platform/Platform.h"

namespace ald {
namespace {

using SizeWord = std::uint32_t;

// The size word is the last thing in the header, and the header keeps the payload aligned.
constexpr std::size_t kHeaderSize = alignof(std::max_align_t);
static_assert(kHeaderSize >= sizeof(SizeWord));

constinit std::uint32_t g_nAllocationsToFailure = 0;
constinit bool g_bShowingNoMemory = false;

bool IsMadeToFail() {
  return g_nAllocationsToFailure > 0 && --g_nAllocationsToFailure == 0;
}

char* HeaderOf(void* pBlock) {
  return static_cast<char*>(pBlock) - kHeaderSize;
}

SizeWord PayloadSize(const void* pBlock) {
  SizeWord nWord = 0;
  std::memcpy(&nWord, static_cast<const char*>(pBlock) - sizeof nWord, sizeof nWord);
  return nWord - static_cast<SizeWord>(sizeof nWord);
}

void* AllocateBlock(std::uint32_t nSize) {
  if (nSize > std::numeric_limits<SizeWord>::max() - sizeof(SizeWord)) return nullptr;
  std::size_t nWhole = 0;
  if (__builtin_add_overflow(kHeaderSize, nSize, &nWhole)) return nullptr;
  if (IsMadeToFail()) return nullptr;
  char* const pHeader = static_cast<char*>(std::calloc(nWhole, 1));
  if (pHeader == nullptr) return nullptr;
  char* const pBlock = pHeader + kHeaderSize;
  const auto nWord = static_cast<SizeWord>(nSize + sizeof(SizeWord));
  std::memcpy(pBlock - sizeof nWord, &nWord, sizeof nWord);
  return pBlock;
}

}  // namespace

void* _RealAllocate(std::uint32_t nSize) {
  void* const pBlock = AllocateBlock(std::max<std::uint32_t>(nSize, 1));
  if (pBlock == nullptr) ShowNoMemory();
  return pBlock;
}

void* _RealDeAllocate(void* pBlock) {
  if (pBlock != nullptr) std::free(HeaderOf(pBlock));
  return nullptr;
}

void* _RealReAllocate(void* pBlock, std::uint32_t nNewSize) {
  void* const pNew = _RealAllocate(nNewSize);
  if (pNew == nullptr || pBlock == nullptr) return pNew;
  std::memcpy(pNew, pBlock, std::min(PayloadSize(pBlock), PayloadSize(pNew)));
  _RealDeAllocate(pBlock);
  return pNew;
}

int _CppAllocate(void** ppBlock, std::uint32_t nSize, const char*, int) {
  if (ppBlock == nullptr) return 0;
  *ppBlock = _RealAllocate(nSize);
  return *ppBlock != nullptr ? 1 : 0;
}

int _CppReAllocate(void** ppOld, void** ppBlock, std::uint32_t nNewSize, const char*, int) {
  if (ppOld == nullptr || ppBlock == nullptr) return 0;
  *ppBlock = _RealReAllocate(*ppOld, nNewSize);
  return *ppBlock != nullptr ? 1 : 0;
}

void* _OldAllocate(MemoryHandle* phBlock, std::uint32_t nSize) {
  if (phBlock == nullptr) return nullptr;
  *phBlock = AllocateHandle(nSize);
  void* const pBlock = CurrentPlatform().machine.Lock(*phBlock);
  if (pBlock == nullptr) ShowNoMemory();
  return pBlock;
}

void OldDeAllocate(MemoryHandle* phBlock) {
  if (phBlock == nullptr) return;
  Machine& machine = CurrentPlatform().machine;
  if (machine.Unlock(*phBlock)) EndOnMisuse(kMessageStillLocked);
  *phBlock = machine.Free(*phBlock);
}

void FailAllocation(std::uint32_t nCount) {
  g_nAllocationsToFailure = nCount;
}

MemoryHandle AllocateHandle(std::uint32_t nSize) {
  return IsMadeToFail() ? MemoryHandle{} : CurrentPlatform().machine.Allocate(nSize);
}

void ShowNoMemory() {
  if (g_bShowingNoMemory) return;
  g_bShowingNoMemory = true;
  CurrentMessageDoor().Show(kMessageNoMemory);
  g_bShowingNoMemory = false;
}

void EndOnMisuse(std::uint32_t nMessage) {
  MessageDoor& door = CurrentMessageDoor();
  door.Show(nMessage);
  door.Show(kMessageCallSupport);
  CurrentPlatform().machine.FatalExit("Problem detected in MemStore");
  std::abort();  // FatalExit is back only if a platform breaks its promise
}

}  // namespace ald
