#include "aldlib/platform/posix/PosixMachine.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>

namespace ald {
namespace {

constexpr unsigned kPlaceBits = 20;  // a million live blocks, and 4096 generations of each place
constexpr std::uint32_t kPlaceMask = (1U << kPlaceBits) - 1;
constexpr std::uint32_t kGenerationMask = ~0U >> kPlaceBits;
constexpr int kFatalExitStatus = 3;

// Volatile and in static storage, so that no compiler knows the quotient before the machine is
// asked.
volatile int g_nDividend = 1;
volatile int g_nDivisor = 0;
volatile int g_nQuotient;

// The fault is wanted: a sanitizer must not report it in the machine's stead.
#if defined(__GNUC__) || defined(__clang__)
__attribute__((noinline, no_sanitize("undefined")))
#endif
void DivideOneByZero() {
  g_nQuotient = g_nDividend / g_nDivisor;
}

void WriteAll(const char* pText, std::size_t nLength) {
  while (nLength > 0) {
    const ssize_t nWritten = ::write(STDERR_FILENO, pText, nLength);
    if (nWritten < 0 && errno == EINTR) continue;
    if (nWritten <= 0) return;  // there is nobody left to tell
    pText += nWritten;
    nLength -= static_cast<std::size_t>(nWritten);
  }
}

}  // namespace

PosixMachine::~PosixMachine() {
  for (std::size_t i = 0; i < m_nPlaces; ++i) std::free(m_pPlaces[i].pBlock);
  std::free(m_pPlaces);
}

MemoryHandle PosixMachine::Allocate(std::uint32_t nSize) {
  Place* const pPlace = FreePlace();
  if (pPlace == nullptr) return MemoryHandle{};
  pPlace->pBlock = std::calloc(std::max<std::size_t>(nSize, 1), 1);
  if (pPlace->pBlock == nullptr) return MemoryHandle{};
  pPlace->nLocks = 0;
  const auto nPlace = static_cast<std::uint32_t>(pPlace - m_pPlaces);
  m_nFirstFree = nPlace + 1;
  return MemoryHandle{(pPlace->nGeneration << kPlaceBits) | (nPlace + 1)};
}

void* PosixMachine::Lock(MemoryHandle hBlock) {
  Place* const pPlace = Find(hBlock);
  if (pPlace == nullptr) return nullptr;
  ++pPlace->nLocks;
  return pPlace->pBlock;
}

bool PosixMachine::Unlock(MemoryHandle hBlock) {
  Place* const pPlace = Find(hBlock);
  if (pPlace == nullptr || pPlace->nLocks == 0) return false;
  return --pPlace->nLocks > 0;
}

MemoryHandle PosixMachine::Free(MemoryHandle hBlock) {
  Place* const pPlace = Find(hBlock);
  if (pPlace == nullptr) return hBlock;
  std::free(pPlace->pBlock);
  pPlace->pBlock = nullptr;
  pPlace->nGeneration = (pPlace->nGeneration + 1) & kGenerationMask;
  m_nFirstFree = std::min(m_nFirstFree, static_cast<std::size_t>(pPlace - m_pPlaces));
  return MemoryHandle{};
}

void PosixMachine::RaiseDivisionFault() {
  DivideOneByZero();
  // Some machines answer such a division with a number: there the signal is sent instead.
  std::raise(SIGFPE);
}

void PosixMachine::FatalExit(const char* szText) {
  if (szText != nullptr) {
    WriteAll(szText, std::strlen(szText));
    WriteAll("\n", 1);
  }
  ::_exit(kFatalExitStatus);
}

PosixMachine::Place* PosixMachine::Find(MemoryHandle hBlock) {
  const auto nHandle = static_cast<std::uint32_t>(hBlock);
  const std::uint32_t nPlace = nHandle & kPlaceMask;
  if (nPlace == 0 || nPlace > m_nPlaces) return nullptr;
  Place& place = m_pPlaces[nPlace - 1];
  const bool bLive = place.pBlock != nullptr && place.nGeneration == nHandle >> kPlaceBits;
  return bLive ? &place : nullptr;
}

PosixMachine::Place* PosixMachine::FreePlace() {
  for (; m_nFirstFree < m_nPlaces; ++m_nFirstFree) {
    if (m_pPlaces[m_nFirstFree].pBlock == nullptr) return &m_pPlaces[m_nFirstFree];
  }
  const std::size_t nGrown = std::min<std::size_t>(m_nPlaces * 2 + 32, kPlaceMask);
  if (nGrown == m_nPlaces) return nullptr;
  void* const pGrown = std::realloc(m_pPlaces, nGrown * sizeof(Place));
  if (pGrown == nullptr) return nullptr;
  m_pPlaces = static_cast<Place*>(pGrown);
  std::fill(m_pPlaces + m_nPlaces, m_pPlaces + nGrown, Place{});
  m_nPlaces = nGrown;
  return &m_pPlaces[m_nFirstFree];
}

}  // namespace ald
