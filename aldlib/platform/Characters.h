#pragma once

#include <concepts>
#include <string>
#include <string_view>

#include "aldlib/platform/Export.h"

// What the library knows of single characters, whatever locale the process has set.
//
// Every text of the library is bytes of code page 1252. Functions named Char... and IsChar... know
// all of its letters; those named ...Ascii know the plain ones only, and leave the bytes from 128
// on alone. Code page 1252 gives no character to 0x81, 0x8D, 0x8F, 0x90 and 0x9D.
namespace ald {

// A character, read as the byte 0 to 255 that it is.
template <typename T>
concept CharacterByte = std::same_as<T, char> || std::same_as<T, unsigned char>;

namespace internal {

struct CharacterTables {
  unsigned char anUpper[256];
  unsigned char anLower[256];
  bool abAlpha[256];
  bool abAlphaNumeric[256];
};

consteval CharacterTables MakeCharacterTables() {
  CharacterTables tables{};
  for (int i = 0; i < 256; ++i) {
    tables.anUpper[i] = tables.anLower[i] = static_cast<unsigned char>(i);
  }
  const auto addPair = [&tables](int nUpper, int nLower) {
    tables.anUpper[nLower] = static_cast<unsigned char>(nUpper);
    tables.anLower[nUpper] = static_cast<unsigned char>(nLower);
    tables.abAlpha[nUpper] = tables.abAlpha[nLower] = true;
  };
  for (int i = 'A'; i <= 'Z'; ++i) addPair(i, i + 32);
  for (int i = 0xC0; i <= 0xDE; ++i) {
    if (i != 0xD7) addPair(i, i + 32);  // the multiplication sign, with the division sign below it
  }
  addPair(0x8A, 0x9A);  // S with caron
  addPair(0x8C, 0x9C);  // OE
  addPair(0x8E, 0x9E);  // Z with caron
  addPair(0x9F, 0xFF);  // Y with diaeresis

  // Letters of one case: f with hook, modifier circumflex, feminine ordinal, micro, masculine
  // ordinal, sharp s.
  for (int i : {0x83, 0x88, 0xAA, 0xB5, 0xBA, 0xDF}) tables.abAlpha[i] = true;

  for (int i = 0; i < 256; ++i) tables.abAlphaNumeric[i] = tables.abAlpha[i];
  for (int i = '0'; i <= '9'; ++i) tables.abAlphaNumeric[i] = true;
  for (int i : {0xB2, 0xB3, 0xB9}) tables.abAlphaNumeric[i] = true;  // superscript 2, 3, 1
  return tables;
}

inline constexpr CharacterTables kCharacters = MakeCharacterTables();

}  // namespace internal

// The other case of a letter; a character without one as it is.
template <CharacterByte T>
[[nodiscard]] constexpr T CharUpper(T ch) noexcept {
  return static_cast<T>(internal::kCharacters.anUpper[static_cast<unsigned char>(ch)]);
}
template <CharacterByte T>
[[nodiscard]] constexpr T CharLower(T ch) noexcept {
  return static_cast<T>(internal::kCharacters.anLower[static_cast<unsigned char>(ch)]);
}

// Letters, accented ones and the ordinal signs included.
template <CharacterByte T>
[[nodiscard]] constexpr bool IsCharAlpha(T ch) noexcept {
  return internal::kCharacters.abAlpha[static_cast<unsigned char>(ch)];
}
// Letters and digits, the three superscript ones included.
template <CharacterByte T>
[[nodiscard]] constexpr bool IsCharAlphaNumeric(T ch) noexcept {
  return internal::kCharacters.abAlphaNumeric[static_cast<unsigned char>(ch)];
}

template <CharacterByte T>
[[nodiscard]] constexpr T ToUpperAscii(T ch) noexcept {
  return ch >= 'a' && ch <= 'z' ? static_cast<T>(ch - 32) : ch;
}
template <CharacterByte T>
[[nodiscard]] constexpr T ToLowerAscii(T ch) noexcept {
  return ch >= 'A' && ch <= 'Z' ? static_cast<T>(ch + 32) : ch;
}
// Space, tab, line feed, vertical tab, form feed and carriage return.
template <CharacterByte T>
[[nodiscard]] constexpr bool IsSpaceAscii(T ch) noexcept {
  return ch == ' ' || (ch >= '\t' && ch <= '\r');
}
template <CharacterByte T>
[[nodiscard]] constexpr bool IsDigitAscii(T ch) noexcept {
  return ch >= '0' && ch <= '9';
}

// The same text as UTF-8, for whoever shows it. Each of the five bytes without a character becomes
// the control character of its number, so that the way back gives every text again.
// Returns an empty text when memory runs out.
[[nodiscard]] ALDLIB_EXPORT std::string Utf8FromCodePage1252(std::string_view sText) noexcept;

// The way back. What code page 1252 has no place for, and each piece that is not UTF-8, becomes
// '?'. Returns an empty text when memory runs out.
[[nodiscard]] ALDLIB_EXPORT std::string CodePage1252FromUtf8(std::string_view sText) noexcept;

}  // namespace ald
