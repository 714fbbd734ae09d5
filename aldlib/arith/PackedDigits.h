#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

// Twelve bytes of packed decimal, the stored form of every amount, and the small verbs on its
// digits.
//
// Digit 22 is the highest. Byte 0 holds digits 22 and 21, byte 10 digits 2 and 1, byte 11 digit 0
// and, in its low nibble, the sign: 0xD is negative, anything else is not. Nothing here knows of
// status, rounding or where the decimal point stands.
namespace ald::packed {

inline constexpr int kDigits = 23;
inline constexpr std::size_t kBytes = 12;
inline constexpr std::uint8_t kPositive = 0xF;
inline constexpr std::uint8_t kNegative = 0xD;

using Bytes = std::array<std::uint8_t, kBytes>;

// Plus zero.
inline constexpr Bytes kZero{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, kPositive};

constexpr std::size_t ByteOfDigit(int nDigit) {
  return kBytes - 1 - static_cast<std::size_t>(nDigit + 1) / 2;
}

constexpr int GetDigit(const Bytes& bytes, int nDigit) {
  const std::uint8_t nByte = bytes[ByteOfDigit(nDigit)];
  return nDigit % 2 == 0 ? nByte >> 4 : nByte & 0xF;
}

constexpr void SetDigit(Bytes& bytes, int nDigit, int nValue) {
  std::uint8_t& nByte = bytes[ByteOfDigit(nDigit)];
  const auto nNibble = static_cast<unsigned>(nValue) & 0xFU;
  nByte = static_cast<std::uint8_t>(nDigit % 2 == 0 ? (nByte & 0x0FU) | nNibble << 4
                                                    : (nByte & 0xF0U) | nNibble);
}

constexpr std::uint8_t GetSign(const Bytes& bytes) {
  return static_cast<std::uint8_t>(bytes[kBytes - 1] & 0xFU);
}
constexpr void SetSign(Bytes& bytes, std::uint8_t nSign) {
  bytes[kBytes - 1] = static_cast<std::uint8_t>((bytes[kBytes - 1] & 0xF0U) | nSign);
}
constexpr bool IsNegative(const Bytes& bytes) {
  return GetSign(bytes) == kNegative;
}

// Whether digits nFirst to nEnd - 1 are all zero.
constexpr bool AreZero(const Bytes& bytes, int nFirst, int nEnd) {
  for (int i = nFirst; i < nEnd; ++i) {
    if (GetDigit(bytes, i) != 0) return false;
  }
  return true;
}

constexpr void ClearDigits(Bytes& bytes, int nFirst, int nEnd) {
  for (int i = nFirst; i < nEnd; ++i) SetDigit(bytes, i, 0);
}

// Adds the digits of `other` to those of `bytes`; both signs are ignored and kept. Returns the
// carry out of the top digit.
constexpr bool AddDigits(Bytes& bytes, const Bytes& other) {
  int nCarry = 0;
  for (int i = 0; i < kDigits; ++i) {
    const int nSum = GetDigit(bytes, i) + GetDigit(other, i) + nCarry;
    nCarry = nSum > 9 ? 1 : 0;
    SetDigit(bytes, i, nSum - 10 * nCarry);
  }
  return nCarry != 0;
}

// Subtracts the digits of `other`, which must not be the larger.
constexpr void SubtractDigits(Bytes& bytes, const Bytes& other) {
  int nBorrow = 0;
  for (int i = 0; i < kDigits; ++i) {
    const int nDifference = GetDigit(bytes, i) - GetDigit(other, i) - nBorrow;
    nBorrow = nDifference < 0 ? 1 : 0;
    SetDigit(bytes, i, nDifference + 10 * nBorrow);
  }
}

// Moves every digit up (positive) or down (negative) and clears what is vacated. The sign stays.
constexpr void ShiftDigits(Bytes& bytes, int nPlaces) {
  const Bytes old = bytes;
  for (int i = 0; i < kDigits; ++i) {
    const bool bInside =
        nPlaces > -kDigits && nPlaces < kDigits && i - nPlaces >= 0 && i - nPlaces < kDigits;
    SetDigit(bytes, i, bInside ? GetDigit(old, i - nPlaces) : 0);
  }
}

// Stores the digits of a whole number from digit nFirst upward; what does not fit above is dropped.
constexpr void StoreWhole(Bytes& bytes, std::uint64_t nValue, int nFirst) {
  for (int i = nFirst; i < kDigits && nValue != 0; ++i, nValue /= 10) {
    SetDigit(bytes, i, static_cast<int>(nValue % 10));
  }
}

}  // namespace ald::packed
