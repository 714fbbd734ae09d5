#pragma once

#include <concepts>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

#include "aldlib/platform/Export.h"
#include "aldlib/platform/Types.h"
#include "aldlib/text/FixedString.h"

namespace ald {

// One value for a placeholder such as "%d" or "%s": an integer, a real number or a text. It is made
// where it is passed and refers to the caller's text, so it lives no longer than the call.
class MessageValue {
 public:
  enum class Kind : std::uint8_t { kInteger, kReal, kText };

  template <std::integral Number>
  constexpr MessageValue(Number nValue) noexcept
      : m_eKind(Kind::kInteger),
        m_bNegative(nValue < Number{0}),
        m_bWide(sizeof(Number) > sizeof(std::uint32_t)),
        m_nBits(static_cast<std::uint64_t>(nValue)) {}
  template <std::floating_point Number>
  constexpr MessageValue(Number value) noexcept
      : m_eKind(Kind::kReal), m_real(static_cast<double>(value)) {}
  // A null text shows as "(null)".
  constexpr MessageValue(const char* szText) noexcept
      : m_eKind(Kind::kText), m_sText(internal::IsNull(szText) ? "(null)" : szText) {}
  constexpr MessageValue(std::string_view sText) noexcept : m_eKind(Kind::kText), m_sText(sText) {}
  MessageValue(const CString& sText) noexcept : m_eKind(Kind::kText), m_sText(sText) {}
  template <FixedText Text>
  constexpr MessageValue(const Text& text) noexcept : m_eKind(Kind::kText), m_sText(text.view()) {}

  Kind GetKind() const noexcept { return m_eKind; }
  bool IsNegative() const noexcept { return m_bNegative; }
  // The integer without its sign.
  std::uint64_t Magnitude() const noexcept { return m_bNegative ? 0 - m_nBits : m_nBits; }
  // The integer as the type that was passed has it in memory, 32 bits at least: -1 is 4294967295.
  std::uint64_t Unsigned() const noexcept {
    return m_bWide ? m_nBits : m_nBits & std::numeric_limits<std::uint32_t>::max();
  }
  double Real() const noexcept { return m_real; }
  std::string_view Text() const noexcept { return m_sText; }

 private:
  Kind m_eKind;
  bool m_bNegative = false;
  bool m_bWide = false;
  std::uint64_t m_nBits = 0;
  double m_real = 0;
  std::string_view m_sText;
};

// Writes the format into the buffer, cut to fit, with the values in the place of its conversions,
// and zeroes the rest of the buffer. These are the conversions of printf for integers (d, i, u, o,
// x, X), characters (c), texts (s) and real numbers (e, f, g and their capitals), with flags, width
// and precision, and "%%". A number is written by its own value: length letters as in "%ld" are
// passed over. The decimal point is always ".".
//
//   ("%d of %s", 3, "10")  -> "3 of 10"         ("%05.1f%%", 2.25)  -> "002.2%"
//
// Returns false, with the format in the buffer as it stands, where printf would run wild: for more
// conversions than values, one of another kind than its value, "%n", or one that it does not know.
// Values that are left over do not count. A null format is empty.
ALDLIB_EXPORT bool FormatMessageText(CFixedStringParamRef out, const char* szFormat,
                                     std::span<const MessageValue> values) noexcept;

// One conversion of a format.
struct FormatConversion {
  static constexpr std::int32_t kNone = -1;
  static constexpr std::int32_t kFromValue = -2;  // "*"

  bool bLeft = false;
  bool bPlus = false;
  bool bSpace = false;
  bool bAlternate = false;
  bool bZero = false;
  std::int32_t nWidth = kNone;
  std::int32_t nPrecision = kNone;
  char cType = '\0';
  std::size_t nLength = 0;  // in the format, from the "%" on
};

// Reads the conversion that sFormat begins with. False if FormatMessageText refuses it.
ALDLIB_EXPORT bool ReadFormatConversion(std::string_view sFormat,
                                        FormatConversion& conversion) noexcept;

}  // namespace ald
