#include "aldlib/text/DynamicHeapFixedString.h"

#include <cstring>

#include "aldlib/frame/MemStore.h"

namespace ald {
namespace {

// The word ahead of the characters: their number.
constexpr std::uint32_t kCountBytes = sizeof(std::uint32_t);

}  // namespace

CDynamicHeapFixedString::CDynamicHeapFixedString(std::int32_t nSize) {
  if (nSize < 1) return;
  const auto nCount = static_cast<std::uint32_t>(nSize);
  auto* const pBlock = static_cast<char*>(_RealAllocate(kCountBytes + nCount));
  if (pBlock == nullptr) return;
  std::memcpy(pBlock, &nCount, sizeof(nCount));
  buffer = pBlock + kCountBytes;
  size = nSize;
}

CDynamicHeapFixedString::~CDynamicHeapFixedString() {
  if (buffer != nullptr) _RealDeAllocate(buffer - kCountBytes);
}

}  // namespace ald
