#pragma once

#include <compare>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <ostream>
#include <string_view>
#include <type_traits>
#include <utility>

#include "aldlib/platform/Export.h"

// Text in buffers of a size fixed at compile time.
//
//   CFixedString<9> sName("ALDERWOOD");     // "ALDERWOO": eight characters and the terminator
//   FillName(sName);                        // void FillName(CFixedStringParamRef ref)
//
// Every size counts the terminator, so a CFixedString<N> holds at most N-1 characters, and what
// does not fit is cut at the end without a report. Texts are bytes of code page 1252. Nothing here
// allocates (but CDynamicHeapFixedString, which has a header of its own), throws or fails.
namespace ald {

namespace internal {

// A constant expression holds no null text, and some compilers' sanitizers let it compare no
// pointers.
[[nodiscard]] constexpr bool IsNull(const char* szText) noexcept {
  return !std::is_constant_evaluated() && szText == nullptr;
}

}  // namespace internal

// Length of the text in the nSize bytes at szText: the index of its terminator, or nSize if there
// is none. A null text or a size below 1 has length 0.
[[nodiscard]] constexpr std::int32_t TextLength(const char* szText, std::int32_t nSize) noexcept {
  if (nSize < 1 || internal::IsNull(szText)) return 0;
  if (std::is_constant_evaluated()) {
    std::int32_t nLength = 0;
    while (nLength < nSize && szText[nLength] != '\0') ++nLength;
    return nLength;
  }
  const void* pEnd = std::memchr(szText, 0, static_cast<std::size_t>(nSize));
  return pEnd == nullptr ? nSize
                         : static_cast<std::int32_t>(static_cast<const char*>(pEnd) - szText);
}

// Copies at most nSize - 1 characters of szSource and zeroes every byte behind them, up to and
// including byte nSize - 1. Returns szDestination.
//   nothing is written if the two pointers are equal, szDestination is null or nSize is below 1
//   a null source counts as empty
// A source that overlaps the destination otherwise is copied as it stood before the call.
constexpr char* sstrcpy(char* szDestination, const char* szSource, std::int32_t nSize) noexcept {
  if (std::is_constant_evaluated()) {
    std::int32_t i = 0;
    for (; i < nSize - 1 && szSource[i] != '\0'; ++i) szDestination[i] = szSource[i];
    for (; i < nSize; ++i) szDestination[i] = '\0';
    return szDestination;
  }
  if (szDestination == szSource || nSize < 1 || szDestination == nullptr) return szDestination;
  const auto nSpace = static_cast<std::size_t>(nSize);
  const auto nLength = static_cast<std::size_t>(TextLength(szSource, nSize - 1));
  if (nLength != 0) std::memmove(szDestination, szSource, nLength);
  std::memset(szDestination + nLength, 0, nSpace - nLength);
  return szDestination;
}

template <int N>
class CFixedString;
struct CConstFixedStringParamRef;

// CFixedString, CPathNameString, CFixedStringParamRef, CConstFixedStringParamRef and
// CDynamicHeapFixedString.
template <typename T>
concept FixedText = std::is_class_v<T> && requires(const T& text) {
  { text.view() } -> std::same_as<std::string_view>;
  { text.GetSize() } -> std::same_as<std::int32_t>;
};

// Any other text: what a fixed string may be compared with.
template <typename T>
concept PlainText = !FixedText<T> && (std::convertible_to<const T&, const char*> ||
                                      std::convertible_to<const T&, std::string_view>);

namespace internal {

// An index outside [0, nSize) becomes the last byte, which is the terminator of a full text.
template <std::integral Index>
[[nodiscard]] constexpr std::int32_t ClampIndex(Index nIndex, std::int32_t nSize) noexcept {
  const auto n = +nIndex;  // a character counts as its number
  return std::cmp_less(n, 0) || std::cmp_greater_equal(n, nSize) ? nSize - 1
                                                                 : static_cast<std::int32_t>(n);
}

[[nodiscard]] constexpr std::string_view TextView(const char* szText, std::int32_t nSize) noexcept {
  return {szText, static_cast<std::size_t>(TextLength(szText, nSize))};
}

// Index of the first sSought in sSearched from nStart on, or -1. The empty text is found at the end
// of the searched one, and a start outside the text finds nothing.
[[nodiscard]] constexpr std::int32_t FindText(std::string_view sSought, std::string_view sSearched,
                                              std::int32_t nStart = 0) noexcept {
  if (nStart < 0 || std::cmp_greater(nStart, sSearched.size())) return -1;
  if (sSought.empty()) return static_cast<std::int32_t>(sSearched.size());
  const std::size_t nFound = sSearched.find(sSought, static_cast<std::size_t>(nStart));
  return nFound == std::string_view::npos ? -1 : static_cast<std::int32_t>(nFound);
}

[[nodiscard]] constexpr std::string_view ViewOrEmpty(const char* szText) noexcept {
  return IsNull(szText) ? std::string_view() : std::string_view(szText);
}
[[nodiscard]] constexpr std::string_view ViewOrEmpty(std::string_view sText) noexcept {
  return sText;
}

// As sstrcpy, of a text that may lack its terminator.
constexpr void CopyText(char* szDestination, std::int32_t nSize, std::string_view sText) noexcept {
  if (nSize < 1 || IsNull(szDestination)) return;
  sText = sText.substr(0, static_cast<std::size_t>(nSize) - 1);
  if (std::is_constant_evaluated()) {
    for (std::size_t i = 0; i < static_cast<std::size_t>(nSize); ++i) {
      szDestination[i] = i < sText.size() ? sText[i] : '\0';
    }
    return;
  }
  if (szDestination == sText.data()) return;
  if (!sText.empty()) std::memmove(szDestination, sText.data(), sText.size());
  std::memset(szDestination + sText.size(), 0, static_cast<std::size_t>(nSize) - sText.size());
}

}  // namespace internal

// A writable fixed string on its way to a routine: where it is and how large. Passed by value; the
// routine may write any byte of buffer[0 .. size-1], and keeps the pointer no longer than its call.
//
// Beware of what `=` means: a text or a CConstFixedStringParamRef on the right has its characters
// copied into the buffer, while another CFixedStringParamRef on the right re-aims this one at that
// one's buffer and copies no character.
struct ALDLIB_EXPORT CFixedStringParamRef {
  char* buffer = nullptr;  // not owned
  std::int32_t size = 0;   // the whole buffer in bytes, terminator counted

