#pragma once

#include <cstdint>

namespace ald {

// Names a message in one of two ways: by its number (0 to 65535) in the string tables, or by the
// address of the text itself. Any bit above the low 16 makes it an address. The low 16 bits serve
// as the number even then, where a number is needed.
using MessageArgument = std::intptr_t;

constexpr std::uintptr_t kMessageNumberMask = 0xFFFF;

constexpr MessageArgument MessageByNumber(std::uint16_t nMessage) {
  return nMessage;
}

// A null text is message number 0.
inline MessageArgument MessageByText(const char* szText) {
  return reinterpret_cast<MessageArgument>(szText);
}

constexpr bool IsMessageText(MessageArgument message) {
  return (static_cast<std::uintptr_t>(message) & ~kMessageNumberMask) != 0;
}

constexpr std::uint16_t MessageNumber(MessageArgument message) {
  return static_cast<std::uint16_t>(static_cast<std::uintptr_t>(message) & kMessageNumberMask);
}

// Returns the text, or null for a number.
inline const char* MessageText(MessageArgument message) {
  return IsMessageText(message) ? reinterpret_cast<const char*>(message) : nullptr;
}

}  // namespace ald
