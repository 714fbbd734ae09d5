#pragma once

#include <QKeyEvent>
#include <cstdint>

#include "aldlib/platform/Types.h"

namespace ald {

// The number of a key that types only what it brings along, as a character from an input method.
constexpr std::uint32_t kKeyPacket = 0xE7;

// The virtual key number of a key press; kKeyPacket for a key without one.
std::uint32_t KeyNumberOf(const QKeyEvent& key);

// Whether the key stands for characters that can be seen, of any code page.
bool IsCharacter(const QKeyEvent& key);

// What the key types: characters that can be seen, or the control character of the return, tab,
// escape and backspace keys. Nothing for a key that moves, for one held with Control, and for a
// character outside code page 1252.
CString TypedTextOf(const QKeyEvent& key);

// The visible characters of the text that code page 1252 has.
CString TypableTextOf(const QString& text);

}  // namespace ald
