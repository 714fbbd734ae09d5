#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "aldlib/text/FixedString.h"

// The few steps that the routines over a CFixedStringParamRef share. Not part of the interface.
namespace ald {

// Is there a byte to write to?
[[nodiscard]] inline bool HasRoom(const CFixedStringParamRef& ref) noexcept {
  return ref.buffer != nullptr && ref.size >= 1;
}

[[nodiscard]] inline std::size_t Bytes(std::int32_t nCount) noexcept {
  return static_cast<std::size_t>(nCount);
}

// Length of the text, at most size - 1: in a buffer that has lost its terminator, the last byte
// counts as one.
[[nodiscard]] inline std::int32_t LengthIn(const CFixedStringParamRef& ref) noexcept {
  return TextLength(ref.buffer, ref.size - 1);
}

// Zeroes everything from nIndex on, which lies inside the buffer.
inline void ZeroFrom(const CFixedStringParamRef& ref, std::int32_t nIndex) noexcept {
  std::memset(ref.buffer + nIndex, 0, Bytes(ref.size - nIndex));
}

}  // namespace ald
