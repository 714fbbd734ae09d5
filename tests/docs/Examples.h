#pragma once

#include <charconv>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <ranges>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>

#include "aldlib/aldlib.h"

// What the program made of a page's examples runs on: values as a page writes them, and the
// comparison with what the page says.
namespace docs_test {

// "12.50" in its quotes. What is not plain ASCII stands as \n, \r, \t or \xHH.
std::string ShowText(std::string_view sText, char cQuote = '"');
// 0A FF
std::string ShowBytes(const std::uint8_t* pBytes, std::size_t nBytes);

template <class T>
concept TextLike = std::convertible_to<const T&, std::string_view> || ald::FixedText<T> ||
    std::convertible_to<const T&, const char*>;
template <class T>
concept BytesLike = std::ranges::contiguous_range<T> && requires(const T& bytes) {
  requires(sizeof(*std::ranges::data(bytes)) == 1);
};

// A number, a text in quotes, true or false, a status by its name, bytes in hexadecimal, and null
// or an address for a pointer.
template <class T>
std::string Show(const T& value) {
  if constexpr (std::same_as<T, bool>) {
    return value ? "true" : "false";
  } else if constexpr (std::same_as<T, char>) {
    return value == '\0' ? "'\\0'" : ShowText({&value, 1}, '\'');
  } else if constexpr (std::same_as<T, ald::DEC_STATUS>) {
    return ald::StatusName(value);
  } else if constexpr (std::is_enum_v<T>) {
    return std::to_string(static_cast<std::underlying_type_t<T>>(value));
  } else if constexpr (std::integral<T>) {
    return std::to_string(value);
  } else if constexpr (std::floating_point<T>) {
    char szText[64];
    return {szText, std::to_chars(szText, szText + sizeof szText, value).ptr};
  } else if constexpr (ald::FixedText<T>) {
    return ShowText(value.view());
  } else if constexpr (std::convertible_to<const T&, const char*>) {
    const char* const szText = value;
    return szText == nullptr ? "null" : ShowText(szText);
  } else if constexpr (TextLike<T>) {
    return ShowText(value);
  } else if constexpr (std::is_pointer_v<T>) {
    return value == nullptr ? "null" : "an address";
  } else if constexpr (BytesLike<T>) {
    return ShowBytes(reinterpret_cast<const std::uint8_t*>(std::ranges::data(value)),
                     std::ranges::size(value));
  } else {
    std::ostringstream stream;
    stream << value;
    return stream.str();
  }
}

// Compares what a statement gave with what the page says, and complains of the difference.
void Check(const char* szPage, int nLine, const char* szStatement, const std::string& sGiven,
           const std::string& sStated);
// The same for all that a program writes to std::cout.
void CheckProgram(const char* szPage, int nLine, void (*pfnProgram)(), const std::string& sStated);

// Generated: runs the examples in the order of the page.
void RunExamples();

}  // namespace docs_test