  constexpr CFixedStringParamRef() noexcept = default;
  constexpr CFixedStringParamRef(char* szBuffer, std::int32_t nSize) noexcept
      : buffer(szBuffer), size(nSize) {}
  template <int N>
  constexpr CFixedStringParamRef(CFixedString<N>& sText) noexcept;

  constexpr CFixedStringParamRef(const CFixedStringParamRef&) noexcept = default;
  constexpr CFixedStringParamRef& operator=(const CFixedStringParamRef&) noexcept = default;

  // Copies the characters, cut at size - 1, and zeroes the rest of the buffer.
  constexpr CFixedStringParamRef& operator=(const char* szText) noexcept {
    sstrcpy(buffer, szText, size);
    return *this;
  }
  template <FixedText T>
  constexpr CFixedStringParamRef& operator=(const T& text) noexcept {
    internal::CopyText(buffer, size, text.view());
    return *this;
  }

  constexpr operator char*() const noexcept { return buffer; }

  [[nodiscard]] constexpr std::int32_t GetSize() const noexcept { return size; }
  [[nodiscard]] constexpr bool IsEmpty() const noexcept {
    return size < 1 || internal::IsNull(buffer) || buffer[0] == '\0';
  }
  [[nodiscard]] constexpr std::string_view view() const noexcept {
    return internal::TextView(buffer, size);
  }

  // Zeroes all bytes.
  constexpr void Clear() const noexcept { sstrcpy(buffer, "", size); }

  // The address of a character. The index is taken as a signed 16-bit number; one outside the
  // buffer gives the last byte.
  template <std::integral Index>
  [[nodiscard]] constexpr char* operator+(Index nIndex) const noexcept {
    if (size < 1 || internal::IsNull(buffer)) return buffer;
    return buffer + internal::ClampIndex(static_cast<std::int16_t>(nIndex), size);
  }
  // The character at an index; one outside the buffer gives the last byte. The buffer must have
  // one.
  template <std::integral Index>
  [[nodiscard]] constexpr char& operator[](Index nIndex) const noexcept {
    return buffer[internal::ClampIndex(nIndex, size)];
  }

