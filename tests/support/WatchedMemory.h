#pragma once

#include <cstdlib>
#include <new>

// Puts the program's operator new under watch. The operators are defined here, so one source of a
// program includes this. They are not inlined: the compiler would see free() on what new returned.
namespace ald {

inline constinit long g_nAllocations = 0;   // how often memory was asked for
inline constinit bool g_bNoMemory = false;  // refuse it from now on
inline constinit long g_nRefused = 0;       // or only where g_nAllocations comes to be this

inline void* TakeMemory(std::size_t nBytes) {
  ++g_nAllocations;
  const bool bRefused = g_bNoMemory || g_nAllocations == g_nRefused;
  void* const pBytes = bRefused ? nullptr : std::malloc(nBytes != 0 ? nBytes : 1);
  if (pBytes == nullptr) throw std::bad_alloc();
  return pBytes;
}

// Does the work with its first allocation refused, then with its second, and so on until nothing is
// refused; looks at the result each time, told whether it was. Returns how many were.
template <class Work, class Check>
int RefuseEach(Work work, Check check) {
  for (int nRefused = 1;; ++nRefused) {
    g_nRefused = g_nAllocations + nRefused;
    work();
    const bool bRefused = g_nAllocations >= g_nRefused;
    g_nRefused = 0;
    check(bRefused);
    if (!bRefused) return nRefused - 1;
  }
}

}  // namespace ald

[[gnu::noinline]] void* operator new(std::size_t nBytes) {
  return ald::TakeMemory(nBytes);
}
[[gnu::noinline]] void* operator new[](std::size_t nBytes) {
  return ald::TakeMemory(nBytes);
}
[[gnu::noinline]] void* operator new(std::size_t nBytes, const std::nothrow_t&) noexcept try {
  return ald::TakeMemory(nBytes);
} catch (const std::bad_alloc&) {
  return nullptr;
}
[[gnu::noinline]] void* operator new[](std::size_t nBytes, const std::nothrow_t&) noexcept try {
  return ald::TakeMemory(nBytes);
} catch (const std::bad_alloc&) {
  return nullptr;
}
[[gnu::noinline]] void operator delete(void* pBytes) noexcept {
  std::free(pBytes);
}
[[gnu::noinline]] void operator delete[](void* pBytes) noexcept {
  std::free(pBytes);
}
[[gnu::noinline]] void operator delete(void* pBytes, std::size_t) noexcept {
  std::free(pBytes);
}
[[gnu::noinline]] void operator delete[](void* pBytes, std::size_t) noexcept {
  std::free(pBytes);
}
