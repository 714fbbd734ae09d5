#include "aldlib/platform/Characters.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <new>

namespace ald {
namespace {

// The bytes 0x80 to 0x9F. Below and above them the page is Unicode's own first 256 characters.
constexpr std::array<char16_t, 32> kMiddle = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

char ByteOf(char32_t ch) {
  if (ch < 0x80 || (ch >= 0xA0 && ch <= 0xFF)) return static_cast<char>(ch);
  const auto pFound = std::find(kMiddle.begin(), kMiddle.end(), ch);
  return pFound == kMiddle.end() ? '?' : static_cast<char>(0x80 + (pFound - kMiddle.begin()));
}

constexpr char32_t kIllFormed = 0xFFFD;

// Takes one character off the front of a text that is not empty. Of an ill-formed sequence it takes
// the part that could have begun a character, so that the next one is not lost with it.
char32_t TakeCharacter(std::string_view* psText) {
  const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>((*psText)[i]); };
  const unsigned char nLead = byteAt(0);
  std::size_t nMore = 0;      // bytes that must follow
  unsigned char nLow = 0x80;  // range of the first of them: no long forms, no surrogates
  unsigned char nHigh = 0xBF;
  char32_t ch = nLead;
  if (nLead < 0x80) {
    // a plain character
  } else if (nLead >= 0xC2 && nLead <= 0xDF) {
    nMore = 1;
    ch = nLead & 0x1FU;
  } else if (nLead >= 0xE0 && nLead <= 0xEF) {
    nMore = 2;
    ch = nLead & 0x0FU;
    if (nLead == 0xE0) nLow = 0xA0;
    if (nLead == 0xED) nHigh = 0x9F;
  } else if (nLead >= 0xF0 && nLead <= 0xF4) {
    nMore = 3;
    ch = nLead & 0x07U;
    if (nLead == 0xF0) nLow = 0x90;
    if (nLead == 0xF4) nHigh = 0x8F;
  } else {
    ch = kIllFormed;
  }
  std::size_t i = 1;
  for (; i <= nMore; ++i) {
    if (i == psText->size() || byteAt(i) < nLow || byteAt(i) > nHigh) {
      ch = kIllFormed;
      break;
    }
    ch = (ch << 6) | (byteAt(i) & 0x3FU);
    nLow = 0x80;
    nHigh = 0xBF;
  }
  psText->remove_prefix(i);
  return ch;
}

}  // namespace

std::string Utf8FromCodePage1252(std::string_view sText) noexcept try {
  std::string sUtf8;
  sUtf8.reserve(sText.size() + sText.size() / 8);
  for (const char chByte : sText) {
    const auto nByte = static_cast<unsigned char>(chByte);
    const auto ch =
        static_cast<char16_t>(nByte >= 0x80 && nByte <= 0x9F ? kMiddle[nByte - 0x80U] : nByte);
    if (ch < 0x80) {
      sUtf8 += chByte;
    } else if (ch < 0x800) {
      sUtf8 += static_cast<char>(0xC0 | (ch >> 6));
      sUtf8 += static_cast<char>(0x80 | (ch & 0x3F));
    } else {
      sUtf8 += static_cast<char>(0xE0 | (ch >> 12));
      sUtf8 += static_cast<char>(0x80 | ((ch >> 6) & 0x3F));
      sUtf8 += static_cast<char>(0x80 | (ch & 0x3F));
    }
  }
  return sUtf8;
} catch (const std::bad_alloc&) {
  return {};
}

std::string CodePage1252FromUtf8(std::string_view sText) noexcept try {
  std::string sBytes;
  sBytes.reserve(sText.size());
  while (!sText.empty()) sBytes += ByteOf(TakeCharacter(&sText));
  return sBytes;
} catch (const std::bad_alloc&) {
  return {};
}

}  // namespace ald