  // Index of the first szText, or -1. The empty text is found at the end of this one.
  [[nodiscard]] constexpr std::int32_t Find(const char* szText) const noexcept {
    return internal::FindText(internal::ViewOrEmpty(szText), view());
  }
  // The same from nStart on, the index still counted from the start of the buffer. -1 also if
  // nStart lies outside the text.
  [[nodiscard]] constexpr std::int32_t Find(const char* szText,
                                            std::int32_t nStart) const noexcept {
    return internal::FindText(internal::ViewOrEmpty(szText), view(), nStart);
  }

  // Replaces every szOld by szNew from left to right and returns how many. What was put in is not
  // searched again; what the buffer cannot hold is cut at its end. An empty szOld replaces nothing.
  std::int32_t ReplaceAll(const char* szOld, const char* szNew) const noexcept;
};

// The read-only twin, passed by constant reference. `size` bounds reading: no routine looks at an
// index past size-1, even when no terminator has come.
struct ALDLIB_EXPORT CConstFixedStringParamRef {
  const char* buffer = nullptr;  // not owned
  std::int32_t size = 0;         // readable bytes, terminator counted

  constexpr CConstFixedStringParamRef() noexcept = default;
  constexpr CConstFixedStringParamRef(const char* szBuffer, std::int32_t nSize) noexcept
      : buffer(szBuffer), size(nSize) {}
  // A literal or an array of characters, all of it.
  template <std::size_t Size>
  constexpr CConstFixedStringParamRef(const char (&szText)[Size]) noexcept
      : buffer(szText), size(static_cast<std::int32_t>(Size)) {}
  // All of another fixed text.
  template <FixedText T>
  constexpr CConstFixedStringParamRef(const T& text) noexcept
      : buffer(text), size(text.GetSize()) {}

  constexpr operator const char*() const noexcept { return buffer; }

  [[nodiscard]] constexpr std::int32_t GetSize() const noexcept { return size; }
  [[nodiscard]] constexpr bool IsEmpty() const noexcept {
    return size < 1 || internal::IsNull(buffer) || buffer[0] == '\0';
  }
  [[nodiscard]] constexpr std::string_view view() const noexcept {
    return internal::TextView(buffer, size);
  }
};

// N bytes of characters and nothing else: copying one copies N bytes, and its address is that of
// its first character. Byte N-1 is always zero and the text ends at the first zero.
//
// Indexes outside the buffer give its last byte, so that nothing beyond it is ever read or written;
// writing a character there breaks the rule above for whoever does it.
template <int N>
class ALDLIB_EXPORT CFixedString {
  static_assert(N >= 1, "one byte is needed for the terminator");

 public:
  // The empty text.
  constexpr CFixedString() noexcept = default;
  // As sstrcpy: null counts as empty, the text is cut at N-1 characters, the tail is zeroed.
  constexpr CFixedString(const char* szText) noexcept { sstrcpy(m_szText, szText, N); }
  // Another kind of fixed text, read no further than its size.
  template <FixedText T>
  requires(!std::derived_from<T, CFixedString>) constexpr explicit CFixedString(
      const T& text) noexcept {
    internal::CopyText(m_szText, N, text.view());
  }

  constexpr CFixedString& operator=(const char* szText) noexcept {
    sstrcpy(m_szText, szText, N);
    return *this;
  }
  template <FixedText T>
  requires(!std::derived_from<T, CFixedString>) constexpr CFixedString& operator=(
      const T& text) noexcept {
    internal::CopyText(m_szText, N, text.view());
    return *this;
  }

  constexpr operator char*() noexcept { return m_szText; }
  constexpr operator const char*() const noexcept { return m_szText; }
  constexpr operator std::string_view() const noexcept { return view(); }

  // N, the terminator counted.
  [[nodiscard]] constexpr std::int32_t GetSize() const noexcept { return N; }
  [[nodiscard]] constexpr bool IsEmpty() const noexcept { return m_szText[0] == '\0'; }
  [[nodiscard]] constexpr std::string_view view() const noexcept {
    return internal::TextView(m_szText, N);
  }

  // Zeroes all N bytes.
  constexpr void Clear() noexcept { sstrcpy(m_szText, "", N); }

