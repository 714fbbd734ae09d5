#pragma once

#include <charconv>
#include <cstddef>
#include <string_view>

namespace ald {

// A short text put together of numbers and words, in a buffer of its own of N bytes. What passes
// its end is dropped. Not part of the interface.
template <std::size_t N>
class FieldText {
 public:
  FieldText& Text(std::string_view sText) noexcept {
    for (const char ch : sText) {
      if (m_nLength + 1 < N) m_szText[m_nLength++] = ch;
    }
    return *this;
  }
  // With zeros in front to that many characters, a minus counted.
  FieldText& Number(int nValue, int nWidth = 1) noexcept {
    char aDigits[12];
    const auto end = std::to_chars(aDigits, aDigits + sizeof aDigits, nValue).ptr;
    std::string_view sDigits(aDigits, static_cast<std::size_t>(end - aDigits));
    auto nMissing = nWidth - static_cast<int>(sDigits.size());
    if (nValue < 0) {
      Text("-");
      sDigits.remove_prefix(1);
    }
    for (; nMissing > 0; --nMissing) Text("0");
    return Text(sDigits);
  }
  [[nodiscard]] const char* c_str() const noexcept { return m_szText; }
  [[nodiscard]] std::string_view view() const noexcept { return {m_szText, m_nLength}; }

 private:
  char m_szText[N]{};
  std::size_t m_nLength = 0;
};

}  // namespace ald
