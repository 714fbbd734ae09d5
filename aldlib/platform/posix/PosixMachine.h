#pragma once

#include <cstddef>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Machine.h"

namespace ald {

// The machine as a POSIX system has it. A moveable block is a plain one that stays where it is.
class ALDLIB_EXPORT PosixMachine : public Machine {
 public:
  PosixMachine() = default;
  PosixMachine(const PosixMachine&) = delete;
  PosixMachine& operator=(const PosixMachine&) = delete;
  ~PosixMachine() override;

  MemoryHandle Allocate(std::uint32_t nSize) override;
  void* Lock(MemoryHandle hBlock) override;
  bool Unlock(MemoryHandle hBlock) override;
  MemoryHandle Free(MemoryHandle hBlock) override;
  void RaiseDivisionFault() override;
  [[noreturn]] void FatalExit(const char* szText) override;

 private:
  // A handle is the place in the table plus one, and above that the place's generation, so that the
  // handle of a freed block does not reach the one that took its place.
  struct Place {
    void* pBlock;
    std::uint32_t nLocks;
    std::uint32_t nGeneration;
  };

  Place* Find(MemoryHandle hBlock);
  Place* FreePlace();

  // Grown with realloc, since running out of memory is an answer here and not an exception.
  Place* m_pPlaces = nullptr;
  std::size_t m_nPlaces = 0;
  std::size_t m_nFirstFree = 0;  // no place before this one is free
};

}  // namespace ald