  // The address of a character.
  template <std::integral Index>
  [[nodiscard]] constexpr char* operator+(Index nIndex) noexcept {
    return m_szText + internal::ClampIndex(nIndex, N);
  }
  template <std::integral Index>
  [[nodiscard]] constexpr const char* operator+(Index nIndex) const noexcept {
    return m_szText + internal::ClampIndex(nIndex, N);
  }
  template <std::integral Index>
  [[nodiscard]] constexpr char& operator[](Index nIndex) noexcept {
    return m_szText[internal::ClampIndex(nIndex, N)];
  }
  template <std::integral Index>
  [[nodiscard]] constexpr char operator[](Index nIndex) const noexcept {
    return m_szText[internal::ClampIndex(nIndex, N)];
  }

  // As the members of CFixedStringParamRef.
  [[nodiscard]] constexpr std::int32_t Find(const char* szText) const noexcept {
    return internal::FindText(internal::ViewOrEmpty(szText), view());
  }
  [[nodiscard]] constexpr std::int32_t Find(const char* szText,
                                            std::int32_t nStart) const noexcept {
    return internal::FindText(internal::ViewOrEmpty(szText), view(), nStart);
  }
  std::int32_t ReplaceAll(const char* szOld, const char* szNew) noexcept {
    return CFixedStringParamRef(*this).ReplaceAll(szOld, szNew);
  }

 private:
  char m_szText[static_cast<std::size_t>(N)]{};
};

// A full path: 259 characters and the terminator. A type of its own, so that an overload can tell a
// full path from a bare file name.
class ALDLIB_EXPORT CPathNameString : public CFixedString<260> {
 public:
  constexpr CPathNameString() noexcept = default;
  constexpr CPathNameString(const char* szText) noexcept : CFixedString(szText) {}
  template <FixedText T>
  requires(!std::derived_from<T, CPathNameString>) constexpr explicit CPathNameString(
      const T& text) noexcept
      : CFixedString(text) {}

  constexpr CPathNameString& operator=(const char* szText) noexcept {
    CFixedString::operator=(szText);
    return *this;
  }
  template <FixedText T>
  requires(!std::derived_from<T, CPathNameString>) constexpr CPathNameString& operator=(
      const T& text) noexcept {
    CFixedString::operator=(text);
    return *this;
  }
};

// Fixed strings are written into records byte for byte.
static_assert(sizeof(CFixedString<1>) == 1 && sizeof(CFixedString<13>) == 13);
static_assert(sizeof(CPathNameString) == 260);
static_assert(std::is_trivially_copyable_v<CFixedString<13>> &&
              std::is_standard_layout_v<CFixedString<13>> && alignof(CFixedString<13>) == 1);
static_assert(std::is_trivially_copyable_v<CPathNameString> &&
              std::is_standard_layout_v<CPathNameString>);
static_assert(std::is_trivially_copyable_v<CFixedStringParamRef> &&
              std::is_trivially_copyable_v<CConstFixedStringParamRef>);

template <int N>
constexpr CFixedStringParamRef::CFixedStringParamRef(CFixedString<N>& sText) noexcept
    : buffer(sText), size(N) {}

// Comparing, hashing and printing, for the C++ caller.
//
// `==` and `<=>` compare the texts by their bytes as unsigned numbers, so they agree with the order
// of std::string and with std::hash. CompareStr takes bytes as signed: there a character above 127
// sorts before every plain one and before the end of a shorter text. A null text counts as empty.

template <FixedText A, FixedText B>
[[nodiscard]] constexpr bool operator==(const A& a, const B& b) noexcept {
  return a.view() == b.view();
}
template <FixedText A, PlainText B>
[[nodiscard]] constexpr bool operator==(const A& a, const B& text) noexcept {
  return a.view() == internal::ViewOrEmpty(text);
}

template <FixedText A, FixedText B>
[[nodiscard]] constexpr std::strong_ordering operator<=>(const A& a, const B& b) noexcept {
  return a.view() <=> b.view();
}
template <FixedText A, PlainText B>
[[nodiscard]] constexpr std::strong_ordering operator<=>(const A& a, const B& text) noexcept {
  return a.view() <=> internal::ViewOrEmpty(text);
}

template <FixedText A>
std::ostream& operator<<(std::ostream& out, const A& text) {
  return out << text.view();
}

}  // namespace ald

template <int N>
struct std::hash<ald::CFixedString<N>> {
  std::size_t operator()(const ald::CFixedString<N>& sText) const noexcept {
    return std::hash<std::string_view>()(sText.view());
  }
};
template <>
struct std::hash<ald::CPathNameString> : std::hash<ald::CFixedString<260>> {};
