#include "aldlib/text/Base64.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <string_view>

#include "aldlib/text/FixedString.h"

namespace ald {
namespace {

constexpr std::string_view kAlphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// What a character of the input stands for: 0 to 63, or one of these.
constexpr std::uint8_t kPad = 64;
constexpr std::uint8_t kSkip = 65;

constexpr std::array<std::uint8_t, 256> kValues = [] {
  std::array<std::uint8_t, 256> anValues{};
  anValues.fill(kSkip);
  for (std::size_t i = 0; i < kAlphabet.size(); ++i) {
    anValues[static_cast<unsigned char>(kAlphabet[i])] = static_cast<std::uint8_t>(i);
  }
  anValues['='] = kPad;
  return anValues;
}();

char Digit(std::uint32_t nGroup, unsigned nShift) {
  return kAlphabet[(nGroup >> nShift) & 63];
}

}  // namespace

CString EncodeBase64(const char* szText) noexcept try {
  const std::string_view sText = internal::ViewOrEmpty(szText);
  CString sEncoded((sText.size() + 2) / 3 * 4, '=');
  char* pWrite = sEncoded.data();
  const auto byteAt = [sText](std::size_t i) -> std::uint32_t {
    return static_cast<unsigned char>(sText[i]);
  };
  std::size_t i = 0;
  for (; i + 3 <= sText.size(); i += 3) {
    const std::uint32_t nGroup = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
    *pWrite++ = Digit(nGroup, 18);
    *pWrite++ = Digit(nGroup, 12);
    *pWrite++ = Digit(nGroup, 6);
    *pWrite++ = Digit(nGroup, 0);
  }
  if (const std::size_t nRest = sText.size() - i; nRest != 0) {
    const std::uint32_t nGroup = byteAt(i) << 16 | (nRest == 2 ? byteAt(i + 1) << 8 : 0);
    *pWrite++ = Digit(nGroup, 18);
    *pWrite++ = Digit(nGroup, 12);
    if (nRest == 2) *pWrite++ = Digit(nGroup, 6);
  }
  return sEncoded;
} catch (const std::exception&) {
  return {};
}

CString DecodeBase64(const char* szText) noexcept try {
  const std::string_view sText = internal::ViewOrEmpty(szText);
  CString sDecoded;
  sDecoded.reserve(sText.size() / 4 * 3 + 3);
  std::uint32_t nBits = 0;
  unsigned nPending = 0;  // bits not yet written, fewer than 8; padding leaves them behind
  for (const char ch : sText) {
    const std::uint8_t nValue = kValues[static_cast<unsigned char>(ch)];
    if (nValue == kPad) break;
    if (nValue == kSkip) continue;
    nBits = nBits << 6 | nValue;
    nPending += 6;
    if (nPending < 8) continue;
    nPending -= 8;
    const auto nByte = static_cast<unsigned char>(nBits >> nPending);
    if (nByte == 0) break;
    sDecoded += static_cast<char>(nByte);
  }
  return sDecoded;
} catch (const std::exception&) {
  return {};
}

}  // namespace ald
